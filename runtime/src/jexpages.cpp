// Page frames and their pages, the button bar and its pages, and the button list.
#include "jex/jexpages.h"

#include <algorithm>

#include "jexpanelpub.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexButtonBarOption)
JEX_DEFINE_SET(TjexButtonBarOptions, TjexButtonBarOption)
JEX_DEFINE_ENUM(TjexButtonListViewStyle)
JEX_DEFINE_ENUM(TjexButtonListOption)
JEX_DEFINE_SET(TjexButtonListOptions, TjexButtonListOption)
JEX_DEFINE_EVENT_TYPE(TjexButtonListClickEvent, "Sender: TObject; Index: Integer")

namespace {
// What a page publishes: a panel without placement (its container places and shows it).
template <class C> void PublishPage(rtl::TClassDecl<C>& d) {
    d.Property("BevelInner", &TCustomPanel::BevelInner, &TCustomPanel::SetBevelInner).Default(bvNone);
    d.Property("BevelOuter", &TCustomPanel::BevelOuter, &TCustomPanel::SetBevelOuter).Default(bvNone);
    d.Property("BevelWidth", &TCustomPanel::BevelWidth, &TCustomPanel::SetBevelWidth).Default(1);
    d.Property("BorderWidth", &TCustomPanel::BorderWidth, &TCustomPanel::SetBorderWidth).Default(0);
    pub::Caption(d);
    pub::Color(d, clBtnFace);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("ImageIndex", &C::ImageIndex, &C::SetImageIndex, TypeInfo_TImageIndex()).Default(-1);
    // The child order keeps the page's place.
    d.Property("PageIndex", &C::PageIndex, &C::SetPageIndex).Stored(false);
    pub::ParentColor(d, false);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
    pub::OnResize(d);
}

template <class Page> std::vector<Page*> PagesOf(const std::vector<TControl*>& controls) {
    std::vector<Page*> list;
    for (TControl* c : controls)
        if (auto* p = dynamic_cast<Page*>(c)) list.push_back(p);
    return list;
}

// Moves a page to position Value among its container's pages (in the container's child order).
template <class Page> void MovePage(TWinControl* container, Page* page, int Value) {
    std::vector<Page*> pages = PagesOf<Page>(container->ControlList());
    if (pages.empty()) return;
    Value = std::clamp(Value, 0, static_cast<int>(pages.size()) - 1);
    Page* target = pages[Value];
    if (target == page) return;
    const std::vector<TControl*>& all = container->ControlList();
    int order = static_cast<int>(std::find(all.begin(), all.end(), target) - all.begin());
    container->SetChildOrder(page, order);
}
} // namespace

// ---- Pages and page frames ---------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexPage, TCustomPanel, "jexpages") {
    PublishPage(d);
}

TjexPage::TjexPage(rtl::TComponent* AOwner) : TCustomPanel(AOwner) {
    SetBevelOuter(bvNone);
    FWidth = 185;
    FHeight = 105;
}

TjexCustomPageFrame* TjexPage::Frame() const {
    return dynamic_cast<TjexCustomPageFrame*>(Parent());
}

void TjexPage::SetFrame(TjexCustomPageFrame* Value) {
    SetParent(Value);
}

int TjexPage::PageIndex() const {
    TjexCustomPageFrame* f = Frame();
    return f ? f->IndexOfPage(this) : -1;
}

void TjexPage::SetPageIndex(int Value) {
    if (TjexCustomPageFrame* f = Frame()) MovePage<TjexPage>(f, this, Value);
}

JEX_IMPLEMENT_CLASS(TjexCustomPageFrame, TCustomPanel, "jexpages") {}

template <class C> static void PublishFrame(rtl::TClassDecl<C>& d) {
    pubx::Panel(d);
    d.Property("ActivePage", &C::ActivePage, &C::SetActivePage);
    d.Property("Images", &C::Images, &C::SetImages);
    d.Event("OnChange", &C::OnChange);
}

TjexCustomPageFrame::TjexCustomPageFrame(rtl::TComponent* AOwner) : TCustomPanel(AOwner) {
    FControlStyle.Exclude(csSetCaption);
    FWidth = 200;
    FHeight = 150;
}

std::vector<TjexPage*> TjexCustomPageFrame::PageList() const {
    return PagesOf<TjexPage>(FControls);
}

int TjexCustomPageFrame::PageCount() const {
    return static_cast<int>(PageList().size());
}

