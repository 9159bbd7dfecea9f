// List and combo controls: list boxes that keep a partner's selection and scroll position in step (the
// check list, the tab-stop list and the plain one), the read-only log memo, font and colour combos, and
// the low-resource list and combo that keep their lines outside the control.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "jex/jexcommon.h"
#include "vcl/stdctrls.h"

namespace jex {

// What a synchronised partner follows.
JEX_ENUM(TjexSyncOption, jsoItemIndex, jsoTopIndex)
JEX_SET(TjexSyncOptions, TjexSyncOption)
// What a printout of the lines carries besides them.
JEX_ENUM(TjexPrintOption, jpoTitle, jpoPageNumbers, jpoDate)
JEX_SET(TjexPrintOptions, TjexPrintOption)

// The text a list or memo gives to the printer: with PrintLines a rule under every line, each line
// indented by Indent blanks; the title first with jpoTitle.
std::string jexPrintText(const rtl::TStrings* Lines, int Indent, bool PrintLines, TjexPrintOptions Options,
                         const std::string& Title);
// Printing needs a printer, which this platform does not have: raises EInvalidOperation "No printer is
// installed".
[[noreturn]] void jexNoPrinter();

// A list box that its SyncControl follows: the partner takes this list's item index and top line (as
// SyncOptions say) whenever they change here, and the other way round when the partner is synchronised
// with this one too.
class TjexCustomSyncListBox : public vcl::TCustomListBox {
    JEX_CLASS(TjexCustomSyncListBox, vcl::TCustomListBox)
    explicit TjexCustomSyncListBox(rtl::TComponent* AOwner);
    ~TjexCustomSyncListBox() override;
    TjexCustomSyncListBox* SyncControl() const { return FSyncControl; }
    // Raises EInvalidOperation for the list itself.
    void SetSyncControl(TjexCustomSyncListBox* Value);
    TjexSyncOptions SyncOptions() const { return FSyncOptions; }
    void SetSyncOptions(TjexSyncOptions Value) { FSyncOptions = Value; }
    int ScrollWidth() const { return FScrollWidth; }
    void SetScrollWidth(int Value) { FScrollWidth = Value < 0 ? 0 : Value; }
    int PrintIndent() const { return FPrintIndent; }
    void SetPrintIndent(int Value) { FPrintIndent = Value < 0 ? 0 : Value; }
    TjexPrintOptions Printing() const { return FPrinting; }
    void SetPrinting(TjexPrintOptions Value) { FPrinting = Value; }
    bool PrintLines() const { return FPrintLines; }
    void SetPrintLines(bool Value) { FPrintLines = Value; }

    // These pass the change on to the partner.
    void SetItemIndex(int Value);
    void SetTopIndex(int Value);
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;
    // What Print would print, and printing itself (see jexNoPrinter).
    std::string PrintText(const std::string& Title = {}) const;
    void Print(const std::string& Title = {}) const;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;
    void Synchronize();

private:
    TjexCustomSyncListBox* FSyncControl = nullptr;
    TjexSyncOptions FSyncOptions{jsoItemIndex, jsoTopIndex};
    int FScrollWidth = 0;
    int FPrintIndent = 0;
    TjexPrintOptions FPrinting;
    bool FPrintLines = false;
    bool FSyncing = false;
};

class TjexSyncListBox : public TjexCustomSyncListBox {
    JEX_CLASS(TjexSyncListBox, TjexCustomSyncListBox)
    using TjexCustomSyncListBox::TjexCustomSyncListBox;
};

// A list whose lines are divided into columns by tab characters, the columns starting at TabPositions
// (pixels from the left, one line each).
class TjexTabListBox : public TjexCustomSyncListBox {
    JEX_CLASS(TjexTabListBox, TjexCustomSyncListBox)
    explicit TjexTabListBox(rtl::TComponent* AOwner);
    ~TjexTabListBox() override;
    rtl::TStrings* TabPositions() const { return FTabPositions.get(); }
    void SetTabPositions(rtl::TStrings* Value) { FTabPositions->Assign(Value); }
    // The text of column Col of line Index (empty past the last tab).
    std::string ColumnText(int Index, int Col) const;
    // Where column Col starts: its tab position, or eight average characters per column past the last.
    int ColumnLeft(int Col) const;

private:
    std::unique_ptr<rtl::TStringList> FTabPositions;
};

// How a check list draws its check marks.
JEX_ENUM(TjexGlyphStyle, jgsCheck, jgsCross, jgsRadio, jgsCustom)
JEX_ENUM(TjexCheckListOption, jcoToggleOnClick, jcoToggleOnSpace, jcoFlat)
JEX_SET(TjexCheckListOptions, TjexCheckListOption)

// A list with a check mark before every line. CheckedItems and DisabledItems name the checked and the
// disabled lines by number ("0,2,5"). A person's click (jcoToggleOnClick) or Space (jcoToggleOnSpace)
// toggles the current line unless it is disabled, then raises OnClickCheck.
class TjexCheckListBox : public TjexCustomSyncListBox {
    JEX_CLASS(TjexCheckListBox, TjexCustomSyncListBox)
    explicit TjexCheckListBox(rtl::TComponent* AOwner);
    ~TjexCheckListBox() override;
    bool Checked(int Index) const;
    void SetChecked(int Index, bool Value);
    bool ItemEnabled(int Index) const;
    void SetItemEnabled(int Index, bool Value);
    void CheckAll(bool Value);
    int CheckedCount() const;

