// Jexdfexq: the exception-log table builder dialog. The unit has no start or stop work.
#include "dcljexc/units.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexdfexq)