TjexPage* TjexCustomPageFrame::Pages(int Index) const {
    std::vector<TjexPage*> pages = PageList();
    if (Index < 0 || Index >= static_cast<int>(pages.size()))
        throw rtl::EListError(rtl::Format(rtl::SListIndexError, {Index}));
    return pages[Index];
}

int TjexCustomPageFrame::IndexOfPage(const TjexPage* Page) const {
    std::vector<TjexPage*> pages = PageList();
    auto it = std::find(pages.begin(), pages.end(), Page);
    return it == pages.end() ? -1 : static_cast<int>(it - pages.begin());
}

void TjexCustomPageFrame::ShowActive() {
    for (TjexPage* p : PageList())
        p->SetVisible(p == FActivePage);
}

void TjexCustomPageFrame::SetActivePage(TjexPage* Value) {
    if (Value && Value->Parent() != this)
        throw rtl::EInvalidOperation("'" + Value->Name() + "' is not a page of '" + Name() + "'");
    bool changed = Value != FActivePage;
    FActivePage = Value;
    ShowActive();
    if (changed && !IsLoading()) OnChange(this);
}

int TjexCustomPageFrame::ActivePageIndex() const {
    return IndexOfPage(FActivePage);
}

void TjexCustomPageFrame::SetActivePageIndex(int Value) {
    std::vector<TjexPage*> pages = PageList();
    if (Value < -1 || Value >= static_cast<int>(pages.size())) return;
    SetActivePage(Value < 0 ? nullptr : pages[Value]);
}

TjexPage* TjexCustomPageFrame::FindNextPage(TjexPage* CurPage, bool GoForward) const {
    std::vector<TjexPage*> pages = PageList();
    int n = static_cast<int>(pages.size());
    if (!n) return nullptr;
    int i = IndexOfPage(CurPage);
    if (i < 0) return GoForward ? pages.front() : pages.back();
    return pages[(i + (GoForward ? 1 : n - 1)) % n];
}

void TjexCustomPageFrame::SelectNextPage(bool GoForward) {
    SetActivePage(FindNextPage(FActivePage, GoForward));
}

void TjexCustomPageFrame::SetImages(TCustomImageList* Value) {
    pubx::SetReference(this, FImages, Value);
}

void TjexCustomPageFrame::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TCustomPanel::Notification(AComponent, Operation);
    if (Operation != rtl::opRemove) return;
    if (AComponent == FImages) FImages = nullptr;
    if (AComponent == FActivePage) FActivePage = nullptr;
}

void TjexCustomPageFrame::ControlAdded(TControl* AControl) {
    TCustomPanel::ControlAdded(AControl);
    auto* page = dynamic_cast<TjexPage*>(AControl);
    if (!page) return;
    page->SetAlign(alClient);
    if (IsLoading()) return;
    if (!FActivePage)
        SetActivePage(page);
    else
        page->SetVisible(false);
}

void TjexCustomPageFrame::ControlRemoved(TControl* AControl) {
    TCustomPanel::ControlRemoved(AControl);
    // A page being destroyed is no longer a TjexPage to dynamic_cast: the active page is found by address.
    if (auto* page = dynamic_cast<TjexPage*>(AControl)) {
        page->SetAlign(alNone);
        page->SetVisible(true);
    }
    if (AControl == FActivePage && !IsDestroying()) {
        FActivePage = nullptr;
        std::vector<TjexPage*> pages = PageList();
        SetActivePage(pages.empty() ? nullptr : pages.front());
    }
}

void TjexCustomPageFrame::AlignControls() {
    TCustomPanel::AlignControls();
}

void TjexCustomPageFrame::Loaded() {
    TCustomPanel::Loaded();
    ShowActive();
}

// ---- Animated frame -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexAnimationFrame, TjexCustomPageFrame, "jexpages") {
    PublishFrame(d);
    d.Property("Animation", &TjexAnimationFrame::Animation, &TjexAnimationFrame::SetAnimation);
    d.Property("AnimationSteps", &TjexAnimationFrame::AnimationSteps, &TjexAnimationFrame::SetAnimationSteps)
        .Default(8);
    d.Property("AnimationTime", &TjexAnimationFrame::AnimationTime, &TjexAnimationFrame::SetAnimationTime)
        .Default(250);
    d.Property("CreatePagesOnLoad", &TjexAnimationFrame::CreatePagesOnLoad,
               &TjexAnimationFrame::SetCreatePagesOnLoad)
        .Default(true);
}

