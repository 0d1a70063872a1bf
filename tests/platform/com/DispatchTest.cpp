#include <list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/basic/Error.h"
#include "platform/com/Bstr.h"
#include "platform/com/Dispatch.h"
#include "platform/com/ErrorInfo.h"
#include "platform/com/ITypeInfo.h"
#include "platform/com/Object.h"
#include "platform/com/Variant.h"

namespace {

using com::Bind;
using com::Variant;

// A class with one member of each sort.
class Till final : public com::Object<IDispatch, Till> {
  public:
    Till() : Object(Face()) {}

    void Post(std::int32_t number, double* amount, BSTR note, std::int32_t* count) {
        log += std::to_string(number) + "/" + com::TextOf(note) + ";";
        *amount += 1;
        *count = ++posts;
    }
    void GetNote(BSTR* note) { *note = com::MakeBstr(log); }
    void LetNote(BSTR note) { log = com::TextOf(note); }
    HRESULT Fail() { return com::ResultOf(5); }
    void Throw() { basic::Raise(basic::error::InvalidNull, "till"); }
    void Itself(IDispatch** self) {
        AddRef();
        *self = this;
    }
    void Twice(VARIANT* given, VARIANT* doubled) {
        com::Store(com::ValueOf(*given).IsNull() ? basic::Value("nothing")
                                                 : basic::ToDouble(com::ValueOf(*given)) * 2,
                   *doubled);
    }

    std::string log;
    std::int32_t posts = 0;

  private:
    static const com::Interface& Face() {
        static const com::Interface face{
            "Till",
            {1, 2, 3, {4}},
            "A till",
            {
                {"Twice",
                 DISPID_VALUE,
                 DISPATCH_PROPERTYGET,
                 {{"given", VT_VARIANT, true}},
                 VT_VARIANT,
                 Bind<&Till::Twice>},
                {"Post",
                 1,
                 DISPATCH_METHOD,
                 {{"number", VT_I4}, {"amount", VT_R8, false, true}, {"note", VT_BSTR, true}},
                 VT_I4,
                 Bind<&Till::Post>,
                 "Posts"},
                {"Note", 2, DISPATCH_PROPERTYGET, {}, VT_BSTR, Bind<&Till::GetNote>},
                {"Note", 2, DISPATCH_PROPERTYPUT, {{"value", VT_BSTR}}, VT_EMPTY, Bind<&Till::LetNote>},
                {"Fail", 3, DISPATCH_METHOD, {}, VT_EMPTY, Bind<&Till::Fail>},
                {"Throw", 4, DISPATCH_METHOD, {}, VT_EMPTY, Bind<&Till::Throw>},
                {"Itself", 5, DISPATCH_PROPERTYGET, {}, VT_DISPATCH, Bind<&Till::Itself>},
            }};
        return face;
    }
};

class Dispatch : public testing::Test {
  protected:
    // Arguments in the order of rgvarg: the last one first, the named ones before the others.
    HRESULT Invoke(DISPID id, std::uint16_t flags, std::vector<VARIANT> arguments = {},
                   std::vector<DISPID> named = {}) {
        DISPPARAMS parameters{arguments.data(), named.data(), static_cast<std::uint32_t>(arguments.size()),
                              static_cast<std::uint32_t>(named.size())};
        VariantClear(&result);
        return till->Invoke(id, IID_NULL, 0, flags, &parameters, &result, &failure, &bad);
    }
    static VARIANT Number(std::int32_t number) {
        VARIANT value{};
        value.vt = VT_I4;
        value.lVal = number;
        return value;
    }
    static VARIANT Missing() {
        VARIANT value = Number(DISP_E_PARAMNOTFOUND);
        value.vt = VT_ERROR;
        return value;
    }
    static VARIANT ReferenceToNothing(VARTYPE type) {
        VARIANT value{};
        value.vt = type | VT_BYREF;
        return value;
    }
    VARIANT Text(const char* text) {
        texts.emplace_back();
        com::Store(basic::Value(text), texts.back());
        return texts.back();
    }

