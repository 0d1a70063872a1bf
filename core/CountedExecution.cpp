#include "core/CountedExecution.h"

#include "core/modGeneral.h"
#include "platform/ado/Constants.h"
#include "platform/basic/Error.h"

namespace qm {

std::int64_t Affected(const std::string& sql) {
    std::int64_t recordsAffected = 0;
    Conn().Execute(sql, &recordsAffected, ado::adCmdText);
    return recordsAffected;
}

void ExecuteCounted(const std::string& sql) {
    static const basic::Error none(0, "");
    Conn().ExecuteAhead(sql, &none);
}

}  // namespace qm
