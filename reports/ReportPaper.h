#pragma once

#include <string>

#include "platform/basic/Value.h"
#include "platform/forms/html/Paper.h"

namespace qm {

// What a report's sheets tell beside its text: the folder of the books and the period. The title names its
// PDF file.
forms::html::Paper ReportPaper(const std::string& title, const std::string& period);

// "01-Apr-2001 to 30-Apr-2001".
std::string Period(basic::Date from, basic::Date upto);
// "up to 30-Apr-2001".
std::string Period(basic::Date upto);

}  // namespace qm
