// Point lists, sprites and their lists, the sprite surface, the sprite kinds, the bitmap sprite factory and
// the sprite mover.
#include "jex/jexspr.h"

#include <algorithm>
#include <cmath>

#include "jexpanelpub.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexScrollDirection)

// ---- Point lists -----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexPointList, rtl::TList, "jexspr") {}

TjexPointList::~TjexPointList() {
    Clear();
}

int TjexPointList::AddPoint(const TPoint& P) {
    return Add(new TPoint(P));
}

void TjexPointList::InsertPoint(int Index, const TPoint& P) {
    auto* p = new TPoint(P);
    try {
        Insert(Index, p);
    } catch (...) {
        delete p;
        throw;
    }
}

void TjexPointList::DeletePoint(int Index) {
    TPoint* p = Points(Index); // raises EListError out of range
    Delete(Index);
    delete p;
}

void TjexPointList::Clear() {
    for (int i = 0; i < Count(); ++i)
        delete Points(i);
    rtl::TList::Clear();
}

std::vector<TPoint> TjexPointList::ToVector() const {
    std::vector<TPoint> v;
    for (int i = 0; i < Count(); ++i)
        v.push_back(*Points(i));
    return v;
}

void TjexPointList::Assign(const TjexPointList& Source) {
    if (&Source == this) return;
    std::vector<TPoint> points = Source.ToVector();
    Clear();
    for (const TPoint& p : points)
        AddPoint(p);
}

bool TjexPointList::Equals(const TjexPointList& Other) const {
    return ToVector() == Other.ToVector();
}

std::string TjexPointList::FormatPoint(const TPoint& P) {
    return rtl::Format("%d , %d", {P.X, P.Y});
}

bool TjexPointList::ParsePoint(const std::string& Line, TPoint& P) {
    // The point editor's reading rule: the first comma splits; each side trimmed must be an integer, the
    // value -2147483647 standing for "no number".
    constexpr int32_t none = -2147483647;
    size_t comma = Line.find(',');
    if (comma == std::string::npos) return false;
    int32_t x = rtl::StrToIntDef(rtl::Trim(Line.substr(0, comma)), none);
    int32_t y = rtl::StrToIntDef(rtl::Trim(Line.substr(comma + 1, 255)), none);
    if (x == none || y == none) return false;
    P = Point(x, y);
    return true;
}

int TjexPointList::LoadFromFile(const std::string& FileName) {
    rtl::TStringList lines;
    lines.LoadFromFile(FileName);
    std::vector<TPoint> read;
    for (int i = 0; i < lines.Count(); ++i) {
        TPoint p;
        if (ParsePoint(lines[i], p)) read.push_back(p);
    }
    if (read.empty()) return 0;
    Clear();
    for (const TPoint& p : read)
        AddPoint(p);
    return static_cast<int>(read.size());
}

void TjexPointList::SaveToFile(const std::string& FileName) const {
    rtl::TStringList lines;
    for (int i = 0; i < Count(); ++i)
        lines.Add(FormatPoint(*Points(i)));
    lines.SaveToFile(FileName);
}

// ---- Sprites -------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexSprite, rtl::TComponent, "jexspr") {}

template <class C> static void PublishSprite(rtl::TClassDecl<C>& d) {
    d.Property("Depth", &C::Depth, &C::SetDepth).Default(0);
    d.Property("Height", &C::Height, &C::SetHeight).Default(32);
    d.Property("Left", &C::Left, &C::SetLeft).Default(0);
    d.Property("Top", &C::Top, &C::SetTop).Default(0);
    d.Property("Visible", &C::Visible, &C::SetVisible).Default(true);
    d.Property("Width", &C::Width, &C::SetWidth).Default(32);
    d.Event("OnClick", &C::OnClick);
}

TjexSprite::TjexSprite(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}

TjexSprite::~TjexSprite() {
    if (FSpriteList) FSpriteList->Remove(this);
}

void TjexSprite::SetSpriteList(TjexSpriteList* Value) {
    if (Value == FSpriteList) return;
    if (FSpriteList) FSpriteList->Remove(this);
    if (Value) Value->Add(this);
}

void TjexSprite::SetBounds(int ALeft, int ATop, int AWidth, int AHeight) {
    FLeft = ALeft;
    FTop = ATop;
    SetWidth(AWidth);
    SetHeight(AHeight);
}