TjexAnimationFrame::TjexAnimationFrame(rtl::TComponent* AOwner)
    : TjexCustomPageFrame(AOwner), FAnimation(std::make_unique<TjexTransition>()) {}

TjexAnimationFrame::~TjexAnimationFrame() = default;

void TjexAnimationFrame::SetActivePage(TjexPage* Value) {
    // The effect is chosen (moving a random selection on) only for a change a running form shows.
    if (Value != ActivePage() && ActivePage() && Value && !IsLoading() && !IsDesigning())
        FLastEffect = FAnimation->NextEffect();
    TjexCustomPageFrame::SetActivePage(Value);
}

// ---- Tabbed frame --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexFormTabControl, TjexCustomPageFrame, "jexpages") {
    PublishFrame(d);
    d.Event("OnChanging", &TjexFormTabControl::OnChanging);
    d.Property("TabHeight", &TjexFormTabControl::TabHeight, &TjexFormTabControl::SetTabHeight).Default(0);
    d.Property("TabPosition", &TjexFormTabControl::TabPosition, &TjexFormTabControl::SetTabPosition)
        .Default(tpTop);
}

TjexFormTabControl::TjexFormTabControl(rtl::TComponent* AOwner) : TjexCustomPageFrame(AOwner) {
    SetBevelOuter(bvNone);
}

void TjexFormTabControl::SetTabPosition(TTabPosition Value) {
    FTabPosition = Value;
    Realign();
}

void TjexFormTabControl::SetTabHeight(int Value) {
    FTabHeight = std::max(0, Value);
    Realign();
}

int TjexFormTabControl::TabStripSize() const {
    return FTabHeight > 0 ? FTabHeight : TextHeightOf(Font()) + 8;
}

TRect TjexFormTabControl::AdjustClientRect() const {
    TRect r = TjexCustomPageFrame::AdjustClientRect();
    int s = TabStripSize();
    switch (FTabPosition) {
    case tpTop:
        r.Top += s;
        break;
    case tpBottom:
        r.Bottom -= s;
        break;
    case tpLeft:
        r.Left += s;
        break;
    case tpRight:
        r.Right -= s;
        break;
    }
    return r;
}

std::vector<std::string> TjexFormTabControl::Tabs() const {
    std::vector<std::string> tabs;
    for (TjexPage* p : PageList())
        tabs.push_back(p->Caption());
    return tabs;
}

void TjexFormTabControl::UserSelect(int Index) {
    if (Index < 0 || Index >= PageCount())
        throw EUserActionError(Name() + " has no tab " + std::to_string(Index));
    bool allow = true;
    OnChanging(this, allow);
    if (allow) SetActivePageIndex(Index);
}

void TjexFormTabControl::UserSelectText(const std::string& Text) {
    std::vector<std::string> tabs = Tabs();
    for (size_t i = 0; i < tabs.size(); ++i)
        if (rtl::SameText(StripHotkey(tabs[i]), StripHotkey(Text))) return UserSelect(static_cast<int>(i));
    throw EUserActionError(Name() + " has no tab '" + Text + "'");
}

void TjexFormTabControl::Describe(TControlDesc& d) const {
    TjexCustomPageFrame::Describe(d);
    d.Items = Tabs();
    d.ItemIndex = ActivePageIndex();
}

// ---- Button bar ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexButtonPage, TCustomPanel, "jexpages") {
    PublishPage(d);
}

TjexButtonPage::TjexButtonPage(rtl::TComponent* AOwner) : TCustomPanel(AOwner) {
    SetBevelOuter(bvNone);
    FWidth = 150;
    FHeight = 100;
}

TjexButtonBar* TjexButtonPage::ButtonBar() const {
    return dynamic_cast<TjexButtonBar*>(Parent());
}

void TjexButtonPage::SetButtonBar(TjexButtonBar* Value) {
    SetParent(Value);
}

int TjexButtonPage::PageIndex() const {
    TjexButtonBar* b = ButtonBar();
    return b ? b->IndexOfPage(this) : -1;
}

void TjexButtonPage::SetPageIndex(int Value) {
    if (TjexButtonBar* b = ButtonBar()) {
        MovePage<TjexButtonPage>(b, this, Value);
        b->Realign();
    }
}

