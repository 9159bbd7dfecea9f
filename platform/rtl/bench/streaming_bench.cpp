// Streaming and name lookup at scale: FindComponent among 100,000 owned components, and writing and
// reading a form text of 100,000 components.
#include <benchmark/benchmark.h>

#include <random>

#include "rtl/streaming.h"

using namespace rtl;

namespace {

class TBenchItem : public TComponent {
    JEX_CLASS(TBenchItem, TComponent)
    using TComponent::TComponent;
    int Left() const { return FLeft; }
    void SetLeft(int v) { FLeft = v; }
    int Top() const { return FTop; }
    void SetTop(int v) { FTop = v; }
    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& v) { FCaption = v; }
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool v) { FEnabled = v; }
    TBenchItem* Next() const { return FNext; }
    void SetNext(TBenchItem* v) { FNext = v; }

private:
    int FLeft = 0;
    int FTop = 0;
    std::string FCaption;
    bool FEnabled = true;
    TBenchItem* FNext = nullptr;
};
JEX_IMPLEMENT_CLASS(TBenchItem, TComponent, "Bench") {
    d.Property("Left", &TBenchItem::Left, &TBenchItem::SetLeft);
    d.Property("Top", &TBenchItem::Top, &TBenchItem::SetTop);
    d.Property("Caption", &TBenchItem::Caption, &TBenchItem::SetCaption);
    d.Property("Enabled", &TBenchItem::Enabled, &TBenchItem::SetEnabled).Default(true);
    d.Property("Next", &TBenchItem::Next, &TBenchItem::SetNext);
}

// A root that streams everything it owns.
class TBenchForm : public TComponent {
    JEX_CLASS(TBenchForm, TComponent)
    using TComponent::TComponent;
    void GetChildren(const TGetChildProc& Proc, TComponent* Root) override {
        for (TComponent* c : ComponentList())
            Proc(c);
    }
};
JEX_IMPLEMENT_CLASS(TBenchForm, TComponent, "Bench") {}

constexpr int kCount = 100000;

TBenchForm* BuildForm() {
    RegisterClasses({TBenchForm::StaticClass(), TBenchItem::StaticClass()});
    auto* form = new TBenchForm(nullptr);
    form->SetName("Form1");
    TBenchItem* prev = nullptr;
    for (int i = 0; i < kCount; ++i) {
        auto* item = new TBenchItem(form);
        item->SetName("Item" + std::to_string(i));
        item->SetLeft(i % 1000);
        item->SetTop(i / 1000);
        item->SetCaption("Caption of item " + std::to_string(i));
        item->SetEnabled(i % 3 != 0);
        if (prev) prev->SetNext(item);
        prev = item;
    }
    return form;
}

void BM_FindComponent(benchmark::State& state) {
    TBenchForm* form = BuildForm();
    std::vector<std::string> names;
    std::mt19937 rng(42);
    for (int i = 0; i < 4096; ++i) {
        std::string n = "item" + std::to_string(rng() % kCount); // lookups ignore case
        names.push_back(n);
    }
    size_t i = 0;
    for (auto _ : state) {
        TComponent* c = form->FindComponent(names[i++ & 4095]);
        benchmark::DoNotOptimize(c);
    }
    state.SetItemsProcessed(state.iterations());
    form->Free();
}
BENCHMARK(BM_FindComponent);

void BM_WriteForm100k(benchmark::State& state) {
    TBenchForm* form = BuildForm();
    size_t bytes = 0;
    for (auto _ : state) {
        std::string text = WriteComponentText(form);
        bytes = text.size();
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(bytes * state.iterations()));
    state.counters["components"] = kCount;
    form->Free();
}
BENCHMARK(BM_WriteForm100k)->Unit(benchmark::kMillisecond);

void BM_ReadForm100k(benchmark::State& state) {
    TBenchForm* form = BuildForm();
    std::string text = WriteComponentText(form);
    form->Free();
    for (auto _ : state) {
        TComponent* read = ReadComponentText(text, nullptr);
        state.PauseTiming();
        if (read->ComponentCount() != kCount) state.SkipWithError("wrong component count");
        read->Free();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(static_cast<int64_t>(text.size() * state.iterations()));
    state.counters["components"] = kCount;
}
BENCHMARK(BM_ReadForm100k)->Unit(benchmark::kMillisecond);

void BM_ParseForm100k(benchmark::State& state) {
    TBenchForm* form = BuildForm();
    std::string text = WriteComponentText(form);
    form->Free();
    for (auto _ : state) {
        TDfmDocument doc = ParseDfm(text);
        benchmark::DoNotOptimize(doc.Objects.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(text.size() * state.iterations()));
}
BENCHMARK(BM_ParseForm100k)->Unit(benchmark::kMillisecond);

} // namespace


