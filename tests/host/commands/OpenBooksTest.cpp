#include <fstream>
#include <iostream>
#include <sstream>

#include <CLI/CLI.hpp>
#include <gtest/gtest.h>

#include "core/DBCode.h"
#include "host/commands/Command.h"
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

// Runs a command on the books of a folder and gives what it told on the standard output stream.
std::string Told(const std::string& line, const std::string& folder, bool& failed) {
    CLI::App app;
    host::Command chosen;
    for (const auto add : {host::AddPost, host::AddYears, host::AddYearSwitch, host::AddAddYear})
        add(app, chosen);
    app.parse(std::string(line).replace(line.find("DIR"), 3, folder));
    std::ostringstream told;
    auto* const before = std::cout.rdbuf(told.rdbuf());
    failed = test::ErrorOf([&] { chosen(); }) != 0;
    std::cout.rdbuf(before);
    return told.str();
}

// Delivered books are begun by the start, and the disk takes that at the end.
TEST(OpenBooks, ACommandTellsItsSuccessWhenTheBooksAreClosed) {
    const test::TempFolder folder;
    std::ofstream(folder / "no-vouchers.csv") << "voucher,date,type,side,ledger,amount,narration\n";
    const std::string file = folder / "no-vouchers.csv";
    for (const std::string& line :
         {std::string("years DIR"), std::string("year DIR 2001"), "post DIR " + file,
          "post --dry-run DIR " + file, std::string("add-year --yes DIR 2002-2003")}) {
        bool failed = true;
        int call = 0;
        for (; failed && call < 30; ++call) {
            const test::TempFolder books;
            host::CreateBooks(books);
            FailFrom(call);
            const std::string told = Told(line, books.Path(), failed);
            test::WatchDisk({});
            EXPECT_EQ(told.empty(), failed) << line << ", call " << call << ": " << told;
        }
        EXPECT_GT(call, 1) << line;
        EXPECT_FALSE(failed) << line;
    }
}

}  // namespace
