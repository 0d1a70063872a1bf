#include "bench/BigBooks.h"

#include <cstdlib>
#include <map>
#include <stdexcept>
#include <tuple>

#include "bench/Bare.h"
#include "host/make/Books.h"

namespace bench {
namespace {

namespace fs = std::filesystem;

// Removes the folders when the program ends.
class Folders {
  public:
    ~Folders() {
        for (const auto& [key, folder] : made_) fs::remove_all(folder);
    }
    static Folders& Get() {
        static Folders folders;
        return folders;
    }
    using Key = std::tuple<std::int64_t, Place, int>;
    std::map<Key, fs::path> made_;
};

fs::path NewFolder(Place place) {
    std::string pattern =
        (place == Place::Memory ? fs::path("/dev/shm") : fs::temp_directory_path()) / "qmbench-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder for the books");
    return pattern;
}

void WriteLedgers(Bare& bare) {
    BareStatement master(
        bare.Db(), "INSERT INTO Ledger_Master (Ledger_ID, Name, Group_Id, PrimaryGrp) VALUES (?,?,?,?)");
    BareStatement details(
        bare.Db(),
        "INSERT INTO Ledger_Details (Ledger_ID, Fnncl_Yr, Opening_Bal, Bal_Type, Closing_Bal, "
        "LedDetDRTxnTot, LedDetCRTxnTot) VALUES (?, 2001, 100.0, 'D', 0.0, 0.0, 0.0)");
    for (std::int64_t id = 1000; id < 1000 + Ledgers; ++id) {
        master.Bind(1, id)
            .Bind(2, "Ledger " + std::to_string(id))
            .Bind(3, std::int64_t{1})
            .Bind(4, std::string("Sales"))
            .Run();
        details.Bind(1, id).Run();
    }
}

void WriteRows(Bare& bare, std::int64_t rows) {
    BareStatement insert(
        bare.Db(),
        "INSERT INTO tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerName, LedgerTxnDate, LedgerNarration, "
        "LedgerTrnType, LedgerDrAmt, LedgerCrAmt, LedgerLedBal, LedgerMcGenerated) VALUES "
        "(?, ?, ?, ?, ?, 'Journal', ?, ?, ?, 1)");
    std::uint64_t random = 88172645463325252ULL;
    for (std::int64_t row = 0; row < rows; ++row) {
        random ^= random << 13, random ^= random >> 7, random ^= random << 17;
        const auto ledger = static_cast<std::int64_t>(random % Ledgers) + 1000;
        const double amount = static_cast<double>(random % 1000000) / 100;
        insert.Bind(1, row / 2 + 1).Bind(2, ledger).Bind(3, "Ledger " + std::to_string(ledger));
        insert.Bind(4, 36980 + row * 365 / rows).Bind(5, "Narration of row " + std::to_string(row % 5000));
        insert.Bind(6, row % 2 == 0 ? amount : 0.0).Bind(7, row % 2 == 0 ? 0.0 : amount);
        insert.Bind(8, std::to_string(random % 1000) + "Dr").Run();
    }
}

fs::path Make(std::int64_t rows, Place place) {
    const fs::path folder = NewFolder(place);
    host::CreateBooks(folder, 2001);
    Bare bare(folder, false);
    bare.Run("BEGIN");
    WriteLedgers(bare);
    WriteRows(bare, rows);
    bare.Run("COMMIT");
    bare.Run("PRAGMA wal_checkpoint(TRUNCATE)");
    return folder;
}

}  // namespace

fs::path BooksWith(std::int64_t rows, Place place, int copy) {
    auto& made = Folders::Get().made_;
    if (!made.contains({rows, place, 0})) made[{rows, place, 0}] = Make(rows, place);
    fs::path& folder = made[{rows, place, copy}];
    if (folder.empty()) {
        folder = NewFolder(place);
        fs::copy(made.at({rows, place, 0}), folder, fs::copy_options::recursive);
    }
    return folder;
}

}  // namespace bench
