#include "host/BooksCopy.h"

#include "host/Books.h"
#include "host/Fail.h"
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
