#include "bench/BareServer.h"

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <stdexcept>

#include <benchmark/benchmark.h>

#include "bench/BigBooks.h"
#include "bench/Ours.h"
#include "platform/ado/Maintenance.h"

namespace bench {
namespace {

std::string ServerUri() {
    const char* uri = std::getenv("QM_BENCH_SERVER");
    return uri == nullptr ? "" : uri;
}

std::uint64_t Bits(const char* bytes, int length) {
    std::uint64_t bits = 0;
    for (int at = 0; at < length; ++at) bits = bits << 8 | static_cast<unsigned char>(bytes[at]);
    return bits;
}

// The values of one column, as they are; Null has none.
struct PlainColumn {
    std::vector<std::uint64_t> numbers;
    std::string texts;
    std::vector<std::size_t> ends;

    void Add(const PGresult& row, int index) {
        constexpr Oid text = 25;
        const char* bytes = PQgetvalue(&row, 0, index);
        const int length = PQgetlength(&row, 0, index);
        if (PQftype(&row, index) == text) {
            texts.append(bytes, static_cast<std::size_t>(length));
            ends.push_back(texts.size());
        } else {
            numbers.push_back(Bits(bytes, length));
        }
    }
};

}  // namespace

double BareServer::Real(const Result& row, int column) {
    return std::bit_cast<double>(Bits(PQgetvalue(row.get(), 0, column), 8));
}

BareServer::BareServer(const std::string& uri) : connection_(PQconnectdb(uri.c_str())) {
    if (PQstatus(connection_) != CONNECTION_OK)
        throw std::runtime_error("bare library: " + std::string(PQerrorMessage(connection_)));
}

BareServer::Result BareServer::Checked(PGresult* result) {
    Result checked(result, PQclear);
    const ExecStatusType status = PQresultStatus(result);
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK && status != PGRES_SINGLE_TUPLE)
        throw std::runtime_error("bare library: " + std::string(PQerrorMessage(connection_)));
    return checked;
}

void BareServer::Run(const std::vector<std::string>& statements) {
    for (const std::string& statement : statements) Checked(PQexec(connection_, statement.c_str()));
}

void BareServer::Prepare(const char* name, const std::string& sql) {
    Checked(PQprepare(connection_, name, sql.c_str(), 0, nullptr));
}

BareServer::Result BareServer::Execute(const char* name, const std::vector<std::string>& values) {
    const char* texts[16] = {};
    for (std::size_t i = 0; i < values.size(); ++i) texts[i] = values[i].c_str();
    return Checked(
        PQexecPrepared(connection_, name, static_cast<int>(values.size()), texts, nullptr, nullptr, 1));
}

std::int64_t BareServer::ReadRows(const std::string& sql) {
    PQsendQueryParams(connection_, sql.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 1);
    PQsetSingleRowMode(connection_);
    std::vector<PlainColumn> columns;
    std::int64_t read = 0;
    while (PGresult* result = PQgetResult(connection_)) {
        const Result row = Checked(result);
        if (PQntuples(result) == 0) continue;
        ++read;
        columns.resize(static_cast<std::size_t>(PQnfields(result)));
        int index = 0;
        for (PlainColumn& column : columns) column.Add(*result, index++);
    }
    benchmark::DoNotOptimize(columns.data());
    return read;
}

bool HasServer() {
    return !ServerUri().empty();
}

std::string ServerBooksWith(std::int64_t rows, int copy) {
    static std::set<std::string> made;
    const std::string first = "rows" + std::to_string(rows), name = first + "_" + std::to_string(copy);
    BareServer server(ServerUri() + "postgres");
    if (made.insert(first).second) {
        Ours source(BooksWith(rows, Place::Disk, 1));
        ado::CopyBooks(source.Conn(), ServerUri() + first + "/");
        BareServer(ServerUri() + first).Run({"VACUUM ANALYZE"});
    }
    if (made.insert(name).second) server.Run({"CREATE DATABASE " + name + " TEMPLATE " + first});
    return ServerUri() + name;
}

}  // namespace bench
