// Graphics: colours with the platform's names, fonts, pens and brushes, bitmaps that read and write real
// BMP files, pictures, and a canvas that really draws into bitmaps.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "rtl/classes.h"

namespace vcl {

using rtl::TNotifyEvent;
using rtl::TObject;
using rtl::TPersistent;

// $00BBGGRR for RGB colours, $80000000 + index for system colours.
using TColor = int32_t;
// Creating the type registers the colour names with the form reader and writer (Color = clBtnFace).
const rtl::TTypeInfo* TypeInfo_TColor();

inline constexpr TColor clBlack = 0x000000, clMaroon = 0x000080, clGreen = 0x008000, clOlive = 0x008080,
                        clNavy = 0x800000, clPurple = 0x800080, clTeal = 0x808000, clGray = 0x808080,
                        clSilver = 0xC0C0C0, clRed = 0x0000FF, clLime = 0x00FF00, clYellow = 0x00FFFF,
                        clBlue = 0xFF0000, clFuchsia = 0xFF00FF, clAqua = 0xFFFF00, clLtGray = 0xC0C0C0,
                        clDkGray = 0x808080, clWhite = 0xFFFFFF, clMoneyGreen = 0xC0DCC0,
                        clSkyBlue = 0xF0CAA6, clCream = 0xF0FBFF, clMedGray = 0xA4A0A0;
inline constexpr TColor clSystemColor = int32_t(0x80000000);
inline constexpr TColor clScrollBar = clSystemColor | 0, clBackground = clSystemColor | 1,
                        clActiveCaption = clSystemColor | 2, clInactiveCaption = clSystemColor | 3,
                        clMenu = clSystemColor | 4, clWindow = clSystemColor | 5,
                        clWindowFrame = clSystemColor | 6, clMenuText = clSystemColor | 7,
                        clWindowText = clSystemColor | 8, clCaptionText = clSystemColor | 9,
                        clActiveBorder = clSystemColor | 10, clInactiveBorder = clSystemColor | 11,
                        clAppWorkSpace = clSystemColor | 12, clHighlight = clSystemColor | 13,
                        clHighlightText = clSystemColor | 14, clBtnFace = clSystemColor | 15,
                        clBtnShadow = clSystemColor | 16, clGrayText = clSystemColor | 17,
                        clBtnText = clSystemColor | 18, clInactiveCaptionText = clSystemColor | 19,
                        clBtnHighlight = clSystemColor | 20, cl3DDkShadow = clSystemColor | 21,
                        cl3DLight = clSystemColor | 22, clInfoText = clSystemColor | 23,
                        clInfoBk = clSystemColor | 24;
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
inline constexpr uint32_t RGB(uint8_t r, uint8_t g, uint8_t b) {
    return r | (g << 8) | (uint32_t(b) << 16);
}

JEX_ENUM(TFontStyle, fsBold, fsItalic, fsUnderline, fsStrikeOut)
JEX_SET(TFontStyles, TFontStyle)
JEX_ENUM(TFontPitch, fpDefault, fpVariable, fpFixed)
JEX_ENUM(TPenStyle, psSolid, psDash, psDot, psDashDot, psDashDotDot, psClear, psInsideFrame)
JEX_ENUM(TPenMode, pmBlack, pmWhite, pmNop, pmNot, pmCopy, pmNotCopy, pmMergePenNot, pmMaskPenNot,
         pmMergeNotPen, pmMaskNotPen, pmMerge, pmNotMerge, pmMask, pmNotMask, pmXor, pmNotXor)
JEX_ENUM(TBrushStyle, bsSolid, bsClear, bsHorizontal, bsVertical, bsFDiagonal, bsBDiagonal, bsCross,
         bsDiagCross)
const rtl::TTypeInfo* TypeInfo_TFontName();
const rtl::TTypeInfo* TypeInfo_TFontCharset();
// Character set names as form files write them (DEFAULT_CHARSET = 1, ANSI_CHARSET = 0, ...).
bool CharsetToIdent(int charset, std::string& ident);
bool IdentToCharset(const std::string& ident, int& charset);

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
inline TRect Rect(int l, int t, int r, int b) {
    return TRect{l, t, r, b};
}
inline TRect Bounds(int l, int t, int w, int h) {
    return TRect{l, t, l + w, t + h};
}
inline TPoint Point(int x, int y) {
    return TPoint{x, y};
}
struct TSize {
    int cx = 0, cy = 0;
    bool operator==(const TSize&) const = default;
};

class TBitmap;
class TGraphic;

// A canvas draws into a pixel surface (a bitmap's). Coordinates are clipped to the surface; a canvas
// without a surface draws nothing but still measures text. Shapes follow the platform's conventions: the
// right and bottom edges of a bounding rectangle are excluded, LineTo leaves out its end point, the pen
// (with its Mode) draws outlines and the brush fills interiors, hatched brushes fill only their lines.
// Text is drawn with the DejaVu faces through FreeType: any face name maps to DejaVu Sans, or Sans Mono for
// fixed-pitch fonts, bold and italic through their variants; Font.Height gives the pixel size.
class TCanvas : public TPersistent {
    JEX_CLASS(TCanvas, TPersistent)
    TCanvas();
    ~TCanvas() override;
    TFont* Font() const { return FFont.get(); }
    TPen* Pen() const { return FPen.get(); }
    TBrush* Brush() const { return FBrush.get(); }
    TPoint PenPos() const { return FPenPos; }
    void SetPenPos(TPoint p) { FPenPos = p; }
    // The surface's bounds (empty without a surface).
    TRect ClipRect() const;

