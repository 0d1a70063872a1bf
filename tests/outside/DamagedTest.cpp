#include <csignal>
#include <fstream>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "core/DBCode.h"
#include "core/MsgBox.h"
#include "core/modGeneral.h"
#include "tests/outside/PostedBooks.h"
#include "tests/support/InChild.h"
#include "tests/support/TempFolder.h"

// What a host sees when the books' file or its disk are not as they should be; more in tests/platform/ado.
namespace test {
namespace {

bool Post(qm::clQm& host, const PostedBooks& books, int voucher) {
    return host.InsertVoucher(voucher, 36980, "J", "D", "n", 100, books.bank, "Current Account") &&
           host.InsertVoucher(voucher, 36980, "J", "C", "n", 100, books.supplier, "Paper Mart");
}

PostedRows Rows(const PostedBooks& books, std::initializer_list<int> vouchers) {
    PostedRows rows;
    for (const int voucher : vouchers) {
        rows.insert(std::to_string(voucher) + "|" + std::to_string(books.bank) + "|100|0");
        rows.insert(std::to_string(voucher) + "|" + std::to_string(books.supplier) + "|0|100");
    }
    return rows;
}

// A page that holds the rest of a table's definition is read when the books open.
TEST(Damaged, APageThatTellsOfTheTablesIsNamedAsThat) {
    QM_FILE_ONLY("its pages");
    const PostedBooks books;
    const std::string whole = Bytes(books.File());
    std::string told;
    for (std::size_t page = 1; told.find("tells what its tables are") == std::string::npos; ++page) {
        ASSERT_LT(page * 1024, whole.size());
        std::string damaged = whole;
        damaged[page * 1024 + 500] ^= 1;
        std::ofstream(books.File(), std::ios::binary) << damaged;
        ado::Connection connection;
        connection.Properties("Data Source") = books.File();
        connection.Properties("Jet OlEDB:Database Password") = qm::BooksPassword;
        told = TextOfError([&] { connection.Open(), connection.Execute("Select Name From Ledger_Master"); });
        EXPECT_TRUE(told.empty() || told.starts_with("The books file is damaged: ")) << told;
    }
}

// A limit on file sizes stands for the disk that is full from here on, in the middle of voucher 3.
TEST(Damaged, AFullDiskFailsThePostingAndLeavesTheBooksAsBefore) {
    QM_FILE_ONLY("the limit is one of files");
    PostedBooks books;
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
                  if (!Post(host, books, 2)) return 1;
                  const rlim_t room = std::filesystem::file_size(books.File() + "-wal") + 1500;
                  const rlimit limit{room, room};
                  setrlimit(RLIMIT_FSIZE, &limit);
                  if (Post(host, books, 3)) return 2;
                  if (said.find("There is no room left on the disk") == std::string::npos) return 3;
                  if (qm::Conn().TransDepth() != 0) return 4;
                  return Post(host, books, 3) ? 5 : 0;
              }),
              0);
    EXPECT_EQ(books.Look(), Rows(books, {2}));
    books.Fresh().OpenHost();
    EXPECT_TRUE(Post(books.Fresh().Host(), books, 3));
    books.Fresh().CloseHost();
    EXPECT_EQ(books.Look(), Rows(books, {2, 3}));
}

}  // namespace
}  // namespace test
