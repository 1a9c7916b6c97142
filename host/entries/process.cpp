#include "host/entries/process.h"

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ostream>

#include "platform/server_address.h"

namespace NolSchedCtls {

void OpenStandardStreams() {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if (fcntl(stream, F_GETFD) >= 0) continue;
        // Takes the lowest number that is free: this one.
        if (open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) < 0) _exit(exitStore);
    }
}

void Flush(std::ostream& stream, std::string_view name) {
    if (!stream.flush()) throw OutputError(std::string(name) + ": " + std::strerror(errno));
}

std::string UserName() {
    const passwd* const user = getpwuid(geteuid());
    return user == nullptr ? "uid " + std::to_string(geteuid()) : user->pw_name;
}

// Rather too much than too little: from the ":" after the user to the last "@", and all parameters.
std::string WithoutPassword(std::string argument) {
    const std::size_t start = argument.starts_with("--") ? argument.find('=') + 1 : 0;
    if (!IsServerAddress(std::string_view(argument).substr(start))) return argument;
    const auto hide = [&argument](std::size_t before, std::size_t end) {
        for (; before < end && before + 1 < end; ++before) argument[before + 1] = 'x';
    };
    const std::size_t scheme = argument.find("://", start);
    const std::size_t user = scheme == std::string::npos ? start : scheme + 3;
    const std::size_t host = argument.rfind('@');
    if (host != std::string::npos) hide(argument.find(':', user), host);
    hide(argument.find_first_of("?=", start), argument.size());
    return argument;
}

void HidePasswords(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) std::ranges::copy(WithoutPassword(argv[i]), argv[i]);
}

}  // namespace NolSchedCtls
