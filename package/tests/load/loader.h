// Loading jexc60 and dclJEXC through the real package manager, for tests and benchmarks that do not link
// either library: the platform packages they require, built in as the host provides them, the expected
// registrations, and access to jexc60's globals in the loaded library.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "ide/packages.h"
#include "rtl/classes.h"

namespace dcltest {

// tests/data/registrations.json: the registration tables, the start order and the forwarders per unit.
const nlohmann::json& Data();
std::vector<std::string> Strings(const nlohmann::json& list);

// Registers the built-in platform packages (the units the tables forward to, and the packages jexc60
// requires) as the host does, their units without bodies; `leaveOut` ("vclx60:Outline") leaves one out.
void InstallPlatformPackages(const std::string& leaveOut = {});
void UninstallPlatformPackages();

// The package's file beside the test executable ("libdclJEXC.so").
std::string PackageFile(const std::string& name);
// True while a library of that file is mapped into the process.
bool IsMapped(const std::string& file);

// jexc60's globals and classes, read through the loaded library (a missing symbol leaves nullptr, which
// the caller reports).
struct TJexc60 {
    explicit TJexc60(ide::TPackage* package);
    bool* Designing = nullptr;
    using TProjectNameFunc = std::string (*)();
    TProjectNameFunc* ProjectNameFunc = nullptr;
    // Any class of the library by name (jex::<Name>::StaticClass()), also one that is in no unit's list.
    rtl::TClass ClassByName(const std::string& name) const;

private:
    ide::TPackage* FPackage = nullptr;
};

// The loaded package whose file holds `address`, by file name ("libdclJEXC.so"); empty when none.
std::string FileOfAddress(const void* address);

} // namespace dcltest
