#include <gtest/gtest.h>

#include "core/RecordsetObject.h"
#include "core/clQmObject.h"
#include "platform/ado/Errors.h"
#include "platform/com/ITypeInfo.h"
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

TEST_F(RecordsetObject, AFieldTellsItsTypeAndSizes) {
    const LateBound rows = List(), number = rows.Object("Fields", {0}), name = rows.Object("Fields", {1});
    for (const auto& [member, ofNumber, ofName] :
         {std::tuple{"Type", 3, 202}, {"DefinedSize", 4, 536870910}, {"ActualSize", 4, 8}}) {
        EXPECT_EQ(number.Get(member), Value(ofNumber)) << member;
        EXPECT_EQ(name.Get(member), Value(ofName)) << member;
    }
    try {
        name.Let("Value", "Other");
        ADD_FAILURE() << "a value was taken";
    } catch (const basic::Error& refusal) {
        EXPECT_EQ(refusal.Number, Failed(ado::error::NotUpdatable));
    }
    for (const int asked : {-1, 7}) try {
            rows.Get("Fields", {asked});
            ADD_FAILURE() << "field " << asked;
        } catch (const basic::Error& refusal) {
            EXPECT_EQ(refusal.Description,
                      "The record set has no field number " + std::to_string(asked) + ".");
        }
}

// The array has a dimension for the fields and one for the rows; the set goes on behind what was taken.
TEST_F(RecordsetObject, RowsAreGivenAsAnArray) {
    const LateBound rows = List();
    const auto taken = [&](std::vector<Value> arguments, VARIANT* extra = nullptr) {
        com::Variant array;
        rows.Whole("GetRows", std::move(arguments), array, extra);
        EXPECT_EQ(array.vt, VT_ARRAY | VT_VARIANT);
        EXPECT_EQ(SafeArrayGetDim(array.parray), 2U);
        std::int32_t low[2]{}, high[2]{};
        for (std::uint32_t i = 0; i < 2; ++i) {
            EXPECT_EQ(SafeArrayGetLBound(array.parray, i + 1, &low[i]), S_OK);
            EXPECT_EQ(SafeArrayGetUBound(array.parray, i + 1, &high[i]), S_OK);
        }
        std::string shown;
        for (std::int32_t row = low[1]; row <= high[1]; ++row)
            for (std::int32_t field = low[0]; field <= high[0]; ++field) {
                const std::int32_t at[] = {field, row};
                com::Variant value;
                EXPECT_EQ(SafeArrayGetElement(array.parray, at, &value), S_OK);
                shown += basic::ToText(com::ValueOf(value)) + (field == high[0] ? ";" : "/");
            }
        const std::int32_t beyond[] = {high[0] + 1, low[1]};
        com::Variant none;
        EXPECT_EQ(SafeArrayGetElement(array.parray, beyond, &none), DISP_E_BADINDEX);
        return shown;
    };
    const std::string till = std::to_string(first), savings = std::to_string(second);
    EXPECT_EQ(taken({1}), till + "/Till;");
    EXPECT_EQ(taken({5, 0, "Name"}), "Savings;");
    EXPECT_EQ(rows.ResultOf("GetRows"), Failed(ado::error::NoCurrentRecord));
    rows.Get("MoveFirst");
    EXPECT_EQ(taken({-1, 0, 0}), till + ";" + savings + ";");
    rows.Get("MoveFirst");
    // The fields as an array of one dimension: such a host's own.
    std::vector<VARIANT> asked(2);
    com::Variant name;
    com::Store(Value("Name"), name);
    asked[0] = name;
    com::Store(Value(0), asked[1]);
    SAFEARRAY list{1, 0x800, sizeof(VARIANT), 0, asked.data(), {{2, 0}}};
    VARIANT given{};
    given.vt = VT_ARRAY | VT_VARIANT;
    given.parray = &list;
    EXPECT_EQ(taken({1, 0}, &given), "Till/" + till + ";");
    EXPECT_EQ(rows.ResultOf("GetRows", {1, 0, "Nothing"}), Failed(ado::error::ItemNotFound));
    EXPECT_EQ(rows.ResultOf("GetRows", {1, 1}), Failed(ado::error::NotUpdatable));
}

