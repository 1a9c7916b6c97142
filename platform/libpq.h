// The server's library, loaded when a server is first asked for: it draws in a dozen others, and a start that
// opens a file takes a third of the time without them.
#pragma once

#include <dlfcn.h>
#include <libpq-fe.h>

#include <string>

#include "platform/database.h"

namespace NolSchedCtls::Libpq {

inline void* Symbol(const char* name) {
    static void* const library = dlopen("libpq.so.5", RTLD_NOW | RTLD_LOCAL);
    void* const symbol = library == nullptr ? nullptr : dlsym(library, name);
    if (symbol == nullptr)
        throw StoreError("The library of PostgreSQL servers cannot be loaded: " + std::string(dlerror()));
    return symbol;
}

// An object, so that a call does not find the function of the same name outside.
#define NOLSCHED_ON_DEMAND(name)                                                       \
    inline constexpr auto name = [](auto... given) {                                   \
        static const auto loaded = reinterpret_cast<decltype(&::name)>(Symbol(#name)); \
        return loaded(given...);                                                       \
    }

NOLSCHED_ON_DEMAND(PQcancel);
NOLSCHED_ON_DEMAND(PQclear);
NOLSCHED_ON_DEMAND(PQcmdStatus);
NOLSCHED_ON_DEMAND(PQcmdTuples);
NOLSCHED_ON_DEMAND(PQconnectdbParams);
NOLSCHED_ON_DEMAND(PQconninfoFree);
NOLSCHED_ON_DEMAND(PQconninfoParse);
NOLSCHED_ON_DEMAND(PQconsumeInput);
NOLSCHED_ON_DEMAND(PQerrorMessage);
NOLSCHED_ON_DEMAND(PQescapeLiteral);
NOLSCHED_ON_DEMAND(PQfinish);
NOLSCHED_ON_DEMAND(PQfname);
NOLSCHED_ON_DEMAND(PQfreeCancel);
NOLSCHED_ON_DEMAND(PQfreemem);
NOLSCHED_ON_DEMAND(PQftype);
NOLSCHED_ON_DEMAND(PQgetCancel);
NOLSCHED_ON_DEMAND(PQgetResult);
NOLSCHED_ON_DEMAND(PQgetisnull);
NOLSCHED_ON_DEMAND(PQgetlength);
NOLSCHED_ON_DEMAND(PQgetvalue);
NOLSCHED_ON_DEMAND(PQisBusy);
NOLSCHED_ON_DEMAND(PQnfields);
NOLSCHED_ON_DEMAND(PQntuples);
NOLSCHED_ON_DEMAND(PQreset);
NOLSCHED_ON_DEMAND(PQresultErrorField);
NOLSCHED_ON_DEMAND(PQresultErrorMessage);
NOLSCHED_ON_DEMAND(PQresultStatus);
NOLSCHED_ON_DEMAND(PQsendQuery);
NOLSCHED_ON_DEMAND(PQsendQueryParams);
NOLSCHED_ON_DEMAND(PQsetNoticeProcessor);
NOLSCHED_ON_DEMAND(PQsocket);
NOLSCHED_ON_DEMAND(PQstatus);

#undef NOLSCHED_ON_DEMAND

}  // namespace NolSchedCtls::Libpq
