#include <gmock/gmock.h>

#include "platform/basic/Dates.h"
#include "queries/Vouchers.h"
#include "tests/queries/QueryBooks.h"

using namespace testing;
using queries::VoucherFilter;
using queries::VoucherOrder;

namespace {

// The numbers of the lines in their order, which is the same with the keys of all.
std::string Numbers(queries::VoucherLines lines) {
    const auto read = [&] {
        std::string numbers;
        for (const queries::VoucherLine& line : lines.Page(0, 100))
            numbers += (numbers.empty() ? "" : " ") + std::to_string(line.number);
        return numbers;
    };
    const std::string head = read();
    lines.Settle();
    EXPECT_EQ(read(), head);
    return head;
}

TEST(Vouchers, AreNarrowedAndOrdered) {
    test::QueryBooks books;
    const int bank = books.AddLedger("Bank", "Bank"), rent = books.AddLedger("Rent", "Expenditure(Indirect)");
    books.Post(1, rent, 36990, 500, "Payment", "Rent of the shop, 100% paid");
    books.Post(1, bank, 36990, -500, "Payment", "Rent of the shop, 100% paid");
    books.Post(3, bank, 36980, 70.5, "Receipt", "It''s ÄPFEL [two]");
    books.Post(2, rent, 37000, -0.25, "Journal", "shop and rent put right");
    queries::Reading reading(books.DataPath());
    const auto day = [](int number) { return std::optional(queries::DateOf(number)); };
    const struct {
        VoucherFilter filter;
        const char* numbers;
    } cases[] = {
        {{}, "3 1 1 2"},
        {{.days = {day(36981), day(36990)}}, "1 1"},
        {{.days = {{}, day(36980)}}, "3"},
        {{.type = qm::VoucherType::Payment, .ledger = bank}, "1"},
        {{.number = 2}, "2"},
        {{.least = 0.25, .most = 70.5}, "3 2"},
        {{.least = 70.51}, "1 1"},
        {{.most = 0.2}, ""},
        {{.words = "RENT  shop"}, "1 1 2"},
        {{.words = "it's äpfel [TWO]"}, "3"},
        {{.type = qm::VoucherType::Journal, .words = "paid"}, ""},
    };
    for (const auto& [filter, numbers] : cases) {
        EXPECT_EQ(Numbers(queries::Vouchers(reading, filter)), numbers) << filter.words;
        const queries::VoucherSums sums = queries::SumVouchers(reading, filter);
        EXPECT_EQ(sums.lines, queries::Vouchers(reading, filter).Count());
        EXPECT_EQ(std::string(numbers).empty(), sums.debit + sums.credit == 0);
    }
    EXPECT_EQ(Numbers(Vouchers(reading, {}, VoucherOrder::Date, true)), "2 1 1 3");
    EXPECT_EQ(Numbers(Vouchers(reading, {}, VoucherOrder::Ledger, true)), "1 2 3 1");
    EXPECT_EQ(Numbers(Vouchers(reading, {}, VoucherOrder::Credit, true)), "1 2 3 1");
    books.Run("Update tb_Ledger2001 Set LedgerDrAmt = Null, LedgerTxnDate = Null Where LedgerTrnNo = 2");
    EXPECT_EQ(Numbers(Vouchers(reading, {}, VoucherOrder::Debit)), "2 1 3 1");
    EXPECT_EQ(Numbers(Vouchers(reading, {.words = "rent"}, VoucherOrder::Debit, true)), "1 1 2");
    books.Run("Update tb_Ledger2001 Set LedgerDrAmt = 0, LedgerTxnDate = 37000 Where LedgerTrnNo = 2");
    const auto sheet = queries::ListVouchers(reading, {.days = {day(36980), {}}});
    EXPECT_EQ(sheet->Title(), "Vouchers, 01-Apr-2001 to 31-Mar-2002");
    EXPECT_EQ(test::LinesOf(*sheet).front(), "01/04/2001|3|Receipt|Bank|70.5|-|It's ÄPFEL [two]");
    books.Run("Update tb_Ledger2001 Set LedgerName = Null, LedgerNarration = 'it' Where LedgerTrnNo = 2");
    EXPECT_EQ(Numbers(Vouchers(reading, {}, VoucherOrder::Narration)), "2 3 1 1");
    EXPECT_EQ(Numbers(Vouchers(reading, {}, VoucherOrder::Narration, true)), "1 1 3 2");
    EXPECT_EQ(Numbers(Vouchers(reading, {}, VoucherOrder::Ledger)), "2 3 1 1");
    EXPECT_EQ(Numbers(Vouchers(reading, {}, VoucherOrder::Type, true)), "3 1 1 2");
}

// Deep down the list stands as it was when it was first looked at: what is removed meanwhile leaves its place
// empty, what is added does not move the rest.
TEST(Vouchers, AMillionLinesAreReadByPage) {
    test::QueryBooks books;
    qm::Conn().BeginTrans();
    for (int line = 0; line < 1500; ++line) books.Post(line, 1, 36980 + (line % 300), 1);
    qm::Conn().CommitTrans();
    const std::string place = books.DataPath();
    queries::Reading reading(place);
    queries::VoucherLines lines = queries::Vouchers(reading);
    EXPECT_EQ(lines.Count(), 1500u);
    EXPECT_EQ(lines.Page(0, 6)[5].number, 1);  // five lines a day
    const auto last = lines.Page(1490, 50);
    ASSERT_EQ(last.size(), 10u);
    EXPECT_EQ(last.back().number, 1499);
    EXPECT_EQ(lines.PlaceOf(last.back().key), 1499u);
    ado::Connection writer;
    writer.Properties("Data Source") = place + "QmAccount.mdb";
    writer.Properties("Jet OLEDB:Database Password") = "quintel";
    writer.Open();
    writer.Execute("Delete From tb_Ledger2001 Where LedgerTrnNo = 1199");
    writer.Execute("Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerTxnDate) Values (9999, 36980)");
    EXPECT_EQ(lines.Page(1498, 5)[0].key, 0);
    EXPECT_EQ(lines.Page(1498, 5)[1].number, 1499);
    EXPECT_EQ(lines.Page(0, 1)[0].number, 0);
    EXPECT_TRUE(lines.Page(1500, 5).empty());
    EXPECT_EQ(queries::Vouchers(reading).Count(), 1500u);
    EXPECT_EQ(queries::Vouchers(reading).Page(5, 1)[0].number, 9999);
}

}  // namespace
