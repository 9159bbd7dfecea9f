// The package manager: dlopen, package information, required packages, entry points, Register
// procedures, and the way back out (also when a load fails half way).
#include "ide/packages.h"

#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace ide {

using namespace rtl;
namespace fs = std::filesystem;

JEX_DEFINE_ENUM(TPackageLoadFailure)

namespace {
std::string BareName(const std::string& name) {
    std::string n = name;
    if (n.size() > 4 && SameText(n.substr(n.size() - 4), ".bpl")) n.erase(n.size() - 4);
    return n;
}

// "libdclFoo.so" -> "dclFoo".
std::string NameOfFile(const std::string& path) {
    std::string n = fs::path(path).filename().string();
    if (n.size() > 3 && n.compare(0, 3, "lib") == 0) n.erase(0, 3);
    if (auto dot = n.find(".so"); dot != std::string::npos) n.erase(dot);
    return n;
}

struct link_map* LinkMapOf(void* handle) {
    struct link_map* map = nullptr;
    if (!handle || dlinfo(handle, RTLD_DI_LINKMAP, &map) != 0) return nullptr;
    return map;
}

// A symbol defined by the library itself: dlsym also searches the libraries it depends on, and every
// package exports the same entry point names.
void* OwnSymbol(void* handle, const std::string& name) {
    dlerror();
    void* sym = dlsym(handle, name.c_str());
    if (!sym) return nullptr;
    Dl_info info;
    struct link_map* owner = nullptr;
    if (!dladdr1(sym, &info, reinterpret_cast<void**>(&owner), RTLD_DL_LINKMAP)) return nullptr;
    return owner == LinkMapOf(handle) ? sym : nullptr;
}

std::string CurrentExceptionMessage() {
    try {
        throw;
    } catch (const Exception& e) {
        return e.Message();
    } catch (const std::exception& e) {
        return e.what();
    } catch (...) {
        return "unknown exception";
    }
}
} // namespace

void* TPackage::FindSymbol(const std::string& name) const {
    return FHandle ? OwnSymbol(FHandle, name) : nullptr;
}

// What one LoadPackage call did, so that a failure can undo exactly that.
struct TPackageManager::TTransaction {
    std::vector<TPackage*> Loaded;     // newly loaded packages, in load order
    std::vector<TPackage*> Referenced; // packages loaded before whose counts this call raised
};

TPackageManager::TPackageManager() {
    if (const char* env = std::getenv("JEX_PACKAGE_PATH")) {
        std::string s = env;
        size_t start = 0;
        while (start <= s.size()) {
            size_t colon = s.find(':', start);
            std::string part =
                s.substr(start, colon == std::string::npos ? std::string::npos : colon - start);
            if (!part.empty()) FSearchPath.push_back(part);
            if (colon == std::string::npos) break;
            start = colon + 1;
        }
    }
}

// Packages still loaded at process exit stay mapped: the registries their withdrawal would need may be
// gone by now. A host that wants their stop bodies to run calls UnloadAll before it ends.
TPackageManager::~TPackageManager() = default;

TPackageManager& PackageManager() {
    static TPackageManager m;
    return m;
}

std::string TPackageManager::HostDirectory() {
    std::error_code ec;
    fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    return ec ? std::string() : exe.parent_path().string();
}

void TPackageManager::SetSearchPath(std::vector<std::string> folders) {
    FSearchPath = std::move(folders);
}

std::string TPackageManager::FindPackageFile(const std::string& name) const {
    std::string file = "lib" + BareName(name) + ".so";
    std::vector<std::string> folders{HostDirectory()};
    folders.insert(folders.end(), FSearchPath.begin(), FSearchPath.end());
    for (auto& folder : folders) {
        if (folder.empty()) continue;
        std::error_code ec;
        fs::path exact = fs::path(folder) / file;
        if (fs::is_regular_file(exact, ec)) return fs::absolute(exact, ec).string();
        // Package names in package information are often lower case; file names need not be.
        for (auto it = fs::directory_iterator(folder, ec); !ec && it != fs::directory_iterator();
             it.increment(ec))
            if (it->is_regular_file(ec) && SameText(it->path().filename().string(), file))
                return fs::absolute(it->path(), ec).string();
    }
    return {};
}

TPackage* TPackageManager::FindPackage(const std::string& name) const {
    std::string bare = BareName(name);
    for (auto& p : FPackages)
        if (SameText(p->FName, bare)) return p.get();
    return nullptr;
}

std::vector<TPackage*> TPackageManager::Packages() const {
    std::vector<TPackage*> out;
    for (auto& p : FPackages)
        out.push_back(p.get());
    return out;
}

