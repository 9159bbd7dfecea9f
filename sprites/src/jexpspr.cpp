// Jexpspr: the sprite list editor and the registry of sprite classes it offers (jexRegisterSpriteClass).
#include "dcljexc/units.h"

namespace dcljexc::Jexpspr {
namespace {
ide::TUnitGuard Guard;
} // namespace

void Start() {
    Guard.Start();
}

void Stop() {
    if (!Guard.Stop()) return;
    // The two lists kept by jexRegisterSpriteClass (display names and classes) are freed and set to nil here.
}

} // namespace dcljexc::Jexpspr
