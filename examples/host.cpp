// An early-bound host in C++: it includes the interface header, links the class server and knows nothing else
// of it.
//
// Usage: example_host folder/of/the/books
//
// It posts a voucher of two sides, changes it, deletes it, lists the suppliers and reads the text of a
// failure.

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/qmcls.h"

namespace {

struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Owned = std::unique_ptr<Interface, Releaser>;

// A text on its way into a call. The names of this example are plain ASCII.
class Text {
  public:
    explicit Text(std::string_view ascii)
        : held_(SysAllocString(std::u16string(ascii.begin(), ascii.end()).c_str())) {}
    explicit Text(BSTR taken) : held_(taken) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(held_); }

    BSTR Get() const { return held_; }
    BSTR* ByReference() { return &held_; }
    std::string Ascii() const {
        std::string ascii;
        for (std::uint32_t i = 0; i < SysStringLen(held_); ++i)
            ascii += held_[i] < 128 ? static_cast<char>(held_[i]) : '?';
        return ascii;
    }

  private:
    BSTR held_;
};

std::string DescriptionOfFailure() {
    IErrorInfo* info = nullptr;
    if (GetErrorInfo(0, &info) != S_OK) return "no description";
    const Owned<IErrorInfo> owned(info);
    BSTR description = nullptr;
    owned->GetDescription(&description);
    return Text(description).Ascii();
}

void Check(HRESULT result) {
    if (FAILED(result)) throw std::runtime_error(DescriptionOfFailure());
}

// A member without arguments, late bound: record sets have no interface of their own. The caller clears the
// result.
VARIANT Get(IDispatch& object, std::u16string member, VARIANT* argument = nullptr) {
    char16_t* name = member.data();
    DISPID id = DISPID_UNKNOWN;
    Check(object.GetIDsOfNames(IID_NULL, &name, 1, 0, &id));
    DISPPARAMS arguments{argument, nullptr, argument == nullptr ? 0U : 1U, 0};
    VARIANT result{};
    Check(object.Invoke(id, IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &arguments, &result, nullptr,
                        nullptr));
    return result;
}

Owned<IDispatch> FieldOf(IDispatch& rows, std::int32_t index) {
    VARIANT number{};
    number.vt = VT_I4;
    number.lVal = index;
    return Owned<IDispatch>(Get(rows, u"Fields", &number).pdispVal);
}

struct Ledger {
    std::int32_t Id;
    std::string Name;
};

Ledger LedgerAt(IDispatch& rows) {
    return {Get(*FieldOf(rows, 0), u"Value").lVal, Text(Get(*FieldOf(rows, 1), u"Value").bstrVal).Ascii()};
}

Ledger FirstOf(IDispatch* list) {
    return LedgerAt(*Owned<IDispatch>(list));
}

bool Insert(_clQm& host, std::int32_t number, std::int32_t day, const char* side, double amount,
            Ledger ledger) {
    Text category("R"), type(side), narration("Counter sale"), name(ledger.Name);
    VARIANT_BOOL done = VARIANT_FALSE;
    Check(host.InsertVoucher(number, day, category.ByReference(), type.ByReference(), narration.ByReference(),
                             &amount, &ledger.Id, name.ByReference(), &done));
    return done == VARIANT_TRUE;
}

bool PostChangeDelete(_clQm& host) {
    constexpr std::int32_t FirstOfApril2001 = 36980;
    IDispatch* list = nullptr;
    Check(host.GetDebitLedgers(&list));
    const Ledger debit = FirstOf(list);
    Check(host.GetCreditLedgers(&list));
    const Ledger credit = FirstOf(list);

    std::int32_t number = 0;
    Check(host.GetNextTrnID(&number));
    const bool posted = Insert(host, number, FirstOfApril2001, "D", 1500.5, debit) &&
                        Insert(host, number, FirstOfApril2001, "C", 1500.5, credit);
    std::printf("voucher %d, %s to %s: %s\n", number, debit.Name.c_str(), credit.Name.c_str(),
                posted ? "posted" : "refused");

    double amount = 2000;
    VARIANT_BOOL changed = VARIANT_FALSE, deleted = VARIANT_FALSE;
    Check(host.UpdateVoucher(number, FirstOfApril2001 + 1, &amount, &changed));
    Check(host.DeleteVoucher(&number, &deleted));
    std::printf("changed: %s, deleted: %s\n", changed ? "yes" : "no", deleted ? "yes" : "no");
    return posted && changed && deleted;
}

int ListSuppliers(_clQm& host) {
    IDispatch* list = nullptr;
    Check(host.GetSuppliers(&list));
    const Owned<IDispatch> rows(list);
    int count = 0;
    for (; Get(*rows, u"EOF").boolVal == VARIANT_FALSE; Get(*rows, u"MoveNext"), ++count) {
        const Ledger supplier = LedgerAt(*rows);
        std::printf("supplier %d: %s\n", supplier.Id, supplier.Name.c_str());
    }
    Get(*rows, u"Close");
    return count;
}

bool ReadAFailure(_clQm& host) {
    IDispatch* list = nullptr;
    const HRESULT result = host.Ledgers(Text("NoSuchField = 1").Get(), &list);
    std::printf("a failure reads: 0x%08X %s\n", static_cast<unsigned>(result),
                DescriptionOfFailure().c_str());
    return FAILED(result) && list == nullptr;
}

Owned<_clQm> Create() {
    Check(DllRegisterServer());  // an installation does this once for each user
    IDispatch* made = nullptr;
    Check(CreateObject(u"QmClass.clQm", &made));
    const Owned<IDispatch> owned(made);
    void* host = nullptr;
    Check(made->QueryInterface(IID__clQm, &host));
    return Owned<_clQm>(static_cast<_clQm*>(host));
}

bool Run(const std::string& folder) {
    const Owned<_clQm> host = Create();
    Check(host->put_dataPath(Text(folder + "/").Get()));
    Check(host->StartDataConn());
    const bool posted = PostChangeDelete(*host);
    return ListSuppliers(*host) > 0 && ReadAFailure(*host) && posted;
}

}  // namespace

int main(int count, char** arguments) try {
    if (count != 2) return std::fprintf(stderr, "Usage: example_host FOLDER\n"), 2;
    return Run(arguments[1]) && DllCanUnloadNow() == S_OK ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
