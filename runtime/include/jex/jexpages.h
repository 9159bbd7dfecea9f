// Page containers: page frames whose pages are components of the form (the animated frame and the
// tabbed one), the button bar with a button per page, and the button list that a button page holds.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "jex/jexcommon.h"
#include "jex/jexeffects.h"
#include "vcl/comctrls.h"
#include "vcl/extctrls.h"
#include "vcl/imglist.h"

namespace jex {

class TjexCustomPageFrame;

// A page of a page frame. It belongs to the form like any control; its parent is the frame, which shows
// only its active page, filling its client area (the page is aligned to the client while it is in a
// frame; the frame decides whether it shows, so neither is stored).
class TjexPage : public vcl::TCustomPanel {
    JEX_CLASS(TjexPage, vcl::TCustomPanel)
    explicit TjexPage(rtl::TComponent* AOwner);
    // The frame (the page's parent), or nil.
    TjexCustomPageFrame* Frame() const;
    void SetFrame(TjexCustomPageFrame* Value);
    vcl::TImageIndex ImageIndex() const { return FImageIndex; }
    void SetImageIndex(vcl::TImageIndex Value) { FImageIndex = Value; }
    // The position among the frame's pages (-1 without a frame); setting it moves the page.
    int PageIndex() const;
    void SetPageIndex(int Value);

private:
    vcl::TImageIndex FImageIndex = -1;
};

// Base of the page frames. Its pages are its children of class TjexPage, in child order; one of them
// is the active page, the only one shown. A page that joins an empty frame becomes its active page.
class TjexCustomPageFrame : public vcl::TCustomPanel {
    JEX_CLASS(TjexCustomPageFrame, vcl::TCustomPanel)
    explicit TjexCustomPageFrame(rtl::TComponent* AOwner);
    int PageCount() const;
    TjexPage* Pages(int Index) const; // raises EListError out of range
    int IndexOfPage(const TjexPage* Page) const;
    TjexPage* ActivePage() const { return FActivePage; }
    // A page of another frame raises EInvalidOperation; nil hides every page. OnChange follows a change.
    virtual void SetActivePage(TjexPage* Value);
    int ActivePageIndex() const;
    void SetActivePageIndex(int Value);
    // The page after (before) CurPage, wrapping round; the first (last) page when CurPage is nil; nil for
    // a frame without pages.
    TjexPage* FindNextPage(TjexPage* CurPage, bool GoForward) const;
    void SelectNextPage(bool GoForward);
    vcl::TCustomImageList* Images() const { return FImages; }
    void SetImages(vcl::TCustomImageList* Value);
    void AlignControls() override;
    void Loaded() override;
    rtl::TNotifyEvent OnChange;

protected:
    void ControlAdded(vcl::TControl* AControl) override;
    void ControlRemoved(vcl::TControl* AControl) override;
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;
    std::vector<TjexPage*> PageList() const;
    void ShowActive();

private:
    TjexPage* FActivePage = nullptr;
    vcl::TCustomImageList* FImages = nullptr;
};

// A page frame whose page changes are animated with a transition over AnimationSteps steps in
// AnimationTime milliseconds. CreatePagesOnLoad says whether the controls of every page are made when
// the form loads (otherwise a page's controls are made when it is first shown).
class TjexAnimationFrame : public TjexCustomPageFrame {
    JEX_CLASS(TjexAnimationFrame, TjexCustomPageFrame)
    explicit TjexAnimationFrame(rtl::TComponent* AOwner);
    ~TjexAnimationFrame() override;
    TjexTransition* Animation() const { return FAnimation.get(); }
    void SetAnimation(TjexTransition* Value) { FAnimation->Assign(Value); }
    int AnimationSteps() const { return FAnimationSteps; }
    void SetAnimationSteps(int Value) { FAnimationSteps = Value < 1 ? 1 : Value; }
    int AnimationTime() const { return FAnimationTime; }
    void SetAnimationTime(int Value) { FAnimationTime = Value < 0 ? 0 : Value; }
    bool CreatePagesOnLoad() const { return FCreatePagesOnLoad; }
    void SetCreatePagesOnLoad(bool Value) { FCreatePagesOnLoad = Value; }
    // The effect the last page change used (jteNone before any, and while designing).
    TjexTransitionEffect LastEffect() const { return FLastEffect; }
    // Milliseconds between two animation steps.
    int StepDelay() const { return FAnimationTime / FAnimationSteps; }
    void SetActivePage(TjexPage* Value) override;

private:
    std::unique_ptr<TjexTransition> FAnimation;
    int FAnimationSteps = 8;
    int FAnimationTime = 250;
    bool FCreatePagesOnLoad = true;
    TjexTransitionEffect FLastEffect = jteNone;
};

// A page frame with a tab per page above (or beside) the pages; a person's choice of a tab makes its page
// the active one (OnChanging may refuse).
class TjexFormTabControl : public TjexCustomPageFrame {
    JEX_CLASS(TjexFormTabControl, TjexCustomPageFrame)
    explicit TjexFormTabControl(rtl::TComponent* AOwner);
    vcl::TTabPosition TabPosition() const { return FTabPosition; }
    void SetTabPosition(vcl::TTabPosition Value);
    // 0: the height of the tab text.
    int TabHeight() const { return FTabHeight; }
    void SetTabHeight(int Value);
    int TabIndex() const { return ActivePageIndex(); }
    void SetTabIndex(int Value) { SetActivePageIndex(Value); }
    // The pages' captions, one tab each.
    std::vector<std::string> Tabs() const;
    int TabStripSize() const;
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;
    void Describe(vcl::TControlDesc& d) const override;
    // The pages fill what the tab strip leaves.
    vcl::TRect AdjustClientRect() const override;
    vcl::TTabChangingEvent OnChanging;

private:
    vcl::TTabPosition FTabPosition = vcl::tpTop;
    int FTabHeight = 0;
};

// ---- Button bars -----------------------------------------------------------------------------------------
class TjexButtonBar;

// A page of a button bar: the bar shows a button with its caption (and image) and, below the button, the
// page when it is the active one.
class TjexButtonPage : public vcl::TCustomPanel {
    JEX_CLASS(TjexButtonPage, vcl::TCustomPanel)
    explicit TjexButtonPage(rtl::TComponent* AOwner);
    TjexButtonBar* ButtonBar() const;
    void SetButtonBar(TjexButtonBar* Value);
    vcl::TImageIndex ImageIndex() const { return FImageIndex; }
    void SetImageIndex(vcl::TImageIndex Value) { FImageIndex = Value; }
    int PageIndex() const;
    void SetPageIndex(int Value);

private:
    vcl::TImageIndex FImageIndex = -1;
};

JEX_ENUM(TjexButtonBarOption, jbbAnimate, jbbWrap, jbbBoldActive)
JEX_SET(TjexButtonBarOptions, TjexButtonBarOption)

// A bar of page buttons, one per button page: the buttons of the active page and those before it stack at
// the top, the buttons after it at the bottom, and the active page fills the space between. A press on
// a button makes its page the active one.
class TjexButtonBar : public vcl::TCustomPanel {
    JEX_CLASS(TjexButtonBar, vcl::TCustomPanel)
    explicit TjexButtonBar(rtl::TComponent* AOwner);
    int PageCount() const;
    TjexButtonPage* Pages(int Index) const; // raises EListError out of range
    int IndexOfPage(const TjexButtonPage* Page) const;
    TjexButtonPage* ActivePage() const { return FActivePage; }
    void SetActivePage(TjexButtonPage* Value);
    // The page after (before) CurPage; at the ends the first (last) page again with Wrap, nil without.
    TjexButtonPage* FindNextPage(TjexButtonPage* CurPage, bool GoForward, bool Wrap) const;
    // Where page Index's button is, in client coordinates.
    vcl::TRect ButtonRect(int Index) const;
    // The page whose button is at (X, Y), or -1.
    int ButtonAt(int X, int Y) const;

