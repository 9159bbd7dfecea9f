// Packages that fail to load, one way each (chosen by a FAIL_MODE_ definition when it is built).
#include "ide/package.h"
#include "ide/palette.h"
#include "testlamp.h"

#if defined(FAIL_MODE_failstart)
JEX_MODULE("dclfailstart")
#elif defined(FAIL_MODE_failreg)
JEX_MODULE("dclfailreg")
#elif defined(FAIL_MODE_missingreq)
JEX_MODULE("dclmissingreq")
#elif defined(FAIL_MODE_missingsym)
JEX_MODULE("dclmissingsym")
#elif defined(FAIL_MODE_notapkg)
JEX_MODULE("jexnotapkg")
#elif defined(FAIL_MODE_noentry)
JEX_MODULE("jexnoentry")
#elif defined(FAIL_MODE_badinfo)
JEX_MODULE("jexbadinfo")
#endif

#if defined(FAIL_MODE_missingsym)
// Defined nowhere: loading the library fails on it.
extern "C" int jex_test_symbol_defined_nowhere();
extern "C" int failpkg_UseMissing() {
    return jex_test_symbol_defined_nowhere();
}
#endif

namespace {
int FirstStarts = 0, FirstStops = 0;
ide::TUnitGuard FirstGuard;
void FirstStart() {
    if (FirstGuard.Start()) ++FirstStarts;
}
void FirstStop() {
    if (FirstGuard.Stop()) ++FirstStops;
}
void FailingStart() {
#if defined(FAIL_MODE_failstart)
    throw rtl::Exception("the lamp unit cannot start");
#endif
}
void Nothing() {}

constexpr ide::TPackageUnitEntry Units[] = {{FirstStart, FirstStop}, {FailingStart, Nothing}};
constexpr ide::TPackageInfoTable Table{2, Units};

[[maybe_unused]] ide::TPackageInfo Info() {
    ide::TPackageInfo info;
    info.Flags = ide::pfPackageModule | ide::pfDesignOnly;
    info.Requires = {{"jextestrt.bpl"}};
#if defined(FAIL_MODE_missingreq)
    info.Requires.push_back({"jexnosuchpackage.bpl"});
#endif
    info.Contains = {{"failunit", ide::ufMainUnit}};
    return info;
}
} // namespace

#if defined(FAIL_MODE_badinfo)
static const bool BadInfoAdded [[maybe_unused]] =
    jexThisModule().AddRawData("PACKAGEINFO", "\x00\x00\x00\x40\xff", 5);
#elif !defined(FAIL_MODE_notapkg)
JEX_PACKAGE_RESOURCES(Info(), "Failing package", ide::TPackageOptions());
#endif

#if !defined(FAIL_MODE_noentry) && !defined(FAIL_MODE_notapkg)
JEX_PACKAGE_ENTRY_POINTS(Table)
#endif

extern "C" int failpkg_FirstStarts() {
    return FirstStarts;
}
extern "C" int failpkg_FirstStops() {
    return FirstStops;
}

JEX_PACKAGE_REGISTER(failunit) {
    ide::RegisterComponents("Failing Page", {lamps::TTestLamp::StaticClass()});
#if defined(FAIL_MODE_failreg)
    throw rtl::Exception("the lamp registration failed");
#endif
}
