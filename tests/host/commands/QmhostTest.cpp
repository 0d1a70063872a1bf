#include <fstream>
#include <map>
#include <regex>
#include <sstream>

#include <gmock/gmock.h>

#include "host/make/Books.h"
#include "host/make/BooksStore.h"
#include "platform/basic/Text.h"
#include "tests/host/commands/Qmhost.h"
#include "tests/support/Cases.h"
#include "tests/support/TempFolder.h"

// The commands as they are called from a shell, on the sample books of 2001-2002: 28 ledgers, 60 vouchers.
namespace {

using test::TempFolder;
namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

const std::string Header = "voucher,date,type,side,ledger,amount,narration\n";

std::string Bytes(const fs::path& file) {
    std::ostringstream bytes;
    bytes << std::ifstream(file, std::ios::binary).rdbuf();
    return bytes.str();
}

class QmhostCommands : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        sample_ = std::make_unique<TempFolder>();
        ASSERT_EQ(Qmhost("create " + (*sample_ / "").string() + " --sample --year 2001").code, 0);
    }
    static void TearDownTestSuite() { sample_.reset(); }
    QmhostCommands() { fs::copy(*sample_, books); }

    std::string Books() { return books.string(); }
    fs::path BooksFile() { return books / host::BooksFile; }
    std::string File() { return (folder / "vouchers.csv").string(); }

    Outcome Post(const std::string& content, const std::string& options = "") {
        std::ofstream(File(), std::ios::binary) << content;
        return Qmhost("post " + Books() + " " + File() + " " + options);
    }
    std::string Ask(const std::string& sql) {
        std::string lines;
        for (const std::string& row : host::BooksStore(BooksFile()).Run(sql)) lines += row + "\n";
        return lines;
    }
    void SetNullTotals() {
        Ask("UPDATE Ledger_Details SET LedDetDRTxnTot = ifnull(LedDetDRTxnTot, 0), LedDetCRTxnTot = "
            "ifnull(LedDetCRTxnTot, 0)");
    }
    std::string CurrentYear() { return Ask("SELECT Fnncl_Yr FROM Fnncl_Yr_Mstr WHERE Crrnt_Yr_Flg"); }

    static inline std::unique_ptr<TempFolder> sample_;
    TempFolder folder;
    const fs::path books = folder / "books";
};

TEST_F(QmhostCommands, PostWritesAGoodFileUnderNewNumbers) {
    const std::string good =
        "\xEF\xBB\xBFVoucher, Date ,TYPE,side,ledger,amount,narration\r\n"
        "a,02-Apr-2001,receipt,d,cash,\"1,500.50\",\"two\nlines, one row\"\r\n"
        "b,2/4/2001,J,Debit,33,5,\r\n"
        "\r\n"
        "a,02/04/2001,R,Cr,Sales of Goods,1500.5,it's\r\n"
        "b,02-Apr-2001,Journal,credit,37,2,\r\n"
        "b,02-Apr-2001,Journal,C,37,3,";
    const std::string before = Bytes(BooksFile());
    const Outcome dry = Post(good, "--dry-run");
    EXPECT_EQ(dry.said, File() + ": 2 vouchers, 5 rows, no fault; nothing was posted\n");
    EXPECT_EQ(dry.code, 0);
    EXPECT_EQ(Bytes(BooksFile()), before);

    const Outcome posted = Post(good);
    EXPECT_EQ(posted.said, "posted 2 vouchers, 5 rows: 61 to 62\n");
    EXPECT_EQ(posted.code, 0);
    EXPECT_EQ(Ask("SELECT LedgerTrnNo || '|' || LedgerCode || '|' || LedgerTxnDate || '|' || LedgerTrnType "
                  "|| '|' || LedgerDrAmt || '|' || LedgerCrAmt || '|' || LedgerName || '|' || "
                  "LedgerNarration FROM tb_Ledger2001 WHERE LedgerTrnNo > 60"),
              "61|33|36981|Receipt|1500.5|0.0|Cash|two\nlines, one row\n"
              "61|37|36981|Receipt|0.0|1500.5|Sales of Goods|it's\n"
              "62|33|36981|Journal|5.0|0.0|Cash|\n"
              "62|37|36981|Journal|0.0|2.0|Sales of Goods|\n"
              "62|37|36981|Journal|0.0|3.0|Sales of Goods|\n");
    EXPECT_EQ(Qmhost("check " + Books()).said, "0 errors, 0 notes\n");
}

