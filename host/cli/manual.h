// The man page of a command line, made from what its help tells.
#pragma once

#include <string>

namespace CLI {
class App;
}  // namespace CLI

namespace NolSchedCtls {

// As troff, in the macros of "man".
std::string ManualOf(const CLI::App& app);

}  // namespace NolSchedCtls