bool TjexSprite::HitTest(int X, int Y) const {
    return X >= FLeft && X < FLeft + FWidth && Y >= FTop && Y < FTop + FHeight;
}

rtl::TComponent* TjexSprite::GetParentComponent() const {
    return FSpriteList;
}

void TjexSprite::SetParentComponent(rtl::TComponent* Value) {
    // Read inside a list (or pasted into one) the sprite joins it; read at the form's level it stays free.
    if (auto* list = dynamic_cast<TjexSpriteList*>(Value)) SetSpriteList(list);
}

JEX_IMPLEMENT_CLASS(TjexSpriteList, rtl::TComponent, "jexspr") {}

TjexSpriteList::TjexSpriteList(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}

TjexSpriteList::~TjexSpriteList() {
    Clear();
}

TjexSprite* TjexSpriteList::Sprites(int Index) const {
    if (Index < 0 || Index >= Count()) throw rtl::EListError(rtl::Format(rtl::SListIndexError, {Index}));
    return FSprites[Index];
}

int TjexSpriteList::IndexOf(const TjexSprite* Sprite) const {
    auto it = std::find(FSprites.begin(), FSprites.end(), Sprite);
    return it == FSprites.end() ? -1 : static_cast<int>(it - FSprites.begin());
}

void TjexSpriteList::Add(TjexSprite* Sprite) {
    if (!Sprite || Sprite->FSpriteList == this) return;
    if (Sprite->FSpriteList) Sprite->FSpriteList->Remove(Sprite);
    FSprites.push_back(Sprite);
    Sprite->FSpriteList = this;
}

void TjexSpriteList::Remove(TjexSprite* Sprite) {
    auto it = std::find(FSprites.begin(), FSprites.end(), Sprite);
    if (it == FSprites.end()) return;
    FSprites.erase(it);
    Sprite->FSpriteList = nullptr;
}

void TjexSpriteList::Clear() {
    for (TjexSprite* s : FSprites)
        s->FSpriteList = nullptr;
    FSprites.clear();
}

bool TjexSpriteList::Sorted() const {
    return std::is_sorted(FSprites.begin(), FSprites.end(),
                          [](const TjexSprite* a, const TjexSprite* b) { return a->Depth() < b->Depth(); });
}

void TjexSpriteList::SetSorted(bool Value) {
    if (!Value) return;
    std::stable_sort(FSprites.begin(), FSprites.end(),
                     [](const TjexSprite* a, const TjexSprite* b) { return a->Depth() < b->Depth(); });
}

void TjexSpriteList::Draw(TCanvas* Canvas, int OffsetX, int OffsetY) const {
    // The deepest first, so that the front ones cover them; among equal depths the later ones are behind.
    std::vector<TjexSprite*> order = FSprites;
    std::stable_sort(order.begin(), order.end(),
                     [](const TjexSprite* a, const TjexSprite* b) { return a->Depth() < b->Depth(); });
    for (auto it = order.rbegin(); it != order.rend(); ++it)
        if ((*it)->Visible()) (*it)->Draw(Canvas, OffsetX, OffsetY);
}

TjexSprite* TjexSpriteList::SpriteAt(int X, int Y) const {
    std::vector<TjexSprite*> order = FSprites;
    std::stable_sort(order.begin(), order.end(),
                     [](const TjexSprite* a, const TjexSprite* b) { return a->Depth() < b->Depth(); });
    for (TjexSprite* s : order)
        if (s->Visible() && s->HitTest(X, Y)) return s;
    return nullptr;
}

bool TjexSpriteList::Tick() {
    bool changed = false;
    for (TjexSprite* s : std::vector<TjexSprite*>(FSprites))
        changed = s->Tick() || changed;
    return changed;
}

void TjexSpriteList::GetChildren(const rtl::TGetChildProc& Proc, rtl::TComponent* Root) {
    for (TjexSprite* s : FSprites)
        if (s->Owner() == Root) Proc(s);
}

void TjexSpriteList::SetChildOrder(rtl::TComponent* Child, int Order) {
    auto it = std::find(FSprites.begin(), FSprites.end(), Child);
    if (it == FSprites.end()) return;
    TjexSprite* s = *it;
    FSprites.erase(it);
    Order = std::clamp(Order, 0, Count());
    FSprites.insert(FSprites.begin() + Order, s);
}

