// Docks and tool windows: the dock that arranges toolbars in rows, the tool-window base with deferred
// layout, toolbars and their buttons, separators and edit boxes, the free-form tool window, the menu
// toolbar, and the library's menus (main, popup with its tray-icon flag, system menu, menu images).
#pragma once

#include <memory>
#include <string>

#include "jex/jexbuttons.h"
#include "jex/jexcommon.h"
#include "vcl/imglist.h"
#include "vcl/menus.h"
#include "vcl/stdctrls.h"

namespace jex {

class TjexCustomToolWindow;

JEX_ENUM(TjexDockPosition, jdpTop, jdpBottom, jdpLeft, jdpRight)
JEX_SET(TjexDockableTo, TjexDockPosition)
JEX_ENUM(TjexDockBoundLine, jdbTop, jdbBottom, jdbLeft, jdbRight)
JEX_SET(TjexDockBoundLines, TjexDockBoundLine)
// Whether a tool window may float and change docks.
JEX_ENUM(TjexToolWindowDockMode, jdmCanFloat, jdmCannotFloat, jdmCannotFloatOrChangeDocks)
// What a floating tool window stays on top of.
JEX_ENUM(TjexToolWindowFloatingMode, jfmOnTopOfParentForm, jfmOnTopOfAllForms)

// An area along one edge of a form where tool windows dock, in rows. Its Position aligns it to that edge;
// it arranges its tool windows by DockRow then DockPos, and sizes itself to the rows across the edge.
class TjexDock : public vcl::TCustomControl {
    JEX_CLASS(TjexDock, vcl::TCustomControl)
    explicit TjexDock(rtl::TComponent* AOwner);
    ~TjexDock() override;

    bool AllowDrag() const { return FAllowDrag; }
    void SetAllowDrag(bool Value) { FAllowDrag = Value; }
    vcl::TPicture* Background() const { return FBackground.get(); }
    void SetBackground(vcl::TPicture* Value) { FBackground->Assign(Value); }
    bool BackgroundOnToolbars() const { return FBackgroundOnToolbars; }
    void SetBackgroundOnToolbars(bool Value) { FBackgroundOnToolbars = Value; }
    bool BackgroundTransparent() const { return FBackgroundTransparent; }
    void SetBackgroundTransparent(bool Value) { FBackgroundTransparent = Value; }
    TjexDockBoundLines BoundLines() const { return FBoundLines; }
    void SetBoundLines(TjexDockBoundLines Value);
    // With FixAlign the dock keeps its alignment even when it is empty (otherwise an empty dock shrinks
    // to nothing across its edge).
    bool FixAlign() const { return FFixAlign; }
    void SetFixAlign(bool Value);
    // All tool windows in one row (DockRow is then ignored).
    bool LimitToOneRow() const { return FLimitToOneRow; }
    void SetLimitToOneRow(bool Value);
    TjexDockPosition Position() const { return FPosition; }
    void SetPosition(TjexDockPosition Value);
    bool Horizontal() const { return FPosition == jdpTop || FPosition == jdpBottom; }

    // The docked tool windows in row and position order.
    std::vector<TjexCustomToolWindow*> ToolWindows() const;
    int RowCount() const;
    // Places the tool windows (rows across the edge, each row in DockPos order, a window with DockPos -1
    // after the others) and sizes the dock.
    void ArrangeToolWindows();

    void AlignControls() override;
    void Loaded() override;

protected:
    void ControlAdded(vcl::TControl* AControl) override;
    void ControlRemoved(vcl::TControl* AControl) override;

private:
    int BoundLineWidth(TjexDockBoundLine Line) const;
    bool FAllowDrag = true;
    std::unique_ptr<vcl::TPicture> FBackground;
    bool FBackgroundOnToolbars = true;
    bool FBackgroundTransparent = false;
    TjexDockBoundLines FBoundLines;
    bool FFixAlign = false;
    bool FLimitToOneRow = false;
    TjexDockPosition FPosition = jdpTop;
    bool FArranging = false;
};

// Base of toolbars and tool windows: docking (DefaultDock, DockedTo, DockRow, DockPos, DockableTo,
// DockMode), floating, and a layout of its own controls that BeginUpdate / EndUpdate defer until the
// last EndUpdate.
class TjexCustomToolWindow : public vcl::TCustomControl {
    JEX_CLASS(TjexCustomToolWindow, vcl::TCustomControl)
    friend class TjexDock;
    explicit TjexCustomToolWindow(rtl::TComponent* AOwner);

