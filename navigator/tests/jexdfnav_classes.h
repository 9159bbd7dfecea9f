// The classes of the navigator button catalogue made creatable by name for the life of the object, as
// the package's registration units make them: the wizard finds a kind's class through the class registry.
#pragma once

#include <vector>

#include "jex/jexbuttons.h"
#include "jex/jexnav.h"
#include "rtl/classes.h"

namespace navtest {

class TNavClassesScope {
public:
    TNavClassesScope() {
        using namespace jex;
        for (rtl::TClass c :
             {TjexnpFirst::StaticClass(), TjexnpJumpBack::StaticClass(), TjexnpPrev::StaticClass(),
              TjexnpNext::StaticClass(), TjexnpJumpFwd::StaticClass(), TjexnpLast::StaticClass(),
              TjexnpInsert::StaticClass(), TjexnpAppend::StaticClass(), TjexnpDuplicateRec::StaticClass(),
              TjexnpEdit::StaticClass(), TjexnpDataSourceEdit::StaticClass(), TjexnpBlobEdit::StaticClass(),
              TjexnpFindReplace::StaticClass(), TjexnpDelete::StaticClass(), TjexnpCancel::StaticClass(),
              TjexnpPost::StaticClass(), TjexnpRefresh::StaticClass(), TjexnpEmptyTable::StaticClass(),
              TjexnpBookmark::StaticClass(), TjexnpBookmarkMenu::StaticClass(), TjexnpFindKey::StaticClass(),
              TjexnpIndexCombo::StaticClass(), TjexnpRange::StaticClass(), TjexnpRangeEdit::StaticClass(),
              TjexnpFilterActive::StaticClass(), TjexnpFilterExpression::StaticClass(),
              TjexnpSQLStartTrans::StaticClass(), TjexnpSQLCommit::StaticClass(),
              TjexnpSQLRollback::StaticClass(), TjexnpQueryParams::StaticClass(), TjexnpDBInfo::StaticClass(),
              TjexnpState::StaticClass(), TjexnpRecordCount::StaticClass(), TjexPicSpeedBtn::StaticClass(),
              TjexToggleBtn::StaticClass()})
            if (rtl::RegisteredClassCount(c->ClassName()) == 0) {
                rtl::RegisterClass(c);
                FRegistered.push_back(c);
            }
    }
    ~TNavClassesScope() {
        for (rtl::TClass c : FRegistered)
            rtl::UnRegisterClass(c);
    }
    TNavClassesScope(const TNavClassesScope&) = delete;
    TNavClassesScope& operator=(const TNavClassesScope&) = delete;

private:
    std::vector<rtl::TClass> FRegistered;
};

} // namespace navtest
