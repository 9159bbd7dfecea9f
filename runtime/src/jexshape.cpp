// Lines, shapes and frames, shaped forms, backgrounds and the transparent image.
#include "jex/jexshape.h"

#include <algorithm>
#include <cmath>

#include "jexpanelpub.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexArrows)
JEX_DEFINE_ENUM(TjexArrowStyle)
JEX_DEFINE_ENUM(TjexDirection)
JEX_DEFINE_ENUM(TjexShapeType)
JEX_DEFINE_ENUM(TjexDrawDirection)
JEX_DEFINE_ENUM(TjexImageStyle)
JEX_DEFINE_ENUM(TjexPicAlign)
JEX_DEFINE_ENUM(TjexPicDrawStyle)

const rtl::TTypeInfo* TypeInfo_TjexArrowSize() {
    static const rtl::TTypeInfo ti =
        rtl::TTypeInfo::MakeOrdinal("TjexArrowSize", rtl::tkInteger, rtl::otUByte, 2, 50);
    return &ti;
}

namespace {
// A copy of a graphic as a bitmap, for pixel work.
std::unique_ptr<TBitmap> AsBitmap(TGraphic* g) {
    auto bmp = std::make_unique<TBitmap>();
    if (!g || g->Empty()) return bmp;
    if (auto* b = dynamic_cast<TBitmap*>(g)) {
        bmp->Assign(b);
        return bmp;
    }
    bmp->SetSize(g->Width(), g->Height());
    bmp->Canvas()->Draw(0, 0, g);
    return bmp;
}
} // namespace

// ---- Lines ----------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomLine, TGraphicControl, "jexshape") {}

JEX_IMPLEMENT_CLASS(TjexLine, TjexCustomLine, "jexshape") {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("Arrows", &TjexLine::Arrows, &TjexLine::SetArrows).Default(arNone);
    d.Property("ArrowSize", &TjexLine::ArrowSize, &TjexLine::SetArrowSize, TypeInfo_TjexArrowSize())
        .Default(10);
    d.Property("ArrowStyle", &TjexLine::ArrowStyle, &TjexLine::SetArrowStyle).Default(ahSolid);
    d.Property("ClipMouse", &TjexLine::ClipMouse, &TjexLine::SetClipMouse).Default(false);
    pub::Color(d, clBlack);
    d.Property("Direction", &TjexLine::Direction, &TjexLine::SetDirection).Default(diHorizontal);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("LineStyle", &TjexLine::LineStyle, &TjexLine::SetLineStyle).Default(psSolid);
    d.Property("LineWidth", &TjexLine::LineWidth, &TjexLine::SetLineWidth).Default(1);
    pub::ParentColor(d, false);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnMouse(d);
}

TjexCustomLine::TjexCustomLine(rtl::TComponent* AOwner) : TGraphicControl(AOwner) {
    FColor = clBlack;
    FWidth = 100;
    FHeight = 20;
}

void TjexCustomLine::SetArrowSize(int Value) {
    FArrowSize = std::clamp(Value, 2, 50);
}

void TjexCustomLine::SetLineWidth(int Value) {
    FLineWidth = std::max(1, Value);
}

TPoint TjexCustomLine::StartPoint() const {
    switch (FDirection) {
    case diVertical:
        return Point(FWidth / 2, 0);
    case diToptoBottom:
        return Point(0, 0);
    case diBottomtoTop:
        return Point(0, std::max(0, FHeight - 1));
    default:
        return Point(0, FHeight / 2);
    }
}

TPoint TjexCustomLine::EndPoint() const {
    int r = std::max(0, FWidth - 1), b = std::max(0, FHeight - 1);
    switch (FDirection) {
    case diVertical:
        return Point(FWidth / 2, b);
    case diToptoBottom:
        return Point(r, b);
    case diBottomtoTop:
        return Point(r, 0);
    default:
        return Point(r, FHeight / 2);
    }
}

