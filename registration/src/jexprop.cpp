// Jexprop: tells the run-time library that it lives inside the designer, and registers the Help-menu
// expert that browses the library's components.
#include "dcljexc/jexphint.h"
#include "dcljexc/units.h"
#include "jex/jexcommon.h"

namespace dcljexc::Jexprop {
namespace {
ide::TUnitGuard Guard;
} // namespace

void Start() {
    if (!Guard.Start()) return;
    // jexc60 keeps the flag for as long as it stays loaded: the stop below leaves it set.
    jex::jexDesigning = true;
}

void Stop() {
    if (!Guard.Stop()) return;
    // The unit's table of six strings, which comes with the Browse Components expert, is released here.
}

} // namespace dcljexc::Jexprop

JEX_PACKAGE_REGISTER(jexprop) {
    ide::RegisterLibraryExpert(new dcljexc::TjexBrowseCompsExpert);
}
