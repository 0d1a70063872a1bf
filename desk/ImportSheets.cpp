#include "desk/ImportSheets.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/basic/Text.h"

namespace desk {
namespace {

using queries::Kind;

constexpr std::size_t MostOfCell = 300, MostOfHead = 40;  // characters that are shown: a file may hold any

// What keeps a column's place is its name as far as it is made of letters.
std::string NameOf(const std::string& head, std::size_t number) {
    std::string name;
    for (const char letter : head.substr(0, MostOfHead))
        if (std::isalnum(static_cast<unsigned char>(letter)) != 0) name += letter;
    return name + std::to_string(number);
}

class FileRows final : public queries::Sheet {
  public:
    explicit FileRows(std::shared_ptr<const host::IncomingFile> file)
        : file_(std::move(file)), title_("Rows of " + file_->From().file.string()) {
        columns_.push_back({"line", "Line", Kind::Number});
        if (!file_->Faults().empty()) columns_.push_back({"fault", "What is wrong", Kind::Text});
        own_ = columns_.size();
        // With their numbers, which a fault may name; no language has words for them.
        for (const std::string& head : file_->Heads()) {
            const std::string number = std::to_string(columns_.size() - own_ + 1);
            columns_.push_back({NameOf(head, columns_.size()),
                                number + " " + basic::Left(basic::Trim(head), MostOfHead), Kind::Text});
        }
        for (const host::Fault& fault : file_->Faults()) {
            std::string& text = faults_[fault.line];
            text +=
                (text.empty() ? "" : "; ") + (fault.column.empty() ? "" : fault.column + ": ") + fault.reason;
        }
    }

    const std::string& Title() const override { return title_; }
    const std::vector<queries::Column>& Columns() const override { return columns_; }
    std::size_t Rows() const override { return file_->Rows().size(); }
    basic::Value At(std::size_t row, std::size_t column) const override {
        const host::CsvRow& read = file_->Rows().at(row);
        if (column == 0) return read.line;
        if (column < own_) {
            const auto fault = faults_.find(read.line);
            return fault == faults_.end() ? basic::Value() : basic::Value(fault->second);
        }
        const std::size_t field = column - own_;
        return field < read.fields.size() ? basic::Value(basic::Left(read.fields[field], MostOfCell))
                                          : basic::Value();
    }

  private:
    std::shared_ptr<const host::IncomingFile> file_;
    std::string title_;
    std::vector<queries::Column> columns_;
    std::size_t own_ = 0;  // columns that are not the file's
    std::map<int, std::string> faults_;
};

}  // namespace

std::shared_ptr<const queries::Sheet> FaultsSheet(const host::IncomingFile& file) {
    using host::Fault;
    static const std::vector<queries::Filled<Fault>> columns{
        {{"line", "Line", Kind::Number}, [](const Fault& fault) -> basic::Value { return fault.line; }},
        {{"column", "Column", Kind::Text}, [](const Fault& fault) -> basic::Value { return fault.column; }},
        {{"fault", "What is wrong", Kind::Text},
         [](const Fault& fault) -> basic::Value { return fault.reason; }},
    };
    return std::make_shared<queries::SheetOf<Fault>>(
        "Faults of " + file.From().file.string(), columns,
        std::vector<Fault>(file.Faults().begin(), file.Faults().end()));
}

std::shared_ptr<const queries::Sheet> RowsSheet(std::shared_ptr<const host::IncomingFile> file) {
    return std::make_shared<FileRows>(std::move(file));
}

std::optional<std::size_t> RowOfLine(const host::IncomingFile& file, int line) {
    const auto& rows = file.Rows();
    if (rows.empty() || (line == 1 && rows.front().line > 1)) return std::nullopt;
    const auto row =
        std::lower_bound(rows.begin(), rows.end(), line,
                         [](const host::CsvRow& each, int wanted) { return each.line < wanted; });
    if (row == rows.end()) return std::nullopt;
    return static_cast<std::size_t>(row - rows.begin());
}

std::optional<std::size_t> FaultOfLine(const host::IncomingFile& file, int line) {
    const auto fault = std::find_if(file.Faults().begin(), file.Faults().end(),
                                    [&](const host::Fault& each) { return each.line == line; });
    if (fault == file.Faults().end()) return std::nullopt;
    return static_cast<std::size_t>(fault - file.Faults().begin());
}

}  // namespace desk
