#pragma once

#include <cstdint>
#include <string>

#include "platform/ado/Recordset.h"
#include "platform/basic/Value.h"

namespace qm {

// The public class: how a host drives the module. It keeps no state of its own; see modGeneral.h for what is
// shared. The members stand in the order of the interface. Arguments are named as hosts know them. Where
// nothing else is said a failure is raised to the host.
class clQm {
  public:
    clQm() = default;
    ~clQm();  // closes and releases the shared connection; the year and dataPath stay
    clQm(const clQm&) = delete;
    clQm& operator=(const clQm&) = delete;

    // Shows the main menu modally; returns when it closes. Raises where there is no display.
    void QmMainMenu();

    // Sets up a working year from a long form ("2002-2003"), with the old year's rows carried forward by
    // CarryForwardBalances. Always False; silent on failure; what already ran stays done. Kept 18.
    bool SetFinancialYear(const std::string& sFinYear);

    // Ledger_Id and Name of all ledgers, or of those of the current year that meet `sGrp`, a condition of the
    // host's own.
    ado::RecordsetPtr Ledgers(const std::string& sGrp = {});

    // Highest voucher number of the year plus 1, without loading the year. Kept 14.
    basic::Value VchrTrnNo();

    const std::string& dataPath() const;
    // Keeps the folder and, unless it is blank, opens the books in it at once.
    void dataPath(const std::string& folder);

    // Opens the books and reads the current year; the first run seeds 2001-2002.
    void StartDataConn();

    // Whether the date lies from 01-Apr-Year to 31-Mar-Year+1, both included. Raises 6 for year 32767.
    bool FinYearValidate(basic::Date dt, std::int16_t Year);

    // LedgerVchrNo of the voucher's first row: nothing writes it, so Null. Raises 9 for an unknown voucher.
    // Kept 15.
    basic::Value GetVchrNoFromTxnNo(std::int32_t lTxnNo);

    ado::RecordsetPtr GetSuppliers();        // Ledger_Id, Name, Deleted of the year's suppliers and debtors
    ado::RecordsetPtr GetPurchaseLedgers();  // Ledger_ID, Name, of all years
    ado::RecordsetPtr GetDebitLedgers();     // cash, bank and direct incomes
    ado::RecordsetPtr GetCreditLedgers();    // sales

    // Posts one row of a voucher and raises the ledger's total, in one transaction. dtTrnDT is a day number;
    // sTrnCate is J, P, R or C; sTrnType is D or C. False on failure, after the error log's box. Never loads
    // the year. Kept 14.
    bool InsertVoucher(std::int32_t lTrnID, std::int32_t dtTrnDT, const std::string& sTrnCate,
                       const std::string& sTrnType, const std::string& sTrnNarration, double dAmt,
                       std::int32_t lLedCode, const std::string& sLedName);

    // Highest voucher number of the year plus 1. Nothing is reserved. Kept 11.
    std::int32_t GetNextTrnID();

    // Writes a voucher's rows again with a new date and amount, all rows alike.
    bool UpdateVoucher(std::int32_t lTrnID, std::int32_t dtTrnDT, double dAmt);

    // Takes a voucher out of the totals, row by row, and deletes its rows. True for a voucher that is not
    // there.
    bool DeleteVoucher(std::int32_t lTrnID);

    // Moves the flag of the current year to a known year, by its short form. Returns the year now current, ""
    // for an unknown one. The year string follows at the next LoadCurrentYear. Kept 17.
    std::string SetGetFinancialYear(const std::string& sFinYear);

  private:
    // Folds each ledger's totals of the year string into its opening balance.
    void CarryForwardBalances();
};

}  // namespace qm