JEX_IMPLEMENT_CLASS(TjexSpriteSurface, TCustomControl, "jexspr") {
    pub::Align(d);
    pub::Anchors(d);
    pub::Color(d, clBlack);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::ParentColor(d, false);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("SpriteList", &TjexSpriteSurface::SpriteList, &TjexSpriteSurface::SetSpriteList);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnMouse(d);
    pub::OnResize(d);
}

TjexSpriteSurface::TjexSpriteSurface(rtl::TComponent* AOwner) : TCustomControl(AOwner) {
    FColor = clBlack;
    FWidth = 200;
    FHeight = 150;
}

void TjexSpriteSurface::SetSpriteList(TjexSpriteList* Value) {
    pubx::SetReference(this, FSpriteList, Value);
}

void TjexSpriteSurface::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TCustomControl::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FSpriteList) FSpriteList = nullptr;
}

void TjexSpriteSurface::Render(TBitmap* Target) const {
    Target->SetSize(FWidth, FHeight);
    TCanvas* c = Target->Canvas();
    c->Brush()->SetStyle(bsSolid);
    c->Brush()->SetColor(static_cast<TColor>(ColorToRGB(FColor)));
    c->FillRect(Rect(0, 0, FWidth, FHeight));
    if (FSpriteList) FSpriteList->Draw(c);
}

bool TjexSpriteSurface::Animate() {
    return FSpriteList && FSpriteList->Tick();
}

void TjexSpriteSurface::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    TCustomControl::MouseDown(Button, Shift, X, Y);
    if (Button != mbLeft || !FSpriteList) return;
    if (TjexSprite* s = FSpriteList->SpriteAt(X, Y)) s->Click();
}

// ---- Sprite kinds --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexBitmapSprite, TjexSprite, "jexspr") {
    d.Property("Bitmap", &TjexBitmapSprite::Bitmap, &TjexBitmapSprite::SetBitmap);
    PublishSprite(d);
    d.Property("Transparent", &TjexBitmapSprite::Transparent, &TjexBitmapSprite::SetTransparent)
        .Default(true);
}

TjexBitmapSprite::TjexBitmapSprite(rtl::TComponent* AOwner)
    : TjexSprite(AOwner), FBitmap(std::make_unique<TBitmap>()) {}

TjexBitmapSprite::~TjexBitmapSprite() = default;

void TjexBitmapSprite::SetBitmap(TBitmap* Value) {
    FBitmap->Assign(Value);
    // A form file gives the size itself (it may differ from the bitmap's).
    if (!IsLoading() && !FBitmap->Empty()) {
        SetWidth(FBitmap->Width());
        SetHeight(FBitmap->Height());
    }
}

void TjexBitmapSprite::Draw(TCanvas* Canvas, int OffsetX, int OffsetY) const {
    if (FBitmap->Empty()) return;
    TBitmap copy;
    copy.Assign(FBitmap.get());
    copy.SetTransparent(FTransparent);
    TRect r = Bounds(Left() + OffsetX, Top() + OffsetY, Width(), Height());
    if (r.Width() == copy.Width() && r.Height() == copy.Height())
        Canvas->Draw(r.Left, r.Top, &copy);
    else
        Canvas->StretchDraw(r, &copy);
}

bool TjexBitmapSprite::HitTest(int X, int Y) const {
    if (!TjexSprite::HitTest(X, Y)) return false;
    if (!FTransparent || FBitmap->Empty() || Width() == 0 || Height() == 0) return true;
    int bx = (X - Left()) * FBitmap->Width() / Width(), by = (Y - Top()) * FBitmap->Height() / Height();
    return FBitmap->PixelRGB(bx, by) != ColorToRGB(FBitmap->TransparentColor());
}

JEX_IMPLEMENT_CLASS(TjexPictureSprite, TjexSprite, "jexspr") {
    d.Property("Picture", &TjexPictureSprite::Picture, &TjexPictureSprite::SetPicture);
    PublishSprite(d);
    d.Property("Stretch", &TjexPictureSprite::Stretch, &TjexPictureSprite::SetStretch).Default(false);
}

TjexPictureSprite::TjexPictureSprite(rtl::TComponent* AOwner)
    : TjexSprite(AOwner), FPicture(std::make_unique<TPicture>()) {}

