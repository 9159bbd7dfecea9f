// Which module made a design-time registration. The package manager makes a package's module current
// while its start table and Register procedures run, so that unloading the package withdraws exactly
// what it registered.
#pragma once

#include <functional>
#include <string>

namespace ide {

// Identifies a module for registration tagging only; never dereferenced. nullptr stands for the host
// (registrations made outside any package load).
using TModuleHandle = const void*;

// The module registrations are currently tagged with.
TModuleHandle CurrentModule();
// Makes `module` current and returns the module that was current before.
TModuleHandle SetCurrentModule(TModuleHandle module);

// Makes a module current for the lifetime of the scope.
class TModuleScope {
public:
    explicit TModuleScope(TModuleHandle module) : FPrevious(SetCurrentModule(module)) {}
    ~TModuleScope() { SetCurrentModule(FPrevious); }
    TModuleScope(const TModuleScope&) = delete;
    TModuleScope& operator=(const TModuleScope&) = delete;

private:
    TModuleHandle FPrevious;
};

// The module of the platform's own standard registrations (the default property editors, the standard
// property categories); unregistering it is refused so the defaults stay available.
TModuleHandle PlatformModule();

// Withdraws everything `module` registered: palette entries and no-icon classes (and the streaming
// registrations RegisterComponents made for it), property and component editors, category entries, and
// its library experts (which are destroyed). Handlers added with AddModuleUnloadHandler run first, so a
// host can drop editor objects whose code lives in the module.
void UnregisterModule(TModuleHandle module);

// Called with the module before its registrations are withdrawn. Returns an id for removal.
using TModuleUnloadProc = std::function<void(TModuleHandle)>;
int AddModuleUnloadHandler(TModuleUnloadProc proc);
void RemoveModuleUnloadHandler(int id);

// A display name for a module in messages ("(host)" for nullptr); the package manager names packages.
std::string ModuleDisplayName(TModuleHandle module);
void SetModuleDisplayName(TModuleHandle module, const std::string& name);

} // namespace ide
