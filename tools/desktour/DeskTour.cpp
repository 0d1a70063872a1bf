#include "tools/desktour/DeskTour.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTimer>
#include <QToolButton>
#include <fstream>
#include <memory>
#include <utility>

#include "core/modGeneral.h"
#include "desk/Books.h"
#include "desk/FindingsPage.h"
#include "desk/HelpPage.h"
#include "desk/ImportPage.h"
#include "desk/ItemPage.h"
#include "desk/KeyList.h"
#include "desk/NoticeBar.h"
#include "desk/Page.h"
#include "desk/PageTable.h"
#include "desk/SearchField.h"
#include "desk/SheetView.h"
#include "desk/StatementPage.h"
#include "desk/VouchersPage.h"
#include "host/commands/Sample.h"
#include "host/make/Books.h"
#include "platform/basic/Error.h"

namespace tour {
namespace {

constexpr int Year = 2001, Longest = 60'000;  // milliseconds

// One walk: where it is, and what it does there.
class Walker {
  public:
    Walker(desk::DeskWindow& desk, const DeskTour::Visit& visit) : desk_(desk), visit_(visit) {}

    void Rest() {
        QElapsedTimer clock;
        clock.start();
        for (int quiet = 0; quiet < 3; quiet = IsIdle() ? quiet + 1 : 0) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            if (clock.elapsed() > Longest)
                throw basic::Error(basic::error::InvalidCall, "A page of the desk does not rest", "tour");
        }
    }
    void Visit(const std::string& name) {
        Rest();
        visit_(name, desk_);
    }
    void Open(const fs::path& folder) {
        desk_.OpenBooks(folder.string() + '/');
        Rest();
    }
    void Go(const QString& page) {
        desk_.Go(page);
        Visit(page.toStdString());
    }
    // The tabs of the page, one after the other, from the second on.
    void Tabs(const std::string& page, std::initializer_list<const char*> names) {
        int tab = 0;
        for (const char* const name : names) {
            desk_.Shown()->findChild<QTabBar*>("tabs")->setCurrentIndex(++tab);
            Visit(page + '-' + name);
        }
        desk_.Shown()->findChild<QTabBar*>("tabs")->setCurrentIndex(0);
        Rest();
    }
    void Menu(QMenu& menu, const std::string& name) {
        menu.popup(desk_.mapToGlobal(QPoint(40, 40)));
        Over(name, menu);
        menu.close();
        Rest();
    }
    void Over(const std::string& name, QWidget& shown) {
        Rest();
        visit_(name, shown);
    }
    void Search(const QString& words) {
        desk_.activateWindow();
        Rest();
        auto& field = *desk_.findChild<desk::SearchField*>("search");
        field.Begin();
        field.setText(words);
        Visit("search");
        field.clear();
        desk_.Shown()->TakeFocus();
    }
    template <class W>
    W& Child(const char* name) {
        return *desk_.Shown()->findChild<W*>(name);
    }
    void Push(desk::Page* page, const std::string& name) {
        desk_.Push(page);
        Visit(name);
        desk_.Back();
        Rest();
    }
    desk::DeskWindow& Desk() { return desk_; }

  private:
    bool IsIdle() const {
        desk::Books& books = desk_.Books();
        return !books.AreOpen() || (books.Background().IsIdle() && !books.Check().Running());
    }

