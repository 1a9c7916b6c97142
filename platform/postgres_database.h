// A store on a server, on PostgreSQL's own interface.
#pragma once

#include "platform/database.h"

namespace NolSchedCtls {

// Also of one that no server can have: what looks like an address, with a password perhaps, never becomes a
// file's name. A path that begins with "/" or "." is none.
bool IsServerAddress(std::string_view address);
// Throws StoreError for what is no address of a server, without the address: it may hold a password. A
// connection that breaks is opened anew when no transaction is open.
std::unique_ptr<Database> OpenServer(const std::string& address);

}  // namespace NolSchedCtls
