// How the package's units take part in the initialization table: every unit has a guarded Start and Stop in
// namespace dcljexc::<Unit>, defined in the unit's own source file next to the rest of the unit.
#pragma once

#include "ide/package.h"

// Defines the guarded start and stop of a unit that has no start or stop work; the guard still counts, so
// the unit behaves like every other one however often the table is walked.
#define DCLJEXC_UNIT_WITHOUT_BODIES(Unit)                                                                    \
    namespace dcljexc::Unit {                                                                                \
    namespace {                                                                                              \
    ::ide::TUnitGuard Guard;                                                                                 \
    }                                                                                                        \
    void Start() {                                                                                           \
        Guard.Start();                                                                                       \
    }                                                                                                        \
    void Stop() {                                                                                            \
        Guard.Stop();                                                                                        \
    }                                                                                                        \
    }

namespace dcljexc {

// The module instance (the base address the package is mapped at), recorded by the main unit's entry when
// the module is mapped; nil before.
const void* HInstance();

} // namespace dcljexc
