// Built-in platform packages, expected tables and jexc60 access for the loading tests and benchmarks.
#include "loader.h"

#include <dlfcn.h>

#include <filesystem>
#include <fstream>

#include "ide/package.h"

namespace dcltest {

const nlohmann::json& Data() {
    static const nlohmann::json data = [] {
        std::ifstream in(std::string(DCLJEXC_TEST_DATA) + "/registrations.json");
        if (!in) throw std::runtime_error("cannot open registrations.json");
        return nlohmann::json::parse(in);
    }();
    return data;
}

std::vector<std::string> Strings(const nlohmann::json& list) {
    std::vector<std::string> out;
    for (auto& s : list)
        out.push_back(s.get<std::string>());
    return out;
}

void InstallPlatformPackages(const std::string& leaveOut) {
    for (auto& [package, units] : Data()["builtin_packages"].items()) {
        std::vector<ide::TBuiltinUnit> list;
        for (auto& u : units) {
            std::string name = u.get<std::string>();
            if (package + ":" + name == leaveOut) continue;
            list.push_back({name, nullptr, nullptr});
        }
        ide::RegisterBuiltinPackage(package, std::move(list));
    }
}

void UninstallPlatformPackages() {
    for (auto& [package, units] : Data()["builtin_packages"].items())
        ide::UnregisterBuiltinPackage(package);
}

std::string PackageFile(const std::string& name) {
    return (std::filesystem::path(ide::TPackageManager::HostDirectory()) / ("lib" + name + ".so")).string();
}

bool IsMapped(const std::string& file) {
    void* h = dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (!h) return false;
    dlclose(h);
    return true;
}

TJexc60::TJexc60(ide::TPackage* package) : FPackage(package) {
    if (!package) return;
    // jex::jexDesigning and jex::jexProjectNameFunc by their C++ symbol names.
    Designing = static_cast<bool*>(package->FindSymbol("_ZN3jex12jexDesigningE"));
    ProjectNameFunc =
        static_cast<TProjectNameFunc*>(package->FindSymbol("_ZN3jex18jexProjectNameFuncB5cxx11E"));
}

rtl::TClass TJexc60::ClassByName(const std::string& name) const {
    if (!FPackage) return nullptr;
    std::string symbol = "_ZN3jex" + std::to_string(name.size()) + name + "11StaticClassEv";
    auto staticClass = reinterpret_cast<rtl::TClass (*)()>(FPackage->FindSymbol(symbol));
    return staticClass ? staticClass() : nullptr;
}

std::string FileOfAddress(const void* address) {
    Dl_info info;
    if (!address || !dladdr(address, &info) || !info.dli_fname) return {};
    return std::filesystem::path(info.dli_fname).filename().string();
}

} // namespace dcltest
