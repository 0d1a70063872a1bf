#pragma once

#include <cstdlib>
#include <string>

#include <unistd.h>

#include "core/modGeneral.h"
#include "platform/ado/Maintenance.h"
#include "platform/ado/store/Flight.h"
#include "platform/ado/store/ServerAddress.h"
#include "platform/basic/Number.h"
#include "queries/Reading.h"
#include "queries/Sheet.h"
#include "tests/support/FreshBooks.h"
#include "tests/support/Server.h"

namespace test {

// Fresh books of 2001 on which queries are asked; a run with QM_TEST_STORE=server asks a copy of them there.
class QueryBooks : public FreshBooks {
  public:
    ~QueryBooks() {
        if (database_.empty()) return;
        ado::Flight flight;
        flight.Connect(ado::ReadServerAddress(ServerUri() + "postgres/"));
        flight.Script("DROP DATABASE " + database_ + " WITH (FORCE)");
    }

    // Where the books as they stand now are read.
    std::string Place() {
        const char* const store = std::getenv("QM_TEST_STORE");
        if (store == nullptr || std::string(store) != "server") return DataPath();
        static int made = 0;
        database_ = "queries_" + std::to_string(getpid()) + "_" + std::to_string(++made);
        ado::CopyBooks(qm::Conn(), ServerUri() + database_ + "/");
        return ServerUri() + database_ + "/";
    }

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

  private:
    std::string database_;
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
