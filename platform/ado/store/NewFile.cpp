#include <filesystem>

#include "platform/ado/Errors.h"
#include "platform/ado/dialect/Scope.h"
#include "platform/ado/store/NewStore.h"
#include "platform/ado/store/SqlCipherSchema.h"
#include "platform/ado/store/SqlHandle.h"
#include "platform/basic/Files.h"

namespace ado {
namespace {

class FileStore final : public NewStore {
  public:
    FileStore(const std::string& path, const std::string& password) : path_(path) {
        basic::MakePrivate(path);
        try {
            store_.Open(path);
            store_.GiveKey(password);
            store_.Run("PRAGMA journal_mode = WAL");
            store_.Run("BEGIN IMMEDIATE");
        } catch (...) {
            Remove();
            throw;
        }
    }
    ~FileStore() override {
        if (!finished_) Remove();
    }
    FileStore(const FileStore&) = delete;
    FileStore& operator=(const FileStore&) = delete;

    void BeginTable(const SchemaTable& table) override {
        table_ = table;
        store_.Run(SqlCipherDefinition(table));
        std::string places;
        for (std::size_t i = 1; i <= table.columns.size(); ++i)
            places += (i > 1 ? ", ?" : "?") + std::to_string(i);
        insert_ = store_.Prepare("INSERT INTO " + QuotedName(table.name) + " (" + ColumnList(table) +
                                 ") VALUES (" + places + ")");
    }
    void Add(const EngineStatement& row) override {
        for (int i = 0; i < static_cast<int>(table_.columns.size()); ++i) {
            switch (row.Kind(i)) {
                case CellKind::Null:
                    insert_->BindNull(i + 1);
                    break;
                case CellKind::Integer:
                    insert_->BindInteger(i + 1, row.Integer(i));
                    break;
                case CellKind::Real:
                    insert_->BindReal(i + 1, row.Real(i));
                    break;
                case CellKind::Text:
                    insert_->BindText(i + 1, row.Text(i));
                    break;
            }
        }
        insert_->Step();
        insert_->Reset();
    }
    void EndTable() override {
        insert_.reset();
        store_.Run(IndexDefinitions(table_));
        if (table_.counted == 0) return;
        const std::string row = " FROM sqlite_sequence WHERE name = '" + table_.name + "'";
        store_.Run("DELETE" + row + "; INSERT INTO sqlite_sequence (name, seq) VALUES ('" + table_.name +
                   "', " + std::to_string(table_.counted) + ")");
    }
    std::unique_ptr<EngineStatement> Rows(const SchemaTable& table) override {
        return store_.Prepare("SELECT " + ColumnList(table) + " FROM " + QuotedName(table.name) +
                              " ORDER BY rowid");
    }
    void Finish() override {
        store_.Run("COMMIT");
        store_.Run("PRAGMA wal_checkpoint(TRUNCATE)");
        store_.Close();
        basic::SyncToDisk(path_);
        finished_ = true;
    }

  private:
    void Remove() noexcept {
        insert_.reset();
        store_.Close();
        std::error_code ignored;
        for (const char* suffix : {"", "-wal", "-shm", "-journal"})
            std::filesystem::remove(path_ + suffix, ignored);
    }

    std::string path_;
    SqlHandle store_;
    SchemaTable table_;
    std::unique_ptr<EngineStatement> insert_;
    bool finished_ = false;
};

}  // namespace

std::unique_ptr<NewStore> NewFile(const std::string& path, const std::string& password) {
    if (std::filesystem::exists(std::filesystem::symlink_status(path)))
        throw basic::Error(error::BadArgument, "The file '" + path + "' exists; a copy never overwrites.",
                           "ado.Maintenance");
    return std::make_unique<FileStore>(path, password);
}

}  // namespace ado
