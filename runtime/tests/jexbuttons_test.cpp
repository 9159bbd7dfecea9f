// Buttons: glyph images and highlights from real bitmaps, speed-button groups and two-state hints,
// repeating, form-opening and sound buttons through the scripted user interface, shaped and self-sizing
// buttons, menu buttons.
#include <gtest/gtest.h>

#include "jex/jexbuttons.h"
#include "vcl/forms.h"
#include "vcl/scripted_ui.h"

using namespace jex;
using namespace vcl;

namespace {

// A 2-image strip (8 x 4 each): image 0 red on an olive background, image 1 blue; the bottom-left pixel
// is olive, so olive is the transparent colour.
void MakeStrip(TBitmap& bmp) {
    bmp.SetSize(16, 4);
    bmp.SetPixelFormat(pf24bit);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 16; ++x)
            bmp.SetPixelRGB(x, y, RGB(128, 128, 0));
    for (int y = 0; y < 2; ++y)
        for (int x = 2; x < 6; ++x) {
            bmp.SetPixelRGB(x, y, RGB(200, 0, 0));
            bmp.SetPixelRGB(8 + x, y, RGB(0, 0, 200));
        }
}

class TSoundLog : public TjexCustomSoundList {
    JEX_CLASS(TSoundLog, TjexCustomSoundList)
    using TjexCustomSoundList::TjexCustomSoundList;
    int SoundCount() const override { return 10; }
    bool PlaySound(int Index) override {
        Played.push_back(Index);
        return true;
    }
    std::vector<int> Played;
};

class TTargetForm : public TForm {
    JEX_CLASS(TTargetForm, TForm)
    explicit TTargetForm(rtl::TComponent* owner) : TForm(owner) { SetName("TargetForm"); }
};

} // namespace

JEX_IMPLEMENT_CLASS(TSoundLog, TjexCustomSoundList, "jexbuttons_test") {}
JEX_IMPLEMENT_CLASS(TTargetForm, TForm, "jexbuttons_test") {}

TEST(JexGlyphProps, NumGlyphsOutsideOneToFiveIsARangeErrorAndKeepsTheCount) {
    TjexPicSpeedBtn b(nullptr);
    b.SetNumGlyphs(2);
    EXPECT_THROW(b.SetNumGlyphs(0), rtl::ERangeError);
    EXPECT_THROW(rtl::SetOrdProp(&b, "NumGlyphs", 6), rtl::ERangeError);
    EXPECT_EQ(b.NumGlyphs(), 2);
}

TEST(JexGlyphProps, GlyphImagesComeFromTheStripWithTransparencyAndHighlight) {
    TjexPicSpeedBtn b(nullptr);
    TBitmap strip;
    MakeStrip(strip);
    b.SetGlyph(&strip);
    b.SetNumGlyphs(2);
    EXPECT_EQ(b.GlyphWidth(), 8);
    EXPECT_EQ(b.GlyphHeight(), 4);
    EXPECT_EQ(b.Glyph()->Width(), 16);
    EXPECT_EQ(b.GlyphIndex(TjexGlyphState::Disabled), 1);
    EXPECT_EQ(b.GlyphIndex(TjexGlyphState::Down), 0); // only two images

    TBitmap out;
    b.DrawGlyph(TjexGlyphState::Up, &out, clWhite);
    EXPECT_EQ(out.Width(), 8);
    EXPECT_EQ(out.PixelRGB(3, 0), RGB(200, 0, 0));
    EXPECT_EQ(out.PixelRGB(0, 3), RGB(255, 255, 255)); // olive is transparent
    b.DrawGlyph(TjexGlyphState::Disabled, &out, clWhite);
    EXPECT_EQ(out.PixelRGB(3, 0), RGB(0, 0, 200)); // its own disabled image

    b.SetPictureHighlight(jphGray);
    b.DrawGlyph(TjexGlyphState::Up, &out, clWhite);
    uint32_t p = out.PixelRGB(3, 0);
    EXPECT_EQ(p & 0xFF, (p >> 8) & 0xFF);
    EXPECT_EQ(p & 0xFF, 60u); // 200 * 30%
    b.DrawGlyph(TjexGlyphState::Over, &out, clWhite);
    EXPECT_EQ(out.PixelRGB(3, 0), RGB(200, 0, 0)); // the mouse over shows the real colours
    b.SetPictureHighlight(jphDarken);
    b.DrawGlyph(TjexGlyphState::Up, &out, clWhite);
    EXPECT_EQ(out.PixelRGB(3, 0), RGB(150, 0, 0));
    b.SetPictureHighlight(jphFade);
    b.DrawGlyph(TjexGlyphState::Up, &out, clWhite);
    EXPECT_EQ(out.PixelRGB(3, 0), RGB(227, 127, 127));

    // One image only: a disabled button derives its look from it.
    b.SetNumGlyphs(1);
    b.SetDisabledShadow(true);
    b.DrawGlyph(TjexGlyphState::Disabled, &out, clWhite);
    EXPECT_EQ(out.PixelRGB(3, 0), ColorToRGB(clBtnShadow));
    EXPECT_EQ(out.PixelRGB(0, 3), RGB(255, 255, 255));
}