    vcl::TColor ActiveFontColor() const { return FActiveFontColor; }
    void SetActiveFontColor(vcl::TColor Value) { FActiveFontColor = Value; }
    int AnimationSteps() const { return FAnimationSteps; }
    void SetAnimationSteps(int Value) { FAnimationSteps = Value < 1 ? 1 : Value; }
    int AnimationTime() const { return FAnimationTime; }
    void SetAnimationTime(int Value) { FAnimationTime = Value < 0 ? 0 : Value; }
    vcl::TAlignment ButtonAlign() const { return FButtonAlign; }
    void SetButtonAlign(vcl::TAlignment Value) { FButtonAlign = Value; }
    vcl::TCursor ButtonCursor() const { return FButtonCursor; }
    void SetButtonCursor(vcl::TCursor Value) { FButtonCursor = Value; }
    int ButtonHeight() const { return FButtonHeight; }
    void SetButtonHeight(int Value);
    bool ButtonHighlight() const { return FButtonHighlight; }
    void SetButtonHighlight(bool Value) { FButtonHighlight = Value; }
    TjexButtonStyle ButtonStyle() const { return FButtonStyle; }
    void SetButtonStyle(TjexButtonStyle Value) { FButtonStyle = Value; }
    TjexButtonBarOptions Options() const { return FOptions; }
    void SetOptions(TjexButtonBarOptions Value) { FOptions = Value; }
    vcl::TCustomImageList* Images() const { return FImages; }
    void SetImages(vcl::TCustomImageList* Value);

    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;
    void AlignControls() override;
    void Loaded() override;
    void Describe(vcl::TControlDesc& d) const override;
    rtl::TNotifyEvent OnChange;

protected:
    void ControlAdded(vcl::TControl* AControl) override;
    void ControlRemoved(vcl::TControl* AControl) override;
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    std::vector<TjexButtonPage*> PageList() const;
    TjexButtonPage* FActivePage = nullptr;
    vcl::TColor FActiveFontColor = vcl::clWindowText;
    int FAnimationSteps = 8;
    int FAnimationTime = 250;
    vcl::TAlignment FButtonAlign = vcl::taCenter;
    vcl::TCursor FButtonCursor = vcl::crDefault;
    int FButtonHeight = 20;
    bool FButtonHighlight = true;
    TjexButtonStyle FButtonStyle = jbsAutoDetect;
    TjexButtonBarOptions FOptions{jbbAnimate};
    vcl::TCustomImageList* FImages = nullptr;
};

// ---- Button list --------------------------------------------------------------------------------------
class TjexButtonList;

class TjexButtonListItem : public rtl::TCollectionItem {
    JEX_CLASS(TjexButtonListItem, rtl::TCollectionItem)
    explicit TjexButtonListItem(rtl::TCollection* Collection) : rtl::TCollectionItem(Collection) {}
    void Assign(rtl::TPersistent* Source) override;
    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& Value);
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool Value);
    std::string Hint() const { return FHint; }
    void SetHint(const std::string& Value) { FHint = Value; }
    vcl::TImageIndex ImageIndex() const { return FImageIndex; }
    void SetImageIndex(vcl::TImageIndex Value);
    // The sound the list plays when the item is pressed (-1: none).
    int Sound() const { return FSound; }
    void SetSound(int Value) { FSound = Value; }
    std::string GetDisplayName() const override;

