// The navigator panel wizard filling a panel with 10,000 components in one run: choosing the buttons,
// stepping to the grid, creating, naming (with taken names on the form) and laying out.
#include <benchmark/benchmark.h>

#include "../tests/jexdfnav_classes.h"
#include "dcljexc/jexdfnav.h"
#include "dcljexc/jexdsncn.h"
#include "vcl/scripted_ui.h"

namespace {

// A designed form with a navigator panel, and names "jexnpNext1" .. "jexnpNext<Taken>" already used on it.
struct TDesignedForm {
    explicit TDesignedForm(int Taken) {
        Form = new vcl::TForm(nullptr);
        Panel = new jex::TjexNavPanel(Form);
        Panel->SetName("jexNavPanel1");
        Panel->SetParent(Form);
        for (int i = 1; i <= Taken; ++i)
            (new vcl::TLabel(Form))->SetName("jexnpNext" + std::to_string(i));
    }
    ~TDesignedForm() { Form->Free(); }
    vcl::TForm* Form;
    jex::TjexNavPanel* Panel;
};

// One wizard run per iteration; Choose picks the buttons on page 0, then the grid gets Rows rows.
template <class F> void RunWizard(benchmark::State& state, F Choose, int Rows) {
    dcljexc::Jexdsncn::Start();
    {
        navtest::TNavClassesScope classes;
        vcl::TScriptedUI ui;
        ui.PropagateExceptions = true;
        for (auto _ : state) {
            state.PauseTiming();
            auto designed = std::make_unique<TDesignedForm>(100);
            ui.OnForm("TjexdfNavPanelEdit", [&](vcl::TFormDriver& d) {
                Choose(d);
                d.Click("btnNext");
                d.Check("chkHints", false);
                d.Click("btnNext");
                d.SetValue("speBtnRows", Rows);
                d.Click("btnNext");
            });
            state.ResumeTiming();
            benchmark::DoNotOptimize(dcljexc::ExecjexdfNavPanelEdit(designed->Panel));
            state.PauseTiming();
            state.counters["components"] = designed->Panel->ControlCount();
            designed.reset();
            state.ResumeTiming();
        }
    }
    dcljexc::Jexdsncn::Stop();
}

void BM_WizardCreates10000NextButtons(benchmark::State& state) {
    RunWizard(
        state,
        [](vcl::TFormDriver& d) {
            d.Select("outButtons", "Navigate\\Next");
            for (int i = 0; i < 10000; ++i)
                d.Click("btnAdd");
        },
        100);
}
BENCHMARK(BM_WizardCreates10000NextButtons)->Unit(benchmark::kMillisecond)->Iterations(3);

// Every kind, 286 times over (10,010 components, of which 1,716 flow as controls below the buttons).
void BM_WizardCreates10010OfEveryKind(benchmark::State& state) {
    RunWizard(
        state,
        [](vcl::TFormDriver& d) {
            for (int i = 0; i < 286; ++i)
                d.Click("btnAddAll");
        },
        80);
}
BENCHMARK(BM_WizardCreates10010OfEveryKind)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
