// Extra controls: panels, bevels, images, radio groups, and notebooks with their pages.
#pragma once

#include "vcl/stdctrls.h"

namespace vcl {

JEX_ENUM(TBevelCut, bvNone, bvLowered, bvRaised, bvSpace)
JEX_ENUM(TBevelShape, bsBox, bsFrame, bsTopLine, bsBottomLine, bsLeftLine, bsRightLine, bsSpacer)
JEX_ENUM(TBevelStyle, bsLowered, bsRaised)

class TCustomPanel : public TCustomControl {
    JEX_CLASS(TCustomPanel, TCustomControl)
    explicit TCustomPanel(TComponent* AOwner);
    TAlignment Alignment() const { return FAlignment; }
    void SetAlignment(TAlignment v) { FAlignment = v; }
    TBevelCut BevelInner() const { return FBevelInner; }
    void SetBevelInner(TBevelCut v);
    TBevelCut BevelOuter() const { return FBevelOuter; }
    void SetBevelOuter(TBevelCut v);
    int BevelWidth() const { return FBevelWidth; }
    void SetBevelWidth(int v);
    TBorderStyle BorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TBorderStyle v);
    bool FullRepaint() const { return FFullRepaint; }
    void SetFullRepaint(bool v) { FFullRepaint = v; }
    bool Locked() const { return FLocked; }
    void SetLocked(bool v) { FLocked = v; }
    // The border and the bevels are kept clear of aligned children.
    TRect AdjustClientRect() const override;

private:
    TAlignment FAlignment = taCenter;
    TBevelCut FBevelInner = bvNone, FBevelOuter = bvRaised;
    int FBevelWidth = 1;
    TBorderStyle FBorderStyle = bsNone;
    bool FFullRepaint = true, FLocked = false;
};

class TPanel : public TCustomPanel {
    JEX_CLASS(TPanel, TCustomPanel)
    using TCustomPanel::TCustomPanel;
};

class TBevel : public TGraphicControl {
    JEX_CLASS(TBevel, TGraphicControl)
    explicit TBevel(TComponent* AOwner);
    TBevelShape Shape() const { return FShape; }
    void SetShape(TBevelShape v) { FShape = v; }
    TBevelStyle Style() const { return FStyle; }
    void SetStyle(TBevelStyle v) { FStyle = v; }

private:
    TBevelShape FShape = bsBox;
    TBevelStyle FStyle = bsLowered;
};

class TImage : public TGraphicControl {
    JEX_CLASS(TImage, TGraphicControl)
    explicit TImage(TComponent* AOwner);
    ~TImage() override;
    TPicture* Picture() const { return FPicture; }
    void SetPicture(TPicture* v) { FPicture->Assign(v); }
    // The canvas of the picture's bitmap (made a bitmap of the control's size when empty).
    TCanvas* Canvas();
    // With AutoSize the control takes the picture's size whenever the picture changes.
    bool AutoSize() const { return FAutoSize; }
    void SetAutoSize(bool v);
    bool Center() const { return FCenter; }
    void SetCenter(bool v) { FCenter = v; }
    bool Stretch() const { return FStretch; }
    void SetStretch(bool v) { FStretch = v; }
    bool Transparent() const { return FTransparent; }
    void SetTransparent(bool v);
    bool Proportional() const { return FProportional; }
    void SetProportional(bool v) { FProportional = v; }
    // Where the picture is drawn inside the control, given Center, Stretch and Proportional.
    TRect DestRect() const;
    void Describe(TControlDesc& d) const override;

private:
    void PictureChanged();
    TPicture* FPicture;
    bool FAutoSize = false, FCenter = false, FStretch = false, FTransparent = false, FProportional = false;
};

// ---- Radio groups -------------------------------------------------------------------------------------
class TCustomRadioGroup;

// One button of a radio group; created and owned by the group, never streamed.
class TGroupButton : public TRadioButton {
    JEX_CLASS(TGroupButton, TRadioButton)
    explicit TGroupButton(TComponent* AOwner);
};

class TCustomRadioGroup : public TCustomGroupBox {
    JEX_CLASS(TCustomRadioGroup, TCustomGroupBox)
    explicit TCustomRadioGroup(TComponent* AOwner);
    ~TCustomRadioGroup() override;
    TStrings* Items() const { return FItems; }
    void SetItems(TStrings* v) { FItems->Assign(v); }
    // Selecting a different item checks its button, which raises OnClick as on the platform; out of
    // range values are clamped to -1 .. Count-1.
    int ItemIndex() const { return FItemIndex; }
    void SetItemIndex(int v);
    int Columns() const { return FColumns; }
    void SetColumns(int v); // 1..16
    // The button of item Index (enable or hide single items through it).
    TGroupButton* Buttons(int Index) const;
    int ButtonCount() const { return static_cast<int>(FButtons.size()); }
    void GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) override {}
    void SetBounds(int ALeft, int ATop, int AWidth, int AHeight) override;
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;
    void Loaded() override;
    void FontChanged() override;
    void EnabledChanged() override;
    void Describe(TControlDesc& d) const override;

private:
    void UpdateButtons();
    void ArrangeButtons();
    void ButtonClick(rtl::TObject* Sender);
    TStringList* FItems;
    std::vector<TGroupButton*> FButtons;
    int FItemIndex = -1;
    int FColumns = 1;
    bool FUpdating = false;
};

class TRadioGroup : public TCustomRadioGroup {
    JEX_CLASS(TRadioGroup, TCustomRadioGroup)
    using TCustomRadioGroup::TCustomRadioGroup;
};

// ---- Notebooks ----------------------------------------------------------------------------------------
class TNotebook;

// One page of a notebook; owned by the notebook, holds the page's controls.
class TPage : public TCustomControl {
    JEX_CLASS(TPage, TCustomControl)
    explicit TPage(TComponent* AOwner);
};

// A stack of pages of which one shows. A new notebook has one page, "Default", as on the platform; adding
// a page makes it the active one.
class TNotebook : public TCustomControl {
    JEX_CLASS(TNotebook, TCustomControl)
    explicit TNotebook(TComponent* AOwner);
    ~TNotebook() override;
    // Page captions; adding a line adds a page, deleting one frees the page and its controls.
    TStrings* Pages() const { return FAccess; }
    void SetPages(TStrings* v) { FAccess->Assign(v); }
    int PageCount() const { return static_cast<int>(FPages.size()); }
    TPage* Page(int Index) const; // raises EListError out of range
    TPage* PageByCaption(const std::string& Caption) const;
    // Only the active page is visible. Changing it raises OnPageChanged; an index out of range is ignored.
    int PageIndex() const { return FPageIndex; }
    void SetPageIndex(int v);
    std::string ActivePage() const;
    void SetActivePage(const std::string& v); // by caption; unknown captions are ignored
    void GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) override;
    void SetChildOrder(TComponent* Child, int Order) override;
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;
    void Describe(TControlDesc& d) const override;
    void Loaded() override;
    TNotifyEvent OnPageChanged;

private:
    friend class TPageAccess;
    void ControlAdded(TControl* AControl) override;
    void ControlRemoved(TControl* AControl) override;
    std::vector<TPage*> FPages;
    TStrings* FAccess;
    int FPageIndex = -1;
    int FInserting = -1;
};

} // namespace vcl