TEST_F(RecordsetObject, FieldsComeInTurn) {
    const LateBound rows = List(), fields = rows.Object("Fields");
    com::Variant held;
    fields.Whole("_NewEnum", {}, held);
    ASSERT_EQ(held.vt, VT_UNKNOWN);
    void* offered = nullptr;
    ASSERT_EQ(held.punkVal->QueryInterface(IID_IEnumVARIANT, &offered), S_OK);
    const com::Ptr<IEnumVARIANT> turn(static_cast<IEnumVARIANT*>(offered));
    const auto next = [](IEnumVARIANT& of, std::uint32_t count) {
        std::string names;
        std::vector<com::Variant> values(count);
        std::vector<VARIANT> plain(count);
        std::uint32_t given = 0;
        names = of.Next(count, plain.data(), &given) == S_OK ? "" : "only ";
        for (std::uint32_t i = 0; i < given; ++i)
            names += basic::ToText(LateBound(plain[i].pdispVal).Get("Name")) + " ";
        return names;
    };
    EXPECT_EQ(next(*turn.Get(), 1), "Ledger_ID ");
    IEnumVARIANT* copied = nullptr;
    ASSERT_EQ(turn->Clone(&copied), S_OK);
    const com::Ptr<IEnumVARIANT> copy(copied);
    EXPECT_EQ(next(*turn.Get(), 2), "only Name ");
    EXPECT_EQ(next(*copy.Get(), 1), "Name ");
    EXPECT_EQ(copy->Skip(1), S_FALSE);
    EXPECT_EQ(copy->Reset(), S_OK);
    EXPECT_EQ(copy->Skip(1), S_OK);
    EXPECT_EQ(next(*copy.Get(), 1), "Name ");
}

// What is told of a member is what it takes: each one by the id, the kinds and the names of its description.
TEST_F(RecordsetObject, TheTypeInformationNamesEveryMember) {
    const LateBound rows = List(), fields = rows.Object("Fields"), field = rows.Object("Fields", {0});
    for (const auto& [object, name, members] :
         {std::tuple{&rows, "Recordset", 34}, {&fields, "Fields", 3}, {&field, "Field", 6}}) {
        ITypeInfo* given = nullptr;
        ASSERT_EQ(object->Raw()->GetTypeInfo(0, 0, &given), S_OK);
        const com::Ptr<ITypeInfo> info(given);
        com::Variant shown;
        shown.vt = VT_BSTR;
        EXPECT_EQ(info->GetDocumentation(MEMBERID_NIL, &shown.bstrVal, nullptr, nullptr, nullptr), S_OK);
        EXPECT_EQ(com::TextOf(shown.bstrVal), name);
        FUNCDESC* function = nullptr;
        int count = 0;
        for (; info->GetFuncDesc(static_cast<std::uint32_t>(count), &function) == S_OK; ++count) {
            BSTR member = nullptr;
            std::uint32_t named = 0;
            DISPID id = DISPID_UNKNOWN;
            EXPECT_EQ(info->GetNames(function->memid, &member, 1, &named), S_OK);
            EXPECT_EQ(object->Raw()->GetIDsOfNames(IID_NULL, &member, 1, 0, &id), S_OK);
            EXPECT_EQ(id, function->memid) << com::TextOf(member);
            SysFreeString(member);
            info->ReleaseFuncDesc(function);
        }
        EXPECT_EQ(count, members) << name;
    }
}

TEST_F(RecordsetObject, AFieldOutlivesItsHostAndItsRecordSetsFaces) {
    const LateBound field = List().Object("Fields", {"Name"});
    EXPECT_EQ(field.Get("Value"), Value("Till"));
    books.CloseHost();
    EXPECT_EQ(field.Get("Value"), Value("Till"));
}

}  // namespace
