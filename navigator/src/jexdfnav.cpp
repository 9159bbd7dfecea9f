// Jexdfnav: the navigator panel wizard and the glyph, caption-style and button-size pages it shares with the
// button editor. The wizard creates the chosen button components on the panel, names them uniquely in the
// designed form and lays out every control of the panel in a grid.
#include "dcljexc/jexdfnav.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "dcljexc/jexdsncn.h"
#include "dcljexc/units.h"
#include "vcl/graphics.h"

namespace dcljexc {

using namespace vcl;

JEX_RESOURCESTRING(_sjexnpdsgnCaption, "Add Navigator Buttons");
JEX_RESOURCESTRING(_sjexnpdsgnBtnPrev, "&Prev");
JEX_RESOURCESTRING(_sjexnpdsgnBtnNext, "&Next");
JEX_RESOURCESTRING(_sjexnpdsgnBtnCreate, "&Create");
JEX_RESOURCESTRING(_sjexnpdsgnBtnCancel, "Cancel");
JEX_RESOURCESTRING(_sjexnpdsgnSampleCaption, "Caption");
JEX_RESOURCESTRING(_sjexnpdsgnNoPanel, "No navigator panel or toolbar to add buttons to");

JEX_RESOURCESTRING(_sjexnpdsgnPageHintButtons,
                   "Choose the navigator buttons you would like to add. Use '>' to select a single button or "
                   "all buttons in a group;  click '>>' to select every button.");
JEX_RESOURCESTRING(_sjexnpdsgnPageHintGlyphs,
                   "Choose a set of button glyphs. Hints and captions can be added if required.");
JEX_RESOURCESTRING(_sjexnpdsgnPageHintCaptionStyle,
                   "Layout the glyph and caption appearance with the following options.");
JEX_RESOURCESTRING(_sjexnpdsgnPageHintButtonSize,
                   "Choose a button size and number of button rows for the panel.");
JEX_RESOURCESTRING(_sjexnpdsgnPageHintCaptions, "Edit the caption text for your selected buttons.");
JEX_RESOURCESTRING(_sjexnpdsgnPageHintHints, "Edit the hint text for your selected buttons.");

// Page 0.
JEX_RESOURCESTRING(_sjexnpdsgnAvailable, "Available Buttons:");
JEX_RESOURCESTRING(_sjexnpdsgnSelected, "Selected Ordered Buttons:");
JEX_RESOURCESTRING(_sjexnpdsgnAdd, ">");
JEX_RESOURCESTRING(_sjexnpdsgnAddAll, ">>");
JEX_RESOURCESTRING(_sjexnpdsgnRemove, "<");
JEX_RESOURCESTRING(_sjexnpdsgnRemoveAll, "<<");
JEX_RESOURCESTRING(_sjexnpdsgnUp, "Up");
JEX_RESOURCESTRING(_sjexnpdsgnDown, "Down");

// Glyphs page.
JEX_RESOURCESTRING(_sjexnpdsgnGlyphStyles, "Glyph Styles:");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphStyle0, " Large, raised, colored");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphStyle1, " Large, raised, black");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphStyle2, " Medium, raised, colored");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphStyle3, " Medium, raised, black");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphStyle4, " Small, flat, colored");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphStyle5, " Small, flat, black");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphStyle6, " Custom glyphs");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphStyle7, " None");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphOrient, "Glyph Orientation:");
JEX_RESOURCESTRING(_sjexnpdsgnHorizontal, " Horizontal");
JEX_RESOURCESTRING(_sjexnpdsgnVertical, " Vertical");
JEX_RESOURCESTRING(_sjexnpdsgnAddCaption, " Add a text caption to buttons");
JEX_RESOURCESTRING(_sjexnpdsgnAddHints, " Add hint text to buttons");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle, "Button Style:");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle0, "AutoDetect");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle1, "New");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle2, "Win 3.1");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle3, "Thin");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle4, "Thin Black");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle5, "Thin Gray");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle6, "Thin Highlight");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle7, "Mid Highlight");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle8, "Thick Highlight");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle9, "Framed");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle10, "Framed Black");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle11, "Framed Raised");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle12, "Framed Highlight");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle13, "Framed Black Highlight");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle14, "Recessed");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle15, "Recessed Black");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle16, "Recessed Raised");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle17, "Recessed Highlight");
JEX_RESOURCESTRING(_sjexnpdsgnBtnStyle18, "Recessed Black Highlight");
JEX_RESOURCESTRING(_sjexnpdsgnHighlight, "Highlight:");
JEX_RESOURCESTRING(_sjexnpdsgnHighlight0, "Normal");
JEX_RESOURCESTRING(_sjexnpdsgnHighlight1, "Gray");
JEX_RESOURCESTRING(_sjexnpdsgnHighlight2, "Fade");
JEX_RESOURCESTRING(_sjexnpdsgnHighlight3, "Darken");
JEX_RESOURCESTRING(_sjexnpdsgnPopup, "Popup");
JEX_RESOURCESTRING(_sjexnpdsgnColor, "Color...");

// CaptionStyle page.
JEX_RESOURCESTRING(_sjexnpdsgnTextStyle, "Text Style:");
JEX_RESOURCESTRING(_sjexnpdsgnTextStyle0, " Normal");
JEX_RESOURCESTRING(_sjexnpdsgnTextStyle1, " Raised");
JEX_RESOURCESTRING(_sjexnpdsgnTextStyle2, " Lowered");
JEX_RESOURCESTRING(_sjexnpdsgnAlignGlyph, "Align Glyph:");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphPos0, " Left");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphPos1, " Right");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphPos2, " Top");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphPos3, " Bottom");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphPos4, " Center");
JEX_RESOURCESTRING(_sjexnpdsgnGlyphPos5, " Tiled");
JEX_RESOURCESTRING(_sjexnpdsgnMargin, "Margin:");
JEX_RESOURCESTRING(_sjexnpdsgnFont, "Font...");

// ButtonSize page.
JEX_RESOURCESTRING(_sjexnpdsgnBtnSize, "Button Width x Height:");
JEX_RESOURCESTRING(_sjexnpdsgnBtnSize0, " 15 x 15");
JEX_RESOURCESTRING(_sjexnpdsgnBtnSize1, " 20 x 20");
JEX_RESOURCESTRING(_sjexnpdsgnBtnSize2, " 23 x 22");
JEX_RESOURCESTRING(_sjexnpdsgnBtnSize3, " 25 x 25");
JEX_RESOURCESTRING(_sjexnpdsgnBtnSize4, " 30 x 30");
JEX_RESOURCESTRING(_sjexnpdsgnBtnSize5, " 32 x 32");
JEX_RESOURCESTRING(_sjexnpdsgnBtnSize6, " 40 x 40");
JEX_RESOURCESTRING(_sjexnpdsgnBtnSize7, " 50 x 50");
JEX_RESOURCESTRING(_sjexnpdsgnBtnSize8, " 80 x 30");
JEX_RESOURCESTRING(_sjexnpdsgnBtnSize9, " 120 x 60");
JEX_RESOURCESTRING(_sjexnpdsgnBtnSize10, " Custom");
JEX_RESOURCESTRING(_sjexnpdsgnCustomSize, "Custom Size:");
JEX_RESOURCESTRING(_sjexnpdsgnWidth, "Width:");
JEX_RESOURCESTRING(_sjexnpdsgnHeight, "Height:");
JEX_RESOURCESTRING(_sjexnpdsgnSample, "Sample:");
JEX_RESOURCESTRING(_sjexnpdsgnPanelMargin, "Panel Margin:");
JEX_RESOURCESTRING(_sjexnpdsgnHorz, "Horz:");
JEX_RESOURCESTRING(_sjexnpdsgnVert, "Vert:");
JEX_RESOURCESTRING(_sjexnpdsgnBtnAlign, "Button Alignment:");
JEX_RESOURCESTRING(_sjexnpdsgnOffsetHorz, "Offset Horz:");
JEX_RESOURCESTRING(_sjexnpdsgnRows, "Rows:");
JEX_RESOURCESTRING(_sjexnpdsgnCols, "Cols:");

