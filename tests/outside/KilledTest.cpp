#include <algorithm>
#include <csignal>
#include <filesystem>
#include <random>
#include <thread>
#include <utility>

#include <gtest/gtest.h>
#include <unistd.h>

#include "core/MsgBox.h"
#include "host/commands/BooksCopy.h"
#include "tests/host/commands/Qmhost.h"
#include "tests/outside/PostedBooks.h"
#include "tests/outside/RunningProgram.h"

namespace test {
namespace {

// Starts a program that posts without end and kills it a little after it has told of `rows` rows.
PostedRows ToldBeforeKill(const PostedBooks& books, int rows, useconds_t after) {
    RunningProgram poster({POSTER, books.DataPath(), "1000000"});
    PostedRows told;
    for (std::optional<std::string> line; static_cast<int>(told.size()) < rows && (line = poster.Line());)
        told.insert(*line);
    usleep(after);
    poster.Kill();
    for (const std::string& line : poster.Lines()) told.insert(line);
    EXPECT_EQ(poster.Wait(), -SIGKILL);
    return told;
}

// The moments spread over the opening of the books and over all steps of a posting. The same books go from
// round to round, so each opening finds what the killed program before it left.
TEST(Killed, KeepsEveryPostingThatWasReportedAndHalvesNone) {
    PostedBooks books;
    PostedRows standing;
    std::mt19937 random(20010401);  // repeatable but for the machine's own timing
    for (int round = 0; round < 25; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        const bool whileOpening = round % 5 == 0;
        const int rows = whileOpening ? 0 : static_cast<int>(random() % 30);
        const auto after = static_cast<useconds_t>(random() % (whileOpening ? 150'000 : 15'000));
        const PostedRows told = ToldBeforeKill(books, rows, after);

        const PostedRows before = std::exchange(standing, books.Look());
        PostedRows known = before;
        known.insert(told.begin(), told.end());
        EXPECT_TRUE(std::includes(standing.begin(), standing.end(), known.begin(), known.end()))
            << "a row that was reported is gone";
        EXPECT_LE(standing.size(), known.size() + 1) << "more than the one row that could not be told";
    }
    EXPECT_GT(standing.size(), 50U);
}

// The log that a killed program left belongs to the file that the copy replaces.
TEST(Killed, LeavesNothingThatHarmsACopyPutInThePlaceOfTheBooks) {
    QM_FILE_ONLY("a copy in its place");
    PostedBooks books;
    const std::string copy = books.DataPath() + "copy.mdb";
    std::vector<std::string> told;
    const qm::MsgBoxPort before = qm::SetMsgBoxPort([&](const std::string& text, int, const std::string&) {
        told.push_back(text);
        return qm::vbOK;
    });
    for (const int rows : {4, 40, 300}) {
        ToldBeforeKill(books, rows, 0);
        const PostedRows kept = books.Look();
        std::filesystem::copy_file(books.File(), copy, std::filesystem::copy_options::overwrite_existing);
        ToldBeforeKill(books, rows, 0);
        std::filesystem::copy_file(copy, books.File(), std::filesystem::copy_options::overwrite_existing);
        EXPECT_EQ(told.size(), 0U);
        EXPECT_EQ(books.Look(), kept);
        EXPECT_EQ(std::exchange(told, {}).size(), 1U);
    }
    qm::SetMsgBoxPort(before);
}

// From the moment on at which its folder stands beside the copy's place.
TEST(Killed, ABackupBearsItsNameWholeOrNotAtAllAndIsSweptByTheNext) {
    const PostedBooks books;
    int broken = 0;
    std::mt19937 random(20010401);
    for (int round = 0; round < 6; ++round) {
        const TempFolder place;
        const std::string copy = place / "copy.mdb";
        {
            RunningProgram backup({QMHOST, "backup", books.DataPath(), copy});
            while (backup.Runs() && place.IsEmpty()) std::this_thread::yield();
            usleep(static_cast<useconds_t>(random() % 8'000));
        }
        if (std::filesystem::exists(copy))
            host::RefuseDamaged(*host::OpenCopy(copy));
        else
            ++broken;
        std::filesystem::remove(copy);
        EXPECT_EQ(Qmhost("backup " + books.DataPath() + " " + copy).code, 0);
        std::filesystem::remove(copy);
        EXPECT_TRUE(place.IsEmpty());
    }
    EXPECT_GT(broken, 0) << "none was killed before its copy bore its name";
}

}  // namespace
}  // namespace test
