// Tests of the drawn controls: line geometry, drawing and hit testing, bevelled shapes, shaped forms,
// gradients, tiled and transparent images, drawn into real bitmaps.
#include <gtest/gtest.h>

#include "jex/jexshape.h"
#include "vcl/extctrls.h"
#include "vcl/scripted_ui.h"

using namespace jex;
using namespace vcl;

namespace {

uint32_t Px(TBitmap& b, int x, int y) {
    return b.PixelRGB(x, y);
}

TEST(LineTest, EndPointsFollowTheDirection) {
    TjexLine line(nullptr);
    line.SetBounds(0, 0, 101, 41);
    EXPECT_EQ(line.StartPoint(), Point(0, 20));
    EXPECT_EQ(line.EndPoint(), Point(100, 20));
    line.SetDirection(diVertical);
    EXPECT_EQ(line.StartPoint(), Point(50, 0));
    EXPECT_EQ(line.EndPoint(), Point(50, 40));
    line.SetDirection(diBottomtoTop);
    EXPECT_EQ(line.StartPoint(), Point(0, 40));
    EXPECT_EQ(line.EndPoint(), Point(100, 0));
    line.SetArrowSize(1);
    EXPECT_EQ(line.ArrowSize(), 2);
    line.SetArrowSize(99);
    EXPECT_EQ(line.ArrowSize(), 50);
    line.SetLineWidth(0);
    EXPECT_EQ(line.LineWidth(), 1);
    const rtl::TTypeInfo* t = TypeInfo_TjexArrowSize();
    EXPECT_EQ(t->MinValue, 2);
    EXPECT_EQ(t->MaxValue, 50);
}

TEST(LineTest, DrawsTheLineAndSolidHeadsInItsColour) {
    TjexLine line(nullptr);
    line.SetBounds(0, 0, 101, 41);
    line.SetColor(clRed);
    line.SetArrows(arEnd);
    line.SetArrowSize(10);
    TBitmap bmp;
    bmp.SetSize(101, 41);
    line.Paint(bmp.Canvas());
    EXPECT_EQ(Px(bmp, 30, 20), ColorToRGB(clRed));
    EXPECT_EQ(Px(bmp, 30, 25), ColorToRGB(clWhite));
    // Inside the head near the end, beside the line: filled; the same spot at the start is not.
    EXPECT_EQ(Px(bmp, 93, 22), ColorToRGB(clRed));
    EXPECT_EQ(Px(bmp, 7, 22), ColorToRGB(clWhite));

    TBitmap clear;
    clear.SetSize(101, 41);
    line.SetArrows(arNone);
    line.SetLineStyle(psClear);
    line.Paint(clear.Canvas());
    EXPECT_EQ(Px(clear, 30, 20), ColorToRGB(clWhite));
}

TEST(LineTest, ClipMouseLetsOnlyPressesNearTheLineThrough) {
    TjexLine line(nullptr);
    line.SetBounds(0, 0, 101, 41);
    int downs = 0;
    line.OnMouseDown = [&](rtl::TObject*, TMouseButton, TShiftState, int, int) { ++downs; };
    EXPECT_TRUE(line.HitTest(50, 21));
    EXPECT_FALSE(line.HitTest(50, 30));
    line.MouseDown(mbLeft, {}, 50, 30);
    EXPECT_EQ(downs, 1);
    line.SetClipMouse(true);
    line.MouseDown(mbLeft, {}, 50, 30);
    EXPECT_EQ(downs, 1);
    line.MouseDown(mbLeft, {}, 50, 20);
    EXPECT_EQ(downs, 2);
    line.SetArrows(arStart);
    EXPECT_TRUE(line.HitTest(3, 25));
}

TEST(ShapeTest, BevelsAreLitFromTheTopLeft) {
    TjexShape shape(nullptr);
    shape.SetBounds(0, 0, 40, 20);
    shape.SetColor(clYellow);
    shape.SetColorHighlight(clWhite);
    shape.SetColorShadow(clBlack);
    TBitmap bmp;
    bmp.SetSize(40, 20);
    bmp.Canvas()->Brush()->SetColor(clGreen);
    bmp.Canvas()->FillRect(Rect(0, 0, 40, 20));
    shape.Paint(bmp.Canvas());
    EXPECT_EQ(Px(bmp, 0, 10), ColorToRGB(clWhite));
    EXPECT_EQ(Px(bmp, 39, 10), ColorToRGB(clBlack));
    EXPECT_EQ(Px(bmp, 20, 19), ColorToRGB(clBlack));
    EXPECT_EQ(Px(bmp, 20, 10), ColorToRGB(clYellow));

    shape.SetShape(jstCircle);
    EXPECT_EQ(shape.ShapeRect(), Rect(10, 0, 30, 20));

    // A frame leaves its inside alone.
    TjexFrame frame(nullptr);
    frame.SetBounds(0, 0, 40, 20);
    frame.SetCornerWidth(3);
    TBitmap f;
    f.SetSize(40, 20);
    frame.Paint(f.Canvas());
    EXPECT_EQ(Px(f, 20, 10), ColorToRGB(clWhite));
    EXPECT_EQ(Px(f, 0, 0), ColorToRGB(clWhite)); // the cut corner stays empty
    EXPECT_EQ(Px(f, 39, 10), ColorToRGB(clBtnShadow));
}

TEST(ShapeFormTest, TheRegionIsWhatDiffersFromTheTransparentColour) {
    TScriptedUI ui;
    auto* form = new TForm(nullptr);
    form->SetBounds(100, 100, 300, 200);
    auto* shaper = new TjexShapeForm(form);
    TBitmap bmp;
    bmp.SetSize(10, 6);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 10; ++x)
            bmp.SetPixelRGB(x, y, RGB(250, 250, 250)); // near-white background (bottom-left decides)
    for (int x = 2; x < 8; ++x)
        bmp.SetPixelRGB(x, 2, RGB(0, 0, 0));
    bmp.SetPixelRGB(0, 0, RGB(240, 250, 250)); // a slight difference
    shaper->Picture()->Assign(&bmp);
    std::vector<bool> mask = shaper->RegionMask();
    ASSERT_EQ(mask.size(), 60u);
    EXPECT_TRUE(shaper->PtInRegion(3, 2));
    EXPECT_FALSE(shaper->PtInRegion(3, 3));
    EXPECT_TRUE(shaper->PtInRegion(0, 0));
    shaper->SetTolerance(20);
    EXPECT_FALSE(shaper->PtInRegion(0, 0));
    EXPECT_TRUE(shaper->PtInRegion(7, 2));
    EXPECT_FALSE(shaper->PtInRegion(10, 2));

