#include <unistd.h>

#include <iostream>

#include "host/cli/commands.h"
#include "host/cli/pause.h"
#include "host/entries/process.h"

int main(int argc, char** argv) {
    NolSchedCtls::OpenStandardStreams();
    std::ios::sync_with_stdio(false);  // else a failure to read standard input passes as its end
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    NolSchedCtls::HidePasswords(argc, argv);
    NolSchedCtls::Terminal terminal{
        std::cin, std::cout, std::cerr, isatty(STDIN_FILENO) == 1, {}, NolSchedCtls::PauseUnlessStopped};
    return NolSchedCtls::RunNolsched(arguments, terminal);
}
