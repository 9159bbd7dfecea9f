// Jexdsncn: the component catalogue, pairing every component class of the library with the one-paragraph
// description the extended palette hint shows, and its lookup; and the navigator button catalogue, the 35
// kinds of button that the navigator wizard and button editor place on a navigator panel.
#pragma once

#include <string>
#include <vector>

#include "rtl/resources.h"
#include "rtl/system.h"

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

// ---- Navigator button catalogue ------------------------------------------------------------------------
// A button kind indexes every column below. The texts are resource strings read afresh on every call, so a
// translation installed beside the package takes effect at once; kinds outside the range get the answer
// each function documents.

// The navigator button kinds 0 .. jexNavBtnKindCount - 1.
inline constexpr int jexNavBtnKindCount = 35;
// The name in the wizard's list of buttons; out of range, the name of kind 0 ("First").
std::string JEXDesignNavBtnListName(int Kind);
// The class registered for streaming under the kind's class name; null out of range or while that name is
// not registered.
rtl::TClass JEXDesignNavComponentClass(int Kind);
// The base name of the kind's glyph bitmaps ("NEXT": resources "JEXNP_NEXT0" .. "JEXNP_NEXT5"); empty for
// the kinds without a glyph of the package's (21, 23, 31 .. 34) and out of range.
std::string JEXDesignNavBmpResName(int Kind);
// The base name on vertical panels: a rotated glyph of its own for kinds 0 .. 5 and 7, for every other kind
// the horizontal one.
std::string JEXDesignNavVertBmpResName(int Kind);
// The default caption; "{no Caption}" for the kinds without one (21, 23, 31, 32) and out of range.
std::string JEXDesignNavComponentCaption(int Kind);
// The default hint (of the up state), short and long part separated by "|"; "{no Hint}" for 31, 32 and
// out of range.
std::string JEXDesignNavComponentHint(int Kind);
// The hint of the pressed state of the two-state kinds 18, 24, 25 and 34; "{no Hint Down}" for any other.
std::string JEXDesignNavComponentHintDown(int Kind);
// The class names of the kinds ("TjexnpFirst" ...), in kind order.
extern const char* const JEXDesignNavClassNames[jexNavBtnKindCount];
// The texts of the wizard's six list groups ("Navigate" ... "Other") and the kind each group starts with; a
// group runs to the kind before the next group's first kind.
JEX_DECLARE_RESOURCESTRING(_sjexnpdsgnListGroup1);
JEX_DECLARE_RESOURCESTRING(_sjexnpdsgnListGroup2);
JEX_DECLARE_RESOURCESTRING(_sjexnpdsgnListGroup3);
JEX_DECLARE_RESOURCESTRING(_sjexnpdsgnListGroup4);
JEX_DECLARE_RESOURCESTRING(_sjexnpdsgnListGroup5);
JEX_DECLARE_RESOURCESTRING(_sjexnpdsgnListGroup6);
inline constexpr int jexNavGroupFirstKind[6] = {0, 6, 18, 21, 26, 29};
// The placeholders the lookups answer with when a kind has no such text.
JEX_DECLARE_RESOURCESTRING(_sjexnpCapNone);      // "{no Caption}"
JEX_DECLARE_RESOURCESTRING(_sjexnpHintNone);     // "{no Hint}"
JEX_DECLARE_RESOURCESTRING(_sjexnpHintDownNone); // "{no Hint Down}"
// "{Requires Up + Down Hints}": kept for translators and for the run-time buttons; no designer shows it.
JEX_DECLARE_RESOURCESTRING(_sjexnpHintUpDown);

namespace Jexdsncn {
// Start fills the tables, Stop releases them; both guarded like every unit's.
void Start();
void Stop();
} // namespace Jexdsncn

} // namespace dcljexc
