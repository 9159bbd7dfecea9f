// Loading jexc60 and dclJEXC through the package manager with every Register procedure, and unloading
// them again, as the host does when a person installs or removes the package.
#include <benchmark/benchmark.h>

#include "loader.h"

namespace {

void BM_LoadAndRegister(benchmark::State& state) {
    dcltest::InstallPlatformPackages();
    for (auto _ : state) {
        ide::TPackageManager manager;
        benchmark::DoNotOptimize(manager.LoadPackage("dclJEXC"));
        state.PauseTiming();
        manager.UnloadAll();
        state.ResumeTiming();
    }
    dcltest::UninstallPlatformPackages();
}
BENCHMARK(BM_LoadAndRegister)->Unit(benchmark::kMillisecond);

void BM_Unload(benchmark::State& state) {
    dcltest::InstallPlatformPackages();
    for (auto _ : state) {
        ide::TPackageManager manager;
        state.PauseTiming();
        manager.LoadPackage("dclJEXC");
        state.ResumeTiming();
        manager.UnloadAll();
    }
    dcltest::UninstallPlatformPackages();
}
BENCHMARK(BM_Unload)->Unit(benchmark::kMillisecond);

} // namespace