void TjexCustomLine::PaintHead(TCanvas* Canvas, TPoint Tip, TPoint From) const {
    double dx = Tip.X - From.X, dy = Tip.Y - From.Y;
    double len = std::hypot(dx, dy);
    if (len == 0) return;
    double ux = dx / len, uy = dy / len, nx = -uy, ny = ux, s = FArrowSize;
    auto at = [&](double along, double across) {
        return Point(static_cast<int>(std::lround(Tip.X + ux * along + nx * across)),
                     static_cast<int>(std::lround(Tip.Y + uy * along + ny * across)));
    };
    Canvas->Pen()->SetStyle(psSolid);
    switch (FArrowStyle) {
    case ahLine:
        Canvas->Polyline({at(-s, s / 2), Tip, at(-s, -s / 2)});
        break;
    case ahBox:
        Canvas->Polygon({at(s / 2, s / 2), at(s / 2, -s / 2), at(-s / 2, -s / 2), at(-s / 2, s / 2)});
        break;
    case ahSolid:
        Canvas->Polygon({Tip, at(-s, s / 2), at(-s, -s / 2)});
        break;
    }
}

void TjexCustomLine::Paint(TCanvas* Canvas, int X, int Y) const {
    TColor color = static_cast<TColor>(ColorToRGB(FColor));
    TPoint a = StartPoint(), b = EndPoint();
    a = Point(a.X + X, a.Y + Y);
    b = Point(b.X + X, b.Y + Y);
    Canvas->Pen()->SetColor(color);
    Canvas->Pen()->SetWidth(FLineWidth);
    Canvas->Pen()->SetStyle(FLineStyle);
    Canvas->Brush()->SetColor(color);
    Canvas->Brush()->SetStyle(bsSolid);
    if (FLineStyle != psClear) {
        Canvas->MoveTo(a.X, a.Y);
        Canvas->LineTo(b.X, b.Y);
        Canvas->SetPixel(b.X, b.Y, color);
    }
    if (FArrows == arStart || FArrows == arBoth) PaintHead(Canvas, a, b);
    if (FArrows == arEnd || FArrows == arBoth) PaintHead(Canvas, b, a);
}

bool TjexCustomLine::HitTest(int X, int Y) const {
    TPoint a = StartPoint(), b = EndPoint();
    double dx = b.X - a.X, dy = b.Y - a.Y, len2 = dx * dx + dy * dy;
    double t = len2 > 0 ? std::clamp(((X - a.X) * dx + (Y - a.Y) * dy) / len2, 0.0, 1.0) : 0.0;
    double px = a.X + t * dx - X, py = a.Y + t * dy - Y;
    if (std::hypot(px, py) <= FLineWidth / 2.0 + 2) return true;
    auto nearTip = [&](TPoint tip) { return std::hypot(tip.X - X, tip.Y - Y) <= FArrowSize; };
    if ((FArrows == arStart || FArrows == arBoth) && nearTip(a)) return true;
    if ((FArrows == arEnd || FArrows == arBoth) && nearTip(b)) return true;
    return false;
}

void TjexCustomLine::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    FMouseIn = !FClipMouse || HitTest(X, Y);
    if (FMouseIn) TGraphicControl::MouseDown(Button, Shift, X, Y);
}

void TjexCustomLine::MouseMove(TShiftState Shift, int X, int Y) {
    if (!FClipMouse || HitTest(X, Y)) TGraphicControl::MouseMove(Shift, X, Y);
}

void TjexCustomLine::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (FMouseIn) TGraphicControl::MouseUp(Button, Shift, X, Y);
    FMouseIn = false;
}

// ---- Shapes and frames ------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomShape, TGraphicControl, "jexshape") {}

TjexCustomShape::TjexCustomShape(rtl::TComponent* AOwner) : TGraphicControl(AOwner) {
    FColor = clBtnFace;
    FWidth = 65;
    FHeight = 65;
}

