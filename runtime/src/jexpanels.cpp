// Form panels, picture group boxes, edge, drag and speed panels, the hint bar and the notebooks.
#include "jex/jexpanels.h"

#include <algorithm>

#include "jex/jexbuttons.h"
#include "jexpanelpub.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexDragPanelOption)
JEX_DEFINE_SET(TjexDragPanelOptions, TjexDragPanelOption)

namespace {
// Puts a form inside a container as a borderless window filling it.
void Embed(TCustomForm* form, TWinControl* container) {
    form->SetBorderStyle(bsNone);
    form->SetParent(container);
    form->SetAlign(alClient);
    form->Show();
}

// Takes a form out of its container again (a free window, hidden).
void Unembed(TCustomForm* form) {
    form->Hide();
    form->SetAlign(alNone);
    form->SetParent(nullptr);
}

// Runs f; with handle set, a platform exception goes to the application's handler and nil comes back.
template <class F> TCustomForm* Guarded(rtl::TObject* sender, bool handle, F f) {
    if (!handle) return f();
    try {
        return f();
    } catch (const rtl::Exception&) {
        Application()->HandleException(sender);
        return nullptr;
    }
}
} // namespace

// ---- Form panel ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexFormPanel, TCustomPanel, "jexpanels") {
    pubx::Panel(d);
    d.Property("AutoCreate", &TjexFormPanel::AutoCreate, &TjexFormPanel::SetAutoCreate).Default(true);
    d.Property("AutoDestroy", &TjexFormPanel::AutoDestroy, &TjexFormPanel::SetAutoDestroy).Default(true);
    d.Property("FormName", &TjexFormPanel::FormName, &TjexFormPanel::SetFormName);
    d.Property("HandleException", &TjexFormPanel::HandleException, &TjexFormPanel::SetHandleException)
        .Default(false);
}

TjexFormPanel::TjexFormPanel(rtl::TComponent* AOwner) : TCustomPanel(AOwner) {
    FControlStyle.Exclude(csSetCaption);
}

TjexFormPanel::~TjexFormPanel() {
    // The panel frees its children; a form it did not make (or must keep) leaves first.
    if (FForm) CloseForm();
}

TCustomForm* TjexFormPanel::ShowForm() {
    return Guarded(this, FHandleException, [this]() -> TCustomForm* {
        CloseForm();
        bool created = false;
        TCustomForm* form = jexFindOrCreateForm(FFormName, created);
        FForm = form;
        FCreated = created;
        form->FreeNotification(this);
        Embed(form, this);
        return form;
    });
}

void TjexFormPanel::CloseForm() {
    TCustomForm* form = FForm;
    if (!form) return;
    FForm = nullptr;
    form->RemoveFreeNotification(this);
    if (FCreated && FAutoDestroy)
        form->Free();
    else
        Unembed(form);
}

void TjexFormPanel::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TCustomPanel::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FForm) FForm = nullptr;
}

void TjexFormPanel::Loaded() {
    TCustomPanel::Loaded();
    if (FAutoCreate && !IsDesigning() && !FFormName.empty()) ShowForm();
}

// ---- Picture group box -----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexPictureGroup, TCustomGroupBox, "jexpanels") {
    pub::Align(d);
    d.Property("AlignPicture", &TjexPictureGroup::AlignPicture, &TjexPictureGroup::SetAlignPicture)
        .Default(jahLeft);
    pub::Anchors(d);
    pub::Caption(d);
    pub::Color(d, clBtnFace);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("LineRaised", &TjexPictureGroup::LineRaised, &TjexPictureGroup::SetLineRaised).Default(false);
    d.Property("MarginB", &TjexPictureGroup::MarginB, &TjexPictureGroup::SetMarginB).Default(4);
    d.Property("MarginL", &TjexPictureGroup::MarginL, &TjexPictureGroup::SetMarginL).Default(4);
    d.Property("MarginR", &TjexPictureGroup::MarginR, &TjexPictureGroup::SetMarginR).Default(4);
    d.Property("MarginT", &TjexPictureGroup::MarginT, &TjexPictureGroup::SetMarginT).Default(4);
    d.Property("Offset", &TjexPictureGroup::Offset, &TjexPictureGroup::SetOffset).Default(8);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    d.Property("Picture", &TjexPictureGroup::Picture, &TjexPictureGroup::SetPicture);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    d.Property("Transparent", &TjexPictureGroup::Transparent, &TjexPictureGroup::SetTransparent)
        .Default(true);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
}