    void FillRect(const TRect& r);  // the brush, without the pen
    void FrameRect(const TRect& r); // a one-pixel border in the brush colour
    void Rectangle(int x1, int y1, int x2, int y2);
    void Rectangle(const TRect& r) { Rectangle(r.Left, r.Top, r.Right, r.Bottom); }
    void Ellipse(int x1, int y1, int x2, int y2);
    void MoveTo(int x, int y);
    void LineTo(int x, int y);
    void Polyline(const std::vector<TPoint>& points);
    void Polygon(const std::vector<TPoint>& points); // filled even-odd, then outlined and closed
    // Text with its top-left corner at (x, y); a solid brush fills the text's box first. Moves PenPos to
    // the end of the text. Text is UTF-8.
    void TextOut(int x, int y, const std::string& text);
    // Text at (x, y) clipped to r; a solid brush fills r first.
    void TextRect(const TRect& r, int x, int y, const std::string& text);
    int TextWidth(const std::string& text);
    int TextHeight(const std::string& text);
    TSize TextExtent(const std::string& text);
    void Draw(int x, int y, TGraphic* graphic);
    void StretchDraw(const TRect& r, TGraphic* graphic);
    // Copies (scaling when the sizes differ) src of source's surface onto dest of this one.
    void CopyRect(const TRect& dest, TCanvas* source, const TRect& src);
    TColor Pixel(int x, int y) const; // -1 outside the surface
    void SetPixel(int x, int y, TColor c);

