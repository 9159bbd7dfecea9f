// Common controls: page and tab controls, tree views, tool bars, status bars, progress and track bars,
// up-down buttons, date pickers and month calendars, rich edits and list views.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "vcl/menus.h"
#include "vcl/stdctrls.h"

namespace vcl {

// Dates and times as the platform's TDateTime: days since 1899-12-30, the time of day as the fraction.
using TDateTime = double;
// The date of a calendar day; raises EConvertError for a day that does not exist.
TDateTime EncodeDate(int Year, int Month, int Day);
void DecodeDate(TDateTime Date, int& Year, int& Month, int& Day);
TDateTime EncodeTime(int Hour, int Min, int Sec, int MSec = 0);
void DecodeTime(TDateTime Time, int& Hour, int& Min, int& Sec, int& MSec);
// The local date and time now.
TDateTime Now();
// Formats with the date picker's format codes: d dd ddd dddd, M MM MMM MMMM, y yy yyyy, h hh H HH, m mm,
// s ss, t tt (AM/PM), 'quoted literal'; other characters are copied.
std::string FormatPickerDateTime(const std::string& Format, TDateTime Value);
// Reads text written with such a format (names of months and days in English); the parts the format
// lacks come from Value. False, leaving Value as it was, when the text does not fit or names no real day.
bool ParsePickerDateTime(const std::string& Format, const std::string& Text, TDateTime& Value);

// ---- Tab and page controls -----------------------------------------------------------------------------
JEX_ENUM(TTabPosition, tpTop, tpBottom, tpLeft, tpRight)
JEX_ENUM(TTabStyle, tsTabs, tsButtons, tsFlatButtons)
JEX_EVENT_TYPE(TTabChangingEvent, void(rtl::TObject* Sender, bool& AllowChange))

// What tab and page controls share: the tab strip's look, the images of the tabs, and the change events
// a person's choice of a tab raises (OnChanging may refuse, OnChange follows).
class TCustomTabControl : public TWinControl {
    JEX_CLASS(TCustomTabControl, TWinControl)
    explicit TCustomTabControl(TComponent* AOwner);
    bool HotTrack() const { return FHotTrack; }
    void SetHotTrack(bool v) { FHotTrack = v; }
    TCustomImageList* Images() const { return FImages; }
    void SetImages(TCustomImageList* v);
    bool MultiLine() const { return FMultiLine; }
    void SetMultiLine(bool v) { FMultiLine = v; }
    bool RaggedRight() const { return FRaggedRight; }
    void SetRaggedRight(bool v) { FRaggedRight = v; }
    bool ScrollOpposite() const { return FScrollOpposite; }
    void SetScrollOpposite(bool v) { FScrollOpposite = v; }
    TTabStyle Style() const { return FStyle; }
    void SetStyle(TTabStyle v) { FStyle = v; }
    TTabPosition TabPosition() const { return FTabPosition; }
    void SetTabPosition(TTabPosition v);
    // 0: the height (width) that fits the tab's text.
    int TabHeight() const { return FTabHeight; }
    void SetTabHeight(int v);
    int TabWidth() const { return FTabWidth; }
    void SetTabWidth(int v);
    // The client area less the tab strip and the frame.
    TRect AdjustClientRect() const override;

    TTabChangingEvent OnChanging;
    TNotifyEvent OnChange;

protected:
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;
    virtual bool CanChange();
    virtual void Change() { OnChange(this); }
    // Height of the tab strip.
    int TabStripSize() const;

private:
    bool FHotTrack = false, FMultiLine = false, FRaggedRight = false, FScrollOpposite = false;
    TTabStyle FStyle = tsTabs;
    TTabPosition FTabPosition = tpTop;
    int FTabHeight = 0, FTabWidth = 0;
    TCustomImageList* FImages = nullptr;
};

// A strip of tabs over one client area; what the tabs stand for is up to the form's handlers.
class TTabControl : public TCustomTabControl {
    JEX_CLASS(TTabControl, TCustomTabControl)
    explicit TTabControl(TComponent* AOwner);
    ~TTabControl() override;
    // The tab captions. Adding the first tab selects it; deleting the selected one selects none.
    TStrings* Tabs() const { return FTabs; }
    void SetTabs(TStrings* v) { FTabs->Assign(v); }
    // -1 for none; setting it in code raises no events; values out of range are ignored.
    int TabIndex() const { return FTabIndex; }
    void SetTabIndex(int v);
    // A person's click on tab Index: OnChanging, then the change and OnChange.
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;
    void Loaded() override;
    void Describe(TControlDesc& d) const override;

private:
    void TabsChanged();
    TStringList* FTabs;
    int FTabIndex = -1;
    int FLastCount = 0;
};

class TPageControl;

// One page of a page control. Owned by the form like any control, its parent is the page control; only
// the active page shows.
class TTabSheet : public TWinControl {
    JEX_CLASS(TTabSheet, TWinControl)
    explicit TTabSheet(TComponent* AOwner);
    ~TTabSheet() override;
    TPageControl* PageControl() const { return FPageControl; }
    // Moves the sheet to another page control (at its end), or takes it out with nil.
    void SetPageControl(TPageControl* v);
    // The position among the page control's pages; setting it moves the page.
    int PageIndex() const;
    void SetPageIndex(int v);
    // The position among the visible tabs, or -1 when the tab is hidden.
    int TabIndex() const;
    bool TabVisible() const { return FTabVisible; }
    void SetTabVisible(bool v);
    TImageIndex ImageIndex() const { return FImageIndex; }
    void SetImageIndex(TImageIndex v) { FImageIndex = v; }
    bool Highlighted() const { return FHighlighted; }
    void SetHighlighted(bool v) { FHighlighted = v; }
    void SetParent(TWinControl* AParent) override;

    TNotifyEvent OnShow;
    TNotifyEvent OnHide;

private:
    friend class TPageControl;
    TPageControl* FPageControl = nullptr;
    bool FTabVisible = true, FHighlighted = false;
    TImageIndex FImageIndex = 0;
};

// Pages with a tab each. A page joins by getting the page control as its parent (SetPageControl); the
// first page to join becomes the active one. Setting ActivePage in code raises no events; a person's
// choice of a tab raises OnChanging (which may refuse) and OnChange, and the sheets' OnHide and OnShow.
class TPageControl : public TCustomTabControl {
    JEX_CLASS(TPageControl, TCustomTabControl)
    explicit TPageControl(TComponent* AOwner);
    ~TPageControl() override;
    int PageCount() const { return static_cast<int>(FPages.size()); }
    TTabSheet* Pages(int Index) const; // raises EListError out of range
    TTabSheet* ActivePage() const { return FActivePage; }
    // A sheet of another page control raises EInvalidOperation; nil hides every page.
    void SetActivePage(TTabSheet* v);
    int ActivePageIndex() const;
    void SetActivePageIndex(int v); // -1 for none; out of range is ignored
    // The next (previous) page after CurPage, wrapping; with CheckTabVisible only pages whose tab shows.
    TTabSheet* FindNextPage(TTabSheet* CurPage, bool GoForward, bool CheckTabVisible) const;
    // Moves to the next page as Ctrl+Tab does (with the change events).
    void SelectNextPage(bool GoForward);
    // The captions of the visible tabs, and the active page's position among them (-1 when none).
    std::vector<std::string> TabCaptions() const;
    int TabIndex() const;
    // The sheet whose tab is at a position among the visible tabs, or nil.
    TTabSheet* PageForTab(int TabIndex) const;