// Captions and Hints pages.
JEX_RESOURCESTRING(_sjexnpdsgnColButton, "BUTTON");
JEX_RESOURCESTRING(_sjexnpdsgnColCaption, "CAPTION");
JEX_RESOURCESTRING(_sjexnpdsgnColHint, "HINT or HINT UP");
JEX_RESOURCESTRING(_sjexnpdsgnColHintDown, "HINT DOWN");

namespace {

std::vector<std::string> Texts(std::initializer_list<const rtl::TResourceString*> strings) {
    std::vector<std::string> out;
    for (const rtl::TResourceString* s : strings)
        out.push_back(rtl::LoadResString(*s));
    return out;
}

// Width x height of the items of the size radio group but the last (custom) one.
constexpr int BtnSizes[10][2] = {{15, 15}, {20, 20}, {23, 22}, {25, 25}, {30, 30},
                                 {32, 32}, {40, 40}, {50, 50}, {80, 30}, {120, 60}};
constexpr int CustomSizeItem = 10;
constexpr int DefaultSizeItem = 2;
constexpr int CaptionSizeItem = 6;
// The medium coloured glyph set.
constexpr int DefaultGlyphStyle = 2;

// The glyph preview's size without and with a caption.
constexpr int GlyphSampleW = 40, GlyphSampleH = 36, GlyphSampleCaptionW = 72;

// The wizard's own button glyphs.
constexpr const char* CreateGlyphRes = "JEXNPDSGN_CREATE";
constexpr const char* NextGlyphRes = "JEXNPDSGN_NEXT";

// The package's bitmap resource, decoded; nil when there is none or it cannot be read.
std::unique_ptr<TBitmap> PackageBitmap(const std::string& ResName) {
    const std::vector<uint8_t>* bytes = rtl::FindBitmapResource(jexThisModule(), ResName);
    if (!bytes) return nullptr;
    auto bmp = std::make_unique<TBitmap>();
    try {
        bmp->LoadFromBytes(*bytes);
    } catch (const rtl::Exception&) {
        return nullptr;
    }
    return bmp;
}

// The catalogue's two-state buttons, whose hint follows their state (the custom two-state button is
// handled apart, as its own class).
bool HasStateHints(const rtl::TObject* Button) {
    return rtl::Is<jex::TjexnpBookmark>(Button) || rtl::Is<jex::TjexnpFilterExpression>(Button) ||
           rtl::Is<jex::TjexnpFilterActive>(Button);
}

// The first catalogue kind whose class the object is an instance of, or -1.
int KindOfInstance(const rtl::TObject* Obj) {
    for (int k = 0; k < jexNavBtnKindCount; ++k)
        if (rtl::TClass cls = JEXDesignNavComponentClass(k); cls && Obj->InheritsFrom(cls)) return k;
    return -1;
}

// Layout arithmetic raises the platform's overflow error rather than wrapping.
int CheckedAdd(int a, int b) {
    int r;
    if (__builtin_add_overflow(a, b, &r)) throw rtl::EIntOverflow(rtl::SIntOverflow);
    return r;
}
int CheckedMul(int a, int b) {
    int r;
    if (__builtin_mul_overflow(a, b, &r)) throw rtl::EIntOverflow(rtl::SIntOverflow);
    return r;
}

void CheckGlyphCount(int NumGlyphs) {
    if (NumGlyphs < 1 || NumGlyphs > 5) throw rtl::ERangeError(rtl::SRangeError);
}

} // namespace

// ---- Shared pages --------------------------------------------------------------------------------------

JEX_IMPLEMENT_CLASS(TjexdfNavDesignForm, TForm, "Jexdfnav") {}

TjexdfNavDesignForm::TjexdfNavDesignForm(rtl::TComponent* AOwner) : TForm(AOwner) {
    SetBorderStyle(bsDialog);
    SetPosition(poScreenCenter);
    SetClientWidth(480);
    SetClientHeight(336);

    lblPageHint = Place<TLabel>(this, "lblPageHint", 8, 6, 464, 30);
    lblPageHint->SetAutoSize(false);
    lblPageHint->SetWordWrap(true);
    lblPageHint->SetShowAccelChar(false);

    Notebook = Place<TNotebook>(this, "Notebook", 8, 40, 464, 252);

    btnPrev = Place<TButton>(this, "btnPrev", 216, 302, 80, 25);
    btnPrev->SetCaption(rtl::LoadResString(_sjexnpdsgnBtnPrev));
    btnPrev->SetEnabled(false);
    btnNext = Place<TBitBtn>(this, "btnNext", 304, 302, 80, 25);
    btnNext->SetCaption(rtl::LoadResString(_sjexnpdsgnBtnNext));
    btnNext->SetDefault(true);
    btnCancel = Place<TButton>(this, "btnCancel", 392, 302, 80, 25);
    btnCancel->SetCaption(rtl::LoadResString(_sjexnpdsgnBtnCancel));
    btnCancel->SetCancel(true);
    btnCancel->OnClick = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::CancelClick);

    ColorDialog = new TColorDialog(this);
    ColorDialog->SetName("ColorDialog");
    FontDialog = new TFontDialog(this);
    FontDialog->SetName("FontDialog");
}

TjexdfNavDesignForm::~TjexdfNavDesignForm() {
    CloseIniFile();
}

TLabel* TjexdfNavDesignForm::PlaceLabel(TWinControl* Parent, const char* Name, const std::string& Caption,
                                        int Left, int Top, TWinControl* FocusControl) {
    TLabel* l = Place<TLabel>(Parent, Name, Left, Top, 64, 13);
    l->SetCaption(Caption);
    if (FocusControl) l->SetFocusControl(FocusControl);
    return l;
}

TRadioGroup* TjexdfNavDesignForm::PlaceRadioGroup(TWinControl* Parent, const char* Name,
                                                  const std::string& Caption,
                                                  const std::vector<std::string>& Items, int ItemIndex,
                                                  int Left, int Top, int Width, int Height) {
    TRadioGroup* g = Place<TRadioGroup>(Parent, Name, Left, Top, Width, Height);
    g->SetCaption(Caption);
    for (const std::string& item : Items)
        g->Items()->Add(item);
    g->SetItemIndex(ItemIndex);
    return g;
}

TSpinEdit* TjexdfNavDesignForm::PlaceSpinEdit(TWinControl* Parent, const char* Name, int Min, int Max,
                                              int Value, int Left, int Top) {
    TSpinEdit* e = Place<TSpinEdit>(Parent, Name, Left, Top, 50, 22);
    e->SetMinValue(Min);
    e->SetMaxValue(Max);
    e->SetValue(Value);
    return e;
}

