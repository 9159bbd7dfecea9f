// Outlines: a tree of text items with data, numbered 1.. in tree order, with expansion, a selected item,
// text paths joined by ItemSeparator, and the tab-indented Lines view.
#pragma once

#include <memory>
#include <vector>

#include "vcl/controls.h"

namespace vcl {

class TCustomOutline;

class EOutlineError : public rtl::Exception {
public:
    using Exception::Exception;
    const char* ClassName() const noexcept override { return "EOutlineError"; }
};

JEX_EVENT_TYPE(TOutlineEvent, void(rtl::TObject* Sender, int Index))
JEX_ENUM(TOutlineStyle, osText, osPlusMinusText, osPictureText, osPlusMinusPictureText, osTreeText,
         osTreePictureText)
JEX_ENUM(TOutlineOption, ooDrawTreeRoot, ooDrawFocusRect, ooStretchBitmaps)
JEX_SET(TOutlineOptions, TOutlineOption)

class TOutlineNode : public rtl::TPersistent {
    JEX_CLASS(TOutlineNode, rtl::TPersistent)
    explicit TOutlineNode(TCustomOutline* AOwner) : FOutline(AOwner) {}
    ~TOutlineNode() override;
    std::string Text() const { return FText; }
    void SetText(const std::string& v) { FText = v; }
    void* Data() const { return FData; }
    void SetData(void* v) { FData = v; }
    // 1 for a top-level item.
    int Level() const;
    // The item's number in tree order, 1-based.
    int Index() const { return FIndex; }
    TOutlineNode* Parent() const { return FParent; }
    bool HasItems() const { return !FChildren.empty(); }
    int ChildCount() const { return static_cast<int>(FChildren.size()); }
    TOutlineNode* Child(int i) const { return FChildren.at(i); }
    bool Expanded() const { return FExpanded; }
    // Raises the outline's OnExpand or OnCollapse when the state changes.
    void SetExpanded(bool v);
    void Expand() { SetExpanded(true); }
    void Collapse() { SetExpanded(false); }
    void FullExpand();
    void FullCollapse();
    // Indexes of the first, last, next and previous child (or sibling); -1 when there is none.
    int GetFirstChild() const;
    int GetLastChild() const;
    int GetNextChild(int Value) const;
    int GetPrevChild(int Value) const;
    // The texts from the top level down to this item, joined by the outline's ItemSeparator.
    std::string FullPath() const;
    // Every parent is expanded.
    bool IsVisible() const;
    TCustomOutline* Outline() const { return FOutline; }

private:
    friend class TCustomOutline;
    TCustomOutline* FOutline;
    TOutlineNode* FParent = nullptr;
    std::vector<TOutlineNode*> FChildren;
    std::string FText;
    void* FData = nullptr;
    bool FExpanded = false;
    int FIndex = 0;
};

class TCustomOutline : public TCustomControl {
    JEX_CLASS(TCustomOutline, TCustomControl)
    explicit TCustomOutline(TComponent* AOwner);
    ~TCustomOutline() override;

    int ItemCount() const { return static_cast<int>(FFlat.size()); }
    // 1-based; raises EOutlineError "Invalid outline index" out of range.
    TOutlineNode* Items(int Index) const;
    // Adds as the last sibling of item Index (0: at the top level); returns the new item's index.
    int Add(int Index, const std::string& Text) { return AddObject(Index, Text, nullptr); }
    int AddObject(int Index, const std::string& Text, void* Data);
    // Adds as the last child of item Index (0: at the top level).
    int AddChild(int Index, const std::string& Text) { return AddChildObject(Index, Text, nullptr); }
    int AddChildObject(int Index, const std::string& Text, void* Data);
    // Inserts before item Index, at its level (0: at the end of the top level).
    int Insert(int Index, const std::string& Text) { return InsertObject(Index, Text, nullptr); }
    int InsertObject(int Index, const std::string& Text, void* Data);
    // Deletes the item and everything below it.
    void Delete(int Index);
    void Clear();
    // The item whose full path (or, without a separator, whose text) matches ignoring case; 0 if none.
    int GetTextItem(const std::string& Value) const;
    int GetDataItem(const void* Value) const;
    // 0 when nothing is selected; assigning raises nothing.
    int SelectedItem() const { return FSelected ? FSelected->FIndex : 0; }
    void SetSelectedItem(int v);
    std::string ItemSeparator() const { return FItemSeparator; }
    void SetItemSeparator(const std::string& v) { FItemSeparator = v; }
    // Every item on a line, indented with one tab per level below the top.
    TStrings* Lines() const;
    void SetLines(TStrings* v);
    void FullExpand();
    void FullCollapse();
    void BeginUpdate() { ++FUpdateCount; }
    void EndUpdate();
    TOutlineStyle OutlineStyle() const { return FOutlineStyle; }
    void SetOutlineStyle(TOutlineStyle v) { FOutlineStyle = v; }
    TOutlineOptions Options() const { return FOptions; }
    void SetOptions(TOutlineOptions v) { FOptions = v; }

    // A person's click selects (use UserSelect), a double click toggles the selected item's expansion.
    void UserDblClick() override;
    // Selects item Index (1-based) as a click does, expanding its parents first, then OnClick.
    void UserSelect(int Index) override;
    // Selects by full path ("Navigate\First" with the default separator).
    void UserSelectText(const std::string& Text) override;
    void Describe(TControlDesc& d) const override;

    TOutlineEvent OnExpand;
    TOutlineEvent OnCollapse;

private:
    friend class TOutlineNode;
    void Renumber();
    TOutlineNode* NodeOrRoot(int Index) const;
    int AddUnder(TOutlineNode* parent, int position, const std::string& Text, void* Data);
    TOutlineNode* FRoot;
    std::vector<TOutlineNode*> FFlat; // index - 1 -> node
    TOutlineNode* FSelected = nullptr;
    std::string FItemSeparator = "\\";
    mutable std::unique_ptr<TStringList> FLines;
    int FUpdateCount = 0;
    TOutlineStyle FOutlineStyle = osTreePictureText;
    TOutlineOptions FOptions{ooDrawTreeRoot, ooDrawFocusRect};
};

class TOutline : public TCustomOutline {
    JEX_CLASS(TOutline, TCustomOutline)
    using TCustomOutline::TCustomOutline;
};

} // namespace vcl