TjexPictureGroup::TjexPictureGroup(rtl::TComponent* AOwner)
    : TCustomGroupBox(AOwner), FPicture(std::make_unique<TPicture>()) {
    FWidth = 185;
    FHeight = 105;
    FPicture->OnChange = [this](rtl::TObject*) {
        if (!IsLoading()) Realign();
    };
}

TjexPictureGroup::~TjexPictureGroup() {
    FPicture->OnChange = nullptr;
}

void TjexPictureGroup::SetMarginB(int Value) {
    FMarginB = std::max(0, Value);
    Realign();
}
void TjexPictureGroup::SetMarginL(int Value) {
    FMarginL = std::max(0, Value);
    Realign();
}
void TjexPictureGroup::SetMarginR(int Value) {
    FMarginR = std::max(0, Value);
    Realign();
}
void TjexPictureGroup::SetMarginT(int Value) {
    FMarginT = std::max(0, Value);
    Realign();
}

int TjexPictureGroup::HeaderHeight() const {
    return std::max(TextHeightOf(Font()), FPicture->Height());
}

TRect TjexPictureGroup::PictureRect() const {
    int pw = FPicture->Width(), ph = FPicture->Height();
    if (pw == 0) return {};
    int tw = Caption().empty() ? 0 : TextWidthOf(Font(), Caption()) + 4;
    int total = pw + tw;
    int x = FAlignPicture == jahLeft     ? FOffset
            : FAlignPicture == jahCenter ? (FWidth - total) / 2
                                         : FWidth - FOffset - total;
    return Bounds(x, (HeaderHeight() - ph) / 2, pw, ph);
}

TRect TjexPictureGroup::CaptionRect() const {
    TRect p = PictureRect();
    int tw = TextWidthOf(Font(), Caption()), th = TextHeightOf(Font());
    int x;
    if (p.Width() > 0)
        x = p.Right + 4;
    else
        x = FAlignPicture == jahLeft     ? FOffset
            : FAlignPicture == jahCenter ? (FWidth - tw) / 2
                                         : FWidth - FOffset - tw;
    return Bounds(x, (HeaderHeight() - th) / 2, tw, th);
}

TRect TjexPictureGroup::AdjustClientRect() const {
    TRect r = ClientRect();
    return Rect(r.Left + 2 + FMarginL, r.Top + HeaderHeight() + FMarginT, r.Right - 2 - FMarginR,
                r.Bottom - 2 - FMarginB);
}

// ---- Edge panel ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexEdgePanel, TCustomPanel, "jexpanels") {
    pubx::Panel(d);
}

TjexEdgePanel::TjexEdgePanel(rtl::TComponent* AOwner) : TCustomPanel(AOwner) {
    FControlStyle.Exclude(csSetCaption);
    FWidth = 100;
    FHeight = 100;
}

TRect TjexEdgePanel::EdgeRect() const {
    constexpr int grip = 4;
    int w = FWidth, h = FHeight;
    switch (FAlign) {
    case alTop:
        return Rect(0, h - grip, w, h);
    case alBottom:
        return Rect(0, 0, w, grip);
    case alRight:
        return Rect(0, 0, grip, h);
    default:
        return Rect(w - grip, 0, w, h);
    }
}

void TjexEdgePanel::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    TCustomPanel::MouseDown(Button, Shift, X, Y);
    TRect e = EdgeRect();
    if (Button != mbLeft || X < e.Left || X >= e.Right || Y < e.Top || Y >= e.Bottom) return;
    FSizing = true;
    FStart = ClientToScreen(Point(X, Y));
    FStartSize = FAlign == alTop || FAlign == alBottom ? FHeight : FWidth;
}

void TjexEdgePanel::MouseMove(TShiftState Shift, int X, int Y) {
    TCustomPanel::MouseMove(Shift, X, Y);
    if (!FSizing) return;
    TPoint p = ClientToScreen(Point(X, Y));
    int dx = p.X - FStart.X, dy = p.Y - FStart.Y;
    switch (FAlign) {
    case alTop:
        SetHeight(std::max(0, FStartSize + dy));
        break;
    case alBottom:
        SetHeight(std::max(0, FStartSize - dy));
        break;
    case alRight:
        SetWidth(std::max(0, FStartSize - dx));
        break;
    default:
        SetWidth(std::max(0, FStartSize + dx));
        break;
    }
}

