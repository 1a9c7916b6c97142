// A store in a file, on SQLite's own interface.
#pragma once

#include "platform/database.h"

namespace NolSchedCtls {

std::unique_ptr<Database> OpenFile(const std::string& path, MissingStore missing);

// As it runs: "SQLite 3.40.1".
std::string FileEngine();

}  // namespace NolSchedCtls
