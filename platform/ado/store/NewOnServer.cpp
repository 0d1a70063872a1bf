#include <charconv>
#include <optional>

#include "platform/ado/Errors.h"
#include "platform/ado/dialect/Refusal.h"
#include "platform/ado/dialect/Scope.h"
#include "platform/ado/store/NewStore.h"
#include "platform/ado/store/PostgresEngine.h"
#include "platform/ado/store/PostgresFunctions.h"
#include "platform/ado/store/PostgresSchema.h"
#include "platform/ado/store/ServerAddress.h"
#include "platform/basic/Files.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

constexpr std::size_t RowsAtOnce = 1000;

// One column's cells of several rows as the server reads an array.
class Cells {
  public:
    void Add(const EngineStatement& row, int column) {
        text_ += text_.empty() ? "{" : ",";
        char exact[32];
        switch (row.Kind(column)) {
            case CellKind::Null:
                text_ += "NULL";
                break;
            case CellKind::Integer:
                text_ += std::to_string(row.Integer(column));
                break;
            case CellKind::Real:
                text_.append(exact, std::to_chars(exact, exact + sizeof exact, row.Real(column)).ptr);
                break;
            case CellKind::Text:
                AddQuoted(row.Text(column));
                break;
        }
    }
    std::string Take() { return std::exchange(text_, {}) + "}"; }

  private:
    void AddQuoted(std::string_view text) {
        text_ += '"';
        for (const char c : text) {
            if (c == '"' || c == '\\') text_ += '\\';
            text_ += c;
        }
        text_ += '"';
    }
    std::string text_;
};

const char* ArrayOf(ColumnType type) {
    switch (type) {
        case ColumnType::Double:
            return "::text::double precision[]";
        case ColumnType::Text:
            return "::text::text[]";
        default:
            return "::text::bigint[]";
    }
}

std::string CastOf(ColumnType type) {
    if (type == ColumnType::Boolean) return "::integer::boolean";
    return type == ColumnType::Integer ? "::smallint" : type == ColumnType::Long ? "::integer" : "";
}

// Brings many rows along in one statement.
std::string InsertOf(const SchemaTable& table) {
    std::string values, arrays, names;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const std::string separator = i > 0 ? ", " : "", name = "c" + std::to_string(i);
        values += separator + name + CastOf(table.columns[i].type);
        arrays += separator + "$" + std::to_string(i + 1) + ArrayOf(table.columns[i].type);
        names += separator + name;
    }
    return "INSERT INTO " + QuotedName(table.name) + " (" + ColumnList(table) + ") SELECT " + values +
           " FROM unnest(" + arrays + ") WITH ORDINALITY AS rows(" + names + ", place) ORDER BY place";
}

class ServerStore final : public NewStore {
  public:
    ServerStore(const std::string& source, bool roles, Standing standing)
        : address_(ReadServerAddress(source.ends_with("/") ? source : source + "/")) {
        constexpr std::size_t roleEnding = 6;
        if (roles && Setting("dbname").size() + roleEnding > LongestServerName)
            Refuse(error::BadArgument,
                   "The name of the database is too long for its roles, NAME_books and NAME_read");
        try {
            Connect();
            server_.Begin();  // another that makes books in the same database waits here, and then finds them
            RefuseOtherEncoding();
            if (standing == Standing::SetAside && Taken())
                MakeBeside();
            else
                RefuseTaken();
            if (roles) MakeRoles(Ask("SELECT current_database()::text"));
            server_.Script(ServerFunctions());
        } catch (...) {
            TakeAway();
            throw;
        }
    }
    ~ServerStore() override { TakeAway(); }
    ServerStore(const ServerStore&) = delete;
    ServerStore& operator=(const ServerStore&) = delete;

    void BeginTable(const SchemaTable& table) override {
        table_ = table;
        SchemaTable bare = table;
        bare.indexes.clear();
        server_.Script(PostgresDefinition(bare));
        cells_.assign(table.columns.size(), {});
        insert_ = server_.Prepare(InsertOf(table));
    }
    void Add(const EngineStatement& row) override {
        for (std::size_t i = 0; i < cells_.size(); ++i) cells_[i].Add(row, static_cast<int>(i));
        if (++waiting_ == RowsAtOnce) Send();
    }
    void EndTable() override {
        Send();
        insert_.reset();
        server_.Script(PostgresIndexes(table_));
        if (table_.counted > 0)
            server_.Script("UPDATE qm_counter SET last = " + std::to_string(table_.counted) +
                           " WHERE name = '" + table_.name + "'");
    }
    std::unique_ptr<EngineStatement> Rows(const SchemaTable& table) override {
        return server_.Prepare("SELECT " + ColumnList(table) + " FROM " + QuotedName(table.name) +
                               " ORDER BY rowid");
    }
    void Finish() override {
        server_.Commit();
        if (old_.empty()) made_.reset();
        SkipFailure([&] { server_.Script("VACUUM ANALYZE"); });  // so that sums are read from an index alone
        server_.Close();
        if (!old_.empty()) TakePlace();
    }
    std::string SetAside() const override { return aside_; }

  private:
    template <class Work>
    static void SkipFailure(Work work) noexcept {
        try {
            work();
        } catch (const basic::Error&) {
            return;
        }
    }

    std::string Setting(std::string_view name) const {
        for (const auto& [its, value] : address_.settings)
            if (its == name) return value;
        return "";
    }
    // The same server, and the database that each one has.
    ServerAddress Administration() const {
        ServerAddress address = address_;
        std::erase_if(address.settings, [](const auto& setting) { return setting.first == "dbname"; });
        address.settings.emplace_back("dbname", "postgres");
        return address;
    }

