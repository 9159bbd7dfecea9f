// Text measuring and drawing with FreeType and the DejaVu faces. Each face file is loaded once and kept
// for the life of the library; a lock serialises use, since a FreeType face is not thread-safe.
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <mutex>
#include <unordered_map>

#include "graphics_internal.h"

namespace vcl::detail {

namespace {

class TFaceCache {
public:
    ~TFaceCache() {
        for (auto& [path, face] : FFaces)
            if (face) FT_Done_Face(face);
        if (FLibrary) FT_Done_FreeType(FLibrary);
    }
    // The face of a font file, loaded on first use; nil when the file cannot be loaded. Call under Lock.
    FT_Face Face(const std::string& path) {
        auto it = FFaces.find(path);
        if (it != FFaces.end()) return it->second;
        FT_Face face = nullptr;
        if (!FLibrary && !FLibraryFailed) FLibraryFailed = FT_Init_FreeType(&FLibrary) != 0;
        if (FLibrary && FT_New_Face(FLibrary, path.c_str(), 0, &face) != 0) face = nullptr;
        FFaces.emplace(path, face);
        return face;
    }
    // Resolved font files by variant (mono, bold, italic), empty when none is installed.
    std::string File(bool mono, bool bold, bool italic);
    std::mutex Lock;

private:
    FT_Library FLibrary = nullptr;
    bool FLibraryFailed = false;
    std::unordered_map<std::string, FT_Face> FFaces;
    std::unordered_map<int, std::string> FFiles;
};

TFaceCache Cache;

bool Readable(const std::string& path) {
    FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) return false;
    std::fclose(f);
    return true;
}

std::string TFaceCache::File(bool mono, bool bold, bool italic) {
    int key = (mono ? 4 : 0) | (bold ? 2 : 0) | (italic ? 1 : 0);
    auto it = FFiles.find(key);
    if (it != FFiles.end()) return it->second;
    std::vector<std::string> dirs;
    if (const char* env = std::getenv("JEX_FONT_DIR")) dirs.push_back(env);
    for (const char* d : {"/usr/share/fonts/truetype/dejavu", "/usr/share/fonts/dejavu",
                          "/usr/share/fonts/TTF", "/usr/local/share/fonts", "/usr/share/fonts/truetype"})
        dirs.push_back(d);
    std::string base = mono ? "DejaVuSansMono" : "DejaVuSans";
    // The exact variant first, then the nearest ones down to the regular face.
    std::vector<std::string> suffixes;
    if (bold && italic)
        suffixes = {"-BoldOblique", "-Bold", "-Oblique", ""};
    else if (bold)
        suffixes = {"-Bold", ""};
    else if (italic)
        suffixes = {"-Oblique", ""};
    else
        suffixes = {""};
    std::string found;
    for (const auto& suffix : suffixes) {
        for (const auto& dir : dirs) {
            std::string path = dir + "/" + base + suffix + ".ttf";
            if (Readable(path)) {
                found = path;
                break;
            }
        }
        if (!found.empty()) break;
    }
    FFiles.emplace(key, found);
    return found;
}

bool IsMonospaceName(const std::string& name) {
    std::string n = rtl::LowerCase(name);
    for (const char* key :
         {"courier", "mono", "fixedsys", "terminal", "consol", "lucida console", "typewriter"})
        if (n.find(key) != std::string::npos) return true;
    return false;
}

std::string FileFor(const TFont& font) {
    bool mono = font.Pitch() == fpFixed || (font.Pitch() == fpDefault && IsMonospaceName(font.Name()));
    return Cache.File(mono, font.Style().Contains(fsBold), font.Style().Contains(fsItalic));
}

// The em size in pixels: a negative height is the character height, a positive one the cell height
// (ascent plus descent), zero the default 8 points.
int EmPixels(const TFont& font, FT_Face face) {
    int h = font.Height();
    if (h < 0) return std::min(-h, 2000);
    if (h == 0) return std::max(1, static_cast<int>(std::lround(8.0 * font.PixelsPerInch / 72.0)));
    double cell = face ? double(face->ascender - face->descender) : 0;
    if (face) {
        if (auto* os2 = static_cast<TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
            os2 && os2->version != 0xFFFF)
            if (os2->usWinAscent + os2->usWinDescent > 0) cell = os2->usWinAscent + os2->usWinDescent;
    }
    if (!face || cell <= 0) return std::min(h, 2000);
    return std::clamp(static_cast<int>(std::lround(h * double(face->units_per_EM) / cell)), 1, 2000);
}

std::u32string Decode(const std::string& s) {
    std::u32string out;
    for (size_t i = 0; i < s.size();) {
        unsigned char c = s[i];
        uint32_t cp;
        int extra;
        if (c < 0x80)
            cp = c, extra = 0;
        else if ((c & 0xE0) == 0xC0)
            cp = c & 0x1F, extra = 1;
        else if ((c & 0xF0) == 0xE0)
            cp = c & 0x0F, extra = 2;
        else if ((c & 0xF8) == 0xF0)
            cp = c & 0x07, extra = 3;
        else {
            out.push_back(0xFFFD);
            ++i;
            continue;
        }
        bool ok = true;
        for (int k = 1; k <= extra; ++k) {
            if (i + k >= s.size() || (static_cast<unsigned char>(s[i + k]) & 0xC0) != 0x80) {
                ok = false;
                break;
            }
            cp = (cp << 6) | (static_cast<unsigned char>(s[i + k]) & 0x3F);
        }
        if (!ok) {
            out.push_back(0xFFFD);
            ++i;
            continue;
        }
        out.push_back(cp);
        i += extra + 1;
    }
    return out;
}

struct TLine {
    FT_Face Face = nullptr;
    int Ascent = 0, Height = 0, Em = 0;
};

// Prepares the face for font at its pixel size; Face is nil when no face is installed. Call under Lock.
TLine Prepare(const TFont& font) {
    TLine line;
    std::string file = FileFor(font);
    FT_Face face = file.empty() ? nullptr : Cache.Face(file);
    line.Em = EmPixels(font, face);
    if (face && FT_Set_Pixel_Sizes(face, 0, line.Em) == 0) {
        line.Face = face;
        // Ascent and descent from the design units, each rounded, so that a positive Font.Height (the cell
        // height) comes back as the text height.
        double ascent = face->ascender, descent = -face->descender;
        if (auto* os2 = static_cast<TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
            os2 && os2->version != 0xFFFF)
            if (os2->usWinAscent + os2->usWinDescent > 0)
                ascent = os2->usWinAscent, descent = os2->usWinDescent;
        line.Ascent = static_cast<int>(std::lround(ascent * line.Em / face->units_per_EM));
        line.Height = line.Ascent + static_cast<int>(std::lround(descent * line.Em / face->units_per_EM));
    } else {
        line.Ascent = (line.Em * 93 + 99) / 100;
        line.Height = (line.Em * 117 + 99) / 100;
    }
    return line;
}

} // namespace

