// Attached labels: the label object that follows its control, and the labelled standard controls.
#include "jex/jexlabeled.h"

#include <cctype>

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexSubLabelPosition)

// ---- TjexSubLabel ------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexSubLabel, rtl::TPersistent, "jexlabeled") {
    d.Property("Caption", &TjexSubLabel::Caption, &TjexSubLabel::SetCaption, TypeInfo_TCaption());
    d.Property("Color", &TjexSubLabel::Color, &TjexSubLabel::SetColor, TypeInfo_TColor())
        .Default(clBtnFace)
        .Stored(&TjexSubLabel::IsColorStored);
    d.Property("Enabled", &TjexSubLabel::Enabled, &TjexSubLabel::SetEnabled).Default(true);
    d.Property("FocusControl", &TjexSubLabel::FocusControl, &TjexSubLabel::SetFocusControl);
    d.Property("Font", &TjexSubLabel::Font, &TjexSubLabel::SetFont).Stored(&TjexSubLabel::IsFontStored);
    d.Property("Locked", &TjexSubLabel::Locked, &TjexSubLabel::SetLocked).Default(true);
    d.Property("OffsetX", &TjexSubLabel::OffsetX, &TjexSubLabel::SetOffsetX)
        .Default(0)
        .Stored(&TjexSubLabel::IsOffsetStored);
    d.Property("OffsetY", &TjexSubLabel::OffsetY, &TjexSubLabel::SetOffsetY)
        .Default(-20)
        .Stored(&TjexSubLabel::IsOffsetStored);
    d.Property("ParentColor", &TjexSubLabel::ParentColor, &TjexSubLabel::SetParentColor).Default(true);
    d.Property("ParentFont", &TjexSubLabel::ParentFont, &TjexSubLabel::SetParentFont).Default(true);
    d.Property("Position", &TjexSubLabel::Position, &TjexSubLabel::SetPosition).Default(jlpAbove);
    d.Property("Spacing", &TjexSubLabel::Spacing, &TjexSubLabel::SetSpacing).Default(3);
    d.Property("Transparent", &TjexSubLabel::Transparent, &TjexSubLabel::SetTransparent).Default(false);
    d.Property("Visible", &TjexSubLabel::Visible, &TjexSubLabel::SetVisible).Default(true);
}

TjexSubLabel::TjexSubLabel(TControl* Control) : FControl(Control), FFont(std::make_unique<TFont>()) {
    FFont->OnChange = [this](rtl::TObject*) { Apply(); };
}

TjexSubLabel::~TjexSubLabel() {
    FFont->OnChange = nullptr;
    if (TLabel* l = FLabel) {
        FLabel = nullptr;
        l->Free();
    }
}

rtl::TPersistent* TjexSubLabel::GetOwner() const {
    return FControl;
}

void TjexSubLabel::Assign(rtl::TPersistent* Source) {
    if (auto* s = dynamic_cast<TjexSubLabel*>(Source)) {
        FApplying = true;
        FCaption = s->FCaption;
        FEnabled = s->FEnabled;
        FVisible = s->FVisible;
        FLocked = s->FLocked;
        FPosition = s->FPosition;
        FSpacing = s->FSpacing;
        FOffsetX = s->FOffsetX;
        FOffsetY = s->FOffsetY;
        FParentFont = s->FParentFont;
        FFont->Assign(s->FFont.get());
        FColor = s->FColor;
        FParentColor = s->FParentColor;
        FTransparent = s->FTransparent;
        FApplying = false;
        SetFocusControl(s->FFocusControl);
        Apply();
        return;
    }
    rtl::TPersistent::Assign(Source);
}

void TjexSubLabel::SetCaption(const std::string& Value) {
    FCaption = Value;
    Apply();
}

void TjexSubLabel::SetEnabled(bool Value) {
    FEnabled = Value;
    Apply();
}

void TjexSubLabel::SetVisible(bool Value) {
    FVisible = Value;
    Apply();
}

void TjexSubLabel::SetFocusControl(TWinControl* Value) {
    if (FFocusControl == Value) return;
    if (FFocusControl && FControl) FFocusControl->RemoveFreeNotification(FControl);
    FFocusControl = Value;
    if (FFocusControl && FControl) FFocusControl->FreeNotification(FControl);
    Apply();
}

void TjexSubLabel::SetLocked(bool Value) {
    if (FLocked == Value) return;
    if (!Value && FControl) {
        // Unlocking keeps the label where it is: its place becomes the remembered offset.
        TPoint p = LabelPosition();
        FOffsetX = p.X - FControl->Left();
        FOffsetY = p.Y - FControl->Top();
    }
    FLocked = Value;
    Apply();
}