void TjexCustomShape::PaintBevel(TCanvas* Canvas, const TRect& R) const {
    if (R.Width() < 2 || R.Height() < 2) return;
    int c = std::min({FCornerWidth, R.Width() / 2, R.Height() / 2});
    int l = R.Left, t = R.Top, r = R.Right - 1, b = R.Bottom - 1;
    Canvas->Pen()->SetWidth(1);
    Canvas->Pen()->SetStyle(psSolid);
    // Highlight: bottom-left corner, up the left edge, across the top to the top-right corner.
    Canvas->Pen()->SetColor(static_cast<TColor>(ColorToRGB(FColorHighlight)));
    Canvas->Polyline({Point(l, b - c), Point(l, t + c), Point(l + c, t), Point(r - c, t)});
    Canvas->Pen()->SetColor(static_cast<TColor>(ColorToRGB(FColorShadow)));
    Canvas->Polyline({Point(r - c, t), Point(r, t + c), Point(r, b - c), Point(r - c, b), Point(l + c, b),
                      Point(l, b - c)});
}

void TjexCustomShape::Paint(TCanvas* Canvas, int X, int Y) const {
    PaintBevel(Canvas, Bounds(X, Y, FWidth, FHeight));
}

template <class C> static void PublishShapeCommon(rtl::TClassDecl<C>& d) {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("ColorHighlight", &C::ColorHighlight, &C::SetColorHighlight, TypeInfo_TColor())
        .Default(clBtnHighlight);
    d.Property("ColorShadow", &C::ColorShadow, &C::SetColorShadow, TypeInfo_TColor()).Default(clBtnShadow);
    d.Property("CornerWidth", &C::CornerWidth, &C::SetCornerWidth).Default(0);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnMouse(d);
}

JEX_IMPLEMENT_CLASS(TjexFrame, TjexCustomShape, "jexshape") {
    PublishShapeCommon(d);
}

JEX_IMPLEMENT_CLASS(TjexShape, TjexCustomShape, "jexshape") {
    PublishShapeCommon(d);
    d.Property("AlignVertical", &TjexShape::AlignVertical, &TjexShape::SetAlignVertical).Default(javCenter);
    pub::Caption(d);
    pub::Color(d, clBtnFace);
    pub::Font(d);
    pub::ParentColor(d, true);
    pub::ParentFont(d);
    d.Property("Shape", &TjexShape::Shape, &TjexShape::SetShape).Default(jstRectangle);
}

TjexShape::TjexShape(rtl::TComponent* AOwner) : TjexCustomShape(AOwner) {
    FParentColor = true;
}

TRect TjexShape::ShapeRect() const {
    TRect r = Rect(0, 0, FWidth, FHeight);
    if (FShape == jstSquare || FShape == jstRoundSquare || FShape == jstCircle) {
        int side = std::min(FWidth, FHeight);
        r = Bounds((FWidth - side) / 2, (FHeight - side) / 2, side, side);
    }
    return r;
}