JEX_IMPLEMENT_CLASS(TjexButtonBar, TCustomPanel, "jexpages") {
    pubx::Panel(d);
    d.Property("ActiveFontColor", &TjexButtonBar::ActiveFontColor, &TjexButtonBar::SetActiveFontColor,
               TypeInfo_TColor())
        .Default(clWindowText);
    d.Property("ActivePage", &TjexButtonBar::ActivePage, &TjexButtonBar::SetActivePage);
    d.Property("AnimationSteps", &TjexButtonBar::AnimationSteps, &TjexButtonBar::SetAnimationSteps)
        .Default(8);
    d.Property("AnimationTime", &TjexButtonBar::AnimationTime, &TjexButtonBar::SetAnimationTime).Default(250);
    d.Property("ButtonAlign", &TjexButtonBar::ButtonAlign, &TjexButtonBar::SetButtonAlign).Default(taCenter);
    d.Property("ButtonCursor", &TjexButtonBar::ButtonCursor, &TjexButtonBar::SetButtonCursor,
               TypeInfo_TCursor())
        .Default(crDefault);
    d.Property("ButtonHeight", &TjexButtonBar::ButtonHeight, &TjexButtonBar::SetButtonHeight).Default(20);
    d.Property("ButtonHighlight", &TjexButtonBar::ButtonHighlight, &TjexButtonBar::SetButtonHighlight)
        .Default(true);
    d.Property("ButtonStyle", &TjexButtonBar::ButtonStyle, &TjexButtonBar::SetButtonStyle)
        .Default(jbsAutoDetect);
    d.Property("Images", &TjexButtonBar::Images, &TjexButtonBar::SetImages);
    d.Property("Options", &TjexButtonBar::Options, &TjexButtonBar::SetOptions)
        .Default(TjexButtonBarOptions{jbbAnimate}.Bits());
    d.Event("OnChange", &TjexButtonBar::OnChange);
}

TjexButtonBar::TjexButtonBar(rtl::TComponent* AOwner) : TCustomPanel(AOwner) {
    FControlStyle.Exclude(csSetCaption);
    FWidth = 120;
    FHeight = 250;
}

std::vector<TjexButtonPage*> TjexButtonBar::PageList() const {
    return PagesOf<TjexButtonPage>(FControls);
}

int TjexButtonBar::PageCount() const {
    return static_cast<int>(PageList().size());
}

TjexButtonPage* TjexButtonBar::Pages(int Index) const {
    std::vector<TjexButtonPage*> pages = PageList();
    if (Index < 0 || Index >= static_cast<int>(pages.size()))
        throw rtl::EListError(rtl::Format(rtl::SListIndexError, {Index}));
    return pages[Index];
}

int TjexButtonBar::IndexOfPage(const TjexButtonPage* Page) const {
    std::vector<TjexButtonPage*> pages = PageList();
    auto it = std::find(pages.begin(), pages.end(), Page);
    return it == pages.end() ? -1 : static_cast<int>(it - pages.begin());
}

void TjexButtonBar::SetActivePage(TjexButtonPage* Value) {
    if (Value && Value->Parent() != this)
        throw rtl::EInvalidOperation("'" + Value->Name() + "' is not a page of '" + Name() + "'");
    bool changed = Value != FActivePage;
    FActivePage = Value;
    for (TjexButtonPage* p : PageList())
        p->SetVisible(p == FActivePage);
    Realign();
    if (changed && !IsLoading()) OnChange(this);
}

TjexButtonPage* TjexButtonBar::FindNextPage(TjexButtonPage* CurPage, bool GoForward, bool Wrap) const {
    std::vector<TjexButtonPage*> pages = PageList();
    int n = static_cast<int>(pages.size());
    if (!n) return nullptr;
    int i = IndexOfPage(CurPage);
    if (i < 0) return GoForward ? pages.front() : pages.back();
    int next = i + (GoForward ? 1 : -1);
    if (next < 0 || next >= n) {
        if (!Wrap) return nullptr;
        next = (next + n) % n;
    }
    return pages[next];
}

void TjexButtonBar::SetButtonHeight(int Value) {
    FButtonHeight = std::max(1, Value);
    Realign();
}

void TjexButtonBar::SetImages(TCustomImageList* Value) {
    pubx::SetReference(this, FImages, Value);
}

