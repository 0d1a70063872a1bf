#pragma once

#include "platform/com/Automation.h"

// Made from clQm.idl by tools/interface.
struct _clQm : IDispatch {
    virtual HRESULT QmMainMenu() = 0;
    virtual HRESULT SetFinancialYear(BSTR sFinYear, VARIANT_BOOL* result) = 0;
    virtual HRESULT Ledgers(BSTR sGrp, IDispatch** result) = 0;
    virtual HRESULT VchrTrnNo(VARIANT* result) = 0;
    virtual HRESULT get_dataPath(BSTR* result) = 0;
    virtual HRESULT put_dataPath(BSTR value) = 0;
    virtual HRESULT StartDataConn() = 0;
    virtual HRESULT FinYearValidate(DATE* dt, std::int16_t* Year, VARIANT_BOOL* result) = 0;
    virtual HRESULT GetVchrNoFromTxnNo(std::int32_t* lTxnNo, VARIANT* result) = 0;
    virtual HRESULT GetSuppliers(IDispatch** result) = 0;
    virtual HRESULT GetPurchaseLedgers(IDispatch** result) = 0;
    virtual HRESULT GetDebitLedgers(IDispatch** result) = 0;
    virtual HRESULT GetCreditLedgers(IDispatch** result) = 0;
    virtual HRESULT InsertVoucher(std::int32_t lTrnID, std::int32_t dtTrnDT, BSTR* sTrnCate, BSTR* sTrnType,
                                  BSTR* sTrnNarration, double* dAmt, std::int32_t* lLedCode, BSTR* sLedName,
                                  VARIANT_BOOL* result) = 0;
    virtual HRESULT GetNextTrnID(std::int32_t* result) = 0;
    virtual HRESULT UpdateVoucher(std::int32_t lTrnID, std::int32_t dtTrnDT, double* dAmt,
                                  VARIANT_BOOL* result) = 0;
    virtual HRESULT DeleteVoucher(std::int32_t* lTrnID, VARIANT_BOOL* result) = 0;
    virtual HRESULT SetGetFinancialYear(BSTR* sFinYear, BSTR* result) = 0;
};