TEST_F(QmhostCommands, PostNamesEveryFaultByLineAndColumnAndPostsNothing) {
    Ask("UPDATE Ledger_Master SET Name = 'Twin' WHERE Ledger_ID IN (18, 19)");
    Ask("UPDATE Ledger_Master SET Name = 'Example \"Paper\" Mart' WHERE Ledger_ID = 22");
    Ask("UPDATE Ledger_Details SET Fnncl_Yr = 2000 WHERE Ledger_ID = 27");  // known, but not in this year
    const std::string before = Bytes(BooksFile());
    const auto expect = [&](const std::string& content, const std::vector<std::string>& faults) {
        std::string said;
        for (const std::string& fault : faults) said += File() + fault + "\n";
        const Outcome outcome = Post(content);
        EXPECT_EQ(outcome.said, said + "qmhost: " + std::to_string(faults.size()) +
                                    (faults.size() == 1 ? " fault" : " faults") + "; nothing was posted\n");
        EXPECT_EQ(outcome.code, 1);
    };
    for (const test::Block& faulty : test::Blocks("host/commands/faults.txt")) {
        std::string content;
        for (const std::string& line : faulty.given) content += line + "\n";
        expect(content, faulty.expected);
    }
    expect("", {":1: column voucher: the file is empty"});
    for (const std::string& start : {std::string("\xFF\xFEv"), std::string("\0v\0o", 4)})
        expect(start, {":1: column voucher: the file is UTF-16: save it as UTF-8"});
    expect(Header + std::string(1 << 21, 'x'),
           {":2: column voucher: the row is longer than 1 MB: does a quote never end?"});
    const Outcome many = Post(Header + basic::Replace(std::string(1500, 'x'), "x", ",\n"));
    EXPECT_THAT(many.said, HasSubstr("qmhost: 1500 faults, of which the first 1000 are named; nothing"));
    EXPECT_EQ(Qmhost("post " + Books() + " /dev/zero").said,
              "qmhost: The file '/dev/zero' is larger than 64 MB: split it\n");
    fs::remove(File());
    const Outcome missing = Qmhost("post " + Books() + " " + File());
    EXPECT_EQ(missing.said, "qmhost: The file '" + File() + "' cannot be read\n");
    EXPECT_EQ(missing.code, 1);
    EXPECT_EQ(Bytes(BooksFile()), before);
}

TEST_F(QmhostCommands, PostAsksBeforeAFileStandsTwice) {
    const auto pair = [](const char* key, const char* day, const char* amount) {
        const auto side = [&](const char* rest) {
            return std::string(key) + "," + day + ",R," + rest + "," + amount;
        };
        return side("D,Cash") + ",x\n" + side("C,Sales of Goods") + ",y\n";
    };
    const std::string twins = Header + pair("a", "12/31/2001", "5") + pair("b", "12/31/2001", "5.00");
    EXPECT_EQ(Post(twins, "--month-first --fast").said, "posted 2 vouchers, 4 rows: 61 to 62\n");
    EXPECT_EQ(Ask("SELECT DISTINCT LedgerTxnDate FROM tb_Ledger2001 WHERE LedgerTrnNo > 60"), "37254\n");
    const std::string with = " in the books already, with the same day, type, ledgers and amounts: voucher ";
    for (const char* options : {"--month-first", "--month-first --dry-run", "--month-first --fast"})
        EXPECT_EQ(Post(twins, options).said,
                  "qmhost: every voucher of the file stands" + with + "a as number 61 is the first\n" +
                      "qmhost: nothing was posted; --again posts them a second time\n");
    // A third one alike, or one that differs, is no file that was posted.
    EXPECT_EQ(Post(twins + pair("c", "12/31/2001", "5"), "--month-first --dry-run").said,
              "qmhost: warning: 2 of 3 vouchers stand" + with + "a as number 61 is the first\n" + File() +
                  ": 3 vouchers, 6 rows, no fault; nothing was posted\n");
    EXPECT_EQ(Post(Header + pair("a", "12/31/2001", "5.01"), "--month-first").said,
              "posted 1 voucher, 2 rows: 63\n");
    EXPECT_EQ(Post(twins, "--month-first --again").said, "posted 2 vouchers, 4 rows: 64 to 65\n");
    EXPECT_EQ(Post(Header + pair("a", "31/12/2001", "5"), "--month-first").said,
              File() +
                  ":2: column date: '31/12/2001' fits only the day before the month, and the file is read "
                  "with the month first\n" +
                  File() +
                  ":3: column date: '31/12/2001' fits only the day before the month, and the file is read "
                  "with the month first\nqmhost: 2 faults; nothing was posted\n");
}