void TjexShape::Paint(TCanvas* Canvas, int X, int Y) const {
    TRect r = ShapeRect();
    r = Rect(r.Left + X, r.Top + Y, r.Right + X, r.Bottom + Y);
    Canvas->Brush()->SetStyle(bsSolid);
    Canvas->Brush()->SetColor(static_cast<TColor>(ColorToRGB(FColor)));
    if (FShape == jstEllipse || FShape == jstCircle) {
        Canvas->Pen()->SetColor(static_cast<TColor>(ColorToRGB(ColorShadow())));
        Canvas->Ellipse(r.Left, r.Top, r.Right, r.Bottom);
        // Light falls from the top left: the upper-left arc in the highlight colour.
        Canvas->Pen()->SetColor(static_cast<TColor>(ColorToRGB(ColorHighlight())));
        double cx = (r.Left + r.Right - 1) / 2.0, cy = (r.Top + r.Bottom - 1) / 2.0;
        double rx = (r.Width() - 1) / 2.0, ry = (r.Height() - 1) / 2.0;
        std::vector<TPoint> arc;
        for (int deg = 135; deg <= 315; deg += 5) {
            double a = deg * 3.14159265358979 / 180;
            arc.push_back(Point(static_cast<int>(std::lround(cx + rx * std::cos(a))),
                                static_cast<int>(std::lround(cy - ry * std::sin(a)))));
        }
        Canvas->Polyline(arc);
    } else {
        Canvas->FillRect(r);
        PaintBevel(Canvas, r);
    }
    std::string text = Caption();
    if (text.empty()) return;
    Canvas->Font()->Assign(Font());
    Canvas->Brush()->SetStyle(bsClear);
    int tw = Canvas->TextWidth(text), th = Canvas->TextHeight(text);
    int ty = FAlignVertical == javTop      ? r.Top + 2
             : FAlignVertical == javBottom ? r.Bottom - th - 2
                                           : r.Top + (r.Height() - th) / 2;
    Canvas->TextRect(r, r.Left + (r.Width() - tw) / 2, ty, text);
}

// ---- Shaped forms -----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexShapeForm, rtl::TComponent, "jexshape") {
    d.Property("DragAnywhere", &TjexShapeForm::DragAnywhere, &TjexShapeForm::SetDragAnywhere).Default(false);
    d.Property("DragControl", &TjexShapeForm::DragControl, &TjexShapeForm::SetDragControl);
    d.Property("Picture", &TjexShapeForm::Picture, &TjexShapeForm::SetPicture);
    d.Property("Tolerance", &TjexShapeForm::Tolerance, &TjexShapeForm::SetTolerance).Default(0);
}

TjexShapeForm::TjexShapeForm(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FPicture(std::make_unique<TPicture>()), FAlive(std::make_shared<bool>(true)) {}

TjexShapeForm::~TjexShapeForm() {
    *FAlive = false;
}

void TjexShapeForm::SetDragControl(TControl* Value) {
    pubx::SetReference<TControl>(this, FDragControl, Value);
}

void TjexShapeForm::SetTolerance(int Value) {
    FTolerance = std::clamp(Value, 0, 255);
}

void TjexShapeForm::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    rtl::TComponent::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FDragControl) FDragControl = nullptr;
}

std::vector<bool> TjexShapeForm::RegionMask() const {
    std::unique_ptr<TBitmap> bmp = AsBitmap(FPicture->Graphic());
    int w = bmp->Width(), h = bmp->Height();
    std::vector<bool> mask(static_cast<size_t>(w) * h);
    if (mask.empty()) return mask;
    uint32_t key = bmp->PixelRGB(0, h - 1);
    auto channel = [](uint32_t c, int shift) { return static_cast<int>((c >> shift) & 0xFF); };
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            uint32_t c = bmp->PixelRGB(x, y);
            int diff = 0;
            for (int shift : {0, 8, 16})
                diff = std::max(diff, std::abs(channel(c, shift) - channel(key, shift)));
            mask[static_cast<size_t>(y) * w + x] = diff > FTolerance;
        }
    return mask;
}

bool TjexShapeForm::PtInRegion(int X, int Y) const {
    int w = FPicture->Width(), h = FPicture->Height();
    if (X < 0 || Y < 0 || X >= w || Y >= h) return false;
    return RegionMask()[static_cast<size_t>(Y) * w + X];
}

TCustomForm* TjexShapeForm::Form() const {
    return dynamic_cast<TCustomForm*>(Owner());
}

void TjexShapeForm::Apply() {
    TCustomForm* form = Form();
    if (!form || FPicture->Graphic() == nullptr || FPicture->Graphic()->Empty()) return;
    form->SetBorderStyle(bsNone);
    form->SetClientWidth(FPicture->Width());
    form->SetClientHeight(FPicture->Height());
}

