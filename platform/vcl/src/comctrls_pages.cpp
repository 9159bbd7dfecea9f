// Tab controls, page controls and their tab sheets.
#include <algorithm>

#include "publish.h"
#include "vcl/comctrls.h"
#include "vcl/forms.h"

namespace vcl {

using rtl::EListError;

JEX_DEFINE_ENUM(TTabPosition)
JEX_DEFINE_ENUM(TTabStyle)
JEX_DEFINE_EVENT_TYPE(TTabChangingEvent, "Sender: TObject; var AllowChange: Boolean")

namespace {
// Captions compare as a person reads them: ignoring case and the accelerator '&'.
std::string WithoutAccel(const std::string& s) {
    std::string r;
    for (size_t i = 0; i < s.size(); ++i) {
        if (s[i] == '&' && i + 1 < s.size()) {
            ++i;
            if (s[i] != '&') {
                r += s[i];
                continue;
            }
        }
        r += s[i];
    }
    return r;
}

bool SameCaption(const std::string& caption, const std::string& text) {
    return rtl::SameText(caption, text) || rtl::SameText(WithoutAccel(caption), text);
}

template <class C> void TabControlProps(rtl::TClassDecl<C>& d) {
    d.Property("HotTrack", &C::HotTrack, &C::SetHotTrack).Default(false);
    d.Property("Images", &C::Images, &C::SetImages);
    d.Property("MultiLine", &C::MultiLine, &C::SetMultiLine).Default(false);
}
template <class C> void TabStripProps(rtl::TClassDecl<C>& d) {
    d.Property("RaggedRight", &C::RaggedRight, &C::SetRaggedRight).Default(false);
    d.Property("ScrollOpposite", &C::ScrollOpposite, &C::SetScrollOpposite).Default(false);
    pub::ShowHint(d);
    d.Property("Style", &C::Style, &C::SetStyle).Default(tsTabs);
    d.Property("TabHeight", &C::TabHeight, &C::SetTabHeight).Default(0);
    pub::TabOrder(d);
    d.Property("TabPosition", &C::TabPosition, &C::SetTabPosition).Default(tpTop);
}
} // namespace

// ---- TCustomTabControl --------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomTabControl, TWinControl, "ComCtrls") {}

TCustomTabControl::TCustomTabControl(TComponent* AOwner) : TWinControl(AOwner) {
    FControlStyle = TControlStyle{csAcceptsControls, csDoubleClicks};
    FWidth = 289;
    FHeight = 193;
    FTabStop = true;
    FColor = clBtnFace;
}

void TCustomTabControl::SetImages(TCustomImageList* v) {
    if (v == FImages) return;
    if (FImages) FImages->RemoveFreeNotification(this);
    FImages = v;
    if (v) v->FreeNotification(this);
}

void TCustomTabControl::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TWinControl::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FImages) FImages = nullptr;
}

void TCustomTabControl::SetTabPosition(TTabPosition v) {
    if (v == FTabPosition) return;
    FTabPosition = v;
    AlignControls();
}

void TCustomTabControl::SetTabHeight(int v) {
    v = std::max(0, v);
    if (v == FTabHeight) return;
    FTabHeight = v;
    AlignControls();
}

void TCustomTabControl::SetTabWidth(int v) {
    v = std::max(0, v);
    if (v == FTabWidth) return;
    FTabWidth = v;
    AlignControls();
}

bool TCustomTabControl::CanChange() {
    bool allow = true;
    OnChanging(this, allow);
    return allow;
}

int TCustomTabControl::TabStripSize() const {
    if (FTabHeight > 0) return FTabHeight + 2;
    return TextHeightOf(FFont.get()) + 8;
}

TRect TCustomTabControl::AdjustClientRect() const {
    TRect r = TWinControl::AdjustClientRect();
    int strip = TabStripSize();
    // The tab strip takes one side; a 2-pixel frame surrounds the page area, as the platform draws it.
    switch (FTabPosition) {
    case tpTop:
        r.Top += strip;
        break;
    case tpBottom:
        r.Bottom -= strip;
        break;
    case tpLeft:
        r.Left += strip;
        break;
    case tpRight:
        r.Right -= strip;
        break;
    }
    r = Rect(r.Left + 4, r.Top + 4, r.Right - 4, r.Bottom - 4);
    if (r.Right < r.Left) r.Right = r.Left;
    if (r.Bottom < r.Top) r.Bottom = r.Top;
    return r;
}