    void GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) override;
    void SetChildOrder(TComponent* Child, int Order) override;
    void AlignControls() override;
    // A person's click on the tab at Index among the visible tabs (or with that caption).
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;
    void KeyDown(uint16_t& Key, TShiftState Shift) override;
    void Describe(TControlDesc& d) const override;

private:
    friend class TTabSheet;
    void ControlAdded(TControl* AControl) override;
    void ControlRemoved(TControl* AControl) override;
    // Shows the new page and hides the old one, raising the sheets' OnHide and OnShow.
    void ChangeActivePage(TTabSheet* Page);
    bool UserChangeTo(TTabSheet* Page);
    std::vector<TTabSheet*> FPages;
    TTabSheet* FActivePage = nullptr;
};

// ---- Tree views --------------------------------------------------------------------------------------
class TTreeNodes;
class TCustomTreeView;

JEX_ENUM(TSortType, stNone, stData, stText, stBoth)
JEX_ENUM(TNodeAttachMode, naAdd, naAddFirst, naAddChild, naAddChildFirst, naInsert)

class TTreeNode;
JEX_EVENT_TYPE(TTVChangingEvent, void(rtl::TObject* Sender, TTreeNode* Node, bool& AllowChange))
JEX_EVENT_TYPE(TTVChangedEvent, void(rtl::TObject* Sender, TTreeNode* Node))
JEX_EVENT_TYPE(TTVExpandingEvent, void(rtl::TObject* Sender, TTreeNode* Node, bool& AllowExpansion))
JEX_EVENT_TYPE(TTVCollapsingEvent, void(rtl::TObject* Sender, TTreeNode* Node, bool& AllowCollapse))
JEX_EVENT_TYPE(TTVExpandedEvent, void(rtl::TObject* Sender, TTreeNode* Node))
JEX_EVENT_TYPE(TTVEditingEvent, void(rtl::TObject* Sender, TTreeNode* Node, bool& AllowEdit))
JEX_EVENT_TYPE(TTVEditedEvent, void(rtl::TObject* Sender, TTreeNode* Node, std::string& S))
JEX_EVENT_TYPE(TTVCompareEvent,
               void(rtl::TObject* Sender, TTreeNode* Node1, TTreeNode* Node2, int Data, int& Compare))

// One node of a tree view. Nodes are made by the view's TTreeNodes and freed by Delete (or with their
// parent or the view).
class TTreeNode : public rtl::TPersistent {
    JEX_CLASS(TTreeNode, rtl::TPersistent)
    explicit TTreeNode(TTreeNodes* AOwner);
    ~TTreeNode() override;
    // Text, images, expansion and children of another node (Data too).
    void Assign(rtl::TPersistent* Source) override;

    TTreeNodes* Owner() const { return FOwner; }
    TCustomTreeView* TreeView() const;
    std::string Text() const { return FText; }
    void SetText(const std::string& v);
    void* Data() const { return FData; }
    void SetData(void* v) { FData = v; }
    TImageIndex ImageIndex() const { return FImageIndex; }
    void SetImageIndex(TImageIndex v) { FImageIndex = v; }
    TImageIndex SelectedIndex() const { return FSelectedIndex; }
    void SetSelectedIndex(TImageIndex v) { FSelectedIndex = v; }
    int StateIndex() const { return FStateIndex; }
    void SetStateIndex(int v) { FStateIndex = v; }
    int OverlayIndex() const { return FOverlayIndex; }
    void SetOverlayIndex(int v) { FOverlayIndex = v; }

    TTreeNode* Parent() const { return FParent; }
    int Count() const { return static_cast<int>(FChildren.size()); }
    TTreeNode* Item(int Index) const; // raises EListError out of range
    int IndexOf(const TTreeNode* Child) const;
    // Position among the siblings.
    int Index() const;
    // Position in tree order among all nodes of the view.
    int AbsoluteIndex() const;
    // 0 for a top-level node.
    int Level() const;
    // Children exist, or HasChildren was set to show a button before children are added on expansion.
    bool HasChildren() const { return FHasChildren || !FChildren.empty(); }
    void SetHasChildren(bool v) { FHasChildren = v; }
    bool HasAsParent(const TTreeNode* Value) const;

    TTreeNode* GetFirstChild() const { return FChildren.empty() ? nullptr : FChildren.front(); }
    TTreeNode* GetLastChild() const { return FChildren.empty() ? nullptr : FChildren.back(); }
    TTreeNode* GetNextSibling() const;
    TTreeNode* GetPrevSibling() const;
    // The next (previous) node in tree order: first child, next sibling, next sibling of a parent.
    TTreeNode* GetNext() const;
    TTreeNode* GetPrev() const;
    // The next (previous) node that a person sees (every parent expanded).
    TTreeNode* GetNextVisible() const;
    TTreeNode* GetPrevVisible() const;

    // Expanding asks OnExpanding and raises OnExpanded; only a node with children can be expanded.
    // Collapsing a node whose descendant is selected selects the node.
    bool Expanded() const { return FExpanded; }
    void SetExpanded(bool v);
    void Expand(bool Recurse);
    void Collapse(bool Recurse);
    // Every parent is expanded.
    bool IsVisible() const;
    // Expands the parents.
    void MakeVisible();
    bool Selected() const;
    // Selects the node (OnChanging may refuse) or, with false, leaves the view without a selection.
    void SetSelected(bool v);
    bool Focused() const { return Selected(); }
    bool Cut() const { return FCut; }
    void SetCut(bool v) { FCut = v; }
    bool DropTarget() const { return FDropTarget; }
    void SetDropTarget(bool v) { FDropTarget = v; }

    // Texts from the top level down to this node, joined by Separator.
    std::string Path(const std::string& Separator = "\\") const;
    // Moves the node (with its children) relative to Destination; raises ETreeViewError for a move into the
    // node itself or below it.
    void MoveTo(TTreeNode* Destination, TNodeAttachMode Mode);
    // Sorts the children by text, ignoring case (Recurse: every level below too).
    void AlphaSort(bool Recurse = false);
    bool CustomSort(const std::function<int(TTreeNode*, TTreeNode*)>& Compare, bool Recurse = false);
    // Frees the node and its children (OnDeletion for each, children first).
    void Delete();
    void DeleteChildren();

private:
    friend class TTreeNodes;
    friend class TCustomTreeView;
    std::vector<TTreeNode*>& Siblings() const;
    TTreeNodes* FOwner;
    TTreeNode* FParent = nullptr;
    std::vector<TTreeNode*> FChildren;
    std::string FText;
    void* FData = nullptr;
    TImageIndex FImageIndex = 0, FSelectedIndex = 0;
    int FStateIndex = -1, FOverlayIndex = -1;
    bool FExpanded = false, FHasChildren = false, FCut = false, FDropTarget = false;
};

