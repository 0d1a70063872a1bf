#include <QLocale>
#include <QStringList>

#include "desk/ChartView.h"
#include "tests/desk/DeskFixture.h"
#include "tests/support/Shell.h"
#include "vouchers/frmVoucher.h"

namespace {

// Where an answer stands: somewhere on the desk; as a list of just these rows; on the voucher's screen that
// the last key opens; in a file.
enum class In { Desk, List, Screen, Csv, Workbook, Paper };

// What a bookkeeper asks in a day, and the keys that answer it from the first page, with FILE for the file's
// name. The answer comes from a statement on the books: for each of its rows, for a screen the first, #0 is a
// field as it stands and $0 one as an amount. A row whose last field is a figure of 0 or less is none.
struct Question {
    const char* Asked;
    std::vector<std::string> Keys;
    In Where;
    const char *Sql, *Answer;
};

#define OF_GROUP "From tb_Ledger2001, Ledger_Master Where LedgerCode = Ledger_ID And PrimaryGrp = "
#define WITH_OPENING                                                                                    \
    "From tb_Ledger2001, Ledger_Master, Ledger_Details Where LedgerCode = Ledger_Master.Ledger_ID And " \
    "LedgerCode = Ledger_Details.Ledger_ID And Fnncl_Yr = 2001 And PrimaryGrp = "
#define OPENING "Max(Iif(Bal_Type = 'D', Opening_Bal, 0 - Opening_Bal))"
#define IN_MAY " And LedgerTxnDate >= 37010 And LedgerTxnDate <= 37040"
#define OF_MODEL_SCHOOL "From tb_Ledger2001 Where LedgerName = 'Model School Stores'"

const Question Questions[] = {
    {"What did we sell in May?",
     {"Tab", "Right"},
     In::Desk,
     "Select Sum(LedgerCrAmt) - Sum(LedgerDrAmt) " OF_GROUP "'Sales'" IN_MAY,
     "May 2001, Sales: $0"},
    {"Which lines are that?",
     {"Tab", "Right", "Return"},
     In::List,
     "Select LedgerTrnNo, LedgerTrnType, LedgerName, LedgerCrAmt " OF_GROUP "'Sales'" IN_MAY,
     "-May-2001|#0|#1|#2||$3|"},
    {"Which voucher made this figure?",
     {"Tab", "Right", "Return", "Return"},
     In::Screen,
     "Select LedgerTrnNo " OF_GROUP "'Sales'" IN_MAY " Order By LedgerTxnDate",
     "#0"},
    {"What did we receive in May?",
     {"Alt+2", "Alt+P", "Y", "Alt+T", "R"},
     In::List,
     "Select LedgerTrnNo, LedgerName, LedgerNarration From tb_Ledger2001 Where LedgerTrnType = "
     "'Receipt'" IN_MAY,
     "-May-2001|#0|Receipt|#1|"},
    {"What stands in the bank at the end?",
     {"End", "Down"},
     In::Desk,
     "Select " OPENING " + Sum(LedgerDrAmt) - Sum(LedgerCrAmt) " WITH_OPENING "'Bank'",
     "March 2002, Bank: $0"},
    {"Who owes for more than 60 days, and how much in all?",
     {"Alt+5", "Alt+O", "6"},
     In::List,
     "Select Name, Sum(LedgerDrAmt) - Sum(LedgerCrAmt) + " OPENING
     ", Sum(Iif(LedgerTxnDate < 37284, LedgerDrAmt, 0)) - Sum(LedgerCrAmt) + " OPENING " " WITH_OPENING
     "'Debtors' Group By Name",
     "#0|Debtors|$1|"},
    {"To whom do we owe?",
     {"Alt+5", "Alt+W"},
     In::List,
     "Select Name, Sum(LedgerCrAmt) - Sum(LedgerDrAmt) - " OPENING " " WITH_OPENING
     "'Suppliers' Group By Name",
     "#0|Suppliers|-$1|"},
    {"What did that party pay?",
     {"Ctrl+K", "'model school", "Return"},
     In::Desk,
     "Select LedgerTrnNo, LedgerNarration, LedgerCrAmt " OF_MODEL_SCHOOL " And LedgerTrnType = 'Receipt'",
     "|#0|Receipt|#1||$2|"},
    {"Print it.",
     {"Ctrl+K", "'model school", "Return", "Ctrl+P", "Ctrl+P", "Return"},
     In::Paper,
     "Select LedgerDrAmt + LedgerCrAmt " OF_MODEL_SCHOOL,
     " $0 "},
    {"Hand it over as a spreadsheet.",
     {"Ctrl+K", "'model school", "Return", "Ctrl+E", "S", "'FILE", "Return"},
     In::Workbook,
     "Select LedgerDrAmt + LedgerCrAmt " OF_MODEL_SCHOOL,
     "<v>#0</v>"},
    {"Which vouchers speak of rent, as a file of commas?",
     {"Alt+2", "Ctrl+F", "'rent", "Ctrl+E", "C", "'FILE", "Return"},
     In::Csv,
     "Select LedgerTrnNo, LedgerTrnType, LedgerName From tb_Ledger2001 Where LedgerNarration Like '%rent%'",
     ",#0,#1,#2,"},
    {"Print all vouchers of the year.",
     {"Alt+2", "Ctrl+P", "Ctrl+P", "Return"},
     In::Paper,
     "Select LedgerDrAmt + LedgerCrAmt From tb_Ledger2001",
     " $0 "},
    {"Print this voucher.",
     {"Alt+2", "Down", "Ctrl+Shift+P", "Ctrl+P", "Return"},
     In::Paper,
     "Select LedgerName, LedgerDrAmt + LedgerCrAmt, LedgerNarration From tb_Ledger2001 Where LedgerTrnNo = 1",
     " #0 $1 #2 "},
    {"What is short in stock?",
     {"Alt+I"},
     In::List,
     "Select Item_ID, Item_Name From ItemMaster2001 Where Open_Stock + Iif(IsNull(ReceivedQty), 0, "
     "ReceivedQty) - Iif(IsNull(IssuedQty), 0, IssuedQty) <= Reorder_Level",
     "#0|#1|"},
    {"Is the backup good?",
     {"Alt+B", "Alt+V", "Return"},
     In::Desk,
     "Select Sum(1), Sum(LedgerDrAmt) From tb_Ledger2001",
     "2001-2002: #0 lines, debit $1. It holds what the books hold now."},
};

class QuestionsTest : public test::DeskTest {
  protected:
    QuestionsTest() { qputenv("HOME", settings.Path().c_str()); }
    ~QuestionsTest() override { qputenv("HOME", home); }

