// What a user waits for where the server is some milliseconds away: for each action the trips, and the time
// over wires of several lengths. Its one argument is a server's URI; it makes a database there and takes it
// away again.
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <unistd.h>

#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Ours.h"
#include "bench/Screens.h"
#include "bench/SlowWire.h"
#include "core/MsgBox.h"
#include "inventory/frmItemList.h"
#include "inventory/frmReceipt.h"
#include "platform/ado/Maintenance.h"
#include "platform/ado/store/Flight.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "reports/FinalResults.h"
#include "reports/RebuildProgress.h"
#include "reports/frmLedger.h"
#include "shell/frmSearchAndLookUp.h"
#include "shell/modSearch.h"
#include "vouchers/frmDayBook.h"
#include "vouchers/frmVoucher.h"
#include "years/frmNewFinYear.h"

namespace bench {
namespace {

constexpr std::int64_t Rows = 1'000'000;
constexpr int Items = 50;
const std::chrono::microseconds Lengths[] = {std::chrono::microseconds(0), std::chrono::microseconds(700),
                                             std::chrono::microseconds(5400)};

// The books of the figures, with 50 items, on the server.
void LayDown(const std::string& uri) {
    const auto folder = BooksWith(Rows, Place::Disk, 1);
    {
        Bare bare(folder, false);
        bare.Run("BEGIN");
        BareStatement insert(
            bare.Db(), "INSERT INTO ItemMaster2001 (Item_ID, Item_Name, Unit_Price) VALUES (?, ?, 2.5)");
        for (std::int64_t id = 1; id <= Items; ++id)
            insert.Bind(1, id).Bind(2, "Item " + std::to_string(id)).Run();
        bare.Run("UPDATE Ledger_Master SET PrimaryGrp = 'Suppliers' WHERE Ledger_ID < 1002");
        bare.Run("COMMIT");
    }
    Ours file(folder);
    ado::CopyBooks(file.Conn(), uri);
}

void EnterReceipt() {
    auto& ui = forms::Default<qm::frmReceipt>().ui();
    forms::VSFlexGrid& grid = *ui.vsReceipt;
    ui.cmbReceipt->SetText("<New>");
    for (int row = 1; row <= Items; ++row) {
        grid.AddItem("", row);
        grid.SetTextMatrix(row, qm::StockGrid::ItemCol, std::to_string(row));
        grid.SetTextMatrix(row, qm::StockGrid::NameCol, "Item " + std::to_string(row));
        grid.SetTextMatrix(row, qm::StockGrid::PriceCol, "2.5");
        grid.SetTextMatrix(row, qm::StockGrid::QtyCol, "4");
    }
    ui.txtBillNo->SetText("B/17");
    ui.cmbSupplier->SetListIndex(0);
    ui.cmbItemLedgers->SetListIndex(1);
}

void EnterVoucher() {
    auto& ui = forms::Default<qm::frmVoucher>().ui();
    ui.cmbVoucherType->SetText("Journal");
    forms::VSFlexGrid& grid = *ui.vsVoucher;
    grid.AddItem("", 2);
    for (int row = 1; row <= 2; ++row) {
        grid.SetTextMatrix(row, qm::VoucherColumn::Side, row == 1 ? "Dr." : "Cr.");
        grid.SetTextMatrix(row, qm::VoucherColumn::Ledger, "Ledger " + std::to_string(999 + row));
        grid.SetCellData(row, qm::VoucherColumn::Ledger, std::to_string(999 + row));
        grid.SetTextMatrix(row, row == 1 ? qm::VoucherColumn::DrAmount : qm::VoucherColumn::CrAmount, "12.5");
        grid.SetTextMatrix(row, qm::VoucherColumn::Particulars, "Posted by the benchmark");
    }
}

class Table {
  public:
    explicit Table(SlowWire& wire) : wire_(wire) {}

    // Runs the action once unmeasured, then over each wire; `ready` comes before each run, over a short one.
    void Line(const char* name, const std::function<void()>& action,
              const std::function<void()>& ready = {}) {
        std::string line;
        std::int64_t trips = 0;
        for (int run = -1; run < static_cast<int>(std::size(Lengths)); ++run) {
            wire_.Delay(std::chrono::microseconds(0));
            if (ready) ready();
            if (run >= 0) wire_.Delay(Lengths[run]);
            trips = wire_.Trips();
            const auto begin = std::chrono::steady_clock::now();
            action();
            const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - begin;
            trips = wire_.Trips() - trips;
            char cell[32];
            std::snprintf(cell, sizeof cell, " %9.1f", time.count());
            if (run >= 0) line += cell;
        }
        std::printf("%-34s %6lld%s\n", name, static_cast<long long>(trips), line.c_str());
        std::fflush(stdout);
    }

