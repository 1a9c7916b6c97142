// A store on a server, on PostgreSQL's own interface.
#pragma once

#include "platform/database.h"

namespace NolSchedCtls {

// Throws StoreError for what is no address of a server, without the address: it may hold a password. A
// connection that breaks is opened anew when no transaction is open.
std::unique_ptr<Database> OpenServer(const std::string& address);

// Of this machine's library, whatever the server's: "libpq 15.4". Throws NolSchedError where it is not
// installed.
std::string ServerEngine();

}  // namespace NolSchedCtls