TEST(JexGlyphProps, AnImageListReplacesThePicture) {
    TComponent owner(nullptr);
    auto* images = new TImageList(&owner);
    TBitmap strip;
    MakeStrip(strip);
    images->SetSize(8, 4);
    images->AddMasked(&strip, RGB(128, 128, 0));
    ASSERT_EQ(images->Count(), 2);
    auto* b = new TjexPicSpeedBtn(&owner);
    b->SetImages(images);
    b->SetImageIndex(1);
    TBitmap out;
    b->DrawGlyph(TjexGlyphState::Up, &out, clWhite);
    EXPECT_EQ(out.PixelRGB(3, 0), RGB(0, 0, 200));
    EXPECT_EQ(out.PixelRGB(0, 3), RGB(255, 255, 255));
    images->Free();
    EXPECT_EQ(b->Images(), nullptr);
    EXPECT_EQ(b->GlyphWidth(), 0);
}

TEST(JexPicSpeedBtn, GroupedButtonsAreExclusiveAndAllowAllUpReleasesTheLast) {
    TForm form(nullptr);
    auto* a = new TjexPicSpeedBtn(&form);
    auto* b = new TjexPicSpeedBtn(&form);
    auto* lone = new TjexPicSpeedBtn(&form);
    for (auto* x : {a, b, lone})
        x->SetParent(&form);
    a->SetGroupIndex(1);
    b->SetGroupIndex(1);
    int clicks = 0;
    a->OnClick = [&](rtl::TObject*) { ++clicks; };
    a->UserClick();
    EXPECT_TRUE(a->Down());
    b->UserClick();
    EXPECT_TRUE(b->Down());
    EXPECT_FALSE(a->Down());
    b->UserClick(); // without AllowAllUp the last one stays down
    EXPECT_TRUE(b->Down());
    a->SetAllowAllUp(true);
    EXPECT_TRUE(b->AllowAllUp()); // shared by the group
    b->UserClick();
    EXPECT_FALSE(b->Down());
    lone->SetDown(true); // no group: a speed button springs back
    EXPECT_FALSE(lone->Down());
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(DescribeControl(a).Checked, std::optional<bool>(false));
    EXPECT_FALSE(DescribeControl(lone).Checked.has_value());
}

TEST(JexToggleBtn, TogglesAndShowsTheHintOfItsState) {
    TForm form(nullptr);
    auto* sounds = new TSoundLog(&form);
    auto* t = new TjexToggleBtn(&form);
    t->SetParent(&form);
    t->SetHintUp("Activate Button|Click to activate button");
    t->SetHintDown("Deactivate Button|Click to deactivate button");
    t->SetSoundList(sounds);
    t->SetSoundDown(3);
    t->SetSoundOver(4);
    EXPECT_EQ(t->Hint(), "Activate Button|Click to activate button");
    t->UserClick();
    EXPECT_TRUE(t->Down());
    EXPECT_EQ(t->Hint(), "Deactivate Button|Click to deactivate button");
    EXPECT_EQ(t->CurrentGlyphState(), TjexGlyphState::Exclusive);
    t->UserClick();
    EXPECT_FALSE(t->Down());
    t->MouseEnter();
    t->MouseEnter(); // once per entry
    EXPECT_EQ(t->CurrentGlyphState(), TjexGlyphState::Over);
    EXPECT_EQ(sounds->Played, (std::vector<int>{3, 3, 4}));
    EXPECT_FALSE(TjexToggleBtn::StaticClass()->InheritsFrom(TjexPicSpeedBtn::StaticClass()));
}

TEST(JexRepSpeedBtn, HoldingClicksAfterTheInitialPauseAndThenEveryPause) {
    TjexRepSpeedBtn b(nullptr);
    int clicks = 0;
    b.OnClick = [&](rtl::TObject*) { ++clicks; };
    EXPECT_EQ(b.ClicksForHold(399), 1);
    EXPECT_EQ(b.ClicksForHold(400), 2);
    EXPECT_EQ(b.ClicksForHold(1000), 8); // 400, then 500 ... 1000
    b.Hold(1000);
    EXPECT_EQ(clicks, 8);
    b.SetAccelerate(true); // pauses 100, 75, 56, 42, 31, 23, 20, 20 ...
    EXPECT_EQ(b.ClicksForHold(400 + 100 + 75 + 56), 5);
    EXPECT_EQ(b.ClicksForHold(400 + 327 + 20 * 10), 2 + 6 + 10);
    EXPECT_GT(b.ClicksForHold(INT32_MAX), 1000000); // no endless loop, no overflow
    b.SetRepeatEnabled(false);
    EXPECT_EQ(b.ClicksForHold(5000), 1);
}