void TjexSubLabel::SetPosition(TjexSubLabelPosition Value) {
    FPosition = Value;
    Apply();
}

void TjexSubLabel::SetSpacing(int Value) {
    FSpacing = Value;
    Apply();
}

void TjexSubLabel::SetOffsetX(int Value) {
    FOffsetX = Value;
    Apply();
}

void TjexSubLabel::SetOffsetY(int Value) {
    FOffsetY = Value;
    Apply();
}

void TjexSubLabel::SetParentFont(bool Value) {
    FParentFont = Value;
    Apply();
}

void TjexSubLabel::SetColor(TColor Value) {
    FColor = Value;
    Apply();
}

void TjexSubLabel::SetParentColor(bool Value) {
    FParentColor = Value;
    Apply();
}

void TjexSubLabel::SetTransparent(bool Value) {
    FTransparent = Value;
    Apply();
}

bool TjexSubLabel::MoveTo(int X, int Y) {
    if (FLocked || !FControl) return false;
    FOffsetX = X - FControl->Left();
    FOffsetY = Y - FControl->Top();
    Apply();
    return true;
}

TPoint TjexSubLabel::LabelPosition() const {
    if (!FControl) return {};
    int left = FControl->Left(), top = FControl->Top(), w = FControl->Width(), h = FControl->Height();
    if (!FLocked) return {left + FOffsetX, top + FOffsetY};
    const TFont* font = FLabel ? FLabel->Font() : FFont.get();
    int lw = FLabel ? FLabel->Width() : TextWidthOf(font, ShownCaptionText());
    int lh = FLabel ? FLabel->Height() : TextHeightOf(font);
    switch (FPosition) {
    case jlpLeft:
        return {left - lw - FSpacing, top + (h - lh) / 2};
    case jlpRight:
        return {left + w + FSpacing, top + (h - lh) / 2};
    case jlpBelow:
        return {left, top + h + FSpacing};
    default:
        return {left, top - lh - FSpacing};
    }
}

void TjexSubLabel::EnsureLabel() {
    if (!FControl) return;
    TWinControl* parent = FControl->Parent();
    if (!parent) {
        if (FLabel) FLabel->SetParent(nullptr);
        return;
    }
    if (!FLabel) {
        // Owned by the control, so that form files never list it; the control hears when it goes.
        FLabel = new TLabel(FControl);
        FLabel->FreeNotification(FControl);
    }
    if (FLabel->Parent() != parent) FLabel->SetParent(parent);
}

void TjexSubLabel::Apply() {
    if (FApplying || !FControl || FControl->IsDestroying()) return;
    FApplying = true;
    EnsureLabel();
    if (FLabel) {
        FLabel->SetCaption(ShownCaptionText());
        FLabel->SetTransparent(FTransparent);
        if (FParentFont)
            FLabel->SetParentFont(true);
        else
            FLabel->SetFont(FFont.get());
        if (FParentColor)
            FLabel->SetParentColor(true);
        else
            FLabel->SetColor(FColor);
        FLabel->SetFocusControl(FFocusControl ? FFocusControl : dynamic_cast<TWinControl*>(FControl));
        FLabel->SetEnabled(FEnabled && FControl->Enabled());
        FLabel->SetVisible(FVisible && FControl->Visible());
        TPoint p = LabelPosition();
        FLabel->SetBounds(p.X, p.Y, FLabel->Width(), FLabel->Height());
    }
    FApplying = false;
}

void TjexSubLabel::ControlChanged() {
    Apply();
}

void TjexSubLabel::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    if (Operation != rtl::opRemove) return;
    if (AComponent == FLabel) FLabel = nullptr;
    if (AComponent == FFocusControl) {
        FFocusControl = nullptr;
        Apply();
    }
}

// ---- The labelled controls -------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexLEdit, TEdit, "jexlabeled") {
    jexPublishSubLabel(d);
}

JEX_IMPLEMENT_CLASS(TjexLMaskEdit, TEdit, "jexlabeled") {
    d.Property("EditMask", &TjexLMaskEdit::EditMask, &TjexLMaskEdit::SetEditMask);
    jexPublishSubLabel(d);
}

