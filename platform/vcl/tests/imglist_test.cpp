// Tests of image lists: adding with masks, editing, drawing plain and greyed, and the "Bitmap" form data,
// including image lists taken from real form files.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "vcl/imglist.h"

using namespace vcl;

namespace {

class TCaptureFiler : public rtl::TFiler {
public:
    std::string Name;
    TStreamReadProc Read;
    TStreamWriteProc Write;
    bool HasData = false;
    void DefineProperty(const std::string&, TReaderProc, TWriterProc, bool) override {}
    void DefineBinaryProperty(const std::string& n, TStreamReadProc r, TStreamWriteProc w,
                              bool has) override {
        Name = n, Read = std::move(r), Write = std::move(w), HasData = has;
    }
};

std::vector<uint8_t> HexFile(const std::string& name) {
    std::ifstream in(std::filesystem::path(__FILE__).parent_path() / "data" / name);
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

// Three 16x16 images side by side, each a coloured square on a magenta background.
void MakeStrip(TBitmap& b) {
    b.SetSize(48, 16);
    TCanvas* c = b.Canvas();
    c->Brush()->SetColor(clFuchsia);
    c->FillRect(Rect(0, 0, 48, 16));
    const TColor colours[] = {clRed, clGreen, clBlue};
    for (int i = 0; i < 3; ++i) {
        c->Brush()->SetColor(colours[i]);
        c->FillRect(Rect(i * 16 + 4, 4, i * 16 + 12, 12));
    }
}

int Count(const TBitmap& b, uint32_t rgb) {
    int n = 0;
    for (int y = 0; y < b.Height(); ++y)
        for (int x = 0; x < b.Width(); ++x)
            n += b.PixelRGB(x, y) == rgb;
    return n;
}

} // namespace

TEST(ImageList, TypesAndPublishedDefaults) {
    EXPECT_EQ(TypeInfo_TImageIndex()->Name, "TImageIndex");
    EXPECT_NE(TypeInfo_TImageIndex(), rtl::TypeInfo_Integer());
    EXPECT_EQ(TypeInfo_TImageIndex()->Kind, rtl::tkInteger);
    auto* list = new TImageList(nullptr);
    EXPECT_EQ(list->Width(), 16);
    EXPECT_EQ(list->Height(), 16);
    for (const char* n : {"Width", "Height", "Masked", "BkColor", "DrawingStyle", "AllocBy"})
        EXPECT_TRUE(rtl::IsDefaultPropValue(list, *rtl::GetPropInfo(list, n))) << n;
    EXPECT_EQ(rtl::GetPropInfo(list, "BkColor")->PropType, TypeInfo_TColor());
    EXPECT_TRUE(TImageList::StaticClass()->CanCreateComponent());
    rtl::SetOrdProp(list, "Width", 24);
    EXPECT_EQ(list->Width(), 24);
    EXPECT_THROW(list->SetHeight(0), rtl::EInvalidOperation);
    list->Free();
}

TEST(ImageList, AddCutsWideImagesAndMasks) {
    TImageList list(nullptr);
    TBitmap strip;
    MakeStrip(strip);
    EXPECT_EQ(list.AddMasked(&strip, clFuchsia), 0);
    EXPECT_EQ(list.Count(), 3);
    TBitmap out;
    out.SetSize(1, 1);
    out.Canvas()->Brush()->SetColor(clWhite);
    list.GetBitmap(1, &out);
    EXPECT_EQ(out.Width(), 16);
    EXPECT_EQ(out.PixelRGB(8, 8), uint32_t(clGreen));
    TBitmap mask;
    list.GetMask(2, &mask);
    EXPECT_EQ(Count(mask, clBlack), 64); // the 8x8 square is opaque
    EXPECT_EQ(Count(mask, clWhite), 256 - 64);

    // An explicit mask bitmap: white is transparent.
    TBitmap m;
    m.SetSize(16, 16);
    m.Canvas()->Brush()->SetColor(clBlack);
    m.Canvas()->FillRect(Rect(0, 0, 8, 16));
    EXPECT_EQ(list.Add(&strip, &m), 3);
    EXPECT_EQ(list.Count(), 6);
    list.GetMask(3, &mask);
    EXPECT_EQ(Count(mask, clBlack), 128);
    EXPECT_THROW(list.Add(nullptr, nullptr), rtl::EInvalidOperation);
}

TEST(ImageList, EditingAndChangeNotification) {
    TImageList list(nullptr);
    int changes = 0;
    list.OnChange = [&](rtl::TObject* s) {
        EXPECT_EQ(s, &list);
        ++changes;
    };
    TBitmap strip;
    MakeStrip(strip);
    list.AddMasked(&strip, clFuchsia);
    EXPECT_EQ(changes, 1);
    list.Move(0, 2); // red goes last
    TBitmap out;
    list.GetBitmap(2, &out);
    EXPECT_EQ(out.PixelRGB(8, 8), uint32_t(clRed));
    list.Delete(0);
    list.GetBitmap(0, &out);
    EXPECT_EQ(out.PixelRGB(8, 8), uint32_t(clBlue));
    try {
        list.Delete(5);
        ADD_FAILURE();
    } catch (const rtl::EInvalidOperation& e) {
        EXPECT_EQ(e.Message(), "Invalid ImageList Index");
    }
    list.BeginUpdate();
    list.Clear();
    list.AddMasked(&strip, clNone);
    int before = changes;
    list.EndUpdate();
    EXPECT_EQ(changes, before + 1);
    EXPECT_EQ(list.Count(), 3);
    list.SetWidth(32); // a new size empties the list
    EXPECT_EQ(list.Count(), 0);
}

TEST(ImageList, DrawsTransparentAndGreyed) {
    TImageList list(nullptr);
    TBitmap strip;
    MakeStrip(strip);
    list.AddMasked(&strip, clFuchsia);
    TBitmap target;
    target.SetSize(40, 20);
    target.Canvas()->Brush()->SetColor(clYellow);
    target.Canvas()->FillRect(Rect(0, 0, 40, 20));
    list.Draw(target.Canvas(), 2, 2, 0);
    EXPECT_EQ(Count(target, clRed), 64);
    EXPECT_EQ(Count(target, clFuchsia), 0); // the background stays
    EXPECT_EQ(target.PixelRGB(6, 6), uint32_t(clRed));
    EXPECT_EQ(target.PixelRGB(5, 5), uint32_t(clYellow));

    list.Draw(target.Canvas(), 20, 2, 1, false);
    EXPECT_EQ(Count(target, clGreen), 0);
    // Shadow over the square, highlight along its lower and right edges one pixel out.
    EXPECT_EQ(target.PixelRGB(24, 6), ColorToRGB(clBtnShadow));
    EXPECT_EQ(target.PixelRGB(32, 14), ColorToRGB(clBtnHighlight));
    EXPECT_EQ(target.PixelRGB(23, 5), uint32_t(clYellow));
    list.Draw(target.Canvas(), 0, 0, 7);   // outside the list: nothing
    list.Draw(target.Canvas(), 35, 15, 2); // clipped at the edge
    EXPECT_EQ(target.PixelRGB(39, 19), uint32_t(clBlue));
}

TEST(ImageList, StreamsAndRoundTrips) {
    TImageList list(nullptr);
    TCaptureFiler empty;
    list.DefineProperties(empty);
    EXPECT_EQ(empty.Name, "Bitmap");
    EXPECT_FALSE(empty.HasData);

    TBitmap strip;
    MakeStrip(strip);
    list.AddMasked(&strip, clFuchsia);
    list.AddMasked(&strip, clNone);
    TCaptureFiler filer;
    list.DefineProperties(filer);
    ASSERT_TRUE(filer.HasData);
    std::vector<uint8_t> data;
    filer.Write(data);
    EXPECT_EQ(data[0], 'I');
    EXPECT_EQ(data[4], 6); // count

    TImageList copy(nullptr);
    copy.SetWidth(8);
    TCaptureFiler reader;
    copy.DefineProperties(reader);
    reader.Read(data);
    ASSERT_EQ(copy.Count(), 6);
    EXPECT_EQ(copy.Width(), 16);
    for (int i = 0; i < 6; ++i) {
        TBitmap a, b, ma, mb;
        list.GetBitmap(i, &a);
        copy.GetBitmap(i, &b);
        list.GetMask(i, &ma);
        copy.GetMask(i, &mb);
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 16; ++x) {
                ASSERT_EQ(a.PixelRGB(x, y), b.PixelRGB(x, y)) << i;
                ASSERT_EQ(ma.PixelRGB(x, y), mb.PixelRGB(x, y)) << i;
            }
    }
    std::vector<uint8_t> again;
    copy.WriteData(again);
    EXPECT_EQ(again, data);

