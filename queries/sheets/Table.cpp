#include "queries/sheets/Table.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <utf8proc.h>

#include "queries/sheets/Cell.h"
#include "queries/sheets/Totals.h"

namespace queries {
namespace {

constexpr std::size_t Gap = 2, Indent = 2;  // places between columns, and for each level of a tree

std::size_t PlacesOf(const std::string& text) {
    const auto* at = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
    auto left = static_cast<utf8proc_ssize_t>(text.size());
    std::size_t places = 0;
    while (left > 0) {
        utf8proc_int32_t letter = 0;
        const utf8proc_ssize_t bytes = std::max<utf8proc_ssize_t>(utf8proc_iterate(at, left, &letter), 1);
        places += static_cast<std::size_t>(std::max(0, utf8proc_charwidth(letter)));
        at += bytes;
        left -= bytes;
    }
    return places;
}

class Table {
  public:
    Table(const Sheet& sheet, std::ostream& out)
        : sheet_(sheet), out_(out), tree_(TreeColumn(sheet)), totals_(sheet) {}

    void Write() {
        Measure();
        out_ << sheet_.Title() << "\n\n";
        Line([this](std::size_t i) { return sheet_.Columns()[i].caption; });
        Rule();
        for (std::size_t row = 0; row < sheet_.Rows(); ++row)
            Line([this, row](std::size_t i) { return Cell(row, i); });
        if (!totals_.Any()) return;
        Rule();
        Line([this](std::size_t i) { return Total(i); });
    }

  private:
    std::string Cell(std::size_t row, std::size_t column) const {
        const std::string text = Shown(sheet_.Columns()[column].kind, sheet_.At(row, column));
        if (column != tree_) return text;
        return std::string(Indent * static_cast<std::size_t>(sheet_.Level(row)), ' ') + text;
    }
    std::string Total(std::size_t column) const {
        const Column& of = sheet_.Columns()[column];
        if (column == 0 && !of.totalled) return "Total";
        return Shown(of.kind, totals_.Of(column));
    }

    void Measure() {
        for (const Column& column : sheet_.Columns()) widths_.push_back(PlacesOf(column.caption));
        for (std::size_t row = 0; row < sheet_.Rows(); ++row) {
            totals_.Add(row);
            for (std::size_t i = 0; i < widths_.size(); ++i) Widen(i, Cell(row, i));
        }
        if (!totals_.Any()) return;
        for (std::size_t i = 0; i < widths_.size(); ++i) Widen(i, Total(i));
    }
    void Widen(std::size_t column, const std::string& text) {
        widths_[column] = std::max(widths_[column], PlacesOf(text));
    }

    template <class Text>
    void Line(Text&& textOf) {
        std::string line;
        std::size_t owed = 0;  // blanks before the next text: none stands at a line's end
        for (std::size_t i = 0; i < widths_.size(); ++i) {
            const std::string text = textOf(i);
            const std::size_t room = widths_[i] - PlacesOf(text);
            const bool right = IsFigure(sheet_.Columns()[i].kind);
            if (right) owed += room;
            if (!text.empty()) line += std::string(std::exchange(owed, 0), ' ') + text;
            owed += (right ? 0 : room) + Gap;
        }
        out_ << line << '\n';
    }
    void Rule() {
        Line([this](std::size_t i) { return std::string(widths_[i], '-'); });
    }

    const Sheet& sheet_;
    std::ostream& out_;
    std::size_t tree_;
    Totals totals_;
    std::vector<std::size_t> widths_;
};

}  // namespace

void WriteTable(const Sheet& sheet, std::ostream& out) {
    Table(sheet, out).Write();
}

}  // namespace queries
