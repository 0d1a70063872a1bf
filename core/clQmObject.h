#pragma once

#include "core/clQm.h"
#include "core/qmcls.h"
#include "platform/com/Object.h"

namespace qm {

// The class as hosts hold it: each member turns its arguments, calls the same member of clQm and gives the
// outcome. Late-bound calls end in the same members, by the table.
class clQmObject final : public com::Object<_clQm, _clQm> {
  public:
    clQmObject();

    HRESULT QmMainMenu() override;
    HRESULT SetFinancialYear(BSTR sFinYear, VARIANT_BOOL* result) override;
    HRESULT Ledgers(BSTR sGrp, IDispatch** result) override;
    HRESULT VchrTrnNo(VARIANT* result) override;
    HRESULT get_dataPath(BSTR* result) override;
    HRESULT put_dataPath(BSTR value) override;
    HRESULT StartDataConn() override;
    HRESULT FinYearValidate(DATE* dt, std::int16_t* Year, VARIANT_BOOL* result) override;
    HRESULT GetVchrNoFromTxnNo(std::int32_t* lTxnNo, VARIANT* result) override;
    HRESULT GetSuppliers(IDispatch** result) override;
    HRESULT GetPurchaseLedgers(IDispatch** result) override;
    HRESULT GetDebitLedgers(IDispatch** result) override;
    HRESULT GetCreditLedgers(IDispatch** result) override;
    HRESULT InsertVoucher(std::int32_t lTrnID, std::int32_t dtTrnDT, BSTR* sTrnCate, BSTR* sTrnType,
                          BSTR* sTrnNarration, double* dAmt, std::int32_t* lLedCode, BSTR* sLedName,
                          VARIANT_BOOL* result) override;
    HRESULT GetNextTrnID(std::int32_t* result) override;
    HRESULT UpdateVoucher(std::int32_t lTrnID, std::int32_t dtTrnDT, double* dAmt,
                          VARIANT_BOOL* result) override;
    HRESULT DeleteVoucher(std::int32_t* lTrnID, VARIANT_BOOL* result) override;
    HRESULT SetGetFinancialYear(BSTR* sFinYear, BSTR* result) override;

  private:
    clQm host_;
};

}  // namespace qm