TjexPictureSprite::~TjexPictureSprite() = default;

void TjexPictureSprite::Draw(TCanvas* Canvas, int OffsetX, int OffsetY) const {
    TGraphic* g = FPicture->Graphic();
    if (!g || g->Empty()) return;
    if (FStretch)
        Canvas->StretchDraw(Bounds(Left() + OffsetX, Top() + OffsetY, Width(), Height()), g);
    else
        Canvas->Draw(Left() + OffsetX, Top() + OffsetY, g);
}

JEX_IMPLEMENT_CLASS(TjexImageListSprite, TjexSprite, "jexspr") {
    d.Property("ImageIndex", &TjexImageListSprite::ImageIndex, &TjexImageListSprite::SetImageIndex,
               TypeInfo_TImageIndex())
        .Default(-1);
    d.Property("Images", &TjexImageListSprite::Images, &TjexImageListSprite::SetImages);
    PublishSprite(d);
}

void TjexImageListSprite::SetImages(TCustomImageList* Value) {
    pubx::SetReference(this, FImages, Value);
}

void TjexImageListSprite::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TjexSprite::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FImages) FImages = nullptr;
}

void TjexImageListSprite::Draw(TCanvas* Canvas, int OffsetX, int OffsetY) const {
    if (FImages) FImages->Draw(Canvas, Left() + OffsetX, Top() + OffsetY, FImageIndex, true);
}

JEX_IMPLEMENT_CLASS(TjexEffectSprite, TjexSprite, "jexspr") {
    d.Property("Effect", &TjexEffectSprite::Effect, &TjexEffectSprite::SetEffect).Default(jteNone);
    d.Property("EffectSelection", &TjexEffectSprite::EffectSelection, &TjexEffectSprite::SetEffectSelection)
        .Stored(false);
    d.Property("EffectSelIndex", &TjexEffectSprite::EffectSelIndex, &TjexEffectSprite::SetEffectSelIndex)
        .Default(0);
    d.Property("EffectSize", &TjexEffectSprite::EffectSize, &TjexEffectSprite::SetEffectSize).Default(8);
    d.Property("EffectSpeed", &TjexEffectSprite::EffectSpeed, &TjexEffectSprite::SetEffectSpeed).Default(6);
    d.Property("Picture", &TjexEffectSprite::Picture, &TjexEffectSprite::SetPicture);
    PublishSprite(d);
}

TjexEffectSprite::TjexEffectSprite(rtl::TComponent* AOwner)
    : TjexSprite(AOwner), FFrom(std::make_unique<TBitmap>()), FTo(std::make_unique<TBitmap>()),
      FPicture(std::make_unique<TPicture>()) {
    FPicture->OnChange = [this](rtl::TObject*) { PictureChanged(); };
}

TjexEffectSprite::~TjexEffectSprite() {
    FPicture->OnChange = nullptr;
}

void TjexEffectSprite::RenderPicture(TBitmap* Target) const {
    Target->SetSize(Width(), Height());
    jexDrawPictureSized(Target, FPicture->Graphic(), jpsStretch, clBlack);
}

void TjexEffectSprite::PictureChanged() {
    if (IsLoading()) return;
    // The picture shown so far is where the transition starts (black before the first one).
    if (FTo->Empty()) {
        FFrom->SetSize(Width(), Height());
        FFrom->Canvas()->Brush()->SetColor(clBlack);
        FFrom->Canvas()->FillRect(Rect(0, 0, Width(), Height()));
    } else {
        FFrom->Assign(FTo.get());
    }
    RenderPicture(FTo.get());
    FRunning = FTransition->NextEffect();
    FStep = FRunning == jteNone ? EffectSteps() : 0;
}

bool TjexEffectSprite::Tick() {
    if (FStep >= EffectSteps()) return false;
    ++FStep;
    return true;
}

void TjexEffectSprite::Draw(TCanvas* Canvas, int OffsetX, int OffsetY) const {
    if (FTo->Empty() || FTo->Width() != Width() || FTo->Height() != Height())
        const_cast<TjexEffectSprite*>(this)->RenderPicture(FTo.get());
    TBitmap frame;
    if (FStep >= EffectSteps() || FFrom->Empty())
        frame.Assign(FTo.get());
    else
        FTransition->Render(FRunning, FFrom.get(), FTo.get(), FStep, EffectSteps(), &frame);
    Canvas->Draw(Left() + OffsetX, Top() + OffsetY, &frame);
}

