// Jexpropb: the data-aware property editors' unit; it also gives the run-time library the designer's
// current project name.
#pragma once

#include <string>

namespace dcljexc {

// The current project's name as the designer's tool services report it. Installed into jexc60's
// jexProjectNameFunc while the package is loaded.
std::string jexGetToolServicesProjectName();

} // namespace dcljexc
