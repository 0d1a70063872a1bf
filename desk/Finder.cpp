#include "desk/Finder.h"

#include <utility>

#include "desk/Books.h"
#include "desk/PageTable.h"
#include "desk/ScreenList.h"
#include "desk/StatementPage.h"

namespace desk {
namespace {

constexpr std::size_t MostHits = 6;  // of each kind

}  // namespace

std::function<void()> Finder::Screen(const char* form, const std::string& record) {
    return [this, form, record] { desk_.OpenScreen(form, record); };
}

std::vector<Found> Finder::FindPages(const QString& words) {
    std::vector<Found> found;
    const auto fits = [&](const QString& text) { return text.contains(words, Qt::CaseInsensitive); };
    for (const PageEntry& page : PageTable())
        if (fits(page.Caption()))
            found.push_back({tr("Page"), page.Caption(), {}, [this, key = QString::fromLatin1(page.Key)] {
                                 desk_.Go(key);
                             }});
    for (const desk::Screen& screen : ScreenList())
        if (fits(screen.CaptionText()))
            found.push_back(
                {tr("Screen"), screen.CaptionText(), QString::fromLatin1(screen.Key), Screen(screen.Form)});
    return found;
}

void Finder::Find(const QString& words, const SearchField::Take& take) {
    Books& books = desk_.Books();
    take(FindPages(words), !books.AreOpen());
    if (!books.AreOpen()) return;
    books.Background().Cancel(search_);
    const auto hits = std::make_shared<std::vector<queries::SearchHit>>();
    search_ = books.Background().Start(
        *this,
        [hits, text = words.toStdString()](queries::Reading& reading, Worker::Job&) {
            *hits = queries::Search(reading, text, MostHits);
        },
        [this, hits, take](std::exception_ptr failure) {
            std::vector<Found> found;
            for (const queries::SearchHit& hit : *hits) found.push_back(HitOf(hit));
            take(std::move(found), true);
            if (failure) desk_.Try([&] { std::rethrow_exception(failure); });
        });
}

Found Finder::HitOf(const queries::SearchHit& hit) {
    using Kind = queries::SearchHit::Kind;
    const QString text = QString::fromStdString(hit.text), detail = QString::fromStdString(hit.detail);
    const std::string number = std::to_string(hit.number);
    switch (hit.kind) {
        case Kind::Voucher:
        case Kind::Narration:
            return {tr("Voucher"), text, detail, Screen("frmVoucher", number)};
        case Kind::Ledger:
            return {tr("Ledger"), text, detail, [this, text, id = hit.number] {
                        desk_.Try([&] { desk_.Push(new StatementPage(desk_, id, text)); });
                    }};
        case Kind::Item:
            return {tr("Item"), text, detail, Screen("ItemMaster", number)};
        case Kind::Bill:
            return {tr("Bill"), text, detail, Screen("frmReceipt", number)};
        case Kind::OrderBill:
            return {tr("Bill"), text, detail, Screen("frmPO", number)};
        case Kind::Order:
            return {tr("Order"), text, detail, Screen("frmPO", number)};
    }
    return {};
}

}  // namespace desk
