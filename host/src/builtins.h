// The platform packages the host provides itself ("rtl60", "vcl60", "designide60" ...): the names a design
// package may require without a file, and the units its initialization table may forward to.
#pragma once

#include <string>
#include <vector>

namespace host {

struct TBuiltinPackageDef {
    std::string Name;               // "vcl60"
    std::vector<std::string> Units; // "Controls", "StdCtrls", ...
};

// The built-in packages and their units, in the order the host starts them.
const std::vector<TBuiltinPackageDef>& BuiltinPackageDefs();

// Registers every built-in package with the package manager and starts each unit once, as the host has
// its own layers running before any package loads; a package forwarding to a unit later only counts it.
void InstallBuiltinPackages();
// Stops the host's own start of every unit (reverse order) and unregisters the packages.
void UninstallBuiltinPackages();

// Another name for a built-in package ("jexbuiltin" = "vcl60"): a package requiring the alias gets the
// platform package's units under the alias's name, each forwarding to the platform unit. Raises
// rtl::EPackageError when the platform package is unknown or the alias names one already.
void InstallPackageAlias(const std::string& alias, const std::string& platformPackage);
void UninstallPackageAliases();

} // namespace host