void TjexdfNavDesignForm::BuildGlyphsPage(TWinControl* Page) {
    rgGlyphStyles = PlaceRadioGroup(Page, "rgGlyphStyles", rtl::LoadResString(_sjexnpdsgnGlyphStyles),
                                    Texts({&_sjexnpdsgnGlyphStyle0, &_sjexnpdsgnGlyphStyle1,
                                           &_sjexnpdsgnGlyphStyle2, &_sjexnpdsgnGlyphStyle3,
                                           &_sjexnpdsgnGlyphStyle4, &_sjexnpdsgnGlyphStyle5,
                                           &_sjexnpdsgnGlyphStyle6, &_sjexnpdsgnGlyphStyle7}),
                                    DefaultGlyphStyle, 4, 4, 200, 180);
    rgGlyphOrient = PlaceRadioGroup(Page, "rgGlyphOrient", rtl::LoadResString(_sjexnpdsgnGlyphOrient),
                                    Texts({&_sjexnpdsgnHorizontal, &_sjexnpdsgnVertical}), 0, 4, 188, 200, 56);

    chkCaption = Place<TCheckBox>(Page, "chkCaption", 212, 4, 244, 17);
    chkCaption->SetCaption(rtl::LoadResString(_sjexnpdsgnAddCaption));
    chkHints = Place<TCheckBox>(Page, "chkHints", 212, 24, 244, 17);
    chkHints->SetCaption(rtl::LoadResString(_sjexnpdsgnAddHints));
    chkHints->SetChecked(true);

    cboBtnStyle = Place<TComboBox>(Page, "cboBtnStyle", 212, 64, 150, 21);
    cboBtnStyle->SetStyle(csDropDownList);
    for (const std::string& s :
         Texts({&_sjexnpdsgnBtnStyle0, &_sjexnpdsgnBtnStyle1, &_sjexnpdsgnBtnStyle2, &_sjexnpdsgnBtnStyle3,
                &_sjexnpdsgnBtnStyle4, &_sjexnpdsgnBtnStyle5, &_sjexnpdsgnBtnStyle6, &_sjexnpdsgnBtnStyle7,
                &_sjexnpdsgnBtnStyle8, &_sjexnpdsgnBtnStyle9, &_sjexnpdsgnBtnStyle10, &_sjexnpdsgnBtnStyle11,
                &_sjexnpdsgnBtnStyle12, &_sjexnpdsgnBtnStyle13, &_sjexnpdsgnBtnStyle14,
                &_sjexnpdsgnBtnStyle15, &_sjexnpdsgnBtnStyle16, &_sjexnpdsgnBtnStyle17,
                &_sjexnpdsgnBtnStyle18}))
        cboBtnStyle->Items()->Add(s);
    cboBtnStyle->SetItemIndex(jex::jbsThin);
    lblBtnStyle = PlaceLabel(Page, "lblBtnStyle", rtl::LoadResString(_sjexnpdsgnBtnStyle), 212, 48, cboBtnStyle);

    cboBtnPicHighlight = Place<TComboBox>(Page, "cboBtnPicHighlight", 212, 108, 150, 21);
    cboBtnPicHighlight->SetStyle(csDropDownList);
    for (const std::string& s :
         Texts({&_sjexnpdsgnHighlight0, &_sjexnpdsgnHighlight1, &_sjexnpdsgnHighlight2, &_sjexnpdsgnHighlight3}))
        cboBtnPicHighlight->Items()->Add(s);
    cboBtnPicHighlight->SetItemIndex(jex::jphNormal);
    lblBtnPicHighlight = PlaceLabel(Page, "lblBtnPicHighlight", rtl::LoadResString(_sjexnpdsgnHighlight), 212,
                                    92, cboBtnPicHighlight);

    chkPopup = Place<TCheckBox>(Page, "chkPopup", 212, 136, 80, 17);
    chkPopup->SetCaption(rtl::LoadResString(_sjexnpdsgnPopup));
    chkPopup->SetChecked(true);
    BtnColor = Place<TButton>(Page, "BtnColor", 212, 160, 75, 25);
    BtnColor->SetCaption(rtl::LoadResString(_sjexnpdsgnColor));

    btnGlyphSample = Place<jex::TjexPicSpeedBtn>(Page, "btnGlyphSample", 380, 64, GlyphSampleW, GlyphSampleH);
    btnGlyphSample->SetStyle(jex::jbsThin);

    // Wired once the defaults are in, so that building fires no handler on half-built pages.
    rgGlyphStyles->OnClick = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::GlyphSampleChange);
    rgGlyphOrient->OnClick = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::GlyphSampleChange);
    chkCaption->OnClick = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::chkCaptionClick);
    chkPopup->OnClick = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::chkPopupClick);
    BtnColor->OnClick = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::BtnColorClick);
    cboBtnStyle->OnClick = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::cboBtnStyleClick);
    cboBtnPicHighlight->OnClick = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::cboBtnPicHighlightClick);
}

void TjexdfNavDesignForm::BuildCaptionStylePage(TWinControl* Page) {
    rgCaptionTextStyle =
        PlaceRadioGroup(Page, "rgCaptionTextStyle", rtl::LoadResString(_sjexnpdsgnTextStyle),
                        Texts({&_sjexnpdsgnTextStyle0, &_sjexnpdsgnTextStyle1, &_sjexnpdsgnTextStyle2}), 0, 4,
                        4, 140, 84);
    rgGlyphPos = PlaceRadioGroup(Page, "rgGlyphPos", rtl::LoadResString(_sjexnpdsgnAlignGlyph),
                                 Texts({&_sjexnpdsgnGlyphPos0, &_sjexnpdsgnGlyphPos1, &_sjexnpdsgnGlyphPos2,
                                        &_sjexnpdsgnGlyphPos3, &_sjexnpdsgnGlyphPos4, &_sjexnpdsgnGlyphPos5}),
                                 2, 4, 92, 140, 150);
    speBtnMargin = PlaceSpinEdit(Page, "speBtnMargin", -1, 999, -1, 160, 24);
    lblBtnMargin = PlaceLabel(Page, "lblBtnMargin", rtl::LoadResString(_sjexnpdsgnMargin), 160, 8, speBtnMargin);
    btnButtonFont = Place<TButton>(Page, "btnButtonFont", 160, 56, 75, 25);
    btnButtonFont->SetCaption(rtl::LoadResString(_sjexnpdsgnFont));

    btnCaptionSample = Place<jex::TjexPicSpeedBtn>(Page, "btnCaptionSample", 260, 40, 120, 60);
    btnCaptionSample->SetCaption(rtl::LoadResString(_sjexnpdsgnSampleCaption));
    btnCaptionSample->SetNumGlyphs(2);
    btnCaptionSample->SetLayout(jex::jblGlyphTop);

    rgCaptionTextStyle->OnClick = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::rgCaptionTextStyleClick);
    rgGlyphPos->OnClick = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::rgGlyphPosClick);
    speBtnMargin->OnChange = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::speBtnMarginChange);
    btnButtonFont->OnClick = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::btnButtonFontClick);
}

void TjexdfNavDesignForm::BuildButtonSizePage(TWinControl* Page) {
    rgBtnSize = PlaceRadioGroup(Page, "rgBtnSize", rtl::LoadResString(_sjexnpdsgnBtnSize),
                                Texts({&_sjexnpdsgnBtnSize0, &_sjexnpdsgnBtnSize1, &_sjexnpdsgnBtnSize2,
                                       &_sjexnpdsgnBtnSize3, &_sjexnpdsgnBtnSize4, &_sjexnpdsgnBtnSize5,
                                       &_sjexnpdsgnBtnSize6, &_sjexnpdsgnBtnSize7, &_sjexnpdsgnBtnSize8,
                                       &_sjexnpdsgnBtnSize9, &_sjexnpdsgnBtnSize10}),
                                DefaultSizeItem, 4, 4, 150, 240);

    grpCustomSize = Place<TGroupBox>(Page, "grpCustomSize", 160, 4, 140, 76);
    grpCustomSize->SetCaption(rtl::LoadResString(_sjexnpdsgnCustomSize));
    grpCustomSize->SetVisible(false);
    speBtnWidth = PlaceSpinEdit(grpCustomSize, "speBtnWidth", 4, 180, 120, 80, 18);
    lblBtnWidth = PlaceLabel(grpCustomSize, "lblBtnWidth", rtl::LoadResString(_sjexnpdsgnWidth), 8, 22, speBtnWidth);
    speBtnHeight = PlaceSpinEdit(grpCustomSize, "speBtnHeight", 4, 100, 60, 80, 46);
    lblBtnHeight =
        PlaceLabel(grpCustomSize, "lblBtnHeight", rtl::LoadResString(_sjexnpdsgnHeight), 8, 50, speBtnHeight);

    grpSizeSample = Place<TGroupBox>(Page, "grpSizeSample", 304, 4, 156, 240);
    grpSizeSample->SetCaption(rtl::LoadResString(_sjexnpdsgnSample));
    pnlSample = Place<TPanel>(grpSizeSample, "pnlSample", 0, 0, 25, 24);
    pnlSample->SetCaption("");
    pnlSample->SetBevelOuter(bvLowered);
    btnSizeSample = Place<jex::TjexPicSpeedBtn>(pnlSample, "btnSizeSample", 1, 1, 23, 22);

    rgBtnSize->OnClick = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::rgBtnSizeClick);
    speBtnWidth->OnChange = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::speBtnWidthChange);
    speBtnHeight->OnChange = rtl::TNotifyEvent(this, &TjexdfNavDesignForm::speBtnWidthChange);
}