class ETreeViewError : public rtl::Exception {
public:
    using Exception::Exception;
    const char* ClassName() const noexcept override { return "ETreeViewError"; }
};

// The nodes of a tree view. Items(i) numbers every node in tree order. With the view's SortType set to
// stText or stBoth, nodes are kept sorted by text among their siblings as they are added.
class TTreeNodes : public rtl::TPersistent {
    JEX_CLASS(TTreeNodes, rtl::TPersistent)
    explicit TTreeNodes(TCustomTreeView* AOwner);
    ~TTreeNodes() override;
    // Copies every node of another TTreeNodes.
    void Assign(rtl::TPersistent* Source) override;
    TPersistent* GetOwner() const override;
    TCustomTreeView* Owner() const { return FOwner; }

    int Count() const;
    TTreeNode* Item(int Index) const; // raises EListError out of range
    TTreeNode* operator[](int Index) const { return Item(Index); }
    TTreeNode* GetFirstNode() const { return FRoots.empty() ? nullptr : FRoots.front(); }
    // Top-level nodes in order.
    const std::vector<TTreeNode*>& TopLevel() const { return FRoots; }

    // Sibling nil adds at the top level.
    TTreeNode* Add(TTreeNode* Sibling, const std::string& S) { return AddObject(Sibling, S, nullptr); }
    TTreeNode* AddObject(TTreeNode* Sibling, const std::string& S, void* Ptr);
    TTreeNode* AddFirst(TTreeNode* Sibling, const std::string& S) {
        return AddObjectFirst(Sibling, S, nullptr);
    }
    TTreeNode* AddObjectFirst(TTreeNode* Sibling, const std::string& S, void* Ptr);
    // Parent nil adds at the top level.
    TTreeNode* AddChild(TTreeNode* Parent, const std::string& S) {
        return AddChildObject(Parent, S, nullptr);
    }
    TTreeNode* AddChildObject(TTreeNode* Parent, const std::string& S, void* Ptr);
    TTreeNode* AddChildFirst(TTreeNode* Parent, const std::string& S) {
        return AddChildObjectFirst(Parent, S, nullptr);
    }
    TTreeNode* AddChildObjectFirst(TTreeNode* Parent, const std::string& S, void* Ptr);
    // Before Sibling, at its level (nil: at the end of the top level).
    TTreeNode* Insert(TTreeNode* Sibling, const std::string& S) { return InsertObject(Sibling, S, nullptr); }
    TTreeNode* InsertObject(TTreeNode* Sibling, const std::string& S, void* Ptr);
    void Delete(TTreeNode* Node);
    void Clear();
    // The first node in tree order with this text (ignoring case) or Data, or nil.
    TTreeNode* FindNode(const std::string& Text) const;
    TTreeNode* FindData(const void* Data) const;
    // The node at a path of texts ("Parent\\Child"), matching each level ignoring case, or nil.
    TTreeNode* FindPath(const std::string& Path, const std::string& Separator = "\\") const;

    // Sorting and the view's OnChange wait while an update is open.
    void BeginUpdate();
    void EndUpdate();
    int UpdateCount() const { return FUpdateCount; }

    // "Data": the nodes in the platform's binary layout: the number of top-level nodes (Int32), then each
    // node in tree order as a record: its size (Int32), ImageIndex, SelectedIndex, StateIndex, OverlayIndex,
    // Data (written 0), child count (Int32 each), and the text as a length byte and its bytes. The record
    // size covers the whole text, so texts longer than 255 bytes round-trip. Reading raises EReadError for
    // malformed data and leaves the nodes as they were.
    void DefineProperties(rtl::TFiler& Filer) override;
    void ReadData(const std::vector<uint8_t>& Data);
    void WriteData(std::vector<uint8_t>& Data) const;

private:
    friend class TTreeNode;
    friend class TCustomTreeView;
    TTreeNode* AddNode(TTreeNode* Parent, int Position, const std::string& S, void* Ptr);
    std::vector<TTreeNode*>& ListOf(TTreeNode* Parent) { return Parent ? Parent->FChildren : FRoots; }
    void Changed();
    const std::vector<TTreeNode*>& Flat() const;
    TCustomTreeView* FOwner;
    std::vector<TTreeNode*> FRoots;
    mutable std::vector<TTreeNode*> FFlat;
    mutable bool FFlatValid = false;
    int FUpdateCount = 0;
};

class TCustomTreeView : public TWinControl {
    JEX_CLASS(TCustomTreeView, TWinControl)
    explicit TCustomTreeView(TComponent* AOwner);
    ~TCustomTreeView() override;

    TTreeNodes* Items() const { return FTreeNodes; }
    void SetItems(TTreeNodes* v) { FTreeNodes->Assign(v); }
    // Setting the selection in code raises OnChanging (which may refuse) and OnChange, and expands the
    // node's parents, as on the platform.
    TTreeNode* Selected() const { return FSelected; }
    void SetSelected(TTreeNode* v);
    TCustomImageList* Images() const { return FImages; }
    void SetImages(TCustomImageList* v);
    TCustomImageList* StateImages() const { return FStateImages; }
    void SetStateImages(TCustomImageList* v);
    bool ReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool v) { FReadOnly = v; }
    bool ShowLines() const { return FShowLines; }
    void SetShowLines(bool v) { FShowLines = v; }
    bool ShowRoot() const { return FShowRoot; }
    void SetShowRoot(bool v) { FShowRoot = v; }
    bool ShowButtons() const { return FShowButtons; }
    void SetShowButtons(bool v) { FShowButtons = v; }
    bool HideSelection() const { return FHideSelection; }
    void SetHideSelection(bool v) { FHideSelection = v; }
    bool HotTrack() const { return FHotTrack; }
    void SetHotTrack(bool v) { FHotTrack = v; }
    bool RowSelect() const { return FRowSelect; }
    void SetRowSelect(bool v) { FRowSelect = v; }
    bool AutoExpand() const { return FAutoExpand; }
    void SetAutoExpand(bool v) { FAutoExpand = v; }
    bool RightClickSelect() const { return FRightClickSelect; }
    void SetRightClickSelect(bool v) { FRightClickSelect = v; }
    bool ToolTips() const { return FToolTips; }
    void SetToolTips(bool v) { FToolTips = v; }
    int Indent() const { return FIndent; }
    void SetIndent(int v) { FIndent = v < 0 ? 0 : v; }
    int ChangeDelay() const { return FChangeDelay; }
    void SetChangeDelay(int v) { FChangeDelay = v; }
    TBorderStyle BorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TBorderStyle v) { FBorderStyle = v; }
    // stText and stBoth sort every level by text now and whenever nodes are added or renamed; stData and
    // stBoth sort through OnCompare when it is assigned.
    TSortType SortType() const { return FSortType; }
    void SetSortType(TSortType v);
    // Sorts the top level (and every level below with Recurse) by OnCompare, else by text.
    bool AlphaSort(bool Recurse = true);
    void FullExpand();
    void FullCollapse();
    // The image a node shows: OnGetImageIndex (OnGetSelectedIndex for the selected node) may set it first.
    TImageIndex NodeImageIndex(TTreeNode* Node);
    // Whether text editing of Node may start (OnEditing), and the end of an edit (OnEdited may change S).
    bool CanEdit(TTreeNode* Node);
    void Edit(TTreeNode* Node, const std::string& S);

    // A person's choice of the node at this tree-order index (or text path "Parent\\Child"): the parents
    // expand, the selection changes (OnChanging, OnChange), then OnClick.
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;
    // A double click toggles the selected node's expansion.
    void UserDblClick() override;
    // Editing the selected node's label: refused when ReadOnly, without a selection or by OnEditing.
    void UserType(const std::string& Text) override;
    // Arrow keys move the selection; Right/Left (and + / -) expand and collapse.
    void KeyDown(uint16_t& Key, TShiftState Shift) override;
    void Describe(TControlDesc& d) const override;

    TTVChangingEvent OnChanging;
    TTVChangedEvent OnChange;
    TTVExpandingEvent OnExpanding;
    TTVExpandedEvent OnExpanded;
    TTVCollapsingEvent OnCollapsing;
    TTVExpandedEvent OnCollapsed;
    TTVExpandedEvent OnDeletion;
    TTVEditingEvent OnEditing;
    TTVEditedEvent OnEdited;
    TTVExpandedEvent OnGetImageIndex;
    TTVExpandedEvent OnGetSelectedIndex;
    TTVCompareEvent OnCompare;

