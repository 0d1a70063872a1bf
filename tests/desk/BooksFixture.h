#pragma once

#include <deque>
#include <fstream>
#include <string>

#include "desk/Books.h"
#include "tests/desk/DeskFixture.h"
#include "tests/desk/DialogUser.h"

namespace test {

// The page Books on the sample firm, by keys alone, the dialogs included.
class BooksTest : public DeskTest {
  protected:
    void StartOnBooks() {
        FillWithSample();
        Start();
        place = desk->Books().Address();
        desk->Go("books");
        ASSERT_EQ(Title(), "Books");
    }
    // The key of a button, and what the dialogs that it brings are answered.
    void Do(const char* key, std::deque<std::string> answers) {
        user.Will(std::move(answers));
        const QKeyCombination keys = QKeySequence(key)[0];
        Key(keys.key(), keys.keyboardModifiers());
    }
    void Expect(const std::string& told) {
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return user.Done() && Told().find(told) != std::string::npos; }, 20'000))
            << Told() << " in place of " << told;
    }
    static std::string Lines() { return FreshBooks::One("Select Sum(1) From tb_Ledger2001"); }
    std::string File(const char* name, const std::string& text) {
        std::ofstream(folder / name, std::ios::binary) << text;
        return folder / name;
    }
    TempFolder folder;
    std::string place;  // of the books at the start
    DialogUser user;
};

}  // namespace test
