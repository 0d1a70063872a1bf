#include "desk/Heads.h"

#include <QCoreApplication>

namespace desk {
namespace {

// The captions of all sheets, which are made below the desk; months and years, which some have, stay as they
// are.
struct Words {
    Q_DECLARE_TR_FUNCTIONS(desk::Heads)

  public:
    static constexpr const char* Captions[] = {
        QT_TR_NOOP("31 to 60"),       QT_TR_NOOP("61 to 90"),
        QT_TR_NOOP("Age in Days"),    QT_TR_NOOP("Assets"),
        QT_TR_NOOP("Balance"),        QT_TR_NOOP("Bank"),
        QT_TR_NOOP("Bank In"),        QT_TR_NOOP("Bank Out"),
        QT_TR_NOOP("Bill"),           QT_TR_NOOP("By Movements"),
        QT_TR_NOOP("Cancelled"),      QT_TR_NOOP("Cash"),
        QT_TR_NOOP("Cash In"),        QT_TR_NOOP("Cash Out"),
        QT_TR_NOOP("Closing"),        QT_TR_NOOP("Closing Credit"),
        QT_TR_NOOP("Closing Debit"),  QT_TR_NOOP("Column"),
        QT_TR_NOOP("Credit"),         QT_TR_NOOP("Credit / Liabilities"),
        QT_TR_NOOP("Date"),           QT_TR_NOOP("Debit"),
        QT_TR_NOOP("Debit / Assets"), QT_TR_NOOP("Debited To"),
        QT_TR_NOOP("Deleted"),        QT_TR_NOOP("Description"),
        QT_TR_NOOP("Discount %"),     QT_TR_NOOP("Form"),
        QT_TR_NOOP("From"),           QT_TR_NOOP("Goods"),
        QT_TR_NOOP("Group"),          QT_TR_NOOP("Group or Ledger"),
        QT_TR_NOOP("Issued"),         QT_TR_NOOP("Item"),
        QT_TR_NOOP("Landing Cost"),   QT_TR_NOOP("Leads to"),
        QT_TR_NOOP("Ledger"),         QT_TR_NOOP("Liabilities"),
        QT_TR_NOOP("Line"),           QT_TR_NOOP("Name"),
        QT_TR_NOOP("Narration"),      QT_TR_NOOP("Net Stock"),
        QT_TR_NOOP("Note"),           QT_TR_NOOP("Number"),
        QT_TR_NOOP("Opening"),        QT_TR_NOOP("Order"),
        QT_TR_NOOP("Ordered"),        QT_TR_NOOP("Other Charges"),
        QT_TR_NOOP("Outstanding"),    QT_TR_NOOP("Over 90"),
        QT_TR_NOOP("Overflow Level"), QT_TR_NOOP("Owed to Us"),
        QT_TR_NOOP("Particulars"),    QT_TR_NOOP("Party"),
        QT_TR_NOOP("Payments"),       QT_TR_NOOP("Posted"),
        QT_TR_NOOP("Purchases"),      QT_TR_NOOP("Receipt"),
        QT_TR_NOOP("Receipts"),       QT_TR_NOOP("Received"),
        QT_TR_NOOP("Reorder"),        QT_TR_NOOP("Reorder Level"),
        QT_TR_NOOP("Sales"),          QT_TR_NOOP("Severity"),
        QT_TR_NOOP("Source"),         QT_TR_NOOP("Supplier"),
        QT_TR_NOOP("Tax %"),          QT_TR_NOOP("Terms"),
        QT_TR_NOOP("Time"),           QT_TR_NOOP("Type"),
        QT_TR_NOOP("Unit"),           QT_TR_NOOP("Unit Price"),
        QT_TR_NOOP("Up to"),          QT_TR_NOOP("Up to 30 Days"),
        QT_TR_NOOP("Voucher"),        QT_TR_NOOP("We Owe"),
        QT_TR_NOOP("What is wrong"),  QT_TR_NOOP("What was found"),
        QT_TR_NOOP("Worth"),
    };
};

}  // namespace

QString HeadOf(const queries::Column& column) {
    return Words::tr(column.caption.c_str());
}

}  // namespace desk
