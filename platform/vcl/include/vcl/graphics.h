// Graphics: colours with the platform's names, fonts, pens and brushes, bitmaps that read and write real
// BMP files, pictures, and a canvas that really draws into bitmaps.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "rtl/classes.h"

namespace vcl {

using rtl::TNotifyEvent;
using rtl::TObject;
using rtl::TPersistent;

// $00BBGGRR for RGB colours, $80000000 + index for system colours.
using TColor = int32_t;
const rtl::TTypeInfo* TypeInfo_TColor();

inline constexpr TColor clBlack = 0x000000, clMaroon = 0x000080, clGreen = 0x008000, clOlive = 0x008080,
                        clNavy = 0x800000, clPurple = 0x800080, clTeal = 0x808000, clGray = 0x808080,
                        clSilver = 0xC0C0C0, clRed = 0x0000FF, clLime = 0x00FF00, clYellow = 0x00FFFF,
                        clBlue = 0xFF0000, clFuchsia = 0xFF00FF, clAqua = 0xFFFF00, clLtGray = 0xC0C0C0,
                        clDkGray = 0x808080, clWhite = 0xFFFFFF, clMoneyGreen = 0xC0DCC0, clSkyBlue = 0xF0CAA6,
                        clCream = 0xF0FBFF, clMedGray = 0xA4A0A0;
inline constexpr TColor clSystemColor = int32_t(0x80000000);
inline constexpr TColor clScrollBar = clSystemColor | 0, clBackground = clSystemColor | 1,
                        clActiveCaption = clSystemColor | 2, clInactiveCaption = clSystemColor | 3,
                        clMenu = clSystemColor | 4, clWindow = clSystemColor | 5, clWindowFrame = clSystemColor | 6,
                        clMenuText = clSystemColor | 7, clWindowText = clSystemColor | 8,
                        clCaptionText = clSystemColor | 9, clActiveBorder = clSystemColor | 10,
                        clInactiveBorder = clSystemColor | 11, clAppWorkSpace = clSystemColor | 12,
                        clHighlight = clSystemColor | 13, clHighlightText = clSystemColor | 14,
                        clBtnFace = clSystemColor | 15, clBtnShadow = clSystemColor | 16,
                        clGrayText = clSystemColor | 17, clBtnText = clSystemColor | 18,
                        clInactiveCaptionText = clSystemColor | 19, clBtnHighlight = clSystemColor | 20,
                        cl3DDkShadow = clSystemColor | 21, cl3DLight = clSystemColor | 22,
                        clInfoText = clSystemColor | 23, clInfoBk = clSystemColor | 24;
inline constexpr TColor clNone = 0x1FFFFFFF, clDefault = 0x20000000;

// The colour's name from the platform table, else "$" and eight upper-case hex digits ("$00FF8000").
std::string ColorToString(TColor color);
// Accepts the names (ignoring case) and any integer text ("$FF", "255", "-1"); raises EConvertError.
TColor StringToColor(const std::string& s);
bool IdentToColor(const std::string& ident, TColor& color);
bool ColorToIdent(TColor color, std::string& ident);
// Calls proc with every colour name, in the platform's table order (clBlack ... clWindowText).
void GetColorValues(const std::function<void(const std::string&)>& proc);
// The RGB value ($00BBGGRR) a colour shows as; system colours through the platform's default scheme.
uint32_t ColorToRGB(TColor color);
inline constexpr uint32_t RGB(uint8_t r, uint8_t g, uint8_t b) { return r | (g << 8) | (uint32_t(b) << 16); }

JEX_ENUM(TFontStyle, fsBold, fsItalic, fsUnderline, fsStrikeOut)
JEX_SET(TFontStyles, TFontStyle)
JEX_ENUM(TFontPitch, fpDefault, fpVariable, fpFixed)
JEX_ENUM(TPenStyle, psSolid, psDash, psDot, psDashDot, psDashDotDot, psClear, psInsideFrame)
JEX_ENUM(TPenMode, pmBlack, pmWhite, pmNop, pmNot, pmCopy, pmNotCopy, pmMergePenNot, pmMaskPenNot, pmMergeNotPen,
         pmMaskNotPen, pmMerge, pmNotMerge, pmMask, pmNotMask, pmXor, pmNotXor)
JEX_ENUM(TBrushStyle, bsSolid, bsClear, bsHorizontal, bsVertical, bsFDiagonal, bsBDiagonal, bsCross, bsDiagCross)
const rtl::TTypeInfo* TypeInfo_TFontName();
const rtl::TTypeInfo* TypeInfo_TFontCharset();

// Base of fonts, pens and brushes: notifies its owner through OnChange.
class TGraphicsObject : public TPersistent {
    JEX_CLASS(TGraphicsObject, TPersistent)
    TNotifyEvent OnChange;

protected:
    void Changed();
};

class TFont : public TGraphicsObject {
    JEX_CLASS(TFont, TGraphicsObject)
    TFont();
    void Assign(TPersistent* Source) override;
    // Height is in pixels (negative: character height), Size in points at PixelsPerInch (96).
    int Charset() const { return FCharset; }
    void SetCharset(int v);
    TColor Color() const { return FColor; }
    void SetColor(TColor v);
    int Height() const { return FHeight; }
    void SetHeight(int v);
    std::string Name() const { return FName; }
    void SetName(const std::string& v);
    TFontPitch Pitch() const { return FPitch; }
    void SetPitch(TFontPitch v);
    int Size() const;
    void SetSize(int v);
    TFontStyles Style() const { return FStyle; }
    void SetStyle(TFontStyles v);
    int PixelsPerInch = 96;
    bool Equals(const TFont& other) const;

private:
    int FCharset = 1; // DEFAULT_CHARSET
    TColor FColor = clWindowText;
    int FHeight = -11; // 8 points at 96 dpi
    std::string FName = "MS Sans Serif";
    TFontPitch FPitch = fpDefault;
    TFontStyles FStyle;
};

class TPen : public TGraphicsObject {
    JEX_CLASS(TPen, TGraphicsObject)
    TPen() = default;
    void Assign(TPersistent* Source) override;
    TColor Color() const { return FColor; }
    void SetColor(TColor v);
    TPenMode Mode() const { return FMode; }
    void SetMode(TPenMode v);
    TPenStyle Style() const { return FStyle; }
    void SetStyle(TPenStyle v);
    int Width() const { return FWidth; }
    void SetWidth(int v);

private:
    TColor FColor = clBlack;
    TPenMode FMode = pmCopy;
    TPenStyle FStyle = psSolid;
    int FWidth = 1;
};

class TBrush : public TGraphicsObject {
    JEX_CLASS(TBrush, TGraphicsObject)
    TBrush() = default;
    void Assign(TPersistent* Source) override;
    TColor Color() const { return FColor; }
    void SetColor(TColor v);
    TBrushStyle Style() const { return FStyle; }
    void SetStyle(TBrushStyle v);

private:
    TColor FColor = clWhite;
    TBrushStyle FStyle = bsSolid;
};

struct TPoint {
    int X = 0, Y = 0;
    bool operator==(const TPoint&) const = default;
};
struct TRect {
    int Left = 0, Top = 0, Right = 0, Bottom = 0;
    int Width() const { return Right - Left; }
    int Height() const { return Bottom - Top; }
    bool operator==(const TRect&) const = default;
};
inline TRect Rect(int l, int t, int r, int b) { return TRect{l, t, r, b}; }
inline TRect Bounds(int l, int t, int w, int h) { return TRect{l, t, l + w, t + h}; }
inline TPoint Point(int x, int y) { return TPoint{x, y}; }

class TBitmap;
class TGraphic;

// A canvas draws into a pixel surface (a bitmap's). Coordinates are clipped to the surface.
class TCanvas : public TPersistent {
    JEX_CLASS(TCanvas, TPersistent)
    TCanvas();
    ~TCanvas() override;
    TFont* Font() const { return FFont.get(); }
    TPen* Pen() const { return FPen.get(); }
    TBrush* Brush() const { return FBrush.get(); }
    TPoint PenPos() const { return FPenPos; }
    void SetPenPos(TPoint p) { FPenPos = p; }