void TjexShapeForm::BeginFormDrag(TPoint ScreenPos) {
    TCustomForm* form = Form();
    if (!form) return;
    FDragging = true;
    FDragStart = ScreenPos;
    FFormStart = Point(form->Left(), form->Top());
}

void TjexShapeForm::DragFormTo(TPoint ScreenPos) {
    TCustomForm* form = Form();
    if (!FDragging || !form) return;
    form->SetBounds(FFormStart.X + ScreenPos.X - FDragStart.X, FFormStart.Y + ScreenPos.Y - FDragStart.Y,
                    form->Width(), form->Height());
}

void TjexShapeForm::Hook() {
    std::vector<TControl*> targets;
    if (FDragAnywhere && Form()) targets.push_back(Form());
    if (FDragControl) targets.push_back(FDragControl);
    for (TControl* c : targets) {
        pubx::ChainEvent(
            c->OnMouseDown, FAlive, [this, c](rtl::TObject*, TMouseButton b, TShiftState, int x, int y) {
                // Only presses on the visible part of the form start a drag.
                if (b == mbLeft && (c != Form() || FPicture->Graphic() == nullptr || PtInRegion(x, y)))
                    BeginFormDrag(c->ClientToScreen(Point(x, y)));
            });
        pubx::ChainEvent(c->OnMouseMove, FAlive, [this, c](rtl::TObject*, TShiftState, int x, int y) {
            DragFormTo(c->ClientToScreen(Point(x, y)));
        });
        pubx::ChainEvent(c->OnMouseUp, FAlive,
                         [this](rtl::TObject*, TMouseButton, TShiftState, int, int) { EndFormDrag(); });
    }
}

void TjexShapeForm::Loaded() {
    rtl::TComponent::Loaded();
    if (IsDesigning()) return;
    // The form takes its shape when it appears, so that what was read stays as it was written until then.
    if (TCustomForm* form = Form())
        pubx::ChainEvent(form->OnShow, FAlive, [this](rtl::TObject*) { Apply(); });
    Hook();
}

// ---- Backgrounds --------------------------------------------------------------------------------------
TColor jexGradientColor(TColor From, TColor To, int Step, int Steps) {
    uint32_t a = ColorToRGB(From), b = ColorToRGB(To);
    if (Steps <= 1) return static_cast<TColor>(a);
    uint32_t result = 0;
    for (int shift : {0, 8, 16}) {
        int ca = (a >> shift) & 0xFF, cb = (b >> shift) & 0xFF;
        int c = ca + (cb - ca) * Step / (Steps - 1);
        result |= static_cast<uint32_t>(c) << shift;
    }
    return static_cast<TColor>(result);
}

void jexDrawGradient(TCanvas* Canvas, const TRect& R, TColor From, TColor To, TjexDrawDirection Direction,
                     int Steps) {
    bool vertical = Direction == jddTopToBottom || Direction == jddBottomToTop;
    bool reversed = Direction == jddBottomToTop || Direction == jddRightToLeft;
    int length = vertical ? R.Height() : R.Width();
    if (length <= 0 || R.Width() <= 0 || R.Height() <= 0) return;
    Steps = std::clamp(Steps, 1, length);
    Canvas->Brush()->SetStyle(bsSolid);
    for (int i = 0; i < Steps; ++i) {
        int a = length * i / Steps, b = length * (i + 1) / Steps;
        int band = reversed ? Steps - 1 - i : i;
        Canvas->Brush()->SetColor(jexGradientColor(From, To, band, Steps));
        Canvas->FillRect(vertical ? Rect(R.Left, R.Top + a, R.Right, R.Top + b)
                                  : Rect(R.Left + a, R.Top, R.Left + b, R.Bottom));
    }
}

