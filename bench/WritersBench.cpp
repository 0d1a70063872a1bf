// A million voucher lines written as comma-separated text and as a spreadsheet, beside the bare libraries:
// the same select stepped through once, its fields written as they come.
#include <cstdio>
#include <fstream>

#include <xlsxwriter.h>

#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "queries/Vouchers.h"
#include "queries/sheets/Csv.h"
#include "queries/sheets/Workbook.h"

namespace bench {
namespace {

constexpr std::int64_t Million = 1000000;
constexpr int Columns = 7, FirstAmount = 4, LastAmount = 5;

std::filesystem::path Books() {
    return BooksWith(Million, Place::Disk, 1);
}
std::string Spreadsheet() {
    return (Books() / "list.xlsx").string();
}

template <class Write>
void Ours(benchmark::State& state, Write write) {
    queries::Reading books(Books().string() + "/");
    for (auto _ : state) {
        const queries::Reading::Moment moment(books);
        write(*queries::ListVouchers(books));
    }
}

constexpr const char* Lines =
    "SELECT LedgerTxnDate, LedgerTrnNo, LedgerTrnType, LedgerName, LedgerDrAmt, LedgerCrAmt, LedgerNarration "
    "FROM tb_Ledger2001 ORDER BY LedgerTxnDate, rowid";

// Numbers as the library's own text.
void CsvBare(benchmark::State& state) {
    Bare bare(Books(), false);
    BareStatement rows(bare.Db(), Lines);
    for (auto _ : state) {
        std::FILE* const out = std::fopen("/dev/null", "w");
        while (rows.Step())
            for (int column = 0; column < Columns; ++column) {
                const auto* const text = reinterpret_cast<const char*>(rows.Text(column));
                std::fputs(text == nullptr ? "" : text, out);
                std::fputc(column + 1 < Columns ? ',' : '\n', out);
            }
        std::fclose(out);
        rows.Reset();
    }
}

void SpreadsheetBare(benchmark::State& state) {
    Bare bare(Books(), false);
    BareStatement rows(bare.Db(), Lines);
    for (auto _ : state) {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        lxw_workbook* const book = workbook_new_opt(Spreadsheet().c_str(), &options);
        lxw_worksheet* const tab = workbook_add_worksheet(book, nullptr);
        for (lxw_row_t row = 0; rows.Step(); ++row)
            for (int column = 0; column < Columns; ++column) {
                const auto place = static_cast<lxw_col_t>(column);
                if (column < 2 || (column >= FirstAmount && column <= LastAmount))
                    worksheet_write_number(tab, row, place, rows.Real(column), nullptr);
                else if (const auto* text = reinterpret_cast<const char*>(rows.Text(column)))
                    worksheet_write_string(tab, row, place, text, nullptr);
            }
        if (workbook_close(book) != LXW_NO_ERROR) state.SkipWithError("not written");
        rows.Reset();
    }
}

const bool registered = [] {
    AddFigure({"1,000,000 voucher lines as comma-separated text",
               [](benchmark::State& state) {
                   Ours(state, [](const queries::Sheet& sheet) {
                       std::ofstream out("/dev/null");
                       queries::WriteCsv(sheet, out);
                   });
               },
               CsvBare, 4});
    AddFigure({"1,000,000 voucher lines as a spreadsheet",
               [](benchmark::State& state) {
                   Ours(state,
                        [](const queries::Sheet& sheet) { queries::WriteWorkbook(sheet, Spreadsheet()); });
               },
               SpreadsheetBare, 1.5});
    return true;
}();

}  // namespace
}  // namespace bench
