// The test run-time package: one component class, streamable while the package is started.
#include "ide/package.h"
#include "testlamp.h"

JEX_MODULE("jextestrt")

namespace lamps {

JEX_IMPLEMENT_CLASS(TTestLamp, rtl::TComponent, "TestLamp") {
    d.Property("Brightness", &TTestLamp::Brightness, &TTestLamp::SetBrightness).Default(0);
    d.Property("LampColor", &TTestLamp::LampColor, &TTestLamp::SetLampColor, vcl::TypeInfo_TColor());
    d.Property("Caption", &TTestLamp::Caption, &TTestLamp::SetCaption);
    d.Event("OnSwitch", &TTestLamp::OnSwitch);
}

namespace {
int Starts = 0, Stops = 0, ExpertRuns = 0;
ide::TUnitGuard LampGuard;

void LampStart() {
    if (!LampGuard.Start()) return;
    ++Starts;
    rtl::RegisterClass(TTestLamp::StaticClass());
}

void LampStop() {
    if (!LampGuard.Stop()) return;
    ++Stops;
    rtl::UnRegisterClass(TTestLamp::StaticClass());
}

constexpr ide::TPackageUnitEntry Units[] = {
    {ide::BuiltinUnitStart<"jexbuiltin", "Controls">, ide::BuiltinUnitStop<"jexbuiltin", "Controls">},
    {LampStart, LampStop},
};
constexpr ide::TPackageInfoTable Table{2, Units};

ide::TPackageInfo Info() {
    ide::TPackageInfo info;
    info.Flags = ide::pfPackageModule | ide::pfProducerNative | ide::pfNeverBuild | ide::pfRunOnly;
    info.Requires = {{"jexbuiltin.bpl"}};
    info.Contains = {{"jextestrt", ide::ufMainUnit | ide::ufPackageUnit}, {"testlamp"}};
    return info;
}
ide::TPackageOptions Options() {
    ide::TPackageOptions o;
    o.RunOnly = true;
    o.Description = "Test lamps";
    return o;
}
} // namespace

} // namespace lamps

JEX_PACKAGE_ENTRY_POINTS(lamps::Table)
JEX_PACKAGE_RESOURCES(lamps::Info(), "Test lamps (run time)", lamps::Options());

extern "C" int jextestrt_UnitStarts() {
    return lamps::Starts;
}
extern "C" int jextestrt_UnitStops() {
    return lamps::Stops;
}
extern "C" void jextestrt_NoteExpertRun() {
    ++lamps::ExpertRuns;
}
extern "C" int jextestrt_ExpertRuns() {
    return lamps::ExpertRuns;
}