    desk::DeskWindow& desk_;
    const DeskTour::Visit& visit_;
};

// The sample firm's vouchers come without goods: an order, the receipt of a part of it, and an issue.
void BringGoods() {
    for (const char* const row :
         {"tblPO2001 (PoNumber, PoSupplierID, PoDate, PoSupplierName, PoDlvTerm, PoCancelled) Values (1, 22, "
          "36990, 'Example Paper Mart', 'Within a week', False)",
          "tblPODet2001 (PoDetPoNo, PoDetItemID, PoDetItemDesc, PoDetQtyOrder, PoDetQtyRecd) Values (1, 2, "
          "'Ruled Notebook 200 Pages', 120, 80)",
          "tblItemLed2001 (ItemLedTrnNo, ItemLedTrnDate, ItemLedTrnType, ItemLedItemID, ItemLedPONo, "
          "ItemLedItemDesc, ItemLedTrnRptQty, ItemLedNote, ItemLedUnitPrice, ItemLedBillNo, ItemLandingCost) "
          "Values (1, 36997, 'Receipt', 2, 1, 'Ruled Notebook 200 Pages', 80, 'First part', 38.5, 'EP/204', "
          "40.2)",
          "tblItemLed2001 (ItemLedTrnNo, ItemLedTrnDate, ItemLedTrnType, ItemLedItemID, ItemLedItemDesc, "
          "ItemLedTrnIssQty, ItemLedNote) Values (1, 37004, 'Issue', 2, 'Ruled Notebook 200 Pages', 25, "
          "'Counter')",
          "tblBills2001 (BillID, BillTxnID, BillVchrNo, ISPoBill, InstrumentID, BillDiscount, BillTaxRate, "
          "BillOtherCharges) Values ('EP/204', 1, 9, True, 1, 0, 4, 20)"})
        qm::Conn().Execute(std::string("Insert Into ") + row);
}

void ShowOverview(Walker& walker) {
    walker.Go("overview");
    auto& page = *walker.Desk().Shown();
    auto& scroll = walker.Child<QScrollArea>("overview");
    scroll.verticalScrollBar()->setValue(scroll.verticalScrollBar()->maximum());
    walker.Visit("overview-below");
    scroll.verticalScrollBar()->setValue(0);
    const auto turn = [&page] {
        for (auto* const button : page.findChildren<QPushButton*>("turn")) button->click();
    };
    turn();
    walker.Visit("overview-tables");
    turn();
}

void ShowVouchers(Walker& walker) {
    walker.Go("vouchers");
    for (const char* const chip : {"period", "type", "ledger", "amount"})
        walker.Menu(walker.Child<QMenu>(chip), std::string("vouchers-") + chip);
    auto& page = dynamic_cast<desk::VouchersPage&>(*walker.Desk().Shown());
    page.Narrow({.type = qm::VoucherType::Receipt, .least = 1000});
    walker.Visit("vouchers-narrowed");
    page.Narrow({.words = "nowhere to be found"});
    walker.Visit("vouchers-none");
    page.Narrow({});
    walker.Rest();
}

void ShowLists(Walker& walker) {
    auto& desk = walker.Desk();
    walker.Go("ledgers");
    walker.Push(new desk::StatementPage(desk, 32, "Current Account"), "ledgers-statement");
    walker.Go("results");
    walker.Tabs("results", {"trading", "profit", "balance"});
    walker.Go("parties");
    walker.Tabs("parties", {"creditors", "both"});
    walker.Go("stock");
    walker.Tabs("stock", {"movements", "orders", "bills"});
    walker.Push(new desk::ItemPage(desk, 2, "Ruled Notebook 200 Pages"), "stock-item");
}

void ShowWindow(Walker& walker) {
    auto& desk = walker.Desk();
    walker.Go("screens");
    walker.Menu(*desk.findChild<QToolButton*>("more")->menu(), "menu");
    walker.Push(new desk::HelpPage(desk, "The desk"), "manual");
    desk.Go("vouchers");
    QTimer::singleShot(0, &desk, [&] {
        auto* const keys = QApplication::activeModalWidget();
        walker.Over("keys", *keys);
        keys->close();
    });
    desk::ShowKeys(desk, *desk.Shown());
    walker.Search("paper");
    desk.Tell(basic::Error(53, "File not found: 'C:/vouchers.csv'", "desk"));
    walker.Visit("bar-fault");
    desk.Note("Written: vouchers.xlsx");
    walker.Visit("bar-note");
    desk.Notice().Dismiss();
}

// New books: each page says what to do.
void ShowEmpty(Walker& walker) {
    for (const desk::PageEntry& page : desk::PageTable()) {
        const std::string name = std::string("new-") + page.Key;
        walker.Desk().Go(QString::fromLatin1(page.Key));
        walker.Visit(name);
        if (name == "new-stock") walker.Tabs(name, {"movements", "orders", "bills"});
    }
}

void ShowFindings(Walker& walker) {
    auto& desk = walker.Desk();
    qm::Conn().Execute("Update tb_Ledger2001 Set LedgerDrAmt = LedgerDrAmt + 1 Where LedgerTrnNo = 3");
    desk.Books().Check().Run(desk, [](std::exception_ptr) {});
    walker.Rest();
    desk::FindingsPage::Open(desk);
    walker.Visit("findings");
}

void WriteText(const fs::path& file, const char* text) {
    std::ofstream(file) << text;
}

}  // namespace

DeskTour::DeskTour(const fs::path& folder)
    : sample_(folder / "Sample Traders"),
      fresh_(folder / "New Firm"),
      list_(folder / "items.csv"),
      faults_(folder / "faults.csv") {
    for (const fs::path& books : {sample_, fresh_}) host::CreateBooks(books, Year);
    host::FillWithSample(sample_, Year);
    WriteText(list_, "name,unit,price\nGlue Stick 20 g,Nos,35\n");
    WriteText(faults_, "name,unit,price\n,Nos,35\nGlue Stick 20 g,Nos,cheap\n");
}

void DeskTour::Walk(desk::DeskWindow& desk, const Visit& visit) const {
    Walker walker(desk, visit);
    walker.Open(list_);  // no folder
    walker.Visit("no-books");
    walker.Open(sample_);
    BringGoods();
    ShowOverview(walker);
    ShowVouchers(walker);
    ShowLists(walker);
    walker.Go("books");
    for (const auto& [name, file] : {std::pair("import", list_), std::pair("import-faults", faults_)})
        walker.Push(new desk::ImportPage(desk, std::make_shared<host::IncomingFile>(
                                                   host::IncomingFile::Source{.kind = "items", .file = file},
                                                   desk.Books().Host(), [](std::size_t, std::size_t) {})),
                    name);
    ShowWindow(walker);
    ShowFindings(walker);
    walker.Open(fresh_);
    ShowEmpty(walker);
}

}  // namespace tour
