#include "queries/sheets/Page.h"

#include <algorithm>
#include <string>

#include "platform/basic/Error.h"
#include "platform/basic/Text.h"
#include "queries/sheets/Cell.h"
#include "queries/sheets/Totals.h"

namespace queries {
namespace {

std::string Escaped(const std::string& text) {
    if (text.find_first_of("&<>") == std::string::npos) return text;
    return basic::Replace(basic::Replace(basic::Replace(text, "&", "&amp;"), "<", "&lt;"), ">", "&gt;");
}

class Page {
  public:
    explicit Page(const Sheet& sheet) : sheet_(sheet), totals_(sheet), tree_(TreeColumn(sheet)) {}

    std::string Text() {
        const auto& columns = sheet_.Columns();
        // Texts take what is left of the page; figures alone would leave it before the last of them.
        const bool hasTexts =
            std::ranges::any_of(columns, [](const Column& column) { return column.kind == Kind::Text; });
        text_ = "<html><body><p align='center'><font size='5'><b>" + Escaped(sheet_.Title()) +
                "</b></font></p><table " + (hasTexts ? "width='100%'" : "align='center'") +
                " cellspacing='0' cellpadding='3'>";
        Line([&](std::size_t i) { return "<b>" + Escaped(columns[i].caption) + "</b>"; });
        Rule();
        for (std::size_t row = 0; row < sheet_.Rows(); ++row) {
            totals_.Add(row);
            Line([&](std::size_t i) { return Cell(row, i); });
        }
        if (totals_.Any()) {
            Rule();
            Line([&](std::size_t i) { return Total(i); });
        }
        Rule();
        return text_ + "</table></body></html>";
    }

  private:
    std::string Cell(std::size_t row, std::size_t column) const {
        std::string text = Escaped(Shown(sheet_.Columns()[column].kind, sheet_.At(row, column)));
        if (column == tree_)
            for (int level = sheet_.Level(row); level > 0; --level) text.insert(0, "&nbsp;&nbsp;&nbsp;");
        return text;
    }
    // Not in bold: a bold line reads as heads.
    std::string Total(std::size_t column) const {
        const Column& of = sheet_.Columns()[column];
        return column == 0 && !of.totalled ? "Total" : Shown(of.kind, totals_.Of(column));
    }

    template <class CellText>
    void Line(CellText&& cellText) {
        text_ += "<tr valign='top'>";
        for (std::size_t i = 0; i < sheet_.Columns().size(); ++i) {
            text_ += IsFigure(sheet_.Columns()[i].kind) ? "<td align='right' nowrap>" : "<td>";
            text_ += cellText(i) + "</td>";
        }
        text_ += "</tr>";
    }
    void Rule() {
        text_ += "<tr><td colspan='" + std::to_string(sheet_.Columns().size()) + "'><hr></td></tr>";
    }

    const Sheet& sheet_;
    Totals totals_;
    std::size_t tree_;
    std::string text_;
};

}  // namespace

std::string PageOf(const Sheet& sheet) {
    if (sheet.Rows() > MostOnPaper)
        throw basic::Error(basic::error::InvalidCall,
                           "the list has " + std::to_string(sheet.Rows()) + " rows, and " +
                               std::to_string(MostOnPaper) +
                               " go onto paper: narrow it, or write a spreadsheet",
                           "queries.Page");
    return Page(sheet).Text();
}

}  // namespace queries
