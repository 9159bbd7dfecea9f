// Sprites: lists of points (with their text file), sprites that belong to the form and to one sprite list
// in depth order, the surface that draws a list and routes the mouse to its sprites, a factory that cuts
// bitmap sprites from a strip, the kinds of sprites, and the mover that walks a sprite along points.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "jex/jexcommon.h"
#include "jex/jexctrls.h"
#include "jex/jexeffects.h"
#include "jex/jexshape.h"
#include "vcl/imglist.h"

namespace jex {

// ---- Point lists -----------------------------------------------------------------------------------------
// A list of owned points (pointers to TPoint records in the list's slots, so that a point can be changed
// in place). The text file has one point per line, "X , Y"; reading also takes "X,Y" with any blanks and
// skips lines that hold no such pair.
class TjexPointList : public rtl::TList {
    JEX_CLASS(TjexPointList, rtl::TList)
    TjexPointList() = default;
    ~TjexPointList() override;
    // Appends an owned copy of P; its index.
    int AddPoint(const vcl::TPoint& P);
    void InsertPoint(int Index, const vcl::TPoint& P);
    // Removes and frees the point at Index (EListError outside the list).
    void DeletePoint(int Index);
    // Removes and frees every point.
    void Clear();
    vcl::TPoint* Points(int Index) const { return static_cast<vcl::TPoint*>(Items(Index)); }
    std::vector<vcl::TPoint> ToVector() const;
    void Assign(const TjexPointList& Source);
    bool Equals(const TjexPointList& Other) const;

    // "X , Y" of a point, as the file and the point editor write it.
    static std::string FormatPoint(const vcl::TPoint& P);
    // X and Y of a line, or false for a line without exactly one comma between two integers.
    static bool ParsePoint(const std::string& Line, vcl::TPoint& P);
    // Replaces the points with those of the file and returns how many were read; a file without a single
    // point leaves the list as it was (0). EFOpenError when it cannot be read.
    int LoadFromFile(const std::string& FileName);
    void SaveToFile(const std::string& FileName) const;
};

// ---- Sprites -------------------------------------------------------------------------------------------
class TjexSpriteList;

// A sprite: a picture of some kind at Left, Top (Width x Height) on the surface that draws its list.
// Depth orders the sprites of a list: 0 is the frontmost, larger values lie further back. A sprite belongs
// to the form; in a form file it is written inside its list, which puts it back into the list when read.
class TjexSprite : public rtl::TComponent {
    JEX_CLASS(TjexSprite, rtl::TComponent)
    explicit TjexSprite(rtl::TComponent* AOwner);
    ~TjexSprite() override;
    TjexSpriteList* SpriteList() const { return FSpriteList; }
    // Leaves the old list (if any) and joins the new one at its end.
    void SetSpriteList(TjexSpriteList* Value);
    uint32_t Depth() const { return FDepth; }
    void SetDepth(uint32_t Value) { FDepth = Value; }
    int Left() const { return FLeft; }
    void SetLeft(int Value) { FLeft = Value; }
    int Top() const { return FTop; }
    void SetTop(int Value) { FTop = Value; }
    int Width() const { return FWidth; }
    void SetWidth(int Value) { FWidth = Value < 0 ? 0 : Value; }
    int Height() const { return FHeight; }
    void SetHeight(int Value) { FHeight = Value < 0 ? 0 : Value; }
    bool Visible() const { return FVisible; }
    void SetVisible(bool Value) { FVisible = Value; }
    vcl::TRect BoundsRect() const { return vcl::Bounds(FLeft, FTop, FWidth, FHeight); }
    void SetBounds(int ALeft, int ATop, int AWidth, int AHeight);
    void MoveTo(int ALeft, int ATop) { SetBounds(ALeft, ATop, FWidth, FHeight); }

    // Draws the sprite at its place on Canvas (shifted by OffsetX, OffsetY).
    virtual void Draw(vcl::TCanvas* Canvas, int OffsetX = 0, int OffsetY = 0) const = 0;
    // Whether (X, Y) (surface coordinates) hits the sprite: inside its bounds, by default.
    virtual bool HitTest(int X, int Y) const;
    // One step of the sprite's own animation; true when it changed.
    virtual bool Tick() { return false; }
    virtual void Click() { OnClick(this); }
    rtl::TNotifyEvent OnClick;