void TjexEdgePanel::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (FSizing) MouseMove(Shift, X, Y);
    FSizing = false;
    TCustomPanel::MouseUp(Button, Shift, X, Y);
}

// ---- Drag panel ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDragPanel, TCustomPanel, "jexpanels") {
    pubx::Panel(d);
    d.Property("Locked", &TCustomPanel::Locked, &TCustomPanel::SetLocked).Default(false);
    d.Property("MoveMaxLeft", &TjexDragPanel::MoveMaxLeft, &TjexDragPanel::SetMoveMaxLeft).Default(0);
    d.Property("MoveMaxTop", &TjexDragPanel::MoveMaxTop, &TjexDragPanel::SetMoveMaxTop).Default(0);
    d.Property("MoveMinLeft", &TjexDragPanel::MoveMinLeft, &TjexDragPanel::SetMoveMinLeft).Default(0);
    d.Property("MoveMinTop", &TjexDragPanel::MoveMinTop, &TjexDragPanel::SetMoveMinTop).Default(0);
    d.Property("MSLocked", &TjexDragPanel::MSLocked, &TjexDragPanel::SetMSLocked).Default(false);
    d.Property("Options", &TjexDragPanel::Options, &TjexDragPanel::SetOptions)
        .Default(TjexDragPanelOptions{jdpMove, jdpSize, jdpBringToFront, jdpClipToParent}.Bits());
    d.Property("SizeMaxHeight", &TjexDragPanel::SizeMaxHeight, &TjexDragPanel::SetSizeMaxHeight).Default(0);
    d.Property("SizeMaxWidth", &TjexDragPanel::SizeMaxWidth, &TjexDragPanel::SetSizeMaxWidth).Default(0);
    d.Property("SizeMinHeight", &TjexDragPanel::SizeMinHeight, &TjexDragPanel::SetSizeMinHeight).Default(10);
    d.Property("SizeMinWidth", &TjexDragPanel::SizeMinWidth, &TjexDragPanel::SetSizeMinWidth).Default(10);
    d.Event("OnMoved", &TjexDragPanel::OnMoved);
    d.Event("OnSized", &TjexDragPanel::OnSized);
}

TjexDragPanel::TjexDragPanel(rtl::TComponent* AOwner) : TCustomPanel(AOwner) {}

TRect TjexDragPanel::GripRect() const {
    constexpr int grip = 8;
    return Rect(std::max(0, FWidth - grip), std::max(0, FHeight - grip), FWidth, FHeight);
}

void TjexDragPanel::MoveTo(int ALeft, int ATop) {
    if (FMoveMaxLeft > 0) ALeft = std::min(ALeft, FMoveMaxLeft);
    if (FMoveMaxTop > 0) ATop = std::min(ATop, FMoveMaxTop);
    if (FOptions.Contains(jdpClipToParent) && FParent) {
        TRect c = FParent->ClientRect();
        ALeft = std::min(ALeft, c.Width() - FWidth);
        ATop = std::min(ATop, c.Height() - FHeight);
        ALeft = std::max(ALeft, 0);
        ATop = std::max(ATop, 0);
    }
    ALeft = std::max(ALeft, FMoveMinLeft);
    ATop = std::max(ATop, FMoveMinTop);
    if (ALeft == FLeft && ATop == FTop) return;
    SetBounds(ALeft, ATop, FWidth, FHeight);
    OnMoved(this);
}

void TjexDragPanel::SizeTo(int AWidth, int AHeight) {
    if (FSizeMaxWidth > 0) AWidth = std::min(AWidth, FSizeMaxWidth);
    if (FSizeMaxHeight > 0) AHeight = std::min(AHeight, FSizeMaxHeight);
    if (FOptions.Contains(jdpClipToParent) && FParent) {
        TRect c = FParent->ClientRect();
        AWidth = std::min(AWidth, c.Width() - FLeft);
        AHeight = std::min(AHeight, c.Height() - FTop);
    }
    AWidth = std::max(AWidth, FSizeMinWidth);
    AHeight = std::max(AHeight, FSizeMinHeight);
    if (AWidth == FWidth && AHeight == FHeight) return;
    SetBounds(FLeft, FTop, AWidth, AHeight);
    OnSized(this);
}