void TjexEffectSprite::DefineProperties(rtl::TFiler& Filer) {
    TjexSprite::DefineProperties(Filer);
    FTransition->DefineProperties(Filer);
}

JEX_IMPLEMENT_CLASS(TjexRichEffectSprite, TjexEffectSprite, "jexspr") {
    d.Property("Font", &TjexRichEffectSprite::Font, &TjexRichEffectSprite::SetFont);
    d.Property("RichText", &TjexRichEffectSprite::RichText, &TjexRichEffectSprite::SetRichText);
}

TjexRichEffectSprite::TjexRichEffectSprite(rtl::TComponent* AOwner)
    : TjexEffectSprite(AOwner), FRichText(std::make_unique<TjexRichText>()),
      FFont(std::make_unique<TFont>()) {
    FRichText->OnChange = [this](rtl::TObject*) { PictureChanged(); };
}

TjexRichEffectSprite::~TjexRichEffectSprite() {
    FRichText->OnChange = nullptr;
}

void TjexRichEffectSprite::RenderPicture(TBitmap* Target) const {
    TjexEffectSprite::RenderPicture(Target);
    std::string text = FRichText->PlainText();
    if (text.empty()) return;
    Target->Canvas()->Font()->Assign(FFont.get());
    jexDrawTextLines(Target->Canvas(), 2, 2, text);
}

JEX_IMPLEMENT_CLASS(TjexInputSprite, TjexSprite, "jexspr") {
    d.Property("Color", &TjexInputSprite::Color, &TjexInputSprite::SetColor, TypeInfo_TColor())
        .Default(clWindow);
    d.Property("Font", &TjexInputSprite::Font, &TjexInputSprite::SetFont);
    d.Property("MaxLength", &TjexInputSprite::MaxLength, &TjexInputSprite::SetMaxLength).Default(0);
    d.Property("Text", &TjexInputSprite::Text, &TjexInputSprite::SetText);
    PublishSprite(d);
    d.Event("OnChange", &TjexInputSprite::OnChange);
}

TjexInputSprite::TjexInputSprite(rtl::TComponent* AOwner)
    : TjexSprite(AOwner), FFont(std::make_unique<TFont>()) {
    SetBounds(0, 0, 100, 20);
}

TjexInputSprite::~TjexInputSprite() = default;

void TjexInputSprite::SetText(const std::string& Value) {
    if (Value == FText) return;
    FText = Value;
    if (!IsLoading()) OnChange(this);
}

void TjexInputSprite::KeyPress(char Key) {
    if (Key == VK_BACK) {
        if (!FText.empty()) SetText(FText.substr(0, FText.size() - 1));
        return;
    }
    if (static_cast<unsigned char>(Key) < 32) return;
    if (FMaxLength > 0 && static_cast<int>(FText.size()) >= FMaxLength) return;
    SetText(FText + Key);
}

void TjexInputSprite::Draw(TCanvas* Canvas, int OffsetX, int OffsetY) const {
    TRect r = Bounds(Left() + OffsetX, Top() + OffsetY, Width(), Height());
    Canvas->Brush()->SetStyle(bsSolid);
    Canvas->Brush()->SetColor(static_cast<TColor>(ColorToRGB(FColor)));
    Canvas->Font()->Assign(FFont.get());
    Canvas->TextRect(r, r.Left + 2, r.Top + (r.Height() - Canvas->TextHeight("Xg")) / 2, FText);
}

JEX_IMPLEMENT_CLASS(TjexShapeSprite, TjexSprite, "jexspr") {
    d.Property("Brush", &TjexShapeSprite::Brush, &TjexShapeSprite::SetBrush);
    d.Property("Pen", &TjexShapeSprite::Pen, &TjexShapeSprite::SetPen);
    d.Property("Shape", &TjexShapeSprite::Shape, &TjexShapeSprite::SetShape).Default(jstRectangle);
    PublishSprite(d);
}

TjexShapeSprite::TjexShapeSprite(rtl::TComponent* AOwner)
    : TjexSprite(AOwner), FBrush(std::make_unique<TBrush>()), FPen(std::make_unique<TPen>()) {}

TjexShapeSprite::~TjexShapeSprite() = default;

