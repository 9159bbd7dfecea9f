// Transition effects and the effects images.
#include "jex/jexeffects.h"

#include <algorithm>
#include <cstdint>

#include "jexeffectspub.h"
#include "vcl/forms.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexTransitionEffect)
JEX_DEFINE_ENUM(TjexPictureSize)
JEX_DEFINE_EVENT_TYPE(TjexEffectStepEvent, "Sender: TObject; Step: Integer; Steps: Integer")

std::string jexTransitionEffectCaption(TjexTransitionEffect Effect) {
    static const char* const captions[] = {
        "None",     "Wipe Left",  "Wipe Right", "Wipe Up", "Wipe Down", "Slide Left", "Slide Right",
        "Slide Up", "Slide Down", "Center Out", "Blinds",  "Dissolve",  "Fade",       "Random"};
    return Effect >= 0 && Effect <= jteRandom ? captions[Effect] : std::string();
}

// ---- Transitions -----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexTransition, rtl::TPersistent, "jexeffects") {
    d.Property("Effect", &TjexTransition::Effect, &TjexTransition::SetEffect).Default(jteNone);
    d.Property("EffectSelection", &TjexTransition::EffectSelection, &TjexTransition::SetEffectSelection)
        .Stored(false);
    d.Property("EffectSelIndex", &TjexTransition::EffectSelIndex, &TjexTransition::SetEffectSelIndex)
        .Default(0);
    d.Property("EffectSize", &TjexTransition::EffectSize, &TjexTransition::SetEffectSize).Default(8);
}

TjexTransition::TjexTransition() : FSelection(std::make_unique<rtl::TList>()) {}

TjexTransition::~TjexTransition() = default;

void TjexTransition::Assign(rtl::TPersistent* Source) {
    if (auto* t = dynamic_cast<TjexTransition*>(Source)) {
        FEffect = t->FEffect;
        SetSelectedEffects(t->SelectedEffects());
        FSelIndex = t->FSelIndex;
        FEffectSize = t->FEffectSize;
        OnChange(this);
        return;
    }
    rtl::TPersistent::Assign(Source);
}

void TjexTransition::SetEffectSelection(rtl::TList* Value) {
    if (Value == FSelection.get()) return;
    FSelection->Clear();
    if (Value)
        for (int i = 0; i < Value->Count(); ++i)
            FSelection->Add(Value->Items(i));
}

std::vector<TjexTransitionEffect> TjexTransition::SelectedEffects() const {
    std::vector<TjexTransitionEffect> list;
    for (int i = 0; i < FSelection->Count(); ++i) {
        auto e = static_cast<int>(reinterpret_cast<intptr_t>(FSelection->Items(i)));
        if (e > jteNone && e < jteRandom) list.push_back(static_cast<TjexTransitionEffect>(e));
    }
    return list;
}

void TjexTransition::SetSelectedEffects(const std::vector<TjexTransitionEffect>& Effects) {
    FSelection->Clear();
    for (TjexTransitionEffect e : Effects)
        FSelection->Add(reinterpret_cast<void*>(static_cast<intptr_t>(e)));
}

TjexTransitionEffect TjexTransition::NextEffect() {
    if (FEffect != jteRandom) return FEffect;
    std::vector<TjexTransitionEffect> pool = SelectedEffects();
    if (pool.empty())
        for (int e = jteWipeLeft; e < jteRandom; ++e)
            pool.push_back(static_cast<TjexTransitionEffect>(e));
    TjexTransitionEffect e = pool[FSelIndex % pool.size()];
    FSelIndex = static_cast<int>((FSelIndex + 1) % pool.size());
    return e;
}

namespace {
// A fixed scatter of the blocks of a dissolve, so that the same step always shows the same blocks.
double BlockThreshold(int bx, int by) {
    uint32_t h = static_cast<uint32_t>(bx) * 73856093u ^ static_cast<uint32_t>(by) * 19349663u;
    h ^= h >> 13;
    h *= 0x5bd1e995u;
    h ^= h >> 15;
    return (h % 10007) / 10007.0;
}
} // namespace

