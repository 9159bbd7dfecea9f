// The package manager: loads package shared libraries (required packages first), runs their entry points
// and Register procedures with their module current, and unloads them again, withdrawing everything they
// registered. A load that fails says why and leaves the host as it was.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ide/modules.h"
#include "ide/package.h"
#include "rtl/typinfo.h"

namespace ide {

JEX_ENUM(TPackageLoadFailure, plfFileNotFound, plfNotAPackage, plfBadPackageInfo, plfRequiredPackageMissing,
         plfSymbolMissing, plfStartFailed, plfRegisterFailed, plfLoadFailed)

// Why a package could not be loaded; Message says it for a person.
class EPackageLoadError : public rtl::EPackageError {
public:
    EPackageLoadError(TPackageLoadFailure failure, std::string package, std::string message)
        : EPackageError(std::move(message)), Failure(failure), Package(std::move(package)) {}
    const char* ClassName() const noexcept override { return "EPackageLoadError"; }
    TPackageLoadFailure Failure;
    std::string Package; // the package the failure is about (maybe a required one)
};

// A loaded package (or a built-in one taking part in requirements).
class TPackage {
public:
    const std::string& Name() const { return FName; }         // "dclJEXC"
    const std::string& FileName() const { return FFileName; } // absolute path; empty when built in
    bool IsBuiltin() const { return FBuiltin; }
    const TPackageInfo& Info() const { return FInfo; }
    const std::string& Description() const { return FDescription; }
    const TPackageOptions& Options() const { return FOptions; }
    // The dlopen handle, also the module its registrations are tagged with.
    void* Handle() const { return FHandle; }
    TModuleHandle Module() const { return FHandle; }
    rtl::TResourceModule* Resources() const { return FResources; }
    // The packages this one required and holds loaded.
    const std::vector<TPackage*>& Requires() const { return FRequires; }
    // Units whose Register procedure ran, in call order.
    const std::vector<std::string>& RegisteredUnits() const { return FRegistered; }
    int UnitCount() const { return FUnitCount; }
    // Explicit loads not yet unloaded, and loaded packages requiring this one.
    int LoadCount() const { return FLoadCount; }
    int DependentCount() const { return FDependents; }
    // A symbol of the package itself (not of a library it uses), or nil.
    void* FindSymbol(const std::string& name) const;

private:
    friend class TPackageManager;
    std::string FName, FFileName, FDescription;
    bool FBuiltin = false;
    TPackageInfo FInfo;
    TPackageOptions FOptions;
    void* FHandle = nullptr;
    rtl::TResourceModule* FResources = nullptr;
    std::vector<TPackage*> FRequires;
    std::vector<std::string> FRegistered;
    int FUnitCount = 0;
    int FLoadCount = 0;
    int FDependents = 0;
    bool FStarted = false;
    TUnitProc FUnload = nullptr;
};

class TPackageManager {
public:
    TPackageManager();
    // Leaves loaded packages alone (see UnloadAll).
    ~TPackageManager();
    TPackageManager(const TPackageManager&) = delete;
    TPackageManager& operator=(const TPackageManager&) = delete;

    // Loads a package by file path ("/x/libdclFoo.so") or by name ("dclFoo", "dclFoo.bpl" -> "libdclFoo.so"
    // beside the host or on the search path). A package loaded already is only counted again. Raises
    // EPackageLoadError; everything loaded by the failed attempt is unloaded again.
    TPackage* LoadPackage(const std::string& nameOrPath);
    // Gives up one explicit load; the package is unloaded when no explicit load and no loaded package
    // requiring it remain: its registrations are withdrawn (experts destroyed), PackageUnload runs, its
    // resources are unregistered and the library is closed; then its required packages are released.
    // Raises EPackageError when the stop procedures raised (the package is unloaded anyway).
    void UnloadPackage(TPackage* package);
    // Unloads every package, last loaded first. A host calls this before it ends so that the packages'
    // stop bodies run while the registries are still there.
    void UnloadAll();

    TPackage* FindPackage(const std::string& name) const; // by name ignoring case, with or without ".bpl"
    std::vector<TPackage*> Packages() const;              // load order, requirements first

    // Folders searched after the host's own folder (the default is $JEX_PACKAGE_PATH, ':'-separated).
    void SetSearchPath(std::vector<std::string> folders);
    const std::vector<std::string>& SearchPath() const { return FSearchPath; }
    // The file a package name maps to: "x.bpl" or "x" -> "libx.so" (also matched ignoring case); empty
    // when none exists.
    std::string FindPackageFile(const std::string& name) const;
    // The folder of the running executable.
    static std::string HostDirectory();

    // Told after a package (and everything it needed) loaded, and before a package is unloaded.
    std::function<void(TPackage*)> OnLoaded;
    std::function<void(TPackage*)> OnUnloading;

private:
    struct TTransaction;
    TPackage* Load(const std::string& nameOrPath, TTransaction& tx, std::vector<std::string>& chain);
    void Release(TPackage* package, std::vector<std::string>* errors);
    void Finish(TPackage* package, std::vector<std::string>* errors);
    std::vector<std::unique_ptr<TPackage>> FPackages;
    std::vector<std::string> FSearchPath;
};

// The host's package manager.
TPackageManager& PackageManager();

} // namespace ide
