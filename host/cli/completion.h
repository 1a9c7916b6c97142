// The completion of a command line for bash, made from what its help tells.
#pragma once

#include <string>

namespace CLI {
class App;
}  // namespace CLI

namespace NolSchedCtls {

// What bash is to read.
std::string CompletionOf(const CLI::App& app);

}  // namespace NolSchedCtls
