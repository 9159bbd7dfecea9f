// Jexpdbt: the data-aware name property editors (databases, tables, indexes, fields). The unit has no start
// or stop work.
#include "dcljexc/units.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexpdbt)