TEST(JexFormButtons, OpenTheNamedFormModallyThroughTheUserInterface) {
    TScriptedUI ui;
    rtl::RegisterClass(TTargetForm::StaticClass());
    TForm host(nullptr);
    auto* button = new TjexFormButton(&host);
    button->SetFormName("TargetForm");
    ui.OnForm("TTargetForm", [](TFormDriver& f) { f.Close(mrOk); });
    button->Click();
    EXPECT_EQ(button->LastResult(), mrOk);
    ASSERT_EQ(ui.Forms().size(), 1u);
    EXPECT_TRUE(ui.Forms()[0].Modal);

    auto* speed = new TjexFormPicSpeedBtn(&host);
    speed->SetFormName("NoSuchForm");
    EXPECT_THROW(speed->Click(), rtl::EComponentError);
    rtl::UnRegisterClass(TTargetForm::StaticClass());
}

TEST(JexWaveButtons, PlayThroughTheDesktopShell) {
    TScriptedUI ui;
    TjexWaveFileBtn file(nullptr);
    file.SetFileName("/tmp/ding.wav");
    file.Click();
    TjexWaveBtn embedded(nullptr);
    embedded.Click(); // no sound: nothing played
    ASSERT_EQ(ui.ShellExecutes().size(), 1u);
    EXPECT_EQ(ui.ShellExecutes()[0].Verb, "play");
    EXPECT_EQ(ui.ShellExecutes()[0].File, "/tmp/ding.wav");
    EXPECT_EQ(ui.ShellExecutes()[0].ShowCmd, SW_HIDE);
}

TEST(JexSizeButton, SizesItselfToItsCaptionAndMargins) {
    TjexSizeButton b(nullptr);
    b.SetCaption("&Open file");
    int w = TextWidthOf(b.Font(), "Open file");
    EXPECT_EQ(b.Width(), w + 16);
    EXPECT_EQ(b.Height(), TextHeightOf(b.Font()) + 8);
    b.SetMarginH(2);
    EXPECT_EQ(b.Width(), w + 4);
}

TEST(JexPushButton, StaysInUntilClickedAgain) {
    TjexPushButton b(nullptr);
    b.UserClick();
    EXPECT_TRUE(b.Checked());
    EXPECT_EQ(DescribeControl(&b).Checked, std::optional<bool>(true));
    b.UserClick();
    EXPECT_FALSE(b.Checked());
}

TEST(JexShapeButton, TakesTheImageSizeAndClicksOnlyInsideItsMask) {
    TComponent owner(nullptr);
    auto* images = new TImageList(&owner);
    images->SetSize(8, 4);
    TBitmap strip;
    MakeStrip(strip);
    images->AddMasked(&strip, RGB(128, 128, 0)); // images 0 and 1; 1 serves as the mouse mask
    auto* b = new TjexShapeButton(&owner);
    b->SetImageList(images);
    b->SetIndexUp(0);
    b->SetIndexMouseMask(1);
    EXPECT_EQ(b->Width(), 8);
    EXPECT_EQ(b->Height(), 4);
    EXPECT_TRUE(b->InShape(3, 0));
    EXPECT_FALSE(b->InShape(0, 3));
    b->MouseDown(mbLeft, {}, 0, 3);
    EXPECT_FALSE(b->Pressed());
    b->SetIndexDown(1);
    b->MouseDown(mbLeft, {}, 3, 1);
    EXPECT_EQ(b->CurrentIndex(), 1);
    b->MouseUp(mbLeft, {}, 3, 1);
    EXPECT_EQ(b->CurrentIndex(), 0);
    b->SetScaled(true);
    b->SetBounds(0, 0, 16, 8);
    EXPECT_TRUE(b->InShape(6, 1)); // (3, 0) of the mask
}

TEST(JexMenuButton, RunsItsMenuItemAndShowsItsCaption) {
    TComponent owner(nullptr);
    auto* item = new TMenuItem(&owner);
    item->SetCaption("&Save");
    int saved = 0;
    item->OnClick = [&](rtl::TObject*) { ++saved; };
    auto* b = new TjexMenuButton(&owner);
    b->SetCaption("Button");
    b->SetMenuItem(item);
    EXPECT_EQ(b->ShownCaption(), "Save");
    b->Click();
    item->SetEnabled(false);
    b->Click();
    EXPECT_EQ(saved, 1);
    EXPECT_FALSE(DescribeControl(b).Enabled);
    item->Free();
    EXPECT_EQ(b->MenuItem(), nullptr);
    EXPECT_EQ(b->ShownCaption(), "Button");
}

TEST(JexMouseRegion, EnterAndLeaveRaiseEventsAndSounds) {
    TComponent owner(nullptr);
    auto* sounds = new TSoundLog(&owner);
    auto* r = new TjexMouseRegion(&owner);
    r->SetSoundList(sounds);
    r->SetSoundOver(1);
    r->SetSoundLeave(2);
    std::string log;
    r->OnMouseEnter = [&](rtl::TObject*) { log += "enter;"; };
    r->OnMouseLeave = [&](rtl::TObject*) { log += "leave;"; };
    r->MouseEnter();
    r->MouseLeave();
    r->MouseLeave();
    EXPECT_EQ(log, "enter;leave;");
    EXPECT_EQ(sounds->Played, (std::vector<int>{1, 2}));
}
