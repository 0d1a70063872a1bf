#include "host/doors/CsvTable.h"

#include <algorithm>
#include <string_view>

#include "host/doors/Counted.h"
#include "host/doors/VoucherCells.h"
#include "platform/basic/Text.h"

namespace host {
namespace {

// What a text is that is none of fields between commas, "" where it may be one.
std::string OtherForm(std::string_view text) {
    const std::string_view begin = text.substr(0, 2);
    if (begin == "\xFF\xFE" || begin == "\xFE\xFF" ||
        (begin.size() == 2 && (begin[0] == 0) != (begin[1] == 0)))
        return "the file is UTF-16: save it as UTF-8";
    if (text.starts_with("PK\x03\x04")) return "the file is a spreadsheet: save it as comma-separated text";
    const std::string_view header = text.substr(0, text.find_first_of("\r\n"));
    if (header.find(',') != std::string_view::npos) return {};
    if (header.find(';') != std::string_view::npos)
        return "a semicolon stands between the fields where a comma belongs";
    if (header.find('\t') != std::string_view::npos)
        return "a tab stands between the fields where a comma belongs";
    return {};
}

std::string ListOf(const std::vector<Head>& heads) {
    std::string names;
    for (const Head& head : heads) names += (names.empty() ? "" : ", ") + std::string(head.name);
    return names;
}

}  // namespace

std::optional<std::vector<CsvRow>> ReadCsvFile(const std::filesystem::path& file, Faults& faults,
                                               const std::function<std::string(std::size_t)>& column) {
    const std::string text = FileText(file);
    try {
        const std::string other = OtherForm(text);
        if (other.empty()) return ParseCsv(text);
        faults.Add(1, column(0), other);
    } catch (const CsvError& error) {
        faults.Add(error.line, column(error.field), error.reason);
    }
    return {};
}

CsvTable::CsvTable(const std::vector<CsvRow>& rows, const std::vector<Head>& heads, Faults& faults)
    : rows_(rows), heads_(heads), faults_(faults), places_(heads.size()) {
    if (rows.empty()) {
        faults.Add(1, heads.front().name,
                   "the file is empty: its first line names the columns " + ListOf(heads));
        reads_ = false;
        return;
    }
    if (rows.size() == 1)
        faults.Add(rows.front().line, heads.front().name, "no row stands below the columns");
    const std::vector<std::string>& names = rows.front().fields;
    for (std::size_t field = 0; field < names.size(); ++field) {
        const std::string name = basic::Trim(names[field]), folded = basic::FoldCase(name);
        const auto head = std::find_if(heads.begin(), heads.end(), [&](const Head& one) {
            return folded == one.name || (one.other && folded == one.other);
        });
        std::string reason;
        if (head == heads.end())
            reason = "no such column is known; the columns are " + ListOf(heads);
        else if (std::optional<std::size_t>& place = places_[static_cast<std::size_t>(head - heads.begin())];
                 place)
            reason = "the column stands twice";
        else
            place = field;
        if (!reason.empty()) faults.Add(rows.front().line, Shown(name), reason);
        reads_ = reads_ && reason.empty();
    }
    for (std::size_t i = 0; i < heads.size(); ++i) {
        if (!heads[i].needed || places_[i]) continue;
        faults.Add(rows.front().line, heads[i].name, "the column is missing");
        reads_ = false;
    }
}

void CsvTable::ForEach(const std::function<void(Row&)>& take, const CheckProgress& progress) {
    if (!reads_) return;
    const std::size_t width = rows_.front().fields.size();
    for (std::size_t i = 1; i < rows_.size(); ++i) {
        Row row(*this, rows_[i]);
        const std::size_t fields = rows_[i].fields.size();
        if (fields == width)
            take(row);
        else
            faults_.Add(row.Line(), rows_.front().fields[std::min(fields, width - 1)],
                        Counted(fields, "field") + (fields == 1 ? " stands" : " stand") + " where " +
                            std::to_string(width) + " belong");
        progress(i, rows_.size());
    }
}

bool CsvTable::Row::Has(std::size_t head) const {
    return table_.places_[head].has_value();
}

std::string CsvTable::Row::Text(std::size_t head) {
    if (!Has(head)) return {};
    const std::string& cell = row_.fields[*table_.places_[head]];
    const std::string fault = TextFault(cell, false);
    if (fault.empty()) return basic::Trim(cell);
    Blame(head, fault);
    return {};
}

void CsvTable::Row::Blame(std::size_t head, const std::string& reason) {
    table_.faults_.Add(row_.line, table_.heads_[head].name, reason);
    whole_ = false;
}

}  // namespace host