    // Bad data raises and keeps the list.
    auto cut = data;
    cut.resize(100);
    EXPECT_THROW(copy.ReadData(cut), rtl::EReadError);
    auto version = data;
    version[2] = 0x00;
    version[3] = 0x06;
    EXPECT_THROW(copy.ReadData(version), rtl::EReadError);
    EXPECT_EQ(copy.Count(), 6);
}

TEST(ImageList, BlendsImagesWithAnAlphaChannel) {
    // This list's only image has a premultiplied alpha channel and an all-opaque mask: the alpha decides.
    TImageList list(nullptr);
    list.ReadData(HexFile("cadastro_country_imagelist.hex"));
    TBitmap b;
    b.SetSize(16, 16);
    b.Canvas()->FillRect(Rect(0, 0, 16, 16));
    list.Draw(b.Canvas(), 0, 0, 0);
    EXPECT_EQ(b.PixelRGB(0, 0), uint32_t(clWhite));
    EXPECT_EQ(b.PixelRGB(10, 10), RGB(0x15, 0x7E, 0xFB));                  // opaque
    EXPECT_EQ(b.PixelRGB(4, 10), RGB(0x0A + 135, 0x3B + 135, 0x76 + 135)); // alpha $78 over white
}

TEST(ImageList, ReadsImageListsOfRealForms) {
    struct Case {
        const char* File;
        int Count;
    };
    for (Case c : {Case{"cadastro_country_imagelist.hex", 1}, Case{"main_form_imagelist.hex", 5}}) {
        SCOPED_TRACE(c.File);
        TImageList list(nullptr);
        list.ReadData(HexFile(c.File));
        ASSERT_EQ(list.Count(), c.Count);
        EXPECT_EQ(list.Width(), 16);
        for (int i = 0; i < c.Count; ++i) {
            TBitmap mask;
            list.GetMask(i, &mask);
            int opaque = Count(mask, clBlack);
            EXPECT_GT(opaque, 0); // each image shows something and leaves some background
            EXPECT_LT(opaque, 256);
        }
        // Written in this platform's layout and read again, the images stay the same.
        std::vector<uint8_t> data;
        list.WriteData(data);
        TImageList copy(nullptr);
        copy.ReadData(data);
        ASSERT_EQ(copy.Count(), c.Count);
        TBitmap a, b;
        for (int i = 0; i < c.Count; ++i) {
            a.SetSize(16, 16);
            b.SetSize(16, 16);
            a.Canvas()->FillRect(Rect(0, 0, 16, 16));
            b.Canvas()->FillRect(Rect(0, 0, 16, 16));
            list.Draw(a.Canvas(), 0, 0, i);
            copy.Draw(b.Canvas(), 0, 0, i);
            for (int y = 0; y < 16; ++y)
                for (int x = 0; x < 16; ++x)
                    ASSERT_EQ(a.PixelRGB(x, y), b.PixelRGB(x, y));
        }
    }
}
