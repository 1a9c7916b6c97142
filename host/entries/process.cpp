#include "host/entries/process.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

namespace NolSchedCtls {

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