void TjexdfNavDesignForm::OpenIniFile() {
    if (!IniFile) IniFile = new rtl::TIniFile(jexNavIniFileName);
}

void TjexdfNavDesignForm::CloseIniFile() {
    rtl::FreeAndNil(IniFile);
}

void TjexdfNavDesignForm::ShowPageState(const std::string& Hint, bool Finishing) {
    lblPageHint->SetCaption(Hint);
    btnPrev->SetEnabled(Notebook->PageIndex() >= 1);
    btnNext->SetCaption(rtl::LoadResString(Finishing ? _sjexnpdsgnBtnCreate : _sjexnpdsgnBtnNext));
    if (std::unique_ptr<TBitmap> glyph = PackageBitmap(Finishing ? CreateGlyphRes : NextGlyphRes))
        btnNext->SetGlyph(glyph.get());
    btnNext->SetNumGlyphs(Finishing ? 1 : 2);
}

int TjexdfNavDesignForm::GlyphStyle() const {
    return rgGlyphStyles ? rgGlyphStyles->ItemIndex() : DefaultGlyphStyle;
}

bool TjexdfNavDesignForm::VerticalGlyphs() const {
    return rgGlyphOrient && rgGlyphOrient->ItemIndex() == 1;
}

int TjexdfNavDesignForm::MarginH() const {
    return spePanelMarginH ? spePanelMarginH->Value() : 0;
}

int TjexdfNavDesignForm::MarginV() const {
    return spePanelMarginV ? spePanelMarginV->Value() : 0;
}

void TjexdfNavDesignForm::LoadBitmapRes(jex::TjexCustomPicSpeedBtn* Button, const std::string& ResName) {
    if (!Button) return;
    std::unique_ptr<TBitmap> bmp = PackageBitmap(ResName);
    if (!bmp) return;
    bmp->SetPixelFormat(pf4bit);
    Button->SetGlyph(bmp.get());
    Button->SetNumGlyphs(2);
}

bool TjexdfNavDesignForm::GetINIFileBtnInfo(const std::string& Name, bool Vert, std::string& FileName,
                                            int& NumGlyphs) const {
    FileName.clear();
    if (!IniFile) return false;
    const std::string key = Vert ? Name + "Vert" : Name;
    const std::string path = IniFile->ReadString(jexNavIniSection, "Path", "");
    std::string file = IniFile->ReadString(jexNavIniSection, key, "");
    if (file.empty() && Vert) file = IniFile->ReadString(jexNavIniSection, Name, "");
    if (file.empty()) return false;
    // The file names the folder with the platform's backslash, always inserted between Path and the name.
    file = path + "\\" + file;
    std::replace(file.begin(), file.end(), '\\', '/');
    if (!rtl::FileExists(file)) return false;
    FileName = file;
    NumGlyphs = IniFile->ReadInteger(jexNavIniSection, Name + "NumGlyphs", 2);
    return true;
}

void TjexdfNavDesignForm::LoadCustomGlyph(jex::TjexCustomPicSpeedBtn* Button, const std::string& Name,
                                          bool ClearIfMissing) {
    std::string file;
    int count = 2;
    if (!GetINIFileBtnInfo(Name, VerticalGlyphs(), file, count)) {
        if (ClearIfMissing) Button->SetPicture(nullptr);
        return;
    }
    CheckGlyphCount(count);
    Button->Picture()->LoadFromFile(file);
    Button->SetNumGlyphs(count);
}

void TjexdfNavDesignForm::SetButtonGlyph(TControl* Control) {
    auto* button = dynamic_cast<jex::TjexCustomPicSpeedBtn*>(Control);
    const int style = GlyphStyle();
    if (style == jexGlyphStyleCustom) {
        if (!button) return;
        std::string name;
        if (rtl::Is<jex::TjexToggleBtn>(button))
            name = "Toggle";
        else if (rtl::Is<jex::TjexPicSpeedBtn>(button))
            name = "Custom";
        else
            name = button->ClassName().substr(1);
        LoadCustomGlyph(button, name, false);
        return;
    }
    if (!button || style < 0 || style >= jexGlyphStyleCustom) return;
    const int kind = KindOfInstance(button);
    if (kind < 0) return;
    const std::string base = VerticalGlyphs() ? JEXDesignNavVertBmpResName(kind) : JEXDesignNavBmpResName(kind);
    if (!base.empty()) LoadBitmapRes(button, "JEXNP_" + base + std::to_string(style));
}

void TjexdfNavDesignForm::InitCaptionSample() {
    btnCaptionSample->SetPicture(btnGlyphSample->Picture());
    btnCaptionSample->SetNumGlyphs(2);
    btnCaptionSample->SetColor(btnGlyphSample->Color());
    btnCaptionSample->SetStyle(btnGlyphSample->Style());
    btnCaptionSample->SetPictureHighlight(btnGlyphSample->PictureHighlight());
    btnCaptionSample->SetPopup(btnGlyphSample->Popup());
}

void TjexdfNavDesignForm::InitNavGlyphSample() {
    LoadBitmapRes(btnGlyphSample, "JEXNP_FIRST2");
    cboBtnStyle->SetItemIndex(jex::jbsThin);
    cboBtnStyleClick(cboBtnStyle);
}

void TjexdfNavDesignForm::BtnSizeOf(int Index, int& W, int& H) const {
    if (Index >= 0 && Index < CustomSizeItem) {
        W = BtnSizes[Index][0];
        H = BtnSizes[Index][1];
    } else {
        W = speBtnWidth->Value();
        H = speBtnHeight->Value();
    }
}

void TjexdfNavDesignForm::CenterSizeSample(int W, int H) {
    const int pw = 2 * MarginH() + W;
    const int ph = 2 * MarginV() + H;
    // C++ division truncates toward zero, as the platform's div does for a preview larger than its area.
    pnlSample->SetBounds((grpSizeSample->Width() - pw + 1) / 2, (grpSizeSample->Height() - ph + 1) / 2, pw, ph);
    btnSizeSample->SetBounds(MarginH(), MarginV(), W, H);
}

void TjexdfNavDesignForm::InitSizeSample() {
    btnSizeSample->SetPicture(btnGlyphSample->Picture());
    btnSizeSample->SetNumGlyphs(2);
    btnSizeSample->SetColor(btnGlyphSample->Color());
    btnSizeSample->SetStyle(btnGlyphSample->Style());
    btnSizeSample->SetPictureHighlight(btnGlyphSample->PictureHighlight());
    btnSizeSample->SetPopup(btnGlyphSample->Popup());
    if (!chkCaption->Checked()) {
        btnSizeSample->SetCaption("");
        btnSizeSample->SetLayout(btnGlyphSample->Layout());
        btnSizeSample->SetTextStyle(btnGlyphSample->TextStyle());
        btnSizeSample->SetMargin(-1);
        rgBtnSize->SetItemIndex(DefaultSizeItem);
        CenterSizeSample(BtnSizes[DefaultSizeItem][0], BtnSizes[DefaultSizeItem][1]);
    } else {
        btnSizeSample->SetCaption(rtl::LoadResString(_sjexnpdsgnSampleCaption));
        btnSizeSample->SetFont(btnCaptionSample->Font());
        btnSizeSample->SetLayout(btnCaptionSample->Layout());
        btnSizeSample->SetMargin(btnCaptionSample->Margin());
        btnSizeSample->SetTextStyle(btnCaptionSample->TextStyle());
        // The radio group shows 40 x 40 while the sample is 50 x 50 until a size is picked.
        rgBtnSize->SetItemIndex(CaptionSizeItem);
        CenterSizeSample(50, 50);
    }
}

void TjexdfNavDesignForm::CancelClick(rtl::TObject*) {
    Close();
}

