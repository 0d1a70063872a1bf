#include "platform/ado/store/Outbox.h"

#include <algorithm>
#include <utility>

namespace ado {
namespace {

constexpr const char* Guard = "SAVEPOINT qm_statement";
constexpr const char* Unguard = "RELEASE qm_statement";
constexpr const char* Undone = "ROLLBACK TO qm_statement";

// The classic errors end far below.
constexpr std::int32_t NoneMatched = 999;

// Fails on the server where the statement matches no row, so that nothing behind it runs.
std::string Matching(const std::string& sql) {
    return "WITH qm_matched AS (" + sql + " RETURNING 1) SELECT CASE count(*) WHEN 0 THEN qm_fail('QM" +
           std::to_string(NoneMatched) + "', '', '', count(*)) END FROM qm_matched";
}

}  // namespace

bool Outbox::HoldsGuarded() const {
    return std::any_of(items_.begin(), items_.end(), [](const Item& item) { return item.guarded; });
}

bool Outbox::TakeBack(std::string_view sql) {
    const auto from =
        std::find_if(items_.begin(), items_.end(), [&](const Item& item) { return item.sql == sql; });
    const bool waits = from != items_.end();
    items_.erase(from, items_.end());
    return waits;
}

void Outbox::PutInto(Flight& flight) {
    out_ = std::exchange(items_, {});
    for (Item& item : out_) {
        if (item.guarded) flight.Add(Guard);
        item.place = flight.Added();
        flight.Add(item.none ? Matching(item.sql) : item.sql, item.values, item.main);
        if (item.guarded) flight.Add(Unguard);
    }
}

const Outbox::Item* Outbox::Failed(const Flight& flight) const {
    const auto failed = std::find_if(out_.begin(), out_.end(),
                                     [&](const Item& item) { return item.place == flight.FailedAt(); });
    return failed == out_.end() ? nullptr : &*failed;
}

void Outbox::Undo(Flight& flight) {
    flight.Run({Undone, Unguard});
}

basic::Error Outbox::Told(const Item& item, const basic::Error& failure) {
    return item.none && failure.Number == NoneMatched ? *item.none : failure;
}

}  // namespace ado
