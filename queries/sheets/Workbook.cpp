#include "queries/sheets/Workbook.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include "platform/basic/Error.h"
#include "platform/basic/NewFile.h"
#include "platform/basic/Text.h"
#include "queries/sheets/Cell.h"
#include "queries/sheets/Totals.h"

namespace queries {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t MostRows = LXW_ROW_MAX - 2;  // heads and totals stand around them
constexpr std::size_t LongestText = 32767, LongestFormula = 8000, LongestName = 31;
constexpr double NarrowestColumn = 8, WidestColumn = 60;  // in letters
constexpr int DeepestFold = 7, DeepestIndent = 14;
constexpr double FirstExcelDay = 61;  // 1 March 1900: before it a spreadsheet counts a day that never was

[[noreturn]] void Fail(const std::string& text) {
    throw basic::Error(basic::error::InvalidCall, text, "queries.Workbook");
}

// "Trial balance" of "Trial balance, 2001-2002", without what the name of a sheet must not hold.
std::string TabName(const std::string& title) {
    std::string name = basic::Left(title.substr(0, title.find(',')), LongestName);
    std::replace_if(
        name.begin(), name.end(), [](char c) { return std::strchr("[]:*?/\\'", c) != nullptr; }, ' ');
    return basic::Trim(name).empty() ? "List" : name;
}

class Workbook {
  public:
    Workbook(const Sheet& sheet, const fs::path& file)
        : sheet_(sheet),
          place_(file),
          folder_(place_.PassingFolder()),
          totals_(sheet),
          tree_(TreeColumn(sheet)) {
        lxw_workbook_options options{
            .constant_memory = LXW_TRUE, .tmpdir = folder_.data(), .use_zip64 = LXW_FALSE};
        book_ = workbook_new_opt(place_.Staging().c_str(), &options);
        if (book_ == nullptr) Fail("cannot write " + file.string() + ": " + std::strerror(errno));
        tab_ = workbook_add_worksheet(book_, TabName(sheet.Title()).c_str());
        if (tab_ == nullptr) Fail("cannot write " + file.string() + ": " + std::strerror(errno));
        isTree_ = IsTree(sheet);
    }
    ~Workbook() {
        if (book_ == nullptr) return;
        // The library closes the file of the rows only where it comes to put them into the book: left open it
        // would keep its room on the disk, and it has no name any more.
        if (tab_ != nullptr && tab_->optimize_tmpfile != nullptr) std::fclose(tab_->optimize_tmpfile);
        lxw_workbook_free(book_);
    }
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    void Write() {
        SetUpPages();
        WriteHeads();
        for (std::size_t row = 0; row < sheet_.Rows(); ++row) WriteRow(row);
        if (totals_.Any()) WriteTotals();
        SetUpColumns();
    }

    void Publish(const std::string& name, const std::function<void()>& whole) {
        RequireRoom(name);
        const lxw_error failure = workbook_close(book_);
        book_ = nullptr;
        if (failure != LXW_NO_ERROR) Fail("cannot write " + name + ": " + lxw_strerror(failure));
        if (whole) whole();
        place_.Publish();
    }

  private:
    enum class Look { Head, Row, Total };

    const std::vector<Column>& Columns() const { return sheet_.Columns(); }
    static lxw_row_t RowOf(std::size_t row) { return static_cast<lxw_row_t>(row + 1); }  // below the heads
    static lxw_col_t ColumnOf(std::size_t column) { return static_cast<lxw_col_t>(column); }

    lxw_format* FormatOf(Kind kind, Look look, int indent = 0) {
        lxw_format*& format = formats_[{kind, look, indent}];
        if (format != nullptr) return format;
        format = workbook_add_format(book_);
        if (look != Look::Row) format_set_bold(format);
        if (look == Look::Head) format_set_bottom(format, LXW_BORDER_THIN);
        if (look == Look::Total) format_set_top(format, LXW_BORDER_THIN);
        if (look == Look::Head && IsFigure(kind)) format_set_align(format, LXW_ALIGN_RIGHT);
        if (look != Look::Head && kind == Kind::Amount) format_set_num_format(format, "#,##0.00");
        if (look != Look::Head && kind == Kind::Date) {
            format_set_num_format(format, "dd-mmm-yyyy");
            format_set_align(format, LXW_ALIGN_LEFT);
        }
        if (indent > 0) format_set_indent(format, static_cast<std::uint8_t>(indent));
        return format;
    }

