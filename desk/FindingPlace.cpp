#include "desk/FindingPlace.h"

#include <QCoreApplication>
#include <algorithm>

#include "desk/Books.h"
#include "desk/Desk.h"
#include "desk/ItemPage.h"
#include "desk/ListPage.h"
#include "desk/StockPage.h"
#include "desk/VouchersPage.h"
#include "queries/ErrorLog.h"

namespace desk {
namespace {

struct Words {
    Q_DECLARE_TR_FUNCTIONS(desk::FindingPlace)
};

FindingPlace Screen(Desk& desk, const QString& text, const char* form, const std::string& record = {}) {
    return {text, {}, [&desk, form, record] { desk.OpenScreen(form, record); }};
}

FindingPlace Stock(Desk& desk, const QString& text, StockPage::Tabs tab) {
    return {text, {}, [&desk, tab] {
                auto* const page = new StockPage(desk);
                page->Turn(tab);
                desk.Push(page);
            }};
}

FindingPlace Lines(Desk& desk, const QString& text, const queries::VoucherFilter& filter) {
    return {text, {}, [&desk, text, filter] {
                auto* const page = new VouchersPage(desk);
                if (filter.ledger) page->Narrow(filter, text);
                desk.Push(page);
            }};
}

FindingPlace Item(Desk& desk, const QString& text, std::int32_t item) {
    return {text, {}, [&desk, text, item] { desk.Push(new ItemPage(desk, item, text)); }};
}

FindingPlace Log(Desk& desk) {
    const QString title = Words::tr("Error log");
    return {title, {}, [&desk, title] {
                desk.Push(new ListPage(desk, {.Name = "errorLog",
                                              .Title = title,
                                              .Subtitle = {},
                                              .Chapter = "When something goes wrong",
                                              .Empty = Words::tr("Nothing was logged"),
                                              .EmptyText = {},
                                              .Make = [](queries::Reading& books) {
                                                  return SheetView::SheetPtr(queries::ErrorLogSheet(books));
                                              }}));
            }};
}

// Rows that never got their number are on no screen: the list of their year has them.
FindingPlace PlaceOf(Desk& desk, const host::Subject& subject) {
    using Kind = host::Subject::Kind;
    const std::string number = std::to_string(subject.number);
    const auto record = [&](const QString& text, const char* form) {
        return Screen(desk, text.arg(subject.number), form, number);
    };
    const bool numbered = subject.number != 0;
    switch (subject.kind) {
        case Kind::None:
            return {};
        case Kind::File:
            return {Words::tr("Backups"), {}, [&desk] { desk.Go("books"); }};
        case Kind::Years:
            return Screen(desk, Words::tr("Set Financial Year"), "frmFinYear");
        case Kind::Totals:
            return Screen(desk, Words::tr("Group Master"), "frmGrpMain");
        case Kind::Ledger:
            return record(Words::tr("Ledger %1"), "Ledger_Master");
        case Kind::Lines:
            if (numbered)
                return Lines(desk, Words::tr("Lines of ledger %1").arg(subject.number),
                             {.ledger = subject.number});
            return Lines(desk, Words::tr("Vouchers"), {});
        case Kind::Voucher:
            if (numbered) return record(Words::tr("Voucher %1"), "frmVoucher");
            return Lines(desk, Words::tr("Vouchers"), {});
        case Kind::Receipt:
            return record(Words::tr("Receipt %1"), "frmReceipt");
        case Kind::Issue:
            return record(Words::tr("Issue %1"), "frmIssues");
        case Kind::Order:
            if (numbered) return record(Words::tr("Order %1"), "frmPO");
            return Stock(desk, Words::tr("Orders"), StockPage::Orders);
        case Kind::Item:
            if (numbered) return Item(desk, Words::tr("Item %1").arg(subject.number), subject.number);
            return Stock(desk, Words::tr("Items"), StockPage::Items);
        case Kind::Items:
            return Stock(desk, Words::tr("Items"), StockPage::Items);
        case Kind::Movements:
            return Stock(desk, Words::tr("Movements"), StockPage::Movements);
        case Kind::Bills:
            return Stock(desk, Words::tr("Bills"), StockPage::Bills);
        case Kind::ErrorLog:
            return Log(desk);
    }
    return {};
}

}  // namespace

FindingPlaces::FindingPlaces(Desk& desk) : desk_(desk), inForce_(desk.Books().YearInForce()) {
    for (const host::Year& year : desk.Books().Years()) years_.push_back(year.ShortForm());
}

// Nothing shows what stands in a year that the books do not know.
FindingPlace FindingPlaces::Of(const host::Subject& subject) const {
    FindingPlace place = PlaceOf(desk_, subject);
    if (subject.year.empty() || subject.year == inForce_ || !place.Open) return place;
    if (std::find(years_.begin(), years_.end(), subject.year) == years_.end()) return {};
    place.OtherYear = subject.year;
    place.Text = Words::tr("%1 of %2").arg(place.Text, Books::LongForm(subject.year));
    return place;
}

}  // namespace desk