// ---- TTabControl --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TTabControl, TCustomTabControl, "ComCtrls") {
    pub::Align(d);
    pub::Anchors(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    TabControlProps(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    TabStripProps(d);
    // Tabs before TabIndex, so that reading finds the tab the index names.
    d.Property("Tabs", &TTabControl::Tabs, &TTabControl::SetTabs);
    d.Property("TabIndex", &TTabControl::TabIndex, &TTabControl::SetTabIndex).Default(-1);
    pub::TabStop(d, true);
    d.Property("TabWidth", &TTabControl::TabWidth, &TTabControl::SetTabWidth).Default(0);
    pub::Visible(d);
    d.Event("OnChange", &TTabControl::OnChange);
    d.Event("OnChanging", &TTabControl::OnChanging);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
    pub::OnResize(d);
}

TTabControl::TTabControl(TComponent* AOwner) : TCustomTabControl(AOwner), FTabs(new TStringList) {
    FTabs->OnChange = [this](rtl::TObject*) { TabsChanged(); };
}

TTabControl::~TTabControl() {
    FTabs->OnChange = nullptr;
    delete FTabs;
}

void TTabControl::TabsChanged() {
    int count = FTabs->Count();
    if (!IsLoading()) {
        // The platform's tab strip selects the first tab added to an empty strip and forgets a selection
        // that no longer exists.
        if (FLastCount == 0 && count > 0 && FTabIndex < 0) FTabIndex = 0;
        if (FTabIndex >= count) FTabIndex = -1;
    }
    FLastCount = count;
}

void TTabControl::SetTabIndex(int v) {
    if (IsLoading()) {
        FTabIndex = v;
        return;
    }
    if (v < -1 || v >= FTabs->Count()) return;
    FTabIndex = v;
}

void TTabControl::Loaded() {
    TCustomTabControl::Loaded();
    FLastCount = FTabs->Count();
    if (FTabIndex < -1 || FTabIndex >= FLastCount) FTabIndex = -1;
}

void TTabControl::UserSelect(int Index) {
    if (Index < 0 || Index >= FTabs->Count())
        throw EUserActionError("'" + Name() + "' has no tab " + std::to_string(Index));
    if (Index == FTabIndex) return;
    if (!CanChange()) return;
    FTabIndex = Index;
    Change();
}

void TTabControl::UserSelectText(const std::string& Text) {
    for (int i = 0; i < FTabs->Count(); ++i)
        if (SameCaption(FTabs->Get(i), Text)) return UserSelect(i);
    throw EUserActionError("'" + Name() + "' has no tab '" + Text + "'");
}

void TTabControl::Describe(TControlDesc& d) const {
    TCustomTabControl::Describe(d);
    d.Items = FTabs->ToVector();
    d.ItemIndex = FTabIndex;
}

// ---- TTabSheet ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TTabSheet, TWinControl, "ComCtrls") {
    d.Property("BorderWidth", &TTabSheet::BorderWidth, &TTabSheet::SetBorderWidth).Default(0);
    pub::Caption(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("Highlighted", &TTabSheet::Highlighted, &TTabSheet::SetHighlighted).Default(false);
    d.Property("ImageIndex", &TTabSheet::ImageIndex, &TTabSheet::SetImageIndex, TypeInfo_TImageIndex())
        .Default(0);
    d.Property("PageIndex", &TTabSheet::PageIndex, &TTabSheet::SetPageIndex).Stored(false);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("TabVisible", &TTabSheet::TabVisible, &TTabSheet::SetTabVisible).Default(true);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    d.Event("OnHide", &TTabSheet::OnHide);
    pub::OnMouse(d);
    pub::OnResize(d);
    d.Event("OnShow", &TTabSheet::OnShow);
}

TTabSheet::TTabSheet(TComponent* AOwner) : TWinControl(AOwner) {
    FControlStyle =
        TControlStyle{csAcceptsControls, csCaptureMouse, csClickEvents, csSetCaption, csDoubleClicks};
    FVisible = false;
    FColor = clBtnFace;
    FParentColor = true;
}

TTabSheet::~TTabSheet() {
    // Leave the page control while this is still a whole tab sheet, so that it forgets the page.
    if (FParent) SetParent(nullptr);
}

void TTabSheet::SetPageControl(TPageControl* v) {
    SetParent(v);
}

void TTabSheet::SetParent(TWinControl* AParent) {
    if (AParent == FParent) return;
    if (AParent && !dynamic_cast<TPageControl*>(AParent))
        throw rtl::EInvalidOperation("A tab sheet's parent must be a page control");
    TWinControl::SetParent(AParent);
}

int TTabSheet::PageIndex() const {
    if (!FPageControl) return -1;
    auto& p = FPageControl->FPages;
    return static_cast<int>(std::find(p.begin(), p.end(), this) - p.begin());
}

void TTabSheet::SetPageIndex(int v) {
    if (!FPageControl) return;
    auto& p = FPageControl->FPages;
    int cur = PageIndex();
    v = std::clamp(v, 0, static_cast<int>(p.size()) - 1);
    if (v == cur) return;
    p.erase(p.begin() + cur);
    p.insert(p.begin() + v, this);
}

int TTabSheet::TabIndex() const {
    if (!FPageControl || !FTabVisible) return -1;
    int i = 0;
    for (TTabSheet* s : FPageControl->FPages) {
        if (s == this) return i;
        if (s->FTabVisible) ++i;
    }
    return -1;
}

void TTabSheet::SetTabVisible(bool v) {
    FTabVisible = v;
}

// ---- TPageControl -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TPageControl, TCustomTabControl, "ComCtrls") {
    d.Property("ActivePage", &TPageControl::ActivePage, &TPageControl::SetActivePage);
    pub::Align(d);
    pub::Anchors(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    TabControlProps(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    TabStripProps(d);
    pub::TabStop(d, true);
    d.Property("TabWidth", &TPageControl::TabWidth, &TPageControl::SetTabWidth).Default(0);
    pub::Visible(d);
    d.Event("OnChange", &TPageControl::OnChange);
    d.Event("OnChanging", &TPageControl::OnChanging);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
    pub::OnResize(d);
}

TPageControl::TPageControl(TComponent* AOwner) : TCustomTabControl(AOwner) {}

TPageControl::~TPageControl() {
    // The sheets are children and go with the control tree; they must not call back into a page control
    // that is half destroyed.
    for (TTabSheet* s : FPages)
        s->FPageControl = nullptr;
    FPages.clear();
    FActivePage = nullptr;
}

TTabSheet* TPageControl::Pages(int Index) const {
    if (Index < 0 || Index >= PageCount()) throw EListError(rtl::Format(rtl::SListIndexError, {Index}));
    return FPages[Index];
}

void TPageControl::ControlAdded(TControl* AControl) {
    auto* sheet = dynamic_cast<TTabSheet*>(AControl);
    if (!sheet) return;
    FPages.push_back(sheet);
    sheet->FPageControl = this;
    sheet->FVisible = false;
    TRect r = AdjustClientRect();
    sheet->SetBounds(r.Left, r.Top, r.Width(), r.Height());
    if (!FActivePage) ChangeActivePage(sheet);
}

void TPageControl::ControlRemoved(TControl* AControl) {
    auto it = std::find(FPages.begin(), FPages.end(), AControl);
    if (it == FPages.end()) return;
    TTabSheet* sheet = *it;
    // As on the platform, the page after the active one being removed becomes active (at run time only
    // one whose tab shows).
    TTabSheet* next = nullptr;
    if (sheet == FActivePage) {
        next = FindNextPage(sheet, true, !IsDesigning());
        if (next == sheet) next = nullptr;
    }
    FPages.erase(it);
    sheet->FPageControl = nullptr;
    if (sheet == FActivePage) {
        FActivePage = nullptr;
        sheet->FVisible = false;
        if (!IsDestroying()) ChangeActivePage(next);
    }
}

void TPageControl::ChangeActivePage(TTabSheet* Page) {
    if (Page == FActivePage) return;
    TTabSheet* old = FActivePage;
    if (old) {
        if (TCustomForm* form = GetParentForm(this)) form->ControlRemoving(old);
    }
    FActivePage = Page;
    if (old) {
        old->SetVisible(false);
        if (!IsLoading() && !IsDestroying()) old->OnHide(old);
    }
    if (Page) {
        TRect r = AdjustClientRect();
        Page->SetBounds(r.Left, r.Top, r.Width(), r.Height());
        Page->SetVisible(true);
        Page->BringToFront();
        if (!IsLoading()) Page->OnShow(Page);
    }
}

void TPageControl::SetActivePage(TTabSheet* v) {
    if (v && v->FPageControl != this)
        throw rtl::EInvalidOperation("Tab sheet '" + v->Name() + "' is not a page of '" + Name() + "'");
    ChangeActivePage(v);
}

int TPageControl::ActivePageIndex() const {
    return FActivePage ? FActivePage->PageIndex() : -1;
}

void TPageControl::SetActivePageIndex(int v) {
    if (v == -1) return SetActivePage(nullptr);
    if (v >= 0 && v < PageCount()) SetActivePage(FPages[v]);
}

TTabSheet* TPageControl::FindNextPage(TTabSheet* CurPage, bool GoForward, bool CheckTabVisible) const {
    int n = PageCount();
    if (n == 0) return nullptr;
    auto it = std::find(FPages.begin(), FPages.end(), CurPage);
    int start = it == FPages.end() ? (GoForward ? n - 1 : 0) : static_cast<int>(it - FPages.begin());
    int i = start;
    for (int step = 0; step < n; ++step) {
        i = GoForward ? (i + 1) % n : (i + n - 1) % n;
        if (!CheckTabVisible || FPages[i]->FTabVisible) return FPages[i];
    }
    return nullptr;
}

bool TPageControl::UserChangeTo(TTabSheet* Page) {
    if (Page == FActivePage) return false;
    if (!CanChange()) return false;
    ChangeActivePage(Page);
    Change();
    return true;
}

void TPageControl::SelectNextPage(bool GoForward) {
    TTabSheet* next = FindNextPage(FActivePage, GoForward, true);
    if (next) UserChangeTo(next);
}

std::vector<std::string> TPageControl::TabCaptions() const {
    std::vector<std::string> r;
    for (TTabSheet* s : FPages)
        if (s->FTabVisible) r.push_back(s->Caption());
    return r;
}

int TPageControl::TabIndex() const {
    return FActivePage ? FActivePage->TabIndex() : -1;
}

TTabSheet* TPageControl::PageForTab(int TabIndex) const {
    int i = 0;
    for (TTabSheet* s : FPages)
        if (s->FTabVisible && i++ == TabIndex) return s;
    return nullptr;
}

void TPageControl::GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) {
    // The pages in page order (which is the tab order a person sees), then any other children.
    for (TTabSheet* s : FPages)
        if (s->Owner() == Root) Proc(s);
    for (TControl* c : FControls)
        if (!dynamic_cast<TTabSheet*>(c) && c->Owner() == Root) Proc(c);
}

void TPageControl::SetChildOrder(TComponent* Child, int Order) {
    if (auto* s = dynamic_cast<TTabSheet*>(Child); s && s->FPageControl == this)
        s->SetPageIndex(Order);
    else
        TCustomTabControl::SetChildOrder(Child, Order);
}

void TPageControl::AlignControls() {
    if (FAlignLevel > 0 || FAligning) return;
    TRect r = AdjustClientRect();
    FAligning = true;
    try {
        for (TTabSheet* s : FPages)
            s->SetBounds(r.Left, r.Top, r.Width(), r.Height());
    } catch (...) {
        FAligning = false;
        throw;
    }
    FAligning = false;
}

void TPageControl::UserSelect(int Index) {
    TTabSheet* page = PageForTab(Index);
    if (!page) throw EUserActionError("'" + Name() + "' has no tab " + std::to_string(Index));
    if (!page->Enabled())
        throw EUserActionError("Page '" + page->Caption() + "' of '" + Name() + "' is disabled");
    UserChangeTo(page);
}

void TPageControl::UserSelectText(const std::string& Text) {
    std::vector<std::string> tabs = TabCaptions();
    for (size_t i = 0; i < tabs.size(); ++i)
        if (SameCaption(tabs[i], Text)) return UserSelect(static_cast<int>(i));
    throw EUserActionError("'" + Name() + "' has no tab '" + Text + "'");
}

void TPageControl::KeyDown(uint16_t& Key, TShiftState Shift) {
    TCustomTabControl::KeyDown(Key, Shift);
    if (Key == VK_TAB && Shift.Contains(ssCtrl)) {
        SelectNextPage(!Shift.Contains(ssShift));
        Key = 0;
    } else if (Key == VK_RIGHT || Key == VK_LEFT) {
        SelectNextPage(Key == VK_RIGHT);
        Key = 0;
    }
}

void TPageControl::Describe(TControlDesc& d) const {
    TCustomTabControl::Describe(d);
    d.Items = TabCaptions();
    d.ItemIndex = TabIndex();
}

} // namespace vcl