void TjexdfNavDesignForm::GlyphSampleChange(rtl::TObject*) {
    const int style = GlyphStyle();
    if (style == jexGlyphStyleNone) {
        btnGlyphSample->SetPicture(nullptr);
    } else if (style == jexGlyphStyleCustom) {
        // The preview alone uses the key without the "jex" prefix.
        LoadCustomGlyph(btnGlyphSample, "npFirst", true);
    } else if (style >= 0) {
        LoadBitmapRes(btnGlyphSample,
                      std::string(VerticalGlyphs() ? "JEXNP_VFIRST" : "JEXNP_FIRST") + std::to_string(style));
    }
}

void TjexdfNavDesignForm::chkCaptionClick(rtl::TObject*) {
    const bool on = chkCaption->Checked();
    btnGlyphSample->SetCaption(on ? rtl::LoadResString(_sjexnpdsgnSampleCaption) : std::string());
    btnGlyphSample->SetBounds(btnGlyphSample->Left(), btnGlyphSample->Top(), on ? GlyphSampleCaptionW : GlyphSampleW,
                              GlyphSampleH);
}

void TjexdfNavDesignForm::chkPopupClick(rtl::TObject*) {
    btnGlyphSample->SetPopup(chkPopup->Checked());
}

void TjexdfNavDesignForm::BtnColorClick(rtl::TObject*) {
    ColorDialog->SetColor(btnGlyphSample->Color());
    if (ColorDialog->Execute()) btnGlyphSample->SetColor(ColorDialog->Color());
}

void TjexdfNavDesignForm::btnButtonFontClick(rtl::TObject*) {
    FontDialog->SetFont(btnCaptionSample->Font());
    if (FontDialog->Execute()) btnCaptionSample->SetFont(FontDialog->Font());
}

void TjexdfNavDesignForm::cboBtnStyleClick(rtl::TObject*) {
    if (cboBtnStyle->ItemIndex() >= 0)
        btnGlyphSample->SetStyle(static_cast<jex::TjexButtonStyle>(cboBtnStyle->ItemIndex()));
}

void TjexdfNavDesignForm::cboBtnPicHighlightClick(rtl::TObject*) {
    if (cboBtnPicHighlight->ItemIndex() >= 0)
        btnGlyphSample->SetPictureHighlight(static_cast<jex::TjexPictureHighlight>(cboBtnPicHighlight->ItemIndex()));
}

void TjexdfNavDesignForm::rgCaptionTextStyleClick(rtl::TObject*) {
    if (rgCaptionTextStyle->ItemIndex() >= 0)
        btnCaptionSample->SetTextStyle(static_cast<jex::TjexTextStyle>(rgCaptionTextStyle->ItemIndex()));
}

void TjexdfNavDesignForm::rgGlyphPosClick(rtl::TObject*) {
    if (rgGlyphPos->ItemIndex() >= 0)
        btnCaptionSample->SetLayout(static_cast<jex::TjexButtonLayout>(rgGlyphPos->ItemIndex()));
}

void TjexdfNavDesignForm::speBtnMarginChange(rtl::TObject*) {
    btnCaptionSample->SetMargin(speBtnMargin->Value());
}

void TjexdfNavDesignForm::rgBtnSizeClick(rtl::TObject*) {
    int w = 0, h = 0;
    BtnSizeOf(rgBtnSize->ItemIndex(), w, h);
    CenterSizeSample(w, h);
    grpCustomSize->SetVisible(rgBtnSize->ItemIndex() == CustomSizeItem);
}

void TjexdfNavDesignForm::speBtnWidthChange(rtl::TObject*) {
    CenterSizeSample(speBtnWidth->Value(), speBtnHeight->Value());
}

// ---- The wizard ----------------------------------------------------------------------------------------

JEX_IMPLEMENT_CLASS(TjexdfNavPanelEdit, TjexdfNavDesignForm, "Jexdfnav") {}

TjexdfNavPanelEdit::TjexdfNavPanelEdit(rtl::TComponent* AOwner) : TjexdfNavDesignForm(AOwner) {
    SetName("jexdfNavPanelEdit");
    SetCaption(rtl::LoadResString(_sjexnpdsgnCaption));

    TStrings* pages = Notebook->Pages();
    pages->Clear();
    for (const char* page : {"Buttons", "Glyphs", "CaptionStyle", "ButtonSize", "Captions", "Hints"})
        pages->Add(page);

    // Page 0: the catalogue's outline and the ordered selection.
    TWinControl* page = Notebook->Page(0);
    outButtons = Place<TOutline>(page, "outButtons", 4, 20, 200, 224);
    outButtons->SetItemSeparator("\\");
    lblButtons = PlaceLabel(page, "lblButtons", rtl::LoadResString(_sjexnpdsgnAvailable), 4, 4, outButtons);
    lstSelected = Place<TListBox>(page, "lstSelected", 260, 20, 200, 224);
    lblSelected = PlaceLabel(page, "lblSelected", rtl::LoadResString(_sjexnpdsgnSelected), 260, 4, lstSelected);
    lblSelected->SetWidth(160);
    btnAdd = Place<TButton>(page, "btnAdd", 212, 40, 40, 25);
    btnAdd->SetCaption(rtl::LoadResString(_sjexnpdsgnAdd));
    btnAddAll = Place<TButton>(page, "btnAddAll", 212, 70, 40, 25);
    btnAddAll->SetCaption(rtl::LoadResString(_sjexnpdsgnAddAll));
    btnRemove = Place<TButton>(page, "btnRemove", 212, 110, 40, 25);
    btnRemove->SetCaption(rtl::LoadResString(_sjexnpdsgnRemove));
    btnRemoveAll = Place<TButton>(page, "btnRemoveAll", 212, 140, 40, 25);
    btnRemoveAll->SetCaption(rtl::LoadResString(_sjexnpdsgnRemoveAll));
    btnUp = Place<TButton>(page, "btnUp", 212, 180, 40, 25);
    btnUp->SetCaption(rtl::LoadResString(_sjexnpdsgnUp));
    btnDown = Place<TButton>(page, "btnDown", 212, 210, 40, 25);
    btnDown->SetCaption(rtl::LoadResString(_sjexnpdsgnDown));

    BuildGlyphsPage(Notebook->Page(1));
    BuildCaptionStylePage(Notebook->Page(2));
    BuildButtonSizePage(Notebook->Page(3));

    // Page 3: the panel's margins and the grid of buttons.
    page = Notebook->Page(3);
    grpPanelMargin = Place<TGroupBox>(page, "grpPanelMargin", 160, 84, 140, 48);
    grpPanelMargin->SetCaption(rtl::LoadResString(_sjexnpdsgnPanelMargin));
    spePanelMarginH = PlaceSpinEdit(grpPanelMargin, "spePanelMarginH", 0, 10, 1, 34, 18);
    spePanelMarginH->SetWidth(34);
    lblPanelMarginH = PlaceLabel(grpPanelMargin, "lblPanelMarginH", rtl::LoadResString(_sjexnpdsgnHorz), 4, 22,
                                 spePanelMarginH);
    spePanelMarginV = PlaceSpinEdit(grpPanelMargin, "spePanelMarginV", 0, 10, 1, 102, 18);
    spePanelMarginV->SetWidth(34);
    lblPanelMarginV = PlaceLabel(grpPanelMargin, "lblPanelMarginV", rtl::LoadResString(_sjexnpdsgnVert), 72, 22,
                                 spePanelMarginV);

    grpBtnAlign = Place<TGroupBox>(page, "grpBtnAlign", 160, 136, 140, 108);
    grpBtnAlign->SetCaption(rtl::LoadResString(_sjexnpdsgnBtnAlign));
    speBtnOffsetH = PlaceSpinEdit(grpBtnAlign, "speBtnOffsetH", -1, 180, 1, 80, 16);
    lblBtnOffsetH = PlaceLabel(grpBtnAlign, "lblBtnOffsetH", rtl::LoadResString(_sjexnpdsgnOffsetHorz), 4, 20,
                               speBtnOffsetH);
    speBtnOffsetV = PlaceSpinEdit(grpBtnAlign, "speBtnOffsetV", -1, 180, 1, 80, 38);
    lblBtnOffsetV = PlaceLabel(grpBtnAlign, "lblBtnOffsetV", rtl::LoadResString(_sjexnpdsgnVert), 4, 42,
                               speBtnOffsetV);
    speBtnRows = PlaceSpinEdit(grpBtnAlign, "speBtnRows", 1, 180, 1, 80, 60);
    lblBtnRows = PlaceLabel(grpBtnAlign, "lblBtnRows", rtl::LoadResString(_sjexnpdsgnRows), 4, 64, speBtnRows);
    speBtnCols = PlaceSpinEdit(grpBtnAlign, "speBtnCols", 1, 180, 1, 80, 82);
    lblBtnCols = PlaceLabel(grpBtnAlign, "lblBtnCols", rtl::LoadResString(_sjexnpdsgnCols), 4, 86, speBtnCols);

    // Pages 4 and 5: the texts of the selected buttons, one row each under a header row.
    grdCaptions = Place<TStringGrid>(Notebook->Page(4), "grdCaptions", 4, 4, 456, 240);
    grdCaptions->SetColCount(2);
    grdHints = Place<TStringGrid>(Notebook->Page(5), "grdHints", 4, 4, 456, 240);
    grdHints->SetColCount(3);
    for (TStringGrid* grid : {grdCaptions, grdHints}) {
        grid->SetOptions(grid->Options() + TGridOptions{goEditing, goColSizing, goTabs});
        grid->SetColWidths(0, 120);
    }
    Notebook->SetPageIndex(0);

    btnPrev->OnClick = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::PrevClick);
    btnNext->OnClick = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::NextClick);
    btnAdd->OnClick = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::btnAddClick);
    btnAddAll->OnClick = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::btnAddAllClick);
    btnRemove->OnClick = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::btnRemoveClick);
    btnRemoveAll->OnClick = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::btnRemoveAllClick);
    btnUp->OnClick = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::btnUpClick);
    btnDown->OnClick = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::btnDownClick);
    outButtons->OnDblClick = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::outButtonsDblClick);
    spePanelMarginH->OnChange = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::spePanelMarginChange);
    spePanelMarginV->OnChange = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::spePanelMarginChange);
    speBtnRows->OnChange = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::speBtnRowsChange);
    speBtnCols->OnChange = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::speBtnColsChange);

    OnCreate = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::FormCreate);
    OnDestroy = rtl::TNotifyEvent(this, &TjexdfNavPanelEdit::FormDestroy);
}