    // A text that stands right behind figures is set off from them.
    int GapBefore(std::size_t column) const {
        return column > 0 && IsFigure(Columns()[column - 1].kind) && !IsFigure(Columns()[column].kind) ? 1
                                                                                                       : 0;
    }

    void WriteHeads() {
        for (std::size_t i = 0; i < Columns().size(); ++i) {
            widths_.push_back(0);
            WriteText(0, i, Columns()[i].caption, FormatOf(Columns()[i].kind, Look::Head, GapBefore(i)));
        }
    }

    void WriteRow(std::size_t row) {
        totals_.Add(row);
        const int level = sheet_.Level(row);
        if (isTree_) NoteLevel(row, level);
        for (std::size_t i = 0; i < Columns().size(); ++i)
            WriteCell(RowOf(row), i, sheet_.At(row, i),
                      GapBefore(i) + (i == tree_ ? std::min(level, DeepestIndent) : 0));
    }

    // A row of parts can be folded into the one above; the outermost rows are what the totals add.
    void NoteLevel(std::size_t row, int level) {
        lxw_row_col_options fold{};
        fold.level = static_cast<std::uint8_t>(std::min(level, DeepestFold));
        worksheet_set_row_opt(tab_, RowOf(row), LXW_DEF_ROW_HEIGHT, nullptr, &fold);
        if (level > 0) return;
        if (!outermost_.empty() && outermost_.back().second + 1 == row)
            outermost_.back().second = row;
        else
            outermost_.emplace_back(row, row);
    }

    void WriteCell(lxw_row_t row, std::size_t column, const basic::Value& value, int indent) {
        const Kind kind = Columns()[column].kind;
        lxw_format* const format = FormatOf(kind, Look::Row, indent);
        const std::string shown = Shown(kind, value);
        if (shown.empty()) return;
        if (IsFigure(kind))
            worksheet_write_number(tab_, row, ColumnOf(column), *FigureOf(kind, value), format);
        else if (const auto date = kind == Kind::Date ? CalendarDate(value) : std::nullopt;
                 date && date->Serial >= FirstExcelDay)
            worksheet_write_number(tab_, row, ColumnOf(column), date->Serial, format);
        else
            return WriteText(row, column, kind == Kind::Text ? Plain(kind, value) : shown, format);
        Widen(column, shown);
    }

    void WriteText(lxw_row_t row, std::size_t column, const std::string& text, lxw_format* format) {
        const bool fits = text.size() <= LongestText;
        worksheet_write_string(tab_, row, ColumnOf(column),
                               fits ? text.c_str() : basic::Left(text, LongestText).c_str(), format);
        Widen(column, text);
    }
    void Widen(std::size_t column, const std::string& text) {
        widths_[column] = std::max(widths_[column], static_cast<double>(basic::Len(text)));
    }

    void WriteTotals() {
        const lxw_row_t row = RowOf(sheet_.Rows());
        for (std::size_t i = 0; i < Columns().size(); ++i) {
            lxw_format* const format = FormatOf(Columns()[i].kind, Look::Total);
            const basic::Value total = totals_.Of(i);
            const std::string formula = total.IsNull() ? "" : FormulaOf(i);
            if (total.IsNull())
                worksheet_write_string(tab_, row, ColumnOf(i), i == 0 ? "Total" : "", format);
            else if (formula.size() > LongestFormula)
                worksheet_write_number(tab_, row, ColumnOf(i), basic::ToDouble(total), format);
            else
                worksheet_write_formula_num(tab_, row, ColumnOf(i), formula.c_str(), format,
                                            basic::ToDouble(total));
            Widen(i, Shown(Columns()[i].kind, total));
        }
    }

