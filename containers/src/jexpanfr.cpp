// Jexpanfr: the page frame component editor and page properties. The unit has no start or stop work.
#include "dcljexc/units.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexpanfr)
