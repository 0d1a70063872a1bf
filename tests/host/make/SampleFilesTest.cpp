#include <cmath>
#include <ctime>
#include <map>
#include <set>

#include <gmock/gmock.h>
#include <time.h>

#include "host/make/Embedded.h"

// The sample's texts, as a reviewer would read them; CreateTest lays them into books.
namespace {

using ::testing::AllOf;
using ::testing::Ge;
using ::testing::Le;
using ::testing::SizeIs;
using Rows = std::vector<host::CsvRow>;

std::int64_t Paise(const std::string& amount) {
    std::size_t read = 0;
    const double rupees = std::stod(amount, &read);
    EXPECT_EQ(read, amount.size()) << amount;
    EXPECT_NEAR(rupees * 100, std::round(rupees * 100), 1e-6) << amount;
    return std::llround(rupees * 100);
}

std::set<std::string> Column(const Rows& rows, std::size_t column) {
    std::set<std::string> values;
    for (const auto& row : rows) values.insert(row.fields[column]);
    return values;
}

std::string DayOf(const std::string& text) {
    std::tm day{};
    const char* end = strptime(text.c_str(), "%d-%b-%Y", &day);
    if (!end || *end) return "no date: " + text;
    char sortable[20];
    std::strftime(sortable, sizeof sortable, "%Y-%m-%d", &day);
    return sortable;
}

const Rows ledgers = host::EmbeddedRows("sample/ledgers.csv");
const Rows items = host::EmbeddedRows("sample/items.csv");
const Rows vouchers = host::EmbeddedRows("sample/vouchers.csv");

TEST(SampleFiles, OpeningsAgree) {
    std::map<std::string, std::int64_t> sides, groups;
    for (const auto& row : ledgers) {
        sides[row.fields[3]] += Paise(row.fields[2]);
        groups[row.fields[1]] += Paise(row.fields[2]);
    }
    EXPECT_THAT(sides, SizeIs(2));
    EXPECT_EQ(sides["D"], sides["C"]);

    std::int64_t worth = 0;
    for (const auto& item : items) worth += Paise(item.fields[7]) * std::stoll(item.fields[4]);
    EXPECT_EQ(groups["Stock in Hand"], worth);
}

// All ledgers and groups share one tree, where names find the rows; quotes would end the statements.
TEST(SampleFiles, LedgersFillEveryGroupUnderNamesOfTheirOwn) {
    const auto groups = Column(host::EmbeddedRows("groups.csv"), 0);
    EXPECT_EQ(Column(ledgers, 1), groups);
    std::set<std::string> names = groups;
    for (const auto& row : ledgers) {
        EXPECT_TRUE(names.insert(row.fields[0]).second) << row.fields[0];
        for (const auto& cell : row.fields) EXPECT_EQ(cell.find_first_of("'\""), std::string::npos) << cell;
    }
}

TEST(SampleFiles, ItemsAreOfTheFiveTypes) {
    EXPECT_THAT(items, SizeIs(12));
    EXPECT_THAT(Column(items, 0), SizeIs(12));
    EXPECT_EQ(Column(items, 2),
              (std::set<std::string>{"Consumable", "Equipment", "General", "Material", "Medicine"}));
}

TEST(SampleFiles, VouchersBalanceAndLieInTheYear) {
    std::map<std::string, std::int64_t> balance;
    std::map<std::string, std::set<std::string>> heads;
    std::set<std::string> months;
    const auto names = Column(ledgers, 0);
    for (const auto& row : vouchers) {
        const auto& [number, date, side, ledger] =
            std::tie(row.fields[0], row.fields[1], row.fields[3], row.fields[4]);
        balance[number] += Paise(row.fields[5]) * (side == "D" ? 1 : -1);
        heads[number].insert(date + row.fields[2] + row.fields[6]);
        const std::string day = DayOf(date);
        EXPECT_THAT(day, AllOf(Ge("2001-04-01"), Le("2002-03-31"), SizeIs(10)));
        months.insert(day.substr(0, 7));
        EXPECT_TRUE(side == "D" || side == "C") << side;
        EXPECT_GT(Paise(row.fields[5]), 0);
        EXPECT_TRUE(names.contains(ledger)) << ledger;
        EXPECT_EQ(row.fields[6].find('"'), std::string::npos);
    }
    EXPECT_THAT(balance, SizeIs(60));
    for (const auto& [number, paise] : balance) EXPECT_EQ(paise, 0) << number;
    for (const auto& [number, head] : heads) EXPECT_THAT(head, SizeIs(1)) << number;
    EXPECT_THAT(months, SizeIs(12));
    EXPECT_EQ(Column(vouchers, 2), (std::set<std::string>{"Contra", "Journal", "Payment", "Receipt"}));
}

}  // namespace