void jexDrawImage(TCanvas* Canvas, const TRect& R, TGraphic* Graphic, TjexImageStyle Style) {
    if (!Graphic || Graphic->Empty() || R.Width() <= 0 || R.Height() <= 0) return;
    switch (Style) {
    case jisStretch:
        Canvas->StretchDraw(R, Graphic);
        break;
    case jisCenter:
        Canvas->Draw(R.Left + (R.Width() - Graphic->Width()) / 2,
                     R.Top + (R.Height() - Graphic->Height()) / 2, Graphic);
        break;
    case jisTile: {
        // Tiles are drawn into a bitmap of R's size, so that none spills over R's edges.
        TBitmap tiles;
        tiles.SetSize(R.Width(), R.Height());
        tiles.Canvas()->CopyRect(Rect(0, 0, R.Width(), R.Height()), Canvas, R);
        for (int y = 0; y < R.Height(); y += Graphic->Height())
            for (int x = 0; x < R.Width(); x += Graphic->Width())
                tiles.Canvas()->Draw(x, y, Graphic);
        Canvas->Draw(R.Left, R.Top, &tiles);
        break;
    }
    }
}

void TjexGradientProps::SetDrawSteps(int Value) {
    FDrawSteps = std::clamp(Value, 1, 256);
}

void TjexGradientProps::PaintGradient(TCanvas* Canvas, const TRect& R) const {
    jexDrawGradient(Canvas, R, FColorFrom, FColorTo, FDrawDirection, FDrawSteps);
}

template <class C> static void PublishGradient(rtl::TClassDecl<C>& d) {
    d.Property("ColorFrom", &C::ColorFrom, &C::SetColorFrom, TypeInfo_TColor()).Default(clBlue);
    d.Property("ColorTo", &C::ColorTo, &C::SetColorTo, TypeInfo_TColor()).Default(clBlack);
    d.Property("DrawDirection", &C::DrawDirection, &C::SetDrawDirection).Default(jddTopToBottom);
    d.Property("DrawSteps", &C::DrawSteps, &C::SetDrawSteps).Default(64);
}

