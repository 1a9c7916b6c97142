#include "host/entries/process.h"

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ostream>

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

void HidePasswords(int argc, char** argv) {
    constexpr const char* key = "password=";
    for (int i = 1; i < argc; ++i) {
        char* const user = std::strstr(argv[i], "://");
        char* const host = user == nullptr ? nullptr : std::strrchr(user, '@');
        char* const password = user == nullptr ? nullptr : std::strchr(user + 3, ':');
        if (host != nullptr && password != nullptr && password < host) std::fill(password + 1, host, 'x');
        for (char* at = argv[i]; (at = std::strstr(at, key)) != nullptr;) {
            at += std::strlen(key);
            std::fill(at, at + std::strcspn(at, "&"), 'x');
        }
    }
}

}  // namespace NolSchedCtls
