#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>
#include <sqlcipher/sqlite3.h>

#include "platform/ado/Connection.h"
#include "platform/ado/Errors.h"
#include "platform/ado/Recordset.h"
#include "platform/ado/store/PostgresFunctions.h"
#include "platform/ado/store/PostgresSchema.h"
#include "platform/basic/Error.h"
#include "platform/basic/Value.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/InChild.h"
#include "tests/support/Server.h"
#include "tests/support/TempFolder.h"

namespace ado::test {

// A voucher table like that of the books, two small ones, and a counter.
inline constexpr const char* tables = R"(
    CREATE TABLE tb_Ledger2001 (
        LedgerTrnNo       INTEGER CHECK (typeof(LedgerTrnNo) IN ('integer', 'null')),
        LedgerName        TEXT    CHECK (typeof(LedgerName) IN ('text', 'integer', 'null')),
        LedgerTxnDate     INTEGER CHECK (typeof(LedgerTxnDate) IN ('integer', 'null')),
        LedgerDrAmt       DOUBLE  CHECK (typeof(LedgerDrAmt) IN ('real', 'integer', 'null')),
        LedgerMcGenerated BOOLEAN NOT NULL ON CONFLICT REPLACE DEFAULT 0
            CHECK (typeof(LedgerMcGenerated) = 'integer' AND LedgerMcGenerated IN (0, 1)));
    CREATE INDEX ix_tb_Ledger2001_LedgerTxnDate ON tb_Ledger2001 (LedgerTxnDate);
    CREATE TABLE tblsysTPL (ParticularDr TEXT DEFAULT ' ', AmtDr DOUBLE DEFAULT 0, Type TEXT);
    CREATE TABLE Small (Id SMALLINT, Remark TEXT);
    CREATE TABLE Groups (Group_Id INTEGER PRIMARY KEY AUTOINCREMENT, Head TEXT);
)";

// A fresh store, as new books are: an encrypted file in a folder of its own, or a database of its own.
class TestStore {
  public:
    static constexpr const char* password = "it's a secret";

    explicit TestStore(const std::string& definitions = tables, bool onServer = ::test::OnServer()) {
        if (onServer)
            MakeDatabase(definitions);
        else
            Administer("PRAGMA journal_mode = WAL; BEGIN; " + definitions + "; COMMIT;");
    }
    TestStore(const TestStore&) = delete;
    TestStore& operator=(const TestStore&) = delete;

    const std::filesystem::path& Folder() const { return folder_.Path(); }
    std::string Path() const {  // of the file, or the data source that names the database
        return database_ ? database_->Uri() + "books.mdb" : (folder_ / "books.mdb").string();
    }

    ConnectionPtr Connect(const std::string& key = password) const {
        auto connection = std::make_shared<Connection>();
        connection->Properties("Data Source") = Path();
        connection->Properties("Jet OlEDB:Database Password") = key;
        connection->Open();
        return connection;
    }

    // A script in the store's own words, by whoever administers it.
    void Administer(const std::string& script) const {
        database_ ? database_->Run(script) : RunOnFile(script);
    }

    // Changes one byte of the file.
    void Flip(std::streamoff at) const {
        std::fstream file(Path(), std::ios::in | std::ios::out | std::ios::binary);
        file.seekg(at);
        const int byte = file.get();
        file.seekp(at);
        file.put(static_cast<char>(byte ^ 1));
    }

  private:
    void RunOnFile(const std::string& script) const {
        sqlite3* store = nullptr;
        sqlite3_open(Path().c_str(), &store);
        const int code = sqlite3_exec(store, ("PRAGMA key = 'it''s a secret'; " + script).c_str(), nullptr,
                                      nullptr, nullptr);
        const std::string message = sqlite3_errmsg(store);
        sqlite3_close(store);
        if (code != SQLITE_OK) throw std::runtime_error(message);
    }

    void MakeDatabase(const std::string& definitions) {
        database_.emplace();
        std::string script = ServerFunctions();
        for (const SchemaTable& table : ReadSchema(definitions)) script += PostgresDefinition(table);
        Administer(script);
    }

    ::test::TempFolder folder_;
    std::optional<::test::ServerDatabase> database_;
};

// The rows of a set from its current one, as "a|b a|b"; Null reads "-".
inline std::string RowsOf(Recordset& rows) {
    std::string all;
    for (; !rows.Eof(); rows.MoveNext()) {
        if (!all.empty()) all += " ";
        for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
            const basic::Value value = rows.Fields(i).Value();
            all += (i > 0 ? "|" : "") + (value.IsNull() ? std::string("-") : basic::ToText(value));
        }
    }
    return all;
}

inline std::string Rows(const ConnectionPtr& connection, const std::string& select) {
    return RowsOf(*connection->Execute(select));
}

inline std::int64_t Affected(const ConnectionPtr& connection, const std::string& statement) {
    std::int64_t count = -1;
    connection->Execute(statement, &count);
    return count;
}

// The errors that files of cases name; 0 is "none".
inline std::string NameOf(std::int32_t number) {
    static const std::map<std::int32_t, std::string> names{
        {0, "none"},
        {error::NoSuchTable, "NoSuchTable"},
        {error::UnknownName, "UnknownName"},
        {error::Statement, "Statement"},
        {error::BadValue, "BadValue"},
        {error::NoTransaction, "NoTransaction"},
        {error::ObjectClosed, "ObjectClosed"},
        {error::NoCurrentRecord, "NoCurrentRecord"},
        {error::BadArgument, "BadArgument"},
        {error::ItemNotFound, "ItemNotFound"},
        {error::NotUpdatable, "NotUpdatable"},
        {basic::error::Overflow, "Overflow"},
        {basic::error::DivisionByZero, "DivisionByZero"},
    };
    const auto name = names.find(number);
    return name == names.end() ? std::to_string(number) : name->second;
}

using ::test::ErrorOf;
using ::test::InChild;
using ::test::TextOfError;

inline std::int32_t ErrorOf(const ConnectionPtr& connection, const std::string& statement) {
    return ErrorOf([&] { connection->Execute(statement); });
}

}  // namespace ado::test
