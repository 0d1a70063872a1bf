#include <QKeySequence>
#include <vector>

#include "desk/Books.h"
#include "desk/ChartView.h"
#include "tests/desk/DeskFixture.h"
#include "vouchers/frmVoucher.h"

namespace {

// What a bookkeeper asks in a day, and the keys that answer it from the first page; a word in quotes is
// typed.
struct Question {
    const char* Asked;
    std::vector<const char*> Keys;
    const char* Answer;
    const char* Screen = nullptr;  // that the last key opens, with the voucher of the answer
};

const Question Questions[] = {
    {"What did we sell in May?", {"Tab", "Right"}, "May 2001, Sales: 56,750.00"},
    {"Which lines are that?", {"Tab", "Right", "Return"}, "2 lines, Debit 0.00, Credit 56,750.00"},
    {"What did we pay in April?", {"Tab", "Tab", "Down"}, "April 2001, Payments: 79,"},
    {"What stands in the bank at the end?", {"End", "Down"}, "March 2002, Bank: "},
    {"Who owes, and for how long?", {"Alt+P"}, "Parties|"},
    {"What did that party pay?", {"Ctrl+K", "'model school", "Return"}, "Model School Stores|"},
    {"Which voucher made this figure?",
     {"Ctrl+K", "'model school", "Return", "Down", "Down", "Return"},
     "5",
     "frmVoucher"},
    {"Show me voucher 14.", {"Ctrl+K", "'14", "Return"}, "14", "frmVoucher"},
    {"What is short in stock?", {"Alt+I"}, "Items to reorder|"},
    {"Which vouchers speak of rent?", {"Alt+2", "Ctrl+F", "'rent"}, "24 lines, Debit 58,500.00"},
    {"What is the balance of the groups?", {"Alt+3"}, "Ledgers|"},
    {"How do I go on from here?", {"F1"}, "Manual|"},
};

class QuestionsTest : public test::DeskTest {
  protected:
    void Press(const char* key) {
        if (key[0] == '\'') return Type(key + 1);
        const QKeyCombination keys = QKeySequence(key)[0];
        Key(keys.key(), keys.keyboardModifiers());
    }
    // All that the page says of itself.
    std::string Said() {
        std::string text = Title() + "|";
        if (auto* const chart = dynamic_cast<desk::ChartView*>(desk->focusWidget()))
            text += chart->MarkedText().toStdString();
        else if (auto* const sheet = desk->Shown()->findChild<desk::SheetView*>("sheet"))
            text += sheet->TotalsText().toStdString();
        return text;
    }
    void Ask(const Question& question) {
        std::string voucher;
        if (question.Screen)
            script.Modal(question.Screen, [&voucher](forms::Form& form) {
                voucher = static_cast<qm::frmVoucher&>(form).ui().txtVoucherNo->Text();
            });
        std::size_t keys = 0;
        for (const char* const& key : question.Keys) {
            keys += key[0] == '\'' ? 0 : 1;
            const std::string before = Said();
            Press(key);
            if (key == std::string_view("Return") && !(question.Screen && &key == &question.Keys.back())) {
                EXPECT_TRUE(QTest::qWaitFor([&] { return Said() != before; }));
            }
        }
        EXPECT_LE(keys, 5u);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return question.Screen ? voucher == question.Answer
                                   : Said().find(question.Answer) != std::string::npos;
        })) << Said();
    }
};

TEST_F(QuestionsTest, EachIsAnsweredByAtMostFiveKeysBesideTheWords) {
    FillWithSample();
    Start();
    for (const Question& question : Questions) {
        SCOPED_TRACE(question.Asked);
        desk->OpenBooks(desk->Books().Address());
        ASSERT_TRUE(QTest::qWaitFor([&] { return Said() != "Overview|"; }));
        Ask(question);
    }
}

}  // namespace
