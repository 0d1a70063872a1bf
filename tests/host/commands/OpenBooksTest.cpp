#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/DBCode.h"
#include "host/commands/CommandLine.h"
#include "host/commands/OpenBooks.h"
#include "host/make/Books.h"
#include "tests/support/DiskCalls.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/TempFolder.h"

namespace {

// The log that the store has beside the books no longer gets to the disk, from the given call on.
void FailFrom(int call) {
    test::WatchDisk([left = call](const std::string&, const std::string& file) mutable {
        return !file.ends_with("-wal") || --left >= 0;
    });
}

TEST(OpenBooks, WhatCannotBeClosedWasNotDone) {
    for (const bool byHand : {true, false}) {
        const test::TempFolder folder;
        host::CreateBooks(folder);
        EXPECT_NE(test::ErrorOf([&] {
                      host::OpenBooks books(folder.Path());
                      qm::ExecuteNoRecords("Update tblvchrmst Set vchrmstLastNo = 1");
                      FailFrom(0);
                      if (byHand) books.Close();
                  }),
                  0);
        test::WatchDisk({});
    }
}

// Runs a command and gives what it told on the standard output stream.
std::string Told(const std::vector<const char*>& words, bool& failed) {
    host::CommandLine commands("qmhost", "", "", "");
    for (const auto add : {host::AddPost, host::AddYears, host::AddYearSwitch, host::AddAddYear})
        add(commands);
    const host::Command chosen = commands.Read(static_cast<int>(words.size()), words.data());
    std::ostringstream told;
    auto* const before = std::cout.rdbuf(told.rdbuf());
    failed = test::ErrorOf([&] { chosen(); }) != 0;
    std::cout.rdbuf(before);
    return told.str();
}

// Delivered books are begun by the start, and the disk takes that at the end.
TEST(OpenBooks, ACommandTellsItsSuccessWhenTheBooksAreClosed) {
    const test::TempFolder folder;
    const std::string file = folder / "no-vouchers.csv";
    std::ofstream(file) << "voucher,date,type,side,ledger,amount,narration\n";
    for (const std::vector<const char*>& words : {std::vector<const char*>{"years"},
                                                  {"year", "2001"},
                                                  {"post", file.c_str()},
                                                  {"post", file.c_str(), "--dry-run"},
                                                  {"add-year", "2002-2003", "--yes"}}) {
        SCOPED_TRACE(testing::PrintToString(words));
        bool failed = true;
        int call = 0;
        for (; failed && call < 30; ++call) {
            const test::TempFolder books;
            host::CreateBooks(books);
            FailFrom(call);
            std::vector<const char*> line = words;
            line.insert(line.begin(), "qmhost");
            line.insert(line.begin() + 2, books.Path().c_str());
            const std::string told = Told(line, failed);
            test::WatchDisk({});
            EXPECT_EQ(told.empty(), failed) << "call " << call << ": " << told;
        }
        EXPECT_GT(call, 1);
        EXPECT_FALSE(failed);
    }
}

}  // namespace