void TjexDragPanel::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    TCustomPanel::MouseDown(Button, Shift, X, Y);
    if (Button != mbLeft || Locked()) return;
    TRect g = GripRect();
    bool onGrip = X >= g.Left && X < g.Right && Y >= g.Top && Y < g.Bottom;
    if (onGrip && FOptions.Contains(jdpSize) && !FMSLocked)
        FMode = 2;
    else if (FOptions.Contains(jdpMove))
        FMode = 1;
    else
        return;
    FStart = ClientToScreen(Point(X, Y));
    FStartBounds = BoundsRect();
    if (FOptions.Contains(jdpBringToFront)) BringToFront();
}

void TjexDragPanel::MouseMove(TShiftState Shift, int X, int Y) {
    TCustomPanel::MouseMove(Shift, X, Y);
    if (!FMode) return;
    TPoint p = ClientToScreen(Point(X, Y));
    int dx = p.X - FStart.X, dy = p.Y - FStart.Y;
    if (FMode == 1)
        MoveTo(FStartBounds.Left + dx, FStartBounds.Top + dy);
    else
        SizeTo(FStartBounds.Width() + dx, FStartBounds.Height() + dy);
}

void TjexDragPanel::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    FMode = 0;
    TCustomPanel::MouseUp(Button, Shift, X, Y);
}

// ---- Speed panel --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexSpeedPanel, TCustomPanel, "jexpanels") {
    pubx::Panel(d);
    d.Property("CtrlCols", &TjexSpeedPanel::CtrlCols, &TjexSpeedPanel::SetCtrlCols).Default(0);
    d.Property("CtrlHeight", &TjexSpeedPanel::CtrlHeight, &TjexSpeedPanel::SetCtrlHeight).Default(25);
    d.Property("CtrlRows", &TjexSpeedPanel::CtrlRows, &TjexSpeedPanel::SetCtrlRows).Default(0);
    d.Property("CtrlWidth", &TjexSpeedPanel::CtrlWidth, &TjexSpeedPanel::SetCtrlWidth).Default(25);
    d.Property("InsertCols", &TjexSpeedPanel::InsertCols, &TjexSpeedPanel::SetInsertCols).Default(false);
    d.Property("MarginCol", &TjexSpeedPanel::MarginCol, &TjexSpeedPanel::SetMarginCol).Default(2);
    d.Property("MarginH", &TjexSpeedPanel::MarginH, &TjexSpeedPanel::SetMarginH).Default(4);
    d.Property("MarginRow", &TjexSpeedPanel::MarginRow, &TjexSpeedPanel::SetMarginRow).Default(2);
    d.Property("MarginV", &TjexSpeedPanel::MarginV, &TjexSpeedPanel::SetMarginV).Default(4);
    d.Property("SizeVisibleOnly", &TjexSpeedPanel::SizeVisibleOnly, &TjexSpeedPanel::SetSizeVisibleOnly)
        .Default(true);
    d.Property("Sorted", &TjexSpeedPanel::Sorted, &TjexSpeedPanel::SetSorted).Default(false);
}

TjexSpeedPanel::TjexSpeedPanel(rtl::TComponent* AOwner) : TCustomPanel(AOwner) {
    FControlStyle.Exclude(csSetCaption);
}

#define JEX_SPEED_SETTER(Name, Field, Min)                                                                   \
    void TjexSpeedPanel::Set##Name(int Value) {                                                              \
        Field = std::max(Min, Value);                                                                        \
        ArrangeControls();                                                                                   \
    }
JEX_SPEED_SETTER(CtrlCols, FCtrlCols, 0)
JEX_SPEED_SETTER(CtrlRows, FCtrlRows, 0)
JEX_SPEED_SETTER(CtrlWidth, FCtrlWidth, 1)
JEX_SPEED_SETTER(CtrlHeight, FCtrlHeight, 1)
JEX_SPEED_SETTER(MarginCol, FMarginCol, 0)
JEX_SPEED_SETTER(MarginRow, FMarginRow, 0)
JEX_SPEED_SETTER(MarginH, FMarginH, 0)
JEX_SPEED_SETTER(MarginV, FMarginV, 0)
#undef JEX_SPEED_SETTER

