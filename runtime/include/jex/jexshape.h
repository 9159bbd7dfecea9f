// Drawn controls and form decorations: lines with arrow heads, bevelled shapes and frames, forms shaped by
// a picture, gradient and tiled backgrounds (on a form or behind its client area), and an image drawn
// with a transparent colour.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "jex/jexcommon.h"
#include "vcl/forms.h"

namespace jex {

// ---- Lines ---------------------------------------------------------------------------------------------
JEX_ENUM(TjexArrows, arNone, arStart, arEnd, arBoth)
JEX_ENUM(TjexArrowStyle, ahLine, ahBox, ahSolid)
// The line's run through its bounds: across the middle, down the middle, or along a diagonal.
JEX_ENUM(TjexDirection, diHorizontal, diVertical, diToptoBottom, diBottomtoTop)
// ArrowSize: the subrange 2..50.
const rtl::TTypeInfo* TypeInfo_TjexArrowSize();

// A straight line through the control's bounds in one of four directions, drawn in Color with LineStyle
// and LineWidth, with arrow heads of ArrowSize pixels at the start, the end or both. With ClipMouse the
// mouse reaches the control only near the line.
class TjexCustomLine : public vcl::TGraphicControl {
    JEX_CLASS(TjexCustomLine, vcl::TGraphicControl)
    explicit TjexCustomLine(rtl::TComponent* AOwner);
    TjexArrows Arrows() const { return FArrows; }
    void SetArrows(TjexArrows Value) { FArrows = Value; }
    int ArrowSize() const { return FArrowSize; }
    // Kept within 2..50.
    void SetArrowSize(int Value);
    TjexArrowStyle ArrowStyle() const { return FArrowStyle; }
    void SetArrowStyle(TjexArrowStyle Value) { FArrowStyle = Value; }
    bool ClipMouse() const { return FClipMouse; }
    void SetClipMouse(bool Value) { FClipMouse = Value; }
    TjexDirection Direction() const { return FDirection; }
    void SetDirection(TjexDirection Value) { FDirection = Value; }
    vcl::TPenStyle LineStyle() const { return FLineStyle; }
    void SetLineStyle(vcl::TPenStyle Value) { FLineStyle = Value; }
    int LineWidth() const { return FLineWidth; }
    // At least 1.
    void SetLineWidth(int Value);

    // The line's end points in the control's own coordinates.
    vcl::TPoint StartPoint() const;
    vcl::TPoint EndPoint() const;
    // Draws the line and its heads with the control's top-left at (X, Y) of Canvas.
    void Paint(vcl::TCanvas* Canvas, int X = 0, int Y = 0) const;
    // Whether (X, Y) lies on the line or a head (within the pen width and two pixels).
    bool HitTest(int X, int Y) const;
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    void MouseMove(vcl::TShiftState Shift, int X, int Y) override;
    void MouseUp(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;

private:
    void PaintHead(vcl::TCanvas* Canvas, vcl::TPoint Tip, vcl::TPoint From) const;
    TjexArrows FArrows = arNone;
    int FArrowSize = 10;
    TjexArrowStyle FArrowStyle = ahSolid;
    bool FClipMouse = false;
    TjexDirection FDirection = diHorizontal;
    vcl::TPenStyle FLineStyle = vcl::psSolid;
    int FLineWidth = 1;
    bool FMouseIn = false; // the press that started on the line, for the release
};

class TjexLine : public TjexCustomLine {
    JEX_CLASS(TjexLine, TjexCustomLine)
    using TjexCustomLine::TjexCustomLine;
};

// ---- Shapes and frames -------------------------------------------------------------------------------
JEX_ENUM(TjexShapeType, jstRectangle, jstRoundRect, jstEllipse, jstSquare, jstRoundSquare, jstCircle)

// A bevelled outline: the top and left edges in ColorHighlight, the bottom and right ones in ColorShadow,
// with corners cut by CornerWidth pixels (0: square corners).
class TjexCustomShape : public vcl::TGraphicControl {
    JEX_CLASS(TjexCustomShape, vcl::TGraphicControl)
    explicit TjexCustomShape(rtl::TComponent* AOwner);
    vcl::TColor ColorHighlight() const { return FColorHighlight; }
    void SetColorHighlight(vcl::TColor Value) { FColorHighlight = Value; }
    vcl::TColor ColorShadow() const { return FColorShadow; }
    void SetColorShadow(vcl::TColor Value) { FColorShadow = Value; }
    int CornerWidth() const { return FCornerWidth; }
    void SetCornerWidth(int Value) { FCornerWidth = Value < 0 ? 0 : Value; }
    virtual void Paint(vcl::TCanvas* Canvas, int X = 0, int Y = 0) const;

protected:
    void PaintBevel(vcl::TCanvas* Canvas, const vcl::TRect& R) const;

private:
    vcl::TColor FColorHighlight = vcl::clBtnHighlight;
    vcl::TColor FColorShadow = vcl::clBtnShadow;
    int FCornerWidth = 0;
};

// A bevelled frame with a transparent inside (the line editor places them behind the chosen sample).
class TjexFrame : public TjexCustomShape {
    JEX_CLASS(TjexFrame, TjexCustomShape)
    using TjexCustomShape::TjexCustomShape;
};

// A bevelled, filled shape that shows its caption, centred across and placed by AlignVertical.
class TjexShape : public TjexCustomShape {
    JEX_CLASS(TjexShape, TjexCustomShape)
    explicit TjexShape(rtl::TComponent* AOwner);
    TjexAlignVert AlignVertical() const { return FAlignVertical; }
    void SetAlignVertical(TjexAlignVert Value) { FAlignVertical = Value; }
    TjexShapeType Shape() const { return FShape; }
    void SetShape(TjexShapeType Value) { FShape = Value; }
    // The shape's area inside the control (squares and circles take the shorter side, centred).
    vcl::TRect ShapeRect() const;
    void Paint(vcl::TCanvas* Canvas, int X = 0, int Y = 0) const override;

private:
    TjexAlignVert FAlignVertical = javCenter;
    TjexShapeType FShape = jstRectangle;
};

// ---- Shaped forms -----------------------------------------------------------------------------------
// Gives its form the outline of Picture: the pixels that differ from the picture's transparent colour by
// more than Tolerance (in any of red, green, blue) belong to the form. At run time, when it is shown, the
// form loses its border, takes the picture's size, and can be dragged by DragControl, or anywhere with
// DragAnywhere.
class TjexShapeForm : public rtl::TComponent {
    JEX_CLASS(TjexShapeForm, rtl::TComponent)
    explicit TjexShapeForm(rtl::TComponent* AOwner);
    ~TjexShapeForm() override;
    bool DragAnywhere() const { return FDragAnywhere; }
    void SetDragAnywhere(bool Value) { FDragAnywhere = Value; }
    vcl::TControl* DragControl() const { return FDragControl; }
    void SetDragControl(vcl::TControl* Value);
    vcl::TPicture* Picture() const { return FPicture.get(); }
    void SetPicture(vcl::TPicture* Value) { FPicture->Assign(Value); }
    int Tolerance() const { return FTolerance; }
    void SetTolerance(int Value);

