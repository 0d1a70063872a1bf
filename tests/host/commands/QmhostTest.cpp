#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>

#include <gmock/gmock.h>
#include <unistd.h>

#include "host/make/Books.h"
#include "host/make/BooksStore.h"
#include "platform/basic/Text.h"
#include "tests/host/commands/Qmhost.h"
#include "tests/support/Cases.h"
#include "tests/support/Server.h"
#include "tests/support/TempFolder.h"

// The commands as they are called from a shell, on the sample books of 2001-2002.
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

const std::string Header = "voucher,date,type,side,ledger,amount,narration\n";

class QmhostTest : public testing::Test {
  protected:
    explicit QmhostTest(bool onServer = false) {
        EXPECT_TRUE(onServer || Qmhost("create " + Books() + " --sample --year 2001").code == 0);
    }

    std::string Books() { return (folder / "books").string(); }
    fs::path BooksFile() { return folder / "books" / host::BooksFile; }
    std::string File() { return (folder / "vouchers.csv").string(); }
    Outcome Post(const std::string& content) {
        std::ofstream(File(), std::ios::binary) << content;
        return Qmhost("post " + Books() + " " + File());
    }
    void Ask(const std::string& sql) { host::BooksStore(BooksFile()).Run(sql); }

    test::TempFolder folder;
};

// Those of the server begin with books in a folder; in all others of a run on the server `books` are there.
class QmhostCommands : public QmhostTest, public testing::WithParamInterface<test::Session> {
  protected:
    QmhostCommands() : QmhostTest(AreOnServer()) {}
    static bool Is(const char* kind) { return GetParam().name.starts_with(kind); }
    static bool AreOnServer() { return test::OnServer() && !Is("Server"); }
};

// All steps in one shell; a mark with the exit code parts what they say. One that cannot be done here ends
// with 77 and says why.
TEST_P(QmhostCommands, Say) {
    if (Is("File")) QM_FILE_ONLY("a session that looks at it");
    if (Is("Server")) QM_SERVER_ONLY();
    const std::string name = "qmhost_" + std::to_string(getpid()), uri = test::ServerUri() + name;
    std::ofstream script(folder / "session");
    script << "qmhost='" QMHOST "' name=" << name << " uri='" << uri << "' books='"
           << (AreOnServer() ? uri + "/" : "books") << "' tests='" TESTS_FOLDER "' screens=" << SCREENS
           << "\n. " TESTS_FOLDER "/host/commands/sessions.sh\n";
    if (test::OnServer()) {
        QM_NEEDS_SERVER();
        script << "ask() { psql -Atqc \"$1\" $uri; }\n"
               << "trap \"psql -qc 'DROP DATABASE IF EXISTS $name WITH (FORCE)' -c 'DROP ROLE IF EXISTS "
                  "${name}_books, ${name}_read' ${uri%/*}/postgres 2> gone\" EXIT\n";
        if (AreOnServer()) script << "qmhost create books --sample --year 2001 > made\n";
    }
    if (Is("FileHledger") && Shell("hledger --version && ledger --version").code != 0)
        GTEST_SKIP() << "hledger and ledger are not installed: see tools/install-deps ci";
    for (const test::Block& step : GetParam().steps) {
        for (const std::string& line : step.given) script << line << '\n';
        script << "echo \"(exit $?)\"\n";
    }
    script.close();
    const std::string here = folder.Path().string();
    const Outcome outcome = Shell("cd " + here + " && sh session < /dev/null");
    if (outcome.code == 77) GTEST_SKIP() << outcome.said.substr(outcome.said.rfind("skipped: "));
    std::istringstream said(basic::Replace(basic::Replace(outcome.said, here + "/", ""),
                                           AreOnServer() ? uri + "/" : uri, AreOnServer() ? "books" : "URI"));
    for (const test::Block& step : GetParam().steps) {
        test::Cells lines;
        for (std::string line; std::getline(said, line) && line != "(exit 0)";) {
            lines.push_back(line);
            if (line.starts_with("(exit ")) break;
        }
        test::ExpectSaid(lines, step);
    }
}

const auto NameOf = [](const auto& session) { return session.param.name; };
INSTANTIATE_TEST_SUITE_P(All, QmhostCommands,
                         testing::ValuesIn(test::Sessions("host/commands/QmhostCommands.txt")), NameOf);
INSTANTIATE_TEST_SUITE_P(Doors, QmhostCommands,
                         testing::ValuesIn(test::Sessions("host/commands/DoorCommands.txt")), NameOf);
INSTANTIATE_TEST_SUITE_P(Server, QmhostCommands,
                         testing::ValuesIn(test::Sessions("host/commands/ServerCommands.txt")), NameOf);

TEST_F(QmhostTest, PostNamesEveryFaultByLineAndColumnAndPostsNothing) {
    QM_FILE_ONLY("its bytes are compared");
    Ask("UPDATE Ledger_Master SET Name = 'Twin' WHERE Ledger_ID IN (18, 19)");
    Ask("UPDATE Ledger_Master SET Name = 'Example \"Paper\" Mart' WHERE Ledger_ID = 22");
    Ask("UPDATE Ledger_Details SET Fnncl_Yr = 2000 WHERE Ledger_ID = 27");  // known, but not in this year
    const std::string before = test::Bytes(BooksFile());
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
    EXPECT_EQ(test::Bytes(BooksFile()), before);
}

using Names = std::vector<std::string>;

Names Found(const std::string& help, const std::string& name) {
    Names found;
    const std::regex line("\n  " + name);
    for (std::sregex_iterator at(help.begin(), help.end(), line), end; at != end; ++at)
        found.push_back((*at)[1].str());
    return found;
}

// What the shell offers behind some words of a command line.
Names Offered(const std::string& words) {
    std::istringstream said(
        Shell("bash -c '. " COMPLETION "; COMP_WORDS=(" QMHOST " " + words +
              "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _qmhost " QMHOST
              " \"${COMP_WORDS[COMP_CWORD]}\" \"${COMP_WORDS[COMP_CWORD - 1]}\"; echo ${COMPREPLY[@]}'")
            .said);
    return {std::istream_iterator<std::string>(said), {}};
}

// A command, those below it and its options: all that its help tells of stands in the manual page, is offered
// by the shell's completion, and is shown by an example.
void ExpectTold(const std::string& command, const std::string& page) {
    SCOPED_TRACE(command);
    const std::string help = Qmhost(command + "--help").said;
    const Names below = Found(help, "([a-z][a-z-]*) "), options = Found(help, "(?:-[a-z],)?(--[a-z-]+)");
    for (const Names& names : {below, options})
        for (const std::string& name : names) EXPECT_THAT(page, HasSubstr(name));
    EXPECT_EQ(Offered(command + "--"), options);
    EXPECT_THAT(help, HasSubstr(command.empty() ? "" : "Example: qmhost " + command));
    EXPECT_TRUE(below.empty() || Offered(command + "\"\"") == below);
    for (const std::string& name : below) ExpectTold(command + name + " ", page);
}

TEST(Help, IsWholeInThePageAndInTheShell) {
    std::string page = test::Bytes(MAN_PAGE);
    std::erase(page, '\\');
    ExpectTold("", page);
    EXPECT_EQ(Offered("open frmR"), SCREENS ? Names{"frmReceipt"} : Names{});  // the screens tell their names
    EXPECT_EQ(Offered("list vouchers books --xlsx \"\""), Names{});
}

}  // namespace
