#include <gtest/gtest.h>

#include "core/RecordsetObject.h"
#include "core/clQmObject.h"
#include "platform/ado/Errors.h"
#include "tests/core/LateBound.h"
#include "tests/support/FreshBooks.h"

namespace {

using basic::Value;
using test::LateBound;

constexpr HRESULT Failed(std::int32_t classicNumber) {
    return FACILITY_CONTROL_ERROR | classicNumber;
}

class RecordsetObject : public testing::Test {
  protected:
    RecordsetObject() {
        first = books.AddLedger("Till", "Cash In Hand");
        second = books.AddLedger("Savings", "Bank");
    }
    LateBound List() { return LateBound(qm::NewRecordsetObject(books.Host().GetDebitLedgers())); }

    test::FreshBooks books;
    int first = 0, second = 0;
};

TEST_F(RecordsetObject, IsWalkedBothWays) {
    const LateBound rows = List();
    EXPECT_EQ(rows.Get("State"), Value(1));
    EXPECT_EQ(rows.Get("RecordCount"), Value(2));
    EXPECT_EQ(rows.Get("eof"), Value(false));
    rows.Get("MoveNext");
    EXPECT_EQ(rows.Object("Fields", {"Name"}).Get("Value"), Value("Savings"));
    rows.Get("MoveNext");
    EXPECT_EQ(rows.Get("EOF"), Value(true));
    EXPECT_EQ(rows.ResultOf("MoveNext"), Failed(ado::error::NoCurrentRecord));
    rows.Get("MoveFirst");
    rows.Get("MovePrevious");
    EXPECT_EQ(rows.Get("BOF"), Value(true));
    rows.Get("Close");
    EXPECT_EQ(rows.Get("State"), Value(0));
    EXPECT_EQ(rows.ResultOf("Close"), Failed(ado::error::ObjectClosed));
}

TEST_F(RecordsetObject, FieldsAreFoundByNumberByNameAndByDefault) {
    const LateBound rows = List();
    const LateBound fields = rows.Object("Fields");
    EXPECT_EQ(fields.Get("Count"), Value(2));
    for (const Value& index : {Value(1), Value(std::int16_t{1}), Value(1.0), Value("nAme")}) {
        EXPECT_EQ(fields.Object("Item", {index}).Get("Name"), Value("Name"));
        EXPECT_EQ(rows.Object("Fields", {index}).Get("Value"), Value("Till"));
        EXPECT_EQ(rows.Get("Fields", {index}), Value("Till")) << "a field reads as its value";
    }
    EXPECT_EQ(rows.Get("Fields", {0}), Value(first));
    for (const Value& index : {Value(2), Value(-1), Value("Nothing")})
        EXPECT_EQ(rows.ResultOf("Fields", {index}), Failed(ado::error::ItemNotFound));
    EXPECT_EQ(fields.ResultOf("Item", {Value()}), Failed(basic::error::InvalidNull));
}

TEST_F(RecordsetObject, AFieldOutlivesItsHostAndItsRecordSetsFaces) {
    const LateBound field = List().Object("Fields", {"Name"});
    EXPECT_EQ(field.Get("Value"), Value("Till"));
    books.CloseHost();
    EXPECT_EQ(field.Get("Value"), Value("Till"));
}

}  // namespace