// What another program does between the check of the file and the second row is done here by a trigger.
TEST_F(QmhostCommands, PostStopsAtARowThatFailsAndSaysWhatStands) {
    Ask("CREATE TRIGGER other_program AFTER INSERT ON tb_Ledger2001 WHEN NEW.LedgerNarration = 'now' BEGIN "
        "DELETE FROM Ledger_Details WHERE Ledger_ID = 37; END");
    const Outcome outcome = Post(Header +
                                 "a,02-Apr-2001,R,D,Cash,1,n\na,02-Apr-2001,R,C,Sales of Goods,1,n\n"
                                 "b,02-Apr-2001,R,D,Cash,2,now\nb,02-Apr-2001,R,C,Sales of Goods,2,n\n"
                                 "c,02-Apr-2001,R,D,Cash,3,n\nc,02-Apr-2001,R,C,Current Account,3,n\n");
    EXPECT_EQ(outcome.said, "voucher a stands as number 61\n" + File() +
                                ":5: column voucher: voucher b could not be posted (no row of the ledger or "
                                "of its details could be written); its rows were taken back\n"
                                "qmhost: 1 of 3 vouchers were posted\n");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(Ask("SELECT LedgerTrnNo || LedgerNarration FROM tb_Ledger2001 WHERE LedgerTrnNo > 60"),
              "61n\n61n\n");
}