void TjexdfNavPanelEdit::FormCreate(rtl::TObject*) {
    OpenIniFile();
    InitOutline();
    Notebook->SetPageIndex(0);
    PrevClick(this);
    RefreshButtons();
    InitNavGlyphSample();
}

void TjexdfNavPanelEdit::FormDestroy(rtl::TObject*) {
    CloseIniFile();
}

void TjexdfNavPanelEdit::InitOutline() {
    static const rtl::TResourceString* const groups[6] = {&_sjexnpdsgnListGroup1, &_sjexnpdsgnListGroup2,
                                                          &_sjexnpdsgnListGroup3, &_sjexnpdsgnListGroup4,
                                                          &_sjexnpdsgnListGroup5, &_sjexnpdsgnListGroup6};
    outButtons->BeginUpdate();
    outButtons->Clear();
    int group = 0, node = 0;
    for (int kind = 0; kind < jexNavBtnKindCount; ++kind) {
        if (group < 6 && kind == jexNavGroupFirstKind[group]) node = outButtons->Add(0, rtl::LoadResString(*groups[group++]));
        outButtons->AddChildObject(node, JEXDesignNavBtnListName(kind),
                                   reinterpret_cast<void*>(static_cast<intptr_t>(kind)));
    }
    outButtons->EndUpdate();
}

int TjexdfNavPanelEdit::SelectedKind(int Index) const {
    return static_cast<int>(reinterpret_cast<intptr_t>(lstSelected->Items()->Objects(Index)) & 0xFFFF);
}

void TjexdfNavPanelEdit::AppendEntry(int OutlineIndex) {
    TOutlineNode* node = outButtons->Items(OutlineIndex);
    lstSelected->Items()->AddObject(node->Text(), static_cast<rtl::TObject*>(node->Data()));
}

void TjexdfNavPanelEdit::FocusIfShowing(TWinControl* Control) {
    if (Control->Showing() && Control->Enabled()) Control->SetFocus();
}

void TjexdfNavPanelEdit::btnAddClick(rtl::TObject*) {
    const int selected = outButtons->SelectedItem();
    if (selected <= 0) return;
    TOutlineNode* node = outButtons->Items(selected);
    if (node->HasItems()) {
        for (int i = 0; i < node->ChildCount(); ++i)
            AppendEntry(node->Child(i)->Index());
    } else {
        AppendEntry(selected);
    }
}

void TjexdfNavPanelEdit::outButtonsDblClick(rtl::TObject*) {
    const int selected = outButtons->SelectedItem();
    if (selected > 0 && !outButtons->Items(selected)->HasItems()) AppendEntry(selected);
}

void TjexdfNavPanelEdit::btnAddAllClick(rtl::TObject*) {
    for (int i = 1; i <= outButtons->ItemCount(); ++i)
        if (!outButtons->Items(i)->HasItems()) AppendEntry(i);
}

void TjexdfNavPanelEdit::btnRemoveClick(rtl::TObject*) {
    const int index = lstSelected->ItemIndex();
    if (index < 0) return;
    TStrings* items = lstSelected->Items();
    items->Delete(index);
    if (items->Count() > 0) lstSelected->SetItemIndex(std::min(index, items->Count() - 1));
    FocusIfShowing(lstSelected);
}

void TjexdfNavPanelEdit::btnRemoveAllClick(rtl::TObject*) {
    lstSelected->Items()->Clear();
    FocusIfShowing(outButtons);
}

void TjexdfNavPanelEdit::btnUpClick(rtl::TObject*) {
    const int index = lstSelected->ItemIndex();
    if (index <= 0) return;
    lstSelected->Items()->Exchange(index, index - 1);
    lstSelected->SetItemIndex(index - 1);
}

void TjexdfNavPanelEdit::btnDownClick(rtl::TObject*) {
    const int index = lstSelected->ItemIndex();
    if (index < 0 || index >= lstSelected->Items()->Count() - 1) return;
    lstSelected->Items()->Exchange(index, index + 1);
    lstSelected->SetItemIndex(index + 1);
}

void TjexdfNavPanelEdit::NextClick(rtl::TObject*) {
    switch (Notebook->PageIndex()) {
    case 0:
        SelectedCount = lstSelected->Items()->Count();
        Notebook->SetPageIndex(1);
        break;
    case 1:
        if (chkCaption->Checked()) {
            InitCaptionSample();
            Notebook->SetPageIndex(2);
        } else {
            InitButtonSize();
            Notebook->SetPageIndex(3);
        }
        break;
    case 2:
        InitButtonSize();
        Notebook->SetPageIndex(3);
        break;
    case 3:
        if (SelectedCount > 0 && chkCaption->Checked()) {
            InitDefaultCaptions();
            Notebook->SetPageIndex(4);
        } else if (SelectedCount > 0 && chkHints->Checked()) {
            InitDefaultHints();
            Notebook->SetPageIndex(5);
        } else {
            SetModalResult(mrOk);
        }
        break;
    case 4:
        if (chkHints->Checked()) {
            InitDefaultHints();
            Notebook->SetPageIndex(5);
        } else {
            SetModalResult(mrOk);
        }
        break;
    default:
        SetModalResult(mrOk);
        break;
    }
    RefreshButtons();
}

void TjexdfNavPanelEdit::PrevClick(rtl::TObject*) {
    switch (Notebook->PageIndex()) {
    case 1:
        Notebook->SetPageIndex(0);
        break;
    case 2:
        Notebook->SetPageIndex(1);
        break;
    case 3:
        Notebook->SetPageIndex(chkCaption->Checked() ? 2 : 1);
        break;
    case 4:
        Notebook->SetPageIndex(3);
        break;
    case 5:
        Notebook->SetPageIndex(chkCaption->Checked() ? 4 : 3);
        break;
    default:
        break;
    }
    RefreshButtons();
}

