#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/doors/Faults.h"
#include "host/make/CsvFile.h"

namespace host {

// Hears how many of the rows are done. What it raises ends the work.
using CheckProgress = std::function<void(std::size_t done, std::size_t all)>;

// The rows of a file of comma-separated text. What is none is one fault, at the line where it shows; there
// `column` names the field, counted from 0, where the reading stopped. Raises basic::Error for a file that
// cannot be read.
std::optional<std::vector<CsvRow>> ReadCsvFile(const std::filesystem::path& file, Faults& faults,
                                               const std::function<std::string(std::size_t)>& column);

// A column that a table may have, by the name at its head, which may have another.
struct Head {
    const char* name;
    bool needed = false;
    const char* other = nullptr;
};

// The rows of a table whose first row names the columns, in any order and without regard to case.
class CsvTable {
  public:
    // Blames a head that is none of `heads`, by its name, one that stands twice and one that is missing.
    CsvTable(const std::vector<CsvRow>& rows, const std::vector<Head>& heads, Faults& faults);

    class Row {
      public:
        // The cell under a head, blanks around it taken off, "" where the table lacks the column. One that
        // cannot be stored is blamed and reads "".
        std::string Text(std::size_t head);
        void Blame(std::size_t head, const std::string& reason);
        bool Has(std::size_t head) const;
        bool Whole() const { return whole_; }  // nothing was blamed
        int Line() const { return row_.line; }

      private:
        friend class CsvTable;
        Row(CsvTable& table, const CsvRow& row) : table_(table), row_(row) {}
        CsvTable& table_;
        const CsvRow& row_;
        bool whole_ = true;
    };

    // Gives each row that has as many fields as there are heads; any other is blamed. None where the heads do
    // not read.
    void ForEach(const std::function<void(Row&)>& take, const CheckProgress& progress);

  private:
    const std::vector<CsvRow>& rows_;
    const std::vector<Head>& heads_;
    Faults& faults_;
    std::vector<std::optional<std::size_t>> places_;  // of the heads, in the row
    bool reads_ = true;
};

}  // namespace host