TEST_F(QmhostCommands, YearsAreAddedSwitchedAndPostedInto) {
    const auto said = [&](const std::string& arguments, int code) {
        const Outcome outcome = Qmhost(arguments);
        EXPECT_EQ(outcome.code, code) << arguments << ": " << outcome.said;
        return outcome.said;
    };
    const std::string add = "add-year " + Books() + " ";
    EXPECT_THAT(said(add + "2002-2003 --yes", 1),
                StartsWith("qmhost: 18 ledgers have no debit or no credit total in this year yet (the first "
                           "is 'Proprietor Capital')"));
    SetNullTotals();
    const std::string before = Bytes(BooksFile());
    for (const char* year : {"2002", "2002-03", "2002-2004", "2003-2002"})
        EXPECT_EQ(said(add + year + " --yes", 1),
                  std::string("qmhost: a year is written like 2002-2003, not '") + year + "'\n");
    EXPECT_EQ(said(add + "2001-2002 --yes", 1), "qmhost: the books already know the year 2001-2002\n");
    EXPECT_THAT(said(add + "2002-2003 </dev/null", 1), HasSubstr("nothing was changed\n"));
    EXPECT_EQ(Bytes(BooksFile()), before);

    // An earlier try that was killed behind its first step, and one that was killed before its last.
    for (const char* step : {"INSERT INTO Ledger_Details (Ledger_ID, Fnncl_Yr) VALUES (17, 2002)",
                             "INSERT INTO Fnncl_Yr_Mstr (Fnncl_Yr) VALUES ('2002-2003')"}) {
        Ask(step);
        EXPECT_EQ(said(add + "2002-2003 --yes", 1),
                  "qmhost: parts of 2002 stand already: an earlier try did not end, and another would double "
                  "them. Restore the backup that was made before it (qmhost restore), then add the year\n");
    }
    Ask("DELETE FROM Fnncl_Yr_Mstr WHERE Fnncl_Yr = '2002-2003'");
    Ask("DELETE FROM Ledger_Details WHERE Fnncl_Yr = 2002");

    // Nothing is left of one that fails, not even at its last step but one.
    Ask("CREATE TRIGGER the_register BEFORE INSERT ON Fnncl_Yr_Mstr BEGIN SELECT RAISE(ABORT, 'no'); END");
    EXPECT_EQ(said(add + "2002-2003 --yes", 1),
              "qmhost: 2002-2003 could not be set up; nothing was changed: run qmhost check\n");
    EXPECT_EQ(CurrentYear() + Ask("SELECT DISTINCT Fnncl_Yr FROM Ledger_Details"), "2001-2002\n2001\n");
    Ask("DROP TRIGGER the_register");

    EXPECT_EQ(said(add + "2002-2003 --yes", 0), "current year: 2002\n");
    EXPECT_EQ(said("years " + Books(), 0), "2001-2002\n2002-2003  current\n");
    EXPECT_EQ(Ask("SELECT count(*) FROM Ledger_Details WHERE Fnncl_Yr = 2002"), "28\n");
    // The openings of the old year are rewritten, the new year's are copies of what they were: both kept.
    EXPECT_EQ(
        Ask("SELECT Fnncl_Yr || ' ' || Opening_Bal || Bal_Type FROM Ledger_Details WHERE Ledger_ID = 22"),
        "2001 " +
            Ask("SELECT abs(58300 + sum(LedgerCrAmt - LedgerDrAmt)) || 'C' FROM tb_Ledger2001 WHERE "
                "LedgerCode = 22") +
            "2002 58300.0C\n");

    const std::string voucher =
        Header + "1,02-Apr-2001,R,D,Cash,1,n\n1,02-Apr-2001,R,C,Current Account,1,n\n";
    EXPECT_THAT(Post(voucher).said, HasSubstr("'02-Apr-2001' lies outside the year 2002-2003"));
    EXPECT_EQ(Post(voucher, "--year 2001").said,
              "qmhost: the current year is 2002, not 2001: make that current first with qmhost year\n");
    EXPECT_EQ(CurrentYear(), "2002-2003\n");

    EXPECT_EQ(said("year " + Books() + " 2001-2002", 0), "current year: 2001\n");  // as years prints it
    EXPECT_EQ(said("year " + Books() + " 2002", 0), "current year: 2002\n");
    EXPECT_EQ(said("year " + Books() + " 2001-2004", 1),
              "qmhost: the books know no year '2001-2004' (see qmhost years)\n");
    EXPECT_EQ(said("year " + Books() + " 2001", 0), "current year: 2001\n");
    EXPECT_EQ(CurrentYear(), "2001-2002\n");
    EXPECT_EQ(Post(voucher, "--year 2001").said, "posted 1 voucher, 2 rows: 61\n");
    EXPECT_EQ(Post(voucher, "--year 2001-2002 --again").said, "posted 1 voucher, 2 rows: 62\n");
    EXPECT_EQ(said("year " + Books() + " 1999", 1),
              "qmhost: the books know no year '1999' (see qmhost years)\n");
    EXPECT_EQ(CurrentYear(), "2001-2002\n");
    // The flag is never seen to be missing, not even where the second of its two steps fails.
    Ask("CREATE TRIGGER second_step BEFORE UPDATE ON Fnncl_Yr_Mstr WHEN NEW.Crrnt_Yr_Flg BEGIN SELECT "
        "RAISE(ABORT, 'no'); END");
    EXPECT_THAT(said("year " + Books() + " 2002", 1), HasSubstr("qmhost: the current year is 2001 still: "));
    EXPECT_EQ(CurrentYear(), "2001-2002\n");
}

