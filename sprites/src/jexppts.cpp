// Jexppts: the point list property editor and dialog. The unit has no start or stop work.
#include "dcljexc/units.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexppts)
