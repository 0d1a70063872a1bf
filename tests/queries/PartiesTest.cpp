#include <gmock/gmock.h>

#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "queries/Parties.h"
#include "tests/queries/QueryBooks.h"

using namespace testing;

namespace {

// Worked out by hand: what was paid takes the oldest away, so the newest rows make up the balance.
TEST(Parties, OweTheirNewestRows) {
    test::QueryBooks books;
    const int day = 37100;  // 30 days back is 37070, 60 is 37040, 90 is 37010
    const int model = books.AddLedger("Model", "Debtors", 100),
              early = books.AddLedger("Early", "debtors", 40, "C");
    const int depot = books.AddLedger("Depot", "Suppliers", 10, "C"),
              even = books.AddLedger("Even", "Suppliers");
    books.AddLedger("Cash", "Cash In Hand", 9);
    for (const auto& [at, amount] :
         {std::pair{37009, 7.0}, {37010, 20.0}, {37040, 30.0}, {37070, 40.0}, {37100, 0.1}, {37101, 500.0}})
        books.Post(1, model, at, amount);
    books.Post(2, model, 37100, -110.1);  // the opening and 10.1 of the rest
    books.Post(3, early, 37080, 25);      // they have paid 15 too much
    books.Post(4, depot, 36990, -5), books.Post(4, depot, 37039, -2), books.Post(5, depot, 37099, 8);
    books.Post(6, even, 37000, 0.3), books.Post(6, even, 37001, -0.1), books.Post(6, even, 37002, -0.2);
    queries::Reading reading(books.DataPath());
    EXPECT_THAT(test::LinesOf(*queries::PartiesSheet(reading, queries::DateOf(day))),
                ElementsAre("Depot|Suppliers|-9|-|-|-2|-7", "Early|debtors|-15|-|-|-|-15",
                            "Model|Debtors|87|40.1|30|16.9|-"));
    // The opening is as old as the year.
    EXPECT_THAT(test::LinesOf(*queries::PartiesSheet(reading, basic::MakeDate(2001, 5, 15))),
                ElementsAre("Depot|Suppliers|-15|-|-15|-|-", "Early|debtors|-40|-|-40|-|-",
                            "Model|Debtors|127|27|100|-|-"));
    basic::Clock::Set(queries::DateOf(day));
    EXPECT_EQ(queries::Parties(reading)[2].balance, 87);
    basic::Clock::Set(basic::MakeDate(2010, 1, 1));
    const auto late = queries::PartiesSheet(reading);
    basic::Clock::Set({});
    EXPECT_EQ(late->Title(), "Parties by age, 31-Mar-2002");
    EXPECT_EQ(late->Typed()[2].older, 587);
}

}  // namespace
