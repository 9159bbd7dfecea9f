// Image lists: a numbered set of equally sized images with transparency masks, drawn normally or greyed,
// and streamed in a form file as one header plus an image strip and a mask strip.
#pragma once

#include "vcl/graphics.h"

namespace vcl {

// An image's position in an image list; -1 is "no image". A distinct Integer type, so that editors can be
// registered for it.
using TImageIndex = int;
const rtl::TTypeInfo* TypeInfo_TImageIndex();

JEX_ENUM(TDrawingStyle, dsFocus, dsSelected, dsNormal, dsTransparent)
JEX_ENUM(TImageType, itImage, itMask)

class TCustomImageList : public rtl::TComponent {
    JEX_CLASS(TCustomImageList, rtl::TComponent)
    explicit TCustomImageList(rtl::TComponent* AOwner);
    ~TCustomImageList() override;
    // Another image list: its size, settings and images.
    void Assign(TPersistent* Source) override;

    // Image size in pixels (default 16); changing either empties the list, as on the platform. Raises
    // EInvalidOperation "Invalid image size" outside 1..32768.
    int Width() const { return FWidth; }
    void SetWidth(int v);
    int Height() const { return FHeight; }
    void SetHeight(int v);
    void SetSize(int w, int h);
    int Count() const { return static_cast<int>(FImages.size()); }

    int AllocBy() const { return FAllocBy; }
    void SetAllocBy(int v) { FAllocBy = v < 1 ? 1 : v; }
    TColor BkColor() const { return FBkColor; }
    void SetBkColor(TColor v);
    TColor BlendColor() const { return FBlendColor; }
    void SetBlendColor(TColor v) { FBlendColor = v; }
    TDrawingStyle DrawingStyle() const { return FDrawingStyle; }
    void SetDrawingStyle(TDrawingStyle v);
    TImageType ImageType() const { return FImageType; }
    void SetImageType(TImageType v);
    // Without masks every pixel of an image is drawn.
    bool Masked() const { return FMasked; }
    void SetMasked(bool v);
    bool ShareImages() const { return FShareImages; }
    void SetShareImages(bool v) { FShareImages = v; }

    // Adds image, cut into Width-wide images when it is wider (a narrower or shorter image fills its top-left
    // corner, the rest transparent). White (light) mask pixels are transparent; a nil mask keeps every pixel.
    // Returns the index of the first image added. Raises EInvalidOperation for a nil or empty image.
    int Add(TBitmap* image, TBitmap* mask);
    // As Add, the pixels of maskColor being transparent (clDefault: the image's TransparentColor, clNone:
    // none).
    int AddMasked(TBitmap* image, TColor maskColor);
    void Insert(int index, TBitmap* image, TBitmap* mask);
    void InsertMasked(int index, TBitmap* image, TColor maskColor);
    void Replace(int index, TBitmap* image, TBitmap* mask);
    void ReplaceMasked(int index, TBitmap* image, TColor maskColor);
    // Index errors raise EInvalidOperation "Invalid ImageList Index".
    void Delete(int index);
    void Move(int curIndex, int newIndex);
    void Clear();
    // Resizes image to Width x Height and draws the image there (its transparent pixels leave what was in
    // the bitmap).
    void GetBitmap(int index, TBitmap* image);
    // The mask as a bitmap: white where transparent, black where opaque.
    void GetMask(int index, TBitmap* mask);
    // Draws image `index` with its top-left at (x, y); disabled images are drawn greyed (embossed in the
    // button highlight and shadow colours). An index outside the list draws nothing.
    void Draw(TCanvas* canvas, int x, int y, int index, bool enabled = true);

    // Changes made between BeginUpdate and EndUpdate notify once, at the end.
    void BeginUpdate();
    void EndUpdate();
    TNotifyEvent OnChange;

    // "Bitmap": the images in the binary layout below, written when the list has images.
    void DefineProperties(rtl::TFiler& Filer) override;
    // The layout: a 28-byte header ("IL", version $0101, count, capacity, growth, width, height, background
    // colour, flags, four overlay indexes), a BMP strip of the images four to a row (24-bit, or 32-bit with
    // premultiplied alpha when an image has an alpha channel), then a one-bit BMP strip of the masks when
    // the flags hold the mask bit. A strip's alpha channel, when used, decides over its mask. Reading raises
    // EReadError and keeps the list as it was.
    void ReadData(const std::vector<uint8_t>& data);
    void WriteData(std::vector<uint8_t>& data) const;

protected:
    virtual void Change();

private:
    struct TImage {
        std::vector<uint32_t> Pixels; // Width x Height, $00BBGGRR, premultiplied when Alpha is present
        std::vector<uint8_t> Mask;    // 1 where transparent
        std::vector<uint8_t> Alpha;   // per-pixel opacity of images read with an alpha channel, else empty
    };
    TImage Cut(const TBitmap* image, int column,
               const std::function<bool(int x, int y, uint32_t rgb)>& clear) const;
    std::vector<TImage> Split(TBitmap* image, const std::function<bool(int, int, uint32_t)>& clear) const;
    static std::function<bool(int, int, uint32_t)> MaskTest(TBitmap* image, TBitmap* mask);
    static std::function<bool(int, int, uint32_t)> ColorTest(TBitmap* image, TColor maskColor);
    void CheckIndex(int index) const;
    int FWidth = 16, FHeight = 16;
    int FAllocBy = 4;
    TColor FBkColor = clNone, FBlendColor = clNone;
    TDrawingStyle FDrawingStyle = dsNormal;
    TImageType FImageType = itImage;
    bool FMasked = true, FShareImages = false;
    std::vector<TImage> FImages;
    int FUpdateCount = 0;
    bool FChanged = false;
};

// The image list component with its published properties.
class TImageList : public TCustomImageList {
    JEX_CLASS(TImageList, TCustomImageList)
    explicit TImageList(rtl::TComponent* AOwner) : TCustomImageList(AOwner) {}
};

} // namespace vcl
