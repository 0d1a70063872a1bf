#pragma once

#include <string>

#include "core/modGeneral.h"
#include "platform/basic/Number.h"
#include "queries/Reading.h"
#include "queries/Sheet.h"
#include "tests/support/FreshBooks.h"

namespace test {

// Fresh books of 2001 on which queries are asked.
class QueryBooks : public FreshBooks {
  public:
    // A row of a voucher: debit positive.
    static void Post(int voucher, int ledger, int day, double amount, const std::string& type = "Journal",
                     const std::string& narration = "") {
        const std::string side = amount > 0 ? "LedgerDrAmt, LedgerCrAmt" : "LedgerCrAmt, LedgerDrAmt";
        const std::string name =
            One("Select Name From Ledger_Master Where Ledger_ID = " + std::to_string(ledger));
        Run("Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerName, LedgerTxnDate, LedgerTrnType, "
            "LedgerNarration, " +
            side + ") Values (" + std::to_string(voucher) + ", " + std::to_string(ledger) + ", '" + name +
            "', " + std::to_string(day) + ", '" + type + "', '" + narration + "', " +
            basic::NumberText(amount > 0 ? amount : -amount) + ", 0)");
    }
};

// A sheet as lines, cells joined by "|", two blanks for each level; Null reads "-".
inline std::vector<std::string> LinesOf(const queries::Sheet& sheet) {
    std::vector<std::string> lines;
    for (std::size_t row = 0; row < sheet.Rows(); ++row) {
        std::string line(static_cast<std::size_t>(2 * sheet.Level(row)), ' ');
        for (std::size_t column = 0; column < sheet.Columns().size(); ++column) {
            const basic::Value value = sheet.At(row, column);
            line += (column == 0 ? "" : "|") + (value.IsNull() ? "-" : basic::ToText(value));
        }
        lines.push_back(line);
    }
    return lines;
}

}  // namespace test
