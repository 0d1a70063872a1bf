#pragma once

#include <QApplication>
#include <QDialog>
#include <QKeySequence>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <deque>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace test {

// Answers the dialogs that come, one after the other, by keys: a word behind a quote is typed and ended by
// Enter. A wait that cannot be cancelled is no question.
class DialogUser {
  public:
    DialogUser() {
        QObject::connect(&look_, &QTimer::timeout, [this] { Look(); });
        look_.start(20);
    }
    ~DialogUser() { EXPECT_TRUE(Done()) << "nothing asked for " << answers_.front(); }

    void Will(std::deque<std::string> answers) { answers_ = std::move(answers); }
    bool Done() const { return answers_.empty(); }
    const std::string& Asked() const { return asked_; }  // of the last box

  private:
    void Look() {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || Done() || dialog == answered_) return;
        if (dialog->objectName() == "wait" && answers_.front() != "Escape") return;
        if (std::exchange(seen_, dialog) != dialog) return;  // it may still be coming
        answered_ = dialog;
        if (auto* const box = qobject_cast<QMessageBox*>(dialog)) asked_ = box->text().toStdString();
        const std::string answer = answers_.front();
        answers_.pop_front();
        QWidget* const focus = dialog->focusWidget() ? dialog->focusWidget() : dialog;
        if (answer.front() == '\'') {
            QTest::keyClick(focus, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(focus, QString::fromStdString(answer.substr(1)));
            QTest::keyClick(focus, Qt::Key_Return);
        } else {
            const QKeyCombination keys = QKeySequence(QString::fromStdString(answer))[0];
            QTest::keyClick(focus, keys.key(), keys.keyboardModifiers());
        }
    }
    QTimer look_;
    QPointer<QDialog> seen_, answered_;
    std::deque<std::string> answers_;
    std::string asked_;
};

}  // namespace test
