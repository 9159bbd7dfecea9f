// Panels, bevels, images, radio groups and notebooks.
#include "vcl/extctrls.h"

#include <algorithm>

#include "publish.h"
#include "vcl/forms.h"

namespace vcl {

using rtl::EListError;

JEX_DEFINE_ENUM(TBevelCut)
JEX_DEFINE_ENUM(TBevelShape)
JEX_DEFINE_ENUM(TBevelStyle)

// ---- TCustomPanel -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomPanel, TCustomControl, "ExtCtrls") {}
JEX_IMPLEMENT_CLASS(TPanel, TCustomPanel, "ExtCtrls") {
    pub::Align(d);
    d.Property("Alignment", &TPanel::Alignment, &TPanel::SetAlignment).Default(taCenter);
    pub::Anchors(d);
    d.Property("BevelInner", &TPanel::BevelInner, &TPanel::SetBevelInner).Default(bvNone);
    d.Property("BevelOuter", &TPanel::BevelOuter, &TPanel::SetBevelOuter).Default(bvRaised);
    d.Property("BevelWidth", &TPanel::BevelWidth, &TPanel::SetBevelWidth).Default(1);
    d.Property("BorderWidth", &TPanel::BorderWidth, &TPanel::SetBorderWidth).Default(0);
    d.Property("BorderStyle", &TPanel::BorderStyle, &TPanel::SetBorderStyle, TypeInfo_TBorderStyle())
        .Default(bsNone);
    pub::Caption(d);
    pub::Color(d, clBtnFace);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("FullRepaint", &TPanel::FullRepaint, &TPanel::SetFullRepaint).Default(true);
    pub::Font(d);
    d.Property("Locked", &TPanel::Locked, &TPanel::SetLocked).Default(false);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
    pub::OnResize(d);
}

TCustomPanel::TCustomPanel(TComponent* AOwner) : TCustomControl(AOwner) {
    FControlStyle = TControlStyle{csAcceptsControls, csCaptureMouse, csClickEvents, csSetCaption,
                                  csOpaque,          csDoubleClicks, csReplicatable};
    FWidth = 185;
    FHeight = 41;
    FColor = clBtnFace;
}

void TCustomPanel::SetBevelInner(TBevelCut v) {
    if (v == FBevelInner) return;
    FBevelInner = v;
    AlignControls();
}

void TCustomPanel::SetBevelOuter(TBevelCut v) {
    if (v == FBevelOuter) return;
    FBevelOuter = v;
    AlignControls();
}

void TCustomPanel::SetBevelWidth(int v) {
    if (v < 1) v = 1;
    if (v == FBevelWidth) return;
    FBevelWidth = v;
    AlignControls();
}

void TCustomPanel::SetBorderStyle(TBorderStyle v) {
    if (v == FBorderStyle) return;
    FBorderStyle = v;
    AlignControls();
}

TRect TCustomPanel::AdjustClientRect() const {
    TRect r = TCustomControl::AdjustClientRect();
    int bevel = 0;
    if (FBevelOuter != bvNone) bevel += FBevelWidth;
    if (FBevelInner != bvNone) bevel += FBevelWidth;
    if (FBorderStyle == bsSingle) bevel += 1;
    return Rect(r.Left + bevel, r.Top + bevel, r.Right - bevel, r.Bottom - bevel);
}

// ---- TBevel -------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TBevel, TGraphicControl, "ExtCtrls") {
    pub::Align(d);
    pub::Anchors(d);
    pub::ParentShowHint(d);
    d.Property("Shape", &TBevel::Shape, &TBevel::SetShape).Default(bsBox);
    pub::ShowHint(d);
    d.Property("Style", &TBevel::Style, &TBevel::SetStyle).Default(bsLowered);
    pub::Visible(d);
}

TBevel::TBevel(TComponent* AOwner) : TGraphicControl(AOwner) {
    FControlStyle.Include(csReplicatable);
    FWidth = 50;
    FHeight = 50;
}