private:
    std::string FCaption;
    bool FEnabled = true;
    std::string FHint;
    vcl::TImageIndex FImageIndex = -1;
    int FSound = -1;
};

class TjexButtonListItems : public rtl::TOwnedCollection {
    JEX_CLASS(TjexButtonListItems, rtl::TOwnedCollection)
    explicit TjexButtonListItems(TjexButtonList* Owner);
    TjexButtonListItem* Add() { return static_cast<TjexButtonListItem*>(rtl::TCollection::Add()); }
    TjexButtonListItem* Items(int Index) const {
        return static_cast<TjexButtonListItem*>(rtl::TCollection::Items(Index));
    }
    void Update(rtl::TCollectionItem* Item) override;
};

JEX_ENUM(TjexButtonListViewStyle, jvsLargeIcons, jvsSmallIcons)
JEX_ENUM(TjexButtonListOption, jloAllowReorder, jloShowHints, jloFlat)
JEX_SET(TjexButtonListOptions, TjexButtonListOption)
JEX_EVENT_TYPE(TjexButtonListClickEvent, void(rtl::TObject* Sender, int Index))

// A column of picture buttons (large icons over their captions, or small icons beside them). A press
// selects an item (SelectedIndex), plays its sound through SoundList and raises OnItemClick; with
// jloAllowReorder a person drags items to another place (a line in DragLineColor shows where).
class TjexButtonList : public vcl::TCustomControl {
    JEX_CLASS(TjexButtonList, vcl::TCustomControl)
    explicit TjexButtonList(rtl::TComponent* AOwner);
    ~TjexButtonList() override;
    TjexButtonListItems* Items() const { return FItems.get(); }
    void SetItems(TjexButtonListItems* Value) { FItems->Assign(Value); }
    vcl::TPicture* Background() const { return FBackground.get(); }
    void SetBackground(vcl::TPicture* Value) { FBackground->Assign(Value); }
    vcl::TColor DragLineColor() const { return FDragLineColor; }
    void SetDragLineColor(vcl::TColor Value) { FDragLineColor = Value; }
    vcl::TColor FrameBottomColor() const { return FFrameBottomColor; }
    void SetFrameBottomColor(vcl::TColor Value) { FFrameBottomColor = Value; }
    vcl::TColor FrameTopColor() const { return FFrameTopColor; }
    void SetFrameTopColor(vcl::TColor Value) { FFrameTopColor = Value; }
    bool HighlightActive() const { return FHighlightActive; }
    void SetHighlightActive(bool Value) { FHighlightActive = Value; }
    bool HighlightSelected() const { return FHighlightSelected; }
    void SetHighlightSelected(bool Value) { FHighlightSelected = Value; }
    vcl::TCustomImageList* LargeImages() const { return FLargeImages; }
    void SetLargeImages(vcl::TCustomImageList* Value);
    vcl::TCustomImageList* SmallImages() const { return FSmallImages; }
    void SetSmallImages(vcl::TCustomImageList* Value);
    TjexButtonListOptions Options() const { return FOptions; }
    void SetOptions(TjexButtonListOptions Value) { FOptions = Value; }
    int SelectedIndex() const { return FSelectedIndex; }
    void SetSelectedIndex(int Value);
    TjexCustomSoundList* SoundList() const { return FSoundList; }
    void SetSoundList(TjexCustomSoundList* Value);
    TjexButtonListViewStyle ViewStyle() const { return FViewStyle; }
    void SetViewStyle(TjexButtonListViewStyle Value) { FViewStyle = Value; }

