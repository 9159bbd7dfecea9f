// Benchmarks of the design API: a package load with its registrations and unload, and the inspector
// rows for a large selection.
#include <benchmark/benchmark.h>

#include "ide/designer.h"
#include "ide/inspector.h"
#include "ide/packages.h"
#include "vcl/graphics.h"

namespace {

using namespace ide;

// A component with a typical mix of published properties.
class TBenchPart : public rtl::TComponent {
    JEX_CLASS(TBenchPart, rtl::TComponent)
    explicit TBenchPart(TComponent* owner) : TComponent(owner), FFont(new vcl::TFont()) {}
    ~TBenchPart() override { delete FFont; }
    int Left() const { return FLeft; }
    void SetLeft(int v) { FLeft = v; }
    int Top() const { return FTop; }
    void SetTop(int v) { FTop = v; }
    int Width() const { return FWidth; }
    void SetWidth(int v) { FWidth = v; }
    int Height() const { return FHeight; }
    void SetHeight(int v) { FHeight = v; }
    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& v) { FCaption = v; }
    std::string Hint() const { return FHint; }
    void SetHint(const std::string& v) { FHint = v; }
    bool Visible() const { return FVisible; }
    void SetVisible(bool v) { FVisible = v; }
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool v) { FEnabled = v; }
    vcl::TColor Color() const { return FColor; }
    void SetColor(vcl::TColor v) { FColor = v; }
    vcl::TFont* Font() const { return FFont; }
    void SetFont(vcl::TFont* v) { FFont->Assign(v); }
    double Ratio() const { return FRatio; }
    void SetRatio(double v) { FRatio = v; }
    TBenchPart* Buddy() const { return FBuddy; }
    void SetBuddy(TBenchPart* v) { FBuddy = v; }
    rtl::TNotifyEvent OnClick;

private:
    int FLeft = 0, FTop = 0, FWidth = 75, FHeight = 25;
    std::string FCaption, FHint;
    bool FVisible = true, FEnabled = true;
    vcl::TColor FColor = vcl::clBtnFace;
    vcl::TFont* FFont;
    double FRatio = 1;
    TBenchPart* FBuddy = nullptr;
};

JEX_IMPLEMENT_CLASS(TBenchPart, rtl::TComponent, "IdeBench") {
    d.Property("Left", &TBenchPart::Left, &TBenchPart::SetLeft);
    d.Property("Top", &TBenchPart::Top, &TBenchPart::SetTop);
    d.Property("Width", &TBenchPart::Width, &TBenchPart::SetWidth);
    d.Property("Height", &TBenchPart::Height, &TBenchPart::SetHeight);
    d.Property("Caption", &TBenchPart::Caption, &TBenchPart::SetCaption);
    d.Property("Hint", &TBenchPart::Hint, &TBenchPart::SetHint);
    d.Property("Visible", &TBenchPart::Visible, &TBenchPart::SetVisible).Default(true);
    d.Property("Enabled", &TBenchPart::Enabled, &TBenchPart::SetEnabled).Default(true);
    d.Property("Color", &TBenchPart::Color, &TBenchPart::SetColor, vcl::TypeInfo_TColor());
    d.Property("Font", &TBenchPart::Font, &TBenchPart::SetFont);
    d.Property("Ratio", &TBenchPart::Ratio, &TBenchPart::SetRatio);
    d.Property("Buddy", &TBenchPart::Buddy, &TBenchPart::SetBuddy);
    d.Event("OnClick", &TBenchPart::OnClick);
}

void BM_PackageLoadRegisterUnload(benchmark::State& state) {
    RegisterBuiltinPackage("jexbuiltin", {{"Controls", nullptr, nullptr}});
    for (auto _ : state) {
        TPackage* p = PackageManager().LoadPackage("dcljextest");
        benchmark::DoNotOptimize(p);
        PackageManager().UnloadPackage(p);
    }
    UnregisterBuiltinPackage("jexbuiltin");
}
BENCHMARK(BM_PackageLoadRegisterUnload)->Unit(benchmark::kMillisecond);

void BM_InspectorRowsForSelection(benchmark::State& state) {
    auto* form = new rtl::TComponent(nullptr);
    form->SetName("Form1");
    TFormDesigner designer(form, true);
    TDesignerSelectionList selection;
    for (int i = 0; i < state.range(0); ++i) {
        auto* part = new TBenchPart(form);
        part->SetName("Part" + std::to_string(i + 1));
        selection.Add(part);
    }
    TInspectorModel inspector(&designer);
    for (auto _ : state) {
        inspector.SetSelection(selection);
        benchmark::DoNotOptimize(inspector.RowCount());
    }
    state.counters["rows"] = inspector.RowCount();
}
BENCHMARK(BM_InspectorRowsForSelection)->Arg(1)->Arg(1000)->Unit(benchmark::kMillisecond);

void BM_InspectorGroupedRows(benchmark::State& state) {
    auto* form = new rtl::TComponent(nullptr);
    TFormDesigner designer(form, true);
    TDesignerSelectionList selection;
    for (int i = 0; i < 1000; ++i)
        selection.Add(new TBenchPart(form));
    TInspectorModel inspector(&designer);
    inspector.SetGroupByCategory(true);
    for (auto _ : state) {
        inspector.SetSelection(selection);
        benchmark::DoNotOptimize(inspector.RowCount());
    }
}
BENCHMARK(BM_InspectorGroupedRows)->Unit(benchmark::kMillisecond);

void BM_UniqueNameOnABusyForm(benchmark::State& state) {
    auto* form = new rtl::TComponent(nullptr);
    TFormDesigner designer(form, true);
    for (int i = 0; i < 1000; ++i)
        designer.CreateComponent(TBenchPart::StaticClass(), nullptr, 0, 0, 0, 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(designer.UniqueName("TBenchPart"));
}
BENCHMARK(BM_UniqueNameOnABusyForm)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