    // At run time the form takes the shape when it is shown, and a person drags it by the drag control.
    auto* grip = new TPanel(form);
    grip->SetParent(form);
    shaper->SetDragControl(grip);
    shaper->Loaded();
    EXPECT_EQ(form->BorderStyle(), bsSizeable);
    form->Show();
    EXPECT_EQ(form->BorderStyle(), bsNone);
    EXPECT_EQ(form->ClientWidth(), 10);
    grip->MouseDown(mbLeft, {}, 5, 5);
    grip->MouseMove({ssLeft}, 25, 15);
    EXPECT_EQ(form->Left(), 120);
    EXPECT_EQ(form->Top(), 110);
    grip->MouseUp(mbLeft, {}, 25, 15);
    EXPECT_FALSE(shaper->DraggingForm());
    grip->Free();
    EXPECT_EQ(shaper->DragControl(), nullptr);
    form->Free();
}

TEST(BackgroundTest, GradientsRunBetweenTheirColoursInTheirDirection) {
    EXPECT_EQ(jexGradientColor(clBlack, clWhite, 0, 5), 0);
    EXPECT_EQ(jexGradientColor(clBlack, clWhite, 4, 5), 0xFFFFFF);
    EXPECT_EQ(jexGradientColor(clBlack, clRed, 1, 3), 0x7F);
    TjexBackground bg(nullptr);
    EXPECT_EQ(bg.Align(), alClient);
    bg.SetBounds(0, 0, 10, 40);
    bg.SetColorFrom(clRed);
    bg.SetColorTo(clBlue);
    bg.SetDrawSteps(4);
    TBitmap bmp;
    bmp.SetSize(10, 40);
    bg.Paint(bmp.Canvas());
    EXPECT_EQ(Px(bmp, 5, 0), ColorToRGB(clRed));
    EXPECT_EQ(Px(bmp, 5, 39), ColorToRGB(clBlue));
    EXPECT_EQ(Px(bmp, 5, 12), Px(bmp, 0, 19)); // one band
    bg.SetDrawDirection(jddRightToLeft);
    bg.Paint(bmp.Canvas());
    EXPECT_EQ(Px(bmp, 9, 20), ColorToRGB(clRed));
    EXPECT_EQ(Px(bmp, 0, 20), ColorToRGB(clBlue));
    bg.SetDrawSteps(1000);
    EXPECT_EQ(bg.DrawSteps(), 256);
}

TEST(BackgroundTest, TiledImagesRepeatWithinTheirArea) {
    TBitmap tile;
    tile.SetSize(4, 4);
    tile.SetPixelRGB(0, 0, RGB(255, 0, 0));
    TjexMDITiledImage image(nullptr);
    image.Picture()->Assign(&tile);
    TBitmap bmp;
    bmp.SetSize(20, 20);
    bmp.Canvas()->Brush()->SetColor(clBlack);
    bmp.Canvas()->FillRect(Rect(0, 0, 20, 20));
    image.Paint(bmp.Canvas(), Rect(2, 2, 12, 12));
    EXPECT_EQ(Px(bmp, 2, 2), RGB(255, 0, 0));
    EXPECT_EQ(Px(bmp, 6, 10), RGB(255, 0, 0));
    EXPECT_EQ(Px(bmp, 3, 2), RGB(255, 255, 255));
    EXPECT_EQ(Px(bmp, 14, 14), 0u); // nothing spills out of the area
    EXPECT_EQ(Px(bmp, 12, 2), 0u);
}

TEST(TransImageTest, TransparentPixelsLeaveTheBackground) {
    TBitmap pic;
    pic.SetSize(4, 4);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            pic.SetPixelRGB(x, y, RGB(0, 255, 0));
    pic.SetPixelRGB(1, 1, RGB(0, 0, 255));
    TjexTransImage image(nullptr);
    image.SetBounds(0, 0, 10, 10);
    image.Picture()->Assign(&pic);
    image.SetPicAlign(jpaBottomRight);
    EXPECT_EQ(image.PictureRect(), Rect(6, 6, 10, 10));
    TBitmap bmp;
    bmp.SetSize(10, 10);
    image.Paint(bmp.Canvas());
    EXPECT_EQ(Px(bmp, 6, 6), RGB(255, 255, 255)); // green is the bottom-left colour: transparent
    EXPECT_EQ(Px(bmp, 7, 7), RGB(0, 0, 255));
    image.SetTransparentColor(clBlue);
    image.Paint(bmp.Canvas());
    EXPECT_EQ(Px(bmp, 6, 6), RGB(0, 255, 0));
    image.SetTransparent(false);
    image.SetPicDrawStyle(jpdProportional);
    image.SetBounds(0, 0, 10, 20);
    EXPECT_EQ(image.PictureRect(), Rect(0, 10, 10, 20));
}

} // namespace