    std::string RangeOf(std::size_t column, std::size_t first, std::size_t last) const {
        char range[LXW_MAX_CELL_RANGE_LENGTH];
        lxw_rowcol_to_range(range, RowOf(first), ColumnOf(column), RowOf(last), ColumnOf(column));
        return range;
    }
    // 9 stands for a sum that leaves out what a filter hides.
    std::string FormulaOf(std::size_t column) const {
        if (sheet_.Rows() == 0) return "=0";
        if (!isTree_) return "=SUBTOTAL(9," + RangeOf(column, 0, sheet_.Rows() - 1) + ")";
        std::string formula;
        for (const auto& [first, last] : outermost_)
            formula += (formula.empty() ? "=SUM(" : "+SUM(") + RangeOf(column, first, last) + ")";
        return formula;
    }

    void SetUpColumns() {
        for (std::size_t i = 0; i < widths_.size(); ++i)
            worksheet_set_column(tab_, ColumnOf(i), ColumnOf(i),
                                 std::clamp(widths_[i] + 2 + GapBefore(i), NarrowestColumn, WidestColumn),
                                 nullptr);
    }

    // Before the first row: what is written cannot be marked any more.
    void SetUpPages() {
        worksheet_freeze_panes(tab_, 1, 0);
        if (isTree_)
            worksheet_outline_settings(tab_, LXW_TRUE, LXW_FALSE, LXW_TRUE, LXW_FALSE);  // heads stand above
        else if (sheet_.Rows() > 0)
            worksheet_autofilter(tab_, 0, 0, RowOf(sheet_.Rows() - 1), ColumnOf(Columns().size() - 1));
        worksheet_repeat_rows(tab_, 0, 0);
        worksheet_set_paper(tab_, 9);  // A4
        if (Columns().size() > 6) worksheet_set_landscape(tab_);
        worksheet_fit_to_pages(tab_, 1, 0);
        const std::string title = basic::Replace(sheet_.Title(), "&", "&&");
        worksheet_set_header(tab_, ("&L&\"-,Bold\"" + basic::Left(title, 200)).c_str());
        worksheet_set_footer(tab_, "&RPage &P of &N");
        lxw_doc_properties properties{};
        std::string name = sheet_.Title();
        properties.title = name.data();
        workbook_set_properties(book_, &properties);
    }

    // The library overlooks a disk that fills up while it puts the rows into the file: what it is going to
    // need is asked for beforehand.
    void RequireRoom(const std::string& name) const {
        std::fflush(tab_->file);
        const auto rows = std::ftell(tab_->file);
        int reason = std::ferror(tab_->file) != 0 || rows < 0 ? ENOSPC : 0;
        const fs::path room = fs::path(folder_) / "room";
        const int handle = ::open(room.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
        if (handle >= 0 && reason == 0) reason = ::posix_fallocate(handle, 0, rows + rows / 2 + (1 << 16));
        if (handle >= 0) ::close(handle);
        fs::remove(room);
        if (reason != 0) Fail("cannot write " + name + ": " + std::strerror(reason));
    }

    struct FormatKey {
        Kind kind;
        Look look;
        int indent;
        friend auto operator<=>(const FormatKey&, const FormatKey&) = default;
    };

    const Sheet& sheet_;
    basic::NewFile place_;
    std::string folder_;
    Totals totals_;
    std::size_t tree_;
    bool isTree_ = false;
    lxw_workbook* book_ = nullptr;
    lxw_worksheet* tab_ = nullptr;
    std::map<FormatKey, lxw_format*> formats_;
    std::vector<double> widths_;
    std::vector<std::pair<std::size_t, std::size_t>> outermost_;
};

}  // namespace

void WriteWorkbook(const Sheet& sheet, const fs::path& file, const std::function<void()>& whole) {
    if (sheet.Rows() > MostRows)
        Fail("the list has " + std::to_string(sheet.Rows()) + " rows, and a spreadsheet holds " +
             std::to_string(MostRows) + ": narrow it, or write it as comma-separated text");
    Workbook book(sheet, file);
    book.Write();
    book.Publish(file.string(), whole);
}

}  // namespace queries
