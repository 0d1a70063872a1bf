#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "queries/LedgerSums.h"
#include "queries/Reading.h"
#include "queries/Sheet.h"

namespace queries {

// A failure that was logged.
struct LoggedError {
    std::optional<basic::Date> date;  // none where the text is no date
    std::string time;                 // as it stands, "18:30:00"
    std::string form;                 // the screen or the part of the class
    std::int32_t number = 0;
    std::string description, source;
};

// The error log of all years, the oldest first. `words` each stand in the form, the description or the
// source.
std::vector<LoggedError> ErrorLog(Reading& books, const Range& days = {}, const std::string& words = {});
std::unique_ptr<SheetOf<LoggedError>> ErrorLogSheet(Reading& books, const Range& days = {},
                                                    const std::string& words = {});

}  // namespace queries
