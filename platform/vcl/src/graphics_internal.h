// Helpers shared by the graphics sources and the image list: whole-file I/O, the BMP codec, palettes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "vcl/graphics.h"

namespace vcl::detail {

std::vector<uint8_t> ReadGraphicFile(const std::string& fileName);
void WriteGraphicFile(const std::string& fileName, const std::vector<uint8_t>& bytes);

// A decoded device-independent bitmap, rows top-down.
struct TDibImage {
    int Width = 0, Height = 0;
    int BitCount = 0;
    TPixelFormat Format = pf24bit;
    std::vector<uint32_t> Pixels;  // $00BBGGRR
    std::vector<uint32_t> Palette; // 1..8-bit images
    std::vector<uint8_t> Alpha;    // 32-bit images whose alpha channel is used, else empty
    size_t End = 0;                // offset just past the pixel data in the buffer
};

// Decodes a BMP file starting at `offset` of buf (its "BM" header included). Raises EInvalidGraphic.
void DecodeBmpFile(const uint8_t* buf, size_t size, size_t offset, TDibImage& out);
// Decodes a bare DIB (info header, palette, pixels) at `offset`; heightOverride > 0 replaces the header's
// height (icons store twice the height). Raises EInvalidGraphic.
void DecodeDib(const uint8_t* buf, size_t size, size_t offset, int heightOverride, TDibImage& out);
// Encodes pixels as a BMP file of the given format (palette used for 1/4/8 bits, pixels mapped to the
// nearest entry; alpha, when given, fills the fourth byte of 32-bit pixels). Appends to out.
void EncodeBmpFile(int width, int height, const uint32_t* pixels, TPixelFormat format,
                   const std::vector<uint32_t>& palette, std::vector<uint8_t>& out,
                   const uint8_t* alpha = nullptr);

// Index of the palette entry nearest to rgb (squared RGB distance; the first of equals).
int NearestIndex(const std::vector<uint32_t>& palette, uint32_t rgb);
// The classic 16-colour palette (black, maroon ... white).
const std::vector<uint32_t>& Vga16Palette();

// Text through FreeType. MeasureText gives the advance width and (in *height) the line height; both are
// estimated from the pixel size when no DejaVu face is installed, and RenderText then draws nothing.
int MeasureText(const TFont& font, const std::string& utf8, int* height);
// Draws with the text's top-left at (x, y), blending Font.Color over the pixels inside clip.
void RenderText(TBitmap& target, const TRect& clip, int x, int y, const TFont& font, const std::string& utf8);
// The font file a font is drawn with, empty when none is installed.
std::string FontFileFor(const TFont& font);

[[noreturn]] void InvalidBitmap(const std::string& reason);

inline uint8_t R(uint32_t c) {
    return c & 0xFF;
}
inline uint8_t G(uint32_t c) {
    return (c >> 8) & 0xFF;
}
inline uint8_t B(uint32_t c) {
    return (c >> 16) & 0xFF;
}

} // namespace vcl::detail
