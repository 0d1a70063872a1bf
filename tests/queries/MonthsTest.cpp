#include <gmock/gmock.h>

#include "platform/basic/Dates.h"
#include "queries/CashAndBank.h"
#include "queries/Months.h"
#include "queries/Vouchers.h"
#include "tests/queries/QueryBooks.h"

using namespace testing;

namespace {

TEST(Months, SumWhatWasTradedAndMoved) {
    test::QueryBooks books;
    const int cash = books.AddLedger("Cash", "Cash In Hand", 10),
              bank = books.AddLedger("Bank", "Bank", 5, "C");
    const int shop = books.AddLedger("Shop", "Sales"), web = books.AddLedger("Web", "Sales");
    const int goods = books.AddLedger("Goods", "Purchase");
    books.Post(1, cash, 36970, 1000, "Receipt");  // before the year
    books.Post(2, cash, 36980, 70, "Receipt"), books.Post(2, shop, 36980, -70, "Receipt");
    books.Post(3, bank, 37009, 30.1, "Receipt"), books.Post(3, web, 37009, -30.1, "Receipt");
    books.Post(4, web, 37010, 0.1, "Payment"), books.Post(4, bank, 37010, -0.1, "Payment");
    books.Post(5, goods, 37011, 12, "Payment"), books.Post(5, cash, 37011, -12, "Payment");
    books.Post(6, bank, 37041, 20, "Contra"), books.Post(6, cash, 37041, -20, "Contra");
    queries::Reading reading(books.DataPath());
    const queries::Range spring{.from = basic::MakeDate(2001, 4, 2), .upto = basic::MakeDate(2001, 6, 1)};
    EXPECT_THAT(test::LinesOf(*queries::MonthsSheet(reading, spring)),
                ElementsAre("02/04/2001|30/04/2001|30.1|0|30.1|0", "01/05/2001|31/05/2001|-0.1|12|0|12.1",
                            "01/06/2001|01/06/2001|0|0|0|0"));
    EXPECT_EQ(queries::Months(reading).size(), 12u);
    EXPECT_EQ(queries::Months(reading)[0].sales, 100.1);
    EXPECT_EQ(queries::SumVouchers(reading, {.days = spring, .group = "sales"}).lines, 2u);
    EXPECT_EQ(queries::SumVouchers(reading, {.group = "Nowhere"}).lines, 0u);
    EXPECT_THAT(
        test::LinesOf(*queries::CashAndBankSheet(reading, queries::Every::Month, spring)),
        ElementsAre("02/04/2001|30/04/2001|-|-|1080|30.1|-|25.1", "01/05/2001|31/05/2001|-|12|1068|-|0.1|25",
                    "01/06/2001|01/06/2001|-|20|1048|20|-|45"));
    EXPECT_THAT(
        test::LinesOf(*queries::CashAndBankSheet(reading, queries::Every::Day)),
        ElementsAre("01/04/2001|01/04/2001|70|-|1080|-|-|-5", "30/04/2001|30/04/2001|-|-|1080|30.1|-|25.1",
                    "01/05/2001|01/05/2001|-|-|1080|-|0.1|25", "02/05/2001|02/05/2001|-|12|1068|-|-|25",
                    "01/06/2001|01/06/2001|-|20|1048|20|-|45"));
}

}  // namespace