// ---- TImage -------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TImage, TGraphicControl, "ExtCtrls") {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("AutoSize", &TImage::AutoSize, &TImage::SetAutoSize).Default(false);
    d.Property("Center", &TImage::Center, &TImage::SetCenter).Default(false);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::ParentShowHint(d);
    d.Property("Picture", &TImage::Picture, &TImage::SetPicture);
    pub::PopupMenu(d);
    d.Property("Proportional", &TImage::Proportional, &TImage::SetProportional).Default(false);
    pub::ShowHint(d);
    d.Property("Stretch", &TImage::Stretch, &TImage::SetStretch).Default(false);
    d.Property("Transparent", &TImage::Transparent, &TImage::SetTransparent).Default(false);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnMouse(d);
}

TImage::TImage(TComponent* AOwner) : TGraphicControl(AOwner), FPicture(new TPicture) {
    FControlStyle.Include(csReplicatable);
    FWidth = 105;
    FHeight = 105;
    FPicture->OnChange = [this](rtl::TObject*) { PictureChanged(); };
}

TImage::~TImage() {
    delete FPicture;
}

TCanvas* TImage::Canvas() {
    TBitmap* bmp = FPicture->Bitmap();
    if (bmp->Empty()) bmp->SetSize(FWidth, FHeight);
    return bmp->Canvas();
}

void TImage::SetAutoSize(bool v) {
    if (v == FAutoSize) return;
    FAutoSize = v;
    PictureChanged();
}

void TImage::SetTransparent(bool v) {
    if (v == FTransparent) return;
    FTransparent = v;
    PictureChanged();
}

void TImage::PictureChanged() {
    TGraphic* g = FPicture->Graphic();
    if (g && !g->Empty()) {
        if (g->Transparent() != FTransparent) g->SetTransparent(FTransparent);
        if (FAutoSize && !IsLoading()) SetBounds(FLeft, FTop, g->Width(), g->Height());
    }
}

TRect TImage::DestRect() const {
    int w = FPicture->Width(), h = FPicture->Height();
    int cw = FWidth, ch = FHeight;
    if (FStretch || (FProportional && (w > cw || h > ch))) {
        if (FProportional && w > 0 && h > 0) {
            // The largest size with the picture's proportions that fits.
            if (static_cast<long long>(cw) * h > static_cast<long long>(ch) * w) {
                int nw = static_cast<int>(static_cast<long long>(ch) * w / h);
                w = nw;
                h = ch;
            } else {
                int nh = static_cast<int>(static_cast<long long>(cw) * h / w);
                h = nh;
                w = cw;
            }
        } else {
            w = cw;
            h = ch;
        }
    }
    TRect r = Rect(0, 0, w, h);
    if (FCenter) {
        int dx = (cw - w) / 2, dy = (ch - h) / 2;
        r = Rect(dx, dy, dx + w, dy + h);
    }
    return r;
}

void TImage::Describe(TControlDesc& d) const {
    TGraphicControl::Describe(d);
    d.PictureWidth = FPicture->Width();
    d.PictureHeight = FPicture->Height();
}

// ---- Radio groups -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TGroupButton, TRadioButton, "ExtCtrls") {}

TGroupButton::TGroupButton(TComponent* AOwner) : TRadioButton(AOwner) {
    FVisible = false;
    FParentShowHint = false;
}

JEX_IMPLEMENT_CLASS(TCustomRadioGroup, TCustomGroupBox, "ExtCtrls") {}
JEX_IMPLEMENT_CLASS(TRadioGroup, TCustomRadioGroup, "ExtCtrls") {
    pub::Align(d);
    pub::Anchors(d);
    pub::Caption(d);
    pub::Color(d, clBtnFace);
    d.Property("Columns", &TRadioGroup::Columns, &TRadioGroup::SetColumns).Default(1);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("ItemIndex", &TRadioGroup::ItemIndex, &TRadioGroup::SetItemIndex).Default(-1);
    d.Property("Items", &TRadioGroup::Items, &TRadioGroup::SetItems);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
}

TCustomRadioGroup::TCustomRadioGroup(TComponent* AOwner) : TCustomGroupBox(AOwner), FItems(new TStringList) {
    FControlStyle = TControlStyle{csSetCaption, csDoubleClicks};
    FItems->OnChange = [this](rtl::TObject*) {
        if (!IsLoading()) {
            if (FItemIndex >= FItems->Count()) FItemIndex = FItems->Count() - 1;
            UpdateButtons();
        }
    };
}