void TjexdfNavPanelEdit::RefreshButtons() {
    static const rtl::TResourceString* const hints[6] = {
        &_sjexnpdsgnPageHintButtons,    &_sjexnpdsgnPageHintGlyphs,   &_sjexnpdsgnPageHintCaptionStyle,
        &_sjexnpdsgnPageHintButtonSize, &_sjexnpdsgnPageHintCaptions, &_sjexnpdsgnPageHintHints};
    const int page = Notebook->PageIndex();
    const bool caption = chkCaption->Checked(), hintsOn = chkHints->Checked();
    const bool finishing = page == 5 || (page == 4 && !hintsOn) ||
                           (page == 3 && (SelectedCount == 0 || (!caption && !hintsOn)));
    ShowPageState(page >= 0 && page < 6 ? rtl::LoadResString(*hints[page]) : std::string(), finishing);
}

void TjexdfNavPanelEdit::InitButtonSize() {
    Initialising = true;
    try {
        ButtonTotal = 0;
        if (Panel)
            for (int i = 0; i < Panel->ControlCount(); ++i)
                if (rtl::Is<jex::TjexCustomPicSpeedBtn>(Panel->Controls(i))) ++ButtonTotal;
        for (int i = 0; i < lstSelected->Items()->Count(); ++i)
            if (rtl::TClass cls = JEXDesignNavComponentClass(SelectedKind(i));
                cls && cls->InheritsFrom(jex::TjexCustomPicSpeedBtn::StaticClass()))
                ++ButtonTotal;

        InRowColChange = true;
        if (ButtonTotal < 2) {
            // One button or none: the grid is fixed at that count.
            for (TSpinEdit* e : {speBtnRows, speBtnCols}) {
                e->SetMinValue(ButtonTotal);
                e->SetValue(ButtonTotal);
            }
            RowCount = ColCount = ButtonTotal;
        } else {
            for (TSpinEdit* e : {speBtnRows, speBtnCols}) {
                e->SetMinValue(1);
                e->SetMaxValue(ButtonTotal);
            }
            const bool vertical = VerticalGlyphs();
            RowCount = vertical ? ButtonTotal : 1;
            ColCount = vertical ? 1 : ButtonTotal;
            speBtnRows->SetValue(RowCount);
            speBtnCols->SetValue(ColCount);
        }
        InRowColChange = false;
        // On a toolbar the alignment group stays disabled whatever the count.
        const bool enabled = ButtonTotal >= 2 && !ToolWindow;
        for (TControl* c : std::initializer_list<TControl*>{speBtnRows, speBtnCols, lblBtnRows, lblBtnCols})
            c->SetEnabled(enabled);

        const int offset = chkPopup->Checked() ? 0 : -1;
        speBtnOffsetH->SetValue(offset);
        speBtnOffsetV->SetValue(offset);
        spePanelMarginH->SetValue(1);
        spePanelMarginV->SetValue(1);

        InitSizeSample();
    } catch (...) {
        InRowColChange = false;
        Initialising = false;
        throw;
    }
    Initialising = false;
}

void TjexdfNavPanelEdit::spePanelMarginChange(rtl::TObject*) {
    if (!Initialising) CenterSizeSample(btnSizeSample->Width(), btnSizeSample->Height());
}

int TjexdfNavPanelEdit::GetColCount(int Total, int& Rows) {
    if (Total == 0) {
        Rows = 0;
        return 0;
    }
    if (Rows >= Total) {
        Rows = Total;
        return 1;
    }
    if (Rows <= 0) Rows = 1;
    return static_cast<int>(std::ceil(static_cast<double>(Total) / Rows));
}

int TjexdfNavPanelEdit::GetRowCount(int Total, int& Cols) {
    return GetColCount(Total, Cols);
}

void TjexdfNavPanelEdit::speBtnRowsChange(rtl::TObject*) {
    if (InRowColChange) return;
    LastChanged = 0;
    StepGrid(speBtnRows, speBtnCols, RowCount, ColCount, !VerticalGlyphs());
}

void TjexdfNavPanelEdit::speBtnColsChange(rtl::TObject*) {
    if (InRowColChange) return;
    LastChanged = 1;
    StepGrid(speBtnCols, speBtnRows, ColCount, RowCount, VerticalGlyphs());
}

void TjexdfNavPanelEdit::StepGrid(TSpinEdit* Changed, TSpinEdit* Other, int& Count, int& OtherCount,
                                  bool StepToChange) {
    InRowColChange = true;
    try {
        const bool increasing = Changed->Value() > Count;
        Count = Changed->Value();
        OtherCount = GetColCount(ButtonTotal, Count);
        if (StepToChange) {
            // Step on to the next count that really changes the other dimension, then leave no line empty.
            while (Other->Value() == OtherCount && OtherCount != 1 && OtherCount != ButtonTotal) {
                Count += increasing ? 1 : -1;
                OtherCount = GetColCount(ButtonTotal, Count);
            }
            Count = GetColCount(ButtonTotal, OtherCount);
        }
        speBtnRows->SetValue(RowCount);
        speBtnCols->SetValue(ColCount);
    } catch (...) {
        InRowColChange = false;
        throw;
    }
    InRowColChange = false;
}

void TjexdfNavPanelEdit::InitDefaultCaptions() {
    const int n = lstSelected->Items()->Count();
    grdCaptions->SetRowCount(n + 1);
    grdCaptions->SetFixedRows(1);
    grdCaptions->SetColWidths(1, grdCaptions->Width() - grdCaptions->ColWidths(0));
    grdCaptions->SetCells(0, 0, rtl::LoadResString(_sjexnpdsgnColButton));
    grdCaptions->SetCells(1, 0, rtl::LoadResString(_sjexnpdsgnColCaption));
    for (int i = 0; i < n; ++i) {
        grdCaptions->SetCells(0, i + 1, (*lstSelected->Items())[i]);
        grdCaptions->SetCells(1, i + 1, JEXDesignNavComponentCaption(SelectedKind(i)));
    }
}

void TjexdfNavPanelEdit::InitDefaultHints() {
    const int n = lstSelected->Items()->Count();
    grdHints->SetRowCount(n + 1);
    grdHints->SetFixedRows(1);
    const int rest = grdHints->Width() - grdHints->ColWidths(0);
    grdHints->SetColWidths(1, rest - rest / 3);
    grdHints->SetColWidths(2, rest / 3);
    grdHints->SetCells(0, 0, rtl::LoadResString(_sjexnpdsgnColButton));
    grdHints->SetCells(1, 0, rtl::LoadResString(_sjexnpdsgnColHint));
    grdHints->SetCells(2, 0, rtl::LoadResString(_sjexnpdsgnColHintDown));
    for (int i = 0; i < n; ++i) {
        const int kind = SelectedKind(i);
        grdHints->SetCells(0, i + 1, (*lstSelected->Items())[i]);
        grdHints->SetCells(1, i + 1, JEXDesignNavComponentHint(kind));
        grdHints->SetCells(2, i + 1, JEXDesignNavComponentHintDown(kind));
    }
}

std::string TjexdfNavPanelEdit::UniqueComponentName(rtl::TComponent* Owner, const std::string& Base) {
    int& next = FNextNumbers.try_emplace(Base, 1).first->second;
    std::string name;
    for (;; ++next) {
        name = Base + std::to_string(next);
        if (!Owner || !Owner->FindComponent(name)) break;
    }
    ++next; // this one is taken now
    return name;
}

void TjexdfNavPanelEdit::CreateButtons() {
    FNextNumbers.clear();
    if (ToolWindow) ToolWindow->BeginUpdate();
    // Every new child would otherwise realign all the panel's children: aligned once, at the end.
    Panel->DisableAlign();
    auto finish = [&] {
        FNextNumbers.clear();
        Panel->EnableAlign();
        if (ToolWindow) ToolWindow->EndUpdate();
    };
    try {
        for (int i = 0; i < lstSelected->Items()->Count(); ++i)
            CreateButton(i);
        AdjustAllButtons();
        if (chkHints->Checked()) Panel->SetShowHint(true);
    } catch (...) {
        finish();
        throw;
    }
    finish();
}