    bool ActivateParent() const { return FActivateParent; }
    void SetActivateParent(bool Value) { FActivateParent = Value; }
    bool CloseButton() const { return FCloseButton; }
    void SetCloseButton(bool Value) { FCloseButton = Value; }
    TjexDock* DefaultDock() const { return FDefaultDock; }
    void SetDefaultDock(TjexDock* Value);
    TjexDockableTo DockableTo() const { return FDockableTo; }
    void SetDockableTo(TjexDockableTo Value) { FDockableTo = Value; }
    // The dock the window sits in (its parent), nil when floating. Docking into a dock whose position is
    // not in DockableTo raises EInvalidOperation.
    TjexDock* DockedTo() const { return FDockedTo; }
    void SetDockedTo(TjexDock* Value);
    TjexToolWindowDockMode DockMode() const { return FDockMode; }
    void SetDockMode(TjexToolWindowDockMode Value) { FDockMode = Value; }
    int DockPos() const { return FDockPos; }
    void SetDockPos(int Value);
    int DockRow() const { return FDockRow; }
    void SetDockRow(int Value);
    bool DragHandle() const { return FDragHandle; }
    void SetDragHandle(bool Value);
    TjexToolWindowFloatingMode FloatingMode() const { return FFloatingMode; }
    void SetFloatingMode(TjexToolWindowFloatingMode Value) { FFloatingMode = Value; }
    // A full-size window fills its whole row of the dock.
    bool FullSize() const { return FFullSize; }
    void SetFullSize(bool Value);
    bool HideWhenInactive() const { return FHideWhenInactive; }
    void SetHideWhenInactive(bool Value) { FHideWhenInactive = Value; }
    // Undocks: the window leaves its dock for the form the dock was on. Refused (EInvalidOperation) when
    // DockMode does not allow floating.
    void Float();
    bool Floating() const { return FDockedTo == nullptr; }
    // Laid out across its dock's edge: left/right docks stack controls vertically.
    bool Vertical() const;

    // Changes between BeginUpdate and the last EndUpdate lay out once, at that EndUpdate.
    void BeginUpdate();
    void EndUpdate();
    int UpdateCount() const { return FUpdateCount; }
    // Lays out the window's controls now, or at the last EndUpdate while updating.
    void Arrange();

    void AlignControls() override;
    void Loaded() override;
    // Docking follows the parent: a TjexDock parent is the dock the window sits in.
    void SetParent(vcl::TWinControl* AParent) override;
    rtl::TNotifyEvent OnDockChanged;
    rtl::TNotifyEvent OnClose;

protected:
    // The layout itself; the base stacks the visible controls in child order in one row (one column when
    // vertical) after the drag handle, and sizes the window around them.
    virtual void ArrangeControls();
    // The space taken by the drag handle along the row.
    int HandleSize() const { return FDragHandle ? 9 : 0; }
    void ControlAdded(vcl::TControl* AControl) override;
    void ControlRemoved(vcl::TControl* AControl) override;
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

    int FUpdateCount = 0;
    bool FArrangePending = false;
    bool FArranging = false;

private:
    void DockChanged();
    bool FActivateParent = true;
    bool FCloseButton = true;
    TjexDock* FDefaultDock = nullptr;
    TjexDockableTo FDockableTo{jdpTop, jdpBottom, jdpLeft, jdpRight};
    TjexDock* FDockedTo = nullptr;
    TjexToolWindowDockMode FDockMode = jdmCanFloat;
    int FDockPos = -1;
    int FDockRow = 0;
    bool FDragHandle = true;
    TjexToolWindowFloatingMode FFloatingMode = jfmOnTopOfParentForm;
    bool FFullSize = false;
    bool FHideWhenInactive = true;
};

// A toolbar: buttons, separators and edits in a row, and the image list its buttons draw from.
class TjexToolbar : public TjexCustomToolWindow {
    JEX_CLASS(TjexToolbar, TjexCustomToolWindow)
    explicit TjexToolbar(rtl::TComponent* AOwner);
    vcl::TCustomImageList* Images() const { return FImages; }
    void SetImages(vcl::TCustomImageList* Value);

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    vcl::TCustomImageList* FImages = nullptr;
};

// A tool window with a free client area: its controls stay where they are put; the window keeps its
// client area ClientAreaWidth x ClientAreaHeight (at least the minimums).
class TjexToolWindow : public TjexCustomToolWindow {
    JEX_CLASS(TjexToolWindow, TjexCustomToolWindow)
    explicit TjexToolWindow(rtl::TComponent* AOwner);
    int ClientAreaWidth() const { return FClientAreaWidth; }
    void SetClientAreaWidth(int Value);
    int ClientAreaHeight() const { return FClientAreaHeight; }
    void SetClientAreaHeight(int Value);
    int MinClientWidth() const { return FMinClientWidth; }
    void SetMinClientWidth(int Value);
    int MinClientHeight() const { return FMinClientHeight; }
    void SetMinClientHeight(int Value);
    bool Resizable() const { return FResizable; }
    void SetResizable(bool Value) { FResizable = Value; }

