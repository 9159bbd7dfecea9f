// Jexpvers: the version-information property and component editors and their tables of version keys.
#include "dcljexc/units.h"

namespace dcljexc::Jexpvers {
namespace {
ide::TUnitGuard Guard;
} // namespace

void Start() {
    Guard.Start();
}

void Stop() {
    if (!Guard.Stop()) return;
    // The unit's two tables of twelve version-information keys are released here.
}

} // namespace dcljexc::Jexpvers
