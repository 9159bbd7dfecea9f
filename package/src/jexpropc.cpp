// Jexpropc: the library's property category "Jex" and the routine that files properties under it.
#include "dcljexc/jexpropc.h"

#include "dcljexc/units.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexpropc)

namespace dcljexc {

JEX_RESOURCESTRING(_sjexPropCategoryName, "Jex");
JEX_RESOURCESTRING(_sjexPropCategoryDescription, "Jex Properties");

void jexRegisterPropertiesInCategory(rtl::TClass ComponentClass,
                                     const std::vector<std::string>& PropertyNames) {
    ide::RegisterPropertiesInCategory(rtl::LoadResString(_sjexPropCategoryName), ComponentClass,
                                      PropertyNames);
}

void jexRegisterPropertiesInCategory(rtl::TClass ComponentClass,
                                     std::initializer_list<const char*> PropertyNames) {
    jexRegisterPropertiesInCategory(ComponentClass,
                                    std::vector<std::string>(PropertyNames.begin(), PropertyNames.end()));
}

JEX_IMPLEMENT_CLASS(TjexCategory, ide::TPropertyCategory, "Jexpropc") {}

} // namespace dcljexc