    void Resize() override;

protected:
    void ArrangeControls() override;

private:
    int FClientAreaWidth = 100, FClientAreaHeight = 50;
    int FMinClientWidth = 32, FMinClientHeight = 32;
    bool FResizable = true;
};

JEX_ENUM(TjexToolbarButtonDisplayMode, jbdGlyphAndText, jbdGlyphOnly, jbdTextOnly)

// A toolbar button: a glyph (its own, or image ImageIndex of the toolbar's image list) and caption,
// grouping, auto-repeat, and a drop-down menu.
class TjexToolbarButton : public vcl::TGraphicControl {
    JEX_CLASS(TjexToolbarButton, vcl::TGraphicControl)
    explicit TjexToolbarButton(rtl::TComponent* AOwner);
    ~TjexToolbarButton() override;

    bool AllowAllUp() const { return FAllowAllUp; }
    void SetAllowAllUp(bool Value) { FAllowAllUp = Value; }
    TjexToolbarButtonDisplayMode DisplayMode() const { return FDisplayMode; }
    void SetDisplayMode(TjexToolbarButtonDisplayMode Value) { FDisplayMode = Value; }
    bool Down() const { return FDown; }
    void SetDown(bool Value);
    bool DropdownAlways() const { return FDropdownAlways; }
    void SetDropdownAlways(bool Value) { FDropdownAlways = Value; }
    bool DropdownArrow() const { return FDropdownArrow; }
    void SetDropdownArrow(bool Value) { FDropdownArrow = Value; }
    bool DropdownCombo() const { return FDropdownCombo; }
    void SetDropdownCombo(bool Value) { FDropdownCombo = Value; }
    vcl::TPopupMenu* DropdownMenu() const { return FDropdownMenu; }
    void SetDropdownMenu(vcl::TPopupMenu* Value);
    bool Flat() const { return FFlat; }
    void SetFlat(bool Value) { FFlat = Value; }
    vcl::TBitmap* Glyph() const { return FGlyph.get(); }
    void SetGlyph(vcl::TBitmap* Value) { FGlyph->Assign(Value); }
    vcl::TBitmap* GlyphMask() const { return FGlyphMask.get(); }
    void SetGlyphMask(vcl::TBitmap* Value) { FGlyphMask->Assign(Value); }
    int GroupIndex() const { return FGroupIndex; }
    void SetGroupIndex(int Value) { FGroupIndex = Value; }
    int ImageIndex() const { return FImageIndex; }
    void SetImageIndex(int Value) { FImageIndex = Value; }
    TjexButtonLayout Layout() const { return FLayout; }
    void SetLayout(TjexButtonLayout Value) { FLayout = Value; }
    int Margin() const { return FMargin; }
    void SetMargin(int Value) { FMargin = Value; }
    bool NoBorder() const { return FNoBorder; }
    void SetNoBorder(bool Value) { FNoBorder = Value; }
    int NumGlyphs() const { return FNumGlyphs; }
    void SetNumGlyphs(int Value); // 1..5, ERangeError otherwise
    bool OldDisabledStyle() const { return FOldDisabledStyle; }
    void SetOldDisabledStyle(bool Value) { FOldDisabledStyle = Value; }
    bool Opaque() const { return FOpaque; }
    void SetOpaque(bool Value) { FOpaque = Value; }
    int RepeatDelay() const { return FRepeatDelay; }
    void SetRepeatDelay(int Value) { FRepeatDelay = Value < 0 ? 0 : Value; }
    bool Repeating() const { return FRepeating; }
    void SetRepeating(bool Value) { FRepeating = Value; }
    int RepeatInterval() const { return FRepeatInterval; }
    void SetRepeatInterval(int Value) { FRepeatInterval = Value < 1 ? 1 : Value; }
    bool ShowBorderWhenInactive() const { return FShowBorderWhenInactive; }
    void SetShowBorderWhenInactive(bool Value) { FShowBorderWhenInactive = Value; }
    int Spacing() const { return FSpacing; }
    void SetSpacing(int Value) { FSpacing = Value; }