TEST_F(QmhostCommands, LedgersTakesACondition) {
    const std::string all = Qmhost("ledgers " + Books()).said;
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 28);
    EXPECT_THAT(all, StartsWith("    17  Proprietor Capital\n    18  Proprietor Drawings\n"));
    EXPECT_EQ(
        Qmhost("ledgers " + Books() + " --where \"PrimaryGrp = 'Suppliers' And Opening_Bal > 20000\"").said,
        "    22  Example Paper Mart\n    23  Sample Stationery Depot\n");
    const Outcome wrong = Qmhost("ledgers " + Books() + " --where \"Colour = 5\"");
    EXPECT_EQ(wrong.code, 1);
    EXPECT_THAT(wrong.said, HasSubstr("Colour"));
}

TEST_F(QmhostCommands, CheckTellsNotesFromErrorsAndChangesNothing) {
    const auto expect = [&](const std::string& said, int code) {
        const std::string before = Bytes(BooksFile());
        const Outcome outcome = Qmhost("check " + Books());
        EXPECT_EQ(outcome.said, said);
        EXPECT_EQ(outcome.code, code);
        EXPECT_EQ(Bytes(BooksFile()), before);
    };
    expect("0 errors, 0 notes\n", 0);
    Ask("UPDATE Ledger_Details SET LedDetDRTxnTot = 7 WHERE Ledger_ID = 17");
    const std::string note =
        "note:  totals of ledger 17 in 2001: they are not the sums of its rows until the next rebuild "
        "(totals 7 and 0, rows 0 and 0)\n";
    expect(note + "0 errors, 1 note\n", 0);
    Ask("INSERT INTO tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerDrAmt, LedgerCrAmt) VALUES (61, 17, 7, "
        "0)");
    expect("error: voucher 61 of 2001: debit 7, credit 0\n1 error, 0 notes\n", 1);

    // Nor is the first year begun where none is known yet.
    fs::remove_all(books);
    ASSERT_EQ(Qmhost("create " + Books()).code, 0);
    expect("note:  years: none yet; the first start makes 2001-2002\n0 errors, 1 note\n", 0);
    EXPECT_EQ(Qmhost("years " + Books()).said, "2001-2002  current\n");
}

TEST_F(QmhostCommands, BackupCopiesWholeBooksAndOverwritesNothing) {
    fs::create_directory(folder / "copy");
    const std::string copy = (folder / "copy" / host::BooksFile).string();
    EXPECT_EQ(Qmhost("backup " + Books() + " " + copy).said, copy + ": backed up and compared\n");
    const std::string copied = Bytes(copy);
    EXPECT_EQ(Qmhost("check " + (folder / "copy").string()).said, "0 errors, 0 notes\n");
    EXPECT_EQ(Qmhost("ledgers " + (folder / "copy").string()).said, Qmhost("ledgers " + Books()).said);

    const Outcome again = Qmhost("backup " + Books() + " " + copy);
    EXPECT_EQ(again.said, "qmhost: '" + copy + "' exists; a backup never overwrites\n");
    EXPECT_EQ(again.code, 1);
    EXPECT_EQ(Bytes(copy), copied);
    const Outcome nowhere = Qmhost("backup " + Books() + " " + (folder / "no" / "copy.mdb").string());
    EXPECT_EQ(nowhere.said, "qmhost: there is no folder '" + (folder / "no").string() + "' for the backup\n");
    EXPECT_EQ(nowhere.code, 1);
    EXPECT_EQ(Qmhost("backup " + Books() + " /proc/copy.mdb").code, 1);
}