    com::Ptr<Till> till{new Till};
    std::list<Variant> texts;
    Variant result;
    EXCEPINFO failure{};
    std::uint32_t bad = 99;
};

TEST_F(Dispatch, NamesAreFoundWithoutRegardToCaseAndArgumentsByTheirPlace) {
    std::u16string post = u"POST", note = u"Note", amount = u"aMount", nothing = u"Nothing";
    char16_t* names[] = {post.data(), note.data(), amount.data()};
    DISPID ids[3];
    EXPECT_EQ(till->GetIDsOfNames(IID_NULL, names, 3, 0, ids), S_OK);
    EXPECT_EQ(std::vector(ids, ids + 3), (std::vector<DISPID>{1, 2, 1}));
    names[1] = nothing.data();
    EXPECT_EQ(till->GetIDsOfNames(IID_NULL, names, 3, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(std::vector(ids, ids + 3), (std::vector<DISPID>{1, DISPID_UNKNOWN, 1}));
    names[0] = nothing.data();
    EXPECT_EQ(till->GetIDsOfNames(IID_NULL, names, 1, 0, ids), DISP_E_UNKNOWNNAME);
}

TEST_F(Dispatch, PositionalArgumentsComeLastFirstAndAreConverted) {
    ASSERT_EQ(Invoke(1, DISPATCH_METHOD, {Text("rent"), Number(5), Text("12")}), S_OK);
    EXPECT_EQ(till->log, "12/rent;");
    EXPECT_EQ(com::ValueOf(result), basic::Value(1));
}

TEST_F(Dispatch, NamedArgumentsStandInAnyOrderAndOptionalOnesMayBeLeftOut) {
    ASSERT_EQ(Invoke(1, DISPATCH_METHOD, {Text("a"), Number(1), Number(7)}, {2, 1}), S_OK);
    ASSERT_EQ(Invoke(1, DISPATCH_METHOD, {Number(1), Number(8)}), S_OK);
    ASSERT_EQ(Invoke(1, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {Missing(), Number(1), Number(9)}), S_OK);
    EXPECT_EQ(till->log, "7/a;8/;9/;");
}

TEST_F(Dispatch, AnArgumentByReferenceOfTheVeryTypeIsTheCallersOwn) {
    double amount = 4;
    VARIANT reference{};
    reference.vt = VT_R8 | VT_BYREF;
    reference.byref = &amount;
    ASSERT_EQ(Invoke(1, DISPATCH_METHOD, {reference, Number(1)}), S_OK);
    EXPECT_EQ(amount, 5);
    VARIANT outer{};
    outer.vt = VT_VARIANT | VT_BYREF;
    outer.pvarVal = &reference;
    ASSERT_EQ(Invoke(1, DISPATCH_METHOD, {outer, Number(1)}), S_OK);
    EXPECT_EQ(amount, 6);
}

TEST_F(Dispatch, WrongCallsAreToldApartAndTheArgumentIsPointedOut) {
    const struct {
        DISPID id;
        std::vector<VARIANT> arguments;
        std::vector<DISPID> named;
        HRESULT expected;
        std::uint32_t bad;
    } cases[] = {
        {1, {Number(1)}, {}, DISP_E_BADPARAMCOUNT, 99},
        {1, {Number(1), Number(2), Number(3), Number(4)}, {}, DISP_E_BADPARAMCOUNT, 99},
        {1, {Missing(), Number(1)}, {}, DISP_E_PARAMNOTOPTIONAL, 0},
        {1, {Number(1), Text("abc")}, {}, DISP_E_TYPEMISMATCH, 1},
        {1, {Number(1), Text("3000000000")}, {}, DISP_E_OVERFLOW, 1},
        {1, {Number(1), ReferenceToNothing(VT_VARIANT)}, {}, DISP_E_TYPEMISMATCH, 1},
        {1, {ReferenceToNothing(VT_R8), Number(1)}, {}, DISP_E_TYPEMISMATCH, 0},
        {1, {Number(1), Number(2)}, {9}, DISP_E_PARAMNOTFOUND, 0},
        {1, {Number(1), Number(2)}, {0}, DISP_E_PARAMNOTFOUND, 0},
        {3, {Number(1)}, {DISPID_PROPERTYPUT}, DISP_E_PARAMNOTFOUND, 0},
        {77, {}, {}, DISP_E_MEMBERNOTFOUND, 99},
        {2, {}, {}, DISP_E_MEMBERNOTFOUND, 99},  // a property is no method
    };
    for (const auto& row : cases) {
        bad = 99;
        EXPECT_EQ(Invoke(row.id, DISPATCH_METHOD, row.arguments, row.named), row.expected);
        EXPECT_EQ(bad, row.bad);
    }
    DISPPARAMS none{};
    EXPECT_EQ(till->Invoke(3, IID_IUnknown, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(till->posts, 0);
}

TEST_F(Dispatch, APropertyIsLetByItsNamedValueAndGot) {
    ASSERT_EQ(Invoke(2, DISPATCH_PROPERTYPUT, {Number(12)}, {DISPID_PROPERTYPUT}), S_OK);
    ASSERT_EQ(Invoke(2, DISPATCH_PROPERTYGET | DISPATCH_METHOD), S_OK);
    EXPECT_EQ(com::ValueOf(result), basic::Value("12"));
}

TEST_F(Dispatch, AnObjectGivesItsDefaultMemberAsAValueAndForArguments) {
    ASSERT_EQ(Invoke(5, DISPATCH_PROPERTYGET, {Number(21)}), S_OK);
    EXPECT_EQ(com::ValueOf(result), basic::Value(42.0));
    ASSERT_EQ(Invoke(5, DISPATCH_PROPERTYGET), S_OK);
    EXPECT_EQ(com::ValueOf(result), basic::Value("nothing"));
}

TEST_F(Dispatch, AFailureTellsItsSourceItsTextAndItsNumber) {
    EXPECT_EQ(Invoke(4, DISPATCH_METHOD), DISP_E_EXCEPTION);
    EXPECT_EQ(failure.scode, AsResult(0x800A005E));
    EXPECT_EQ(com::TextOf(failure.bstrSource), "till");
    EXPECT_EQ(com::TextOf(failure.bstrDescription), "Invalid use of Null");
    SysFreeString(failure.bstrSource);
    SysFreeString(failure.bstrDescription);
    EXPECT_EQ(Invoke(3, DISPATCH_METHOD), DISP_E_EXCEPTION);
    EXPECT_EQ(failure.scode, AsResult(0x800A0005));
    EXPECT_EQ(failure.bstrDescription, nullptr) << "not the older failure's text";
}

// A host that looks before it calls finds the members, calls by what it found, and gives back what it got.
TEST_F(Dispatch, TheTypeInformationTellsWhatLateBindingTakes) {
    std::uint32_t count = 0;
    EXPECT_EQ(till->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1U);
    ITypeInfo* given = nullptr;
    EXPECT_EQ(till->GetTypeInfo(1, 0, &given), DISP_E_BADINDEX);
    ASSERT_EQ(till->GetTypeInfo(0, 0, &given), S_OK);
    const com::Ptr<ITypeInfo> info(given);

    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_DISPATCH);
    EXPECT_EQ(attributes->guid, (GUID{1, 2, 3, {4}}));
    std::string shown;
    for (std::uint32_t i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        ASSERT_EQ(info->GetFuncDesc(i, &function), S_OK);
        std::vector<BSTR> names(5);
        EXPECT_EQ(info->GetNames(function->memid, names.data(), 5, &count), S_OK);
        shown += std::to_string(function->memid) + "/" + std::to_string(function->invkind) + "/" +
                 std::to_string(function->elemdescFunc.tdesc.vt);
        for (std::uint32_t name = 0; name < count; ++name) {
            shown += " " + com::TextOf(names[name]);
            SysFreeString(names[name]);
        }
        for (int at = 0; at < function->cParams; ++at) {
            const ELEMDESC& told = function->lprgelemdescParam[at];
            shown += " " + std::to_string(told.tdesc.vt) + ":" + std::to_string(told.wParamFlags);
            if (told.tdesc.vt == VT_PTR) shown += "->" + std::to_string(told.tdesc.lptdesc->vt);
        }
        shown += ";";
        info->ReleaseFuncDesc(function);
    }
    info->ReleaseTypeAttr(attributes);
    EXPECT_EQ(
        shown,
        "0/2/12 Twice given 12:17;1/1/3 Post number amount note 3:1 26:3->5 8:17;2/2/8 Note;2/4/24 Note 8:1;"
        "3/1/24 Fail;4/1/24 Throw;5/2/9 Itself;");
    FUNCDESC* none = nullptr;
    EXPECT_EQ(info->GetFuncDesc(99, &none), TYPE_E_ELEMENTNOTFOUND);

    Variant name, text;
    name.vt = text.vt = VT_BSTR;
    ASSERT_EQ(info->GetDocumentation(1, &name.bstrVal, &text.bstrVal, nullptr, nullptr), S_OK);
    EXPECT_EQ(com::TextOf(name.bstrVal) + com::TextOf(text.bstrVal), "PostPosts");
    EXPECT_EQ(info->GetDocumentation(77, nullptr, nullptr, nullptr, nullptr), TYPE_E_ELEMENTNOTFOUND);
    std::u16string twice = u"TWICE";
    char16_t* asked = twice.data();
    DISPID id = 9;
    ASSERT_EQ(info->GetIDsOfNames(&asked, 1, &id), S_OK);
    VARIANT argument = Number(4);
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    ASSERT_EQ(info->Invoke(till.Get(), id, DISPATCH_PROPERTYGET, &parameters, &result, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(com::ValueOf(result), basic::Value(8.0));
}

}  // namespace