void TjexButtonBar::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TCustomPanel::Notification(AComponent, Operation);
    if (Operation != rtl::opRemove) return;
    if (AComponent == FImages) FImages = nullptr;
    if (AComponent == FActivePage) FActivePage = nullptr;
}

TRect TjexButtonBar::ButtonRect(int Index) const {
    TRect r = AdjustClientRect();
    int n = PageCount(), a = IndexOfPage(FActivePage);
    if (Index < 0 || Index >= n) return {};
    int top = Index <= a || a < 0 ? r.Top + Index * FButtonHeight : r.Bottom - (n - Index) * FButtonHeight;
    return Rect(r.Left, top, r.Right, top + FButtonHeight);
}

int TjexButtonBar::ButtonAt(int X, int Y) const {
    for (int i = 0; i < PageCount(); ++i) {
        TRect b = ButtonRect(i);
        if (X >= b.Left && X < b.Right && Y >= b.Top && Y < b.Bottom) return i;
    }
    return -1;
}

void TjexButtonBar::AlignControls() {
    TCustomPanel::AlignControls();
    if (IsLoading() || !FActivePage) return;
    TRect r = AdjustClientRect();
    int n = PageCount(), a = IndexOfPage(FActivePage);
    int top = r.Top + (a + 1) * FButtonHeight, bottom = r.Bottom - (n - 1 - a) * FButtonHeight;
    FActivePage->SetBounds(r.Left, top, r.Width(), std::max(0, bottom - top));
}

void TjexButtonBar::Loaded() {
    TCustomPanel::Loaded();
    for (TjexButtonPage* p : PageList())
        p->SetVisible(p == FActivePage);
    Realign();
}

void TjexButtonBar::ControlAdded(TControl* AControl) {
    TCustomPanel::ControlAdded(AControl);
    auto* page = dynamic_cast<TjexButtonPage*>(AControl);
    if (!page || IsLoading()) return;
    if (!FActivePage)
        SetActivePage(page);
    else {
        page->SetVisible(false);
        Realign();
    }
}

void TjexButtonBar::ControlRemoved(TControl* AControl) {
    TCustomPanel::ControlRemoved(AControl);
    if (auto* page = dynamic_cast<TjexButtonPage*>(AControl)) page->SetVisible(true);
    if (AControl == FActivePage && !IsDestroying()) {
        FActivePage = nullptr;
        std::vector<TjexButtonPage*> pages = PageList();
        SetActivePage(pages.empty() ? nullptr : pages.front());
    }
}

void TjexButtonBar::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    TCustomPanel::MouseDown(Button, Shift, X, Y);
    int i = ButtonAt(X, Y);
    if (Button == mbLeft && i >= 0) SetActivePage(Pages(i));
}

void TjexButtonBar::UserSelect(int Index) {
    if (Index < 0 || Index >= PageCount())
        throw EUserActionError(Name() + " has no button " + std::to_string(Index));
    SetActivePage(Pages(Index));
}

void TjexButtonBar::UserSelectText(const std::string& Text) {
    std::vector<TjexButtonPage*> pages = PageList();
    for (size_t i = 0; i < pages.size(); ++i)
        if (rtl::SameText(StripHotkey(pages[i]->Caption()), StripHotkey(Text)))
            return UserSelect(static_cast<int>(i));
    throw EUserActionError(Name() + " has no button '" + Text + "'");
}

void TjexButtonBar::Describe(TControlDesc& d) const {
    TCustomPanel::Describe(d);
    for (TjexButtonPage* p : PageList())
        d.Items.push_back(p->Caption());
    d.ItemIndex = IndexOfPage(FActivePage);
}

// ---- Button list --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexButtonListItem, rtl::TCollectionItem, "jexpages") {
    d.Property("Caption", &TjexButtonListItem::Caption, &TjexButtonListItem::SetCaption);
    d.Property("Enabled", &TjexButtonListItem::Enabled, &TjexButtonListItem::SetEnabled).Default(true);
    d.Property("Hint", &TjexButtonListItem::Hint, &TjexButtonListItem::SetHint);
    d.Property("ImageIndex", &TjexButtonListItem::ImageIndex, &TjexButtonListItem::SetImageIndex,
               TypeInfo_TImageIndex())
        .Default(-1);
    d.Property("Sound", &TjexButtonListItem::Sound, &TjexButtonListItem::SetSound).Default(-1);
}

