#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <libpq-fe.h>
#include <unistd.h>

#include "platform/ado/store/PostgresFailure.h"
#include "platform/ado/store/PostgresFunctions.h"
#include "tests/support/Server.h"

namespace ado::test {

// A bare connection to the tests' server, in a schema of its own with the functions installed; the schema
// goes with it.
class ServerSession {
  public:
    ServerSession() : connection_(PQconnectdb((::test::ServerUri() + "postgres").c_str()), PQfinish) {
        if (PQstatus(connection_.get()) != CONNECTION_OK)
            throw std::runtime_error(PQerrorMessage(connection_.get()));
        const std::string schema = "functions_" + std::to_string(getpid());
        Run("SET client_min_messages = error");
        Run("DROP SCHEMA IF EXISTS " + schema + " CASCADE; CREATE SCHEMA " + schema);
        Run("SET search_path = " + schema);
        Run(ServerFunctions());
        drop_ = "DROP SCHEMA " + schema + " CASCADE";
    }
    ~ServerSession() { PQclear(PQexec(connection_.get(), drop_.c_str())); }
    ServerSession(const ServerSession&) = delete;
    ServerSession& operator=(const ServerSession&) = delete;

    // A script; what it raises is a basic::Error.
    void Run(const std::string& script) { Rows(PQexec(connection_.get(), script.c_str())); }
    // The first column of one statement's rows with texts for $1, $2, ...; Null reads "-".
    std::vector<std::string> Rows(const std::string& sql, const std::vector<std::string>& texts = {}) {
        std::vector<const char*> values;
        for (const std::string& text : texts) values.push_back(text.c_str());
        return Rows(PQexecParams(connection_.get(), sql.c_str(), static_cast<int>(values.size()), nullptr,
                                 values.data(), nullptr, nullptr, 0));
    }

  private:
    static std::vector<std::string> Rows(PGresult* raw) {
        const std::unique_ptr<PGresult, void (*)(PGresult*)> result(raw, PQclear);
        const auto field = [&](int code) {
            const char* text = PQresultErrorField(raw, code);
            return std::string(text == nullptr ? "" : text);
        };
        if (PQresultStatus(raw) == PGRES_FATAL_ERROR)
            throw PostgresFailure(field(PG_DIAG_SQLSTATE), field(PG_DIAG_MESSAGE_PRIMARY),
                                  field(PG_DIAG_MESSAGE_DETAIL));
        std::vector<std::string> rows;
        for (int row = 0; row < PQntuples(raw); ++row)
            rows.emplace_back(PQgetisnull(raw, row, 0) != 0 ? "-" : PQgetvalue(raw, row, 0));
        return rows;
    }

    std::unique_ptr<PGconn, void (*)(PGconn*)> connection_;
    std::string drop_;
};

}  // namespace ado::test