TPackage* TPackageManager::LoadPackage(const std::string& nameOrPath) {
    TTransaction tx;
    std::vector<std::string> chain;
    TPackage* p;
    try {
        p = Load(nameOrPath, tx, chain);
        ++p->FLoadCount;
    } catch (...) {
        // Undo this call: counts it raised on packages loaded before, then the packages it loaded.
        for (TPackage* r : tx.Referenced)
            --r->FDependents;
        for (auto it = tx.Loaded.rbegin(); it != tx.Loaded.rend(); ++it) {
            TPackage* q = *it;
            for (TPackage* req : q->FRequires)
                if (std::find(tx.Loaded.begin(), tx.Loaded.end(), req) != tx.Loaded.end()) --req->FDependents;
            q->FRequires.clear();
            Finish(q, nullptr);
        }
        throw;
    }
    for (TPackage* q : tx.Loaded)
        if (OnLoaded) OnLoaded(q);
    return p;
}

TPackage* TPackageManager::Load(const std::string& nameOrPath, TTransaction& tx,
                                std::vector<std::string>& chain) {
    // Where is it?
    bool isPath = nameOrPath.find('/') != std::string::npos || nameOrPath.ends_with(".so");
    std::string file = isPath ? nameOrPath : FindPackageFile(nameOrPath);
    std::string name = isPath ? NameOfFile(nameOrPath) : BareName(nameOrPath);
    if (TPackage* loaded = FindPackage(name)) return loaded;
    std::error_code ec;
    if (file.empty() || !fs::is_regular_file(file, ec))
        throw EPackageLoadError(
            plfFileNotFound, name,
            isPath ? Format("Package file %s was not found", {nameOrPath})
                   : Format("Package %s was not found (no file lib%s.so beside the host or on "
                            "the package search path)",
                            {name, name}));
    file = fs::absolute(file, ec).string();
    for (auto& p : FPackages)
        if (p->FFileName == file) return p.get();
    if (std::any_of(chain.begin(), chain.end(), [&](const std::string& s) { return SameText(s, name); }))
        throw EPackageLoadError(plfRequiredPackageMissing, name,
                                Format("Package %s requires itself", {name}));

    // Map it. RTLD_NOW: a missing symbol is reported now, not at some later call.
    dlerror();
    void* handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        const char* err = dlerror();
        std::string why = err ? err : "unknown reason";
        if (why.find("undefined symbol") != std::string::npos)
            throw EPackageLoadError(plfSymbolMissing, name,
                                    Format("Package %s cannot be loaded: %s", {name, why}));
        // A message about another file than the package's own is about a library it needs.
        if (why.find("cannot open shared object file") != std::string::npos && why.rfind(file, 0) != 0)
            throw EPackageLoadError(
                plfRequiredPackageMissing, name,
                Format("Package %s cannot be loaded, a library it requires is missing: %s", {name, why}));
        if (why.find("invalid ELF header") != std::string::npos ||
            why.find("file too short") != std::string::npos)
            throw EPackageLoadError(plfNotAPackage, name, Format("%s is not a package: %s", {file, why}));
        throw EPackageLoadError(plfLoadFailed, name, Format("Package %s cannot be loaded: %s", {name, why}));
    }

    auto package = std::make_unique<TPackage>();
    TPackage* p = package.get();
    p->FName = name;
    p->FFileName = file;
    p->FHandle = handle;
    auto notAPackage = [&](const std::string& why) {
        dlclose(handle);
        throw EPackageLoadError(plfNotAPackage, name, Format("%s is not a package: %s", {file, why}));
    };

    // What it says about itself.
    TResourceModule* res = FindModuleResources(handle);
    if (!res) notAPackage("it has no module resources");
    const std::vector<uint8_t>* info = FindRawResource(*res, "PACKAGEINFO");
    if (!info) notAPackage("it has no package information (PACKAGEINFO)");
    try {
        p->FInfo = ParsePackageInfo(*info);
    } catch (const EPackageError& e) {
        dlclose(handle);
        throw EPackageLoadError(plfBadPackageInfo, name, Format("Package %s: %s", {name, e.Message()}));
    }
    if ((p->FInfo.Flags & pfModuleTypeMask) != pfPackageModule)
        notAPackage("its package information is not a package's");
    if (auto* d = FindRawResource(*res, "DESCRIPTION")) p->FDescription = DecodePackageDescription(*d);
    if (auto* o = FindRawResource(*res, "PACKAGEOPTIONS")) p->FOptions = DecodePackageOptions(*o);
    auto load = reinterpret_cast<TUnitProc>(OwnSymbol(handle, "PackageLoad"));
    if (!load) load = reinterpret_cast<TUnitProc>(OwnSymbol(handle, "Initialize"));
    auto unload = reinterpret_cast<TUnitProc>(OwnSymbol(handle, "PackageUnload"));
    if (!unload) unload = reinterpret_cast<TUnitProc>(OwnSymbol(handle, "Finalize"));
    using TGetTable = const TPackageInfoTable* (*)();
    auto getTable = reinterpret_cast<TGetTable>(OwnSymbol(handle, "GetPackageInfoTable"));
    if (!load) notAPackage("it exports no PackageLoad entry point");
    if (!unload) notAPackage("it exports no PackageUnload entry point");
    if (!getTable) notAPackage("it exports no GetPackageInfoTable entry point");
    const TPackageInfoTable* table = getTable();
    if (!table || table->UnitCount < 0 || (table->UnitCount > 0 && !table->UnitInfo))
        notAPackage("its initialization table is malformed");
    p->FUnitCount = table->UnitCount;
    p->FUnload = unload;

    // Required packages first; what they load is undone by the caller's transaction on failure.
    chain.push_back(name);
    try {
        for (auto& req : p->FInfo.Requires) {
            if (IsBuiltinPackage(req.Name)) continue;
            TPackage* r;
            try {
                r = Load(req.Name, tx, chain);
            } catch (EPackageLoadError& e) {
                if (e.Failure == plfFileNotFound)
                    throw EPackageLoadError(plfRequiredPackageMissing, e.Package,
                                            Format("Package %s requires package %s, which was not found",
                                                   {name, BareName(req.Name)}));
                throw;
            }
            ++r->FDependents;
            if (std::find(tx.Loaded.begin(), tx.Loaded.end(), r) == tx.Loaded.end())
                tx.Referenced.push_back(r);
            p->FRequires.push_back(r);
        }
    } catch (...) {
        dlclose(handle);
        throw;
    }
    chain.pop_back();

    // From here on the package is listed: failures go through the transaction, which stops it after the
    // packages it loaded later and before those it requires.
    FPackages.push_back(std::move(package));
    tx.Loaded.push_back(p);

    // Start it with its resources visible and its module current.
    p->FResources = res;
    res->SetHandle(handle);
    RegisterModule(res);
    SetModuleDisplayName(handle, name);
    {
        TModuleScope scope(handle);
        try {
            load();
        } catch (...) {
            throw EPackageLoadError(
                plfStartFailed, name,
                Format("Package %s failed to start: %s", {name, CurrentExceptionMessage()}));
        }
        p->FStarted = true;
        // A package lists its units in reverse link order (the main unit first); Register procedures run in
        // link order, last listed first, so that a palette page filled by several units gets them in order.
        for (auto it = p->FInfo.Contains.rbegin(); it != p->FInfo.Contains.rend(); ++it) {
            auto& unit = *it;
            std::string symbol = "Register_" + LowerCase(unit.Name);
            auto reg = reinterpret_cast<TUnitProc>(OwnSymbol(handle, symbol));
            if (!reg) continue;
            try {
                reg();
            } catch (...) {
                throw EPackageLoadError(plfRegisterFailed, name,
                                        Format("Package %s failed to register unit %s: %s",
                                               {name, unit.Name, CurrentExceptionMessage()}));
            }
            p->FRegistered.push_back(unit.Name);
        }
    }
    return p;
}

