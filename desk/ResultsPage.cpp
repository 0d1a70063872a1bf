#include "desk/ResultsPage.h"

#include <QCoreApplication>

#include "desk/Books.h"
#include "desk/Dates.h"
#include "desk/PeriodChip.h"
#include "desk/StatementPage.h"
#include "queries/Beside.h"
#include "queries/GroupTree.h"

namespace desk {
namespace {

using queries::Statement;

// What stands in a line, whichever of the sheets it is of.
struct Line {
    std::int32_t Ledger = 0;
    std::string Name;
    int Level = 0;
};

Line LineOf(const queries::Sheet& sheet, std::size_t row) {
    const int level = sheet.Level(row);
    if (const auto* const beside = dynamic_cast<const queries::BesideSheet*>(&sheet))
        return {beside->Typed()[row].ledger, beside->Typed()[row].name, level};
    if (const auto* const tree = dynamic_cast<const queries::SheetOf<queries::TreeRow>*>(&sheet))
        return {tree->Typed()[row].ledger, tree->Typed()[row].name, level};
    const auto& line = static_cast<const queries::SheetOf<queries::ResultRow>&>(sheet).Typed()[row];
    return {line.ledger, line.name, level};
}

constexpr std::optional<Statement> Statements[] = {std::nullopt, Statement::Trading, Statement::ProfitAndLoss,
                                                   Statement::BalanceSheet};

}  // namespace

ResultsPage::ResultsPage(Desk& desk) : TabPage(desk, tr("Results")) {
    queries::Reading& books = desk.Books().Reading();
    AddAction(tr("Print the report"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P),
              [this] { this->desk().OpenScreen(Statement() ? "frmTPL" : "frmPartyLedger"); });
    period_ = new PeriodChip({books.FirstDay(), books.LastDay()}, [this] { Narrowed(); });
    beside_ =
        new ChoiceChip("beside", tr("Be&side"), {tr("&One figure"), tr("Beside &last year"), tr("By &month")},
                       [this] { Narrowed(); });
    if (!queries::LastYearOf(books)) beside_->Forbid(LastYear);
    AddFilter(period_);
    AddFilter(beside_);
    figures_ =
        new ChoiceChip("figures", tr("Fi&gures"), {tr("As the &report has them"), tr("By the &vouchers")},
                       [this] { Narrowed(); });
    AddFilter(figures_, {0});
    AddStatement(tr("&Trial balance"), "trial", Statements[0]);
    AddStatement(tr("T&rading"), "trading", Statements[1]);
    AddStatement(tr("Pro&fit and loss"), "profit", Statements[2]);
    AddStatement(tr("&Balance sheet"), "balance", Statements[3]);
    Turn(0);
}

void ResultsPage::AddStatement(const QString& caption, const QString& name,
                               std::optional<queries::Statement> statement) {
    SheetView& view = AddTab(caption, name, SheetView::Shape::Tree,
                             [this, statement](SheetView& of) { Ask(of, statement); });
    view.Keeper().KeyOf = [](const queries::Sheet& sheet, std::size_t row) {
        const Line line = LineOf(sheet, row);
        return QVariant(line.Ledger > 0 ? QString::number(line.Ledger) : QString::fromStdString(line.Name));
    };
    view.Activated = [this](std::size_t row) { Activate(row); };
    view.SetEmpty(tr("Nothing was posted in these days"),
                  tr("Another period may have figures: Alt+P. Vouchers are entered with F2."));
}

std::optional<Statement> ResultsPage::Statement() const {
    return Statements[Tab()];
}

bool ResultsPage::IsAsOf() const {
    return Statement() == Statement::BalanceSheet;
}

queries::Range ResultsPage::Asked() const {
    return period_->Days();
}

void ResultsPage::Turned() {
    const queries::Range year{desk().Books().Reading().FirstDay(), desk().Books().Reading().LastDay()};
    const QString days =
        IsAsOf() ? tr("As of %1").arg(DayText(Asked().upto.value_or(*year.upto))) : RangeText(Asked(), year);
    const bool trial = !Statement();
    QString signs;
    if (beside_->Choice() != Alone)
        signs = trial      ? tr("; closing balances, with a minus in credit")
                : IsAsOf() ? tr("; assets, with a minus for liabilities")
                           : tr("; income and profit, with a minus for costs and loss");
    else if (trial)
        signs = tr("; balances are in debit, with a minus in credit");
    SetSubtitle(days + signs);
}

void ResultsPage::Ask(SheetView& view, std::optional<queries::Statement> statement) {
    const queries::Range days = Asked();
    const int beside = beside_->Choice();
    const auto by = figures_->Choice() == 0 ? queries::TrialBy::Report : queries::TrialBy::Rows;
    view.AskSlowly(
        [statement, days, beside, by](queries::Reading& books, Worker::Job& job) -> SheetView::SheetPtr {
            const auto step = [&job](std::size_t done, std::size_t all) {
                job.Total = all;
                job.Step(done);
            };
            if (beside == LastYear) return queries::BesideLastYear(books, statement, days, by, step);
            if (beside == Months) return queries::ByMonth(books, statement, days, step);
            if (statement) return queries::StatementSheet(books, *statement, days);
            return queries::TrialTreeSheet(books, days, by);
        });
}

void ResultsPage::Activate(std::size_t row) {
    const Line line = LineOf(*View().Sheet(), row);
    if (line.Ledger <= 0) return View().Toggle();
    queries::Range days = Asked();
    if (IsAsOf()) days.from.reset();
    desk().Push(new StatementPage(desk(), line.Ledger, QString::fromStdString(line.Name), days));
}

}  // namespace desk