TRect TjexShapeSprite::ShapeRect() const {
    TRect r = BoundsRect();
    if (FShape == jstSquare || FShape == jstRoundSquare || FShape == jstCircle) {
        int side = std::min(Width(), Height());
        r = Bounds(Left() + (Width() - side) / 2, Top() + (Height() - side) / 2, side, side);
    }
    return r;
}

void TjexShapeSprite::Draw(TCanvas* Canvas, int OffsetX, int OffsetY) const {
    TRect r = ShapeRect();
    r = Rect(r.Left + OffsetX, r.Top + OffsetY, r.Right + OffsetX, r.Bottom + OffsetY);
    Canvas->Brush()->Assign(FBrush.get());
    Canvas->Pen()->Assign(FPen.get());
    if (FShape == jstEllipse || FShape == jstCircle)
        Canvas->Ellipse(r.Left, r.Top, r.Right, r.Bottom);
    else
        Canvas->Rectangle(r);
}

bool TjexShapeSprite::HitTest(int X, int Y) const {
    TRect r = ShapeRect();
    if (X < r.Left || X >= r.Right || Y < r.Top || Y >= r.Bottom) return false;
    if (FShape != jstEllipse && FShape != jstCircle) return true;
    double rx = r.Width() / 2.0, ry = r.Height() / 2.0;
    double dx = (X + 0.5 - r.Left - rx) / rx, dy = (Y + 0.5 - r.Top - ry) / ry;
    return dx * dx + dy * dy <= 1.0;
}

template <class C> static void PublishText(rtl::TClassDecl<C>& d) {
    d.Property("Font", &C::Font, &C::SetFont);
    d.Property("Text", &C::Text, &C::SetText);
}

JEX_IMPLEMENT_CLASS(TjexTextSprite, TjexSprite, "jexspr") {
    PublishText(d);
    d.Property("ScrollDirection", &TjexTextSprite::ScrollDirection, &TjexTextSprite::SetScrollDirection)
        .Default(jsdLeft);
    d.Property("ScrollStep", &TjexTextSprite::ScrollStep, &TjexTextSprite::SetScrollStep).Default(2);
    PublishSprite(d);
}

TjexTextSprite::TjexTextSprite(rtl::TComponent* AOwner)
    : TjexSprite(AOwner), FFont(std::make_unique<TFont>()) {
    SetBounds(0, 0, 120, 20);
}

TjexTextSprite::~TjexTextSprite() = default;

TSize TjexTextSprite::TextSize() const {
    TCanvas measure;
    measure.Font()->Assign(FFont.get());
    return measure.TextExtent(FText);
}

TPoint TjexTextSprite::TextOffset() const {
    TSize t = TextSize();
    bool horz = FDirection == jsdLeft || FDirection == jsdRight;
    // One round: the text enters at one edge and has fully left at the other.
    int length = horz ? Width() + t.cx : Height() + t.cy;
    int p = length > 0 ? FPosition % length : 0;
    switch (FDirection) {
    case jsdLeft:
        return Point(Width() - p, (Height() - t.cy) / 2);
    case jsdRight:
        return Point(p - t.cx, (Height() - t.cy) / 2);
    case jsdUp:
        return Point((Width() - t.cx) / 2, Height() - p);
    case jsdDown:
        return Point((Width() - t.cx) / 2, p - t.cy);
    }
    return {};
}

bool TjexTextSprite::Tick() {
    if (FScrollStep == 0 || FText.empty()) return false;
    FPosition += FScrollStep;
    return true;
}

void TjexTextSprite::Draw(TCanvas* Canvas, int OffsetX, int OffsetY) const {
    TRect r = Bounds(Left() + OffsetX, Top() + OffsetY, Width(), Height());
    TPoint o = TextOffset();
    Canvas->Font()->Assign(FFont.get());
    Canvas->Brush()->SetStyle(bsClear);
    // Drawn through a bitmap of the sprite's size, so that the text never leaves the sprite.
    TBitmap clip;
    clip.SetSize(r.Width(), r.Height());
    clip.Canvas()->CopyRect(Rect(0, 0, r.Width(), r.Height()), Canvas, r);
    clip.Canvas()->Font()->Assign(FFont.get());
    clip.Canvas()->Brush()->SetStyle(bsClear);
    clip.Canvas()->TextOut(o.X, o.Y, FText);
    Canvas->Draw(r.Left, r.Top, &clip);
}

