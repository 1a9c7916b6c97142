#include <pwd.h>
#include <unistd.h>

#include <QCoreApplication>
#include <iostream>

#include "host/cli/commands.h"

namespace {

std::string UserName() {
    const passwd* const user = getpwuid(geteuid());
    return user == nullptr ? "uid " + std::to_string(geteuid()) : user->pw_name;
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    NolSchedCtls::Terminal terminal{std::cin, std::cout, std::cerr, isatty(STDIN_FILENO) == 1, UserName()};
    return NolSchedCtls::RunNolsched({argv + 1, argv + argc}, terminal);
}