TEST_F(QmhostCommands, RestorePutsABackupInThePlaceOfTheBooksAndLosesNothing) {
    const std::string backup = (folder / "backup.mdb").string();
    fs::permissions(BooksFile(), fs::perms(0640));
    ASSERT_EQ(Qmhost("backup " + Books() + " " + backup).code, 0);
    EXPECT_EQ(fs::status(backup).permissions(), fs::perms(0600));
    Ask("DELETE FROM tb_Ledger2001");
    const std::string later = Bytes(BooksFile());
    std::ofstream(BooksFile().string() + "-wal") << "the log of a crash";
    const auto refused = [&](const std::string& file) {
        const Outcome outcome = Qmhost("restore " + (folder / file).string() + " " + Books());
        EXPECT_EQ(outcome.code, 1) << file;
        EXPECT_EQ(Bytes(BooksFile()), later) << file;
        return outcome.said;
    };
    std::ofstream(folder / "text") << std::string(4096, 'x');
    fs::copy_file(backup, folder / "damaged");
    std::fstream(folder / "damaged", std::ios::in | std::ios::out | std::ios::binary).seekp(20000)
        << "damaged";
    EXPECT_THAT(refused("none"), HasSubstr("there is no file '" + (folder / "none").string() + "'"));
    EXPECT_THAT(refused("."), HasSubstr("is a folder or a device, not a backup"));
    EXPECT_THAT(refused("text"), HasSubstr("cannot be restored: The file '" + (folder / "text").string() +
                                           "' is no books file."));
    EXPECT_THAT(refused("damaged"), HasSubstr("cannot be restored: the copy is damaged"));

    const std::string kept = Bytes(backup);
    const Outcome restored = Qmhost("restore " + backup + " " + Books());
    EXPECT_EQ(restored.code, 0) << restored.said;
    EXPECT_THAT(restored.said,
                StartsWith(BooksFile().string() + ": restored from " + backup + "\nset aside: "));
    EXPECT_EQ(Bytes(backup), kept);
    EXPECT_EQ(Ask("SELECT count(DISTINCT LedgerTrnNo) FROM tb_Ledger2001"), "60\n");
    EXPECT_EQ(Qmhost("check " + Books()).said, "0 errors, 0 notes\n");
    std::map<std::string, std::string> found;  // the dated ones, without the date
    for (const auto& entry : fs::directory_iterator(books)) {
        const std::string name = entry.path().filename();
        if (name != host::BooksFile) found[name.substr(name.find(".mdb"))] = Bytes(entry.path());
    }
    EXPECT_EQ(found[".mdb"], later);
    EXPECT_EQ(found[".mdb-wal"], "the log of a crash");
    EXPECT_EQ(Qmhost("restore " + backup + " " + (folder / "new/place").string()).code, 0);
    EXPECT_EQ(Qmhost("check " + (folder / "new/place").string()).said, "0 errors, 0 notes\n");
}

// Every command and every option of it that the program's own help tells of.
TEST_F(QmhostCommands, TheManPageIsWhole) {
    std::string page = Bytes(MAN_PAGE);
    std::erase(page, '\\');
    const auto expectAll = [&page](const std::string& help, const std::regex& name) {
        for (std::sregex_iterator at(help.begin(), help.end(), name), end; at != end; ++at)
            EXPECT_THAT(page, HasSubstr((*at)[1].str()));
    };
    const std::string help = Qmhost("--help").said;
    const std::regex command("\n  ([a-z-]+) ");
    expectAll(help, command);
    for (std::sregex_iterator at(help.begin(), help.end(), command), end; at != end; ++at)
        expectAll(Qmhost((*at)[1].str() + " --help").said, std::regex("\n  (--[a-z-]+)"));
}

TEST_F(QmhostCommands, WhatDoesNotReadIsTwoAndMissingBooksAreOne) {
    for (const std::string arguments : {"nothing", "post", "post x", "ledgers", "year x", "add-year x",
                                        "backup x", "check", "check x y", "post x y --slow"}) {
        const Outcome outcome = Qmhost(arguments);
        EXPECT_EQ(outcome.code, 2) << arguments;
        EXPECT_THAT(outcome.said, StartsWith("qmhost: ")) << arguments;
    }
    EXPECT_THAT(Qmhost("chekc " + Books()).said, HasSubstr("chekc"));
    const std::string none = (folder / "none").string();
    for (const std::string command : {"post DIR x.csv", "ledgers DIR", "years DIR", "year DIR 2001",
                                      "add-year DIR 2001-2002 --yes", "check DIR", "backup DIR copy.mdb"}) {
        const Outcome outcome = Qmhost(std::string(command).replace(command.find("DIR"), 3, none));
        EXPECT_EQ(outcome.code, 1) << command;
        EXPECT_EQ(outcome.said, "qmhost: Could not find the books file '" + none + "/QmAccount.mdb'.\n");
    }
    EXPECT_FALSE(fs::exists(none));
}

}  // namespace
