#pragma once

#include <libpq-fe.h>

namespace ado {

// The server's library, each call by its own name. It is loaded when the first books on a server are opened,
// so that a host on a file neither needs it nor waits for it.
struct Libpq {
    static const Libpq& Get() {  // raises error::Unspecified where it is not installed
        static const Libpq calls = Load();
        return calls;
    }

#define QM_LIBPQ_CALLS(CALL)       \
    CALL(PQconninfoParse)          \
    CALL(PQconninfoFree)           \
    CALL(PQconnectStartParams)     \
    CALL(PQconnectPoll)            \
    CALL(PQsetErrorVerbosity)      \
    CALL(PQsetNoticeProcessor)     \
    CALL(PQstatus)                 \
    CALL(PQtransactionStatus)      \
    CALL(PQsocket)                 \
    CALL(PQerrorMessage)           \
    CALL(PQfinish)                 \
    CALL(PQsslInUse)               \
    CALL(PQconnectionUsedPassword) \
    CALL(PQbackendPID)             \
    CALL(PQgetCancel)              \
    CALL(PQcancel)                 \
    CALL(PQfreeCancel)             \
    CALL(PQenterPipelineMode)      \
    CALL(PQexitPipelineMode)       \
    CALL(PQexec)                   \
    CALL(PQsendQueryParams)        \
    CALL(PQsendPrepare)            \
    CALL(PQsendQueryPrepared)      \
    CALL(PQpipelineSync)           \
    CALL(PQsetSingleRowMode)       \
    CALL(PQgetResult)              \
    CALL(PQresultStatus)           \
    CALL(PQresultErrorField)       \
    CALL(PQclear)                  \
    CALL(PQntuples)                \
    CALL(PQnfields)                \
    CALL(PQftype)                  \
    CALL(PQgetisnull)              \
    CALL(PQgetlength)              \
    CALL(PQgetvalue)               \
    CALL(PQcmdTuples)              \
    CALL(PQconsumeInput)           \
    CALL(PQnotifies)               \
    CALL(PQfreemem)
#define QM_LIBPQ_CALL(name) decltype(&::name) name;
    QM_LIBPQ_CALLS(QM_LIBPQ_CALL)
#undef QM_LIBPQ_CALL

  private:
    static Libpq Load();
};

// What one statement gave, or one row of it.
struct FreeResult {
    void operator()(PGresult* result) const { Libpq::Get().PQclear(result); }
};

}  // namespace ado