JEX_IMPLEMENT_CLASS(TjexBackground, TGraphicControl, "jexshape") {
    pub::Align(d, alClient);
    PublishGradient(d);
    pub::Enabled(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnMouse(d);
}

TjexBackground::TjexBackground(rtl::TComponent* AOwner) : TGraphicControl(AOwner) {
    FWidth = 100;
    FHeight = 100;
    SetAlign(alClient);
}

void TjexBackground::Paint(TCanvas* Canvas, int X, int Y) const {
    PaintGradient(Canvas, Bounds(X, Y, FWidth, FHeight));
}

JEX_IMPLEMENT_CLASS(TjexMDIBackground, rtl::TComponent, "jexshape") {
    PublishGradient(d);
}

JEX_IMPLEMENT_CLASS(TjexTiledImage, TGraphicControl, "jexshape") {
    pub::Align(d, alClient);
    pub::Anchors(d);
    pub::Enabled(d);
    d.Property("ImageStyle", &TjexTiledImage::ImageStyle, &TjexTiledImage::SetImageStyle).Default(jisTile);
    pub::ParentShowHint(d);
    d.Property("Picture", &TjexTiledImage::Picture, &TjexTiledImage::SetPicture);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnMouse(d);
}

TjexTiledImage::TjexTiledImage(rtl::TComponent* AOwner)
    : TGraphicControl(AOwner), FPicture(std::make_unique<TPicture>()) {
    FWidth = 100;
    FHeight = 100;
    SetAlign(alClient);
}

TjexTiledImage::~TjexTiledImage() = default;

void TjexTiledImage::Paint(TCanvas* Canvas, int X, int Y) const {
    jexDrawImage(Canvas, Bounds(X, Y, FWidth, FHeight), FPicture->Graphic(), FImageStyle);
}

JEX_IMPLEMENT_CLASS(TjexMDITiledImage, rtl::TComponent, "jexshape") {
    d.Property("ImageStyle", &TjexMDITiledImage::ImageStyle, &TjexMDITiledImage::SetImageStyle)
        .Default(jisTile);
    d.Property("Picture", &TjexMDITiledImage::Picture, &TjexMDITiledImage::SetPicture);
}

TjexMDITiledImage::TjexMDITiledImage(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FPicture(std::make_unique<TPicture>()) {}

TjexMDITiledImage::~TjexMDITiledImage() = default;

void TjexMDITiledImage::Paint(TCanvas* Canvas, const TRect& R) const {
    jexDrawImage(Canvas, R, FPicture->Graphic(), FImageStyle);
}

// ---- Transparent image -----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexTransImage, TGraphicControl, "jexshape") {
    pub::Align(d);
    pub::Anchors(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::ParentShowHint(d);
    d.Property("PicAlign", &TjexTransImage::PicAlign, &TjexTransImage::SetPicAlign).Default(jpaTopLeft);
    d.Property("PicDrawStyle", &TjexTransImage::PicDrawStyle, &TjexTransImage::SetPicDrawStyle)
        .Default(jpdNormal);
    d.Property("Picture", &TjexTransImage::Picture, &TjexTransImage::SetPicture);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("Transparent", &TjexTransImage::Transparent, &TjexTransImage::SetTransparent).Default(true);
    d.Property("TransparentColor", &TjexTransImage::TransparentColor, &TjexTransImage::SetTransparentColor,
               TypeInfo_TColor())
        .Default(clDefault);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnMouse(d);
}

TjexTransImage::TjexTransImage(rtl::TComponent* AOwner)
    : TGraphicControl(AOwner), FPicture(std::make_unique<TPicture>()) {
    FWidth = 105;
    FHeight = 105;
}

TjexTransImage::~TjexTransImage() = default;

TRect TjexTransImage::PictureRect() const {
    int pw = FPicture->Width(), ph = FPicture->Height();
    switch (FPicDrawStyle) {
    case jpdStretch:
    case jpdTile:
        return Rect(0, 0, FWidth, FHeight);
    case jpdProportional:
        if (pw > 0 && ph > 0) {
            // The largest size of the picture's shape that fits.
            if (static_cast<int64_t>(FWidth) * ph <= static_cast<int64_t>(FHeight) * pw) {
                ph = static_cast<int>(static_cast<int64_t>(ph) * FWidth / pw);
                pw = FWidth;
            } else {
                pw = static_cast<int>(static_cast<int64_t>(pw) * FHeight / ph);
                ph = FHeight;
            }
        }
        break;
    default:
        break;
    }
    int col = FPicAlign % 3, row = FPicAlign / 3;
    int x = col == 0 ? 0 : col == 1 ? (FWidth - pw) / 2 : FWidth - pw;
    int y = row == 0 ? 0 : row == 1 ? (FHeight - ph) / 2 : FHeight - ph;
    return Bounds(x, y, pw, ph);
}

void TjexTransImage::Paint(TCanvas* Canvas, int X, int Y) const {
    TGraphic* g = FPicture->Graphic();
    if (!g || g->Empty()) return;
    std::unique_ptr<TBitmap> bmp = AsBitmap(g);
    if (FTransparent) {
        if (FTransparentColor != clDefault) bmp->SetTransparentColor(FTransparentColor);
        bmp->SetTransparent(true);
    }
    TRect r = PictureRect();
    r = Rect(r.Left + X, r.Top + Y, r.Right + X, r.Bottom + Y);
    if (FPicDrawStyle == jpdTile)
        jexDrawImage(Canvas, r, bmp.get(), jisTile);
    else if (r.Width() == bmp->Width() && r.Height() == bmp->Height())
        Canvas->Draw(r.Left, r.Top, bmp.get());
    else
        Canvas->StretchDraw(r, bmp.get());
}

static const TjexLibraryUnit<TjexShapeForm, TjexLine, TjexBackground, TjexMDIBackground, TjexTiledImage,
                             TjexMDITiledImage, TjexShape, TjexFrame, TjexTransImage>
    jexshapeUnit("jexshape");

} // namespace jex