void TjexSpeedPanel::SetInsertCols(bool Value) {
    FInsertCols = Value;
    ArrangeControls();
}

void TjexSpeedPanel::SetSizeVisibleOnly(bool Value) {
    FSizeVisibleOnly = Value;
    ArrangeControls();
}

void TjexSpeedPanel::SetSorted(bool Value) {
    FSorted = Value;
    ArrangeControls();
}

std::vector<TControl*> TjexSpeedPanel::Arranged() const {
    std::vector<TControl*> list;
    for (TControl* c : FControls)
        if (c->Align() == alNone && (c->Visible() || !FSizeVisibleOnly)) list.push_back(c);
    if (FSorted)
        std::stable_sort(list.begin(), list.end(),
                         [](TControl* a, TControl* b) { return a->Tag() < b->Tag(); });
    return list;
}

int TjexSpeedPanel::ColCount() const {
    int n = static_cast<int>(Arranged().size());
    if (FInsertCols) {
        int rows = RowCount();
        return rows ? (n + rows - 1) / rows : 0;
    }
    if (FCtrlCols > 0) return FCtrlCols;
    TRect r = AdjustClientRect();
    return std::max(1, (r.Width() - 2 * FMarginH + FMarginCol) / (FCtrlWidth + FMarginCol));
}

int TjexSpeedPanel::RowCount() const {
    int n = static_cast<int>(Arranged().size());
    if (!FInsertCols) {
        int cols = ColCount();
        return cols ? (n + cols - 1) / cols : 0;
    }
    if (FCtrlRows > 0) return FCtrlRows;
    TRect r = AdjustClientRect();
    return std::max(1, (r.Height() - 2 * FMarginV + FMarginRow) / (FCtrlHeight + FMarginRow));
}

void TjexSpeedPanel::ArrangeControls() {
    if (FArranging || IsLoading()) return;
    FArranging = true;
    TRect r = AdjustClientRect();
    std::vector<TControl*> list = Arranged();
    int cols = FInsertCols ? 0 : ColCount(), rows = FInsertCols ? RowCount() : 0;
    for (size_t k = 0; k < list.size(); ++k) {
        int i = static_cast<int>(k);
        int col = FInsertCols ? i / rows : i % cols;
        int row = FInsertCols ? i % rows : i / cols;
        list[k]->SetBounds(r.Left + FMarginH + col * (FCtrlWidth + FMarginCol),
                           r.Top + FMarginV + row * (FCtrlHeight + FMarginRow), FCtrlWidth, FCtrlHeight);
    }
    FArranging = false;
}

void TjexSpeedPanel::AlignControls() {
    TCustomPanel::AlignControls();
    ArrangeControls();
}

void TjexSpeedPanel::Loaded() {
    TCustomPanel::Loaded();
    ArrangeControls();
}

void TjexSpeedPanel::ControlAdded(TControl* AControl) {
    TCustomPanel::ControlAdded(AControl);
    ArrangeControls();
}

// ---- Hint bar --------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexHintBar, TStatusBar, "jexpanels") {
    d.Property("HintPrefix", &TjexHintBar::HintPrefix, &TjexHintBar::SetHintPrefix);
    d.Property("HintSuffix", &TjexHintBar::HintSuffix, &TjexHintBar::SetHintSuffix);
    d.Property("ShowActiveControl", &TjexHintBar::ShowActiveControl, &TjexHintBar::SetShowActiveControl)
        .Default(false);
    d.Property("ShowEmpty", &TjexHintBar::ShowEmpty, &TjexHintBar::SetShowEmpty).Default(true);
    d.Property("UseSystemFont", &TjexHintBar::UseSystemFont, &TjexHintBar::SetUseSystemFont).Default(false);
}

TjexHintBar::TjexHintBar(rtl::TComponent* AOwner)
    : TStatusBar(AOwner), FAlive(std::make_shared<bool>(true)) {}

TjexHintBar::~TjexHintBar() {
    *FAlive = false;
}

void TjexHintBar::SetUseSystemFont(bool Value) {
    FUseSystemFont = Value;
    if (Value && !IsLoading()) {
        // The system font is taken once; the font is then stored like any other.
        Font()->Assign(Screen()->HintFont());
    }
}

