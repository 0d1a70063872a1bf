#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/LedgerSide.h"

namespace qm {

// One line of the voucher on screen, as Save reads it. Amounts are rupees, magnitudes, 0 if blank.
struct VoucherLine {
    bool Removed = false;            // a saved line that the user deleted
    bool Changed = false;            // a saved line that was edited
    std::string SavedNo;             // the number that the line was loaded with; "" for one typed now
    std::optional<LedgerSide> Side;  // none for the spare line
    std::string OldLedgerId;         // of the ledger as it was loaded
    std::string LedgerId, LedgerName;
    double DrAmount = 0, CrAmount = 0;
    std::string Narration;
};

// The double-entry rule: a line raises its ledger's total of the year and becomes a row of tb_Ledger<FinYear>
// for that ledger alone. Totals are debit and credit magnitudes; a balance is signed, debit positive, and
// never stored but as a text. One object posts the lines of one Save, each in the caller's transaction.
class VoucherPosting {
  public:
    VoucherPosting(std::int32_t trnNo, std::int32_t dayNumber, std::string voucherType);

    // Adds, replaces or removes the line, by what it is; a spare and an unchanged line write nothing. Raises
    // what a statement raises, and an error with number 0 where one finds no row.
    void Post(const VoucherLine& line);

  private:
    void Add(const VoucherLine& line);
    void Replace(const VoucherLine& line);
    void Remove(const VoucherLine& line) const;

    void RaiseTotals(const VoucherLine& line) const;
    void ReadBalance(const VoucherLine& line, bool withTotals);
    void InsertRow(const VoucherLine& line) const;
    void DeleteRow(const VoucherLine& line, const std::string& ledgerId) const;

    std::int32_t trnNo_, dayNumber_;
    std::string voucherType_;
    // The balance of the line's ledger. A ledger on neither side starts from the line before. Kept 39.
    double balance_ = 0;
};

}  // namespace qm
