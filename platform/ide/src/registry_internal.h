// Hooks between the design registries of this layer: each registry withdraws a module's entries when
// UnregisterModule asks, and tells the others when it changes.
#pragma once

#include "ide/modules.h"

namespace ide::detail {

void WithdrawPropertyEditors(TModuleHandle module);
void WithdrawComponentEditors(TModuleHandle module);
void WithdrawPalette(TModuleHandle module);
void WithdrawCategories(TModuleHandle module);
void WithdrawExperts(TModuleHandle module);
void WithdrawMenuItems(TModuleHandle module);

// Counts changes of the property editor and category registries, so views built from them can tell
// they are stale.
uint64_t RegistryGeneration();
void BumpRegistryGeneration();

// The standard property editors and categories, registered once under PlatformModule().
void EnsureStandardPropertyEditors();
void EnsureStandardCategories();

} // namespace ide::detail
