#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include <sqlcipher/sqlite3.h>

// The bare library on a books file, used as well as it can be: statements prepared once, values bound,
// nothing in between. The figures are ratios to this.
namespace bench {

class BareStatement {
  public:
    BareStatement(sqlite3* db, const std::string& sql);
    ~BareStatement() { sqlite3_finalize(statement_); }
    BareStatement(const BareStatement&) = delete;
    BareStatement& operator=(const BareStatement&) = delete;

    BareStatement& Bind(int index, std::int64_t value);
    BareStatement& Bind(int index, double value);
    BareStatement& Bind(int index, const std::string& text);
    bool Step();  // True: a row stands
    void Run();   // steps to the end and resets
    void Reset() { sqlite3_reset(statement_); }
    std::int64_t Integer(int column) const { return sqlite3_column_int64(statement_, column); }
    double Real(int column) const { return sqlite3_column_double(statement_, column); }
    const unsigned char* Text(int column) const { return sqlite3_column_text(statement_, column); }
    int Columns() const { return sqlite3_column_count(statement_); }

  private:
    sqlite3_stmt* statement_ = nullptr;
};

// Reads every column of all rows as a text, as a list on the screen does, and gives the number of the rows.
std::int64_t ReadTexts(BareStatement& rows);

class Bare {
  public:
    // `durable` makes each commit wait for the disk.
    explicit Bare(const std::filesystem::path& folder, bool durable = true);
    ~Bare() { sqlite3_close(db_); }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

    sqlite3* Db() const { return db_; }
    void Run(const std::string& sql);

  private:
    sqlite3* db_ = nullptr;
};

}  // namespace bench
