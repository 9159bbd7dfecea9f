// Jexpbtns: the navigator panel, toolbar and button component editors. The unit has no start or stop work.
#include "dcljexc/units.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexpbtns)