    // The image list the button draws from: its toolbar's Images.
    vcl::TCustomImageList* Images() const;
    // A person's click: a grouped button goes down (or up with AllowAllUp); a button with DropdownMenu and
    // DropdownAlways (or a click on its arrow) drops the menu down below itself; otherwise Click.
    void UserClick() override;
    // Drops the menu down below the button (OnPopup, then the service shows it).
    void DropDown();
    // Clicks for holding the button HeldMs: with Repeating, one more after RepeatDelay and then one per
    // RepeatInterval.
    int ClicksForHold(int HeldMs) const;
    void Describe(vcl::TControlDesc& d) const override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    bool FAllowAllUp = false;
    TjexToolbarButtonDisplayMode FDisplayMode = jbdGlyphAndText;
    bool FDown = false;
    bool FDropdownAlways = false, FDropdownArrow = true, FDropdownCombo = false;
    vcl::TPopupMenu* FDropdownMenu = nullptr;
    bool FFlat = true;
    std::unique_ptr<vcl::TBitmap> FGlyph, FGlyphMask;
    int FGroupIndex = 0;
    int FImageIndex = -1;
    TjexButtonLayout FLayout = jblGlyphLeft;
    int FMargin = -1;
    bool FNoBorder = false;
    int FNumGlyphs = 1;
    bool FOldDisabledStyle = false, FOpaque = true;
    int FRepeatDelay = 400;
    bool FRepeating = false;
    int FRepeatInterval = 100;
    bool FShowBorderWhenInactive = false;
    int FSpacing = 4;
};

// A gap between toolbar buttons: SizeHorz wide in a horizontal toolbar, SizeVert high in a vertical one;
// Blank leaves out the line.
class TjexToolbarSep : public vcl::TGraphicControl {
    JEX_CLASS(TjexToolbarSep, vcl::TGraphicControl)
    explicit TjexToolbarSep(rtl::TComponent* AOwner);
    bool Blank() const { return FBlank; }
    void SetBlank(bool Value) { FBlank = Value; }
    int SizeHorz() const { return FSizeHorz; }
    void SetSizeHorz(int Value);
    int SizeVert() const { return FSizeVert; }
    void SetSizeVert(int Value);
    // The separator's length along its toolbar's row.
    int SizeAlongRow() const;

private:
    bool FBlank = false;
    int FSizeHorz = 6, FSizeVert = 6;
};

// An edit box for toolbars.
class TjexToolbarEdit : public vcl::TEdit {
    JEX_CLASS(TjexToolbarEdit, vcl::TEdit)
    explicit TjexToolbarEdit(rtl::TComponent* AOwner);
};

// A toolbar edit that only takes text matching its EditMask: the platform's mask characters 0 (digit),
// 9 (digit or blank), L (letter), l (letter or blank), A (letter or digit), a (letter, digit or blank),
// C (any character), c (any or blank), \ (the next character literally); other characters are literals.
// Text beyond the mask's first ';' options is not checked.
class TjexToolbarMaskEdit : public TjexToolbarEdit {
    JEX_CLASS(TjexToolbarMaskEdit, TjexToolbarEdit)
    explicit TjexToolbarMaskEdit(rtl::TComponent* AOwner) : TjexToolbarEdit(AOwner) {}
    std::string EditMask() const { return FEditMask; }
    void SetEditMask(const std::string& Value) { FEditMask = Value; }
    // Whether Text fits the mask (always with an empty mask).
    bool IsValidText(const std::string& Text) const;
    // A person's typing: refused with EInvalidOperation "Invalid input value" when it does not fit.
    void EnterText(const std::string& Value) override;

private:
    std::string FEditMask;
};

// ---- Menus ---------------------------------------------------------------------------------------------
JEX_ENUM(TjexMenuOption, jmoShowImages, jmoShowHints, jmoOwnerDraw)
JEX_SET(TjexMenuOptions, TjexMenuOption)

// The hint of a menu item a person highlights goes to a status bar: its panel StatusBarIndex when it has
// panels (a published "Panels" collection), else its text.
class TjexMenuStatus {
public:
    explicit TjexMenuStatus(rtl::TComponent* Owner) : FOwner(Owner) {}
    vcl::TWinControl* StatusBar() const { return FStatusBar; }
    void SetStatusBar(vcl::TWinControl* Value);
    int StatusBarIndex = 0;
    // Shows the long hint of Item (nil clears).
    void ShowHint(const vcl::TMenuItem* Item);
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation);

private:
    rtl::TComponent* FOwner;
    vcl::TWinControl* FStatusBar = nullptr;
};