bool TjexHintBar::DisplayHint(const std::string& Hint) {
    if (Hint.empty() && !FShowEmpty) return false;
    return ShowHintText(Hint.empty() ? std::string() : FHintPrefix + Hint + FHintSuffix);
}

void TjexHintBar::ActiveControlChanged(TControl* Control) {
    if (FShowActiveControl && Control) DisplayHint(GetLongHint(Control->Hint()));
}

std::string TjexHintBar::ShownText() const {
    return SimplePanel() || Panels()->Count() == 0 ? SimpleText() : Panels()->Items(0)->Text();
}

void TjexHintBar::Loaded() {
    TStatusBar::Loaded();
    if (IsDesigning()) return;
    pubx::ChainEvent(Application()->OnHint, FAlive,
                     [this](rtl::TObject*) { DisplayHint(Application()->Hint()); });
    if (auto* form = dynamic_cast<TCustomForm*>(Owner()))
        for (TControl* c : form->ControlList())
            if (auto* w = dynamic_cast<TWinControl*>(c))
                pubx::ChainEvent(w->OnEnter, FAlive, [this, w](rtl::TObject*) { ActiveControlChanged(w); });
}

// ---- Form notebooks ---------------------------------------------------------------------------------------
template <class C> static void PublishFormNotebook(rtl::TClassDecl<C>& d) {
    d.Property("ActiveForm", &C::ActiveForm, &C::SetActiveForm).Stored(false);
    d.Property("FormCreateDestroy", &C::FormCreateDestroy, &C::SetFormCreateDestroy).Default(false);
    d.Property("Forms", &C::Forms, &C::SetForms);
    d.Property("HandleException", &C::HandleException, &C::SetHandleException).Default(false);
}

JEX_IMPLEMENT_CLASS(TjexFormNoteBook, TNotebook, "jexpanels") {
    PublishFormNotebook(d);
}

TjexFormNoteBook::TjexFormNoteBook(rtl::TComponent* AOwner)
    : TNotebook(AOwner), FForms(std::make_unique<rtl::TStringList>()), FAlive(std::make_shared<bool>(true)) {
    FForms->OnChange = [this](rtl::TObject*) { FormsChanged(); };
}

TjexFormNoteBook::~TjexFormNoteBook() {
    *FAlive = false;
    FForms->OnChange = nullptr;
    for (auto& [page, shown] : std::map<int, TShown>(FShown))
        Release(page);
}

void TjexFormNoteBook::FormsChanged() {
    if (IsLoading()) return;
    for (int i = PageCount(); i < FForms->Count(); ++i)
        Pages()->Add((*FForms)[i]);
}

std::string TjexFormNoteBook::ActiveForm() const {
    int i = PageIndex();
    return i >= 0 && i < FForms->Count() ? (*FForms)[i] : std::string();
}

void TjexFormNoteBook::SetActiveForm(const std::string& Value) {
    int i = FForms->IndexOf(Value);
    if (i >= 0 && i < PageCount()) SetPageIndex(i);
}

TCustomForm* TjexFormNoteBook::PageForm(int Index) const {
    auto it = FShown.find(Index);
    return it == FShown.end() ? nullptr : it->second.Form;
}

void TjexFormNoteBook::Release(int Page) {
    auto it = FShown.find(Page);
    if (it == FShown.end()) return;
    TShown shown = it->second;
    FShown.erase(it);
    if (!shown.Form) return;
    shown.Form->RemoveFreeNotification(this);
    if (shown.Created)
        shown.Form->Free();
    else
        Unembed(shown.Form);
}

TCustomForm* TjexFormNoteBook::ShowActiveForm() {
    int page = PageIndex();
    if (page < 0 || page >= FForms->Count() || (*FForms)[page].empty()) return nullptr;
    if (TCustomForm* f = PageForm(page)) return f;
    return Guarded(this, FHandleException, [this, page]() -> TCustomForm* {
        bool created = false;
        TCustomForm* form = jexFindOrCreateForm((*FForms)[page], created);
        FShown[page] = TShown{form, created};
        form->FreeNotification(this);
        Embed(form, Page(page));
        return form;
    });
}

void TjexFormNoteBook::PageChanged() {
    if (FFormCreateDestroy && FLastPage >= 0 && FLastPage != PageIndex()) Release(FLastPage);
    FLastPage = PageIndex();
    ShowActiveForm();
}