protected:
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;
    virtual bool CanChange(TTreeNode* Node);
    virtual void Change(TTreeNode* Node) { OnChange(this, Node); }
    virtual bool CanExpand(TTreeNode* Node);
    virtual bool CanCollapse(TTreeNode* Node);
    virtual void Delete(TTreeNode* Node) { OnDeletion(this, Node); }

private:
    friend class TTreeNode;
    friend class TTreeNodes;
    // The node leaves the tree: the selection moves away from it (next sibling, previous, parent).
    void NodeRemoving(TTreeNode* Node);
    int CompareNodes(TTreeNode* a, TTreeNode* b);
    void SortList(std::vector<TTreeNode*>& List, bool Recurse);
    void SortSiblingsOf(TTreeNode* Node);
    bool SortsByText() const { return FSortType == stText || FSortType == stBoth; }
    TTreeNodes* FTreeNodes;
    TTreeNode* FSelected = nullptr;
    TCustomImageList* FImages = nullptr;
    TCustomImageList* FStateImages = nullptr;
    bool FReadOnly = false, FShowLines = true, FShowRoot = true, FShowButtons = true;
    bool FHideSelection = true, FHotTrack = false, FRowSelect = false, FAutoExpand = false;
    bool FRightClickSelect = false, FToolTips = true;
    int FIndent = 19, FChangeDelay = 0;
    TBorderStyle FBorderStyle = bsSingle;
    TSortType FSortType = stNone;
    bool FClearing = false;
};

class TTreeView : public TCustomTreeView {
    JEX_CLASS(TTreeView, TCustomTreeView)
    using TCustomTreeView::TCustomTreeView;
};

// ---- Tool bars -----------------------------------------------------------------------------------------
JEX_ENUM(TToolButtonStyle, tbsButton, tbsCheck, tbsDropDown, tbsSeparator, tbsDivider)
JEX_ENUM(TEdgeBorder, ebLeft, ebTop, ebRight, ebBottom)
JEX_SET(TEdgeBorders, TEdgeBorder)
JEX_ENUM(TEdgeStyle, esNone, esRaised, esLowered)

class TToolBar;

// A button of a tool bar; the tool bar sizes and places it. Check buttons that are Grouped form a group
// with their Grouped check neighbours: one of them at most is down.
class TToolButton : public TGraphicControl {
    JEX_CLASS(TToolButton, TGraphicControl)
    explicit TToolButton(TComponent* AOwner);
    ~TToolButton() override;
    TToolBar* ToolBar() const;
    bool AllowAllUp() const { return FAllowAllUp; }
    void SetAllowAllUp(bool v);
    bool Down() const { return FDown; }
    // A grouped check button going down puts the others of its group up; one that would leave its group
    // with none down is refused unless the group allows all up.
    void SetDown(bool v);
    TPopupMenu* DropdownMenu() const { return FDropdownMenu; }
    void SetDropdownMenu(TPopupMenu* v);
    bool Grouped() const { return FGrouped; }
    void SetGrouped(bool v);
    TImageIndex ImageIndex() const { return FImageIndex; }
    void SetImageIndex(TImageIndex v);
    bool Indeterminate() const { return FIndeterminate; }
    void SetIndeterminate(bool v) { FIndeterminate = v; }
    bool Marked() const { return FMarked; }
    void SetMarked(bool v) { FMarked = v; }
    TToolButtonStyle Style() const { return FStyle; }
    void SetStyle(TToolButtonStyle v);
    // A line break after this button.
    bool Wrap() const { return FWrap; }
    void SetWrap(bool v);
    // The position among the tool bar's buttons.
    int Index() const;
    // The buttons of this button's group (itself alone when it is not in one).
    std::vector<TToolButton*> Group() const;

    // A person's click: a check button goes down (or up), then OnClick; a drop-down button without an
    // OnClick handler drops its menu instead. Separators take no clicks.
    void UserClick() override;
    // The arrow of a drop-down button: shows DropdownMenu below the button through the service.
    bool CheckMenuDropdown();
    void SetBounds(int ALeft, int ATop, int AWidth, int AHeight) override;
    void TextChanged() override;
    void VisibleChanged() override;
    void Describe(TControlDesc& d) const override;

protected:
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;

private:
    friend class TToolBar;
    void RequestLayout();
    bool FAllowAllUp = false, FDown = false, FGrouped = false, FIndeterminate = false, FMarked = false;
    bool FWrap = false;
    TPopupMenu* FDropdownMenu = nullptr;
    TImageIndex FImageIndex = -1;
    TToolButtonStyle FStyle = tbsButton;
    bool FPlacing = false;
};