namespace {
// One place of an edit mask: a literal, or a kind of character with whether it must be there and the
// case it is turned to.
struct TMaskSlot {
    char Kind;    // 0 literal, else L A C 0 9 #
    char Literal; // the literal character
    bool Required;
    int Case; // 1 upper, -1 lower, 0 as typed
};

struct TMask {
    std::vector<TMaskSlot> Slots;
    char Blank = '_';
};

TMask ParseMask(const std::string& EditMask) {
    // Sections: template ; keep-literals ; blank character. A backslash escapes a ';' of the template.
    std::string tmpl;
    size_t i = 0;
    for (; i < EditMask.size(); ++i) {
        if (EditMask[i] == '\\' && i + 1 < EditMask.size()) {
            tmpl += EditMask[i];
            tmpl += EditMask[++i];
            continue;
        }
        if (EditMask[i] == ';') break;
        tmpl += EditMask[i];
    }
    TMask m;
    size_t second = EditMask.find(';', i + 1);
    if (i < EditMask.size() && second != std::string::npos && second + 1 < EditMask.size())
        m.Blank = EditMask[second + 1];
    int caseMode = 0;
    for (size_t k = 0; k < tmpl.size(); ++k) {
        char c = tmpl[k];
        switch (c) {
        case '!':
            break;
        case '>':
            caseMode = 1;
            break;
        case '<':
            if (k + 1 < tmpl.size() && tmpl[k + 1] == '>') {
                caseMode = 0;
                ++k;
            } else {
                caseMode = -1;
            }
            break;
        case '\\':
            if (k + 1 < tmpl.size()) m.Slots.push_back({0, tmpl[++k], true, 0});
            break;
        case 'L':
        case 'A':
        case 'C':
        case '0':
            m.Slots.push_back({c, 0, true, caseMode});
            break;
        case 'l':
        case 'a':
        case 'c':
            m.Slots.push_back(
                {static_cast<char>(std::toupper(static_cast<unsigned char>(c))), 0, false, caseMode});
            break;
        case '9':
        case '#':
            m.Slots.push_back({c, 0, false, caseMode});
            break;
        default:
            m.Slots.push_back({0, c, true, 0});
            break;
        }
    }
    return m;
}

bool SlotTakes(const TMaskSlot& s, char c) {
    unsigned char u = static_cast<unsigned char>(c);
    switch (s.Kind) {
    case 'L':
        return std::isalpha(u) != 0;
    case 'A':
        return std::isalnum(u) != 0;
    case 'C':
        return true;
    case '0':
    case '9':
        return std::isdigit(u) != 0;
    case '#':
        return std::isdigit(u) || c == '+' || c == '-';
    default:
        return c == s.Literal;
    }
}
} // namespace

std::string TjexLMaskEdit::ApplyMaskCase(const std::string& Text) const {
    if (FEditMask.empty()) return Text;
    TMask m = ParseMask(FEditMask);
    std::string out = Text;
    for (size_t i = 0; i < out.size() && i < m.Slots.size(); ++i) {
        unsigned char u = static_cast<unsigned char>(out[i]);
        if (m.Slots[i].Case > 0) out[i] = static_cast<char>(std::toupper(u));
        if (m.Slots[i].Case < 0) out[i] = static_cast<char>(std::tolower(u));
    }
    return out;
}

bool TjexLMaskEdit::FitsMask(const std::string& Text) const {
    if (FEditMask.empty()) return true;
    TMask m = ParseMask(FEditMask);
    if (Text.size() > m.Slots.size()) return false;
    for (size_t i = 0; i < m.Slots.size(); ++i) {
        const TMaskSlot& s = m.Slots[i];
        bool present = i < Text.size();
        char c = present ? Text[i] : m.Blank;
        if (s.Kind == 0) {
            // A literal may be left off only at the end, after the last place that was typed.
            if (present && c != s.Literal) return false;
            continue;
        }
        bool blank = !present || c == m.Blank || c == ' ';
        if (blank) {
            if (s.Required) return false;
            continue;
        }
        if (!SlotTakes(s, c)) return false;
    }
    return true;
}

void TjexLMaskEdit::EnterText(const std::string& v) {
    std::string text = ApplyMaskCase(v);
    if (!text.empty() && !FitsMask(text))
        throw EUserActionError("'" + v + "' does not fit the edit mask '" + FEditMask + "'");
    TjexLabeledControl<TEdit>::EnterText(text);
}

JEX_IMPLEMENT_CLASS(TjexLSpinEdit, TSpinEdit, "jexlabeled") {
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLMemo, TMemo, "jexlabeled") {
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLListBox, TListBox, "jexlabeled") {
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLComboBox, TComboBox, "jexlabeled") {
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLImage, TImage, "jexlabeled") {
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLPanel, TPanel, "jexlabeled") {
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLScrollBox, TScrollBox, "jexlabeled") {
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLTreeView, TTreeView, "jexlabeled") {
    jexPublishSubLabel(d);
}

static const TjexLibraryUnit<TjexLEdit, TjexLMaskEdit, TjexLSpinEdit, TjexLMemo, TjexLListBox, TjexLComboBox,
                             TjexLImage, TjexLPanel, TjexLScrollBox, TjexLTreeView>
    jexlabeledUnit("jexlabeled");

} // namespace jex