    int ItemHeight() const;
    vcl::TRect ItemRect(int Index) const;
    int ItemAtPos(int X, int Y) const;
    // A person's press on item Index (nothing for a disabled one).
    void ClickItem(int Index);
    void MoveItem(int From, int To);
    bool Dragging() const { return FDragFrom >= 0 && FDragMoved; }
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    void MouseMove(vcl::TShiftState Shift, int X, int Y) override;
    void MouseUp(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    void UserSelect(int Index) override { ClickItem(Index); }
    void UserSelectText(const std::string& Text) override;
    void Describe(vcl::TControlDesc& d) const override;
    TjexButtonListClickEvent OnItemClick;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    std::unique_ptr<TjexButtonListItems> FItems;
    std::unique_ptr<vcl::TPicture> FBackground;
    vcl::TColor FDragLineColor = vcl::clBlack;
    vcl::TColor FFrameBottomColor = vcl::clBtnShadow;
    vcl::TColor FFrameTopColor = vcl::clBtnHighlight;
    bool FHighlightActive = true;
    bool FHighlightSelected = true;
    vcl::TCustomImageList* FLargeImages = nullptr;
    vcl::TCustomImageList* FSmallImages = nullptr;
    TjexButtonListOptions FOptions{jloShowHints};
    int FSelectedIndex = -1;
    TjexCustomSoundList* FSoundList = nullptr;
    TjexButtonListViewStyle FViewStyle = jvsLargeIcons;
    int FDragFrom = -1;
    bool FDragMoved = false;
};

} // namespace jex
