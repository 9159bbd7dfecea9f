// The library's property category: jexRegisterPropertiesInCategory files properties under "Jex" as given,
// tagged with the module that registered them, and TjexCategory is the platform's category class.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/modules.h"
#include "rtl/classes.h"

namespace {

class TCategoryProbe : public rtl::TComponent {
    JEX_CLASS(TCategoryProbe, rtl::TComponent)
    using rtl::TComponent::TComponent;
    int Speed() const { return FSpeed; }
    void SetSpeed(int v) { FSpeed = v; }
    std::string Label() const { return FLabel; }
    void SetLabel(const std::string& v) { FLabel = v; }
    bool Sticky() const { return FSticky; }
    void SetSticky(bool v) { FSticky = v; }

private:
    int FSpeed = 0;
    std::string FLabel;
    bool FSticky = false;
};

class TCategoryProbeChild : public TCategoryProbe {
    JEX_CLASS(TCategoryProbeChild, TCategoryProbe)
    using TCategoryProbe::TCategoryProbe;
};

// Registrations made while this fixture's module is current are withdrawn after each test.
class JexCategory : public ::testing::Test {
protected:
    void TearDown() override { ide::UnregisterModule(&FModule); }
    bool InJex(rtl::TClass cls, const char* prop) {
        return ide::IsPropertyInCategory("Jex", cls, rtl::GetPropInfo(cls, prop));
    }
    int FModule = 0;
    ide::TModuleScope FScope{&FModule};
};

TEST_F(JexCategory, FilesTheNamedPropertiesOfTheClassAndItsDescendantsUnderJex) {
    const int before = ide::CategoryRegistrationCount();
    dcljexc::jexRegisterPropertiesInCategory(TCategoryProbe::StaticClass(), {"Speed", "Sticky"});
    EXPECT_EQ(ide::CategoryRegistrationCount() - before, 2);
    EXPECT_TRUE(InJex(TCategoryProbe::StaticClass(), "Speed"));
    EXPECT_TRUE(InJex(TCategoryProbe::StaticClass(), "Sticky"));
    EXPECT_FALSE(InJex(TCategoryProbe::StaticClass(), "Label"));
    EXPECT_TRUE(InJex(TCategoryProbeChild::StaticClass(), "Speed"));
    // Only this class and its descendants: another component's Speed-like property stays out.
    EXPECT_FALSE(InJex(rtl::TComponent::StaticClass(), "Tag"));
    auto categories = ide::RegisteredCategories();
    EXPECT_NE(std::find(categories.begin(), categories.end(), "Jex"), categories.end());
}

TEST_F(JexCategory, AnEmptyListRegistersNothingAndRaisesNothing) {
    const int before = ide::CategoryRegistrationCount();
    EXPECT_NO_THROW(dcljexc::jexRegisterPropertiesInCategory(TCategoryProbe::StaticClass(), {}));
    EXPECT_NO_THROW(
        dcljexc::jexRegisterPropertiesInCategory(TCategoryProbe::StaticClass(), std::vector<std::string>{}));
    EXPECT_EQ(ide::CategoryRegistrationCount(), before);
    EXPECT_FALSE(InJex(TCategoryProbe::StaticClass(), "Speed"));
}

TEST_F(JexCategory, RegistrationsBelongToTheModuleThatMadeThem) {
    dcljexc::jexRegisterPropertiesInCategory(TCategoryProbe::StaticClass(), {"Label"});
    ASSERT_TRUE(InJex(TCategoryProbe::StaticClass(), "Label"));
    ide::UnregisterModule(&FModule);
    EXPECT_FALSE(InJex(TCategoryProbe::StaticClass(), "Label"));
}

// The package's resource table, as a loader finds it in the mapped library.
rtl::TResourceModule* PackageResources() {
    void* handle = dlopen("libdclJEXC.so", RTLD_NOW | RTLD_NOLOAD);
    if (!handle) return nullptr;
    auto get = reinterpret_cast<rtl::TResourceModule* (*)()>(dlsym(handle, JexModuleResourcesSymbol));
    dlclose(handle);
    return get ? get() : nullptr;
}

TEST(JexCategoryNames, NameAndDescriptionAreResourceStringsOfThePackage) {
    rtl::TResourceModule* module = PackageResources();
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(module->Name(), "dclJEXC");
    EXPECT_EQ(rtl::FindResourceString(*module, "_sjexPropCategoryName"), "Jex");
    EXPECT_EQ(rtl::FindResourceString(*module, "_sjexPropCategoryDescription"), "Jex Properties");
}

TEST(JexCategoryNames, TjexCategoryIsAPlatformCategoryClass) {
    rtl::TClass cls = dcljexc::TjexCategory::StaticClass();
    EXPECT_TRUE(cls->InheritsFrom(ide::TPropertyCategory::StaticClass()));
    EXPECT_EQ(cls->ClassName(), "TjexCategory");
    EXPECT_TRUE(cls->OwnProperties().empty());
}

TEST(DcljexcModule, TheModuleEntryRecordedWhereThePackageIsMapped) {
    Dl_info info{};
    ASSERT_NE(dladdr(reinterpret_cast<const void*>(&dcljexc::HInstance), &info), 0);
    EXPECT_NE(dcljexc::HInstance(), nullptr);
    EXPECT_EQ(dcljexc::HInstance(), info.dli_fbase);
}

} // namespace

JEX_IMPLEMENT_CLASS(TCategoryProbe, rtl::TComponent, "jexpropc_test") {
    d.Property("Speed", &TCategoryProbe::Speed, &TCategoryProbe::SetSpeed);
    d.Property("Label", &TCategoryProbe::Label, &TCategoryProbe::SetLabel);
    d.Property("Sticky", &TCategoryProbe::Sticky, &TCategoryProbe::SetSticky);
}
JEX_IMPLEMENT_CLASS(TCategoryProbeChild, TCategoryProbe, "jexpropc_test") {}