TCustomRadioGroup::~TCustomRadioGroup() {
    // The buttons are children; the control tree frees them. Forget them first so that no handler of ours
    // runs on a half-destroyed group.
    for (TGroupButton* b : FButtons)
        b->OnClick = nullptr;
    FButtons.clear();
    delete FItems;
}

TGroupButton* TCustomRadioGroup::Buttons(int Index) const {
    if (Index < 0 || Index >= ButtonCount()) throw EListError(rtl::Format(rtl::SListIndexError, {Index}));
    return FButtons[Index];
}

void TCustomRadioGroup::SetItemIndex(int v) {
    if (IsLoading()) {
        FItemIndex = v;
        return;
    }
    v = std::clamp(v, -1, static_cast<int>(FButtons.size()) - 1);
    if (v == FItemIndex) return;
    if (FItemIndex >= 0) FButtons[FItemIndex]->SetChecked(false);
    FItemIndex = v;
    if (v >= 0) FButtons[v]->SetChecked(true);
}

void TCustomRadioGroup::SetColumns(int v) {
    v = std::clamp(v, 1, 16);
    if (v == FColumns) return;
    FColumns = v;
    ArrangeButtons();
}

void TCustomRadioGroup::ButtonClick(rtl::TObject* Sender) {
    if (FUpdating) return;
    auto it = std::find(FButtons.begin(), FButtons.end(), Sender);
    if (it == FButtons.end()) return;
    FItemIndex = static_cast<int>(it - FButtons.begin());
    Click();
}

void TCustomRadioGroup::UpdateButtons() {
    int count = FItems->Count();
    while (static_cast<int>(FButtons.size()) < count) {
        auto* b = new TGroupButton(this);
        b->OnClick = rtl::TNotifyEvent(this, &TCustomRadioGroup::ButtonClick);
        b->SetEnabled(FEnabled);
        b->SetParent(this);
        FButtons.push_back(b);
    }
    while (static_cast<int>(FButtons.size()) > count) {
        TGroupButton* b = FButtons.back();
        FButtons.pop_back();
        b->Free();
    }
    FUpdating = true;
    for (int i = 0; i < count; ++i) {
        FButtons[i]->SetCaption(FItems->Get(i));
        FButtons[i]->SetChecked(i == FItemIndex);
    }
    FUpdating = false;
    ArrangeButtons();
}

void TCustomRadioGroup::ArrangeButtons() {
    if (FButtons.empty()) return;
    // The platform's layout: columns of equal width, the caption line on top, rows sharing the height.
    int count = static_cast<int>(FButtons.size());
    int perCol = (count + FColumns - 1) / FColumns;
    int buttonWidth = (FWidth - 10) / FColumns;
    int fontHeight = TextHeightOf(FFont.get());
    int avail = FHeight - fontHeight - 5;
    int buttonHeight = avail / perCol;
    int topMargin = fontHeight + 1 + (avail % perCol) / 2;
    for (int i = 0; i < count; ++i) {
        TGroupButton* b = FButtons[i];
        b->SetBounds((i / perCol) * buttonWidth + 8, (i % perCol) * buttonHeight + topMargin, buttonWidth,
                     buttonHeight);
        b->SetVisible(true);
    }
}

void TCustomRadioGroup::SetBounds(int ALeft, int ATop, int AWidth, int AHeight) {
    bool sized = AWidth != FWidth || AHeight != FHeight;
    TCustomGroupBox::SetBounds(ALeft, ATop, AWidth, AHeight);
    if (sized) ArrangeButtons();
}

void TCustomRadioGroup::FontChanged() {
    TCustomGroupBox::FontChanged();
    ArrangeButtons();
}

void TCustomRadioGroup::EnabledChanged() {
    for (TGroupButton* b : FButtons)
        b->SetEnabled(FEnabled);
}

void TCustomRadioGroup::Loaded() {
    TCustomGroupBox::Loaded();
    int index = FItemIndex;
    FItemIndex = -1;
    UpdateButtons();
    FUpdating = true;
    SetItemIndex(index);
    FUpdating = false;
}

void TCustomRadioGroup::UserSelect(int Index) {
    if (Index < 0 || Index >= ButtonCount())
        throw EUserActionError("'" + Name() + "' has no item " + std::to_string(Index));
    TGroupButton* b = FButtons[Index];
    if (!b->CanBeActedOn())
        throw EUserActionError("Item " + std::to_string(Index) + " of '" + Name() + "' is disabled");
    b->UserClick();
}