// A bar of tool buttons laid out in order from Indent, left to right, starting a new row when the next
// button would pass the right edge (Wrapable) or after a button with Wrap; with AutoSize the bar's height
// follows the rows.
class TToolBar : public TWinControl {
    JEX_CLASS(TToolBar, TWinControl)
    explicit TToolBar(TComponent* AOwner);
    ~TToolBar() override;
    int ButtonCount() const { return static_cast<int>(FButtons.size()); }
    TToolButton* Buttons(int Index) const; // raises EListError out of range
    bool AutoSize() const { return FAutoSize; }
    void SetAutoSize(bool v);
    int ButtonHeight() const { return FButtonHeight; }
    void SetButtonHeight(int v);
    int ButtonWidth() const { return FButtonWidth; }
    void SetButtonWidth(int v);
    TCustomImageList* Images() const { return FImages; }
    void SetImages(TCustomImageList* v);
    TCustomImageList* DisabledImages() const { return FDisabledImages; }
    void SetDisabledImages(TCustomImageList* v);
    TCustomImageList* HotImages() const { return FHotImages; }
    void SetHotImages(TCustomImageList* v);
    TEdgeBorders EdgeBorders() const { return FEdgeBorders; }
    void SetEdgeBorders(TEdgeBorders v);
    TEdgeStyle EdgeInner() const { return FEdgeInner; }
    void SetEdgeInner(TEdgeStyle v);
    TEdgeStyle EdgeOuter() const { return FEdgeOuter; }
    void SetEdgeOuter(TEdgeStyle v);
    bool Flat() const { return FFlat; }
    void SetFlat(bool v) { FFlat = v; }
    int Indent() const { return FIndent; }
    void SetIndent(int v);
    // Captions beside the images (List) or below them.
    bool List() const { return FList; }
    void SetList(bool v);
    bool ShowCaptions() const { return FShowCaptions; }
    void SetShowCaptions(bool v);
    bool Transparent() const { return FTransparent; }
    void SetTransparent(bool v) { FTransparent = v; }
    bool Wrapable() const { return FWrapable; }
    void SetWrapable(bool v);
    // The size every button (not separator) gets: ButtonWidth x ButtonHeight, grown to fit the images and,
    // with ShowCaptions, the widest caption.
    TSize ButtonSize() const;
    // The number of rows of the last layout.
    int RowCount() const { return FRowCount; }
    // Places every button again.
    void ArrangeButtons();
    TRect AdjustClientRect() const override;
    void AlignControls() override;
    void FontChanged() override;
    void Loaded() override;
    void GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) override;

protected:
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;

private:
    friend class TToolButton;
    void ControlAdded(TControl* AControl) override;
    void ControlRemoved(TControl* AControl) override;
    int EdgeSize(TEdgeBorder side) const;
    std::vector<TToolButton*> FButtons;
    bool FAutoSize = false, FFlat = false, FList = false, FShowCaptions = false, FTransparent = false;
    bool FWrapable = true, FArranging = false;
    int FButtonHeight = 22, FButtonWidth = 23, FIndent = 0, FRowCount = 0;
    TCustomImageList* FImages = nullptr;
    TCustomImageList* FDisabledImages = nullptr;
    TCustomImageList* FHotImages = nullptr;
    TEdgeBorders FEdgeBorders{ebTop};
    TEdgeStyle FEdgeInner = esRaised, FEdgeOuter = esLowered;
};

// ---- Status bars ---------------------------------------------------------------------------------------
JEX_ENUM(TStatusPanelStyle, psText, psOwnerDraw)
JEX_ENUM(TStatusPanelBevel, pbNone, pbLowered, pbRaised)

class TStatusBar;

class TStatusPanel : public rtl::TCollectionItem {
    JEX_CLASS(TStatusPanel, rtl::TCollectionItem)
    explicit TStatusPanel(rtl::TCollection* Collection);
    void Assign(rtl::TPersistent* Source) override;
    std::string GetDisplayName() const override;
    TAlignment Alignment() const { return FAlignment; }
    void SetAlignment(TAlignment v);
    TStatusPanelBevel Bevel() const { return FBevel; }
    void SetBevel(TStatusPanelBevel v);
    TStatusPanelStyle Style() const { return FStyle; }
    void SetStyle(TStatusPanelStyle v);
    std::string Text() const { return FText; }
    void SetText(const std::string& v);
    int Width() const { return FWidth; }
    void SetWidth(int v);

private:
    TAlignment FAlignment = taLeftJustify;
    TStatusPanelBevel FBevel = pbLowered;
    TStatusPanelStyle FStyle = psText;
    std::string FText;
    int FWidth = 50;
};

class TStatusPanels : public rtl::TCollection {
    JEX_CLASS(TStatusPanels, rtl::TCollection)
    explicit TStatusPanels(TStatusBar* AOwner);
    TStatusPanel* Add() { return static_cast<TStatusPanel*>(TCollection::Add()); }
    TStatusPanel* Items(int Index) const { return static_cast<TStatusPanel*>(TCollection::Items(Index)); }
    TStatusPanel* operator[](int Index) const { return Items(Index); }
    TPersistent* GetOwner() const override;

protected:
    void Update(rtl::TCollectionItem* Item) override;

private:
    TStatusBar* FStatusBar;
};

JEX_EVENT_TYPE(TDrawPanelEvent, void(TStatusBar* StatusBar, TStatusPanel* Panel, const TRect& Rect))

// A bar of text panels, at the bottom of its parent by default. With SimplePanel it shows SimpleText
// across the whole bar instead of the panels.
class TStatusBar : public TWinControl {
    JEX_CLASS(TStatusBar, TWinControl)
    explicit TStatusBar(TComponent* AOwner);
    ~TStatusBar() override;
    TStatusPanels* Panels() const { return FPanels; }
    void SetPanels(TStatusPanels* v) { FPanels->Assign(v); }
    bool SimplePanel() const { return FSimplePanel; }
    void SetSimplePanel(bool v) { FSimplePanel = v; }
    std::string SimpleText() const { return FSimpleText; }
    void SetSimpleText(const std::string& v) { FSimpleText = v; }
    bool SizeGrip() const { return FSizeGrip; }
    void SetSizeGrip(bool v) { FSizeGrip = v; }
    // Whether the bar shows hints: the host's OnHint handler passes Application()->Hint to ShowHintText.
    bool AutoHint() const { return FAutoHint; }
    void SetAutoHint(bool v) { FAutoHint = v; }
    // With AutoHint, puts Hint in SimpleText (with SimplePanel or without panels) or in the first panel,
    // then raises OnHint; returns false and changes nothing without AutoHint.
    bool ShowHintText(const std::string& Hint);
    // Where panel Index is drawn: panels side by side with their widths, the last one to the right edge.
    TRect PanelRect(int Index) const;
    // The panel at a client x position, or -1.
    int PanelAt(int X) const;
    // Owner-draw panels are drawn through OnDrawPanel; the host calls this while painting.
    void DrawPanel(TStatusPanel* Panel, const TRect& Rect);
    void Describe(TControlDesc& d) const override;

    TDrawPanelEvent OnDrawPanel;
    TNotifyEvent OnHint;

private:
    TStatusPanels* FPanels;
    bool FSimplePanel = false, FSizeGrip = true, FAutoHint = false;
    std::string FSimpleText;
};

// ---- Progress bars, track bars, up-down buttons --------------------------------------------------------
JEX_ENUM(TProgressBarOrientation, pbHorizontal, pbVertical)

