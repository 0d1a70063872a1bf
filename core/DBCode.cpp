#include "core/DBCode.h"

#include "core/Boxes.h"
#include "core/CountedExecution.h"
#include "core/ErrorModule.h"
#include "core/Masks.h"
#include "core/Quoting.h"
#include "core/modGeneral.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

// How a value of the record helpers stands in a statement. Numbers and booleans go in as they stand, blanks
// included.
std::string SqlValue(const std::string& value, const std::string& type) {
    if (basic::Trim(value).empty()) return "NULL";
    if (type == "B" || type == "N") return value;
    return QuotedDoubled(basic::Trim(value));
}

void TellCount(const std::string& verb, std::int64_t count) {
    Tell(verb + " " + std::to_string(count) + " record(s)");
}

constexpr int MostLevels = 5000;

struct Group {
    std::int16_t parent = 0;
    std::int16_t id = 0;
    std::string name;
};

Group FindGroup(const std::string& name) {
    ado::Recordset rows;
    rows.Open("Select * From Group_Head_Master Where Group_Head_Name = " + Quoted(name), shared().Connection,
              ado::adOpenForwardOnly, ado::adLockReadOnly);
    if (rows.Eof()) return {};
    return {basic::ToInteger(rows["Parent_Id"]), basic::ToInteger(rows["Group_Id"]),
            basic::ToText(rows["Group_Head_Name"])};
}

std::string GroupName(std::int16_t id) {
    ado::Recordset rows;
    rows.Open("Select * from Group_Head_Master where Group_Id = " + std::to_string(id), shared().Connection);
    return basic::ToText(rows["Group_Head_Name"]);
}

}  // namespace

void OpenConnection(const std::string& fileName) {
    if (shared().Connection && shared().Connection->State() == ado::adStateOpen) return;
    shared().Connection = std::make_shared<ado::Connection>();
    ado::Connection& connection = Conn();
    connection.Provider = "Microsoft.Jet.OLEDB.4.0";
    connection.Properties("Data Source") = shared().DataPath + fileName;
    connection.Properties("Jet OlEDB:Database Password") = BooksPassword;
    connection.Open("", "", "", -1);
    if (const std::string notice = connection.Notice(); !notice.empty()) Tell(notice);
}

void LoadCurrentYear() {
    ado::Recordset years;
    years.Open("Select fnncl_Yr from Fnncl_Yr_Mstr where Crrnt_Yr_Flg = True", shared().Connection,
               ado::adOpenKeyset, ado::adLockOptimistic);
    std::string year;
    if (years.Eof()) {
        Conn().Execute("Insert Into Fnncl_Yr_Mstr (Fnncl_yr, Crrnt_Yr_Flg) Values ('2001-2002', True)");
        year = "2001-2002";
        Conn().Execute("Select * Into tb_Ledger2001  From tblSysLedgerStr");
    } else {
        year = basic::ToText(years["Fnncl_Yr"]);
    }
    shared().FinYear = basic::Left(year, 4);
    years.Close();
}

std::string BuildDataFilePath(const std::string& fileName) {
    const std::string& folder = shared().DataPath;
    return folder + (folder.ends_with("/") ? "" : "/") + fileName;
}

std::vector<basic::Value> FetchFirstColumn(const std::string& sql) {
    std::vector<basic::Value> values;
    const ado::RecordsetPtr rows = Conn().Execute(sql);
    for (; !rows->Eof(); rows->MoveNext()) values.push_back(rows->Fields(0).Value());
    rows->Close();
    return values;
}

ado::RecordsetPtr ExecuteRecordset(const std::string& sql) {
    return Conn().Execute(sql, nullptr, 1);
}

void ExecuteNoRecords(const std::string& sql) {
    Conn().Execute(sql, nullptr, -1);
}

void InsertRecord(const std::string& table, const std::vector<std::string>& fields,
                  const std::vector<std::string>& values, const std::vector<std::string>& types) {
    std::string names, given;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const char* const separator = i + 1 < fields.size() ? ", " : "";
        names += "[" + fields[i] + "]" + separator;
        given += SqlValue(values[i], types[i]) + separator;
    }
    TellCount("Added", Affected("INSERT INTO " + table + " (" + names + ") VALUES (" + given + ")"));
}

void UpdateRecords(const std::string& table, const std::vector<std::string>& fields,
                   const std::vector<std::string>& values, const std::vector<std::string>& types,
                   const std::string& where) {
    std::string sql = "Update " + table + " set ";
    for (std::size_t i = 0; i < fields.size(); ++i)
        sql += "[" + fields[i] + "]= " + SqlValue(values[i], types[i]) + (i + 1 < fields.size() ? ", " : "");
    TellCount("Updated", Affected(sql + " where " + where));
}

void GetPrimaryGroup(const std::string& groupName) {
    Group group = FindGroup(groupName);
    for (int level = 0; group.parent != 0; ++level) {
        if (level == MostLevels)
            throw basic::Error(28, "Out of stack space", "DBCode");  // groups that hold each other
        group = FindGroup(GroupName(group.parent));
    }
    shared().PrimaryGroupName = group.name;
    shared().PrimaryGroupId = group.id;
}

basic::Value DateNumber(const basic::Value& value) {
    static const basic::Date dayZero = basic::MakeDate(1900, 1, 1);
    try {
        if (basic::IsDate(value))
            return basic::DaysBetween(dayZero, basic::ReadDate(basic::Format(value, ShortDateMask)));
        if (basic::IsNumeric(value)) return basic::AddDays(dayZero, basic::ToLong(value));
        return std::int32_t{0};
    } catch (const basic::Error& error) {
        LogError("DBCode", error);
        return {};
    }
}

}  // namespace qm
