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
    // RegisterClasses of TjexSubQuery, TjexSubTable, TjexSubDataSource go here once jexc60 has them.
}

void Stop() {
    if (!Guard.Stop()) return;
    // ...and their UnRegisterClasses here.
}
} // namespace dcljexc::Jexregbd

JEX_PACKAGE_REGISTER(jexregbd) {
    // Rows of classes jexc60 does not have yet are added when it gets them: TjexBDEAdapterReg,
    // TjexDBAppException, TjexDBQryAppException, TjexLocalTable, TjexLocalQuery, TjexLocalDatabase,
    // TjexDBIdleTime, TjexDBTableGrid, TjexDBQueryGrid, TjexSubQuery, TjexSubTable, TjexSubDataSource.

    // Property editor registrations of this unit come with the data-aware editors.

    // Component editor registrations of this unit come with the table builder and the grid, query and index
    // editors.
}