class TProgressBar : public TWinControl {
    JEX_CLASS(TProgressBar, TWinControl)
    explicit TProgressBar(TComponent* AOwner);
    int Min() const { return FMin; }
    void SetMin(int v);
    int Max() const { return FMax; }
    void SetMax(int v);
    // Kept within Min..Max.
    int Position() const { return FPosition; }
    void SetPosition(int v);
    int Step() const { return FStep; }
    void SetStep(int v) { FStep = v; }
    TProgressBarOrientation Orientation() const { return FOrientation; }
    void SetOrientation(TProgressBarOrientation v);
    bool Smooth() const { return FSmooth; }
    void SetSmooth(bool v) { FSmooth = v; }
    // Advances by Step; past Max the bar starts again at Min, as the platform's bar does.
    void StepIt();
    void StepBy(int Delta);
    // The share done, 0..100.
    int Percent() const;
    void Describe(TControlDesc& d) const override;

private:
    int FMin = 0, FMax = 100, FPosition = 0, FStep = 10;
    TProgressBarOrientation FOrientation = pbHorizontal;
    bool FSmooth = false;
};

JEX_ENUM(TTrackBarOrientation, trHorizontal, trVertical)
JEX_ENUM(TTickMark, tmBottomRight, tmTopLeft, tmBoth)
JEX_ENUM(TTickStyle, tsNone, tsAuto, tsManual)

class TTrackBar : public TWinControl {
    JEX_CLASS(TTrackBar, TWinControl)
    explicit TTrackBar(TComponent* AOwner);
    int Min() const { return FMin; }
    void SetMin(int v);
    int Max() const { return FMax; }
    void SetMax(int v);
    // Kept within Min..Max; a change raises OnChange.
    int Position() const { return FPosition; }
    void SetPosition(int v);
    int Frequency() const { return FFrequency; }
    void SetFrequency(int v) { FFrequency = v; }
    int LineSize() const { return FLineSize; }
    void SetLineSize(int v) { FLineSize = v; }
    int PageSize() const { return FPageSize; }
    void SetPageSize(int v) { FPageSize = v; }
    TTrackBarOrientation Orientation() const { return FOrientation; }
    void SetOrientation(TTrackBarOrientation v);
    TTickMark TickMarks() const { return FTickMarks; }
    void SetTickMarks(TTickMark v) { FTickMarks = v; }
    TTickStyle TickStyle() const { return FTickStyle; }
    void SetTickStyle(TTickStyle v) { FTickStyle = v; }
    int SelStart() const { return FSelStart; }
    void SetSelStart(int v) { FSelStart = v; }
    int SelEnd() const { return FSelEnd; }
    void SetSelEnd(int v) { FSelEnd = v; }
    // Positions with a tick: every Frequency from Min with tsAuto, those set by SetTick with tsManual.
    std::vector<int> Ticks() const;
    void SetTick(int Value);
    void ClearTicks() { FTicks.clear(); }
    // A person drags the thumb.
    void UserSetValue(int Value) override { SetPosition(Value); }
    // Arrows move by LineSize, Page Up/Down by PageSize, Home/End to the ends.
    void KeyDown(uint16_t& Key, TShiftState Shift) override;
    void Describe(TControlDesc& d) const override;
    TNotifyEvent OnChange;

private:
    int FMin = 0, FMax = 10, FPosition = 0, FFrequency = 1, FLineSize = 1, FPageSize = 2;
    int FSelStart = 0, FSelEnd = 0;
    TTrackBarOrientation FOrientation = trHorizontal;
    TTickMark FTickMarks = tmBottomRight;
    TTickStyle FTickStyle = tsAuto;
    std::vector<int> FTicks;
};

JEX_ENUM(TUDAlignButton, udLeft, udRight)
JEX_ENUM(TUDOrientation, udHorizontal, udVertical)
JEX_ENUM(TUDBtnType, btNext, btPrev)
JEX_EVENT_TYPE(TUDClickEvent, void(rtl::TObject* Sender, TUDBtnType Button))
JEX_EVENT_TYPE(TUDChangingEvent, void(rtl::TObject* Sender, bool& AllowChange))

// Two arrow buttons that step Position; an associated control shows the position as its text and the
// buttons sit at its side.
class TUpDown : public TWinControl {
    JEX_CLASS(TUpDown, TWinControl)
    explicit TUpDown(TComponent* AOwner);
    TWinControl* Associate() const { return FAssociate; }
    void SetAssociate(TWinControl* v);
    TUDAlignButton AlignButton() const { return FAlignButton; }
    void SetAlignButton(TUDAlignButton v);
    bool ArrowKeys() const { return FArrowKeys; }
    void SetArrowKeys(bool v) { FArrowKeys = v; }
    int Increment() const { return FIncrement; }
    void SetIncrement(int v) { FIncrement = v; }
    int Min() const { return FMin; }
    void SetMin(int v);
    int Max() const { return FMax; }
    void SetMax(int v);
    // Kept within Min..Max (either order); the associated control's text follows.
    int Position() const { return FPosition; }
    void SetPosition(int v);
    TUDOrientation Orientation() const { return FOrientation; }
    void SetOrientation(TUDOrientation v) { FOrientation = v; }
    // Thousands separators (",") in the associated control's text.
    bool Thousands() const { return FThousands; }
    void SetThousands(bool v);
    // Past an end the position wraps to the other end.
    bool Wrap() const { return FWrap; }
    void SetWrap(bool v) { FWrap = v; }
    // A person's click on an arrow: OnChanging may refuse, then the step and OnClick.
    void UserClickButton(TUDBtnType Button);
    void UserSetValue(int Value) override;
    void KeyDown(uint16_t& Key, TShiftState Shift) override;
    void Describe(TControlDesc& d) const override;
    TUDClickEvent OnClick;
    TUDChangingEvent OnChanging;

protected:
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;

private:
    void UpdateAssociate();
    void PlaceAtAssociate();
    TWinControl* FAssociate = nullptr;
    TUDAlignButton FAlignButton = udRight;
    bool FArrowKeys = true, FThousands = true, FWrap = false;
    int FIncrement = 1, FMin = 0, FMax = 100, FPosition = 0;
    TUDOrientation FOrientation = udVertical;
};

// ---- Date pickers and calendars -----------------------------------------------------------------------
JEX_ENUM(TDateTimeKind, dtkDate, dtkTime)
JEX_ENUM(TDTDateMode, dmComboBox, dmUpDown)
JEX_ENUM(TDTDateFormat, dfShort, dfLong)
JEX_ENUM(TDTCalAlignment, dtaLeft, dtaRight)

