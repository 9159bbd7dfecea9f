// A generic description of a form: its control tree with kinds, names, bounds, texts and each kind's
// state, as plain data that a host renders and tests compare, and a JSON writer for it.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vcl {

class TControl;
class TCustomForm;
class TMenuItem;

// A node of a tree view or outline.
struct TNodeDesc {
    std::string Text;
    bool Expanded = false;
    bool Selected = false;
    std::vector<TNodeDesc> Children;
};

// A menu item and its sub-items.
struct TMenuItemDesc {
    std::string Name;
    std::string Caption;  // "-" for a separator
    std::string ShortCut; // "Ctrl+S", empty for none
    bool Enabled = true;
    bool Visible = true;
    bool Checked = false;
    std::vector<TMenuItemDesc> Items;
};

// One control. Kind-specific members are present only for the kinds that have them.
struct TControlDesc {
    std::string Kind; // class name
    std::string Name;
    int Left = 0, Top = 0, Width = 0, Height = 0;
    std::string Caption; // caption or text
    std::string Hint;
    bool Enabled = true;
    bool Visible = true;
    bool Focused = false;
    std::optional<bool> Checked;    // check boxes, radio buttons, speed buttons (Down)
    std::optional<bool> Grayed;     // check boxes in the grayed state
    std::vector<std::string> Items; // list and combo boxes, radio groups, tabs, pages, memo lines
    std::optional<int> ItemIndex;   // list and combo boxes, radio groups, tabs, pages
    std::vector<int> SelectedItems; // multi-select list boxes
    std::optional<int> Value;       // spin edits
    std::optional<int> MinValue, MaxValue;
    std::vector<std::vector<std::string>> Cells; // grids, [row][col]
    std::optional<int> Col, Row;                 // grid selection
    std::optional<int> FixedCols, FixedRows;
    std::vector<TNodeDesc> Nodes;                   // tree views and outlines
    std::optional<int> PictureWidth, PictureHeight; // images and glyph buttons
    std::optional<int> ModalResult;                 // buttons with a modal result
    bool Default = false;                           // the button Enter presses
    bool Cancel = false;                            // the button Escape presses
    bool ReadOnly = false;
    std::vector<TMenuItemDesc> Menu; // a form's main menu, a control's popup menu
    std::vector<TControlDesc> Children;

    // The first control of the subtree (this one included) with this name, ignoring case; nil if none.
    const TControlDesc* Find(const std::string& name) const;
};

// Describes a control and everything below it.
TControlDesc DescribeControl(const TControl* control);
TMenuItemDesc DescribeMenuItem(const TMenuItem* item);

// JSON text of a description. Strings are escaped per RFC 8259; bytes that are not valid UTF-8 are
// replaced by U+FFFD so that the output is always valid JSON. Members absent for a kind are left out.
std::string ToJson(const TControlDesc& desc, bool pretty = false);
std::string ToJson(const TMenuItemDesc& desc, bool pretty = false);
// A JSON string literal (with the quotes).
std::string JsonQuote(const std::string& text);

} // namespace vcl
