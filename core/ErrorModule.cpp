#include "core/ErrorModule.h"

#include "core/DBCode.h"
#include "core/MsgBox.h"
#include "core/modGeneral.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

basic::Error lastError{0, "", ""};

}  // namespace

void LogError(const std::string& formName, std::int32_t number, const std::string& description,
              const std::string& source) {
    lastError = {number, description, source};
    std::string sql;
    SkipOnError([&] {
        const basic::Value now = basic::Clock::Now();
        sql = "Insert Into tblError (frmName, ErrNumber, ErrDesc, ErrSource, ErrDate, ErrTime) Values (\"" +
              formName + "\",\"" + basic::NumberText(number) + "\",\"" +
              basic::Replace(description, "\"", "'") + "\",\"" + source + "\",\"" +
              basic::Format(now, "dd/MM/yyyy") + "\",\"" + basic::Format(now, "hh:mm:ss") + "\")";
    });
    // The box comes first and the routine waits in it; the row is written after. Two lone carriage returns,
    // then one. Kept 5.
    SkipOnError([&] {
        MsgBox("Formname: " + formName + "\r\r Description : " + description + "\r Source : " + source);
    });
    SkipOnError([&] {
        if (shared().Connection && shared().Connection->State() == ado::adStateOpen) ExecuteNoRecords(sql);
    });
}

void LogError(const std::string& formName, const basic::Error& error) {
    LogError(formName, error.Number, error.Description, error.Source);
}

const basic::Error& LastError() {
    return lastError;
}

bool SkipOnError(const std::function<void()>& statement) {
    try {
        statement();
        return true;
    } catch (const basic::Error&) {
        return false;
    }
}

}  // namespace qm
