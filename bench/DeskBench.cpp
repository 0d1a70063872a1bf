// The desk on 1,000,000 voucher rows, half of them of one ledger, and 1,000,000 movements of stock, in a
// process of its own: `qmbench --desk FOLDER` prints for each page when it stood, when its figures did, and
// the memory at its highest.
#include <QAbstractItemView>
#include <QApplication>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QSettings>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "bench/Ours.h"
#include "bench/Screens.h"
#include "desk/DeskWindow.h"
#include "desk/JobBar.h"
#include "desk/PageTable.h"
#include "desk/SheetView.h"
#include "desk/StatementPage.h"
#include "desk/TabPage.h"

namespace bench {
namespace {

constexpr std::int64_t Million = 1'000'000, Items = 5000;
constexpr std::int32_t Busy = 1000;  // the ledger that half of the rows are of

using Moment = std::chrono::steady_clock::time_point;

Moment Now() {
    return std::chrono::steady_clock::now();
}

double Since(Moment start) {
    return std::chrono::duration<double, std::milli>(Now() - start).count();
}

// What a firm of that size has, without much for the check to find: each voucher has a line of the busy
// ledger.
void WriteFirm(Bare& bare) {
    bare.Run("BEGIN");
    bare.Run(
        "UPDATE tb_Ledger2001 SET LedgerCode = CASE WHEN (rowid + LedgerTrnNo) % 2 = 0 THEN 1000 ELSE 1001 + "
        "LedgerTrnNo * 37 % 4999 END, LedgerTrnType = CASE LedgerTrnNo % 3 WHEN 0 THEN 'Receipt' WHEN 1 THEN "
        "'Payment' ELSE 'Journal' END, "
        "LedgerDrAmt = CASE WHEN rowid % 2 = 1 THEN (LedgerTrnNo * 7919 % 1000000 + 1) / 100.0 ELSE 0.0 END, "
        "LedgerCrAmt = CASE WHEN rowid % 2 = 1 THEN 0.0 ELSE (LedgerTrnNo * 7919 % 1000000 + 1) / 100.0 END");
    bare.Run("UPDATE tb_Ledger2001 SET LedgerName = 'Ledger ' || LedgerCode, LedgerLedBal = '100Dr'");
    bare.Run(
        "UPDATE Ledger_Master SET PrimaryGrp = CASE Ledger_ID % 5 WHEN 0 THEN 'Cash In Hand' WHEN 1 THEN "
        "'Debtors' WHEN 2 THEN 'Suppliers' WHEN 3 THEN 'Sales' ELSE 'Purchase' END");
    BareStatement item(
        bare.Db(),
        "INSERT INTO ItemMaster2001 (Item_ID, Item_Name, Open_Stock, Unit_Price, Reorder_Level, "
        "IssuedQty, ReceivedQty) VALUES (?, ?, 1000.0, 2.5, 8.0, 400.0, 0.0)");
    for (std::int64_t id = 1; id <= Items; ++id) item.Bind(1, id).Bind(2, "Item " + std::to_string(id)).Run();
    BareStatement move(
        bare.Db(),
        "INSERT INTO tblItemLed2001 (ItemLedTrnNo, ItemLedTrnDate, ItemLedTrnType, ItemLedItemID, "
        "ItemLedPONo, ItemLedItemDesc, ItemLedTrnRptQty, ItemLedTrnIssQty, ItemLedNote, "
        "ItemLedUnitPrice, ItemLedBillNo, ItemLandingCost) VALUES (?, ?, 'Issue', ?, 0, ?, 0.0, 2.0, ?, 2.5, "
        "'0', 2.5)");
    for (std::int64_t row = 0; row < Million; ++row) {
        const std::int64_t id = row * 7919 % Items + 1;
        move.Bind(1, row / 4 + 1).Bind(2, 36980 + row * 365 / Million).Bind(3, id);
        move.Bind(4, "Item " + std::to_string(id)).Bind(5, "Note of movement " + std::to_string(row % 3000));
        move.Run();
    }
    bare.Run("COMMIT");
    bare.Run("PRAGMA wal_checkpoint(TRUNCATE)");
}

const std::filesystem::path& FirmBooks() {
    static const std::filesystem::path folder = [] {
        const auto made = BooksWith(Million, Place::Disk, 40);
        Bare bare(made, false);
        WriteFirm(bare);
        return made;
    }();
    return folder;
}

// The most that the process has held since the last call, in MB.
double MostMemory() {
    std::ifstream status("/proc/self/status");
    double most = 0;
    for (std::string word; status >> word;)
        if (word == "VmHWM:" && status >> most) break;
    std::ofstream("/proc/self/clear_refs") << 5;
    return most / 1024;
}

class Visitor {
  public:
    explicit Visitor(const std::string& folder) : start_(Now()) {
        AttachScreens();
        Step("shown", [&] {
            desk_ = std::make_unique<desk::DeskWindow>();
            desk_->show();
            desk_->OpenBooks(folder);
        });
    }

