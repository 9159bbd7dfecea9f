// Tests of the transition effects and the effects images: what each effect shows part-way, the random
// rotation through a selection, the selection in form files, a transition run step by step, pictures
// sized and taken from image lists, rich text over the picture, and pictures from a data field.
#include <gtest/gtest.h>

#include "jex/jexeffects.h"
#include "rtl/streaming.h"
#include "vcl/forms.h"
#ifdef JEX_HAVE_DB
#include "jex/jexdbeffects.h"
#include "jexdbfixture.h"
#endif

using namespace jex;
using namespace vcl;

namespace {

constexpr uint32_t kOld = 0x000000FF, kNew = 0x00FF0000;

void Solid(TBitmap& b, int w, int h, uint32_t rgb) {
    b.SetSize(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            b.SetPixelRGB(x, y, rgb);
}

int CountNew(TBitmap& b) {
    int n = 0;
    for (int y = 0; y < b.Height(); ++y)
        for (int x = 0; x < b.Width(); ++x)
            n += b.PixelRGB(x, y) == kNew;
    return n;
}

TEST(TransitionTest, EachEffectShowsItsPartOfTheNewImage) {
    TBitmap from, to, out;
    Solid(from, 40, 20, kOld);
    Solid(to, 40, 20, kNew);
    TjexTransition t;
    t.Render(jteWipeRight, &from, &to, 1, 4, &out);
    EXPECT_EQ(out.PixelRGB(9, 5), kNew);
    EXPECT_EQ(out.PixelRGB(10, 5), kOld);
    t.Render(jteWipeUp, &from, &to, 2, 4, &out);
    EXPECT_EQ(out.PixelRGB(0, 10), kNew);
    EXPECT_EQ(out.PixelRGB(0, 9), kOld);
    t.Render(jteCenterOut, &from, &to, 2, 4, &out);
    EXPECT_EQ(out.PixelRGB(20, 10), kNew);
    EXPECT_EQ(out.PixelRGB(2, 10), kOld);
    t.Render(jteFade, &from, &to, 1, 2, &out);
    EXPECT_EQ(out.PixelRGB(5, 5), 0x007F0080u);
    for (TjexTransitionEffect e : {jteWipeLeft, jteSlideDown, jteBlinds, jteDissolve, jteFade, jteNone}) {
        t.Render(e, &from, &to, 0, 5, &out);
        EXPECT_EQ(CountNew(out), 0) << jexTransitionEffectCaption(e);
        t.Render(e, &from, &to, 5, 5, &out);
        EXPECT_EQ(CountNew(out), 800) << jexTransitionEffectCaption(e);
    }
    // A dissolve only ever adds blocks.
    int last = 0;
    for (int s = 1; s <= 10; ++s) {
        t.Render(jteDissolve, &from, &to, s, 10, &out);
        int n = CountNew(out);
        EXPECT_GE(n, last);
        last = n;
    }
}

TEST(TransitionTest, SlidesMoveTheNewImageIn) {
    TBitmap from, to, out;
    Solid(from, 10, 4, kOld);
    Solid(to, 10, 4, kNew);
    to.SetPixelRGB(0, 0, 0x0000FF00); // the new image's left edge
    TjexTransition t;
    t.Render(jteSlideLeft, &from, &to, 3, 10, &out);
    EXPECT_EQ(out.PixelRGB(7, 0), 0x0000FF00u);
    EXPECT_EQ(out.PixelRGB(6, 0), kOld);
}

TEST(TransitionTest, RandomTakesTheSelectionInTurn) {
    TjexTransition t;
    t.SetEffect(jteFade);
    EXPECT_EQ(t.NextEffect(), jteFade);
    t.SetEffect(jteRandom);
    t.SetSelectedEffects({jteBlinds, jteWipeUp});
    EXPECT_EQ(t.EffectSelection()->Count(), 2);
    EXPECT_EQ(t.NextEffect(), jteBlinds);
    EXPECT_EQ(t.NextEffect(), jteWipeUp);
    EXPECT_EQ(t.NextEffect(), jteBlinds);
    t.SetSelectedEffects({});
    for (int i = 0; i < 30; ++i) {
        TjexTransitionEffect e = t.NextEffect();
        EXPECT_TRUE(e > jteNone && e < jteRandom);
    }
    TjexTransition copy;
    t.SetSelectedEffects({jteDissolve});
    copy.Assign(&t);
    EXPECT_EQ(copy.SelectedEffects(), std::vector<TjexTransitionEffect>{jteDissolve});
}

TEST(EffectsImageTest, TheSelectionAndPictureSurviveAFormFile) {
    rtl::RegisterClasses({TForm::StaticClass(), TjexEffectsImage::StaticClass()});
    auto* form = new TForm(nullptr);
    form->SetName("Form1");
    auto* image = new TjexEffectsImage(form);
    image->SetName("Image1");
    image->SetParent(form);
    image->SetEffect(jteRandom);
    image->Transition()->SetSelectedEffects({jteSlideUp, jteFade});
    TBitmap pic;
    Solid(pic, 3, 3, kNew);
    image->Picture()->Assign(&pic);
    std::string text = rtl::WriteComponentText(form);
    EXPECT_NE(text.find("SelectedEffects = (\r\n      jteSlideUp\r\n      jteFade)"), std::string::npos)
        << text;
    auto* copy = rtl::ReadComponentText(text, nullptr);
    auto* image2 = dynamic_cast<TjexEffectsImage*>(copy->FindComponent("Image1"));
    ASSERT_NE(image2, nullptr);
    EXPECT_EQ(image2->Transition()->SelectedEffects(),
              (std::vector<TjexTransitionEffect>{jteSlideUp, jteFade}));
    EXPECT_EQ(image2->Picture()->Width(), 3);
    copy->Free();
    EXPECT_THROW(rtl::ReadComponentText("object Form1: TForm\r\n  object Image1: TjexEffectsImage\r\n"
                                        "    SelectedEffects = (\r\n      jteSpin)\r\n  end\r\nend\r\n",
                                        nullptr),
                 rtl::EReadError);
    form->Free();
    rtl::UnRegisterClasses({TForm::StaticClass(), TjexEffectsImage::StaticClass()});
}

TEST(EffectsImageTest, ExecuteBringsThePictureInStepByStep) {
    TjexEffectsImage image(nullptr);
    image.SetBounds(0, 0, 20, 10);
    image.SetColor(static_cast<TColor>(kOld));
    image.ShowPicture();
    EXPECT_EQ(image.Display()->PixelRGB(5, 5), kOld);
    TBitmap pic;
    Solid(pic, 20, 10, kNew);
    image.SetEffect(jteWipeRight);
    image.SetEffectSpeed(10); // six steps
    std::vector<int> seen;
    image.OnEffectStep = [&](rtl::TObject*, int step, int steps) {
        seen.push_back(CountNew(*image.Display()));
        EXPECT_EQ(steps, 6);
        (void)step;
    };
    image.Picture()->Assign(&pic); // comes in with the effect
    ASSERT_EQ(seen.size(), 6u);
    EXPECT_LT(seen[0], seen[4]);
    EXPECT_EQ(seen.back(), 200);
    seen.clear();
    image.Picture()->Assign(nullptr);
    ASSERT_EQ(seen.size(), 6u);
    EXPECT_GT(seen[0], seen[4]);
    EXPECT_EQ(seen.back(), 0);
    seen.clear();
    EXPECT_EQ(image.Execute(), 6);
    // While designing, a new picture shows at once.
    image.SetDesigning(true);
    image.Picture()->Assign(&pic);
    EXPECT_EQ(seen.size(), 6u);
    EXPECT_EQ(CountNew(*image.Display()), 200);
}

TEST(EffectsImageTest, PicturesAreSizedAndTakenFromImageLists) {
    TjexEffectsImage image(nullptr);
    image.SetBounds(0, 0, 20, 10);
    image.SetColor(clBlack);
    TBitmap pic;
    Solid(pic, 4, 2, kNew);
    image.Picture()->Assign(&pic);
    image.SetPictureSize(jpsCenter);
    image.ShowPicture();
    EXPECT_EQ(image.Display()->PixelRGB(8, 4), kNew);
    EXPECT_EQ(image.Display()->PixelRGB(7, 4), 0u);
    image.SetPictureSize(jpsProportional);
    image.ShowPicture();
    EXPECT_EQ(image.Display()->PixelRGB(0, 0), kNew);
    EXPECT_EQ(image.Display()->PixelRGB(19, 9), kNew);

    auto* images = new TImageList(nullptr);
    images->SetSize(2, 2);
    TBitmap strip;
    Solid(strip, 4, 2, 0x0000FF00);
    images->Add(&strip, nullptr);
    image.SetImages(images);
    image.SetImageIndex(1);
    image.SetPictureSize(jpsNormal);
    image.ShowPicture();
    EXPECT_EQ(image.Display()->PixelRGB(1, 1), 0x0000FF00u);
    images->Free();
    EXPECT_EQ(image.Images(), nullptr);
}

TEST(EffectsImageTest, RichTextIsWrittenOverThePicture) {
    TjexRichEffectsImage image(nullptr);
    image.SetBounds(0, 0, 80, 30);
    image.SetColor(clWhite);
    image.ShowPicture();
    EXPECT_EQ(CountNew(*image.Display()), 0);
    image.Font()->SetColor(static_cast<TColor>(kNew));
    image.RichText()->SetPlainText("Hi");
    EXPECT_GT(CountNew(*image.Display()), 0);
}

#ifdef JEX_HAVE_DB
class DBEffectsTest : public jexdbtest::DBFixture {};

TEST_F(DBEffectsTest, ThePictureFollowsTheRecord) {
    auto* t = new db::TTable(Form);
    t->SetDatabaseName("CTRLDB");
    t->SetTableName("PICS");
    t->FieldDefs()->Add("ID", db::ftInteger, 0, true);
    t->FieldDefs()->Add("PIC", db::ftBlob);
    t->CreateTable();
    t->Open();
    TBitmap red;
    Solid(red, 2, 2, kNew);
    std::vector<uint8_t> bytes;
    red.SaveToBytes(bytes);
    t->Append();
    t->FieldByName("ID")->SetAsInteger(1);
    t->FieldByName("PIC")->SetAsString(std::string(bytes.begin(), bytes.end()));
    t->Post();
    t->Append();
    t->FieldByName("ID")->SetAsInteger(2);
    t->FieldByName("PIC")->SetAsString("not a bitmap");
    t->Post();
    t->First();
    auto* ds = new db::TDataSource(Form);
    ds->SetDataSet(t);
    auto* image = new TjexDBEffectsImage(Form);
    image->SetParent(Form);
    image->SetDataField("PIC");
    image->SetDataSource(ds);
    EXPECT_EQ(image->Picture()->Width(), 2);
    EXPECT_FALSE(image->BadData());
    EXPECT_EQ(image->Display()->PixelRGB(1, 1), kNew);
    t->Next();
    EXPECT_TRUE(image->BadData());
    EXPECT_EQ(image->Picture()->Width(), 0);
    t->Close();
    EXPECT_FALSE(image->BadData());
    EXPECT_EQ(rtl::GetPropInfo(image, "Picture"), nullptr);
}
#endif

} // namespace