    vcl::TColor CheckedColor() const { return FCheckedColor; }
    void SetCheckedColor(vcl::TColor Value) { FCheckedColor = Value; }
    bool CheckedColorChange() const { return FCheckedColorChange; }
    void SetCheckedColorChange(bool Value) { FCheckedColorChange = Value; }
    std::string CheckedItems() const;
    void SetCheckedItems(const std::string& Value);
    std::string DisabledItems() const;
    void SetDisabledItems(const std::string& Value);
    bool DisabledItemsGrayed() const { return FDisabledItemsGrayed; }
    void SetDisabledItemsGrayed(bool Value) { FDisabledItemsGrayed = Value; }
    bool ExpandTabs() const { return FExpandTabs; }
    void SetExpandTabs(bool Value) { FExpandTabs = Value; }
    vcl::TBitmap* Glyph() const { return FGlyph.get(); }
    void SetGlyph(vcl::TBitmap* Value) { FGlyph->Assign(Value); }
    TjexAlignHorz GlyphAlignH() const { return FGlyphAlignH; }
    void SetGlyphAlignH(TjexAlignHorz Value) { FGlyphAlignH = Value; }
    TjexAlignVert GlyphAlignV() const { return FGlyphAlignV; }
    void SetGlyphAlignV(TjexAlignVert Value) { FGlyphAlignV = Value; }
    vcl::TColor GlyphForeColor() const { return FGlyphForeColor; }
    void SetGlyphForeColor(vcl::TColor Value) { FGlyphForeColor = Value; }
    int GlyphSpace() const { return FGlyphSpace; }
    void SetGlyphSpace(int Value) { FGlyphSpace = Value < 0 ? 0 : Value; }
    TjexGlyphStyle GlyphStyle() const { return FGlyphStyle; }
    void SetGlyphStyle(TjexGlyphStyle Value) { FGlyphStyle = Value; }
    TjexCheckListOptions Options() const { return FOptions; }
    void SetOptions(TjexCheckListOptions Value) { FOptions = Value; }
    // The colour line Index is drawn in: CheckedColor for a checked line with CheckedColorChange, grey
    // for a disabled one with DisabledItemsGrayed, else the font's.
    vcl::TColor ItemColor(int Index) const;
    // The line as shown: tabs expanded to the next multiple of eight columns with ExpandTabs.
    std::string DisplayText(int Index) const;