    // What a user does, from the key to the drawn page, and until the worker has nothing left to do.
    void Step(const std::string& name, const std::function<void()>& act) {
        if (name != "shown") start_ = Now();
        act();
        Draw();
        const double shown = Since(start_);
        while (Working()) QApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        Draw();
        std::printf("%s\t%.0f\t%.0f\t%.1f\n", name.c_str(), shown, Since(start_), MostMemory());
        std::fflush(stdout);
    }
    void Go(const std::string& page) {
        Step("page " + page, [&] { desk_->Go(QString::fromStdString(page)); });
    }
    // As it is when another program has written.
    void Again(const std::string& name) {
        Step(name, [&] { desk_->Shown()->Refresh(); });
    }
    void Turn(const std::string& name, int tab) {
        Step(name, [&] { dynamic_cast<desk::TabPage&>(*desk_->Shown()).Turn(tab); });
    }
    void Choose(const std::string& name, const char* menu, int choice) {
        Step(name, [&] {
            auto* const of = desk_->Shown()->findChild<QMenu*>(menu);
            emit of->aboutToShow();
            of->actions().at(choice)->trigger();
        });
    }
    void Sort(const std::string& name, int column) {
        Step(name, [&] {
            for (QHeaderView* const head : Sheet().View().findChildren<QHeaderView*>())
                if (head->orientation() == Qt::Horizontal) return emit head->sectionClicked(column);
        });
    }
    // To the middle and to the end, and a page back from there.
    void Scroll(const std::string& name) {
        QScrollBar& bar = *Sheet().View().verticalScrollBar();
        Step("list " + name + ", the middle", [&] { bar.setValue(bar.maximum() / 2); });
        Step("list " + name + ", the end", [&] { bar.setValue(bar.maximum()); });
        Step("list " + name + ", a page back", [&] { bar.triggerAction(QScrollBar::SliderPageStepSub); });
    }
    desk::DeskWindow& Desk() { return *desk_; }
    desk::SheetView& Sheet() {
        for (auto* const view : desk_->Shown()->findChildren<desk::SheetView*>("sheet"))
            if (view->isVisible()) return *view;
        throw std::runtime_error("no table is shown");
    }

  private:
    bool Working() {
        for (const QWidget* const widget : desk_->Shown()->findChildren<QWidget*>())
            if (const auto* const bar = dynamic_cast<const desk::JobBar*>(widget); bar && bar->Running())
                return true;
        return desk_->Books().Check().Running();
    }

