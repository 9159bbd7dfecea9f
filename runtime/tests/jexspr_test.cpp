// Tests of the sprites: point lists and their text file, sprite lists in depth order and in form files,
// the surface's drawing and mouse, each kind of sprite, the factory and the mover.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "jex/jexspr.h"
#include "rtl/streaming.h"
#include "vcl/forms.h"

using namespace jex;
using namespace vcl;

namespace {

std::filesystem::path TempFile(const std::string& name) {
    auto dir = std::filesystem::temp_directory_path() / ("jexspr_test_" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    return dir / name;
}

TEST(PointListTest, PointsAreOwnedAndChangedInPlace) {
    TjexPointList list;
    EXPECT_EQ(list.AddPoint(Point(1, 2)), 0);
    list.AddPoint(Point(3, 4));
    list.InsertPoint(0, Point(-5, 6));
    list.Points(1)->X = 10;
    EXPECT_EQ(list.ToVector(), (std::vector<TPoint>{{-5, 6}, {10, 2}, {3, 4}}));
    list.Exchange(0, 2);
    list.DeletePoint(1);
    EXPECT_EQ(list.ToVector(), (std::vector<TPoint>{{3, 4}, {-5, 6}}));
    EXPECT_THROW(list.DeletePoint(2), rtl::EListError);
    TjexPointList copy;
    copy.Assign(list);
    EXPECT_TRUE(copy.Equals(list));
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(copy.Count(), 2);
}

TEST(PointListTest, TheTextFileReadsWhatItCanAndWritesTheEditorsLayout) {
    auto file = TempFile("points.txt");
    std::ofstream(file, std::ios::binary) << "0,1\r\n  1 , -2 \r\nxyz\r\n3\r\n4,5,6\r\n";
    TjexPointList list;
    list.AddPoint(Point(9, 9));
    EXPECT_EQ(list.LoadFromFile(file.string()), 2);
    EXPECT_EQ(list.ToVector(), (std::vector<TPoint>{{0, 1}, {1, -2}}));
    list.SaveToFile(file.string());
    std::ifstream in(file, std::ios::binary);
    EXPECT_EQ(std::string((std::istreambuf_iterator<char>(in)), {}), "0 , 1\r\n1 , -2\r\n");
    std::ofstream(file, std::ios::binary) << "-2147483647,0\r\n";
    EXPECT_EQ(list.LoadFromFile(file.string()), 0);
    EXPECT_EQ(list.Count(), 2); // unchanged
    EXPECT_THROW(list.LoadFromFile(TempFile("none.txt").string()), rtl::EFOpenError);
    std::filesystem::remove_all(file.parent_path());
}

class SpriteTest : public ::testing::Test {
protected:
    void SetUp() override {
        rtl::RegisterClasses({TForm::StaticClass(), TjexSpriteList::StaticClass(),
                              TjexShapeSprite::StaticClass(), TjexBitmapSprite::StaticClass(),
                              TjexSpriteMover::StaticClass(), TjexTextSprite::StaticClass()});
        form = new TForm(nullptr);
        form->SetName("Form1");
    }
    void TearDown() override {
        form->Free();
        rtl::UnRegisterClasses({TForm::StaticClass(), TjexSpriteList::StaticClass(),
                                TjexShapeSprite::StaticClass(), TjexBitmapSprite::StaticClass(),
                                TjexSpriteMover::StaticClass(), TjexTextSprite::StaticClass()});
    }
    TjexShapeSprite* Shape(const std::string& name, TjexSpriteList* list, uint32_t depth, TColor color) {
        auto* s = new TjexShapeSprite(form);
        s->SetName(name);
        s->SetBounds(0, 0, 10, 10);
        s->SetDepth(depth);
        s->Brush()->SetColor(color);
        s->Pen()->SetColor(color);
        if (list) s->SetSpriteList(list);
        return s;
    }
    TForm* form = nullptr;
};

TEST_F(SpriteTest, ListsKeepDepthOrderAndLetSpritesGo) {
    auto* list = new TjexSpriteList(form);
    list->SetName("Sprites1");
    auto* a = Shape("A", list, 5, clRed);
    auto* b = Shape("B", list, 1, clLime);
    auto* c = Shape("C", list, 5, clBlue);
    EXPECT_FALSE(list->Sorted());
    list->SetSorted(true);
    EXPECT_EQ(list->Sprites(0), b);
    EXPECT_EQ(list->Sprites(1), a); // equal depths keep their order
    EXPECT_EQ(list->Sprites(2), c);
    // The frontmost is hit first, and drawn last.
    EXPECT_EQ(list->SpriteAt(5, 5), b);
    TBitmap bmp;
    bmp.SetSize(20, 20);
    list->Draw(bmp.Canvas());
    EXPECT_EQ(bmp.PixelRGB(5, 5), ColorToRGB(clLime));
    b->SetVisible(false);
    EXPECT_EQ(list->SpriteAt(5, 5), a);

    auto* other = new TjexSpriteList(form);
    c->SetSpriteList(other);
    EXPECT_EQ(list->Count(), 2);
    EXPECT_EQ(other->Sprites(0), c);
    a->Free();
    EXPECT_EQ(list->Count(), 1);
    list->Free();
    EXPECT_EQ(b->SpriteList(), nullptr);
    EXPECT_FALSE(b->HasParent());
}

TEST_F(SpriteTest, AFormFileWritesSpritesInsideTheirListInOrder) {
    auto* list = new TjexSpriteList(form);
    list->SetName("Sprites1");
    Shape("Back", list, 3, clRed);
    Shape("Front", list, 0, clBlue)->SetLeft(7);
    auto* loose = Shape("Loose", nullptr, 0, clBlack);
    (void)loose;
    std::string text = rtl::WriteComponentText(form);
    EXPECT_NE(text.find("object Sprites1: TjexSpriteList\r\n    object Back: TjexShapeSprite"),
              std::string::npos)
        << text;
    auto* copy = rtl::ReadComponentText(text, nullptr);
    auto* list2 = dynamic_cast<TjexSpriteList*>(copy->FindComponent("Sprites1"));
    ASSERT_NE(list2, nullptr);
    ASSERT_EQ(list2->Count(), 2);
    EXPECT_EQ(list2->Sprites(0)->Name(), "Back");
    EXPECT_EQ(list2->Sprites(1)->Left(), 7);
    EXPECT_EQ(list2->Sprites(0)->Depth(), 3u);
    EXPECT_EQ(list2->Sprites(0)->Owner(), copy);
    auto* loose2 = dynamic_cast<TjexSprite*>(copy->FindComponent("Loose"));
    ASSERT_NE(loose2, nullptr);
    EXPECT_EQ(loose2->SpriteList(), nullptr);
    EXPECT_EQ(rtl::WriteComponentText(copy), text);
    copy->Free();
}

TEST_F(SpriteTest, TheSurfaceDrawsItsListAndPassesPressesOn) {
    auto* list = new TjexSpriteList(form);
    auto* s = Shape("S", list, 0, clYellow);
    s->SetShape(jstCircle);
    s->SetBounds(10, 10, 20, 20);
    auto* surface = new TjexSpriteSurface(form);
    surface->SetParent(form);
    surface->SetBounds(0, 0, 50, 40);
    surface->SetSpriteList(list);
    TBitmap bmp;
    surface->Render(&bmp);
    EXPECT_EQ(bmp.Width(), 50);
    EXPECT_EQ(bmp.PixelRGB(0, 0), 0u);
    EXPECT_EQ(bmp.PixelRGB(20, 20), ColorToRGB(clYellow));
    int clicks = 0;
    s->OnClick = [&](rtl::TObject*) { ++clicks; };
    surface->MouseDown(mbLeft, {}, 11, 11); // the circle's corner: outside it
    surface->MouseDown(mbLeft, {}, 20, 20);
    EXPECT_EQ(clicks, 1);
    list->Free();
    EXPECT_EQ(surface->SpriteList(), nullptr);
}

TEST_F(SpriteTest, BitmapSpritesFromTheFactoryAreOpaqueOnlyWhereDrawn) {
    auto* list = new TjexSpriteList(form);
    auto* factory = new TjexBitmapSpriteFactory(form);
    factory->SetFrameWidth(4);
    factory->SetFrameHeight(4);
    TBitmap strip;
    strip.SetSize(8, 4); // two frames; white background
    for (int y = 0; y < 4; ++y)
        strip.SetPixelRGB(5, y, RGB(255, 0, 0));
    strip.SetPixelRGB(0, 3, RGB(255, 255, 255));
    factory->Bitmap()->Assign(&strip);
    factory->SetSpriteList(list);
    EXPECT_EQ(factory->FrameCount(), 2);
    TjexBitmapSprite* s = factory->CreateSprite(1, 20, 30);
    EXPECT_EQ(s->Owner(), form);
    EXPECT_EQ(s->SpriteList(), list);
    EXPECT_EQ(s->BoundsRect(), Bounds(20, 30, 4, 4));
    EXPECT_TRUE(s->HitTest(21, 31));
    EXPECT_FALSE(s->HitTest(20, 31)); // white: the transparent colour
    s->SetTransparent(false);
    EXPECT_TRUE(s->HitTest(20, 31));
    EXPECT_THROW(factory->CreateSprite(2), rtl::EListError);
    TBitmap bmp;
    bmp.SetSize(40, 40);
    bmp.Canvas()->Brush()->SetColor(clBlack);
    bmp.Canvas()->FillRect(Rect(0, 0, 40, 40));
    s->SetTransparent(true);
    s->Draw(bmp.Canvas());
    EXPECT_EQ(bmp.PixelRGB(21, 31), RGB(255, 0, 0));
    EXPECT_EQ(bmp.PixelRGB(20, 31), 0u);
}

TEST_F(SpriteTest, TextSpritesScrollAndTurn) {
    auto* text = new TjexTextSprite(form);
    text->SetText("Hello");
    text->SetBounds(0, 0, 100, 20);
    text->SetScrollStep(10);
    EXPECT_EQ(text->TextOffset().X, 100);
    text->Tick();
    text->Tick();
    EXPECT_EQ(text->TextOffset().X, 80);
    text->SetScrollDirection(jsdDown);
    EXPECT_LT(text->TextOffset().Y, 20);

    auto* turn = new TjexRotateTextSprite(form);
    turn->SetText("WIDE TEXT");
    turn->SetBounds(0, 0, 80, 80);
    turn->SetAngle(-30);
    EXPECT_EQ(turn->Angle(), 330);
    turn->SetAngleStep(60);
    turn->Tick();
    EXPECT_EQ(turn->Angle(), 30);
    auto extent = [&](int angle) {
        turn->SetAngle(angle);
        TBitmap bmp;
        bmp.SetSize(80, 80);
        turn->Draw(bmp.Canvas());
        int minX = 80, maxX = -1, minY = 80, maxY = -1;
        for (int y = 0; y < 80; ++y)
            for (int x = 0; x < 80; ++x)
                if (bmp.PixelRGB(x, y) != 0xFFFFFF) {
                    minX = std::min(minX, x), maxX = std::max(maxX, x);
                    minY = std::min(minY, y), maxY = std::max(maxY, y);
                }
        return std::make_pair(maxX - minX, maxY - minY);
    };
    auto flat = extent(0), upright = extent(90);
    EXPECT_GT(flat.first, flat.second);
    EXPECT_GT(upright.second, upright.first);
}

TEST_F(SpriteTest, EffectSpritesBringANewPictureInOverTheirSteps) {
    auto* s = new TjexEffectSprite(form);
    s->SetBounds(0, 0, 10, 10);
    s->SetEffect(jteWipeRight);
    s->SetEffectSpeed(10); // six steps
    TBitmap red;
    red.SetSize(10, 10);
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 10; ++x)
            red.SetPixelRGB(x, y, RGB(255, 0, 0));
    s->Picture()->Assign(&red);
    EXPECT_EQ(s->Step(), 0);
    TBitmap bmp;
    bmp.SetSize(10, 10);
    s->Draw(bmp.Canvas());
    EXPECT_EQ(bmp.PixelRGB(9, 5), 0u); // still the black it came from
    int ticks = 0;
    while (s->Tick())
        ++ticks;
    EXPECT_EQ(ticks, 6);
    s->Draw(bmp.Canvas());
    EXPECT_EQ(bmp.PixelRGB(9, 5), RGB(255, 0, 0));
}

TEST_F(SpriteTest, InputSpritesTakeTypedText) {
    auto* s = new TjexInputSprite(form);
    int changes = 0;
    s->OnChange = [&](rtl::TObject*) { ++changes; };
    s->SetMaxLength(3);
    for (char c : std::string("abcd"))
        s->KeyPress(c);
    EXPECT_EQ(s->Text(), "abc");
    s->KeyPress(VK_BACK);
    s->KeyPress('\x01');
    EXPECT_EQ(s->Text(), "ab");
    EXPECT_EQ(changes, 4);
}

TEST_F(SpriteTest, TheMoverWalksItsSpriteAlongThePoints) {
    auto* s = Shape("S", nullptr, 0, clRed);
    auto* mover = new TjexSpriteMover(form);
    mover->SetName("Mover1");
    EXPECT_FALSE(mover->Tick());
    mover->SetSprite(s);
    mover->Points()->AddPoint(Point(5, 6));
    mover->Points()->AddPoint(Point(-1, 2));
    EXPECT_TRUE(mover->Tick());
    EXPECT_EQ(s->Left(), 5);
    EXPECT_TRUE(mover->Tick());
    EXPECT_EQ(s->Top(), 2);
    EXPECT_TRUE(mover->Tick()); // round again
    EXPECT_EQ(mover->Position(), 0);
    mover->SetLoop(false);
    mover->Tick();
    EXPECT_FALSE(mover->Tick());

    std::string text = rtl::WriteComponentText(form);
    EXPECT_NE(text.find("PointData = (\r\n      '5 , 6'\r\n      '-1 , 2')"), std::string::npos) << text;
    auto* copy = rtl::ReadComponentText(text, nullptr);
    auto* mover2 = dynamic_cast<TjexSpriteMover*>(copy->FindComponent("Mover1"));
    EXPECT_TRUE(mover2->Points()->Equals(*mover->Points()));
    EXPECT_EQ(mover2->Sprite(), copy->FindComponent("S"));
    copy->Free();
    s->Free();
    EXPECT_EQ(mover->Sprite(), nullptr);
}

} // namespace