JEX_IMPLEMENT_CLASS(TjexRotateTextSprite, TjexSprite, "jexspr") {
    d.Property("Angle", &TjexRotateTextSprite::Angle, &TjexRotateTextSprite::SetAngle).Default(0);
    d.Property("AngleStep", &TjexRotateTextSprite::AngleStep, &TjexRotateTextSprite::SetAngleStep)
        .Default(10);
    PublishText(d);
    PublishSprite(d);
}

TjexRotateTextSprite::TjexRotateTextSprite(rtl::TComponent* AOwner)
    : TjexSprite(AOwner), FFont(std::make_unique<TFont>()) {
    SetBounds(0, 0, 80, 80);
}

TjexRotateTextSprite::~TjexRotateTextSprite() = default;

void TjexRotateTextSprite::SetAngle(int Value) {
    FAngle = ((Value % 360) + 360) % 360;
}

bool TjexRotateTextSprite::Tick() {
    if (FAngleStep % 360 == 0) return false;
    SetAngle(FAngle + FAngleStep);
    return true;
}

void TjexRotateTextSprite::Draw(TCanvas* Canvas, int OffsetX, int OffsetY) const {
    if (FText.empty()) return;
    // The text is drawn upright in black on white, then every text pixel is turned onto the canvas in the
    // font's colour.
    TBitmap upright;
    upright.Canvas()->Font()->Assign(FFont.get());
    TSize t = upright.Canvas()->TextExtent(FText);
    upright.SetSize(std::max(1, t.cx), std::max(1, t.cy));
    upright.Canvas()->Brush()->SetColor(clWhite);
    upright.Canvas()->FillRect(Rect(0, 0, upright.Width(), upright.Height()));
    upright.Canvas()->Font()->SetColor(clBlack);
    upright.Canvas()->TextOut(0, 0, FText);
    double a = FAngle * 3.14159265358979 / 180, ca = std::cos(a), sa = std::sin(a);
    double cx = Left() + OffsetX + Width() / 2.0, cy = Top() + OffsetY + Height() / 2.0;
    double ux = upright.Width() / 2.0, uy = upright.Height() / 2.0;
    TColor color = static_cast<TColor>(ColorToRGB(FFont->Color()));
    // Each target pixel within the sprite looks back into the upright text (so there are no holes).
    for (int y = Top() + OffsetY; y < Top() + OffsetY + Height(); ++y)
        for (int x = Left() + OffsetX; x < Left() + OffsetX + Width(); ++x) {
            double dx = x + 0.5 - cx, dy = y + 0.5 - cy;
            // Counter-clockwise on screen (y grows downwards).
            int sx = static_cast<int>(std::floor(ca * dx - sa * dy + ux));
            int sy = static_cast<int>(std::floor(sa * dx + ca * dy + uy));
            if (sx < 0 || sy < 0 || sx >= upright.Width() || sy >= upright.Height()) continue;
            if ((upright.PixelRGB(sx, sy) & 0xFF) < 128) Canvas->SetPixel(x, y, color);
        }
}

// ---- Factory and mover -----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexBitmapSpriteFactory, rtl::TComponent, "jexspr") {
    d.Property("Bitmap", &TjexBitmapSpriteFactory::Bitmap, &TjexBitmapSpriteFactory::SetBitmap);
    d.Property("FrameHeight", &TjexBitmapSpriteFactory::FrameHeight, &TjexBitmapSpriteFactory::SetFrameHeight)
        .Default(32);
    d.Property("FrameWidth", &TjexBitmapSpriteFactory::FrameWidth, &TjexBitmapSpriteFactory::SetFrameWidth)
        .Default(32);
    d.Property("SpriteList", &TjexBitmapSpriteFactory::SpriteList, &TjexBitmapSpriteFactory::SetSpriteList);
}

TjexBitmapSpriteFactory::TjexBitmapSpriteFactory(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FBitmap(std::make_unique<TBitmap>()) {}

TjexBitmapSpriteFactory::~TjexBitmapSpriteFactory() = default;

void TjexBitmapSpriteFactory::SetSpriteList(TjexSpriteList* Value) {
    pubx::SetReference(this, FSpriteList, Value);
}

void TjexBitmapSpriteFactory::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    rtl::TComponent::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FSpriteList) FSpriteList = nullptr;
}

