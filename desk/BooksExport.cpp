#include "desk/BooksExport.h"

#include <QCoreApplication>
#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <utility>

#include "desk/Books.h"
#include "desk/Desk.h"
#include "desk/Question.h"
#include "queries/Items.h"
#include "queries/Ledgers.h"
#include "queries/Parties.h"
#include "queries/TrialBalance.h"
#include "queries/Vouchers.h"
#include "queries/sheets/Workbook.h"

namespace desk {
namespace {

struct Words {
    Q_DECLARE_TR_FUNCTIONS(desk::BooksExport)
};

using Making = std::unique_ptr<queries::Sheet> (*)(queries::Reading&);
const std::pair<const char*, Making> Exports[] = {
    {"vouchers",
     [](queries::Reading& books) -> std::unique_ptr<queries::Sheet> { return queries::ListVouchers(books); }},
    {"ledgers",
     [](queries::Reading& books) -> std::unique_ptr<queries::Sheet> { return queries::LedgersSheet(books); }},
    {"parties",
     [](queries::Reading& books) -> std::unique_ptr<queries::Sheet> { return queries::PartiesSheet(books); }},
    {"trial-balance",
     [](queries::Reading& books) -> std::unique_ptr<queries::Sheet> {
         return queries::TrialBalanceSheet(books);
     }},
    {"items",
     [](queries::Reading& books) -> std::unique_ptr<queries::Sheet> { return queries::ItemsSheet(books); }},
};

}  // namespace

void ExportBooks(Desk& desk, QWidget* over, const std::string& folder) {
    const std::string year = Books::LongForm(desk.Books().YearInForce()).toStdString();
    const auto file = [folder, year](const char* name) { return folder + "/" + name + "-" + year + ".xlsx"; };
    const auto stands = std::ranges::count_if(
        Exports, [&](const auto& out) { return std::filesystem::exists(file(out.first)); });
    if (stands > 0 && !Confirmed(over, Words::tr("Export"),
                                 Words::tr("%Ln spreadsheet(s) of this year would be replaced. Go on?",
                                           nullptr, static_cast<int>(stands))))
        return;
    desk.WriteFile(
        Words::tr("Writing the spreadsheets\u2026"),
        [file](queries::Reading& books, Worker::Job& job) {
            job.Total = std::size(Exports);
            std::size_t done = 0;
            for (const auto& [name, make] : Exports) {
                job.Step(done++);
                queries::WriteWorkbook(*make(books), file(name));
            }
        },
        Words::tr("%1 spreadsheets stand in %2.")
            .arg(std::size(Exports))
            .arg(QString::fromStdString(folder)));
}

}  // namespace desk
