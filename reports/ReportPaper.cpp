#include "reports/ReportPaper.h"

#include <filesystem>

#include "core/Masks.h"
#include "core/modGeneral.h"
#include "platform/basic/Format.h"

namespace qm {
namespace {

// The last name of the folder, however it was written.
std::string BooksName() {
    std::error_code failure;
    auto folder = std::filesystem::absolute(shared().DataPath, failure).lexically_normal();
    if (!folder.has_filename()) folder = folder.parent_path();
    return folder.filename().string();
}

}  // namespace

forms::html::Paper ReportPaper(const std::string& title, const std::string& period) {
    return {.Title = title, .Source = BooksName(), .Period = period};
}

std::string Period(basic::Date from, basic::Date upto) {
    return basic::Format(from, DateMask) + " to " + basic::Format(upto, DateMask);
}
std::string Period(basic::Date upto) {
    return "up to " + basic::Format(upto, DateMask);
}

}  // namespace qm