    // The surface drawn on; set by the bitmap that owns this canvas.
    TBitmap* Target() const { return FTarget; }
    void SetTarget(TBitmap* b) { FTarget = b; }

private:
    friend class TBitmap;
    friend class TIcon;
    // Blends a width x height image with straight alpha (0..255 per pixel) onto dest, scaling as needed.
    void BlendImage(const TRect& dest, int width, int height, const uint32_t* pixels, const uint8_t* alpha);
    // Copies src of bitmap onto dest (nearest-neighbour when scaling), skipping pixels of transparentRGB.
    void Blit(const TRect& dest, const TBitmap* bitmap, const TRect& src, bool transparent,
              uint32_t transparentRGB);
    void PenPixel(int x, int y);
    void PenLine(int x0, int y0, int x1, int y1, int width = 0); // 0: the pen's width
    void BrushSpan(int y, int x0, int x1, bool usePenMode);
    void Modified();
    std::unique_ptr<TFont> FFont;
    std::unique_ptr<TPen> FPen;
    std::unique_ptr<TBrush> FBrush;
    TPoint FPenPos;
    TBitmap* FTarget = nullptr;
    int FDashPos = 0; // position along the pen's dash pattern
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
    virtual void SetTransparent(bool v);
    // The graphic's own layout inside a form file's "Data" value (and inside a picture's); by default
    // the bytes of its file.
    virtual void ReadData(const std::vector<uint8_t>& data);
    virtual void WriteData(std::vector<uint8_t>& data) const;
    // Same class and same data.
    virtual bool Equals(const TGraphic* other) const;
    // "Data", written when the graphic is not empty (or differs from the ancestor's).
    void DefineProperties(rtl::TFiler& Filer) override;
    TNotifyEvent OnChange;

protected:
    friend class TCanvas;
    void Changed();
    bool FTransparent = false;
};

JEX_ENUM(TPixelFormat, pfDevice, pf1bit, pf4bit, pf8bit, pf15bit, pf16bit, pf24bit, pf32bit, pfCustom)
JEX_ENUM(TTransparentMode, tmAuto, tmFixed)

// A device-independent bitmap. Pixels are kept as 32-bit $00BBGGRR plus, for palette formats, the
// palette; LoadFromFile/SaveToFile read and write real BMP files of 1, 4, 8, 16, 24 and 32 bits per pixel
// (reading also the old core header, top-down rows, bit fields and RLE4/RLE8 compression). Pixels of a
// palette or 16-bit format always hold a colour that format can store, so what is read is what is saved.
class TBitmap : public TGraphic {
    JEX_CLASS(TBitmap, TGraphic)
    TBitmap();
    ~TBitmap() override;
    void Assign(TPersistent* Source) override; // a bitmap, or nil (empties it)
    bool Empty() const override;
    int Width() const override { return FWidth; }
    int Height() const override { return FHeight; }
    // Resizing keeps the top-left pixels; new pixels are white.
    void SetWidth(int v) override;
    void SetHeight(int v) override;
    void SetSize(int w, int h);
    // BMP file bytes. Raises EInvalidGraphic and leaves the bitmap as it was when the bytes are not a
    // readable bitmap.
    void LoadFromBytes(const std::vector<uint8_t>& bytes) override;
    void SaveToBytes(std::vector<uint8_t>& bytes) const override;
    // The form-file layout: a 32-bit little-endian byte count, then the BMP file.
    void ReadData(const std::vector<uint8_t>& data) override;
    void WriteData(std::vector<uint8_t>& data) const override;
    void Draw(TCanvas* canvas, const TRect& r) override;
    TCanvas* Canvas();
    TPixelFormat PixelFormat() const { return FPixelFormat; }
    // Converts the pixels: reducing to 1, 4 or 8 bits builds a palette (the colours themselves when they
    // fit, else the classic 16-colour palette or a fixed 256-colour one, each pixel taking the nearest).
    void SetPixelFormat(TPixelFormat pf);
    const std::vector<uint32_t>& Palette() const { return FPalette; }
    // Replaces the palette of a 1, 4 or 8-bit bitmap (at most 2, 16 or 256 entries); pixels move to the
    // nearest new entry.
    void SetPalette(const std::vector<uint32_t>& palette);
    // Transparent colour: the bottom-left pixel in tmAuto mode, TransparentColor in tmFixed mode.
    TColor TransparentColor() const;
    // Also switches to tmFixed (clDefault switches back to tmAuto).
    void SetTransparentColor(TColor c);
    TTransparentMode TransparentMode() const { return FTransparentMode; }
    void SetTransparentMode(TTransparentMode m);
    uint32_t PixelRGB(int x, int y) const;        // $00BBGGRR; 0 outside the bitmap
    void SetPixelRGB(int x, int y, uint32_t rgb); // ignored outside the bitmap
    // Row y, Width() pixels of $00BBGGRR. Writing through it bypasses palette snapping and notification;
    // call NotifyChanged when done.
    uint32_t* ScanLine(int y);
    const uint32_t* ScanLine(int y) const;
    // The colour this bitmap's format would store for rgb (nearest palette entry, 5-bit channels...).
    uint32_t Quantize(uint32_t rgb) const;
    void DefineProperties(rtl::TFiler& Filer) override; // "Data"
    // Platform calls that release device handles; pixels here are device-independent, so the image stays.
    void Dormant() {}
    void FreeImage() {}
    // Runs OnChange, after pixels were changed through ScanLine.
    void NotifyChanged() { Changed(); }

private:
    friend class TCanvas;
    void Resize(int w, int h);
    int FWidth = 0, FHeight = 0;
    std::vector<uint32_t> FPixels;
    std::vector<uint32_t> FPalette;
    TPixelFormat FPixelFormat = pfDevice;
    TColor FTransparentColor = clDefault;
    TTransparentMode FTransparentMode = tmAuto;
    std::unique_ptr<TCanvas> FCanvas;
    mutable std::unordered_map<uint32_t, uint32_t> FNearest; // palette snapping cache
};

// An icon: the bytes of an .ico file, kept unchanged for saving and streaming (a form file's Icon.Data is
// the file itself), and one of its images decoded for drawing: 32x32 when there is one, else the largest,
// the deepest colour first among equals. Its mask (or alpha channel) makes the rest transparent. An image
// stored as PNG inside the file keeps its size but draws nothing.
class TIcon : public TGraphic {
    JEX_CLASS(TIcon, TGraphic)
    TIcon();
    ~TIcon() override;
    void Assign(TPersistent* Source) override; // an icon, or nil (empties it)
    bool Empty() const override { return FBytes.empty(); }
    int Width() const override { return FWidth; }
    int Height() const override { return FHeight; }
    void SetWidth(int) override;  // raises EInvalidGraphicOperation
    void SetHeight(int) override; // raises EInvalidGraphicOperation
    // Raises EInvalidGraphic "Icon image is not valid: ..." and keeps the icon as it was.
    void LoadFromBytes(const std::vector<uint8_t>& bytes) override;
    void SaveToBytes(std::vector<uint8_t>& bytes) const override { bytes = FBytes; }
    void Draw(TCanvas* canvas, const TRect& r) override;
    int ImageCount() const { return FImageCount; }
    // The decoded image's colour and opacity (0 transparent ... 255 opaque) at (x, y).
    uint32_t PixelRGB(int x, int y) const;
    uint8_t PixelAlpha(int x, int y) const;

private:
    std::vector<uint8_t> FBytes;
    int FWidth = 0, FHeight = 0, FImageCount = 0;
    std::vector<uint32_t> FPixels; // decoded image, empty for a PNG image
    std::vector<uint8_t> FAlpha;
};

// Graphic data of a format this platform does not decode (a GIF or JPEG image inside a form file): kept
// byte for byte so that it is written back unchanged. Its size is read from the image header of GIF, PNG
// and JPEG data; drawing it leaves the canvas as it was.
class TRawGraphic : public TGraphic {
    JEX_CLASS(TRawGraphic, TGraphic)
    TRawGraphic() = default;
    void Assign(TPersistent* Source) override;
    // The class name the data was written for ("TGIFImage").
    const std::string& FormatName() const { return FFormatName; }
    void SetFormatName(const std::string& v) { FFormatName = v; }
    const std::vector<uint8_t>& Bytes() const { return FBytes; }
    bool Empty() const override { return FBytes.empty(); }
    int Width() const override { return FWidth; }
    int Height() const override { return FHeight; }
    void SetWidth(int) override;  // raises EInvalidGraphicOperation
    void SetHeight(int) override; // raises EInvalidGraphicOperation
    void LoadFromBytes(const std::vector<uint8_t>& bytes) override;
    void SaveToBytes(std::vector<uint8_t>& bytes) const override { bytes = FBytes; }
    void Draw(TCanvas*, const TRect&) override {}

private:
    std::string FFormatName;
    std::vector<uint8_t> FBytes;
    int FWidth = 0, FHeight = 0;
};

// Holds one graphic of any registered format; LoadFromFile picks the format by extension.
class TPicture : public TPersistent {
    JEX_CLASS(TPicture, TPersistent)
    TPicture();
    ~TPicture() override;
    // A picture, a graphic (copied) or nil (empties the picture).
    void Assign(TPersistent* Source) override;
    TGraphic* Graphic() const { return FGraphic.get(); }
    void SetGraphic(TGraphic* g); // copies g; nil empties the picture
    TBitmap* Bitmap();            // makes the picture a bitmap when it is not one
    int Width() const;
    int Height() const;
    // Raises EInvalidGraphic "Unknown picture file extension (.xyz)" for an unregistered extension, and
    // EInvalidGraphic / EFOpenError when the file cannot be read; the picture is then unchanged.
    void LoadFromFile(const std::string& fileName);
    void SaveToFile(const std::string& fileName) const; // nothing for an empty picture
    // "Data": one length byte and the graphic's class name, then that graphic's own data. Data of an
    // unregistered class is kept as a TRawGraphic.
    void DefineProperties(rtl::TFiler& Filer) override;
    TNotifyEvent OnChange;

    // The file formats pictures know: extension without the dot ("bmp"), description, graphic class (a
    // TGraphic descendant with a default constructor). TBitmap ("bmp") and TIcon ("ico") are built in.
    static void RegisterFileFormat(const std::string& extension, const std::string& description,
                                   rtl::TClass graphicClass);
    static void UnregisterGraphicClass(rtl::TClass graphicClass);
    // The registered class with this name (ignoring case), or nil.
    static rtl::TClass FindGraphicClass(std::string_view className);

private:
    void Changed(TObject* Sender);
    void Take(std::unique_ptr<TGraphic> g);
    std::unique_ptr<TGraphic> FGraphic;
};

// An open-dialog filter of the registered formats of graphicClass (nil: all), the first entry covering
// them all: "All (*.bmp;*.ico)|*.bmp;*.ico|Bitmaps (*.bmp)|*.bmp|Icons (*.ico)|*.ico".
std::string GraphicFilter(rtl::TClass graphicClass);
// The default extension (without dot) of graphicClass, empty when none is registered.
std::string GraphicExtension(rtl::TClass graphicClass);

} // namespace vcl
