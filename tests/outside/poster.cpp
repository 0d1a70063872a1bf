// Posts vouchers of two rows through the class, over the first two ledgers of the books, and tells of each
// row that the class reported as done, as it stands in the table: voucher|ledger|debit|credit. The tests
// start it as the second program that works in the books, or kill it.
//
//   poster DATAPATH COUNT [list]
//
// "list" holds an open supplier list all the while, which must be whole at the end: "list <rows>".
#include <array>
#include <cstdlib>
#include <string>

#include <unistd.h>

#include "core/MsgBox.h"
#include "core/clQm.h"
#include "platform/basic/Error.h"
#include "platform/basic/Number.h"

namespace {

struct Ledger {
    std::int32_t id = 0;
    std::string name;
};

// At once and in one piece: what was told before a kill is known to have been done.
void Tell(const std::string& line) {
    const std::string whole = line + "\n";
    if (write(STDOUT_FILENO, whole.data(), whole.size()) < 0) _exit(3);
}

std::array<Ledger, 2> FirstLedgers(qm::clQm& host) {
    std::array<Ledger, 2> ledgers;
    const ado::RecordsetPtr rows = host.Ledgers();
    for (Ledger& ledger : ledgers) {
        ledger = {basic::ToLong((*rows)["Ledger_Id"]), basic::ToText((*rows)["Name"])};
        rows->MoveNext();
    }
    rows->Close();
    return ledgers;
}

void PostRow(qm::clQm& host, std::int32_t voucher, const char* side, const Ledger& ledger, double amount) {
    if (!host.InsertVoucher(voucher, 36980, "J", side, "outside", amount, ledger.id, ledger.name)) return;
    const std::string sum = basic::NumberText(amount);
    Tell(std::to_string(voucher) + "|" + std::to_string(ledger.id) + "|" +
         (*side == 'D' ? sum + "|0" : "0|" + sum));
}

void TellList(ado::Recordset& list) {
    int rows = 0;
    for (; !list.Eof(); list.MoveNext()) ++rows;
    Tell("list " + std::to_string(rows));
}

void Run(const std::string& dataPath, int count, bool withList) {
    qm::clQm host;
    host.dataPath(dataPath);
    host.StartDataConn();
    const ado::RecordsetPtr list = withList ? host.GetSuppliers() : nullptr;
    const auto [one, other] = FirstLedgers(host);
    for (int i = 1; i <= count; ++i) {
        const std::int32_t voucher = host.GetNextTrnID();
        PostRow(host, voucher, "D", one, i * 0.25);
        PostRow(host, voucher, "C", other, i * 0.25);
    }
    if (list) TellList(*list);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) return 2;
    qm::SetMsgBoxPort([](const std::string& text, int, const std::string&) {
        Tell("box " + text);
        return qm::vbOK;
    });
    try {
        Run(argv[1], std::atoi(argv[2]), argc > 3);
        return 0;
    } catch (const basic::Error& error) {
        Tell("error " + error.Description);
        return 1;
    }
}
