#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/basic/Value.h"

// What the cells of a file of vouchers hold. Where a cell does not read, `reason` says why, in words that
// stand behind its place in the file; no cell is echoed longer than a line, nor with its control characters.
namespace host {

// A cell in a message: within apostrophes, cut where it is long, what cannot be shown replaced.
std::string Shown(const std::string& cell);

// "" for a cell that may be stored: UTF-8 without control characters. Line ends may stand in a narration.
std::string TextFault(const std::string& cell, bool lineEnds);

// The letter that one of the words stands for, written whole or as its first letter in any case; "" for any
// other text.
std::string LetterOfWord(const std::string& cell, const std::vector<std::string>& words);

// "D" or "C", for "Debit", "Dr" and the like; "" for any other text.
std::string ReadSide(const std::string& cell);

// A number of 0 or more as it goes into a statement, with at most 15 digits, so that nothing of it is lost in
// the books. Commas may group the whole part by three, or by two as in 12,34,567.00. "" with a reason where
// it does not read.
std::string ReadFigure(const std::string& cell, std::size_t mostDecimals, std::string& reason);

struct Amount {
    double rupees = 0;       // as it is posted
    std::int64_t paise = 0;  // the same, exactly: sums are compared in these
};

// A figure above 0 with at most two decimals.
std::optional<Amount> ReadAmount(const std::string& cell, std::string& reason);

enum class DateOrder { DayFirst, MonthFirst };

// The one order of day and month holds for every date written in figures; one that fits only the other is
// refused. A date with the month's name, or with the year first, reads alike in both.
std::optional<basic::Date> ReadDay(const std::string& cell, DateOrder order, std::string& reason);

}  // namespace host
