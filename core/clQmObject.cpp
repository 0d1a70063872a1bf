#include "core/clQmObject.h"

#include "core/RecordsetObject.h"
#include "platform/com/Bstr.h"
#include "platform/com/ErrorInfo.h"
#include "platform/com/Variant.h"

namespace qm {
namespace {

using com::BoolOf;
using com::Guarded;
using com::MakeBstr;
using com::Required;
using com::TextOf;

// Its members in the order of the interface.
const com::Interface& Face() {
    static const com::Interface face{
#include "_clQmFace.h"
    };
    return face;
}

// Runs the body and gives its outcome to the host.
template <class Result, class Body>
HRESULT Give(Result* result, const Body& body) {
    return Guarded([&] {
        Result& to = Required(result);
        if constexpr (std::is_same_v<Result, VARIANT>)
            com::Store(body(), to);
        else
            to = body();
    });
}

}  // namespace

clQmObject::clQmObject() : Object(Face()) {}

HRESULT clQmObject::QmMainMenu() {
    return Guarded([&] { host_.QmMainMenu(); });
}

HRESULT clQmObject::SetFinancialYear(BSTR sFinYear, VARIANT_BOOL* result) {
    return Give(result, [&] { return BoolOf(host_.SetFinancialYear(TextOf(sFinYear))); });
}

HRESULT clQmObject::Ledgers(BSTR sGrp, IDispatch** result) {
    return Give(result, [&] { return NewRecordsetObject(host_.Ledgers(TextOf(sGrp))); });
}

HRESULT clQmObject::VchrTrnNo(VARIANT* result) {
    return Give(result, [&] { return host_.VchrTrnNo(); });
}

HRESULT clQmObject::get_dataPath(BSTR* result) {
    return Give(result, [&] { return MakeBstr(host_.dataPath()); });
}

HRESULT clQmObject::put_dataPath(BSTR value) {
    return Guarded([&] { host_.dataPath(TextOf(value)); });
}

HRESULT clQmObject::StartDataConn() {
    return Guarded([&] { host_.StartDataConn(); });
}

HRESULT clQmObject::FinYearValidate(DATE* dt, std::int16_t* Year, VARIANT_BOOL* result) {
    return Give(result,
                [&] { return BoolOf(host_.FinYearValidate(basic::Date{Required(dt)}, Required(Year))); });
}

HRESULT clQmObject::GetVchrNoFromTxnNo(std::int32_t* lTxnNo, VARIANT* result) {
    return Give(result, [&] { return host_.GetVchrNoFromTxnNo(Required(lTxnNo)); });
}

HRESULT clQmObject::GetSuppliers(IDispatch** result) {
    return Give(result, [&] { return NewRecordsetObject(host_.GetSuppliers()); });
}

HRESULT clQmObject::GetPurchaseLedgers(IDispatch** result) {
    return Give(result, [&] { return NewRecordsetObject(host_.GetPurchaseLedgers()); });
}

HRESULT clQmObject::GetDebitLedgers(IDispatch** result) {
    return Give(result, [&] { return NewRecordsetObject(host_.GetDebitLedgers()); });
}

HRESULT clQmObject::GetCreditLedgers(IDispatch** result) {
    return Give(result, [&] { return NewRecordsetObject(host_.GetCreditLedgers()); });
}

HRESULT clQmObject::InsertVoucher(std::int32_t lTrnID, std::int32_t dtTrnDT, BSTR* sTrnCate, BSTR* sTrnType,
                                  BSTR* sTrnNarration, double* dAmt, std::int32_t* lLedCode, BSTR* sLedName,
                                  VARIANT_BOOL* result) {
    return Give(result, [&] {
        return BoolOf(host_.InsertVoucher(lTrnID, dtTrnDT, TextOf(Required(sTrnCate)),
                                          TextOf(Required(sTrnType)), TextOf(Required(sTrnNarration)),
                                          Required(dAmt), Required(lLedCode), TextOf(Required(sLedName))));
    });
}

HRESULT clQmObject::GetNextTrnID(std::int32_t* result) {
    return Give(result, [&] { return host_.GetNextTrnID(); });
}

HRESULT clQmObject::UpdateVoucher(std::int32_t lTrnID, std::int32_t dtTrnDT, double* dAmt,
                                  VARIANT_BOOL* result) {
    return Give(result, [&] { return BoolOf(host_.UpdateVoucher(lTrnID, dtTrnDT, Required(dAmt))); });
}

HRESULT clQmObject::DeleteVoucher(std::int32_t* lTrnID, VARIANT_BOOL* result) {
    return Give(result, [&] { return BoolOf(host_.DeleteVoucher(Required(lTrnID))); });
}

HRESULT clQmObject::SetGetFinancialYear(BSTR* sFinYear, BSTR* result) {
    return Give(result, [&] { return MakeBstr(host_.SetGetFinancialYear(TextOf(Required(sFinYear)))); });
}

}  // namespace qm
