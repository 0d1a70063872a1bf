#include "desk/BooksExport.h"

#include <QCoreApplication>
#include <iterator>
#include <memory>
#include <utility>

#include "desk/Desk.h"
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

void ExportBooks(Desk& desk, const std::string& folder) {
    desk.WriteFile(
        Words::tr("Writing the spreadsheets\u2026"),
        [folder](queries::Reading& books, Worker::Job& job) {
            job.Total = std::size(Exports);
            std::size_t done = 0;
            for (const auto& [name, make] : Exports) {
                job.Step(done++);
                queries::WriteWorkbook(*make(books), folder + "/" + name + "-" + books.LongYear() + ".xlsx");
            }
        },
        Words::tr("%1 spreadsheets stand in %2.")
            .arg(std::size(Exports))
            .arg(QString::fromStdString(folder)));
}

}  // namespace desk
