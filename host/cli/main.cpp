#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>

#include "NolSchedCtls/base/text.h"
#include "host/cli/commands.h"
#include "host/cli/line_editor.h"
#include "host/cli/pause.h"
#include "host/entries/process.h"

namespace {

// Of standard output; 0 for no terminal, or one that tells none. A user may set another one.
std::size_t TerminalWidth() {
    winsize size{};
    if (isatty(STDOUT_FILENO) == 0) return 0;
    const char* const set = std::getenv("COLUMNS");
    if (const auto columns = NolSchedCtls::ParseWhole(set == nullptr ? "" : set); columns && *columns > 0)
        return static_cast<std::size_t>(*columns);
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

}  // namespace

int main(int argc, char** argv) {
    NolSchedCtls::OpenStandardStreams();
    std::ios::sync_with_stdio(false);  // else a failure to read standard input passes as its end
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    NolSchedCtls::HidePasswords(argc, argv);
    NolSchedCtls::Terminal terminal{std::cin,
                                    std::cout,
                                    std::cerr,
                                    isatty(STDIN_FILENO) == 1,
                                    {},
                                    NolSchedCtls::PauseUnlessStopped,
                                    TerminalWidth(),
                                    NolSchedCtls::MakeLineEditor,
                                    NolSchedCtls::TakeInterrupt};
    return NolSchedCtls::RunNolsched(arguments, terminal);
}
