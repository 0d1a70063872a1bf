#include <map>
#include <string>

#include <gtest/gtest.h>

#include "platform/ado/EachRow.h"
#include "platform/ado/RowWindow.h"
#include "tests/platform/ado/TestStore.h"

namespace ado {
namespace {

using test::ErrorOf;
using test::TestStore;

std::string Shown(const KeptRows& rows) {
    std::string all;
    for (std::int64_t row = 0; row < rows.Count(); ++row) {
        const basic::Value value = rows.ValueAt(row, 0);
        all += (row > 0 ? " " : "") + (value.IsNull() ? std::string("-") : basic::ToText(value));
    }
    return all;
}

class RowWindowTest : public testing::Test {
  protected:
    RowWindowTest() {
        for (int i = 0; i < 300; ++i)
            c->Execute("Insert Into Small (Id, Remark) Values (" + std::to_string(i % 100) + ", '" +
                       (i % 2 == 0 ? "even" : "odd") + "')");
    }
    TestStore store;
    ConnectionPtr c = store.Connect();
};

// Equal keys of the order stand as they were inserted, in a page and by their keys alike.
TEST_F(RowWindowTest, GivesAnyPartInTheOrderOfTheSelect) {
    const RowWindow window(c, "Select Id From Small Where Remark = 'ODD' And Id < 90 Order By Id Desc");
    EXPECT_EQ(window.Count(), 135u);
    EXPECT_EQ(Shown(window.From(0, 5)), "89 89 89 87 87");
    EXPECT_EQ(Shown(window.From(133, 5)), "1 1");
    EXPECT_EQ(Shown(window.From(200, 5)), "");
    const RowKeys keys = window.Keys();
    ASSERT_EQ(keys.Size(), 135u);
    EXPECT_LT(keys[0], keys[1]);
    EXPECT_EQ(window.From(3, 1).KeyOf(0), keys[3]);
    EXPECT_EQ(Shown(window.Of(keys.Part(0, 1000))), Shown(window.From(0, 1000)));  // in two statements
    EXPECT_EQ(Shown(window.Of({})), "");
    std::size_t seen = 0, parts = 0;
    for (int doubled = 0; doubled < 5; ++doubled)
        c->Execute("Insert Into Small (Id, Remark) Select Id, Remark From Small");
    window.Each([&](const KeptRows& rows) {
        ++parts;
        for (std::int64_t row = 0; row < rows.Count(); ++row, ++seen)
            EXPECT_TRUE(seen >= 32 || basic::ToText(rows.ValueAt(row, 0)) == "89") << seen;
    });
    EXPECT_EQ(seen, 135u * 32);
    EXPECT_GT(parts, 1u);
    EXPECT_THROW(window.Each([](const KeptRows&) { throw 1; }), int);
    const auto count = [&](const char* select) {
        std::map<std::string, std::size_t> counts;
        EachRow(*c, select, [&](Recordset& row) { ++counts[basic::ToText(row["Id"])]; });
        return counts;
    };
    const auto byRow = count("Select Id From Small Where Id < 90"),
               distinct = count("Select Distinct Id From Small");
    EXPECT_EQ(byRow.size(), 90u);
    EXPECT_EQ(byRow.at("89"), 3u * 32);
    EXPECT_EQ(distinct.size(), 100u);
    EXPECT_EQ(distinct.at("99"), 1u);
    EXPECT_THROW(EachRow(*c, "Select Id From Small", [](Recordset&) { throw 1; }), int);
    EXPECT_EQ(window.Count(), 135u * 32);
}

// The keys are those of one moment: rows that others remove or change later read as they stand then.
TEST_F(RowWindowTest, ReadsRowsAsTheyStandAndNullForThoseThatAreGone) {
    const RowWindow window(c, "Select Id From Small Where Id < 2 Order By Id");
    const RowKeys keys = window.Keys();
    const ConnectionPtr other = store.Connect();
    other->Execute("Delete From Small Where Id = 0 And Remark = 'even'");
    other->Execute("Update Small Set Id = 77 Where Id = 1");
    const KeptRows rows = window.Of(keys.Part(0, keys.Size()));
    EXPECT_EQ(Shown(rows), "- - - 77 77 77");
    EXPECT_EQ(rows.KeyOf(0), 0);
    EXPECT_EQ(rows.KeyOf(3), keys[3]);
    EXPECT_EQ(window.Count(), 0u);
}

TEST_F(RowWindowTest, RefusesWhatIsNotOfTheFieldsOfOneTable) {
    for (const char* select : {"Select Distinct Id From Small", "Select Max(Id) As High From Small",
                               "Select Id + 1 As Next From Small", "Select Id From Small, Groups",
                               "Select Id From Small As S", "Delete From Small"})
        EXPECT_EQ(ErrorOf([&] { RowWindow(c, select); }), error::BadArgument) << select;
}

// A table may number its rows beyond 4 bytes, or below nought.
TEST(RowKeysTest, KeepWhateverKeyComes) {
    const std::vector<RowKey> all{7, 1, 3 + (RowKey{5} << 32), 3, -2};
    RowKeys keys;
    for (const RowKey key : all) keys.Add(key);
    EXPECT_EQ(keys.Part(0, 10), all);
    EXPECT_EQ(keys.Part(4, 1), std::vector<RowKey>{-2});
    EXPECT_EQ(keys.PlaceOf(3), 3u);
    EXPECT_EQ(keys.PlaceOf(5), std::nullopt);
    EXPECT_EQ(keys.At({2, 0}).Part(0, 2), (std::vector<RowKey>{all[2], 7}));
    keys.Resize(6);
    EXPECT_EQ(keys[5], 0);
}

}  // namespace
}  // namespace ado
