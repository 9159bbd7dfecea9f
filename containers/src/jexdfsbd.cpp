// Jexdfsbd: the button bar's new-page-with-list dialog. The unit has no start or stop work.
#include "dcljexc/units.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexdfsbd)
