// A process that saves: the tests start their own program a second time.
#pragma once

#include <string>
#include <vector>

namespace NolSchedCtls::Testing {

// The whole program if the arguments are those of a saver; gives its exit status.
bool IsSaver(int argc, char** argv);
int RunSaver(char** argv);

// Starts a saver of `saves` saves (0: without end) of one entry, in turn as version "plain" with one override
// and as "full" with four. nId 0: of a new entry. Waits for its first save; gives its process id.
int StartSaver(const std::string& address, int nId, int saves);

// What stands in the store of that entry, "plain 1" or "full 4" if it is whole: its name and its override
// rows.
std::string Standing(const std::string& address, int nId);

}  // namespace NolSchedCtls::Testing
