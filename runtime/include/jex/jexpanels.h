// Panels and notebooks: a panel that holds a form, a group box with a picture, a panel with a sizing
// edge, a panel a person moves and sizes, a panel that arranges its controls in a grid, the hint bar,
// notebooks whose pages hold forms, and notebooks paged with the arrow keys.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "jex/jexcommon.h"
#include "vcl/comctrls.h"
#include "vcl/extctrls.h"
#include "vcl/forms.h"

namespace jex {

// ---- Form panel ---------------------------------------------------------------------------------------
// A panel that shows the form named FormName inside itself (borderless, filling the panel): found among
// the open forms or created from its registered class. With AutoCreate it does so when it is loaded at run
// time; with AutoDestroy a form it created goes with it (otherwise the form is handed back as a free
// window). With HandleException a form that cannot be shown is reported through the application instead
// of raising.
class TjexFormPanel : public vcl::TCustomPanel {
    JEX_CLASS(TjexFormPanel, vcl::TCustomPanel)
    explicit TjexFormPanel(rtl::TComponent* AOwner);
    ~TjexFormPanel() override;
    bool AutoCreate() const { return FAutoCreate; }
    void SetAutoCreate(bool Value) { FAutoCreate = Value; }
    bool AutoDestroy() const { return FAutoDestroy; }
    void SetAutoDestroy(bool Value) { FAutoDestroy = Value; }
    std::string FormName() const { return FFormName; }
    void SetFormName(const std::string& Value) { FFormName = Value; }
    bool HandleException() const { return FHandleException; }
    void SetHandleException(bool Value) { FHandleException = Value; }
    vcl::TCustomForm* Form() const { return FForm; }
    // Shows FormName inside the panel (the one shown before goes first); the form, or nil when it could
    // not be shown and HandleException let the application report it.
    vcl::TCustomForm* ShowForm();
    // Takes the form out of the panel (freeing it when the panel made it and AutoDestroy is set).
    void CloseForm();
    void Loaded() override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    bool FAutoCreate = true;
    bool FAutoDestroy = true;
    std::string FFormName;
    bool FHandleException = false;
    vcl::TCustomForm* FForm = nullptr;
    bool FCreated = false;
};

// ---- Picture group box -----------------------------------------------------------------------------------
// A group box with a picture beside its caption in the top line (AlignPicture places the pair, Offset
// indents it), a frame line drawn raised or lowered, and margins around its client area.
class TjexPictureGroup : public vcl::TCustomGroupBox {
    JEX_CLASS(TjexPictureGroup, vcl::TCustomGroupBox)
    explicit TjexPictureGroup(rtl::TComponent* AOwner);
    ~TjexPictureGroup() override;
    TjexAlignHorz AlignPicture() const { return FAlignPicture; }
    void SetAlignPicture(TjexAlignHorz Value) { FAlignPicture = Value; }
    bool LineRaised() const { return FLineRaised; }
    void SetLineRaised(bool Value) { FLineRaised = Value; }
    int MarginB() const { return FMarginB; }
    void SetMarginB(int Value);
    int MarginL() const { return FMarginL; }
    void SetMarginL(int Value);
    int MarginR() const { return FMarginR; }
    void SetMarginR(int Value);
    int MarginT() const { return FMarginT; }
    void SetMarginT(int Value);
    int Offset() const { return FOffset; }
    void SetOffset(int Value) { FOffset = Value; }
    vcl::TPicture* Picture() const { return FPicture.get(); }
    void SetPicture(vcl::TPicture* Value) { FPicture->Assign(Value); }
    bool Transparent() const { return FTransparent; }
    void SetTransparent(bool Value) { FTransparent = Value; }
    // The top line's height: the caption's or the picture's, whichever is taller.
    int HeaderHeight() const;
    // Where the picture and the caption go in the top line.
    vcl::TRect PictureRect() const;
    vcl::TRect CaptionRect() const;
    vcl::TRect AdjustClientRect() const override;

private:
    TjexAlignHorz FAlignPicture = jahLeft;
    bool FLineRaised = false;
    int FMarginB = 4, FMarginL = 4, FMarginR = 4, FMarginT = 4;
    int FOffset = 8;
    std::unique_ptr<vcl::TPicture> FPicture;
    bool FTransparent = true;
};

// ---- Edge panel ----------------------------------------------------------------------------------------
// A panel aligned to an edge of its parent whose inner edge a person drags to size it (as a panel and a
// splitter together); a panel that is not aligned to an edge sizes by its right edge.
class TjexEdgePanel : public vcl::TCustomPanel {
    JEX_CLASS(TjexEdgePanel, vcl::TCustomPanel)
    explicit TjexEdgePanel(rtl::TComponent* AOwner);
    // The strip along the inner edge where a press starts sizing (client coordinates).
    vcl::TRect EdgeRect() const;
    bool Sizing() const { return FSizing; }
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    void MouseMove(vcl::TShiftState Shift, int X, int Y) override;
    void MouseUp(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;

private:
    bool FSizing = false;
    vcl::TPoint FStart;
    int FStartSize = 0;
};

// ---- Drag panel ---------------------------------------------------------------------------------------
JEX_ENUM(TjexDragPanelOption, jdpMove, jdpSize, jdpBringToFront, jdpClipToParent)
JEX_SET(TjexDragPanelOptions, TjexDragPanelOption)

// A panel a person moves by dragging it (jdpMove) and sizes by dragging its bottom-right corner (jdpSize).
// Left and Top stay within MoveMin..MoveMax (a maximum of 0: none; with jdpClipToParent also inside the
// parent), Width and Height within SizeMin..SizeMax. Locked stops both, MSLocked stops sizing only.
class TjexDragPanel : public vcl::TCustomPanel {
    JEX_CLASS(TjexDragPanel, vcl::TCustomPanel)
    explicit TjexDragPanel(rtl::TComponent* AOwner);
    int MoveMaxLeft() const { return FMoveMaxLeft; }
    void SetMoveMaxLeft(int Value) { FMoveMaxLeft = Value; }
    int MoveMaxTop() const { return FMoveMaxTop; }
    void SetMoveMaxTop(int Value) { FMoveMaxTop = Value; }
    int MoveMinLeft() const { return FMoveMinLeft; }
    void SetMoveMinLeft(int Value) { FMoveMinLeft = Value; }
    int MoveMinTop() const { return FMoveMinTop; }
    void SetMoveMinTop(int Value) { FMoveMinTop = Value; }
    bool MSLocked() const { return FMSLocked; }
    void SetMSLocked(bool Value) { FMSLocked = Value; }
    TjexDragPanelOptions Options() const { return FOptions; }
    void SetOptions(TjexDragPanelOptions Value) { FOptions = Value; }
    int SizeMaxHeight() const { return FSizeMaxHeight; }
    void SetSizeMaxHeight(int Value) { FSizeMaxHeight = Value; }
    int SizeMaxWidth() const { return FSizeMaxWidth; }
    void SetSizeMaxWidth(int Value) { FSizeMaxWidth = Value; }
    int SizeMinHeight() const { return FSizeMinHeight; }
    void SetSizeMinHeight(int Value) { FSizeMinHeight = Value; }
    int SizeMinWidth() const { return FSizeMinWidth; }
    void SetSizeMinWidth(int Value) { FSizeMinWidth = Value; }

