#include <csignal>
#include <fstream>
#include <sstream>

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "core/modGeneral.h"
#include "host/make/BooksStore.h"
#include "platform/ado/Errors.h"
#include "platform/ado/Maintenance.h"
#include "platform/basic/Error.h"
#include "tests/outside/PostedBooks.h"
#include "tests/support/BoxScript.h"
#include "tests/support/InChild.h"

// What a host sees when the books' file, its rights or its disk are not as they should be.
namespace test {
namespace {

namespace fs = std::filesystem;

std::string ErrorOf(const std::function<void()>& call, std::int32_t number) {
    try {
        call();
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, number) << error.Description;
        return error.Description;
    }
    ADD_FAILURE() << "nothing was raised";
    return {};
}

const std::string PageDamaged =
    "The books file is damaged: a page of it does not check out. Nothing was changed; please restore a "
    "backup.";

class Damaged : public testing::Test {
  protected:
    Damaged() {
        books.Fresh().OpenHost();
        Post(1);
        books.Fresh().CloseHost();
    }
    bool Post(int voucher) { return Post(books.Fresh().Host(), voucher); }
    bool Post(qm::clQm& host, int voucher) {
        return host.InsertVoucher(voucher, 36980, "J", "D", "n", 100, books.bank, "Current Account") &&
               host.InsertVoucher(voucher, 36980, "J", "C", "n", 100, books.supplier, "Paper Mart");
    }
    void OpenBooks() { books.Fresh().OpenHost(); }
    PostedRows Rows(std::initializer_list<int> vouchers) {
        PostedRows rows;
        for (const int voucher : vouchers) {
            rows.insert(std::to_string(voucher) + "|" + std::to_string(books.bank) + "|100|0");
            rows.insert(std::to_string(voucher) + "|" + std::to_string(books.supplier) + "|0|100");
        }
        return rows;
    }

    PostedBooks books;
    BoxScript boxes;
};

TEST_F(Damaged, AWrongPasswordOpensNothingAndSpoilsNothing) {
    ado::Connection connection;
    connection.Properties("Data Source") = books.File();
    connection.Properties("Jet OlEDB:Database Password") = "Quintel";
    EXPECT_EQ(ErrorOf([&] { connection.Open(); }, ado::error::WrongPassword),
              "Not a valid password for '" + books.File() + "', or its first page is damaged.");
    EXPECT_EQ(connection.State(), ado::adStateClosed);
    EXPECT_EQ(books.Look(), Rows({1}));
}

TEST_F(Damaged, ATruncatedFileIsNotOpenedAndNotTouched) {
    const auto half = fs::file_size(books.File()) / 2;
    fs::resize_file(books.File(), half);
    EXPECT_EQ(ErrorOf([&] { OpenBooks(); }, ado::error::Damaged), PageDamaged);
    EXPECT_EQ(fs::file_size(books.File()), half);
}

// One byte of a page that holds voucher rows: the rows cannot be read, so nothing is posted; what stands in
// other pages is there.
TEST_F(Damaged, AFlippedByteIsNoticedWhereItIsReadAndByTheCheck) {
    const std::string page = host::BooksStore(books.File())
                                 .Run("SELECT rootpage FROM sqlite_master WHERE name = 'tb_Ledger2001'")
                                 .front();
    std::fstream file(books.File(), std::ios::in | std::ios::out | std::ios::binary);
    const std::streamoff at = (std::stoi(page) - 1) * 1024 + 500;
    file.seekg(at);
    const int byte = file.get();
    file.seekp(at);
    file.put(static_cast<char>(byte ^ 1));
    file.close();

    OpenBooks();
    boxes.ExpectLog("Class-ClQm", PageDamaged);
    EXPECT_FALSE(Post(2));
    boxes.ExpectLog("Class-ClQm", PageDamaged);
    EXPECT_FALSE(books.Fresh().Host().DeleteVoucher(1));
    EXPECT_EQ(ado::CheckIntegrity(qm::Conn()), std::vector{PageDamaged});
    EXPECT_EQ(books.Fresh().Host().Ledgers()->RecordCount(), 2);
    EXPECT_EQ(
        books.Fresh().One("Select LedDetDRTxnTot, LedDetCRTxnTot From Ledger_Details Where Ledger_ID = " +
                          std::to_string(books.bank)),
        "100|Null");
}

// A page that holds the rest of a table's definition is read when the books open.
TEST_F(Damaged, APageThatTellsOfTheTablesIsNamedAsThat) {
    std::ostringstream bytes;
    bytes << std::ifstream(books.File(), std::ios::binary).rdbuf();
    const std::string whole = bytes.str();
    std::string told;
    for (std::size_t page = 1; told.find("tells what its tables are") == std::string::npos; ++page) {
        ASSERT_LT(page * 1024, whole.size());
        std::string damaged = whole;
        damaged[page * 1024 + 500] ^= 1;
        std::ofstream(books.File(), std::ios::binary) << damaged;
        ado::Connection connection;
        connection.Properties("Data Source") = books.File();
        connection.Properties("Jet OlEDB:Database Password") = "quintel";
        try {
            connection.Open();
            connection.Execute("Select Name From Ledger_Master");
        } catch (const basic::Error& error) {
            told = error.Description;
            EXPECT_EQ(told.find("The books file is damaged: "), 0U) << told;
        }
    }
}

TEST_F(Damaged, AFolderThatCannotBeWrittenIsRefusedAtOnce) {
    const fs::path folder = books.DataPath();
    fs::permissions(books.File(), fs::perms(0444));
    fs::permissions(folder, fs::perms(0555));
    EXPECT_EQ(
        InChild([&] {
            if (geteuid() == 0 && (setgroups(0, nullptr) != 0 || setgid(65534) != 0 || setuid(65534) != 0))
                return 254;
            const std::string text = ErrorOf([&] { OpenBooks(); }, ado::error::ReadOnly);
            return text == "The books file '" + books.File() + "' cannot be written to." ? 0 : 1;
        }),
        0);
    fs::permissions(folder, fs::perms(0755));
    fs::permissions(books.File(), fs::perms(0644));
    EXPECT_EQ(books.Look(), Rows({1}));
}

// A limit on file sizes stands for the disk that is full from here on, in the middle of voucher 3.
TEST_F(Damaged, AFullDiskFailsThePostingAndLeavesTheBooksAsBefore) {
    EXPECT_EQ(InChild([&] {
                  std::signal(SIGXFSZ, SIG_IGN);
                  std::string said;
                  qm::SetMsgBoxPort([&](const std::string& text, int, const std::string&) {
                      said = text;
                      return qm::vbOK;
                  });
                  qm::clQm host;
                  host.dataPath(books.DataPath());
                  host.StartDataConn();
                  if (!Post(host, 2)) return 1;
                  const rlim_t room = fs::file_size(books.File() + "-wal") + 1500;
                  const rlimit limit{room, room};
                  setrlimit(RLIMIT_FSIZE, &limit);
                  if (Post(host, 3)) return 2;
                  if (said.find("There is no room left on the disk") == std::string::npos) return 3;
                  if (qm::Conn().TransDepth() != 0) return 4;
                  return Post(host, 3) ? 5 : 0;
              }),
              0);
    EXPECT_EQ(books.Look(), Rows({1, 2}));
    OpenBooks();
    EXPECT_TRUE(Post(3));
    books.Fresh().CloseHost();
    EXPECT_EQ(books.Look(), Rows({1, 2, 3}));
}

}  // namespace
}  // namespace test
