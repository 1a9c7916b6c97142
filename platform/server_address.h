// The addresses of stores on servers, whole and in parts.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace NolSchedCtls {

// Also of one that no server can have: what looks like an address, with a password perhaps, never becomes a
// file's name. A path that begins with "/" or "." is none.
bool IsServerAddress(std::string_view address);

// The address without its password and parameters. Throws StoreError for what is no address of a server,
// without the address: it may hold a password.
std::string NameOfServer(const std::string& address);
// Throws StoreError likewise for what libpq would not understand.
void CheckServerAddress(const std::string& address);

// As a person gives it, part by part. What is empty is left to libpq. Several hosts, and their ports, stand
// with commas between them.
struct ServerAddress {
    std::string host;
    std::string port;
    std::string database;
    std::string user;
    std::string password;
    std::vector<std::pair<std::string, std::string>> parameters;  // of the others, those that are no secret

    // As OpenDatabase takes it.
    std::string Text() const;
};

// Throws StoreError as these do.
ServerAddress ReadServerAddress(const std::string& address);

}  // namespace NolSchedCtls