    // Toggles line Index as a person does (nothing for a disabled line).
    void ToggleItem(int Index);
    void UserSelect(int Index) override;
    void KeyPress(char& Key) override;
    rtl::TNotifyEvent OnClickCheck;

private:
    static std::string JoinFlags(const std::vector<char>& Flags);
    static void ParseFlags(const std::string& Text, std::vector<char>& Flags);
    // By line number, as the form file keeps them.
    std::vector<char> FChecked, FDisabled;
    vcl::TColor FCheckedColor = vcl::clRed;
    bool FCheckedColorChange = false;
    bool FDisabledItemsGrayed = true;
    bool FExpandTabs = false;
    std::unique_ptr<vcl::TBitmap> FGlyph;
    TjexAlignHorz FGlyphAlignH = jahLeft;
    TjexAlignVert FGlyphAlignV = javCenter;
    vcl::TColor FGlyphForeColor = vcl::clWindowText;
    int FGlyphSpace = 2;
    TjexGlyphStyle FGlyphStyle = jgsCheck;
    TjexCheckListOptions FOptions{jcoToggleOnClick, jcoToggleOnSpace};
};

// A memo for logs that a person cannot change (whatever ReadOnly says; only the program writes to it):
// AddLine appends and, with MaxEditLines (0: no limit), drops the oldest lines beyond the limit. SyncMemo
// follows its top line.
class TjexROMemo : public vcl::TMemo {
    JEX_CLASS(TjexROMemo, vcl::TMemo)
    explicit TjexROMemo(rtl::TComponent* AOwner);
    int MaxEditLines() const { return FMaxEditLines; }
    void SetMaxEditLines(int Value);
    int PrintIndent() const { return FPrintIndent; }
    void SetPrintIndent(int Value) { FPrintIndent = Value < 0 ? 0 : Value; }
    TjexPrintOptions Printing() const { return FPrinting; }
    void SetPrinting(TjexPrintOptions Value) { FPrinting = Value; }
    bool PrintLines() const { return FPrintLines; }
    void SetPrintLines(bool Value) { FPrintLines = Value; }
    TjexROMemo* SyncMemo() const { return FSyncMemo; }
    void SetSyncMemo(TjexROMemo* Value);
    void AddLine(const std::string& Line);
    void EnterText(const std::string& Text) override;
    void KeyPress(char& Key) override;
    // The first line in view; the partner follows.
    int TopLine() const { return FTopLine; }
    void SetTopLine(int Value);
    std::string PrintText(const std::string& Title = {}) const;
    void Print(const std::string& Title = {}) const;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    void Trim();
    int FMaxEditLines = 0;
    int FPrintIndent = 0;
    TjexPrintOptions FPrinting;
    bool FPrintLines = false;
    TjexROMemo* FSyncMemo = nullptr;
    int FTopLine = 0;
    bool FSyncing = false;
};

// ---- Combos ---------------------------------------------------------------------------------------------
JEX_ENUM(TjexFontOption, jfoTrueTypeOnly, jfoShowSample)
JEX_SET(TjexFontOptions, TjexFontOption)

// A combo of the installed font families (TrueType ones only with jfoTrueTypeOnly); Text is the chosen
// family. The lines come from the system, so they are not stored.
class TjexFontComboBox : public vcl::TCustomComboBox {
    JEX_CLASS(TjexFontComboBox, vcl::TCustomComboBox)
    explicit TjexFontComboBox(rtl::TComponent* AOwner);
    TjexFontOptions FontOptions() const { return FFontOptions; }
    void SetFontOptions(TjexFontOptions Value);
    std::string FontName() const { return Text(); }
    void SetFontName(const std::string& Value) { SetText(Value); }
    // Fills the lines again from the installed families.
    void RefreshFonts();

private:
    TjexFontOptions FFontOptions;
};

// A combo of colours: Items holds colour names or values as the platform writes them ("clRed",
// "$00FF8000"); with ShowText the names are shown beside the colour swatches.
class TjexColorComboBox : public vcl::TCustomComboBox {
    JEX_CLASS(TjexColorComboBox, vcl::TCustomComboBox)
    explicit TjexColorComboBox(rtl::TComponent* AOwner);
    bool ShowText() const { return FShowText; }
    void SetShowText(bool Value) { FShowText = Value; }
    // The colour of line Index; raises EConvertError for a line that names no colour.
    vcl::TColor Colors(int Index) const;
    // The chosen colour, clNone when nothing is chosen.
    vcl::TColor SelectedColor() const;
    // Chooses the line of that colour, adding one when there is none.
    void SetSelectedColor(vcl::TColor Value);
    // The platform's sixteen basic colours.
    static std::vector<std::string> DefaultColors();

private:
    bool FShowText = true;
};

// A combo that keeps its choices in Items outside the drop-down: the drop-down's lines exist only while it
// is open, so that many such combos cost only their texts. ItemIndex is the chosen line of Items.
class TjexLRComboBox : public vcl::TCustomComboBox {
    JEX_CLASS(TjexLRComboBox, vcl::TCustomComboBox)
    explicit TjexLRComboBox(rtl::TComponent* AOwner);
    ~TjexLRComboBox() override;
    rtl::TStrings* Items() const { return FChoices.get(); }
    void SetItems(rtl::TStrings* Value) { FChoices->Assign(Value); }
    int ItemIndex() const;
    void SetItemIndex(int Value);
    bool ListOpen() const { return FOpen; }
    void DropDown();
    void CloseUp();
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;

private:
    std::unique_ptr<rtl::TStringList> FChoices;
    bool FOpen = false;
};

// A list box that keeps its lines in one string list and shows only those in view, instead of one
// control item per line.
class TjexLRListBox : public vcl::TCustomControl {
    JEX_CLASS(TjexLRListBox, vcl::TCustomControl)
    explicit TjexLRListBox(rtl::TComponent* AOwner);
    ~TjexLRListBox() override;
    rtl::TStrings* Items() const { return FItems.get(); }
    void SetItems(rtl::TStrings* Value) { FItems->Assign(Value); }
    int ItemIndex() const { return FItemIndex; }
    // -1 or a line number; the line is scrolled into view.
    void SetItemIndex(int Value);
    int ItemHeight() const { return FItemHeight; }
    void SetItemHeight(int Value) { FItemHeight = Value < 1 ? 1 : Value; }
    bool Sorted() const { return FItems->Sorted(); }
    void SetSorted(bool Value) { FItems->SetSorted(Value); }
    int TopIndex() const { return FTopIndex; }
    void SetTopIndex(int Value);
    // How many lines fit, and the lines in view.
    int VisibleCount() const;
    std::vector<std::string> VisibleItems() const;
    int ItemAtPos(int Y) const;
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;
    void KeyDown(uint16_t& Key, vcl::TShiftState Shift) override;
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    void Describe(vcl::TControlDesc& d) const override;

private:
    std::unique_ptr<rtl::TStringList> FItems;
    int FItemIndex = -1;
    int FItemHeight = 16;
    int FTopIndex = 0;
};

} // namespace jex
