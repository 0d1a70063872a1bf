#pragma once

#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include <sqlcipher/sqlite3.h>

#include "platform/ado/dialect/Catalog.h"
#include "platform/ado/store/SqlCipherSql.h"
#include "platform/basic/Text.h"

namespace ado::test {

// Tables in the memory of the plain library: tells the translator about them and takes what
// it made of a statement, so that nothing slips through that the store would refuse.
class PlainStore final : public Catalog {
  public:
    explicit PlainStore(const std::string& definitions) {
        sqlite3_open(":memory:", &db_);
        Run(definitions);
        const auto nothing = [](sqlite3_context* context, int, sqlite3_value**) {
            sqlite3_result_null(context);
        };
        for (const char* name : {"qm_like", "qm_ucase", "qm_left", "qm_cstr", "qm_div", "qm_bool", "qm_int",
                                 "qm_long", "qm_real", "qm_text", "qm_truth", "qm_like_sets", "qm_right",
                                 "qm_mid", "qm_len", "qm_trim", "qm_instr", "qm_join", "qm_mod"})
            sqlite3_create_function(db_, name, -1, SQLITE_UTF8, nullptr, nothing, nullptr, nullptr);
        sqlite3_create_function(db_, "qm_single", 2, SQLITE_UTF8, nullptr, nullptr, nothing,
                                [](sqlite3_context*) {});
        sqlite3_create_collation(db_, "QMTEXT", SQLITE_UTF8, nullptr,
                                 [](void*, int, const void*, int, const void*) { return 0; });
    }
    ~PlainStore() override { sqlite3_close(db_); }
    PlainStore(const PlainStore&) = delete;
    PlainStore& operator=(const PlainStore&) = delete;

    // Makes a table with the fields of another.
    void Copy(const std::string& from, const std::string& to) {
        Run("CREATE TABLE " + to + DefinitionOf(from));
    }

    const StoreSql& Sql() const override { return words_; }
    const TableInfo* Table(std::string_view name) override {
        auto& info = byFoldedName_[basic::FoldCase(name)];
        if (!info) info = Read(std::string(name));
        return info->columns.empty() ? nullptr : info.get();
    }

    // "" if the store takes the statement, else what it says.
    std::string Prepare(const std::string& sql) const {
        sqlite3_stmt* statement = nullptr;
        const int code = sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr);
        sqlite3_finalize(statement);
        return code == SQLITE_OK ? "" : sqlite3_errmsg(db_);
    }

  private:
    void Run(const std::string& sql) {
        if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(db_));
    }

    // What stands behind the table's name in its definition.
    std::string DefinitionOf(const std::string& table) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(db_,
                           "SELECT sql FROM sqlite_master WHERE type = 'table' AND lower(name) = lower(?)",
                           -1, &statement, nullptr);
        sqlite3_bind_text(statement, 1, table.c_str(), -1, SQLITE_TRANSIENT);
        std::string sql;
        if (sqlite3_step(statement) == SQLITE_ROW)
            sql = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
        sqlite3_finalize(statement);
        return sql.substr(sql.find('('));
    }

    std::unique_ptr<TableInfo> Read(const std::string& name) {
        auto info = std::make_unique<TableInfo>();
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(db_, ("PRAGMA table_info(\"" + basic::Replace(name, "\"", "\"\"") + "\")").c_str(),
                           -1, &statement, nullptr);
        info->name = name;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            const auto text = [&](int column) {
                return std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
            };
            static const std::map<std::string, ColumnType> types{{"BOOLEAN", ColumnType::Boolean},
                                                                 {"SMALLINT", ColumnType::Integer},
                                                                 {"INTEGER", ColumnType::Long},
                                                                 {"DOUBLE", ColumnType::Double},
                                                                 {"TEXT", ColumnType::Text}};
            info->columns.push_back({text(1), types.at(text(2)), false});
        }
        sqlite3_finalize(statement);
        return info;
    }

    sqlite3* db_ = nullptr;
    SqlCipherSql words_;
    std::map<std::string, std::unique_ptr<TableInfo>> byFoldedName_;
};

}  // namespace ado::test