    bool HasParent() const override { return FSpriteList != nullptr; }
    rtl::TComponent* GetParentComponent() const override;
    void SetParentComponent(rtl::TComponent* Value) override;

private:
    friend class TjexSpriteList;
    TjexSpriteList* FSpriteList = nullptr;
    uint32_t FDepth = 0;
    int FLeft = 0, FTop = 0, FWidth = 32, FHeight = 32;
    bool FVisible = true;
};

// The sprites of one surface, front first once sorted. The list does not own them (the form does); a sprite
// that goes leaves the list, a list that goes lets its sprites go free.
class TjexSpriteList : public rtl::TComponent {
    JEX_CLASS(TjexSpriteList, rtl::TComponent)
    explicit TjexSpriteList(rtl::TComponent* AOwner);
    ~TjexSpriteList() override;
    int Count() const { return static_cast<int>(FSprites.size()); }
    TjexSprite* Sprites(int Index) const; // raises EListError out of range
    int IndexOf(const TjexSprite* Sprite) const;
    // Appends Sprite (taking it from another list); Remove lets it go.
    void Add(TjexSprite* Sprite);
    void Remove(TjexSprite* Sprite);
    void Clear();
    // Whether the sprites are in depth order; setting true puts them in it (equal depths keep their order).
    bool Sorted() const;
    void SetSorted(bool Value);
    // Draws the visible sprites, the back ones first.
    void Draw(vcl::TCanvas* Canvas, int OffsetX = 0, int OffsetY = 0) const;
    // The frontmost visible sprite at (X, Y), or nil.
    TjexSprite* SpriteAt(int X, int Y) const;
    // One animation step of every sprite; true when any changed.
    bool Tick();

