// The client's library of a PostgreSQL server: it draws in a dozen others, which a start that opens a file
// does without.
#pragma once

#include <libpq-fe.h>

#include "platform/on_demand.h"

namespace NolSchedCtls::Libpq {

#define NOLSCHED_LIBPQ(name) NOLSCHED_ON_DEMAND("libpq.so.5", name)

NOLSCHED_LIBPQ(PQbackendPID);
NOLSCHED_LIBPQ(PQcancel);
NOLSCHED_LIBPQ(PQclear);
NOLSCHED_LIBPQ(PQcmdStatus);
NOLSCHED_LIBPQ(PQcmdTuples);
NOLSCHED_LIBPQ(PQconnectdbParams);
NOLSCHED_LIBPQ(PQconninfoFree);
NOLSCHED_LIBPQ(PQconninfoParse);
NOLSCHED_LIBPQ(PQconsumeInput);
NOLSCHED_LIBPQ(PQerrorMessage);
NOLSCHED_LIBPQ(PQescapeLiteral);
NOLSCHED_LIBPQ(PQfinish);
NOLSCHED_LIBPQ(PQfname);
NOLSCHED_LIBPQ(PQfreeCancel);
NOLSCHED_LIBPQ(PQfreemem);
NOLSCHED_LIBPQ(PQftype);
NOLSCHED_LIBPQ(PQgetCancel);
NOLSCHED_LIBPQ(PQgetResult);
NOLSCHED_LIBPQ(PQgetisnull);
NOLSCHED_LIBPQ(PQgetlength);
NOLSCHED_LIBPQ(PQgetvalue);
NOLSCHED_LIBPQ(PQisBusy);
NOLSCHED_LIBPQ(PQlibVersion);
NOLSCHED_LIBPQ(PQnfields);
NOLSCHED_LIBPQ(PQnotifies);
NOLSCHED_LIBPQ(PQntuples);
NOLSCHED_LIBPQ(PQreset);
NOLSCHED_LIBPQ(PQresultErrorField);
NOLSCHED_LIBPQ(PQresultErrorMessage);
NOLSCHED_LIBPQ(PQresultStatus);
NOLSCHED_LIBPQ(PQsendQuery);
NOLSCHED_LIBPQ(PQsendQueryParams);
NOLSCHED_LIBPQ(PQsetNoticeProcessor);
NOLSCHED_LIBPQ(PQsocket);
NOLSCHED_LIBPQ(PQstatus);

#undef NOLSCHED_LIBPQ

}  // namespace NolSchedCtls::Libpq