class TjexMainMenu : public vcl::TMainMenu {
    JEX_CLASS(TjexMainMenu, vcl::TMainMenu)
    explicit TjexMainMenu(rtl::TComponent* AOwner) : vcl::TMainMenu(AOwner) {}
    vcl::TCustomImageList* Images() const { return FImages; }
    void SetImages(vcl::TCustomImageList* Value);

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    vcl::TCustomImageList* FImages = nullptr;
};

// A popup menu with images, status-bar hints and a flag telling it that a tray icon shows it (set by the
// design package's tray-icon editor and by the tray icon itself).
class TjexPopupMenu : public vcl::TPopupMenu {
    JEX_CLASS(TjexPopupMenu, vcl::TPopupMenu)
    explicit TjexPopupMenu(rtl::TComponent* AOwner) : vcl::TPopupMenu(AOwner), FStatus(this) {}
    TjexMenuOptions Options() const { return FOptions; }
    void SetOptions(TjexMenuOptions Value) { FOptions = Value; }
    vcl::TWinControl* StatusBar() const { return FStatus.StatusBar(); }
    void SetStatusBar(vcl::TWinControl* Value) { FStatus.SetStatusBar(Value); }
    int StatusBarIndex() const { return FStatus.StatusBarIndex; }
    void SetStatusBarIndex(int Value) { FStatus.StatusBarIndex = Value; }
    bool SystemFont() const { return FSystemFont; }
    void SetSystemFont(bool Value) { FSystemFont = Value; }
    vcl::TCustomImageList* Images() const { return FImages; }
    void SetImages(vcl::TCustomImageList* Value);
    // True when a tray icon owns (shows) this menu; a tray menu pops up at the tray, not at a control.
    bool TrayIconOwned() const { return FTrayIconOwned; }
    void SetTrayIconOwned(bool Value) { FTrayIconOwned = Value; }
    // A person highlights an item: its hint goes to the status bar (with jmoShowHints).
    void ItemHighlighted(const vcl::TMenuItem* Item);

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    TjexMenuStatus FStatus;
    TjexMenuOptions FOptions{jmoShowImages, jmoShowHints};
    bool FSystemFont = true;
    vcl::TCustomImageList* FImages = nullptr;
    bool FTrayIconOwned = false;
};

JEX_ENUM(TjexSystemMenuItem, jsiRestore, jsiMove, jsiSize, jsiMinimize, jsiMaximize, jsiClose)
JEX_SET(TjexSystemMenuItems, TjexSystemMenuItem)

// The form's system (window) menu: which standard items it shows, and items of its own (its Items).
class TjexSystemMenu : public vcl::TMenu {
    JEX_CLASS(TjexSystemMenu, vcl::TMenu)
    explicit TjexSystemMenu(rtl::TComponent* AOwner) : vcl::TMenu(AOwner), FStatus(this) {}
    TjexMenuOptions Options() const { return FOptions; }
    void SetOptions(TjexMenuOptions Value) { FOptions = Value; }
    vcl::TWinControl* StatusBar() const { return FStatus.StatusBar(); }
    void SetStatusBar(vcl::TWinControl* Value) { FStatus.SetStatusBar(Value); }
    int StatusBarIndex() const { return FStatus.StatusBarIndex; }
    void SetStatusBarIndex(int Value) { FStatus.StatusBarIndex = Value; }
    bool SystemFont() const { return FSystemFont; }
    void SetSystemFont(bool Value) { FSystemFont = Value; }
    TjexSystemMenuItems VisibleItems() const { return FVisibleItems; }
    void SetVisibleItems(TjexSystemMenuItems Value) { FVisibleItems = Value; }
    // The captions of the menu as shown: the visible standard items ("&Restore", "&Move", "&Size",
    // "Mi&nimize", "Ma&ximize"), a line and the menu's own items when there are any, then "&Close".
    std::vector<std::string> ShownCaptions() const;
    void ItemHighlighted(const vcl::TMenuItem* Item);

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    TjexMenuStatus FStatus;
    TjexMenuOptions FOptions{jmoShowImages, jmoShowHints};
    bool FSystemFont = true;
    TjexSystemMenuItems FVisibleItems{jsiRestore, jsiMove, jsiSize, jsiMinimize, jsiMaximize, jsiClose};
};

