#include "host/doors/AllOrNothing.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "core/ErrorModule.h"
#include "core/modGeneral.h"
#include "platform/ado/Constants.h"
#include "platform/ado/Recordset.h"

namespace host {
namespace {

using LogRow = std::vector<basic::Value>;
const char* const LogFields[] = {"frmName", "ErrNumber", "ErrDesc", "ErrSource", "ErrDate", "ErrTime"};

// The rows of the error log behind the first `known`: it only ever grows.
std::vector<LogRow> LogRows(std::size_t known) {
    ado::Recordset rows;
    rows.Open("tblError", qm::shared().Connection, ado::adOpenStatic, ado::adLockReadOnly);
    std::vector<LogRow> behind;
    for (std::size_t place = 0; !rows.Eof(); rows.MoveNext()) {
        if (place++ < known) continue;
        LogRow& row = behind.emplace_back();
        for (const char* field : LogFields) row.push_back(rows[field]);
    }
    rows.Close();
    return behind;
}

void WriteAgain(const std::vector<LogRow>& lost) {
    ado::Recordset rows;
    rows.Open("tblError", qm::shared().Connection, ado::adOpenDynamic, ado::adLockOptimistic);
    for (const LogRow& row : lost) {
        rows.AddNew();
        for (std::size_t i = 0; i < row.size(); ++i) rows.Fields(LogFields[i]).SetValue(row[i]);
        rows.Update();
    }
    rows.Close();
}

// A failure step of the class may have rolled the transaction back before it logged: what still stands in the
// log is not written twice.
void Undo(int depth, std::size_t known) {
    std::vector<LogRow> lost;
    qm::SkipOnError([&] { lost = LogRows(known); });
    while (qm::Conn().TransDepth() >= depth) qm::Conn().RollbackTrans();
    qm::SkipOnError([&] {
        for (const LogRow& row : LogRows(known))
            if (const auto stands = std::find(lost.begin(), lost.end(), row); stands != lost.end())
                lost.erase(stands);
        WriteAgain(lost);
    });
}

}  // namespace

bool AllOrNothing(const std::function<bool()>& work) {
    const std::size_t known = LogRows(0).size();
    const int depth = qm::Conn().BeginTrans();
    try {
        if (work()) {
            qm::Conn().CommitTrans();
            return true;
        }
    } catch (const basic::Error&) {
        Undo(depth, known);
        throw;
    }
    Undo(depth, known);
    return false;
}

}  // namespace host
