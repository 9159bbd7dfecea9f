// Jexprch: the rich edit component editor and lines property editor. The unit has no start or stop work.
#include "dcljexc/units.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexprch)