// One entry of a menu-images list: a menu item and the image it shows.
class TjexMenuImageItem : public rtl::TCollectionItem {
    JEX_CLASS(TjexMenuImageItem, rtl::TCollectionItem)
    explicit TjexMenuImageItem(rtl::TCollection* Collection) : rtl::TCollectionItem(Collection) {}
    ~TjexMenuImageItem() override;
    void Assign(rtl::TPersistent* Source) override;
    vcl::TMenuItem* MenuItem() const { return FMenuItem; }
    void SetMenuItem(vcl::TMenuItem* Value);
    int ImageIndex() const { return FImageIndex; }
    void SetImageIndex(int Value);
    std::string GetDisplayName() const override;

private:
    friend class TjexMenuImages;
    vcl::TMenuItem* FMenuItem = nullptr;
    int FImageIndex = -1;
};

// Gives menu items images from an image list: each entry of Items sets its menu item's ImageIndex.
class TjexMenuImages : public rtl::TComponent {
    JEX_CLASS(TjexMenuImages, rtl::TComponent)
    explicit TjexMenuImages(rtl::TComponent* AOwner);
    ~TjexMenuImages() override;
    rtl::TOwnedCollection* Items() const { return FItems.get(); }
    void SetItems(rtl::TOwnedCollection* Value) { FItems->Assign(Value); }
    TjexMenuImageItem* Add(vcl::TMenuItem* Item, int ImageIndex);
    vcl::TCustomImageList* Images() const { return FImages; }
    void SetImages(vcl::TCustomImageList* Value);
    // Sets every listed menu item's ImageIndex.
    void ApplyImages();
    void Loaded() override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    friend class TjexMenuImageItem;
    std::unique_ptr<rtl::TOwnedCollection> FItems;
    vcl::TCustomImageList* FImages = nullptr;
};

// A toolbar showing a main menu's top-level items as buttons; items' hints go to a status bar.
class TjexMenuToolbar : public TjexCustomToolWindow {
    JEX_CLASS(TjexMenuToolbar, TjexCustomToolWindow)
    explicit TjexMenuToolbar(rtl::TComponent* AOwner);
    bool GrayWhenInactive() const { return FGrayWhenInactive; }
    void SetGrayWhenInactive(bool Value) { FGrayWhenInactive = Value; }
    vcl::TMainMenu* MainMenu() const { return FMainMenu; }
    void SetMainMenu(vcl::TMainMenu* Value);
    bool OpaqueButtons() const { return FOpaqueButtons; }
    void SetOpaqueButtons(bool Value) { FOpaqueButtons = Value; }
    TjexMenuOptions Options() const { return FOptions; }
    void SetOptions(TjexMenuOptions Value) { FOptions = Value; }
    vcl::TWinControl* StatusBar() const { return FStatus.StatusBar(); }
    void SetStatusBar(vcl::TWinControl* Value) { FStatus.SetStatusBar(Value); }
    int StatusBarIndex() const { return FStatus.StatusBarIndex; }
    void SetStatusBarIndex(int Value) { FStatus.StatusBarIndex = Value; }
    bool SystemFont() const { return FSystemFont; }
    void SetSystemFont(bool Value) { FSystemFont = Value; }
    // The visible top-level items of the menu, as the toolbar's buttons show them (hotkeys kept).
    std::vector<vcl::TMenuItem*> MenuItems() const;
    // A person chooses a top-level item (by index among MenuItems): its hint goes to the status bar,
    // then the item's click runs.
    void ClickItem(int Index);
    void Describe(vcl::TControlDesc& d) const override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    bool FGrayWhenInactive = true;
    vcl::TMainMenu* FMainMenu = nullptr;
    bool FOpaqueButtons = false;
    TjexMenuOptions FOptions{jmoShowImages, jmoShowHints};
    TjexMenuStatus FStatus;
    bool FSystemFont = true;
};

} // namespace jex
