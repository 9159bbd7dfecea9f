// Jexdfx32: the clip and resource data dialog of the dialog components. The unit has no start or stop work.
#include "dcljexc/units.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexdfx32)