// A date or a time picked by a person. The value is one TDateTime: Date is its whole days, Time its
// fraction. The text shows it in Format, or when Format is empty in the short (yyyy-MM-dd) or long
// (dddd, MMMM d, yyyy) date format for dtkDate and HH:mm:ss for dtkTime. With ShowCheckbox a person may
// uncheck the value (Checked false: no date).
class TDateTimePicker : public TWinControl {
    JEX_CLASS(TDateTimePicker, TWinControl)
    explicit TDateTimePicker(TComponent* AOwner);
    TDateTime DateTime() const { return FDateTime; }
    // Kept within MinDate..MaxDate (0: no limit); OnChange follows a change.
    void SetDateTime(TDateTime v);
    TDateTime Date() const;
    void SetDate(TDateTime v);
    TDateTime Time() const;
    void SetTime(TDateTime v);
    TDateTimeKind Kind() const { return FKind; }
    void SetKind(TDateTimeKind v) { FKind = v; }
    std::string Format() const { return FFormat; }
    void SetFormat(const std::string& v) { FFormat = v; }
    TDTDateFormat DateFormat() const { return FDateFormat; }
    void SetDateFormat(TDTDateFormat v) { FDateFormat = v; }
    TDTDateMode DateMode() const { return FDateMode; }
    void SetDateMode(TDTDateMode v) { FDateMode = v; }
    TDTCalAlignment CalAlignment() const { return FCalAlignment; }
    void SetCalAlignment(TDTCalAlignment v) { FCalAlignment = v; }
    TDateTime MinDate() const { return FMinDate; }
    void SetMinDate(TDateTime v);
    TDateTime MaxDate() const { return FMaxDate; }
    void SetMaxDate(TDateTime v);
    bool HasMinDate() const { return FMinDate != 0; }
    bool HasMaxDate() const { return FMaxDate != 0; }
    bool ShowCheckbox() const { return FShowCheckbox; }
    void SetShowCheckbox(bool v) { FShowCheckbox = v; }
    bool Checked() const { return FChecked; }
    void SetChecked(bool v);
    // The format the text uses now.
    std::string DisplayFormat() const;
    std::string GetText() const override;
    // A person types a value in the display format (or yyyy-MM-dd / HH:mm:ss); text that does not read as
    // a value raises EUserActionError and changes nothing.
    void UserType(const std::string& Text) override;
    void UserCheck(bool Checked) override;
    void Describe(TControlDesc& d) const override;
    TNotifyEvent OnChange;
    TNotifyEvent OnCloseUp;
    TNotifyEvent OnDropDown;

private:
    TDateTime Clamp(TDateTime v) const;
    TDateTime FDateTime;
    TDateTimeKind FKind = dtkDate;
    std::string FFormat;
    TDTDateFormat FDateFormat = dfShort;
    TDTDateMode FDateMode = dmComboBox;
    TDTCalAlignment FCalAlignment = dtaLeft;
    TDateTime FMinDate = 0, FMaxDate = 0;
    bool FShowCheckbox = false, FChecked = true;
};

JEX_ENUM(TCalDayOfWeek, dowMonday, dowTuesday, dowWednesday, dowThursday, dowFriday, dowSaturday, dowSunday,
         dowLocaleDefault)

// A month calendar: the month of Date with its days; a person's click on a day selects it.
class TMonthCalendar : public TWinControl {
    JEX_CLASS(TMonthCalendar, TWinControl)
    explicit TMonthCalendar(TComponent* AOwner);
    // Whole days; kept within MinDate..MaxDate (0: no limit).
    TDateTime Date() const { return FDate; }
    void SetDate(TDateTime v);
    // The end of the selected range with MultiSelect (at least Date).
    TDateTime EndDate() const { return FEndDate; }
    void SetEndDate(TDateTime v);
    TDateTime MinDate() const { return FMinDate; }
    void SetMinDate(TDateTime v) { FMinDate = v; }
    TDateTime MaxDate() const { return FMaxDate; }
    void SetMaxDate(TDateTime v) { FMaxDate = v; }
    bool HasMinDate() const { return FMinDate != 0; }
    bool HasMaxDate() const { return FMaxDate != 0; }
    bool MultiSelect() const { return FMultiSelect; }
    void SetMultiSelect(bool v) { FMultiSelect = v; }
    TCalDayOfWeek FirstDayOfWeek() const { return FFirstDayOfWeek; }
    void SetFirstDayOfWeek(TCalDayOfWeek v) { FFirstDayOfWeek = v; }
    bool ShowToday() const { return FShowToday; }
    void SetShowToday(bool v) { FShowToday = v; }
    bool ShowTodayCircle() const { return FShowTodayCircle; }
    void SetShowTodayCircle(bool v) { FShowTodayCircle = v; }
    bool WeekNumbers() const { return FWeekNumbers; }
    void SetWeekNumbers(bool v) { FWeekNumbers = v; }
    // A person clicks day Index (1-based) of the month shown.
    void UserSelect(int Index) override;
    // A person picks the date yyyy-MM-dd. A pick outside MinDate..MaxDate raises EUserActionError;
    // a pick raises OnClick.
    void UserSelectText(const std::string& Text) override;
    void Describe(TControlDesc& d) const override;

private:
    void UserPick(TDateTime v);
    TDateTime FDate, FEndDate;
    TDateTime FMinDate = 0, FMaxDate = 0;
    bool FMultiSelect = false, FShowToday = true, FShowTodayCircle = true, FWeekNumbers = false;
    TCalDayOfWeek FFirstDayOfWeek = dowLocaleDefault;
};

// ---- Rich edits ----------------------------------------------------------------------------------------
// A memo whose Lines hold rich text as text: formatting stays in the text as written (a rich-text
// document keeps its markup); PlainText says whether files are read and written as plain text.
class TRichEdit : public TCustomMemo {
    JEX_CLASS(TRichEdit, TCustomMemo)
    explicit TRichEdit(TComponent* AOwner);
    bool PlainText() const { return FPlainText; }
    void SetPlainText(bool v) { FPlainText = v; }
    bool HideScrollBars() const { return FHideScrollBars; }
    void SetHideScrollBars(bool v) { FHideScrollBars = v; }
    // Whether the text is a rich-text document ("{\rtf" at its start).
    bool IsRichText() const;
    // The text without rich-text markup: control words, groups of destinations and braces removed,
    // \par as line breaks and \'hh escapes decoded (as Windows-1252). Plain text comes back unchanged.
    std::string PlainTextOf() const;
    TNotifyEvent OnSelectionChange;

private:
    bool FPlainText = false, FHideScrollBars = true;
};

// ---- List views ---------------------------------------------------------------------------------------
JEX_ENUM(TViewStyle, vsIcon, vsSmallIcon, vsList, vsReport)

class TCustomListView;
class TListItems;

class TListColumn : public rtl::TCollectionItem {
    JEX_CLASS(TListColumn, rtl::TCollectionItem)
    explicit TListColumn(rtl::TCollection* Collection);
    void Assign(rtl::TPersistent* Source) override;
    std::string GetDisplayName() const override;
    TAlignment Alignment() const { return FAlignment; }
    void SetAlignment(TAlignment v) { FAlignment = v; }
    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& v) { FCaption = v; }
    int Width() const { return FWidth; }
    void SetWidth(int v) { FWidth = v; }
    TImageIndex ImageIndex() const { return FImageIndex; }
    void SetImageIndex(TImageIndex v) { FImageIndex = v; }