    // All that the page says of itself, and the bar.
    QStringList Lines() {
        QStringList lines;
        for (auto* const view : desk->Shown()->findChildren<desk::SheetView*>("sheet"))
            for (int row = 0; view->isVisible() && row < view->View().model()->rowCount(); ++row)
                lines << QString::fromStdString(Line(row));
        return lines;
    }
    std::string Said() {
        QStringList said = Lines();
        if (auto* const chart = dynamic_cast<desk::ChartView*>(desk->focusWidget()))
            said << chart->MarkedText();
        return said.join('\n').toStdString() + "\n" + Told();
    }
    static std::vector<std::string> Answers(const Question& question) {
        std::vector<std::string> answers;
        for (const std::string& row : test::FreshBooks::Rows(question.Sql)) {
            const QStringList fields = QString::fromStdString(row).split('|');
            bool isFigure = false;
            if (fields.last().toDouble(&isFigure) <= 0 && isFigure) continue;
            QString answer = question.Answer;
            for (int field = 0; field < fields.size(); ++field)
                answer.replace(QString("#%1").arg(field), fields[field])
                    .replace(QString("$%1").arg(field),
                             QLocale(QLocale::English).toString(fields[field].toDouble(), 'f', 2));
            answers.push_back(answer.toStdString());
            if (question.Where == In::Screen) break;
        }
        return answers;
    }
    // What was written, each run of blanks as one.
    std::string Content(In where) {
        if (where == In::Csv) return test::Bytes(file + ".csv");
        if (where == In::Workbook) return test::PartOf(file + ".xlsx", "xl/worksheets/sheet1.xml");
        // Without a printer a file at home is printed to, named by what is printed.
        const QString text = QString::fromStdString(
            test::Shell("for file in \"$HOME\"/*.pdf; do pdftotext -layout \"$file\" -; done").said);
        for (const QString& page : text.split('\f', Qt::SkipEmptyParts))
            EXPECT_TRUE(page.contains("Debit")) << "a page without heads: " << page.toStdString();
        QStringList lines;
        for (const QString& line : text.split('\n')) lines << ' ' + line.simplified() + ' ';
        return lines.join('\n').toStdString();
    }
    void Ask(const Question& question) {
        std::vector<std::string> keys = question.Keys;
        std::replace(keys.begin(), keys.end(), std::string("'FILE"), "'" + file);
        if (question.Where == In::Screen)
            script.Modal("frmVoucher", [this](forms::Form& form) {
                voucher = static_cast<qm::frmVoucher&>(form).ui().txtVoucherNo->Text();
            });
        EXPECT_LE(Press(keys), 5u);
        const std::vector<std::string> answers = Answers(question);
        ASSERT_FALSE(answers.empty());
        const bool isFile = question.Where > In::Screen;
        const bool isToldLater = isFile && question.Where != In::Paper;
        ASSERT_TRUE(QTest::qWaitFor([&] { return !isToldLater || Told().starts_with("Written: "); }))
            << Told();
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return question.Where != In::List || Lines().size() == qsizetype(answers.size());
        })) << Said();
        std::string said = isFile ? Content(question.Where) : "";
        for (const std::string& answer : answers) {
            EXPECT_TRUE(QTest::qWaitFor([&] {
                if (!isFile) said = question.Where == In::Screen ? voucher : Said();
                return isFile || said.find(answer) != said.npos;
            }));
            EXPECT_THAT(said, testing::HasSubstr(answer));
        }
    }
    void BackUp() {
        desk->Go("books");
        Press({"Alt+B", "Ctrl+A", "'" + (settings / "copy.mdb").string(), "Return"});
        ASSERT_TRUE(QTest::qWaitFor([&] { return Told().starts_with("Backed up"); })) << Told();
    }

    const QByteArray home = qgetenv("HOME");
    const std::string file = settings / "answer";
    std::string voucher;
};

TEST_F(QuestionsTest, EachIsAnsweredByAtMostFiveKeysBesideTheWords) {
    FillWithSample();
    books.OpenHost();
    for (const char* line : {"500, 0 From Ledger_Master Where Name = 'Specimen Book House'",
                             "0, 500 From Ledger_Master Where Name = 'Sales of Goods'"})
        books.Run(
            "Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerTxnDate, LedgerTrnType, LedgerCode, LedgerName, "
            "LedgerDrAmt, LedgerCrAmt) Select 900, 37340, 'Journal', Ledger_ID, Name, " +
            std::string(line));
    Start();
    BackUp();
    for (const Question& question : Questions) {
        SCOPED_TRACE(question.Asked);
        ASSERT_EQ(test::Shell("rm -f \"$HOME\"/*.pdf").code, 0);
        desk->OpenBooks(desk->Books().Address());
        ASSERT_TRUE(QTest::qWaitFor([&] { return Said().find("April 2001, Cash: ") != std::string::npos; }));
        Ask(question);
    }
}

}  // namespace