std::string FontFileFor(const TFont& font) {
    std::lock_guard<std::mutex> lock(Cache.Lock);
    return FileFor(font);
}

int MeasureText(const TFont& font, const std::string& utf8, int* height) {
    std::lock_guard<std::mutex> lock(Cache.Lock);
    TLine line = Prepare(font);
    if (height) *height = line.Height;
    std::u32string text = Decode(utf8);
    if (!line.Face) return static_cast<int>(text.size()) * ((line.Em + 1) / 2);
    int width = 0;
    FT_UInt previous = 0;
    bool kerning = FT_HAS_KERNING(line.Face);
    for (char32_t cp : text) {
        FT_UInt glyph = FT_Get_Char_Index(line.Face, cp);
        if (kerning && previous && glyph) {
            FT_Vector delta;
            if (FT_Get_Kerning(line.Face, previous, glyph, FT_KERNING_DEFAULT, &delta) == 0)
                width += delta.x >> 6;
        }
        if (FT_Load_Glyph(line.Face, glyph, FT_LOAD_DEFAULT) == 0)
            width += (line.Face->glyph->advance.x + 32) >> 6;
        previous = glyph;
    }
    return width;
}

void RenderText(TBitmap& target, const TRect& clip, int x, int y, const TFont& font,
                const std::string& utf8) {
    std::lock_guard<std::mutex> lock(Cache.Lock);
    TLine line = Prepare(font);
    if (!line.Face || target.Empty()) return;
    TRect c = Rect(std::max(clip.Left, 0), std::max(clip.Top, 0), std::min(clip.Right, target.Width()),
                   std::min(clip.Bottom, target.Height()));
    if (c.Width() <= 0 || c.Height() <= 0) return;
    uint32_t colour = ColorToRGB(font.Color()) & 0xFFFFFF;
    auto blend = [&](int px, int py, unsigned a) {
        if (a == 0 || px < c.Left || px >= c.Right || py < c.Top || py >= c.Bottom) return;
        uint32_t& d = target.ScanLine(py)[px];
        if (a >= 255) {
            d = target.Quantize(colour);
            return;
        }
        auto mix = [a](unsigned s, unsigned t) { return (s * a + t * (255 - a) + 127) / 255; };
        d = target.Quantize(RGB(mix(R(colour), R(d)), mix(G(colour), G(d)), mix(B(colour), B(d))));
    };
    int baseline = y + line.Ascent;
    int pen = x;
    FT_UInt previous = 0;
    bool kerning = FT_HAS_KERNING(line.Face);
    for (char32_t cp : Decode(utf8)) {
        FT_UInt glyph = FT_Get_Char_Index(line.Face, cp);
        if (kerning && previous && glyph) {
            FT_Vector delta;
            if (FT_Get_Kerning(line.Face, previous, glyph, FT_KERNING_DEFAULT, &delta) == 0)
                pen += delta.x >> 6;
        }
        previous = glyph;
        if (FT_Load_Glyph(line.Face, glyph, FT_LOAD_DEFAULT) != 0) continue;
        FT_GlyphSlot slot = line.Face->glyph;
        if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) == 0) {
            const FT_Bitmap& bm = slot->bitmap;
            int left = pen + slot->bitmap_left, top = baseline - slot->bitmap_top;
            for (unsigned row = 0; row < bm.rows; ++row) {
                const unsigned char* src = bm.buffer + static_cast<ptrdiff_t>(row) * bm.pitch;
                for (unsigned col = 0; col < bm.width; ++col) {
                    unsigned a = bm.pixel_mode == FT_PIXEL_MODE_MONO
                                     ? ((src[col / 8] >> (7 - col % 8)) & 1) * 255
                                     : src[col];
                    blend(left + static_cast<int>(col), top + static_cast<int>(row), a);
                }
            }
        }
        pen += (slot->advance.x + 32) >> 6;
    }
    // Underline and strike-out lines span the advance width.
    auto rule = [&](int top, int thickness) {
        for (int yy = top; yy < top + thickness; ++yy)
            for (int xx = x; xx < pen; ++xx)
                blend(xx, yy, 255);
    };
    int thickness = std::max(1, static_cast<int>(std::lround(double(line.Face->underline_thickness) *
                                                             line.Em / line.Face->units_per_EM)));
    if (font.Style().Contains(fsUnderline)) {
        int offset = static_cast<int>(
            std::lround(-double(line.Face->underline_position) * line.Em / line.Face->units_per_EM));
        rule(baseline + std::max(1, offset) - thickness / 2, thickness);
    }
    if (font.Style().Contains(fsStrikeOut)) rule(baseline - std::max(1, line.Em * 3 / 10), thickness);
}

} // namespace vcl::detail