void TjexdfNavPanelEdit::CreateButton(int Index) {
    const rtl::TClass cls = JEXDesignNavComponentClass(SelectedKind(Index));
    if (!cls || !cls->CanCreateComponent()) return;
    rtl::TComponent* owner = Panel->Owner() ? Panel->Owner() : Panel;
    rtl::TComponent* component = cls->CreateComponent(owner);
    component->SetName(UniqueComponentName(owner, cls->ClassName().substr(1)));
    auto* control = dynamic_cast<TControl*>(component);
    if (!control) return;

    const int row = Index + 1;
    const bool caption = chkCaption->Checked(), hints = chkHints->Checked();
    auto setStateHints = [&](jex::TjexCustomPicSpeedBtn* b) {
        b->SetHintUp(grdHints->Cells(1, row));
        b->SetHintDown(grdHints->Cells(2, row));
    };
    control->SetParent(Panel);
    if (auto* np = dynamic_cast<jex::TjexCustomnpBtn*>(control)) {
        if (caption) np->SetCaption(grdCaptions->Cells(1, row));
        if (hints) {
            if (HasStateHints(np))
                setStateHints(np);
            else
                np->SetHint(grdHints->Cells(1, row));
        }
        if (rtl::Is<jex::TjexnpBlobEdit>(np) || rtl::Is<jex::TjexnpFilterActive>(np) ||
            rtl::Is<jex::TjexnpFindReplace>(np)) {
            if (auto* p = dynamic_cast<jex::TjexCustomNavPanel*>(Panel)) p->SetAutoField(true);
            if (auto* t = dynamic_cast<jex::TjexNavToolbar*>(Panel)) t->SetAutoField(true);
        }
    } else if (auto* combo = dynamic_cast<jex::TjexnpIndexCombo*>(control)) {
        if (hints) combo->SetHint(grdHints->Cells(1, row));
        if (auto* host = dynamic_cast<jex::IjexNavHost*>(Panel); host && host->IsLinkedToOpenDataSet())
            combo->LoadItemsFromDataSet();
    } else if (auto* toggle = dynamic_cast<jex::TjexToggleBtn*>(control)) {
        if (caption) toggle->SetCaption(grdCaptions->Cells(1, row));
        if (hints) setStateHints(toggle);
        if (GlyphStyle() == jexGlyphStyleCustom) SetButtonGlyph(toggle);
    } else if (auto* custom = dynamic_cast<jex::TjexPicSpeedBtn*>(control)) {
        if (caption) custom->SetCaption(grdCaptions->Cells(1, row));
        if (hints) custom->SetHint(grdHints->Cells(1, row));
        if (GlyphStyle() == jexGlyphStyleCustom) SetButtonGlyph(custom);
    } else if (auto* range = dynamic_cast<jex::TjexnpRangeEdit*>(control)) {
        if (hints) range->SetHint(grdHints->Cells(1, row));
    }
}

void TjexdfNavPanelEdit::AdjustAllButtons() {
    const int offH = speBtnOffsetH->Value(), offV = speBtnOffsetV->Value();
    const int marH = spePanelMarginH->Value(), marV = spePanelMarginV->Value();
    const int btnW = btnSizeSample->Width(), btnH = btnSizeSample->Height();

    std::vector<jex::TjexCustomPicSpeedBtn*> buttons;
    std::vector<TControl*> others;
    for (int i = 0; i < Panel->ControlCount(); ++i) {
        TControl* c = Panel->Controls(i);
        if (auto* b = dynamic_cast<jex::TjexCustomPicSpeedBtn*>(c))
            buttons.push_back(b);
        else
            others.push_back(c);
    }

    const bool captions = chkCaption->Checked();
    const bool glyphs = GlyphStyle() != jexGlyphStyleNone;
    auto style = [&](jex::TjexCustomPicSpeedBtn* b) {
        if (glyphs) SetButtonGlyph(b);
        b->SetColor(btnGlyphSample->Color());
        b->SetStyle(btnGlyphSample->Style());
        b->SetPictureHighlight(btnGlyphSample->PictureHighlight());
        b->SetPopup(btnGlyphSample->Popup());
        if (captions) {
            b->SetFont(btnCaptionSample->Font());
            b->SetLayout(btnCaptionSample->Layout());
            b->SetTextStyle(btnCaptionSample->TextStyle());
            b->SetMargin(btnCaptionSample->Margin());
        } else {
            b->SetMargin(-1);
        }
    };

    // Horizontal panels fill rows of ColCount buttons, vertical ones columns of RowCount buttons, and the
    // other controls flow after them in the same direction; the two are one layout with the axes exchanged.
    // U runs along a line of buttons, V across the lines.
    const bool vertical = VerticalGlyphs();
    const int perLine = vertical ? RowCount : ColCount;
    const int btnU = vertical ? btnH : btnW, btnV = vertical ? btnW : btnH;
    const int offU = vertical ? offV : offH, offAcross = vertical ? offH : offV;
    const int marU = vertical ? marV : marH, marAcross = vertical ? marH : marV;
    auto sizeU = [&](const TControl* c) { return vertical ? c->Height() : c->Width(); };
    auto sizeV = [&](const TControl* c) { return vertical ? c->Width() : c->Height(); };
    auto place = [&](TControl* c, int u, int v, int su, int sv) {
        if (vertical)
            c->SetBounds(v, u, sv, su);
        else
            c->SetBounds(u, v, su, sv);
    };

    int panelU = CheckedAdd(CheckedMul(btnU + offU, perLine), 2 * marU - offU);
    int u = marU, v = marAcross, n = 0;
    for (jex::TjexCustomPicSpeedBtn* b : buttons) {
        style(b);
        place(b, u, v, btnU, btnV);
        if (++n < perLine) {
            u += btnU + offU;
        } else {
            n = 0;
            u = marU;
            v = CheckedAdd(v, btnV + offAcross);
        }
    }
    if (!buttons.empty()) {
        v += others.empty() ? marAcross : 1 - offAcross;
        if (u != marU) v += btnV; // the last line is incomplete
    }
    const int lineStart = marU + 1;
    int lineV = 0;
    u = lineStart;
    for (TControl* o : others) {
        const int cu = sizeU(o), cv = sizeV(o);
        if (u != lineStart && u + marU + cu + 1 > panelU) {
            u = lineStart;
            v = CheckedAdd(v, lineV + 1);
            lineV = 0;
        }
        if (u == lineStart && cu + 2 * marU + 2 > panelU) panelU = cu + 2 * marU + 2;
        place(o, u, v, cu, cv);
        u += cu + 2;
        lineV = std::max(lineV, cv);
    }
    const int panelV = others.empty() ? v : CheckedAdd(v, lineV + marAcross + 1);
    if (vertical)
        Panel->SetBounds(Panel->Left(), Panel->Top(), panelV, panelU);
    else
        Panel->SetBounds(Panel->Left(), Panel->Top(), panelU, panelV);
}

bool ExecjexdfNavPanelEdit(TWinControl* Panel) {
    if (!Panel) throw rtl::EInvalidOperation(rtl::LoadResString(_sjexnpdsgnNoPanel));
    auto* dialog = NewForm<TjexdfNavPanelEdit>(nullptr);
    bool created = false;
    try {
        dialog->ToolWindow = dynamic_cast<jex::TjexNavToolbar*>(Panel);
        if (dialog->ToolWindow)
            for (TWinControl* group : {static_cast<TWinControl*>(dialog->grpBtnAlign),
                                       static_cast<TWinControl*>(dialog->grpPanelMargin)})
                for (int i = 0; i < group->ControlCount(); ++i)
                    group->Controls(i)->SetEnabled(false);
        dialog->Panel = Panel;
        if (dialog->ShowModal() == mrOk) {
            dialog->CreateButtons();
            created = true;
        }
    } catch (...) {
        dialog->Free();
        throw;
    }
    dialog->Free();
    return created;
}

} // namespace dcljexc

DCLJEXC_UNIT_WITHOUT_BODIES(Jexdfnav)