void TjexButtonListItem::Assign(rtl::TPersistent* Source) {
    if (auto* i = dynamic_cast<TjexButtonListItem*>(Source)) {
        FCaption = i->FCaption;
        FEnabled = i->FEnabled;
        FHint = i->FHint;
        FImageIndex = i->FImageIndex;
        FSound = i->FSound;
        Changed(false);
        return;
    }
    rtl::TCollectionItem::Assign(Source);
}

void TjexButtonListItem::SetCaption(const std::string& Value) {
    FCaption = Value;
    Changed(false);
}

void TjexButtonListItem::SetEnabled(bool Value) {
    FEnabled = Value;
    Changed(false);
}

void TjexButtonListItem::SetImageIndex(TImageIndex Value) {
    FImageIndex = Value;
    Changed(false);
}

std::string TjexButtonListItem::GetDisplayName() const {
    return FCaption.empty() ? rtl::TCollectionItem::GetDisplayName() : FCaption;
}

JEX_IMPLEMENT_CLASS(TjexButtonListItems, rtl::TOwnedCollection, "jexpages") {}

TjexButtonListItems::TjexButtonListItems(TjexButtonList* Owner)
    : rtl::TOwnedCollection(Owner, TjexButtonListItem::StaticClass()) {}

void TjexButtonListItems::Update(rtl::TCollectionItem*) {
    OnChange(this);
}

JEX_IMPLEMENT_CLASS(TjexButtonList, TCustomControl, "jexpages") {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("Background", &TjexButtonList::Background, &TjexButtonList::SetBackground);
    pub::Color(d, clBtnShadow);
    d.Property("DragLineColor", &TjexButtonList::DragLineColor, &TjexButtonList::SetDragLineColor,
               TypeInfo_TColor())
        .Default(clBlack);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("FrameBottomColor", &TjexButtonList::FrameBottomColor, &TjexButtonList::SetFrameBottomColor,
               TypeInfo_TColor())
        .Default(clBtnShadow);
    d.Property("FrameTopColor", &TjexButtonList::FrameTopColor, &TjexButtonList::SetFrameTopColor,
               TypeInfo_TColor())
        .Default(clBtnHighlight);
    d.Property("HighlightActive", &TjexButtonList::HighlightActive, &TjexButtonList::SetHighlightActive)
        .Default(true);
    d.Property("HighlightSelected", &TjexButtonList::HighlightSelected, &TjexButtonList::SetHighlightSelected)
        .Default(true);
    d.Property("Items", &TjexButtonList::Items, &TjexButtonList::SetItems);
    d.Property("LargeImages", &TjexButtonList::LargeImages, &TjexButtonList::SetLargeImages);
    d.Property("Options", &TjexButtonList::Options, &TjexButtonList::SetOptions)
        .Default(TjexButtonListOptions{jloShowHints}.Bits());
    pub::ParentColor(d, false);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("SelectedIndex", &TjexButtonList::SelectedIndex, &TjexButtonList::SetSelectedIndex)
        .Default(-1);
    pub::ShowHint(d);
    d.Property("SmallImages", &TjexButtonList::SmallImages, &TjexButtonList::SetSmallImages);
    d.Property("SoundList", &TjexButtonList::SoundList, &TjexButtonList::SetSoundList);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    d.Property("ViewStyle", &TjexButtonList::ViewStyle, &TjexButtonList::SetViewStyle).Default(jvsLargeIcons);
    pub::Visible(d);
    pub::OnClick(d);
    d.Event("OnItemClick", &TjexButtonList::OnItemClick);
    pub::OnMouse(d);
}

TjexButtonList::TjexButtonList(rtl::TComponent* AOwner)
    : TCustomControl(AOwner), FItems(std::make_unique<TjexButtonListItems>(this)),
      FBackground(std::make_unique<TPicture>()) {
    FItems->PropName = "Items";
    FColor = clBtnShadow;
    FWidth = 100;
    FHeight = 200;
    SetAlign(alClient);
}

TjexButtonList::~TjexButtonList() = default;

void TjexButtonList::SetLargeImages(TCustomImageList* Value) {
    pubx::SetReference(this, FLargeImages, Value);
}

void TjexButtonList::SetSmallImages(TCustomImageList* Value) {
    pubx::SetReference(this, FSmallImages, Value);
}

void TjexButtonList::SetSoundList(TjexCustomSoundList* Value) {
    pubx::SetReference(this, FSoundList, Value);
}

