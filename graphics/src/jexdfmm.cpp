// Jexdfmm: the media stream editor dialog, a multimedia designer that is not built. The unit has no start or
// stop work.
#include "dcljexc/units.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexdfmm)
