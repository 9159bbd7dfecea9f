// The test design package: requires the test run-time package and registers a palette page, a property
// editor, a component editor, a category and a Help-menu expert.
#include "ide/categories.h"
#include "ide/compedit.h"
#include "ide/experts.h"
#include "ide/package.h"
#include "ide/palette.h"
#include "ide/propedit.h"
#include "testlamp.h"

JEX_MODULE("dcljextest")

namespace lampdsgn {

using namespace ide;
using lamps::TTestLamp;

// Brightness offers three steps.
class TBrightnessProperty : public TIntegerProperty {
    JEX_CLASS(TBrightnessProperty, TIntegerProperty)
    TPropertyAttributes GetAttributes() override { return {paMultiSelect, paValueList, paRevertable}; }
    void GetValues(const TGetStrProc& proc) override {
        proc("0");
        proc("50");
        proc("100");
    }
};
JEX_IMPLEMENT_CLASS(TBrightnessProperty, TIntegerProperty, "LampEdit") {}

class TLampEditor : public TComponentEditor {
    JEX_CLASS(TLampEditor, TComponentEditor)
    int GetVerbCount() override { return 2; }
    std::string GetVerb(int index) override { return index == 0 ? "&Switch On" : "Switch &Off"; }
    void ExecuteVerb(int index) override {
        static_cast<TTestLamp*>(Component())->SetBrightness(index == 0 ? 100 : 0);
        Designer()->Modified();
    }
};
JEX_IMPLEMENT_CLASS(TLampEditor, TComponentEditor, "LampEdit") {}

// Puts "Browse Lamps..." under the Help menu's About item.
class TLampExpert : public TIExpert {
public:
    TLampExpert() {
        TIntfRef<TIMainMenuIntf> menu(ToolServices->GetMainMenu());
        if (!menu) return;
        TIntfRef<TIMenuItemIntf> help(menu->FindMenuItem("HelpMenu"));
        TIntfRef<TIMenuItemIntf> about(menu->FindMenuItem("HelpAboutItem"));
        if (!help || !about) return;
        FMenuItem = help->InsertItem(about->GetIndex() + 1, GetMenuText(), "lampBrowseMenuItem", "", 0, 0, 0,
                                     {mfEnabled, mfVisible}, [this](TIMenuItemIntf*) { Execute(); });
    }
    std::string GetName() override { return "Lamp Browser"; }
    std::string GetAuthor() override { return {}; }
    std::string GetComment() override { return {}; }
    std::string GetPage() override { return {}; }
    intptr_t GetGlyph() override { return 0; }
    TExpertStyle GetStyle() override { return esAddIn; }
    TExpertState GetState() override { return {esEnabled}; }
    std::string GetIDString() override { return "JexTest.LampBrowser"; }
    std::string GetMenuText() override { return "Browse Lamps..."; }
    void Execute() override { jextestrt_NoteExpertRun(); }

protected:
    ~TLampExpert() override {
        if (FMenuItem) FMenuItem->Release();
    }

private:
    TIMenuItemIntf* FMenuItem = nullptr;
};

namespace {
int EditStarts = 0;
TUnitGuard RegGuard, EditGuard;
void RegStart() {
    RegGuard.Start();
}
void RegStop() {
    RegGuard.Stop();
}
void EditStart() {
    if (EditGuard.Start()) ++EditStarts;
}
void EditStop() {
    EditGuard.Stop();
}

constexpr TPackageUnitEntry Units[] = {
    {BuiltinUnitStart<"jexbuiltin", "Controls">, BuiltinUnitStop<"jexbuiltin", "Controls">},
    {RegStart, RegStop},
    {EditStart, EditStop},
    {EditStart, EditStop}, // a unit reached twice through the table starts once
};
constexpr TPackageInfoTable Table{4, Units};

TPackageInfo Info() {
    TPackageInfo info;
    info.Flags = pfPackageModule | pfProducerNative | pfNeverBuild | pfDesignOnly;
    info.Requires = {{"jextestrt.bpl"}, {"jexbuiltin.bpl"}};
    info.Contains = {{"dcljextest", ufMainUnit | ufPackageUnit}, {"lampreg"}, {"lampedit"}};
    return info;
}
TPackageOptions Options() {
    TPackageOptions o;
    o.DesignOnly = true;
    o.Defines = "LAMPTEST";
    o.Description = "Test lamps (design)";
    return o;
}
} // namespace

} // namespace lampdsgn

JEX_PACKAGE_ENTRY_POINTS(lampdsgn::Table)
JEX_PACKAGE_RESOURCES(lampdsgn::Info(), "Test lamps (design)", lampdsgn::Options());

extern "C" int dcljextest_EditStarts() {
    return lampdsgn::EditStarts;
}

JEX_PACKAGE_REGISTER(lampreg) {
    using namespace ide;
    using lamps::TTestLamp;
    RegisterComponents("Test Lamps", {TTestLamp::StaticClass()});
    RegisterPropertyEditor(rtl::TypeInfo_Integer(), TTestLamp::StaticClass(), "Brightness",
                           lampdsgn::TBrightnessProperty::StaticClass());
    RegisterComponentEditor(TTestLamp::StaticClass(), lampdsgn::TLampEditor::StaticClass());
    RegisterPropertiesInCategory("Lamp", TTestLamp::StaticClass(), {"Brightness", "LampColor"});
    RegisterLibraryExpert(new lampdsgn::TLampExpert());
}