    // The form's outline: one flag per pixel of the picture, row by row (empty for an empty picture).
    std::vector<bool> RegionMask() const;
    bool PtInRegion(int X, int Y) const;
    // The form the component shapes (its owner), or nil.
    vcl::TCustomForm* Form() const;
    // Shapes the form now: no border, the picture's size.
    void Apply();
    // A drag of the form by a person: the press and the moves, in screen coordinates.
    void BeginFormDrag(vcl::TPoint ScreenPos);
    void DragFormTo(vcl::TPoint ScreenPos);
    void EndFormDrag() { FDragging = false; }
    bool DraggingForm() const { return FDragging; }
    void Loaded() override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    void Hook();
    bool FDragAnywhere = false;
    vcl::TControl* FDragControl = nullptr;
    std::unique_ptr<vcl::TPicture> FPicture;
    int FTolerance = 0;
    bool FDragging = false;
    vcl::TPoint FDragStart, FFormStart;
    std::shared_ptr<bool> FAlive;
};

// ---- Backgrounds ------------------------------------------------------------------------------------
JEX_ENUM(TjexDrawDirection, jddTopToBottom, jddBottomToTop, jddLeftToRight, jddRightToLeft)
JEX_ENUM(TjexImageStyle, jisTile, jisStretch, jisCenter)

// Band Step (0-based) of a gradient of Steps bands from From to To.
vcl::TColor jexGradientColor(vcl::TColor From, vcl::TColor To, int Step, int Steps);
// Fills R with Steps bands running from From to To in Direction.
void jexDrawGradient(vcl::TCanvas* Canvas, const vcl::TRect& R, vcl::TColor From, vcl::TColor To,
                     TjexDrawDirection Direction, int Steps);
// Draws Graphic into R tiled, stretched or centred.
void jexDrawImage(vcl::TCanvas* Canvas, const vcl::TRect& R, vcl::TGraphic* Graphic, TjexImageStyle Style);

// The gradient settings shared by the form background control and the client-area background.
class TjexGradientProps {
public:
    vcl::TColor ColorFrom() const { return FColorFrom; }
    void SetColorFrom(vcl::TColor Value) { FColorFrom = Value; }
    vcl::TColor ColorTo() const { return FColorTo; }
    void SetColorTo(vcl::TColor Value) { FColorTo = Value; }
    TjexDrawDirection DrawDirection() const { return FDrawDirection; }
    void SetDrawDirection(TjexDrawDirection Value) { FDrawDirection = Value; }
    int DrawSteps() const { return FDrawSteps; }
    // 1..256.
    void SetDrawSteps(int Value);
    void PaintGradient(vcl::TCanvas* Canvas, const vcl::TRect& R) const;

protected:
    vcl::TColor FColorFrom = vcl::clBlue;
    vcl::TColor FColorTo = vcl::clBlack;
    TjexDrawDirection FDrawDirection = jddTopToBottom;
    int FDrawSteps = 64;
};

// A control filling its parent (by default) with a gradient.
class TjexBackground : public vcl::TGraphicControl, public TjexGradientProps {
    JEX_CLASS(TjexBackground, vcl::TGraphicControl)
    explicit TjexBackground(rtl::TComponent* AOwner);
    void Paint(vcl::TCanvas* Canvas, int X = 0, int Y = 0) const;
};

// A gradient behind the client area of its form (the area in which a multiple-document form shows its
// child windows); it paints whatever rectangle the form's painting hands it.
class TjexMDIBackground : public rtl::TComponent, public TjexGradientProps {
    JEX_CLASS(TjexMDIBackground, rtl::TComponent)
    explicit TjexMDIBackground(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}
    void Paint(vcl::TCanvas* Canvas, const vcl::TRect& R) const { PaintGradient(Canvas, R); }
};

// A control showing Picture tiled, stretched or centred over its whole area.
class TjexTiledImage : public vcl::TGraphicControl {
    JEX_CLASS(TjexTiledImage, vcl::TGraphicControl)
    explicit TjexTiledImage(rtl::TComponent* AOwner);
    ~TjexTiledImage() override;
    TjexImageStyle ImageStyle() const { return FImageStyle; }
    void SetImageStyle(TjexImageStyle Value) { FImageStyle = Value; }
    vcl::TPicture* Picture() const { return FPicture.get(); }
    void SetPicture(vcl::TPicture* Value) { FPicture->Assign(Value); }
    void Paint(vcl::TCanvas* Canvas, int X = 0, int Y = 0) const;

private:
    TjexImageStyle FImageStyle = jisTile;
    std::unique_ptr<vcl::TPicture> FPicture;
};

// The same picture behind a form's client area.
class TjexMDITiledImage : public rtl::TComponent {
    JEX_CLASS(TjexMDITiledImage, rtl::TComponent)
    explicit TjexMDITiledImage(rtl::TComponent* AOwner);
    ~TjexMDITiledImage() override;
    TjexImageStyle ImageStyle() const { return FImageStyle; }
    void SetImageStyle(TjexImageStyle Value) { FImageStyle = Value; }
    vcl::TPicture* Picture() const { return FPicture.get(); }
    void SetPicture(vcl::TPicture* Value) { FPicture->Assign(Value); }
    void Paint(vcl::TCanvas* Canvas, const vcl::TRect& R) const;

private:
    TjexImageStyle FImageStyle = jisTile;
    std::unique_ptr<vcl::TPicture> FPicture;
};

// ---- Transparent image ---------------------------------------------------------------------------------
JEX_ENUM(TjexPicAlign, jpaTopLeft, jpaTopCenter, jpaTopRight, jpaCenterLeft, jpaCenter, jpaCenterRight,
         jpaBottomLeft, jpaBottomCenter, jpaBottomRight)
JEX_ENUM(TjexPicDrawStyle, jpdNormal, jpdStretch, jpdProportional, jpdTile)

// A picture placed by PicAlign and drawn by PicDrawStyle; with Transparent the pixels of TransparentColor
// (clDefault: the bitmap's own, its bottom-left pixel) leave the background showing.
class TjexTransImage : public vcl::TGraphicControl {
    JEX_CLASS(TjexTransImage, vcl::TGraphicControl)
    explicit TjexTransImage(rtl::TComponent* AOwner);
    ~TjexTransImage() override;
    TjexPicAlign PicAlign() const { return FPicAlign; }
    void SetPicAlign(TjexPicAlign Value) { FPicAlign = Value; }
    TjexPicDrawStyle PicDrawStyle() const { return FPicDrawStyle; }
    void SetPicDrawStyle(TjexPicDrawStyle Value) { FPicDrawStyle = Value; }
    vcl::TPicture* Picture() const { return FPicture.get(); }
    void SetPicture(vcl::TPicture* Value) { FPicture->Assign(Value); }
    bool Transparent() const { return FTransparent; }
    void SetTransparent(bool Value) { FTransparent = Value; }
    vcl::TColor TransparentColor() const { return FTransparentColor; }
    void SetTransparentColor(vcl::TColor Value) { FTransparentColor = Value; }
    // Where the picture goes inside the control (for jpdTile: the whole control).
    vcl::TRect PictureRect() const;
    void Paint(vcl::TCanvas* Canvas, int X = 0, int Y = 0) const;

private:
    TjexPicAlign FPicAlign = jpaTopLeft;
    TjexPicDrawStyle FPicDrawStyle = jpdNormal;
    std::unique_ptr<vcl::TPicture> FPicture;
    bool FTransparent = true;
    vcl::TColor FTransparentColor = vcl::clDefault;
};

} // namespace jex
