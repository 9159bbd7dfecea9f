// The palette registry and property categories: pages and order, duplicates, no-icon classes, streaming
// registration, categories by class, name pattern and type, and withdrawal by module.
#include <gtest/gtest.h>

#include "ide/categories.h"
#include "ide/palette.h"
#include "rtl/resources.h"
#include "testcomps.h"

using namespace ide;
using namespace idetest;
using rtl::TClass;

namespace {

TEST(Palette, PagesKeepTheirOrderAndFirstPlaces) {
    TFakeModule module;
    RegisterComponents("Test Toolbars && Menus", {TGadget::StaticClass(), TWidget::StaticClass()});
    RegisterComponents("Test Data", {TQuiet::StaticClass()});
    RegisterComponents("Test Toolbars && Menus", {TFancyGadget::StaticClass(), TGadget::StaticClass()});
    auto pages = PalettePages();
    auto a = std::find(pages.begin(), pages.end(), "Test Toolbars && Menus");
    auto b = std::find(pages.begin(), pages.end(), "Test Data");
    ASSERT_NE(a, pages.end());
    ASSERT_NE(b, pages.end());
    EXPECT_LT(a, b);
    EXPECT_EQ(
        PaletteClasses("Test Toolbars && Menus"),
        (std::vector<TClass>{TGadget::StaticClass(), TWidget::StaticClass(), TFancyGadget::StaticClass()}));
    EXPECT_EQ(PageDisplayCaption("Test Toolbars && Menus"), "Test Toolbars & Menus");
    EXPECT_EQ(PagesOfClass(TGadget::StaticClass()), std::vector<std::string>{"Test Toolbars && Menus"});
    EXPECT_EQ(FindDesignClass("tquiet"), TQuiet::StaticClass());
}

TEST(Palette, WithdrawingAModuleLeavesTheOthersInPlace) {
    TFakeModule first;
    RegisterComponents("Shared Page", {TGadget::StaticClass()});
    {
        TFakeModule second;
        RegisterComponents("Shared Page", {TWidget::StaticClass(), TGadget::StaticClass()});
        RegisterComponents("Second Only", {TQuiet::StaticClass()});
        EXPECT_EQ(PaletteClasses("Shared Page"),
                  (std::vector<TClass>{TGadget::StaticClass(), TWidget::StaticClass()}));
    }
    EXPECT_EQ(PaletteClasses("Shared Page"), std::vector<TClass>{TGadget::StaticClass()});
    auto pages = PalettePages();
    EXPECT_EQ(std::find(pages.begin(), pages.end(), "Second Only"), pages.end());
}

TEST(Palette, RegistersClassesForStreamingAndWithdrawsThat) {
    rtl::UnRegisterClass(TBox::StaticClass());
    {
        TFakeModule module;
        RegisterComponents("Boxes", {TBox::StaticClass()});
        EXPECT_EQ(rtl::GetClass("TBox"), TBox::StaticClass());
    }
    EXPECT_EQ(rtl::GetClass("TBox"), nullptr);
    // A class registered before stays registered.
    rtl::RegisterClass(TBox::StaticClass());
    {
        TFakeModule module;
        RegisterComponents("Boxes", {TBox::StaticClass()});
    }
    EXPECT_EQ(rtl::GetClass("TBox"), TBox::StaticClass());
}

TEST(Palette, NoIconClasses) {
    {
        TFakeModule module;
        RegisterNoIcon({TQuiet::StaticClass()});
        EXPECT_TRUE(IsNoIconClass(TQuiet::StaticClass()));
        EXPECT_TRUE(PagesOfClass(TQuiet::StaticClass()).empty());
        EXPECT_EQ(FindDesignClass("TQuiet"), TQuiet::StaticClass());
    }
    EXPECT_FALSE(IsNoIconClass(TQuiet::StaticClass()));
}

TEST(Palette, RejectsBadInput) {
    TFakeModule module;
    EXPECT_THROW(RegisterComponents("", {TGadget::StaticClass()}), rtl::EComponentError);
    EXPECT_THROW(RegisterComponents("Page", {TGadget::StaticClass(), nullptr}), rtl::EComponentError);
    EXPECT_TRUE(PaletteClasses("Page").empty()) << "nothing of a rejected call stays";
}

TEST(Palette, GlyphsComeFromModuleResources) {
    EXPECT_EQ(PaletteGlyph(TGadget::StaticClass()), nullptr);
    vcl::TBitmap bmp;
    bmp.SetSize(24, 24);
    std::vector<uint8_t> bytes;
    bmp.SaveToBytes(bytes);
    rtl::TResourceModule glyphs("testglyphs");
    ASSERT_TRUE(glyphs.AddBitmap("TGADGET", bytes.data(), bytes.size()));
    rtl::RegisterModule(&glyphs);
    const std::vector<uint8_t>* found = PaletteGlyph(TGadget::StaticClass());
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(*found, bytes);
    rtl::UnregisterModule(&glyphs);
    EXPECT_EQ(PaletteGlyph(TGadget::StaticClass()), nullptr);
}

// ---- Categories
// ------------------------------------------------------------------------------------------------
class TTestCategory : public TPropertyCategory {
    JEX_CLASS(TTestCategory, TPropertyCategory)
};
JEX_IMPLEMENT_CLASS(TTestCategory, TPropertyCategory, "IdeTest") {}

const rtl::TPropInfo* Prop(TClass c, const char* name) {
    return c->FindProperty(name);
}

bool In(const std::vector<std::string>& v, const std::string& s) {
    return std::find(v.begin(), v.end(), s) != v.end();
}

TEST(Categories, ByClassNameAndDescendants) {
    TFakeModule module;
    RegisterPropertiesInCategory("Jexish", TGadget::StaticClass(), {"Shade", "Shades"});
    EXPECT_TRUE(
        In(GetPropertyCategories(TGadget::StaticClass(), Prop(TGadget::StaticClass(), "Shade")), "Jexish"));
    EXPECT_TRUE(IsPropertyInCategory("jexish", TFancyGadget::StaticClass(),
                                     Prop(TFancyGadget::StaticClass(), "Shades")));
    EXPECT_FALSE(
        IsPropertyInCategory("Jexish", TWidget::StaticClass(), Prop(TWidget::StaticClass(), "Checked")));
    EXPECT_FALSE(
        IsPropertyInCategory("Jexish", TGadget::StaticClass(), Prop(TGadget::StaticClass(), "Ratio")));
    EXPECT_TRUE(In(RegisteredCategories(), "Jexish"));
}

TEST(Categories, EmptyListRegistersNothing) {
    TFakeModule module;
    int before = CategoryRegistrationCount();
    EXPECT_NO_THROW(
        RegisterPropertiesInCategory("Jexish", TGadget::StaticClass(), std::vector<std::string>{}));
    EXPECT_EQ(CategoryRegistrationCount(), before);
}

TEST(Categories, PatternsTypesAndCategoryClasses) {
    TFakeModule module;
    RegisterPropertiesInCategory("Events", std::vector<std::string>{"On*"});
    RegisterPropertiesInCategory("Imaging", TypeInfo_TImageIndex());
    RegisterPropertiesInCategory(TTestCategory::StaticClass(), TGadget::StaticClass(), {"Ratio"});
    EXPECT_EQ(CategoryNameOf(TTestCategory::StaticClass()), "Test");
    TClass g = TGadget::StaticClass();
    EXPECT_TRUE(IsPropertyInCategory("Events", g, Prop(g, "OnChange")));
    EXPECT_FALSE(IsPropertyInCategory("Events", g, Prop(g, "Color")));
    EXPECT_TRUE(IsPropertyInCategory("Imaging", g, Prop(g, "ImageIndex")));
    EXPECT_FALSE(IsPropertyInCategory("Imaging", g, Prop(g, "Width"))) << "an alias is its own type";
    EXPECT_TRUE(IsPropertyInCategory("Test", g, Prop(g, "Ratio")));
    EXPECT_THROW(CategoryNameOf(TGadget::StaticClass()), rtl::EPropertyError);
}

TEST(Categories, StandardCategoriesAndMiscellaneous) {
    TClass g = TGadget::StaticClass();
    auto color = GetPropertyCategories(g, Prop(g, "Color"));
    EXPECT_TRUE(In(color, "Visual"));
    EXPECT_TRUE(In(GetPropertyCategories(g, Prop(g, "Buddy")), "Linkage")) << "component references";
    EXPECT_EQ(GetPropertyCategories(g, Prop(g, "Ratio")), std::vector<std::string>{"Miscellaneous"});
    {
        TFakeModule module;
        RegisterPropertiesInCategory("Jexish", g, {"Ratio"});
        EXPECT_EQ(GetPropertyCategories(g, Prop(g, "Ratio")), std::vector<std::string>{"Jexish"});
    }
    EXPECT_EQ(GetPropertyCategories(g, Prop(g, "Ratio")), std::vector<std::string>{"Miscellaneous"});
    EXPECT_THROW(UnregisterModule(PlatformModule()), rtl::EInvalidOperation);
}

} // namespace
