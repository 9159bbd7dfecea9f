// Module tagging of design registrations and the withdrawal of a module's registrations.
#include "ide/modules.h"

#include <map>
#include <vector>

#include "registry_internal.h"
#include "rtl/sysutils.h"

namespace ide {

namespace {
struct TModuleState {
    TModuleHandle Current = nullptr;
    int NextHandlerId = 1;
    std::vector<std::pair<int, TModuleUnloadProc>> Handlers;
    std::map<TModuleHandle, std::string> Names;
};
TModuleState& State() {
    static TModuleState s;
    return s;
}
const char PlatformModuleTag = 0;
uint64_t Generation = 1;
} // namespace

uint64_t detail::RegistryGeneration() {
    return Generation;
}
void detail::BumpRegistryGeneration() {
    ++Generation;
}

TModuleHandle CurrentModule() {
    return State().Current;
}

TModuleHandle SetCurrentModule(TModuleHandle module) {
    TModuleHandle previous = State().Current;
    State().Current = module;
    return previous;
}

TModuleHandle PlatformModule() {
    return &PlatformModuleTag;
}

void UnregisterModule(TModuleHandle module) {
    if (module == PlatformModule())
        throw rtl::EInvalidOperation("The platform's own registrations cannot be withdrawn");
    // Handlers may remove themselves while running: walk a copy and skip removed ones.
    auto handlers = State().Handlers;
    for (auto& [id, proc] : handlers) {
        bool live = false;
        for (auto& h : State().Handlers)
            live = live || h.first == id;
        if (live) proc(module);
    }
    // Experts first: destroying one may release menu items and other interfaces it holds.
    detail::WithdrawExperts(module);
    detail::WithdrawMenuItems(module);
    detail::WithdrawComponentEditors(module);
    detail::WithdrawPropertyEditors(module);
    detail::WithdrawCategories(module);
    detail::WithdrawPalette(module);
}

int AddModuleUnloadHandler(TModuleUnloadProc proc) {
    int id = State().NextHandlerId++;
    State().Handlers.emplace_back(id, std::move(proc));
    return id;
}

void RemoveModuleUnloadHandler(int id) {
    auto& h = State().Handlers;
    for (auto it = h.begin(); it != h.end(); ++it)
        if (it->first == id) {
            h.erase(it);
            return;
        }
}

std::string ModuleDisplayName(TModuleHandle module) {
    if (!module) return "(host)";
    if (module == PlatformModule()) return "(platform)";
    auto it = State().Names.find(module);
    if (it != State().Names.end()) return it->second;
    return "(module)";
}

void SetModuleDisplayName(TModuleHandle module, const std::string& name) {
    if (name.empty())
        State().Names.erase(module);
    else
        State().Names[module] = name;
}

} // namespace ide