void TCustomRadioGroup::UserSelectText(const std::string& Text) {
    int i = FItems->IndexOf(Text);
    if (i < 0) throw EUserActionError("'" + Name() + "' has no item '" + Text + "'");
    UserSelect(i);
}

void TCustomRadioGroup::Describe(TControlDesc& d) const {
    TCustomGroupBox::Describe(d);
    d.Items = FItems->ToVector();
    d.ItemIndex = FItemIndex;
}

// ---- Notebooks ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TPage, TCustomControl, "ExtCtrls") {
    pub::Caption(d);
}

TPage::TPage(TComponent* AOwner) : TCustomControl(AOwner) {
    FControlStyle =
        TControlStyle{csAcceptsControls, csCaptureMouse, csClickEvents, csSetCaption, csDoubleClicks};
    FVisible = false;
    FAlign = alClient;
}

// The notebook's Pages: a string list whose lines are the pages.
class TPageAccess : public TStrings {
    JEX_CLASS(TPageAccess, TStrings)
    explicit TPageAccess(TNotebook* nb) : FNotebook(nb) {}
    std::string Get(int index) const override { return FNotebook->Page(index)->Caption(); }
    int GetCount() const override { return FNotebook->PageCount(); }
    rtl::TObject* GetObject(int index) const override { return FNotebook->Page(index); }
    void Put(int index, const std::string& s) override { FNotebook->Page(index)->SetCaption(s); }
    void Insert(int index, const std::string& s) override {
        if (index < 0 || index > GetCount()) throw EListError(rtl::Format(rtl::SListIndexError, {index}));
        auto* page = new TPage(FNotebook);
        page->SetCaption(s);
        FNotebook->FInserting = index;
        page->SetParent(FNotebook);
        FNotebook->FInserting = -1;
        FNotebook->SetPageIndex(index);
    }
    void Delete(int index) override {
        TPage* page = FNotebook->Page(index);
        page->Free();
        FNotebook->FPageIndex = -1;
        FNotebook->SetPageIndex(FNotebook->PageCount() > 0 ? 0 : -1);
    }
    void Clear() override {
        while (GetCount() > 0)
            FNotebook->Page(GetCount() - 1)->Free();
        FNotebook->FPageIndex = -1;
    }
    void Move(int from, int to) override {
        TPage* page = FNotebook->Page(from);
        FNotebook->Page(to);
        auto& v = FNotebook->FPages;
        v.erase(v.begin() + from);
        v.insert(v.begin() + to, page);
    }
    void Exchange(int a, int b) override {
        FNotebook->Page(a);
        FNotebook->Page(b);
        std::swap(FNotebook->FPages[a], FNotebook->FPages[b]);
    }

private:
    TNotebook* FNotebook;
};
JEX_IMPLEMENT_CLASS(TPageAccess, TStrings, "ExtCtrls") {}

JEX_IMPLEMENT_CLASS(TNotebook, TCustomControl, "ExtCtrls") {
    d.Property("ActivePage", &TNotebook::ActivePage, &TNotebook::SetActivePage).Stored(false);
    pub::Align(d);
    pub::Anchors(d);
    pub::Color(d, clBtnFace);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("PageIndex", &TNotebook::PageIndex, &TNotebook::SetPageIndex).Default(0);
    d.Property("Pages", &TNotebook::Pages, &TNotebook::SetPages).Stored(false);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
    d.Event("OnPageChanged", &TNotebook::OnPageChanged);
}

TNotebook::TNotebook(TComponent* AOwner) : TCustomControl(AOwner), FAccess(new TPageAccess(this)) {
    FControlStyle = TControlStyle{csDoubleClicks};
    FWidth = 150;
    FHeight = 150;
    FColor = clBtnFace;
    FAccess->Add("Default");
    SetPageIndex(0);
}

TNotebook::~TNotebook() {
    // Pages are children and go with the control tree; the access object only looks at them.
    for (TControl* c : FControls)
        c->SetVisible(false);
    FPages.clear();
    delete FAccess;
}