void TjexFormNoteBook::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TNotebook::Notification(AComponent, Operation);
    if (Operation != rtl::opRemove) return;
    for (auto it = FShown.begin(); it != FShown.end();)
        it = it->second.Form == AComponent ? FShown.erase(it) : std::next(it);
}

void TjexFormNoteBook::Loaded() {
    TNotebook::Loaded();
    if (IsDesigning()) return;
    pubx::ChainEvent(OnPageChanged, FAlive, [this](rtl::TObject*) { PageChanged(); });
    PageChanged();
}

JEX_IMPLEMENT_CLASS(TjexFormTabbedNoteBook, TjexFormNoteBook, "jexpanels") {
    d.Property("TabsPerRow", &TjexFormTabbedNoteBook::TabsPerRow, &TjexFormTabbedNoteBook::SetTabsPerRow)
        .Default(3);
}

TjexFormTabbedNoteBook::TjexFormTabbedNoteBook(rtl::TComponent* AOwner) : TjexFormNoteBook(AOwner) {
    // The pages made by the notebook's constructor move below the tabs.
    Realign();
}

void TjexFormTabbedNoteBook::SetTabsPerRow(int Value) {
    FTabsPerRow = std::max(1, Value);
    Realign();
}

int TjexFormTabbedNoteBook::TabRows() const {
    return std::max(1, (PageCount() + FTabsPerRow - 1) / FTabsPerRow);
}

TRect TjexFormTabbedNoteBook::AdjustClientRect() const {
    TRect r = TjexFormNoteBook::AdjustClientRect();
    r.Top += TabRows() * (TextHeightOf(Font()) + 8);
    return r;
}

// ---- Arrow-key notebooks --------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexLRNoteBook, TNotebook, "jexpanels") {}

TjexLRNoteBook::TjexLRNoteBook(rtl::TComponent* AOwner) : TNotebook(AOwner) {}

void TjexLRNoteBook::SelectNextPage(bool GoForward) {
    int n = PageCount();
    if (n == 0) return;
    int i = PageIndex() < 0 ? 0 : PageIndex();
    SetPageIndex((i + (GoForward ? 1 : n - 1)) % n);
}

TRect TjexLRNoteBook::PrevButtonRect() const {
    TRect r = ClientRect();
    return Rect(r.Right - 34, r.Bottom - 16, r.Right - 17, r.Bottom);
}

TRect TjexLRNoteBook::NextButtonRect() const {
    TRect r = ClientRect();
    return Rect(r.Right - 17, r.Bottom - 16, r.Right, r.Bottom);
}

void TjexLRNoteBook::KeyDown(uint16_t& Key, TShiftState Shift) {
    TNotebook::KeyDown(Key, Shift);
    if (Key == VK_LEFT || Key == VK_RIGHT) {
        SelectNextPage(Key == VK_RIGHT);
        Key = 0;
    }
}

void TjexLRNoteBook::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    TNotebook::MouseDown(Button, Shift, X, Y);
    if (Button != mbLeft) return;
    auto in = [&](const TRect& r) { return X >= r.Left && X < r.Right && Y >= r.Top && Y < r.Bottom; };
    if (in(PrevButtonRect()))
        SelectNextPage(false);
    else if (in(NextButtonRect()))
        SelectNextPage(true);
}

JEX_IMPLEMENT_CLASS(TjexLRTabbedNoteBook, TjexLRNoteBook, "jexpanels") {}

TjexLRTabbedNoteBook::TjexLRTabbedNoteBook(rtl::TComponent* AOwner) : TjexLRNoteBook(AOwner) {
    Realign();
}

TRect TjexLRTabbedNoteBook::AdjustClientRect() const {
    TRect r = TjexLRNoteBook::AdjustClientRect();
    r.Top += TextHeightOf(Font()) + 8;
    return r;
}

static const TjexLibraryUnit<TjexFormPanel, TjexPictureGroup, TjexEdgePanel, TjexDragPanel, TjexSpeedPanel,
                             TjexHintBar, TjexFormTabbedNoteBook, TjexFormNoteBook, TjexLRNoteBook,
                             TjexLRTabbedNoteBook>
    jexpanelsUnit("jexpanels");

} // namespace jex
