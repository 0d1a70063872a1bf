#include "desk/ScreenList.h"

#include <QCoreApplication>
#include <array>

namespace desk {
namespace {

#define TEXT(words) QT_TRANSLATE_NOOP("desk::ScreenList", words)

constexpr auto List = std::to_array<Screen>({
    {TEXT("Transactions"), "frmVoucher", TEXT("Voucher Entry"),
     TEXT("Receipts, payments, contras and journals"), "F2"},
    {TEXT("Transactions"), "frmDayBook", TEXT("Day Book"),
     TEXT("The lines of a day or of a filter; change and delete vouchers"), "F3"},
    {TEXT("Masters"), "Ledger_Master", TEXT("Ledger Master"),
     TEXT("Ledgers, their openings, and the addresses of parties"), "F4"},
    {TEXT("Masters"), "frmGrpMain", TEXT("Group Master"),
     TEXT("The tree of groups and ledgers, with the lines of each"), "Shift+F4"},
    {TEXT("Masters"), "frmFinYear", TEXT("Set Financial Year"), TEXT("Choose the year; add the next"),
     "Shift+F2"},
    {TEXT("Stock"), "frmReceipt", TEXT("Receipt"), TEXT("Goods that came in, with their bill"), "F6"},
    {TEXT("Stock"), "frmIssues", TEXT("Issues"), TEXT("Goods that went out, with their bill"), "F7"},
    {TEXT("Stock"), "frmPO", TEXT("Purchase Order"), TEXT("Orders to suppliers, and receipts against them"),
     "F8"},
    {TEXT("Stock"), "ItemMaster", TEXT("Item Master"), TEXT("Items with their units, rates and balances"),
     "F9"},
    {TEXT("Stock"), "frmItemLedger", TEXT("Item Ledger"), TEXT("The movements of items, printed"),
     "Shift+F9"},
    {TEXT("Reports"), "frmTPL", TEXT("Final Results"),
     TEXT("Trading, profit and loss, and balance sheet, printed"), "F11"},
    {TEXT("Reports"), "frmPartyLedger", TEXT("Ledger"), TEXT("Statements and trial balance, printed"), "F12"},
});

#undef TEXT

QString Translated(const char* words) {
    return QCoreApplication::translate("desk::ScreenList", words);
}

}  // namespace

QString Screen::SectionText() const {
    return Translated(Section);
}
QString Screen::CaptionText() const {
    return Translated(Caption);
}
QString Screen::PurposeText() const {
    return Translated(Purpose);
}

std::span<const Screen> ScreenList() {
    return List;
}

}  // namespace desk
