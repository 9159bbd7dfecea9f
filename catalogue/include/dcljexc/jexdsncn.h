// Jexdsncn: the component catalogue, pairing every component class of the library with the one-paragraph
// description the extended palette hint shows, and its lookup.
#pragma once

#include <string>
#include <vector>

#include "rtl/resources.h"

namespace dcljexc {

// Entries of the catalogue, indexed 0 .. jexCatalogueCount - 1.
inline constexpr int jexCatalogueCount = 216;

// The description of the class whose name equals ClassName exactly (case-sensitive): a description that
// begins with "is" comes back after the class name and one space ("TjexDock is a container ..."), any
// other as it is. Empty for a class the catalogue does not list, and while the unit is not started.
std::string jexIDEComponentDescription(const std::string& ClassName);

// The resource strings behind entry Index (EListError outside 0 .. jexCatalogueCount - 1), so that their
// identifiers can be checked and a translation can be written for them.
const rtl::TResourceString& jexCatalogueClassNameString(int Index);
const rtl::TResourceString& jexCatalogueDescriptionString(int Index);

// The two tables as the unit's start filled them from the string resources (translated where a translation
// is installed); empty before the start and after the stop.
const std::vector<std::string>& jexCatalogueClassNames();
const std::vector<std::string>& jexCatalogueDescriptions();

namespace Jexdsncn {
// Start fills the tables, Stop releases them; both guarded like every unit's.
void Start();
void Stop();
} // namespace Jexdsncn

} // namespace dcljexc