void TjexTransition::Render(TjexTransitionEffect Effect, TBitmap* From, TBitmap* To, int Step, int Steps,
                            TBitmap* Dest) const {
    int w = To->Width(), h = To->Height();
    Dest->SetSize(w, h);
    if (w == 0 || h == 0) return;
    Steps = std::max(1, Steps);
    Step = std::clamp(Step, 0, Steps);
    double t = static_cast<double>(Step) / Steps;
    auto from = [&](int x, int y) {
        return x < From->Width() && y < From->Height() ? From->PixelRGB(x, y) : To->PixelRGB(x, y);
    };
    int size = FEffectSize;
    int ox = static_cast<int>(w * t), oy = static_cast<int>(h * t);
    for (int y = 0; y < h; ++y) {
        uint32_t* row = Dest->ScanLine(y);
        for (int x = 0; x < w; ++x) {
            bool newer = false;
            uint32_t px = 0;
            bool direct = false; // px is already the pixel to show
            switch (Effect) {
            case jteNone:
            case jteRandom:
                newer = Step > 0;
                break;
            case jteWipeLeft:
                newer = x >= w - ox;
                break;
            case jteWipeRight:
                newer = x < ox;
                break;
            case jteWipeUp:
                newer = y >= h - oy;
                break;
            case jteWipeDown:
                newer = y < oy;
                break;
            case jteSlideLeft:
                if (x >= w - ox) px = To->PixelRGB(x - (w - ox), y), direct = true;
                break;
            case jteSlideRight:
                if (x < ox) px = To->PixelRGB(x + w - ox, y), direct = true;
                break;
            case jteSlideUp:
                if (y >= h - oy) px = To->PixelRGB(x, y - (h - oy)), direct = true;
                break;
            case jteSlideDown:
                if (y < oy) px = To->PixelRGB(x, y + h - oy), direct = true;
                break;
            case jteCenterOut:
                newer = std::abs(2 * x + 1 - w) < ox && std::abs(2 * y + 1 - h) < oy;
                break;
            case jteBlinds:
                newer = (y % size) < static_cast<int>(size * t + 0.5);
                break;
            case jteDissolve:
                newer = Step >= Steps || BlockThreshold(x / size, y / size) < t;
                break;
            case jteFade: {
                uint32_t a = from(x, y), b = To->PixelRGB(x, y);
                px = 0;
                for (int shift : {0, 8, 16}) {
                    int ca = (a >> shift) & 0xFF, cb = (b >> shift) & 0xFF;
                    px |= static_cast<uint32_t>(ca + static_cast<int>((cb - ca) * t)) << shift;
                }
                direct = true;
                break;
            }
            }
            row[x] = direct ? px : newer ? To->PixelRGB(x, y) : from(x, y);
        }
    }
    Dest->NotifyChanged();
}

void TjexTransition::Run(TBitmap* From, TBitmap* To, int Steps,
                         const std::function<void(int Step, TBitmap* Frame)>& Frame) {
    TjexTransitionEffect effect = NextEffect();
    Steps = effect == jteNone ? 1 : std::max(1, Steps);
    TBitmap frame;
    for (int s = 1; s <= Steps; ++s) {
        Render(effect, From, To, s, Steps, &frame);
        Frame(s, &frame);
    }
}

void TjexTransition::DefineProperties(rtl::TFiler& Filer) {
    rtl::TPersistent::DefineProperties(Filer);
    Filer.DefineProperty(
        "SelectedEffects",
        [this](rtl::TReader& r) {
            std::vector<TjexTransitionEffect> list;
            r.ReadListBegin();
            while (!r.EndOfList()) {
                std::string name = r.ReadIdent();
                int e = rtl::GetEnumValue(TypeInfoOf(static_cast<TjexTransitionEffect*>(nullptr)), name);
                if (e < 0) throw rtl::EReadError("'" + name + "' is not a transition effect");
                list.push_back(static_cast<TjexTransitionEffect>(e));
            }
            r.ReadListEnd();
            SetSelectedEffects(list);
        },
        [this](rtl::TWriter& w) {
            w.WriteListBegin();
            for (TjexTransitionEffect e : SelectedEffects())
                w.WriteIdent(rtl::GetEnumName(TypeInfoOf(static_cast<TjexTransitionEffect*>(nullptr)), e));
            w.WriteListEnd();
        },
        FSelection->Count() > 0);
}

// ---- Effect settings -----------------------------------------------------------------------------------
TjexEffectProps::TjexEffectProps() : FTransition(std::make_unique<TjexTransition>()) {}

TjexEffectProps::~TjexEffectProps() = default;

void TjexEffectProps::SetEffectSpeed(int Value) {
    FEffectSpeed = std::clamp(Value, 1, 10);
}

void jexDrawPictureSized(TBitmap* Target, TGraphic* Graphic, TjexPictureSize Size, TColor Background) {
    int w = Target->Width(), h = Target->Height();
    TCanvas* c = Target->Canvas();
    c->Brush()->SetStyle(bsSolid);
    c->Brush()->SetColor(static_cast<TColor>(ColorToRGB(Background)));
    c->FillRect(Rect(0, 0, w, h));
    if (!Graphic || Graphic->Empty()) return;
    int gw = Graphic->Width(), gh = Graphic->Height();
    switch (Size) {
    case jpsNormal:
        c->Draw(0, 0, Graphic);
        break;
    case jpsStretch:
        c->StretchDraw(Rect(0, 0, w, h), Graphic);
        break;
    case jpsCenter:
        c->Draw((w - gw) / 2, (h - gh) / 2, Graphic);
        break;
    case jpsProportional: {
        int pw = w, ph = h;
        if (static_cast<int64_t>(w) * gh <= static_cast<int64_t>(h) * gw)
            ph = static_cast<int>(static_cast<int64_t>(gh) * w / gw);
        else
            pw = static_cast<int>(static_cast<int64_t>(gw) * h / gh);
        c->StretchDraw(Bounds((w - pw) / 2, (h - ph) / 2, pw, ph), Graphic);
        break;
    }
    }
}

