// Tests of colours, fonts, BMP reading and writing, pixel formats, transparency, canvas drawing, text and
// pictures, with real files in a temporary folder and binary blocks taken from real form files.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "vcl/graphics.h"

#include "../src/graphics_internal.h"
#include "rtl/streaming.h"

using namespace vcl;
namespace fs = std::filesystem;

namespace {

// Collects what DefineProperties declares, so a test can run the reader and writer procs.
class TCaptureFiler : public rtl::TFiler {
public:
    struct TBinary {
        std::string Name;
        TStreamReadProc Read;
        TStreamWriteProc Write;
        bool HasData;
    };
    std::vector<TBinary> Binary;
    void DefineProperty(const std::string&, TReaderProc, TWriterProc, bool) override {}
    void DefineBinaryProperty(const std::string& Name, TStreamReadProc R, TStreamWriteProc W,
                              bool HasData) override {
        Binary.push_back({Name, std::move(R), std::move(W), HasData});
    }
};

std::vector<uint8_t> WriteData(TPersistent& obj, bool* hasData = nullptr) {
    TCaptureFiler filer;
    obj.DefineProperties(filer);
    EXPECT_EQ(filer.Binary.size(), 1u);
    std::vector<uint8_t> data;
    if (filer.Binary.empty()) return data;
    EXPECT_EQ(filer.Binary[0].Name, "Data");
    if (hasData) *hasData = filer.Binary[0].HasData;
    if (filer.Binary[0].HasData) filer.Binary[0].Write(data);
    return data;
}

void ReadData(TPersistent& obj, const std::vector<uint8_t>& data) {
    TCaptureFiler filer;
    obj.DefineProperties(filer);
    ASSERT_EQ(filer.Binary.size(), 1u);
    filer.Binary[0].Read(data);
}

fs::path DataDir() {
    return fs::path(__FILE__).parent_path() / "data";
}

// The bytes of a hex block as a form file writes it.
std::vector<uint8_t> HexFile(const std::string& name) {
    std::ifstream in(DataDir() / name);
    EXPECT_TRUE(in.good()) << name;
    std::string hex, line;
    while (std::getline(in, line))
        for (char c : line)
            if (std::isxdigit(static_cast<unsigned char>(c))) hex += c;
    std::vector<uint8_t> bytes;
    for (size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes.push_back(std::stoi(hex.substr(i, 2), nullptr, 16));
    return bytes;
}

class TempDir {
public:
    TempDir() {
        char tmpl[] = "/tmp/jexgraphicsXXXXXX";
        FPath = mkdtemp(tmpl);
    }
    ~TempDir() { fs::remove_all(FPath); }
    std::string File(const std::string& name) const { return (FPath / name).string(); }

private:
    fs::path FPath;
};

std::vector<uint8_t> FileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::vector<uint8_t>((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// A bitmap whose every pixel differs from its neighbours.
void FillPattern(TBitmap& b, int w, int h) {
    b.SetPixelFormat(pf24bit);
    b.SetSize(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            b.SetPixelRGB(x, y, RGB(x * 37 % 256, y * 53 % 256, (x * y * 11 + 7) % 256));
}

bool SamePixels(const TBitmap& a, const TBitmap& b) {
    if (a.Width() != b.Width() || a.Height() != b.Height()) return false;
    for (int y = 0; y < a.Height(); ++y)
        for (int x = 0; x < a.Width(); ++x)
            if (a.PixelRGB(x, y) != b.PixelRGB(x, y)) return false;
    return true;
}

int CountColour(const TBitmap& b, uint32_t rgb, const TRect& r) {
    int n = 0;
    for (int y = r.Top; y < r.Bottom; ++y)
        for (int x = r.Left; x < r.Right; ++x)
            n += b.PixelRGB(x, y) == rgb;
    return n;
}

} // namespace

namespace {

// A component with graphics properties, streamed through the real form reader and writer.
class TPaintHolder : public rtl::TComponent {
    JEX_CLASS(TPaintHolder, rtl::TComponent)
    explicit TPaintHolder(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}
    TColor Color() const { return FColor; }
    void SetColor(TColor c) { FColor = c; }
    TFont* Font() const { return FFont.get(); }
    TBitmap* Glyph() const { return FGlyph.get(); }
    void SetGlyph(TBitmap* b) { FGlyph->Assign(b); }
    TPicture* Picture() const { return FPicture.get(); }
    void SetPicture(TPicture* p) { FPicture->Assign(p); }

private:
    TColor FColor = clBtnFace;
    std::unique_ptr<TFont> FFont = std::make_unique<TFont>();
    std::unique_ptr<TBitmap> FGlyph = std::make_unique<TBitmap>();
    std::unique_ptr<TPicture> FPicture = std::make_unique<TPicture>();
};

JEX_IMPLEMENT_CLASS(TPaintHolder, rtl::TComponent, "GraphicsTest") {
    d.Property("Color", &TPaintHolder::Color, &TPaintHolder::SetColor, TypeInfo_TColor()).Default(clBtnFace);
    d.ReadOnly("Font", &TPaintHolder::Font);
    d.Property("Glyph", &TPaintHolder::Glyph, &TPaintHolder::SetGlyph);
    d.Property("Picture", &TPaintHolder::Picture, &TPaintHolder::SetPicture);
}

} // namespace

// ---- Colours ---------------------------------------------------------------------------------------------

TEST(GraphicsColors, NamesAndHexText) {
    EXPECT_EQ(ColorToString(clRed), "clRed");
    EXPECT_EQ(ColorToString(clBtnFace), "clBtnFace");
    EXPECT_EQ(ColorToString(clNone), "clNone");
    EXPECT_EQ(ColorToString(clDefault), "clDefault");
    EXPECT_EQ(ColorToString(clLtGray), "clSilver"); // an alias takes the table's name
    EXPECT_EQ(ColorToString(0x00FF8000), "$00FF8000");
    EXPECT_EQ(ColorToString(clSystemColor | 30), "$8000001E");
    EXPECT_EQ(ColorToString(-2), "$FFFFFFFE");
}

TEST(GraphicsColors, StringToColorAcceptsNamesAndIntegers) {
    EXPECT_EQ(StringToColor("clWindowText"), clWindowText);
    EXPECT_EQ(StringToColor("CLWINDOW"), clWindow);
    EXPECT_EQ(StringToColor("clmoneygreen"), clMoneyGreen);
    EXPECT_EQ(StringToColor("$00FF8000"), 0x00FF8000);
    EXPECT_EQ(StringToColor("$80000005"), clWindow);
    EXPECT_EQ(StringToColor("255"), 255);
    EXPECT_EQ(StringToColor("-16777201"), -16777201);
    EXPECT_EQ(StringToColor("0x10"), 16);
    EXPECT_EQ(StringToColor("  12"), 12);
    for (const char* bad : {"clNothing", "", "12 ", "$", "$1FFFFFFFF", "2147483648", "red"})
        EXPECT_THROW(StringToColor(bad), rtl::EConvertError) << bad;
    try {
        StringToColor("clNothing");
    } catch (const rtl::EConvertError& e) {
        EXPECT_EQ(e.Message(), "'clNothing' is not a valid integer value");
    }
}

TEST(GraphicsColors, IdentConversionsAndTableOrder) {
    TColor c = 0;
    EXPECT_TRUE(IdentToColor("clInfoBk", c));
    EXPECT_EQ(c, clInfoBk);
    EXPECT_FALSE(IdentToColor("$FF", c));
    std::string name;
    EXPECT_TRUE(ColorToIdent(cl3DDkShadow, name));
    EXPECT_EQ(name, "cl3DDkShadow");
    EXPECT_FALSE(ColorToIdent(0x123456, name));

    std::vector<std::string> names;
    GetColorValues([&](const std::string& s) { names.push_back(s); });
    ASSERT_EQ(names.size(), 47u);
    EXPECT_EQ(names.front(), "clBlack");
    EXPECT_EQ(names[15], "clWhite");
    EXPECT_EQ(names[19], "clMedGray");
    EXPECT_EQ(names[20], "clActiveBorder");
    EXPECT_EQ(names[29], "clDefault");
    EXPECT_EQ(names[40], "clNone");
    EXPECT_EQ(names.back(), "clWindowText");
    for (const auto& n : names) { // every name converts both ways
        ASSERT_TRUE(IdentToColor(n, c));
        EXPECT_EQ(StringToColor(ColorToString(c)), c);
    }
}

TEST(GraphicsColors, SystemColoursUseTheClassicScheme) {
    EXPECT_EQ(ColorToRGB(clBtnFace), 0xC0C0C0u);
    EXPECT_EQ(ColorToRGB(clWindow), 0xFFFFFFu);
    EXPECT_EQ(ColorToRGB(clWindowText), 0u);
    EXPECT_EQ(ColorToRGB(clHighlight), 0x800000u);
    EXPECT_EQ(ColorToRGB(clBtnShadow), 0x808080u);
    EXPECT_EQ(ColorToRGB(clInfoBk), 0xE1FFFFu);
    EXPECT_EQ(ColorToRGB(clRed), 0x0000FFu);
    EXPECT_EQ(RGB(1, 2, 3), 0x030201u);
}

// ---- Fonts, pens and brushes ----------------------------------------------------------------------------

TEST(GraphicsObjects, FontDefaultsAndSizeHeight) {
    TFont f;
    EXPECT_EQ(f.Name(), "MS Sans Serif");
    EXPECT_EQ(f.Height(), -11);
    EXPECT_EQ(f.Size(), 8);
    EXPECT_EQ(f.Color(), clWindowText);
    EXPECT_EQ(f.Charset(), 1);
    EXPECT_EQ(f.Pitch(), fpDefault);
    EXPECT_TRUE(f.Style().Empty());
    f.SetSize(10);
    EXPECT_EQ(f.Height(), -13);
    EXPECT_EQ(f.Size(), 10);
    f.SetHeight(-16);
    EXPECT_EQ(f.Size(), 12);
}

TEST(GraphicsObjects, FontPublishesPlatformProperties) {
    TFont f;
    std::vector<std::string> names;
    for (auto* p : TFont::StaticClass()->Properties())
        names.push_back(p->Name);
    EXPECT_EQ(names,
              (std::vector<std::string>{"Charset", "Color", "Height", "Name", "Pitch", "Size", "Style"}));
    EXPECT_EQ(rtl::GetPropInfo(&f, "Color")->PropType, TypeInfo_TColor());
    EXPECT_EQ(rtl::GetPropInfo(&f, "Name")->PropType, TypeInfo_TFontName());
    EXPECT_EQ(rtl::GetPropInfo(&f, "Charset")->PropType, TypeInfo_TFontCharset());
    EXPECT_EQ(TypeInfo_TColor()->Name, "TColor");
    EXPECT_NE(TypeInfo_TColor(), rtl::TypeInfo_Integer());
    EXPECT_EQ(TypeInfo_TFontName()->Kind, rtl::TypeInfo_String()->Kind);
    EXPECT_FALSE(rtl::GetPropInfo(&f, "Size")->IsStored(&f));
    EXPECT_TRUE(rtl::IsDefaultPropValue(&f, *rtl::GetPropInfo(&f, "Pitch")));
    rtl::SetOrdProp(&f, "Style", TFontStyles{fsBold, fsItalic}.Bits());
    EXPECT_TRUE(f.Style().Contains(fsItalic));
    rtl::SetStrProp(&f, "Name", "Courier New");
    EXPECT_EQ(f.Name(), "Courier New");
}

TEST(GraphicsObjects, ChangesNotifyOnlyWhenAValueChanges) {
    TFont f;
    int changes = 0;
    f.OnChange = [&](rtl::TObject* sender) {
        EXPECT_EQ(sender, &f);
        ++changes;
    };
    f.SetColor(clWindowText);
    f.SetName("MS Sans Serif");
    EXPECT_EQ(changes, 0);
    f.SetColor(clRed);
    f.SetStyle({fsBold});
    EXPECT_EQ(changes, 2);
    TFont g;
    g.Assign(&f);
    EXPECT_TRUE(g.Equals(f));
    f.Assign(&g); // equal: nothing to notify
    EXPECT_EQ(changes, 2);
    TPen pen;
    EXPECT_THROW(f.Assign(&pen), rtl::EConvertError);
}

TEST(GraphicsObjects, PenAndBrushDefaults) {
    TPen pen;
    TBrush brush;
    for (const char* n : {"Color", "Mode", "Style", "Width"})
        EXPECT_TRUE(rtl::IsDefaultPropValue(&pen, *rtl::GetPropInfo(&pen, n))) << n;
    for (const char* n : {"Color", "Style"})
        EXPECT_TRUE(rtl::IsDefaultPropValue(&brush, *rtl::GetPropInfo(&brush, n)));
    EXPECT_EQ(pen.Color(), clBlack);
    EXPECT_EQ(brush.Color(), clWhite);
    brush.SetStyle(bsClear);
    brush.SetColor(clRed); // choosing a colour makes the brush solid again
    EXPECT_EQ(brush.Style(), bsSolid);
    TPen other;
    other.SetWidth(3);
    other.SetStyle(psDot);
    pen.Assign(&other);
    EXPECT_EQ(pen.Width(), 3);
    EXPECT_EQ(pen.Style(), psDot);
}

// ---- BMP files -------------------------------------------------------------------------------------------

TEST(BitmapFiles, RoundTripAtEveryDepth) {
    TempDir dir;
    for (TPixelFormat pf : {pf1bit, pf4bit, pf8bit, pf15bit, pf16bit, pf24bit, pf32bit}) {
        TBitmap b;
        FillPattern(b, 13, 7); // an odd width exercises row padding
        b.SetPixelFormat(pf);
        std::string file = dir.File("depth" + std::to_string(pf) + ".bmp");
        b.SaveToFile(file);
        TBitmap c;
        c.LoadFromFile(file);
        EXPECT_EQ(c.PixelFormat(), pf);
        EXPECT_EQ(c.Palette(), b.Palette());
        EXPECT_TRUE(SamePixels(b, c)) << "format " << pf;
        // Saving what was read gives the same file.
        c.SaveToFile(file + "2");
        EXPECT_EQ(FileBytes(file), FileBytes(file + "2"));
    }
}

TEST(BitmapFiles, WritesTheStandardLayout) {
    TBitmap b;
    FillPattern(b, 3, 2);
    std::vector<uint8_t> bytes;
    b.SaveToBytes(bytes);
    ASSERT_EQ(bytes.size(), 14u + 40u + 2 * 12u); // rows of 9 bytes padded to 12
    EXPECT_EQ(bytes[0], 'B');
    EXPECT_EQ(bytes[1], 'M');
    EXPECT_EQ(bytes[2], bytes.size());
    EXPECT_EQ(bytes[10], 54);
    EXPECT_EQ(bytes[28], 24);
    // The first stored row is the bottom one, blue-green-red.
    uint32_t c = b.PixelRGB(0, 1);
    EXPECT_EQ(bytes[54], (c >> 16) & 0xFF);
    EXPECT_EQ(bytes[55], (c >> 8) & 0xFF);
    EXPECT_EQ(bytes[56], c & 0xFF);
}

#ifdef JEX_BMP_REFERENCE_DIR
TEST(BitmapFiles, ReadsFilesWrittenByAnotherEncoder) {
    int checked = 0;
    for (const auto& entry : fs::directory_iterator(JEX_BMP_REFERENCE_DIR)) {
        if (entry.path().extension() != ".bmp") continue;
        SCOPED_TRACE(entry.path().filename().string());
        std::ifstream expect(fs::path(entry.path()).replace_extension(".txt"));
        int w, h, bits;
        expect >> w >> h >> bits;
        TBitmap b;
        b.LoadFromFile(entry.path().string());
        ASSERT_EQ(b.Width(), w);
        ASSERT_EQ(b.Height(), h);
        TPixelFormat pf = bits == 1    ? pf1bit
                          : bits == 4  ? pf4bit
                          : bits == 8  ? pf8bit
                          : bits == 24 ? pf24bit
                          : bits == 32 ? pf32bit
                                       : b.PixelFormat();
        EXPECT_EQ(b.PixelFormat(), pf);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                std::string hex;
                expect >> hex;
                ASSERT_EQ(b.PixelRGB(x, y), std::stoul(hex, nullptr, 16)) << x << "," << y;
            }
        // Writing it out and reading it back keeps every pixel.
        std::vector<uint8_t> bytes;
        b.SaveToBytes(bytes);
        TBitmap c;
        c.LoadFromBytes(bytes);
        EXPECT_TRUE(SamePixels(b, c));
        ++checked;
    }
    EXPECT_GE(checked, 13);
}
#endif

TEST(BitmapFiles, ReadsCoreHeaderAndTopDownRowsFromBytes) {
    // A 2x2 one-bit image with the old 12-byte header and a 3-byte palette (red, blue).
    std::vector<uint8_t> core = {'B',  'M', 40,  0,   0, 0, 0, 0, 0, 0, 32, 0, 0, 0, // file header
                                 12,   0,   0,   0,   2, 0, 2, 0, 1, 0, 1,  0,       // core header
                                 0,    0,   255, 255, 0, 0,                          // palette
                                 0x40, 0,   0,   0,                                  // bottom row: 0 1
                                 0x80, 0,   0,   0};                                 // top row: 1 0
    TBitmap b;
    b.LoadFromBytes(core);
    EXPECT_EQ(b.PixelFormat(), pf1bit);
    EXPECT_EQ(b.PixelRGB(0, 0), uint32_t(clBlue));
    EXPECT_EQ(b.PixelRGB(1, 0), uint32_t(clRed));
    EXPECT_EQ(b.PixelRGB(0, 1), uint32_t(clRed));
    EXPECT_EQ(b.PixelRGB(1, 1), uint32_t(clBlue));

    // A 1x2 top-down 24-bit image: the first stored row is the top one.
    std::vector<uint8_t> top = {'B', 'M', 0, 0, 0, 0, 0, 0,    0,    0,    54,   0, 0, 0,  40,
                                0,   0,   0, 1, 0, 0, 0, 0xFE, 0xFF, 0xFF, 0xFF, 1, 0, 24, 0};
    top.resize(54, 0);
    for (uint8_t v : {0x00, 0x00, 0xFF, 0x00, 0x00, 0xFF, 0x00, 0x00})
        top.push_back(v);
    b.LoadFromBytes(top);
    EXPECT_EQ(b.PixelRGB(0, 0), uint32_t(clRed));
    EXPECT_EQ(b.PixelRGB(0, 1), uint32_t(clLime));
}

TEST(BitmapFiles, MalformedDataRaisesAndKeepsTheImage) {
    TBitmap b;
    FillPattern(b, 4, 4);
    b.SetPixelFormat(pf8bit);
    std::vector<uint8_t> good;
    b.SaveToBytes(good);
    auto expectInvalid = [&](std::vector<uint8_t> bytes, const std::string& fragment) {
        try {
            b.LoadFromBytes(bytes);
            ADD_FAILURE() << "accepted: " << fragment;
        } catch (const rtl::EInvalidGraphic& e) {
            EXPECT_NE(e.Message().find("Bitmap image is not valid"), std::string::npos);
            EXPECT_NE(e.Message().find(fragment), std::string::npos) << e.Message();
        }
        std::vector<uint8_t> now;
        b.SaveToBytes(now);
        EXPECT_EQ(now, good);
        EXPECT_EQ(b.PixelFormat(), pf8bit);
    };
    expectInvalid({}, "too short");
    expectInvalid({'P', 'K', 3, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, "does not start");
    auto truncated = good;
    truncated.resize(truncated.size() - 10);
    expectInvalid(truncated, "truncated");
    auto header = good;
    header[14] = 20; // header size
    expectInvalid(header, "header size");
    auto depth = good;
    depth[28] = 7;
    expectInvalid(depth, "7 bits per pixel");
    auto huge = good;
    huge[18] = huge[19] = huge[20] = 0xFF, huge[21] = 0x0F; // a width of 268 million pixels
    expectInvalid(huge, "too large");
    auto compression = good;
    compression[30] = 4; // JPEG inside BMP
    expectInvalid(compression, "compression method 4");
    auto rle = good;
    rle[30] = 1;
    rle.resize(rle.size() - 16); // a stream without its end mark
    std::fill(rle.end() - 4, rle.end(), 0x01);
    expectInvalid(rle, "end-of-bitmap");
}

// ---- Pixel formats and transparency
// ------------------------------------------------------------------------

TEST(PixelFormats, ReducingBuildsPalettes) {
    TBitmap b;
    b.SetSize(4, 1);
    b.SetPixelFormat(pf24bit);
    b.SetPixelRGB(0, 0, clRed);
    b.SetPixelRGB(1, 0, clNavy);
    b.SetPixelRGB(2, 0, clWhite);
    b.SetPixelRGB(3, 0, clTeal);
    b.SetPixelFormat(pf4bit); // all classic colours: the classic palette
    ASSERT_EQ(b.Palette().size(), 16u);
    EXPECT_EQ(b.Palette()[1], uint32_t(clMaroon));
    EXPECT_EQ(b.PixelRGB(1, 0), uint32_t(clNavy));

    TBitmap two;
    two.SetSize(2, 1);
    two.SetPixelRGB(0, 0, 0x336699);
    two.SetPixelRGB(1, 0, 0xCCDDEE);
    two.SetPixelFormat(pf1bit); // two colours keep their exact values, the darker first
    EXPECT_EQ(two.Palette(), (std::vector<uint32_t>{0x336699, 0xCCDDEE}));
    EXPECT_EQ(two.PixelRGB(1, 0), 0xCCDDEEu);

    TBitmap many;
    FillPattern(many, 40, 40); // more than 16 colours: nearest classic colour
    many.SetPixelFormat(pf4bit);
    EXPECT_EQ(many.Palette().size(), 16u);
    for (int x = 0; x < 40; ++x)
        EXPECT_NE(std::find(many.Palette().begin(), many.Palette().end(), many.PixelRGB(x, 5)),
                  many.Palette().end());
    many.SetPixelRGB(0, 0, 0x0000F0); // drawing snaps to the palette
    EXPECT_EQ(many.PixelRGB(0, 0), uint32_t(clRed));

    TBitmap deep;
    FillPattern(deep, 30, 30);
    deep.SetPixelFormat(pf8bit);
    EXPECT_EQ(deep.Palette().size(), 256u);
    deep.SetPixelFormat(pf24bit);
    EXPECT_TRUE(deep.Palette().empty());

    TBitmap hi;
    hi.SetSize(1, 1);
    hi.SetPixelRGB(0, 0, 0x0F1F2F);
    hi.SetPixelFormat(pf16bit);
    EXPECT_EQ(hi.PixelRGB(0, 0), hi.Quantize(0x0F1F2F));
    EXPECT_NE(hi.PixelRGB(0, 0), 0x0F1F2Fu);
}

TEST(GraphicsTransparency, ModesAndDrawing) {
    TBitmap sprite;
    sprite.SetSize(3, 3);
    sprite.Canvas()->Brush()->SetColor(clFuchsia);
    sprite.Canvas()->FillRect(Rect(0, 0, 3, 3));
    sprite.SetPixelRGB(1, 1, clBlue);
    EXPECT_EQ(sprite.TransparentMode(), tmAuto);
    EXPECT_EQ(sprite.TransparentColor(), clFuchsia); // the bottom-left pixel
    sprite.SetTransparentColor(clBlue);
    EXPECT_EQ(sprite.TransparentMode(), tmFixed);
    sprite.SetTransparentMode(tmAuto);
    EXPECT_EQ(sprite.TransparentColor(), clFuchsia);

    TBitmap back;
    back.SetSize(5, 5);
    back.Canvas()->Brush()->SetColor(clLime);
    back.Canvas()->FillRect(Rect(0, 0, 5, 5));
    back.Canvas()->Draw(1, 1, &sprite); // opaque: the magenta shows
    EXPECT_EQ(back.PixelRGB(1, 1), uint32_t(clFuchsia));
    back.Canvas()->FillRect(Rect(0, 0, 5, 5));
    sprite.SetTransparent(true);
    back.Canvas()->Draw(1, 1, &sprite);
    EXPECT_EQ(back.PixelRGB(1, 1), uint32_t(clLime));
    EXPECT_EQ(back.PixelRGB(2, 2), uint32_t(clBlue));
    EXPECT_EQ(CountColour(back, clLime, Rect(0, 0, 5, 5)), 24);
    back.Canvas()->StretchDraw(Rect(0, 0, 5, 5), &sprite); // scaled: the centre pixel grows
    EXPECT_EQ(back.PixelRGB(2, 2), uint32_t(clBlue));
    EXPECT_EQ(back.PixelRGB(0, 0), uint32_t(clLime));
}

// ---- Form-file data
// ------------------------------------------------------------------------------------------

TEST(GraphicsFormData, DecodesGlyphDataOfRealForms) {
    TBitmap glyph;
    ReadData(glyph, HexFile("oscilloscope4_glyph.hex"));
    EXPECT_EQ(glyph.Width(), 16);
    EXPECT_EQ(glyph.Height(), 16);
    EXPECT_EQ(glyph.PixelFormat(), pf24bit);
    EXPECT_EQ(glyph.TransparentColor(), clFuchsia); // the button-glyph convention
    int background = CountColour(glyph, clFuchsia, Rect(0, 0, 16, 16));
    EXPECT_GT(background, 50);
    EXPECT_LT(background, 256);

    TBitmap big;
    ReadData(big, HexFile("frm_states_glyph.hex"));
    EXPECT_EQ(big.Width(), 24);
    EXPECT_EQ(big.Height(), 24);
    EXPECT_EQ(big.PixelRGB(0, 0), uint32_t(clWhite));
    EXPECT_LT(CountColour(big, clWhite, Rect(0, 0, 24, 24)), 24 * 24);

    // Written back, the data reads as the same image.
    bool hasData = false;
    std::vector<uint8_t> data = WriteData(big, &hasData);
    EXPECT_TRUE(hasData);
    uint32_t n = data[0] | (data[1] << 8) | (data[2] << 16) | (uint32_t(data[3]) << 24);
    EXPECT_EQ(n + 4, data.size());
    TBitmap again;
    ReadData(again, data);
    EXPECT_TRUE(SamePixels(big, again));
    // The original's 24-bit rows come back byte for byte; only the header's resolution fields may differ.
    std::vector<uint8_t> original = HexFile("oscilloscope4_glyph.hex");
    EXPECT_EQ(WriteData(glyph), original);
}

TEST(GraphicsFormData, BadDataKeepsTheBitmapAndEmptyWritesNothing) {
    TBitmap b;
    bool hasData = true;
    WriteData(b, &hasData);
    EXPECT_FALSE(hasData);
    FillPattern(b, 2, 2);
    std::vector<uint8_t> data = WriteData(b);
    data[0] += 1; // the count now exceeds the data
    TBitmap c;
    c.Assign(&b);
    EXPECT_THROW(ReadData(c, data), rtl::EInvalidGraphic);
    EXPECT_TRUE(SamePixels(b, c));
    EXPECT_THROW(ReadData(c, {1, 0}), rtl::EInvalidGraphic);
}

TEST(GraphicsFormData, PictureDataNamesTheGraphicClass) {
    TPicture p;
    bool hasData = true;
    EXPECT_TRUE(WriteData(p, &hasData).empty());
    EXPECT_FALSE(hasData);
    FillPattern(*p.Bitmap(), 5, 3);
    std::vector<uint8_t> data = WriteData(p);
    ASSERT_GT(data.size(), 12u);
    EXPECT_EQ(data[0], 7);
    EXPECT_EQ(std::string(data.begin() + 1, data.begin() + 8), "TBitmap");
    EXPECT_EQ(data[12], 'B'); // then the bitmap's own data: byte count and file
    TPicture q;
    ReadData(q, data);
    ASSERT_NE(dynamic_cast<TBitmap*>(q.Graphic()), nullptr);
    EXPECT_TRUE(SamePixels(*p.Bitmap(), *q.Bitmap()));

    // A format this platform does not decode survives reading and writing unchanged.
    std::vector<uint8_t> gif = HexFile("squarescubes1_picture.hex");
    TPicture r;
    ReadData(r, gif);
    auto* raw = dynamic_cast<TRawGraphic*>(r.Graphic());
    ASSERT_NE(raw, nullptr);
    EXPECT_EQ(raw->FormatName(), "TGIFImage");
    EXPECT_EQ(r.Width(), 337);
    EXPECT_EQ(r.Height(), 336);
    EXPECT_EQ(WriteData(r), gif);
    EXPECT_THROW(ReadData(r, {40, 'T'}), rtl::EInvalidGraphic);
    EXPECT_EQ(r.Width(), 337);
}

TEST(GraphicsFormData, DecodesIconDataOfARealForm) {
    std::vector<uint8_t> bytes = HexFile("labirintus_icon.hex");
    TIcon icon;
    ReadData(icon, bytes); // a form's Icon.Data is the .ico file itself
    EXPECT_EQ(icon.Width(), 32);
    EXPECT_EQ(icon.Height(), 32);
    EXPECT_EQ(icon.ImageCount(), 1);
    for (int y = 0; y < 32; ++y) // this icon's mask is all opaque
        for (int x = 0; x < 32; ++x)
            ASSERT_EQ(icon.PixelAlpha(x, y), 255);
    // Setting the first byte of the AND mask (after header, 256-entry palette and 32x32 colour bytes) clears
    // the first eight pixels of the bottom row.
    auto masked = bytes;
    masked[22 + 40 + 256 * 4 + 32 * 32] = 0xFF;
    icon.LoadFromBytes(masked);
    EXPECT_EQ(icon.PixelAlpha(7, 31), 0);
    EXPECT_EQ(icon.PixelAlpha(8, 31), 255);
    EXPECT_EQ(WriteData(icon), masked);

    TBitmap b;
    b.SetSize(32, 32);
    b.Canvas()->Brush()->SetColor(clLime);
    b.Canvas()->FillRect(Rect(0, 0, 32, 32));
    b.Canvas()->Draw(0, 0, &icon);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x)
            ASSERT_EQ(b.PixelRGB(x, y), icon.PixelAlpha(x, y) ? icon.PixelRGB(x, y) : uint32_t(clLime))
                << x << "," << y;

    auto cut = bytes;
    cut.resize(cut.size() / 2);
    EXPECT_THROW(icon.LoadFromBytes(cut), rtl::EInvalidGraphic);
    EXPECT_THROW(icon.LoadFromBytes({0, 0, 2, 0, 1, 0}), rtl::EInvalidGraphic);
    EXPECT_EQ(WriteData(icon), masked);
    EXPECT_THROW(icon.SetWidth(16), rtl::EInvalidGraphicOperation);

    TempDir dir; // pictures know the extension
    icon.SaveToFile(dir.File("a.ico"));
    TPicture p;
    p.LoadFromFile(dir.File("a.ico"));
    EXPECT_NE(dynamic_cast<TIcon*>(p.Graphic()), nullptr);
    EXPECT_EQ(p.Width(), 32);
}

TEST(GraphicsFormData, StreamsThroughTheFormReaderAndWriter) {
    rtl::RegisterClass(TPaintHolder::StaticClass());
    std::string hex;
    for (uint8_t b : HexFile("oscilloscope4_glyph.hex"))
        hex += rtl::IntToHex(b, 2);
    std::string text = "object Holder1: TPaintHolder\r\n"
                       "  Color = clInfoBk\r\n"
                       "  Font.Charset = RUSSIAN_CHARSET\r\n"
                       "  Font.Color = clHighlight\r\n"
                       "  Font.Height = -13\r\n"
                       "  Font.Name = 'Tahoma'\r\n"
                       "  Font.Style = [fsBold]\r\n"
                       "  Glyph.Data = {\r\n    " +
                       hex +
                       "}\r\n"
                       "end\r\n";
    auto* holder = dynamic_cast<TPaintHolder*>(rtl::ReadComponentText(text, nullptr));
    ASSERT_NE(holder, nullptr);
    EXPECT_EQ(holder->Color(), clInfoBk);
    EXPECT_EQ(holder->Font()->Charset(), 204);
    EXPECT_EQ(holder->Font()->Color(), clHighlight);
    EXPECT_EQ(holder->Font()->Size(), 10);
    EXPECT_TRUE(holder->Font()->Style().Contains(fsBold));
    EXPECT_EQ(holder->Glyph()->Width(), 16);

    FillPattern(*holder->Picture()->Bitmap(), 4, 3);
    std::string written = rtl::WriteComponentText(holder);
    for (const char* line : {"Color = clInfoBk", "Font.Charset = RUSSIAN_CHARSET", "Font.Color = clHighlight",
                             "Font.Name = 'Tahoma'", "Glyph.Data = {", "Picture.Data = {"})
        EXPECT_NE(written.find(line), std::string::npos) << line << "\n" << written;
    EXPECT_EQ(written.find("Font.Size"), std::string::npos);
    auto* again = dynamic_cast<TPaintHolder*>(rtl::ReadComponentText(written, nullptr));
    ASSERT_NE(again, nullptr);
    EXPECT_TRUE(SamePixels(*again->Glyph(), *holder->Glyph()));
    EXPECT_TRUE(SamePixels(*again->Picture()->Bitmap(), *holder->Picture()->Bitmap()));
    again->Free();
    holder->Free();
    rtl::UnRegisterClass(TPaintHolder::StaticClass());
}

// ---- Canvas -----------------------------------------------------------------------------------------------

class GraphicsCanvas : public ::testing::Test {
protected:
    void SetUp() override {
        B.SetSize(40, 30);
        C = B.Canvas();
        C->Brush()->SetColor(clWhite);
        C->FillRect(Rect(0, 0, 40, 30));
    }
    TBitmap B;
    TCanvas* C = nullptr;
};

TEST_F(GraphicsCanvas, FillAndFrameRectangles) {
    C->Brush()->SetColor(clRed);
    C->FillRect(Rect(2, 3, 7, 9));
    EXPECT_EQ(CountColour(B, clRed, Rect(0, 0, 40, 30)), 5 * 6);
    EXPECT_EQ(B.PixelRGB(6, 8), uint32_t(clRed));
    EXPECT_EQ(B.PixelRGB(7, 8), uint32_t(clWhite)); // right and bottom edges are excluded
    C->Brush()->SetColor(clBlue);
    C->FrameRect(Rect(10, 10, 15, 14));
    EXPECT_EQ(CountColour(B, clBlue, Rect(0, 0, 40, 30)), 2 * 5 + 2 * 2);
    EXPECT_EQ(B.PixelRGB(12, 12), uint32_t(clWhite));
    C->FillRect(Rect(35, 25, 60, 60)); // clipped, no fault
    EXPECT_EQ(CountColour(B, clBlue, Rect(35, 25, 40, 30)), 25);
}

TEST_F(GraphicsCanvas, RectangleOutlinesWithThePenAndFillsWithTheBrush) {
    C->Pen()->SetColor(clBlack);
    C->Brush()->SetColor(clYellow);
    C->Rectangle(1, 1, 6, 5);
    EXPECT_EQ(CountColour(B, clBlack, Rect(0, 0, 40, 30)), 14);
    EXPECT_EQ(CountColour(B, clYellow, Rect(0, 0, 40, 30)), 3 * 2);
    EXPECT_EQ(B.PixelRGB(5, 4), uint32_t(clBlack));
    EXPECT_EQ(B.PixelRGB(6, 5), uint32_t(clWhite));
    C->Brush()->SetStyle(bsClear);
    C->Pen()->SetWidth(2);
    C->Rectangle(10, 10, 20, 20);
    EXPECT_EQ(CountColour(B, clBlack, Rect(10, 10, 20, 20)), 100 - 36);
    EXPECT_EQ(B.PixelRGB(15, 15), uint32_t(clWhite));
}

TEST_F(GraphicsCanvas, LinesLeaveOutTheirEndPoint) {
    C->Pen()->SetColor(clGreen);
    C->MoveTo(2, 2);
    C->LineTo(12, 7);
    EXPECT_EQ(B.PixelRGB(2, 2), uint32_t(clGreen));
    EXPECT_EQ(B.PixelRGB(12, 7), uint32_t(clWhite));
    EXPECT_EQ(C->PenPos(), Point(12, 7));
    EXPECT_EQ(CountColour(B, clGreen, Rect(0, 0, 40, 30)), 10);
    C->Pen()->SetStyle(psClear);
    C->LineTo(30, 7);
    EXPECT_EQ(CountColour(B, clGreen, Rect(0, 0, 40, 30)), 10);
    C->Pen()->SetStyle(psDot);
    C->MoveTo(0, 20);
    C->LineTo(40, 20);
    int dots = CountColour(B, clGreen, Rect(0, 20, 40, 21));
    EXPECT_EQ(dots, 21); // three on, three off
    C->Pen()->SetStyle(psSolid);
    C->Polyline({Point(0, 25), Point(5, 25), Point(5, 29)});
    EXPECT_EQ(B.PixelRGB(4, 25), uint32_t(clGreen));
    EXPECT_EQ(B.PixelRGB(5, 28), uint32_t(clGreen));
    EXPECT_EQ(B.PixelRGB(5, 29), uint32_t(clWhite));
}

TEST_F(GraphicsCanvas, PenModesCombineWithThePixels) {
    C->Pen()->SetColor(clWhite);
    C->Pen()->SetMode(pmXor);
    C->MoveTo(0, 0);
    C->LineTo(10, 0);
    EXPECT_EQ(B.PixelRGB(3, 0), 0u); // white xor white
    C->MoveTo(0, 0);
    C->LineTo(10, 0);
    EXPECT_EQ(B.PixelRGB(3, 0), uint32_t(clWhite));
    C->Pen()->SetMode(pmNot);
    C->MoveTo(0, 1);
    C->LineTo(1, 1);
    EXPECT_EQ(B.PixelRGB(0, 1), 0u);
}

TEST_F(GraphicsCanvas, EllipsesAndPolygons) {
    C->Pen()->SetColor(clBlack);
    C->Brush()->SetColor(clRed);
    C->Ellipse(0, 0, 21, 15);
    EXPECT_EQ(B.PixelRGB(10, 7), uint32_t(clRed));   // centre: the brush
    EXPECT_EQ(B.PixelRGB(0, 7), uint32_t(clBlack));  // left extreme: the pen
    EXPECT_EQ(B.PixelRGB(10, 0), uint32_t(clBlack)); // top extreme
    EXPECT_EQ(B.PixelRGB(0, 0), uint32_t(clWhite));  // corners stay outside
    EXPECT_EQ(B.PixelRGB(20, 14), uint32_t(clWhite));
    // The outline is closed: no red pixel touches a white one.
    for (int y = 1; y < 14; ++y)
        for (int x = 1; x < 20; ++x)
            if (B.PixelRGB(x, y) == uint32_t(clRed)) {
                for (auto [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}})
                    ASSERT_NE(B.PixelRGB(x + dx, y + dy), uint32_t(clWhite)) << x << "," << y;
            }

    C->FillRect(Rect(0, 0, 40, 30)); // brush is red: all red now
    C->Brush()->SetColor(clBlue);
    C->Pen()->SetStyle(psClear);
    C->Polygon({Point(0, 0), Point(10, 0), Point(0, 10)});
    EXPECT_EQ(B.PixelRGB(1, 1), uint32_t(clBlue));
    EXPECT_EQ(B.PixelRGB(8, 8), uint32_t(clRed));
    // Pixels whose centres lie inside: 9 + 8 + ... + 0.
    EXPECT_EQ(CountColour(B, clBlue, Rect(0, 0, 40, 30)), 45);
}

TEST_F(GraphicsCanvas, HatchedBrushFillsOnlyItsLines) {
    C->Brush()->SetColor(clBlack);
    C->Brush()->SetStyle(bsHorizontal);
    C->FillRect(Rect(0, 0, 16, 16));
    EXPECT_EQ(CountColour(B, clBlack, Rect(0, 0, 16, 16)), 2 * 16);
    C->Brush()->SetStyle(bsClear);
    C->FillRect(Rect(20, 0, 30, 10));
    EXPECT_EQ(CountColour(B, clBlack, Rect(20, 0, 30, 10)), 0);
}

TEST_F(GraphicsCanvas, PixelsCopyRectAndClipping) {
    C->SetPixel(3, 4, clNavy);
    EXPECT_EQ(C->Pixel(3, 4), clNavy);
    EXPECT_EQ(C->Pixel(-1, 0), -1);
    EXPECT_EQ(C->Pixel(40, 0), -1);
    C->SetPixel(100, 100, clNavy); // ignored
    C->SetPixel(0, 0, clBtnFace);  // system colours resolve
    EXPECT_EQ(C->Pixel(0, 0), 0xC0C0C0);

    TBitmap other;
    other.SetSize(4, 4);
    other.Canvas()->Brush()->SetColor(clPurple);
    other.Canvas()->FillRect(Rect(0, 0, 4, 4));
    C->CopyRect(Rect(10, 10, 18, 18), other.Canvas(), Rect(0, 0, 4, 4)); // scaled twice
    EXPECT_EQ(CountColour(B, clPurple, Rect(0, 0, 40, 30)), 64);
    C->CopyRect(Rect(20, 10, 28, 18), C, Rect(10, 10, 18, 18)); // from itself
    EXPECT_EQ(CountColour(B, clPurple, Rect(0, 0, 40, 30)), 128);
}

TEST_F(GraphicsCanvas, TextDrawsInsideItsBox) {
    ASSERT_FALSE(detail::FontFileFor(TFont()).empty()) << "fonts-dejavu-core is not installed";
    C->Font()->SetColor(clBlack);
    C->Font()->SetSize(10);
    int w = C->TextWidth("Hello"), h = C->TextHeight("Hello");
    EXPECT_GT(w, 20);
    EXPECT_LT(w, 60);
    EXPECT_GE(h, 12);
    EXPECT_LE(h, 20);
    EXPECT_GT(C->TextWidth("Hello, world"), w);
    C->Brush()->SetStyle(bsClear);
    C->TextOut(5, 6, "Hello");
    auto dark = [&](int x, int y) {
        uint32_t c = B.PixelRGB(x, y);
        return (c & 0xFF) + ((c >> 8) & 0xFF) + ((c >> 16) & 0xFF) < 3 * 128;
    };
    int inside = 0, outside = 0;
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 40; ++x) {
            bool in = x >= 5 && x < 5 + w && y >= 6 && y < 6 + h;
            (in ? inside : outside) += dark(x, y);
        }
    EXPECT_GT(inside, 20);
    EXPECT_EQ(outside, 0);
    EXPECT_EQ(C->PenPos(), Point(5 + w, 6));

    // A solid brush fills the text's box first.
    C->Brush()->SetColor(clYellow);
    C->TextOut(0, 0, "W");
    EXPECT_EQ(B.PixelRGB(0, 0), uint32_t(clYellow));
    EXPECT_GT(CountColour(B, clYellow, Rect(0, 0, C->TextWidth("W"), h)), 0);
    // TextRect clips to its rectangle.
    TBitmap t;
    t.SetSize(40, 30);
    t.Canvas()->Brush()->SetStyle(bsClear);
    t.Canvas()->Font()->SetColor(clBlack);
    t.Canvas()->TextRect(Rect(0, 0, 6, 30), 0, 0, "MMMM");
    int beyond = 0;
    for (int y = 0; y < 30; ++y)
        for (int x = 6; x < 40; ++x)
            beyond += t.PixelRGB(x, y) != uint32_t(clWhite);
    EXPECT_EQ(beyond, 0);
    EXPECT_LT(CountColour(t, clWhite, Rect(0, 0, 6, 30)), 180);
}

TEST(GraphicsText, FacesFollowPitchStyleAndHeight) {
    TBitmap b;
    TCanvas* c = b.Canvas();
    c->Font()->SetName("Courier New");
    EXPECT_EQ(c->TextWidth("iiii"), c->TextWidth("MMMM")); // fixed pitch
    c->Font()->SetName("Arial");
    EXPECT_LT(c->TextWidth("iiii"), c->TextWidth("MMMM"));
    int regular = c->TextWidth("Bold text");
    c->Font()->SetStyle({fsBold});
    EXPECT_GT(c->TextWidth("Bold text"), regular);
    c->Font()->SetHeight(-30);
    int big = c->TextHeight("X");
    c->Font()->SetHeight(30); // a positive height is the cell height
    EXPECT_EQ(c->TextHeight("X"), 30);
    EXPECT_GT(big, 30);
    EXPECT_EQ(c->TextWidth(""), 0);
    EXPECT_GT(c->TextWidth("\xC3\xA9t\xC3\xA9"), 0); // UTF-8
}

// ---- Pictures -------------------------------------------------------------------------------------------

TEST(GraphicsPictures, FilesByExtension) {
    TempDir dir;
    TBitmap b;
    FillPattern(b, 6, 5);
    b.SaveToFile(dir.File("a.BMP"));
    TPicture p;
    int changes = 0;
    p.OnChange = [&](rtl::TObject*) { ++changes; };
    p.LoadFromFile(dir.File("a.BMP"));
    EXPECT_GT(changes, 0);
    EXPECT_EQ(p.Width(), 6);
    EXPECT_EQ(p.Height(), 5);
    EXPECT_TRUE(SamePixels(*p.Bitmap(), b));
    try {
        p.LoadFromFile(dir.File("a.xyz"));
        ADD_FAILURE();
    } catch (const rtl::EInvalidGraphic& e) {
        EXPECT_EQ(e.Message(), "Unknown picture file extension (.xyz)");
    }
    EXPECT_THROW(p.LoadFromFile(dir.File("missing.bmp")), rtl::EFOpenError);
    std::ofstream(dir.File("bad.bmp")) << "not a bitmap";
    EXPECT_THROW(p.LoadFromFile(dir.File("bad.bmp")), rtl::EInvalidGraphic);
    EXPECT_EQ(p.Width(), 6); // unchanged
    p.SaveToFile(dir.File("b.bmp"));
    EXPECT_EQ(FileBytes(dir.File("a.BMP")), FileBytes(dir.File("b.bmp")));
    EXPECT_NE(GraphicFilter(nullptr).find("*.bmp"), std::string::npos);
    EXPECT_EQ(GraphicExtension(TBitmap::StaticClass()), "bmp");
}

TEST(GraphicsPictures, AssignCopiesAndChangesPropagate) {
    TPicture p, q;
    FillPattern(*p.Bitmap(), 3, 3);
    q.Assign(&p);
    ASSERT_NE(q.Graphic(), p.Graphic());
    EXPECT_TRUE(SamePixels(*q.Bitmap(), *p.Bitmap()));
    int changes = 0;
    q.OnChange = [&](rtl::TObject* s) {
        EXPECT_EQ(s, &q);
        ++changes;
    };
    q.Bitmap()->Canvas()->Brush()->SetColor(clRed);
    q.Bitmap()->Canvas()->FillRect(Rect(0, 0, 1, 1)); // drawing on the graphic notifies the picture
    EXPECT_EQ(changes, 1);
    EXPECT_NE(p.Bitmap()->PixelRGB(0, 0), uint32_t(clRed));
    q.Assign(nullptr);
    EXPECT_EQ(q.Graphic(), nullptr);
    EXPECT_EQ(q.Width(), 0);
    TFont font;
    EXPECT_THROW(q.Assign(&font), rtl::EConvertError);
}