    Moment start_;
    std::unique_ptr<desk::DeskWindow> desk_;
};

int VisitDesk(const std::string& folder) {
    const Moment start = Now();
    { const Ours books(folder.substr(0, folder.size() - 1)); }
    const double opening = Since(start);
    std::printf("opening\t%.0f\t%.0f\t%.1f\n", opening, opening, MostMemory());
    Visitor visitor(folder);
    for (const desk::PageEntry& page : desk::PageTable()) {
        if (&page == &desk::PageTable().front()) continue;
        visitor.Go(page.Key);
    }
    visitor.Go("vouchers");
    visitor.Scroll("vouchers");
    visitor.Sort("sort vouchers by amount", 4);
    visitor.Scroll("vouchers by amount");
    visitor.Step("page statement",
                 [&] { visitor.Desk().Push(new desk::StatementPage(visitor.Desk(), Busy, "Ledger 1000")); });
    visitor.Scroll("statement");
    visitor.Sort("sort statement by particulars", 3);
    visitor.Go("results");
    visitor.Turn("page trading", 1);
    visitor.Choose("long trading by month", "beside", 2);
    visitor.Turn("long balance sheet by month", 3);
    visitor.Go("stock");
    visitor.Turn("page movements", 1);
    visitor.Scroll("movements");
    visitor.Sort("sort movements by name", 4);
    visitor.Again("movements by name, asked again");
    visitor.Go("overview");
    visitor.Again("overview, asked again");
    visitor.Step("check", [&] {
        visitor.Desk().Books().Check().Run(*visitor.Desk().Shown(), [](const std::exception_ptr&) {});
    });
    visitor.Go("vouchers");
    visitor.Sort("sort vouchers by credit", 5);
    visitor.Sort("sort vouchers by ledger", 3);
    visitor.Sort("sort vouchers by narration", 6);
    return 0;
}

// Of a line that the other process printed.
struct Seen {
    double shown = 0, stood = 0, memory = 0;
};

const std::map<std::string, Seen>& Visited() {
    static const std::map<std::string, Seen> seen = [] {
        const std::string command = "XDG_CONFIG_HOME='" + FirmBooks().string() + "' '" +
                                    std::filesystem::read_symlink("/proc/self/exe").string() + "' --desk '" +
                                    FirmBooks().string() + "/'";
        std::map<std::string, Seen> lines;
        FILE* const pipe = popen(command.c_str(), "r");
        if (pipe == nullptr) throw std::runtime_error("the desk could not be started");
        for (char line[256]; std::fgets(line, sizeof line, pipe) != nullptr;) {
            std::istringstream text(line);
            std::string name;
            Seen of;
            if (std::getline(text, name, '\t') && text >> of.shown >> of.stood >> of.memory) lines[name] = of;
        }
        if (pclose(pipe) != 0 || lines.empty()) throw std::runtime_error("the desk did not come to its end");
        return lines;
    }();
    return seen;
}

// The slowest of the lines of a name, or of all that begin with it.
double Slowest(const std::string& name, double Seen::*time) {
    double slowest = 0;
    for (const auto& [line, of] : Visited())
        if (line.starts_with(name)) slowest = std::max(slowest, of.*time);
    return slowest;
}

const bool registered = [] {
    AddErrand("--desk", VisitDesk);
    AddAmount({.name = "desk shown above opening the books, 1,000,000 rows, milliseconds",
               .value = [] { return Visited().at("shown").shown - Visited().at("opening").shown; },
               .goal = 300});
    AddAmount({.name = "desk: the slowest page's key, 1,000,000 rows, milliseconds",
               .value = [] { return Slowest("page ", &Seen::shown); },
               .goal = 200});
    AddAmount({.name = "desk: the slowest page's figures, 1,000,000 rows, milliseconds",
               .value = [] { return Slowest("page ", &Seen::stood); },
               .goal = 200});
    AddAmount({.name = "desk: the slowest move in a long list, milliseconds",
               .value = [] { return Slowest("list ", &Seen::shown); },
               .goal = 200});
    AddAmount({.name = "desk: results by month, 1,000,000 rows, milliseconds",
               .value = [] { return Slowest("long ", &Seen::stood); },
               .goal = 2000});
    AddAmount({.name = "desk: memory, 1,000,000 rows, MB",
               .value = [] { return Slowest("", &Seen::memory); },
               .goal = 150});
    return true;
}();

}  // namespace

}  // namespace bench