TPage* TNotebook::Page(int Index) const {
    if (Index < 0 || Index >= PageCount()) throw EListError(rtl::Format(rtl::SListIndexError, {Index}));
    return FPages[Index];
}

TPage* TNotebook::PageByCaption(const std::string& Caption) const {
    for (TPage* p : FPages)
        if (rtl::SameText(p->Caption(), Caption)) return p;
    return nullptr;
}

void TNotebook::ControlAdded(TControl* AControl) {
    if (auto* p = dynamic_cast<TPage*>(AControl)) {
        if (p->IsLoading()) {
            // A form file holds every page: pages read replace those made in code (the "Default" page),
            // and belong to the notebook like pages added through Pages.
            int index = FPageIndex;
            for (TPage* old : std::vector<TPage*>(FPages))
                if (!old->IsLoading()) old->Free();
            FPageIndex = index;
            if (p->Owner() != this) {
                if (p->Owner()) p->Owner()->RemoveComponent(p);
                InsertComponent(p);
            }
        }
        if (FInserting >= 0 && FInserting <= PageCount())
            FPages.insert(FPages.begin() + FInserting, p);
        else
            FPages.push_back(p);
        p->SetVisible(false);
        p->SetBounds(0, 0, ClientWidth(), ClientHeight());
    }
}

void TNotebook::ControlRemoved(TControl* AControl) {
    auto it = std::find(FPages.begin(), FPages.end(), AControl);
    if (it == FPages.end()) return;
    int index = static_cast<int>(it - FPages.begin());
    FPages.erase(it);
    if (index == FPageIndex)
        FPageIndex = -1;
    else if (index < FPageIndex)
        --FPageIndex;
}

void TNotebook::SetPageIndex(int v) {
    if (IsLoading()) {
        FPageIndex = v;
        return;
    }
    if (v == FPageIndex || v < 0 || v >= PageCount()) return;
    if (TCustomForm* form = GetParentForm(this); form && FPageIndex >= 0)
        form->ControlRemoving(FPages[FPageIndex]);
    if (FPageIndex >= 0 && FPageIndex < PageCount()) FPages[FPageIndex]->SetVisible(false);
    FPageIndex = v;
    FPages[v]->SetVisible(true);
    FPages[v]->BringToFront();
    OnPageChanged(this);
}

void TNotebook::Loaded() {
    TCustomControl::Loaded();
    // Pages read in stay hidden until the page index read with them shows one.
    int index = FPageIndex;
    FPageIndex = -1;
    for (TPage* p : FPages)
        p->SetVisible(false);
    if (index >= 0 && index < PageCount()) {
        FPageIndex = index;
        FPages[index]->SetVisible(true);
        FPages[index]->BringToFront();
    }
}

std::string TNotebook::ActivePage() const {
    return FPageIndex >= 0 && FPageIndex < PageCount() ? FPages[FPageIndex]->Caption() : std::string();
}

void TNotebook::SetActivePage(const std::string& v) {
    for (int i = 0; i < PageCount(); ++i)
        if (FPages[i]->Caption() == v) {
            SetPageIndex(i);
            return;
        }
}

void TNotebook::GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) {
    for (TPage* p : FPages)
        Proc(p);
}

void TNotebook::SetChildOrder(TComponent* Child, int Order) {
    auto it = std::find(FPages.begin(), FPages.end(), Child);
    if (it == FPages.end()) return;
    TPage* p = *it;
    FPages.erase(it);
    Order = std::clamp(Order, 0, PageCount());
    FPages.insert(FPages.begin() + Order, p);
}

void TNotebook::UserSelect(int Index) {
    if (Index < 0 || Index >= PageCount())
        throw EUserActionError("'" + Name() + "' has no page " + std::to_string(Index));
    SetPageIndex(Index);
}

void TNotebook::UserSelectText(const std::string& Text) {
    for (int i = 0; i < PageCount(); ++i)
        if (rtl::SameText(FPages[i]->Caption(), Text)) return UserSelect(i);
    throw EUserActionError("'" + Name() + "' has no page '" + Text + "'");
}

void TNotebook::Describe(TControlDesc& d) const {
    TCustomControl::Describe(d);
    d.Items = FAccess->ToVector();
    d.ItemIndex = FPageIndex;
}

} // namespace vcl
