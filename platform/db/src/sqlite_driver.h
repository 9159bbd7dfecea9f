// The SQLite storage driver, made by the driver registry.
#pragma once

#include <memory>

#include "db/dbdriver.h"

namespace db {

std::shared_ptr<TDbDriver> CreateSQLiteDriver();

} // namespace db