int TjexBitmapSpriteFactory::FrameCount() const {
    return (FBitmap->Width() / FFrameWidth) * (FBitmap->Height() / FFrameHeight);
}

void TjexBitmapSpriteFactory::CutFrame(int Index, TBitmap* Target) const {
    if (Index < 0 || Index >= FrameCount()) throw rtl::EListError(rtl::Format(rtl::SListIndexError, {Index}));
    int cols = FBitmap->Width() / FFrameWidth;
    int x = (Index % cols) * FFrameWidth, y = (Index / cols) * FFrameHeight;
    Target->SetSize(FFrameWidth, FFrameHeight);
    for (int r = 0; r < FFrameHeight; ++r)
        for (int c = 0; c < FFrameWidth; ++c)
            Target->SetPixelRGB(c, r, FBitmap->PixelRGB(x + c, y + r));
}

TjexBitmapSprite* TjexBitmapSpriteFactory::CreateSprite(int Index, int Left, int Top) {
    TBitmap frame;
    CutFrame(Index, &frame);
    auto* sprite = new TjexBitmapSprite(Owner());
    sprite->SetBitmap(&frame);
    sprite->MoveTo(Left, Top);
    if (FSpriteList) FSpriteList->Add(sprite);
    return sprite;
}

JEX_IMPLEMENT_CLASS(TjexSpriteMover, rtl::TComponent, "jexspr") {
    d.Property("Loop", &TjexSpriteMover::Loop, &TjexSpriteMover::SetLoop).Default(true);
    d.Property("Points", &TjexSpriteMover::Points, &TjexSpriteMover::SetPoints).Stored(false);
    d.Property("Position", &TjexSpriteMover::Position, &TjexSpriteMover::SetPosition).Default(-1);
    d.Property("Sprite", &TjexSpriteMover::Sprite, &TjexSpriteMover::SetSprite);
}

TjexSpriteMover::TjexSpriteMover(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FPoints(std::make_unique<TjexPointList>()) {}

TjexSpriteMover::~TjexSpriteMover() = default;

void TjexSpriteMover::SetSprite(TjexSprite* Value) {
    pubx::SetReference(this, FSprite, Value);
}

void TjexSpriteMover::SetPoints(TjexPointList* Value) {
    if (Value) FPoints->Assign(*Value);
}

void TjexSpriteMover::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    rtl::TComponent::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FSprite) FSprite = nullptr;
}

bool TjexSpriteMover::Tick() {
    int n = FPoints->Count();
    if (!FSprite || n == 0) return false;
    int next = FPosition + 1;
    if (next >= n) {
        if (!FLoop) return false;
        next = 0;
    }
    FPosition = next;
    TPoint p = *FPoints->Points(next);
    FSprite->MoveTo(p.X, p.Y);
    return true;
}

void TjexSpriteMover::DefineProperties(rtl::TFiler& Filer) {
    rtl::TComponent::DefineProperties(Filer);
    // The points as a list of "X , Y" strings, the text file's lines.
    Filer.DefineProperty(
        "PointData",
        [this](rtl::TReader& r) {
            TjexPointList read;
            r.ReadListBegin();
            while (!r.EndOfList()) {
                std::string line = r.ReadString();
                TPoint p;
                if (!TjexPointList::ParsePoint(line, p))
                    throw rtl::EReadError("'" + line + "' is not a point");
                read.AddPoint(p);
            }
            r.ReadListEnd();
            FPoints->Assign(read);
        },
        [this](rtl::TWriter& w) {
            w.WriteListBegin();
            for (int i = 0; i < FPoints->Count(); ++i)
                w.WriteString(TjexPointList::FormatPoint(*FPoints->Points(i)));
            w.WriteListEnd();
        },
        FPoints->Count() > 0);
}

static const TjexLibraryUnit<TjexSpriteSurface, TjexSpriteList, TjexBitmapSpriteFactory, TjexBitmapSprite,
                             TjexPictureSprite, TjexImageListSprite, TjexEffectSprite, TjexRichEffectSprite,
                             TjexInputSprite, TjexShapeSprite, TjexTextSprite, TjexRotateTextSprite,
                             TjexSpriteMover>
    jexsprUnit("jexspr");

} // namespace jex
