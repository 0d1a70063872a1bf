#include "host/commands/BooksCopy.h"

#include "host/make/Books.h"
#include "host/make/Fail.h"
#include "platform/ado/Maintenance.h"

namespace host {

ado::ConnectionPtr OpenCopy(const std::string& file) {
    auto copy = std::make_shared<ado::Connection>();
    copy->Properties("Data Source") = file;
    copy->Properties("Jet OlEDB:Database Password") = BooksPassword;
    copy->Open();
    return copy;
}

void RefuseDamaged(ado::Connection& copy) {
    const std::vector<std::string> faults = ado::CheckIntegrity(copy);
    if (!faults.empty()) Fail("the copy is damaged: " + faults.front());
}

}  // namespace host