    // To the database, which is made where there is none.
    void Connect() {
        try {
            server_.Connect(address_);
            return;
        } catch (const basic::Error& failure) {
            if (failure.Number != error::FileNotFound || Setting("dbname").empty()) throw;
        }
        Make(Setting("dbname"));
    }

    void Make(const std::string& name) {
        Administrate("CREATE DATABASE " + QuotedName(name) +
                     " TEMPLATE template0 ENCODING 'UTF8' LOCALE 'C'");
        made_ = name;
        server_.Connect(address_);
    }

    void Administrate(const std::string& sql) const {
        PostgresEngine server;
        server.Connect(Administration());
        server.Script(sql);
    }

    // Leaves the books that stand, for a new database beside them that has their roles and what these set in
    // it. One that a killed program left is taken away.
    void MakeBeside() {
        old_ = Ask("SELECT current_database()::text");
        const std::string beside = old_ + "-new", name = "'" + basic::Replace(old_, "'", "''") + "'";
        const bool roles =
            !Ask("SELECT 1::text FROM pg_database JOIN pg_roles ON pg_roles.oid = datdba WHERE "
                 "datname = " +
                 name + " AND rolname = " + name + " || '_books'")
                 .empty();
        const std::string settings =
            Ask("SELECT string_agg(format('ALTER ROLE %I IN DATABASE %s SET %I TO %L', rolname, '" +
                basic::Replace(QuotedName(beside), "'", "''") +
                "', split_part(setting, '=', 1), substr(setting, strpos(setting, '=') + 1)), '; ') FROM "
                "pg_db_role_setting JOIN pg_roles ON pg_roles.oid = setrole JOIN pg_database ON "
                "pg_database.oid = setdatabase, unnest(setconfig) AS setting WHERE datname = " +
                name);
        server_.Rollback();
        server_.Close();
        std::erase_if(address_.settings, [](const auto& setting) { return setting.first == "dbname"; });
        address_.settings.emplace_back("dbname", beside);
        Administrate("DROP DATABASE IF EXISTS " + QuotedName(beside));
        Make(beside);
        server_.Begin();
        if (!settings.empty()) server_.Script(settings);
        if (roles) UseRoles(old_);
    }

    // Both get their names, or neither.
    void TakePlace() {
        const std::string aside = basic::DatedName(old_).string();
        Administrate("BEGIN; ALTER DATABASE " + QuotedName(old_) + " RENAME TO " + QuotedName(aside) +
                     "; ALTER DATABASE " + QuotedName(*made_) + " RENAME TO " + QuotedName(old_) +
                     "; COMMIT");
        made_.reset();
        aside_ = aside;
    }

    std::string Ask(const std::string& sql) {
        const auto rows = server_.Prepare(sql);
        return rows->Step() ? std::string(rows->Text(0)) : "";
    }

    void RefuseOtherEncoding() {
        if (Ask("SELECT current_setting('server_encoding')") != "UTF8")
            Refuse(error::BadArgument,
                   "The database at '" + address_.shown + "' does not keep its texts as UTF-8");
    }
    bool Taken() {
        return !Ask("SELECT tablename::text FROM pg_tables WHERE schemaname = current_schema()").empty();
    }
    void RefuseTaken() {
        if (Taken())
            Refuse(error::BadArgument,
                   "The database at '" + address_.shown + "' holds tables already; nothing was changed");
    }

    // Who writes and who reads. Everything belongs to those who write, so that a table made by one is
    // everyone's.
    void MakeRoles(const std::string& name) {
        server_.Script("CREATE ROLE " + QuotedName(name + "_books") + " NOLOGIN; CREATE ROLE " +
                       QuotedName(name + "_read") + " NOLOGIN");
        UseRoles(name);
    }
    void UseRoles(const std::string& name) {
        const std::string books = QuotedName(name + "_books"), read = QuotedName(name + "_read"),
                          database = QuotedName(Ask("SELECT current_database()::text"));
        server_.Script("GRANT " + books + " TO CURRENT_USER; REVOKE ALL ON DATABASE " + database +
                       " FROM PUBLIC; GRANT CONNECT ON DATABASE " + database + " TO " + books + ", " + read +
                       "; ALTER DATABASE " + database + " OWNER TO " + books + "; SET LOCAL ROLE " + books +
                       "; GRANT USAGE ON SCHEMA public TO " + read +
                       "; ALTER DEFAULT PRIVILEGES GRANT SELECT ON TABLES TO " + read);
    }

    void Send() {
        if (waiting_ == 0) return;
        waiting_ = 0;
        try {
            for (std::size_t i = 0; i < cells_.size(); ++i)
                insert_->BindText(static_cast<int>(i) + 1, cells_[i].Take());
            insert_->Step();
            insert_->Reset();
        } catch (basic::Error& failure) {
            failure.Description += " (Table '" + table_.name + "'.)";
            throw;
        }
    }

    void TakeAway() noexcept {
        if (!made_) return;
        insert_.reset();
        SkipFailure([&] { server_.Rollback(); });
        SkipFailure([&] { server_.Close(); });
        SkipFailure([&] { Administrate("DROP DATABASE " + QuotedName(*made_)); });
        made_.reset();
    }

    ServerAddress address_;
    PostgresEngine server_;
    std::optional<std::string> made_;  // the database, until it stands
    std::string old_, aside_;          // that of the books that stand, and the name that it gets
    SchemaTable table_;
    std::unique_ptr<EngineStatement> insert_;
    std::vector<Cells> cells_;
    std::size_t waiting_ = 0;  // rows in them
};

}  // namespace

std::unique_ptr<NewStore> NewOnServer(const std::string& source, bool roles, Standing standing) {
    return std::make_unique<ServerStore>(source, roles, standing);
}

}  // namespace ado
