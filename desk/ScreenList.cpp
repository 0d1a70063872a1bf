#include "desk/ScreenList.h"

#include <QCoreApplication>
#include <array>

namespace desk {
namespace {

struct Words {
    Q_DECLARE_TR_FUNCTIONS(desk::ScreenList)

  public:
    static constexpr auto List = std::to_array<Screen>({
        {QT_TR_NOOP("Transactions"), "frmVoucher", QT_TR_NOOP("Voucher Entry"),
         QT_TR_NOOP("Receipts, payments, contras and journals"), "F2"},
        {QT_TR_NOOP("Transactions"), "frmDayBook", QT_TR_NOOP("Day Book"),
         QT_TR_NOOP("The lines of a day or of a filter; change and delete vouchers"), "F3"},
        {QT_TR_NOOP("Masters"), "Ledger_Master", QT_TR_NOOP("Ledger Master"),
         QT_TR_NOOP("Ledgers, their openings, and the addresses of parties"), "F4"},
        {QT_TR_NOOP("Masters"), "frmGrpMain", QT_TR_NOOP("Group Master"),
         QT_TR_NOOP("The tree of groups and ledgers, with the lines of each"), "Shift+F4"},
        {QT_TR_NOOP("Masters"), "frmFinYear", QT_TR_NOOP("Set Financial Year"),
         QT_TR_NOOP("Choose the year; add the next"), "Shift+F2"},
        {QT_TR_NOOP("Stock"), "frmReceipt", QT_TR_NOOP("Receipt"),
         QT_TR_NOOP("Goods that came in, with their bill"), "F6"},
        {QT_TR_NOOP("Stock"), "frmIssues", QT_TR_NOOP("Issues"), QT_TR_NOOP("Goods that went out"), "F7"},
        {QT_TR_NOOP("Stock"), "frmPO", QT_TR_NOOP("Purchase Order"),
         QT_TR_NOOP("Orders to suppliers, and receipts against them"), "F8"},
        {QT_TR_NOOP("Stock"), "ItemMaster", QT_TR_NOOP("Item Master"),
         QT_TR_NOOP("Items with their units, rates and balances"), "F9"},
        {QT_TR_NOOP("Stock"), "frmItemLedger", QT_TR_NOOP("Item Ledger"),
         QT_TR_NOOP("The movements of items, printed"), "Shift+F9"},
        {QT_TR_NOOP("Reports"), "frmTPL", QT_TR_NOOP("Final Results"),
         QT_TR_NOOP("Trading, profit and loss, and balance sheet, printed"), "F11"},
        {QT_TR_NOOP("Reports"), "frmPartyLedger", QT_TR_NOOP("Ledger"),
         QT_TR_NOOP("Statements and trial balance, printed"), "F12"},
    });
};

}  // namespace

QString Screen::SectionText() const {
    return Words::tr(Section);
}
QString Screen::CaptionText() const {
    return Words::tr(Caption);
}
QString Screen::PurposeText() const {
    return Words::tr(Purpose);
}

std::span<const Screen> ScreenList() {
    return Words::List;
}

}  // namespace desk