private:
    TAlignment FAlignment = taLeftJustify;
    std::string FCaption;
    int FWidth = 50;
    TImageIndex FImageIndex = -1;
};

class TListColumns : public rtl::TCollection {
    JEX_CLASS(TListColumns, rtl::TCollection)
    explicit TListColumns(TCustomListView* AOwner);
    TListColumn* Add() { return static_cast<TListColumn*>(TCollection::Add()); }
    TListColumn* Items(int Index) const { return static_cast<TListColumn*>(TCollection::Items(Index)); }
    TPersistent* GetOwner() const override;

private:
    TCustomListView* FOwner;
};

// One item of a list view: a caption and the texts of the further columns.
class TListItem : public rtl::TPersistent {
    JEX_CLASS(TListItem, rtl::TPersistent)
    explicit TListItem(TListItems* AOwner);
    ~TListItem() override;
    void Assign(rtl::TPersistent* Source) override;
    TListItems* Owner() const { return FOwner; }
    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& v) { FCaption = v; }
    TStrings* SubItems() const { return FSubItems; }
    void SetSubItems(TStrings* v) { FSubItems->Assign(v); }
    void* Data() const { return FData; }
    void SetData(void* v) { FData = v; }
    TImageIndex ImageIndex() const { return FImageIndex; }
    void SetImageIndex(TImageIndex v) { FImageIndex = v; }
    int StateIndex() const { return FStateIndex; }
    void SetStateIndex(int v) { FStateIndex = v; }
    bool Checked() const { return FChecked; }
    void SetChecked(bool v) { FChecked = v; }
    bool Selected() const;
    void SetSelected(bool v);
    int Index() const;
    void Delete();

private:
    friend class TListItems;
    friend class TCustomListView;
    TListItems* FOwner;
    std::string FCaption;
    TStringList* FSubItems;
    void* FData = nullptr;
    TImageIndex FImageIndex = -1;
    int FStateIndex = -1;
    bool FChecked = false;
};

class TListItems : public rtl::TPersistent {
    JEX_CLASS(TListItems, rtl::TPersistent)
    explicit TListItems(TCustomListView* AOwner);
    ~TListItems() override;
    void Assign(rtl::TPersistent* Source) override;
    TPersistent* GetOwner() const override;
    TCustomListView* Owner() const { return FOwner; }
    int Count() const { return static_cast<int>(FItems.size()); }
    TListItem* Item(int Index) const; // raises EListError out of range
    TListItem* operator[](int Index) const { return Item(Index); }
    TListItem* Add();
    TListItem* Insert(int Index);
    void Delete(int Index);
    void Clear();
    int IndexOf(const TListItem* Item) const;
    void BeginUpdate() { ++FUpdateCount; }
    void EndUpdate() {
        if (FUpdateCount > 0) --FUpdateCount;
    }
    // "Data": the items as the platform writes them: the item count (Int32), then per item its size
    // (Int32), ImageIndex, StateIndex, OverlayIndex (-1), sub-item count (Int32 each), Data (0), the caption
    // as a length byte and bytes, and each sub-item likewise. Sizes let long texts round-trip.
    void DefineProperties(rtl::TFiler& Filer) override;
    void ReadData(const std::vector<uint8_t>& Data);
    void WriteData(std::vector<uint8_t>& Data) const;

private:
    friend class TListItem;
    friend class TCustomListView;
    TCustomListView* FOwner;
    std::vector<TListItem*> FItems;
    int FUpdateCount = 0;
};

JEX_EVENT_TYPE(TLVChangeEvent, void(rtl::TObject* Sender, TListItem* Item, int Change))
JEX_EVENT_TYPE(TLVSelectItemEvent, void(rtl::TObject* Sender, TListItem* Item, bool Selected))
JEX_EVENT_TYPE(TLVDeletedEvent, void(rtl::TObject* Sender, TListItem* Item))

class TCustomListView : public TWinControl {
    JEX_CLASS(TCustomListView, TWinControl)
    explicit TCustomListView(TComponent* AOwner);
    ~TCustomListView() override;
    TListColumns* Columns() const { return FColumns; }
    void SetColumns(TListColumns* v) { FColumns->Assign(v); }
    TListItems* Items() const { return FListItems; }
    void SetItems(TListItems* v) { FListItems->Assign(v); }
    TViewStyle ViewStyle() const { return FViewStyle; }
    void SetViewStyle(TViewStyle v) { FViewStyle = v; }
    bool ReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool v) { FReadOnly = v; }
    bool MultiSelect() const { return FMultiSelect; }
    void SetMultiSelect(bool v);
    bool RowSelect() const { return FRowSelect; }
    void SetRowSelect(bool v) { FRowSelect = v; }
    bool Checkboxes() const { return FCheckboxes; }
    void SetCheckboxes(bool v) { FCheckboxes = v; }
    bool GridLines() const { return FGridLines; }
    void SetGridLines(bool v) { FGridLines = v; }
    bool HideSelection() const { return FHideSelection; }
    void SetHideSelection(bool v) { FHideSelection = v; }
    bool ShowColumnHeaders() const { return FShowColumnHeaders; }
    void SetShowColumnHeaders(bool v) { FShowColumnHeaders = v; }
    TCustomImageList* LargeImages() const { return FLargeImages; }
    void SetLargeImages(TCustomImageList* v);
    TCustomImageList* SmallImages() const { return FSmallImages; }
    void SetSmallImages(TCustomImageList* v);
    // The first selected item, or nil; setting it selects only that item.
    TListItem* Selected() const;
    void SetSelected(TListItem* v);
    int SelCount() const;
    TListItem* FindCaption(const std::string& Caption) const;
    // A person clicks item Index (or the item with that caption): only it is selected, then OnClick.
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;
    void UserSelectMulti(const std::vector<int>& Indexes) override;
    void Describe(TControlDesc& d) const override;
    TLVSelectItemEvent OnSelectItem;
    TLVDeletedEvent OnDeletion;
    TNotifyEvent OnChange;

protected:
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;

private:
    friend class TListItem;
    friend class TListItems;
    void SelectItem(TListItem* Item, bool Selected);
    TListColumns* FColumns;
    TListItems* FListItems;
    std::vector<TListItem*> FSelection;
    TViewStyle FViewStyle = vsIcon;
    bool FReadOnly = false, FMultiSelect = false, FRowSelect = false, FCheckboxes = false;
    bool FGridLines = false, FHideSelection = true, FShowColumnHeaders = true;
    TCustomImageList* FLargeImages = nullptr;
    TCustomImageList* FSmallImages = nullptr;
};

class TListView : public TCustomListView {
    JEX_CLASS(TListView, TCustomListView)
    using TCustomListView::TCustomListView;
};

// The common controls' classes, for registering with the streaming class registry.
std::vector<rtl::TClass> CommonControlClasses();

} // namespace vcl