void TPackageManager::Finish(TPackage* p, std::vector<std::string>* errors) {
    // Withdraw what it registered while its code is still there, then stop it, then unmap it.
    if (p->FHandle) {
        try {
            UnregisterModule(p->FHandle);
        } catch (...) {
            if (errors) errors->push_back(CurrentExceptionMessage());
        }
        if (p->FStarted && p->FUnload) {
            TModuleScope scope(p->FHandle);
            try {
                p->FUnload();
            } catch (...) {
                if (errors)
                    errors->push_back(
                        Format("Package %s failed to stop: %s", {p->FName, CurrentExceptionMessage()}));
            }
        }
        if (p->FResources) UnregisterModule(p->FResources);
        SetModuleDisplayName(p->FHandle, "");
        dlclose(p->FHandle);
        p->FHandle = nullptr;
    }
    std::erase_if(FPackages, [&](const std::unique_ptr<TPackage>& q) { return q.get() == p; });
}

void TPackageManager::Release(TPackage* p, std::vector<std::string>* errors) {
    if (p->FLoadCount > 0 || p->FDependents > 0) return;
    if (OnUnloading) OnUnloading(p);
    std::vector<TPackage*> required = p->FRequires;
    p->FRequires.clear();
    Finish(p, errors);
    for (TPackage* r : required) {
        --r->FDependents;
        Release(r, errors);
    }
}

void TPackageManager::UnloadPackage(TPackage* package) {
    if (!package) return;
    if (std::none_of(FPackages.begin(), FPackages.end(), [&](auto& q) { return q.get() == package; }))
        throw EPackageError("The package is not loaded");
    if (package->FLoadCount > 0) --package->FLoadCount;
    std::vector<std::string> errors;
    Release(package, &errors);
    if (!errors.empty()) throw EPackageError(errors.front());
}

void TPackageManager::UnloadAll() {
    std::vector<std::string> errors;
    while (!FPackages.empty()) {
        // The last loaded package that nothing loaded requires.
        TPackage* victim = nullptr;
        for (auto it = FPackages.rbegin(); it != FPackages.rend() && !victim; ++it)
            if ((*it)->FDependents == 0) victim = it->get();
        if (!victim) victim = FPackages.back().get();
        victim->FLoadCount = 0;
        victim->FDependents = 0;
        Release(victim, &errors);
    }
    if (!errors.empty()) throw EPackageError(errors.front());
}

} // namespace ide