void TjexButtonList::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TCustomControl::Notification(AComponent, Operation);
    if (Operation != rtl::opRemove) return;
    if (AComponent == FLargeImages) FLargeImages = nullptr;
    if (AComponent == FSmallImages) FSmallImages = nullptr;
    if (AComponent == FSoundList) FSoundList = nullptr;
}

void TjexButtonList::SetSelectedIndex(int Value) {
    FSelectedIndex = IsLoading() ? Value : (Value >= 0 && Value < FItems->Count() ? Value : -1);
}

int TjexButtonList::ItemHeight() const {
    int text = TextHeightOf(Font());
    if (FViewStyle == jvsLargeIcons) return (FLargeImages ? FLargeImages->Height() : 32) + text + 12;
    return std::max(FSmallImages ? FSmallImages->Height() : 16, text) + 6;
}

TRect TjexButtonList::ItemRect(int Index) const {
    if (Index < 0 || Index >= FItems->Count()) return {};
    int h = ItemHeight();
    return Rect(0, Index * h, ClientWidth(), (Index + 1) * h);
}

int TjexButtonList::ItemAtPos(int X, int Y) const {
    if (X < 0 || X >= ClientWidth() || Y < 0) return -1;
    int i = Y / ItemHeight();
    return i < FItems->Count() ? i : -1;
}

void TjexButtonList::ClickItem(int Index) {
    if (Index < 0 || Index >= FItems->Count())
        throw EUserActionError(Name() + " has no item " + std::to_string(Index));
    TjexButtonListItem* item = FItems->Items(Index);
    if (!item->Enabled() || !Enabled()) return;
    SetSelectedIndex(Index);
    if (FSoundList && item->Sound() >= 0) FSoundList->PlaySound(item->Sound());
    OnItemClick(this, Index);
    Click();
}

void TjexButtonList::MoveItem(int From, int To) {
    int n = FItems->Count();
    if (From < 0 || From >= n) throw rtl::EListError(rtl::Format(rtl::SListIndexError, {From}));
    To = std::clamp(To, 0, n - 1);
    bool selected = From == FSelectedIndex;
    FItems->Items(From)->SetIndex(To);
    if (selected)
        FSelectedIndex = To;
    else if (FSelectedIndex >= 0) {
        // The selection stays on its item, which may have moved one place.
        if (From < FSelectedIndex && To >= FSelectedIndex)
            --FSelectedIndex;
        else if (From > FSelectedIndex && To <= FSelectedIndex)
            ++FSelectedIndex;
    }
}

void TjexButtonList::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    TCustomControl::MouseDown(Button, Shift, X, Y);
    FDragFrom = Button == mbLeft ? ItemAtPos(X, Y) : -1;
    FDragMoved = false;
}

void TjexButtonList::MouseMove(TShiftState Shift, int X, int Y) {
    TCustomControl::MouseMove(Shift, X, Y);
    if (FDragFrom >= 0 && FOptions.Contains(jloAllowReorder) && ItemAtPos(X, Y) != FDragFrom)
        FDragMoved = true;
}

void TjexButtonList::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    int from = FDragFrom;
    bool moved = FDragMoved;
    FDragFrom = -1;
    FDragMoved = false;
    if (from >= 0) {
        if (moved) {
            int to = Y < 0 ? 0 : std::min(Y / ItemHeight(), FItems->Count() - 1);
            MoveItem(from, to);
        } else if (ItemAtPos(X, Y) == from) {
            ClickItem(from);
        }
    }
    TCustomControl::MouseUp(Button, Shift, X, Y);
}

void TjexButtonList::UserSelectText(const std::string& Text) {
    for (int i = 0; i < FItems->Count(); ++i)
        if (rtl::SameText(FItems->Items(i)->Caption(), Text)) return ClickItem(i);
    throw EUserActionError(Name() + " has no item '" + Text + "'");
}

void TjexButtonList::Describe(TControlDesc& d) const {
    TCustomControl::Describe(d);
    for (int i = 0; i < FItems->Count(); ++i)
        d.Items.push_back(FItems->Items(i)->Caption());
    d.ItemIndex = FSelectedIndex;
}

static const TjexLibraryUnit<TjexFormTabControl, TjexAnimationFrame, TjexButtonBar, TjexButtonList, TjexPage,
                             TjexButtonPage>
    jexpagesUnit("jexpages");

} // namespace jex
