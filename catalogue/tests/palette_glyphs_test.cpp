// The palette glyphs drawn at build time: one per catalogued class, each a real 24x24 16-colour bitmap
// with a transparent corner and a picture of its own, found by the palette through the loaded modules.
#include <gtest/gtest.h>

#include <set>

#include "catalogue_testutil.h"
#include "dcljexc/jexdsncn.h"
#include "ide/palette.h"
#include "jex/jexdock.h"
#include "jex/jexlabels.h"
#include "rtl/sysutils.h"
#include "vcl/graphics.h"

using namespace dcljexc;

TEST(PaletteGlyphs, EveryCataloguedClassHasADistinctPictureOfItsOwn) {
    cattest::TPackageModuleScope package;
    std::set<std::vector<uint8_t>> seen;
    for (int i = 0; i < jexCatalogueCount; ++i) {
        const std::string name = jexCatalogueClassNameString(i).Text();
        SCOPED_TRACE(name);
        const std::vector<uint8_t>* bytes = rtl::FindBitmapResource(package.Module(), rtl::UpperCase(name));
        ASSERT_NE(bytes, nullptr);
        EXPECT_TRUE(seen.insert(*bytes).second) << "the same picture as another class";
        vcl::TBitmap bmp;
        bmp.LoadFromBytes(*bytes);
        EXPECT_EQ(bmp.Width(), 24);
        EXPECT_EQ(bmp.Height(), 24);
        EXPECT_EQ(bmp.PixelFormat(), vcl::pf4bit);
        EXPECT_LE(bmp.Palette().size(), 16u);
        const uint32_t transparent = bmp.PixelRGB(0, 23);
        EXPECT_EQ(vcl::ColorToRGB(bmp.TransparentColor()), transparent);
        int drawn = 0;
        std::set<uint32_t> colours;
        for (int y = 0; y < 24; ++y)
            for (int x = 0; x < 24; ++x) {
                const uint32_t c = bmp.PixelRGB(x, y);
                if (c != transparent) {
                    ++drawn;
                    colours.insert(c);
                }
            }
        EXPECT_GE(drawn, 40) << "a picture, not a speck";
        EXPECT_GE(colours.size(), 2u) << "drawn in more than one colour";
    }
}

TEST(PaletteGlyphs, ThePaletteFindsThemInTheLoadedPackage) {
    cattest::TPackageModuleScope package;
    const std::vector<uint8_t>* dock = ide::PaletteGlyph(jex::TjexDock::StaticClass());
    ASSERT_NE(dock, nullptr);
    EXPECT_EQ(dock, rtl::FindBitmapResource(package.Module(), "TJEXDOCK"));
    EXPECT_NE(ide::PaletteGlyph(jex::TjexMailToLabel::StaticClass()), nullptr);
    // Base classes that never stand on the palette have no glyph of their own.
    EXPECT_EQ(ide::PaletteGlyph(jex::TjexCustomToolWindow::StaticClass()), nullptr);
}