    // The same of a screen that stands.
    template <class Screen>
    void SaveLine(const char* name, const char* form, const std::function<void()>& show,
                  const std::function<void()>& enter) {
        Visit(form, show, [&](forms::Form&) {
            Line(
                name, [] { forms::Default<Screen>().ui().cmdSave->Click.Fire(); },
                [&] {
                    enter();
                    Draw();
                });
        });
    }

  private:
    SlowWire& wire_;
};

void Print(SlowWire& wire, const std::string& books) {
    Table table(wire);
    std::printf("%-34s %6s %9s %9s %9s\n", "action, ms by ms a trip", "trips", "0", "0.7", "5.4");
    table.Line("books opened, year read", [&] { Ours opened(books); });
    Ours ours(books);
    auto& receipt = forms::Default<qm::frmReceipt>();
    auto& voucher = forms::Default<qm::frmVoucher>();
    auto& lookUp = forms::Default<qm::frmSearchAndLookUp>();
    auto& page = forms::Default<qm::frmLedger>();
    const std::int32_t number = ours.Host().GetNextTrnID();
    table.Line("a posting by the class", [&] {
        if (!ours.Host().InsertVoucher(number, 37009, "J", "D", "Posted", 12.5, 1000, "Ledger 1000"))
            throw std::runtime_error("not posted");
    });
    table.SaveLine<qm::frmVoucher>(
        "voucher of two lines saved", "frmVoucher", [&] { voucher.Load(0); }, EnterVoucher);
    table.SaveLine<qm::frmReceipt>(
        "goods receipt of 50 rows saved", "frmReceipt", [&] { receipt.Load(0); }, EnterReceipt);
    lookUp.BaseQuery = "select ledger_ID as [Ledger Id],Name from Ledger_Master";
    table.Line("look-up over 5,000 ledgers opens",
               [&] { Visit("frmSearchAndLookUp", [&] { lookUp.Show(forms::vbModal); }); });
    table.Line("list of 50 items opens",
               [] { Visit("frmItemList", [] { forms::Default<qm::frmItemList>().Load(); }); });
    table.Line("day book of a day opens",
               [] { Visit("frmDayBook", [] { forms::Default<qm::frmDayBook>().Show(forms::vbModal); }); });
    table.Line("trial balance text", [&] {
        page.BeginReport("Trial Balance");
        qm::RebuildWithProgress();
        page.PartyTrial({});
    });
    table.Line(
        "final results text",
        [&] {
            qm::RebuildWithProgress({}, qm::BeforeRebuild::ZeroTotals);
            qm::FinalResults::BuildResults();
            qm::FinalResults(basic::MakeDate(2002, 3, 31)).PrintResults();
        },
        [&] { ours.Conn().Execute("Delete * from tblsystpl"); });
    auto& newYear = forms::Default<qm::frmNewFinYear>();
    int year = 2001;
    table.SaveLine<qm::frmNewFinYear>(
        "a year added, 5,000 ledgers carried", "frmNewFinYear", [&] { newYear.Show(forms::vbModal); },
        [&] {
            newYear.ui().txtFrom->SetText(std::to_string(++year));
            newYear.ui().txtTo->SetText(std::to_string(year + 1));
        });
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    if (argc != 2) return std::fprintf(stderr, "usage: qmwire postgresql://user@folder/\n"), 2;
    const std::string server = argv[1], name = "wire_" + std::to_string(getpid());
    bench::SlowWire wire(server);
    bench::AttachScreens();
    basic::Clock::Set(basic::MakeDate(2001, 4, 30));
    bool failed = false;
    qm::SetMsgBoxPort([&](const std::string& text, int, const std::string&) {
        const bool saved = text.find("saved") != std::string::npos || text.find("Saved") != std::string::npos;
        if (!saved) std::fprintf(stderr, "%s\n", text.c_str());
        failed = failed || !saved;
        return qm::vbOK;
    });
    bench::LayDown(server + name + "/");
    bench::Print(wire, wire.Uri() + name);
    ado::Flight administrator;
    administrator.Connect(ado::ReadServerAddress(server + "postgres/"));
    administrator.Script("DROP DATABASE " + name);
    return failed ? 1 : 0;
}