void jexDrawTextLines(TCanvas* Canvas, int X, int Y, const std::string& Text) {
    rtl::TStringList lines;
    lines.SetText(Text);
    Canvas->Brush()->SetStyle(bsClear);
    int lineHeight = Canvas->TextHeight("Xg");
    for (int i = 0; i < lines.Count(); ++i)
        Canvas->TextOut(X, Y + i * lineHeight, lines[i]);
}

// ---- Effects images -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomEffectsImage, TGraphicControl, "jexeffects") {}

JEX_IMPLEMENT_CLASS(TjexEffectsImage, TjexCustomEffectsImage, "jexeffects") {
    jexPublishEffectsImage(d, true);
}

TjexCustomEffectsImage::TjexCustomEffectsImage(rtl::TComponent* AOwner)
    : TGraphicControl(AOwner), FPicture(std::make_unique<TPicture>()), FDisplay(std::make_unique<TBitmap>()) {
    FParentColor = true;
    FColor = clBtnFace;
    FWidth = 105;
    FHeight = 105;
    FPicture->OnChange = [this](rtl::TObject*) { PictureChanged(); };
}

TjexCustomEffectsImage::~TjexCustomEffectsImage() {
    FPicture->OnChange = nullptr;
}

void TjexCustomEffectsImage::PictureChanged() {
    if (IsLoading()) return;
    // While a form is designed the picture shows at once; at run time it comes in with the effect.
    if (IsDesigning())
        ShowPicture();
    else
        Execute();
}

void TjexCustomEffectsImage::SetImages(TCustomImageList* Value) {
    pubx::SetReference(this, FImages, Value);
}

void TjexCustomEffectsImage::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TGraphicControl::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FImages) FImages = nullptr;
}

void TjexCustomEffectsImage::DefineProperties(rtl::TFiler& Filer) {
    TGraphicControl::DefineProperties(Filer);
    FTransition->DefineProperties(Filer);
}

TBitmap* TjexCustomEffectsImage::Display() {
    if (FDisplay->Width() != FWidth || FDisplay->Height() != FHeight) ShowPicture();
    return FDisplay.get();
}

TGraphic* TjexCustomEffectsImage::SourceGraphic(std::unique_ptr<TBitmap>& Holder) const {
    if (FImages && FImageIndex >= 0 && FImageIndex < FImages->Count()) {
        Holder = std::make_unique<TBitmap>();
        FImages->GetBitmap(FImageIndex, Holder.get());
        return Holder.get();
    }
    return FPicture->Graphic();
}

void TjexCustomEffectsImage::RenderPicture(TBitmap* Target) {
    Target->SetSize(std::max(0, FWidth), std::max(0, FHeight));
    std::unique_ptr<TBitmap> holder;
    jexDrawPictureSized(Target, SourceGraphic(holder), FPictureSize, FColor);
}

void TjexCustomEffectsImage::ShowPicture() {
    RenderPicture(FDisplay.get());
}

int TjexCustomEffectsImage::Execute() {
    TBitmap from, to;
    from.Assign(Display());
    RenderPicture(&to);
    int steps = 0;
    FTransition->Run(&from, &to, EffectSteps(), [&](int Step, TBitmap* Frame) {
        FDisplay->Assign(Frame);
        steps = Step;
        OnEffectStep(this, Step, EffectSteps());
        if (FProcessMessages) Application()->ProcessMessages();
    });
    return steps;
}

void TjexCustomEffectsImage::SetBounds(int ALeft, int ATop, int AWidth, int AHeight) {
    bool sized = AWidth != FWidth || AHeight != FHeight;
    TGraphicControl::SetBounds(ALeft, ATop, AWidth, AHeight);
    if (sized && !IsLoading() && FDisplay) ShowPicture();
}

JEX_IMPLEMENT_CLASS(TjexRichEffectsImage, TjexEffectsImage, "jexeffects") {
    pub::Font(d);
    pub::ParentFont(d);
    d.Property("RichText", &TjexRichEffectsImage::RichText, &TjexRichEffectsImage::SetRichText);
}

TjexRichEffectsImage::TjexRichEffectsImage(rtl::TComponent* AOwner)
    : TjexEffectsImage(AOwner), FRichText(std::make_unique<TjexRichText>()) {
    FRichText->OnChange = [this](rtl::TObject*) { PictureChanged(); };
}

TjexRichEffectsImage::~TjexRichEffectsImage() {
    FRichText->OnChange = nullptr;
}

void TjexRichEffectsImage::RenderPicture(TBitmap* Target) {
    TjexCustomEffectsImage::RenderPicture(Target);
    std::string text = FRichText->PlainText();
    if (text.empty()) return;
    Target->Canvas()->Font()->Assign(Font());
    jexDrawTextLines(Target->Canvas(), 4, 4, text);
}

static const TjexLibraryUnit<TjexEffectsImage, TjexRichEffectsImage> jexeffectsUnit("jexeffects");

} // namespace jex
