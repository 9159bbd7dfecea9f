// dclJEXC's version information, in the library's convention (the raw resource "VERSIONINFO" of
// "Key=Value" lines); the About window's version label reads it.
#include "jex/jexlabels.h"
#include "rtl/resources.h"

namespace {

constexpr const char PackageVersionInfo[] = "CompanyName=Quentrel\n"
                                            "FileDescription=Jex 6 design-time package\n"
                                            "FileVersion=6.0.1.0\n"
                                            "InternalName=dclJEXC\n"
                                            "LegalCopyright=Copyright Quentrel\n"
                                            "OriginalFilename=libdclJEXC.so\n"
                                            "ProductName=Jex 6\n"
                                            "ProductVersion=6.0.1\n";

// Resources are declared while the module initialises, as the resource table expects.
[[maybe_unused]] const bool VersionInfoAdded = jexThisModule().AddRawData(
    jex::jexVersionResourceName, PackageVersionInfo, sizeof(PackageVersionInfo) - 1);

} // namespace
