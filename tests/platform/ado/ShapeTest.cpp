#include <gtest/gtest.h>

#include "platform/ado/dialect/Shape.h"
#include "platform/ado/dialect/Tokens.h"
#include "platform/basic/Error.h"

namespace {

using ado::ShapeOf;

std::vector<std::string> Texts(const ado::Shape& shape) {
    std::vector<std::string> texts;
    for (const ado::Literal& literal : shape.literals)
        texts.push_back((literal.isText ? "'" : "") + literal.text);
    return texts;
}

// The key with its marks written as # and $.
std::string Key(const std::string& statement) {
    std::string key = ShapeOf(statement).key;
    for (char& c : key) {
        if (c == ado::NumberMark) c = '#';
        if (c == ado::TextMark) c = '$';
    }
    return key;
}

TEST(Shape, TakesTheLiteralsOutAndLeavesTheNames) {
    const struct {
        const char* statement;
        const char* key;
        std::vector<std::string> literals;
    } cases[] = {
        {"  Select * \t From tb_Ledger2001 Where A=1500.5 ",
         "Select * From tb_Ledger2001 Where A=#",
         {"1500.5"}},
        {"Values (1E+16, .5,-0.3, 2001)", "Values (#, #,-#, #)", {"1E+16", ".5", "0.3", "2001"}},
        {"'it''s' \"a \"\"b\"\"\" ''", "$ $ $", {"'it's", "'a \"b\"", "'"}},
        {"'a;b--c\"d' \"e'f\"", "$ $", {"'a;b--c\"d", "'e'f"}},
        {"[Ledger Id 12's]", "[Ledger Id 12's]", {}},
        {"a -- 1", "a -- #", {"1"}},
        {"ItemMaster2001WHERE  Item_ID=5", "ItemMaster2001WHERE Item_ID=#", {"5"}},
        {"Delete From T ;  ", "Delete From T", {}},
        {"\xe0\xa4\xa8\xe0\xa4\x97\xe0\xa4\xa6 = 1", "\xe0\xa4\xa8\xe0\xa4\x97\xe0\xa4\xa6 = #", {"1"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Key(c.statement), c.key) << c.statement;
        EXPECT_EQ(Texts(ShapeOf(c.statement)), c.literals) << c.statement;
    }
}

TEST(Shape, SameShapeWhateverTheValueButNotWhateverItsKind) {
    EXPECT_EQ(ShapeOf("a = 'x'").key, ShapeOf("a = \"yy''z\"").key);
    EXPECT_EQ(ShapeOf("a = 1").key, ShapeOf("a = 2.5E-3").key);
    EXPECT_NE(ShapeOf("a = '1'").key, ShapeOf("a = 1").key);
}

TEST(Shape, RefusesWhatDoesNotEndAndWhatFollows) {
    for (const char* statement : {"a = 'x", "a = \"x''", "[a", "[]", "Delete From T; Delete From S", "T; ;",
                                  "a = \x01", "[a\x02]", "1E999"})
        EXPECT_THROW(ShapeOf(statement), basic::Error) << statement;
}

}  // namespace