    void GetChildren(const rtl::TGetChildProc& Proc, rtl::TComponent* Root) override;
    void SetChildOrder(rtl::TComponent* Child, int Order) override;

private:
    friend class TjexSprite;
    std::vector<TjexSprite*> FSprites;
};

// A control that draws a sprite list over its colour (Render) and passes a press on a sprite to it.
class TjexSpriteSurface : public vcl::TCustomControl {
    JEX_CLASS(TjexSpriteSurface, vcl::TCustomControl)
    explicit TjexSpriteSurface(rtl::TComponent* AOwner);
    TjexSpriteList* SpriteList() const { return FSpriteList; }
    void SetSpriteList(TjexSpriteList* Value);
    // Draws the surface (its colour, then the sprites) into Target at the control's size.
    void Render(vcl::TBitmap* Target) const;
    // One animation step of the list's sprites.
    bool Animate();
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    TjexSpriteList* FSpriteList = nullptr;
};

// ---- Sprite kinds --------------------------------------------------------------------------------------
// A bitmap; with Transparent its transparent colour (the bottom-left pixel) lets what is behind show.
class TjexBitmapSprite : public TjexSprite {
    JEX_CLASS(TjexBitmapSprite, TjexSprite)
    explicit TjexBitmapSprite(rtl::TComponent* AOwner);
    ~TjexBitmapSprite() override;
    vcl::TBitmap* Bitmap() const { return FBitmap.get(); }
    // Takes the bitmap and its size.
    void SetBitmap(vcl::TBitmap* Value);
    bool Transparent() const { return FTransparent; }
    void SetTransparent(bool Value) { FTransparent = Value; }
    void Draw(vcl::TCanvas* Canvas, int OffsetX = 0, int OffsetY = 0) const override;
    // Transparent pixels do not hit.
    bool HitTest(int X, int Y) const override;

private:
    std::unique_ptr<vcl::TBitmap> FBitmap;
    bool FTransparent = true;
};

// A picture of any format, drawn at its size or stretched to the sprite's.
class TjexPictureSprite : public TjexSprite {
    JEX_CLASS(TjexPictureSprite, TjexSprite)
    explicit TjexPictureSprite(rtl::TComponent* AOwner);
    ~TjexPictureSprite() override;
    vcl::TPicture* Picture() const { return FPicture.get(); }
    void SetPicture(vcl::TPicture* Value) { FPicture->Assign(Value); }
    bool Stretch() const { return FStretch; }
    void SetStretch(bool Value) { FStretch = Value; }
    void Draw(vcl::TCanvas* Canvas, int OffsetX = 0, int OffsetY = 0) const override;

private:
    std::unique_ptr<vcl::TPicture> FPicture;
    bool FStretch = false;
};

// One image of an image list.
class TjexImageListSprite : public TjexSprite {
    JEX_CLASS(TjexImageListSprite, TjexSprite)
    explicit TjexImageListSprite(rtl::TComponent* AOwner) : TjexSprite(AOwner) {}
    vcl::TCustomImageList* Images() const { return FImages; }
    void SetImages(vcl::TCustomImageList* Value);
    vcl::TImageIndex ImageIndex() const { return FImageIndex; }
    void SetImageIndex(vcl::TImageIndex Value) { FImageIndex = Value; }
    void Draw(vcl::TCanvas* Canvas, int OffsetX = 0, int OffsetY = 0) const override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    vcl::TCustomImageList* FImages = nullptr;
    vcl::TImageIndex FImageIndex = -1;
};

// A picture that changes through a transition effect: a new picture comes in over EffectSteps ticks.
class TjexEffectSprite : public TjexSprite, public TjexEffectProps {
    JEX_CLASS(TjexEffectSprite, TjexSprite)
    explicit TjexEffectSprite(rtl::TComponent* AOwner);
    ~TjexEffectSprite() override;
    vcl::TPicture* Picture() const { return FPicture.get(); }
    void SetPicture(vcl::TPicture* Value) { FPicture->Assign(Value); }
    // The transition's step now (EffectSteps when it is over).
    int Step() const { return FStep; }
    bool Tick() override;
    void Draw(vcl::TCanvas* Canvas, int OffsetX = 0, int OffsetY = 0) const override;
    void DefineProperties(rtl::TFiler& Filer) override;

protected:
    // The new picture as the sprite shows it, at the sprite's size.
    virtual void RenderPicture(vcl::TBitmap* Target) const;
    void PictureChanged();
    std::unique_ptr<vcl::TBitmap> FFrom, FTo;
    TjexTransitionEffect FRunning = jteNone;
    int FStep = 0;

private:
    std::unique_ptr<vcl::TPicture> FPicture;
};

// An effect sprite with rich text written over its picture.
class TjexRichEffectSprite : public TjexEffectSprite {
    JEX_CLASS(TjexRichEffectSprite, TjexEffectSprite)
    explicit TjexRichEffectSprite(rtl::TComponent* AOwner);
    ~TjexRichEffectSprite() override;
    TjexRichText* RichText() const { return FRichText.get(); }
    void SetRichText(TjexRichText* Value) { FRichText->Assign(Value); }
    vcl::TFont* Font() const { return FFont.get(); }
    void SetFont(vcl::TFont* Value) { FFont->Assign(Value); }

protected:
    void RenderPicture(vcl::TBitmap* Target) const override;

private:
    std::unique_ptr<TjexRichText> FRichText;
    std::unique_ptr<vcl::TFont> FFont;
};

// Text a person types into the sprite (KeyPress: characters, Backspace), at most MaxLength characters.
class TjexInputSprite : public TjexSprite {
    JEX_CLASS(TjexInputSprite, TjexSprite)
    explicit TjexInputSprite(rtl::TComponent* AOwner);
    ~TjexInputSprite() override;
    std::string Text() const { return FText; }
    void SetText(const std::string& Value);
    vcl::TFont* Font() const { return FFont.get(); }
    void SetFont(vcl::TFont* Value) { FFont->Assign(Value); }
    vcl::TColor Color() const { return FColor; }
    void SetColor(vcl::TColor Value) { FColor = Value; }
    int MaxLength() const { return FMaxLength; }
    void SetMaxLength(int Value) { FMaxLength = Value < 0 ? 0 : Value; }
    void KeyPress(char Key);
    void Draw(vcl::TCanvas* Canvas, int OffsetX = 0, int OffsetY = 0) const override;
    rtl::TNotifyEvent OnChange;

private:
    std::string FText;
    std::unique_ptr<vcl::TFont> FFont;
    vcl::TColor FColor = vcl::clWindow;
    int FMaxLength = 0;
};

// A shape drawn with Pen and filled with Brush.
class TjexShapeSprite : public TjexSprite {
    JEX_CLASS(TjexShapeSprite, TjexSprite)
    explicit TjexShapeSprite(rtl::TComponent* AOwner);
    ~TjexShapeSprite() override;
    vcl::TBrush* Brush() const { return FBrush.get(); }
    void SetBrush(vcl::TBrush* Value) { FBrush->Assign(Value); }
    vcl::TPen* Pen() const { return FPen.get(); }
    void SetPen(vcl::TPen* Value) { FPen->Assign(Value); }
    TjexShapeType Shape() const { return FShape; }
    void SetShape(TjexShapeType Value) { FShape = Value; }
    void Draw(vcl::TCanvas* Canvas, int OffsetX = 0, int OffsetY = 0) const override;
    bool HitTest(int X, int Y) const override;

private:
    vcl::TRect ShapeRect() const;
    std::unique_ptr<vcl::TBrush> FBrush;
    std::unique_ptr<vcl::TPen> FPen;
    TjexShapeType FShape = jstRectangle;
};

JEX_ENUM(TjexScrollDirection, jsdLeft, jsdRight, jsdUp, jsdDown)

// Text that scrolls through the sprite's area by ScrollStep pixels a tick, coming round again.
class TjexTextSprite : public TjexSprite {
    JEX_CLASS(TjexTextSprite, TjexSprite)
    explicit TjexTextSprite(rtl::TComponent* AOwner);
    ~TjexTextSprite() override;
    std::string Text() const { return FText; }
    void SetText(const std::string& Value) { FText = Value; }
    vcl::TFont* Font() const { return FFont.get(); }
    void SetFont(vcl::TFont* Value) { FFont->Assign(Value); }
    TjexScrollDirection ScrollDirection() const { return FDirection; }
    void SetScrollDirection(TjexScrollDirection Value) { FDirection = Value; }
    int ScrollStep() const { return FScrollStep; }
    void SetScrollStep(int Value) { FScrollStep = Value < 0 ? 0 : Value; }
    // Where the text starts now, relative to the sprite.
    vcl::TPoint TextOffset() const;
    bool Tick() override;
    void Draw(vcl::TCanvas* Canvas, int OffsetX = 0, int OffsetY = 0) const override;

private:
    vcl::TSize TextSize() const;
    std::string FText;
    std::unique_ptr<vcl::TFont> FFont;
    TjexScrollDirection FDirection = jsdLeft;
    int FScrollStep = 2;
    int FPosition = 0; // pixels scrolled so far
};

// Text turned by Angle degrees (counter-clockwise) about the sprite's centre, AngleStep more each tick.
class TjexRotateTextSprite : public TjexSprite {
    JEX_CLASS(TjexRotateTextSprite, TjexSprite)
    explicit TjexRotateTextSprite(rtl::TComponent* AOwner);
    ~TjexRotateTextSprite() override;
    std::string Text() const { return FText; }
    void SetText(const std::string& Value) { FText = Value; }
    vcl::TFont* Font() const { return FFont.get(); }
    void SetFont(vcl::TFont* Value) { FFont->Assign(Value); }
    int Angle() const { return FAngle; }
    // Kept within 0..359.
    void SetAngle(int Value);
    int AngleStep() const { return FAngleStep; }
    void SetAngleStep(int Value) { FAngleStep = Value; }
    bool Tick() override;
    void Draw(vcl::TCanvas* Canvas, int OffsetX = 0, int OffsetY = 0) const override;

private:
    std::string FText;
    std::unique_ptr<vcl::TFont> FFont;
    int FAngle = 0;
    int FAngleStep = 10;
};

// ---- Factory and mover -----------------------------------------------------------------------------------
// Cuts bitmap sprites from Bitmap, a grid of FrameWidth x FrameHeight frames read row by row, and puts them
// into SpriteList; the sprites belong to the factory's owner.
class TjexBitmapSpriteFactory : public rtl::TComponent {
    JEX_CLASS(TjexBitmapSpriteFactory, rtl::TComponent)
    explicit TjexBitmapSpriteFactory(rtl::TComponent* AOwner);
    ~TjexBitmapSpriteFactory() override;
    vcl::TBitmap* Bitmap() const { return FBitmap.get(); }
    void SetBitmap(vcl::TBitmap* Value) { FBitmap->Assign(Value); }
    int FrameWidth() const { return FFrameWidth; }
    void SetFrameWidth(int Value) { FFrameWidth = Value < 1 ? 1 : Value; }
    int FrameHeight() const { return FFrameHeight; }
    void SetFrameHeight(int Value) { FFrameHeight = Value < 1 ? 1 : Value; }
    TjexSpriteList* SpriteList() const { return FSpriteList; }
    void SetSpriteList(TjexSpriteList* Value);
    int FrameCount() const;
    // Copies frame Index into Target.
    void CutFrame(int Index, vcl::TBitmap* Target) const;
    // A new sprite showing frame Index at (Left, Top); EListError for a frame that does not exist.
    TjexBitmapSprite* CreateSprite(int Index, int Left = 0, int Top = 0);

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    std::unique_ptr<vcl::TBitmap> FBitmap;
    int FFrameWidth = 32, FFrameHeight = 32;
    TjexSpriteList* FSpriteList = nullptr;
};

// Moves Sprite along Points, one point a tick (Position is the point it is at); with Loop it starts again
// after the last point. The form file keeps the points as "PointData".
class TjexSpriteMover : public rtl::TComponent {
    JEX_CLASS(TjexSpriteMover, rtl::TComponent)
    explicit TjexSpriteMover(rtl::TComponent* AOwner);
    ~TjexSpriteMover() override;
    TjexSprite* Sprite() const { return FSprite; }
    void SetSprite(TjexSprite* Value);
    TjexPointList* Points() const { return FPoints.get(); }
    void SetPoints(TjexPointList* Value);
    bool Loop() const { return FLoop; }
    void SetLoop(bool Value) { FLoop = Value; }
    int Position() const { return FPosition; }
    void SetPosition(int Value) { FPosition = Value; }
    // Moves the sprite to the next point; false at the end of the points (without Loop) or without a
    // sprite or points.
    bool Tick();
    void DefineProperties(rtl::TFiler& Filer) override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    TjexSprite* FSprite = nullptr;
    std::unique_ptr<TjexPointList> FPoints;
    bool FLoop = true;
    int FPosition = -1;
};

} // namespace jex
