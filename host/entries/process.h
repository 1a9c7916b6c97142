// What a host asks of, and hides from, its own process.
#pragma once

#include <string>

namespace NolSchedCtls {

enum ExitStatus { exitDone = 0, exitRefused = 1, exitUsage = 2, exitStore = 3 };

// The name of the user that the process runs for; saves bear it.
std::string UserName();

// Overwrites the passwords of store addresses in the process's arguments, which other users can read. Read
// the arguments before.
void HidePasswords(int argc, char** argv);

}  // namespace NolSchedCtls