    // The corner where a press starts sizing.
    vcl::TRect GripRect() const;
    // Moves (sizes) the panel as a person's drag does, within the limits.
    void MoveTo(int ALeft, int ATop);
    void SizeTo(int AWidth, int AHeight);
    bool Dragging() const { return FMode != 0; }
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    void MouseMove(vcl::TShiftState Shift, int X, int Y) override;
    void MouseUp(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    rtl::TNotifyEvent OnMoved;
    rtl::TNotifyEvent OnSized;

private:
    int FMoveMaxLeft = 0, FMoveMaxTop = 0, FMoveMinLeft = 0, FMoveMinTop = 0;
    bool FMSLocked = false;
    TjexDragPanelOptions FOptions{jdpMove, jdpSize, jdpBringToFront, jdpClipToParent};
    int FSizeMaxHeight = 0, FSizeMaxWidth = 0, FSizeMinHeight = 10, FSizeMinWidth = 10;
    int FMode = 0; // 1 moving, 2 sizing
    vcl::TPoint FStart;
    vcl::TRect FStartBounds;
};

// ---- Speed panel --------------------------------------------------------------------------------------
// A panel that arranges its (unaligned) controls in a grid of CtrlWidth x CtrlHeight cells: CtrlCols
// columns and CtrlRows rows (0: as many as fit), MarginH / MarginV inside the panel's edges, MarginCol /
// MarginRow between the cells. Filled row by row, or column by column with InsertCols; in child order, or
// by Tag with Sorted; with SizeVisibleOnly hidden controls take no cell.
class TjexSpeedPanel : public vcl::TCustomPanel {
    JEX_CLASS(TjexSpeedPanel, vcl::TCustomPanel)
    explicit TjexSpeedPanel(rtl::TComponent* AOwner);
    int CtrlCols() const { return FCtrlCols; }
    void SetCtrlCols(int Value);
    int CtrlHeight() const { return FCtrlHeight; }
    void SetCtrlHeight(int Value);
    int CtrlRows() const { return FCtrlRows; }
    void SetCtrlRows(int Value);
    int CtrlWidth() const { return FCtrlWidth; }
    void SetCtrlWidth(int Value);
    bool InsertCols() const { return FInsertCols; }
    void SetInsertCols(bool Value);
    int MarginCol() const { return FMarginCol; }
    void SetMarginCol(int Value);
    int MarginH() const { return FMarginH; }
    void SetMarginH(int Value);
    int MarginRow() const { return FMarginRow; }
    void SetMarginRow(int Value);
    int MarginV() const { return FMarginV; }
    void SetMarginV(int Value);
    bool SizeVisibleOnly() const { return FSizeVisibleOnly; }
    void SetSizeVisibleOnly(bool Value);
    bool Sorted() const { return FSorted; }
    void SetSorted(bool Value);
    // The columns and rows in use.
    int ColCount() const;
    int RowCount() const;
    // Puts every arranged control into its cell.
    void ArrangeControls();
    void AlignControls() override;
    void Loaded() override;

protected:
    void ControlAdded(vcl::TControl* AControl) override;

private:
    std::vector<vcl::TControl*> Arranged() const;
    int FCtrlCols = 0, FCtrlHeight = 25, FCtrlRows = 0, FCtrlWidth = 25;
    bool FInsertCols = false;
    int FMarginCol = 2, FMarginH = 4, FMarginRow = 2, FMarginV = 4;
    bool FSizeVisibleOnly = true;
    bool FSorted = false;
    bool FArranging = false;
};

// ---- Hint bar --------------------------------------------------------------------------------------------
// A status bar that shows hints: the application's hint under the mouse (AutoHint, at run time), or the
// hint of the control that has the focus (ShowActiveControl), between HintPrefix and HintSuffix. An empty
// hint clears the text only with ShowEmpty. UseSystemFont shows the text in the system's hint font.
class TjexHintBar : public vcl::TStatusBar {
    JEX_CLASS(TjexHintBar, vcl::TStatusBar)
    explicit TjexHintBar(rtl::TComponent* AOwner);
    ~TjexHintBar() override;
    std::string HintPrefix() const { return FHintPrefix; }
    void SetHintPrefix(const std::string& Value) { FHintPrefix = Value; }
    std::string HintSuffix() const { return FHintSuffix; }
    void SetHintSuffix(const std::string& Value) { FHintSuffix = Value; }
    bool ShowActiveControl() const { return FShowActiveControl; }
    void SetShowActiveControl(bool Value) { FShowActiveControl = Value; }
    bool ShowEmpty() const { return FShowEmpty; }
    void SetShowEmpty(bool Value) { FShowEmpty = Value; }
    bool UseSystemFont() const { return FUseSystemFont; }
    void SetUseSystemFont(bool Value);
    // Shows a hint as the settings say; false when nothing changed.
    bool DisplayHint(const std::string& Hint);
    // The focus moved to Control (with ShowActiveControl its long hint shows).
    void ActiveControlChanged(vcl::TControl* Control);
    // The text the bar shows now.
    std::string ShownText() const;
    void Loaded() override;

private:
    std::string FHintPrefix, FHintSuffix;
    bool FShowActiveControl = false;
    bool FShowEmpty = true;
    bool FUseSystemFont = false;
    std::shared_ptr<bool> FAlive;
};

// ---- Notebooks -----------------------------------------------------------------------------------------
// A notebook whose page I shows the form named by line I of Forms (inside the page, borderless). At run
// time the form appears when its page becomes the active one; with FormCreateDestroy a form the notebook
// made goes again when its page is left. ActiveForm is the active page's form name; setting it turns to
// that page. HandleException reports a form that cannot be shown through the application.
class TjexFormNoteBook : public vcl::TNotebook {
    JEX_CLASS(TjexFormNoteBook, vcl::TNotebook)
    explicit TjexFormNoteBook(rtl::TComponent* AOwner);
    ~TjexFormNoteBook() override;
    std::string ActiveForm() const;
    void SetActiveForm(const std::string& Value);
    bool FormCreateDestroy() const { return FFormCreateDestroy; }
    void SetFormCreateDestroy(bool Value) { FFormCreateDestroy = Value; }
    // Form names, one per page; pages are added for lines beyond the last page.
    rtl::TStrings* Forms() const { return FForms.get(); }
    void SetForms(rtl::TStrings* Value) { FForms->Assign(Value); }
    bool HandleException() const { return FHandleException; }
    void SetHandleException(bool Value) { FHandleException = Value; }
    // The form shown on page Index, or nil.
    vcl::TCustomForm* PageForm(int Index) const;
    // Shows the active page's form (what a page change does at run time).
    vcl::TCustomForm* ShowActiveForm();
    void Loaded() override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    void FormsChanged();
    void PageChanged();
    void Release(int Page);
    std::unique_ptr<rtl::TStringList> FForms;
    bool FFormCreateDestroy = false;
    bool FHandleException = false;
    struct TShown {
        vcl::TCustomForm* Form = nullptr;
        bool Created = false;
    };
    std::map<int, TShown> FShown;
    int FLastPage = -1;
    std::shared_ptr<bool> FAlive;
};

// The same with a row of tabs (TabsPerRow to a row) over the pages; a person's choice of a tab turns to
// its page.
class TjexFormTabbedNoteBook : public TjexFormNoteBook {
    JEX_CLASS(TjexFormTabbedNoteBook, TjexFormNoteBook)
    explicit TjexFormTabbedNoteBook(rtl::TComponent* AOwner);
    int TabsPerRow() const { return FTabsPerRow; }
    void SetTabsPerRow(int Value);
    int TabRows() const;
    vcl::TRect AdjustClientRect() const override;

private:
    int FTabsPerRow = 3;
};

// A notebook paged with the arrow keys and the two arrow buttons in its bottom-right corner: left goes
// to the previous page, right to the next, round the ends.
class TjexLRNoteBook : public vcl::TNotebook {
    JEX_CLASS(TjexLRNoteBook, vcl::TNotebook)
    explicit TjexLRNoteBook(rtl::TComponent* AOwner);
    void SelectNextPage(bool GoForward);
    vcl::TRect PrevButtonRect() const;
    vcl::TRect NextButtonRect() const;
    void KeyDown(uint16_t& Key, vcl::TShiftState Shift) override;
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
};

// The same with a row of tabs over the pages.
class TjexLRTabbedNoteBook : public TjexLRNoteBook {
    JEX_CLASS(TjexLRTabbedNoteBook, TjexLRNoteBook)
    explicit TjexLRTabbedNoteBook(rtl::TComponent* AOwner);
    vcl::TRect AdjustClientRect() const override;
};

} // namespace jex
