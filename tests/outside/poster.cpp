// Posts vouchers of two rows through the class, over the first two ledgers of the books, and tells of each
// row that the class reported as done, as it stands in the table: voucher|ledger|debit|credit. The tests
// start it as the second program that works in the books, or kill it.
//
//   poster DATAPATH COUNT [list|inside|shapes] [FIRST]
//
// COUNT vouchers, or "10s": as many as 10 seconds take; then what was not done is told, too, as "refused
// <row>", and at the end the longest wait for a row, or for a voucher where it is one transaction, as
// "longest <milliseconds>". The amounts are quarters that count up from FIRST, so hosts can be told apart.
// "list" holds an open supplier list all the while, which must be whole at the end: "list <rows>".
// "inside" posts each voucher in one transaction and draws its number inside it.
// "shapes" asks for the ledgers in 3,000 ways afterwards and tells the most memory that the program ever
// held: "memory <KB>".
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>

#include <unistd.h>

#include "core/MsgBox.h"
#include "core/clQm.h"
#include "core/modGeneral.h"
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

std::string RowText(std::int32_t voucher, const char* side, const Ledger& ledger, double amount) {
    const std::string sum = basic::NumberText(amount);
    return std::to_string(voucher) + "|" + std::to_string(ledger.id) + "|" +
           (*side == 'D' ? sum + "|0" : "0|" + sum);
}

class Poster {
  public:
    Poster(qm::clQm& host, bool tellsAll) : host_(host), ledgers_(FirstLedgers(host)), tellsAll_(tellsAll) {}

    void Post(double amount) {
        const std::int32_t voucher = host_.GetNextTrnID();
        for (const auto& [side, ledger] : {std::pair{"D", ledgers_[0]}, {"C", ledgers_[1]}})
            Measured([&] {
                const bool done = Insert(voucher, side, ledger, amount);
                Report(done, RowText(voucher, side, ledger, amount));
            });
    }

    void PostInside(double amount) {
        std::int32_t voucher = 0;
        Measured([&] {
            bool done = false;
            try {
                qm::Conn().BeginTrans();
                voucher = host_.GetNextTrnID();
                done = Insert(voucher, "D", ledgers_[0], amount) && Insert(voucher, "C", ledgers_[1], amount);
                if (done) qm::Conn().CommitTrans();
            } catch (const basic::Error& error) {
                done = false;
                Tell("error " + error.Description);
            }
            if (!done) qm::RollbackOpen();
            Report(done, RowText(voucher, "D", ledgers_[0], amount));
            Report(done, RowText(voucher, "C", ledgers_[1], amount));
        });
    }

    void TellLongest() const { Tell("longest " + std::to_string(longest_.count())); }

  private:
    bool Insert(std::int32_t voucher, const char* side, const Ledger& ledger, double amount) {
        return host_.InsertVoucher(voucher, 36980, "J", side, "outside", amount, ledger.id, ledger.name);
    }
    void Report(bool done, const std::string& row) const {
        if (done || tellsAll_) Tell((done ? "" : "refused ") + row);
    }
    template <class Post>
    void Measured(Post post) {
        const auto start = std::chrono::steady_clock::now();
        post();
        longest_ = std::max(longest_, std::chrono::duration_cast<std::chrono::milliseconds>(
                                          std::chrono::steady_clock::now() - start));
    }

    qm::clQm& host_;
    const std::array<Ledger, 2> ledgers_;
    const bool tellsAll_;
    std::chrono::milliseconds longest_{0};
};

void TellList(ado::Recordset& list) {
    int rows = 0;
    for (; !list.Eof(); list.MoveNext()) ++rows;
    Tell("list " + std::to_string(rows));
}

// Each way is a statement that the class never met before.
void AskInManyWays(qm::clQm& host) {
    for (unsigned way = 0; way < 3000; ++way) {
        std::string condition = "Ledger_Master.Ledger_ID > 0";
        for (unsigned bit = 0; bit < 12; ++bit)
            condition += (way >> bit & 1U) != 0 ? " And Ledger_Master.Ledger_ID > 0" : " Or Name = 'A'";
        host.Ledgers(condition)->Close();
    }
}

void TellMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmHWM:" && status >> word) Tell("memory " + word);
}

void Run(const std::string& dataPath, const std::string& count, const std::string& how, double first) {
    qm::clQm host;
    host.dataPath(dataPath);
    host.StartDataConn();
    const ado::RecordsetPtr list = how == "list" ? host.GetSuppliers() : nullptr;
    const bool timed = count.ends_with('s');
    Poster poster(host, timed);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(std::atoi(count.c_str()));
    const auto isOver = [&](int done) {
        return timed ? std::chrono::steady_clock::now() >= end : done >= std::atoi(count.c_str());
    };
    for (int i = 0; !isOver(i); ++i) {
        const double amount = (first + i) * 0.25;
        try {
            how == "inside" ? poster.PostInside(amount) : poster.Post(amount);
        } catch (const basic::Error& error) {
            if (!timed) throw;
            Tell("error " + error.Description);
        }
    }
    if (timed) poster.TellLongest();
    if (list) TellList(*list);
    if (how != "shapes") return;
    AskInManyWays(host);
    TellMemory();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) return 2;
    qm::SetMsgBoxPort([](const std::string& text, int, const std::string&) {
        Tell("box " + text);
        return qm::vbOK;
    });
    try {
        Run(argv[1], argv[2], argc > 3 ? argv[3] : "", argc > 4 ? std::atof(argv[4]) : 1);
        return 0;
    } catch (const basic::Error& error) {
        Tell("error " + error.Description);
        return 1;
    }
}
