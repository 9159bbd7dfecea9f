// Property categories: the object inspector's grouping of properties ("Visual", "Layout", a library's own
// category), filled by RegisterPropertiesInCategory.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "rtl/classes.h"

namespace ide {

using rtl::TClass;

// Standard category names.
inline constexpr const char* sActionCategoryName = "Action";
inline constexpr const char* sDataCategoryName = "Data";
inline constexpr const char* sDatabaseCategoryName = "Database";
inline constexpr const char* sDragNDropCategoryName = "Drag, Drop and Docking";
inline constexpr const char* sHelpCategoryName = "Help and Hints";
inline constexpr const char* sInputCategoryName = "Input";
inline constexpr const char* sLayoutCategoryName = "Layout";
inline constexpr const char* sLegacyCategoryName = "Legacy";
inline constexpr const char* sLinkageCategoryName = "Linkage";
inline constexpr const char* sLocaleCategoryName = "Locale";
inline constexpr const char* sLocalizableCategoryName = "Localizable";
inline constexpr const char* sMiscellaneousCategoryName = "Miscellaneous";
inline constexpr const char* sVisualCategoryName = "Visual";

// A category declared as a class. Name() defaults to the class name without its leading "T" and a
// trailing "Category" (TVisualCategory -> "Visual").
class TPropertyCategory : public rtl::TObject {
    JEX_CLASS(TPropertyCategory, rtl::TObject)
    TPropertyCategory() = default;
    virtual std::string Name() const;
    virtual std::string Description() const { return {}; }
};

// Puts the named properties of ComponentClass and its descendants (nil: of every class) into the
// category, tagged with the current module. A name may use '*' and '?' wildcards ("On*"). An empty list
// registers nothing.
void RegisterPropertiesInCategory(const std::string& Category, TClass ComponentClass,
                                  const std::vector<std::string>& PropertyNames);
void RegisterPropertiesInCategory(const std::string& Category, TClass ComponentClass,
                                  std::initializer_list<const char*> PropertyNames);
void RegisterPropertiesInCategory(const std::string& Category, const std::vector<std::string>& PropertyNames);
// Every property of PropertyType (for a class type also of its descendants).
void RegisterPropertiesInCategory(const std::string& Category, const rtl::TTypeInfo* PropertyType);
void RegisterPropertyInCategory(const std::string& Category, TClass ComponentClass,
                                const std::string& PropertyName);
// The category given by a TPropertyCategory descendant.
void RegisterPropertiesInCategory(TClass CategoryClass, TClass ComponentClass,
                                  const std::vector<std::string>& PropertyNames);
std::string CategoryNameOf(TClass CategoryClass);

// The categories a property of a component class is in, in the order the categories were first
// registered; {"Miscellaneous"} when it is in none.
std::vector<std::string> GetPropertyCategories(TClass ComponentClass, const rtl::TPropInfo* Prop);
bool IsPropertyInCategory(const std::string& Category, TClass ComponentClass, const rtl::TPropInfo* Prop);
// Every category name registered, in first-registration order.
std::vector<std::string> RegisteredCategories();
// Number of category entries a module made (for checks and tests).
int CategoryRegistrationCount();

} // namespace ide
