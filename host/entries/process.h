// What a host asks of, and hides from, its own process.
#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>

namespace NolSchedCtls {

enum ExitStatus { exitDone = 0, exitRefused = 1, exitUsage = 2, exitStore = 3 };

// What was to be told is lost. No NolSchedError: it is no failure of the act that was telling it, and stops
// whatever it stops.
class OutputError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Gives each closed one of the three standard streams a descriptor that fails on use: else a store opened
// later would take its place, and get what is told. Call it first.
void OpenStandardStreams();

// Throws OutputError, with the stream's name and the trouble, unless all that was written has gone out.
void Flush(std::ostream& stream, std::string_view name);

// The name of the user that the process runs for; saves bear it.
std::string UserName();

// An argument as it may be told: of the address of a store without password and parameters, the letters
// replaced by "x".
std::string WithoutPassword(std::string argument);
// Overwrites the passwords of store addresses in the process's arguments, which other users can read. Read
// the arguments before.
void HidePasswords(int argc, char** argv);

}  // namespace NolSchedCtls
