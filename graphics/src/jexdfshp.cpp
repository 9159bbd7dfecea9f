// Jexdfshp: the edge-bitmap designer, which is not built. The unit has no start or stop work.
#include "dcljexc/units.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexdfshp)
