// Jexregbd: the "Jex BDE" palette page (and the BDE adapter on "Jex Data Access"), and the BDE components'
// own properties in the library's "Jex" category. Its start makes the sub-dataset classes streamable by
// name; its stop withdraws them.
#include "db/db.h"
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "ide/propedit.h"
#include "jex/jexappexc.h"
#include "jex/jexdbaccess.h"
#include "jex/jexdbgrids.h"

using namespace dcljexc;
using namespace jex;

namespace dcljexc::Jexregbd {
namespace {
ide::TUnitGuard Guard;

std::vector<rtl::TClass> StreamedClasses() {
    return {TjexSubQuery::StaticClass(), TjexSubTable::StaticClass(), TjexSubDataSource::StaticClass()};
}
} // namespace

void Start() {
    if (!Guard.Start()) return;
    rtl::RegisterClasses(StreamedClasses());
}

void Stop() {
    if (!Guard.Stop()) return;
    rtl::UnRegisterClasses(StreamedClasses());
}
} // namespace dcljexc::Jexregbd

JEX_PACKAGE_REGISTER(jexregbd) {
    ide::RegisterComponents("Jex Data Access", {TjexBDEAdapterReg::StaticClass()});
    ide::RegisterComponents("Jex BDE",
                            {TjexDBAppException::StaticClass(), TjexDBQryAppException::StaticClass(),
                             TjexLocalTable::StaticClass(), TjexLocalQuery::StaticClass(),
                             TjexLocalDatabase::StaticClass(), TjexDBIdleTime::StaticClass()});

    // The other property editor registrations of this unit come with the data-aware editors.
    ide::RegisterPropertyEditor(db::TParams::StaticClass()->ClassInfo(), TjexDBQueryGrid::StaticClass(),
                                "Params", ide::TCollectionProperty::StaticClass());

    ide::RegisterComponents("Jex BDE", {TjexLocalTable::StaticClass(), TjexLocalQuery::StaticClass(),
                                        TjexLocalDatabase::StaticClass(), TjexDBIdleTime::StaticClass()});
    ide::RegisterComponents("Jex BDE", {TjexDBTableGrid::StaticClass(), TjexDBQueryGrid::StaticClass()});
    ide::RegisterNoIcon(
        {TjexSubQuery::StaticClass(), TjexSubTable::StaticClass(), TjexSubDataSource::StaticClass()});

    // Component editor registrations of this unit come with the table builder and the grid, query and index
    // editors.

    jexRegisterPropertiesInCategory(
        TjexDBAppException::StaticClass(),
        {"ConfirmTerminate", "ExcepLog", "ExcepMsg", "LogTableName", "MsgTableName", "Terminate"});
    jexRegisterPropertiesInCategory(
        TjexDBQryAppException::StaticClass(),
        {"ConfirmTerminate", "ExcepLog", "ExcepMsg", "LogSQL", "MsgSQL", "Terminate"});
    jexRegisterPropertiesInCategory(TjexLocalTable::StaticClass(), {"DatabaseName", "LocalPath"});
    jexRegisterPropertiesInCategory(TjexLocalQuery::StaticClass(), {"DatabaseName", "LocalPath"});
    jexRegisterPropertiesInCategory(TjexLocalDatabase::StaticClass(), {"DatabaseName", "LocalPath"});
    jexRegisterPropertiesInCategory(TjexDBIdleTime::StaticClass(), {});
    jexRegisterPropertiesInCategory(TjexDBTableGrid::StaticClass(),
                                    {"A1DatabaseName", "A2TableName", "A3Active", "FixedCols", "GlyphColor",
                                     "Hints", "MoveBy", "NavAlign", "NavHeight", "NavSpeed",
                                     "VisibleButtons"});
    jexRegisterPropertiesInCategory(TjexDBQueryGrid::StaticClass(),
                                    {"A1DatabaseName", "A2SQL", "A3Active", "FixedCols", "GlyphColor",
                                     "Hints", "MoveBy", "NavAlign", "NavHeight", "NavSpeed",
                                     "VisibleButtons"});
}
