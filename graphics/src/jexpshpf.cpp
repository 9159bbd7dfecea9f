// Jexpshpf: the shaped button and shaped form editors, which are not built. The unit has no start or stop
// work.
#include "dcljexc/units.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexpshpf)
