// Jexpdbgr: the grid, query and index component editors. The unit has no start or stop work.
#include "dcljexc/units.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexpdbgr)