    void FillRect(const TRect& r);
    void FrameRect(const TRect& r);
    void Rectangle(int x1, int y1, int x2, int y2);
    void Ellipse(int x1, int y1, int x2, int y2);
    void MoveTo(int x, int y);
    void LineTo(int x, int y);
    void Polyline(const std::vector<TPoint>& points);
    void Polygon(const std::vector<TPoint>& points);
    void TextOut(int x, int y, const std::string& text);
    void TextRect(const TRect& r, int x, int y, const std::string& text);
    int TextWidth(const std::string& text);
    int TextHeight(const std::string& text);
    void Draw(int x, int y, TGraphic* graphic);
    void StretchDraw(const TRect& r, TGraphic* graphic);
    void CopyRect(const TRect& dest, TCanvas* source, const TRect& src);
    TColor Pixel(int x, int y) const;
    void SetPixel(int x, int y, TColor c);

    // The surface drawn on; set by the bitmap that owns this canvas.
    TBitmap* Target() const { return FTarget; }
    void SetTarget(TBitmap* b) { FTarget = b; }

private:
    std::unique_ptr<TFont> FFont;
    std::unique_ptr<TPen> FPen;
    std::unique_ptr<TBrush> FBrush;
    TPoint FPenPos;
    TBitmap* FTarget = nullptr;
};

// Abstract picture format.
class TGraphic : public TPersistent {
    JEX_CLASS(TGraphic, TPersistent)
    virtual bool Empty() const = 0;
    virtual int Width() const = 0;
    virtual int Height() const = 0;
    virtual void SetWidth(int v) = 0;
    virtual void SetHeight(int v) = 0;
    virtual void LoadFromFile(const std::string& fileName);
    virtual void SaveToFile(const std::string& fileName) const;
    virtual void LoadFromBytes(const std::vector<uint8_t>& bytes) = 0;
    virtual void SaveToBytes(std::vector<uint8_t>& bytes) const = 0;
    virtual void Draw(TCanvas* canvas, const TRect& r) = 0;
    bool Transparent() const { return FTransparent; }
    virtual void SetTransparent(bool v) { FTransparent = v; }
    TNotifyEvent OnChange;

protected:
    void Changed();
    bool FTransparent = false;
};

JEX_ENUM(TPixelFormat, pfDevice, pf1bit, pf4bit, pf8bit, pf15bit, pf16bit, pf24bit, pf32bit, pfCustom)
JEX_ENUM(TTransparentMode, tmAuto, tmFixed)

// A device-independent bitmap. Pixels are kept as 32-bit $00BBGGRR plus, for palette formats, the
// palette; LoadFromFile/SaveToFile read and write real BMP files of 1, 4, 8 and 24 bits per pixel.
class TBitmap : public TGraphic {
    JEX_CLASS(TBitmap, TGraphic)
    TBitmap();
    ~TBitmap() override;
    void Assign(TPersistent* Source) override;
    bool Empty() const override;
    int Width() const override { return FWidth; }
    int Height() const override { return FHeight; }
    void SetWidth(int v) override;
    void SetHeight(int v) override;
    void SetSize(int w, int h);
    void LoadFromBytes(const std::vector<uint8_t>& bytes) override; // raises EInvalidGraphic
    void SaveToBytes(std::vector<uint8_t>& bytes) const override;
    void Draw(TCanvas* canvas, const TRect& r) override;
    TCanvas* Canvas();
    TPixelFormat PixelFormat() const { return FPixelFormat; }
    void SetPixelFormat(TPixelFormat pf); // converts the pixels (palette reduction for 1/4/8 bits)
    const std::vector<uint32_t>& Palette() const { return FPalette; }
    // Transparent colour: the bottom-left pixel in tmAuto mode, TransparentColor in tmFixed mode.
    TColor TransparentColor() const;
    void SetTransparentColor(TColor c);
    TTransparentMode TransparentMode() const { return FTransparentMode; }
    void SetTransparentMode(TTransparentMode m) { FTransparentMode = m; }
    uint32_t PixelRGB(int x, int y) const; // $00BBGGRR
    void SetPixelRGB(int x, int y, uint32_t rgb);
    void DefineProperties(rtl::TFiler& Filer) override; // "Data"
    // Frees the pixels (the handle, in platform terms): the bitmap becomes empty.
    void Dormant() {}
    void FreeImage();

private:
    int FWidth = 0, FHeight = 0;
    std::vector<uint32_t> FPixels;
    std::vector<uint32_t> FPalette;
    TPixelFormat FPixelFormat = pfDevice;
    TColor FTransparentColor = clDefault;
    TTransparentMode FTransparentMode = tmAuto;
    std::unique_ptr<TCanvas> FCanvas;
};

// Holds one graphic of any registered format; LoadFromFile picks the format by extension.
class TPicture : public TPersistent {
    JEX_CLASS(TPicture, TPersistent)
    TPicture();
    ~TPicture() override;
    void Assign(TPersistent* Source) override;
    TGraphic* Graphic() const { return FGraphic.get(); }
    void SetGraphic(TGraphic* g); // copies g
    TBitmap* Bitmap();            // makes the picture a bitmap when it is not one
    int Width() const;
    int Height() const;
    void LoadFromFile(const std::string& fileName); // raises EInvalidGraphic for an unknown format
    void SaveToFile(const std::string& fileName) const;
    void DefineProperties(rtl::TFiler& Filer) override; // "Data": class name then the graphic's bytes
    TNotifyEvent OnChange;

private:
    void Changed(TObject* Sender);
    std::unique_ptr<TGraphic> FGraphic;
};

} // namespace vcl
