#include "core/LedgerRows.h"

#include "core/DBCode.h"
#include "core/Quoting.h"
#include "core/modGeneral.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"

namespace qm {
namespace {

bool HasRow(const std::string& sql) {
    ado::Recordset rows;
    rows.Open(sql, shared().Connection, ado::adOpenStatic, ado::adLockReadOnly, ado::adCmdText);
    return !rows.Eof();
}

// Numbers of groups and ledgers are kept in 16 bits. Kept 31.
std::string GroupIdOf(const std::string& name) {
    const ado::RecordsetPtr rows =
        ExecuteRecordset("select Group_Id from Group_Head_Master where Group_Head_Name='" + name + "'");
    return std::to_string(basic::ToInteger((*rows)["Group_Id"]));
}

std::string InsertStatement(const std::string& ledgerId, const std::string& parentId,
                            const LedgerEntry& entry) {
    return "insert into Ledger_Master(ledger_id,Name,Group_Id,primaryGrp,  "
           "Company_name,contact_person,Designation, Address1,Address2,City,  Tel1, Tel2, Pincode, Pager, "
           "Mobile, Email, Notes)  values(" +
           ledgerId + " ,'" + entry.Name + "', " + parentId + ",'" + shared().PrimaryGroupName + "'" +
           InsertedPartyValues(entry.Details) + ")";
}

std::string UpdateStatement(const std::string& ledgerId, const std::string& parentId,
                            const LedgerEntry& entry) {
    return "Update Ledger_Master Set Name= '" + entry.Name + "' ,Group_Id = " + parentId + ",primaryGrp = '" +
           entry.GroupName + "'" + UpdatedPartyFields(entry.Details) + " Where Ledger_id = " + ledgerId;
}

}  // namespace

std::optional<LedgerFault> MissingOf(const LedgerEntry& entry) {
    if (entry.Name.empty()) return LedgerFault{LedgerField::Name, "Please Enter Ledger Name"};
    if (entry.GroupName.empty())
        return LedgerFault{LedgerField::Group, "Please select a value for Group name"};
    if (entry.OpeningBal.empty()) return LedgerFault{LedgerField::OpeningBal, OpeningMissing};
    if (!entry.BalType) return LedgerFault{LedgerField::BalType, BalanceTypeMissing};
    return {};
}

bool LedgerNameTaken(const std::string& name) {
    return HasRow("Select * From Group_Head_Master Where Group_Head_Name = " + Quoted(name));
}

void InsertLedger(const LedgerEntry& entry) {
    const std::string parentId = GroupIdOf(entry.GroupName);
    Conn().Execute("insert into Group_Head_Master(Group_Head_Name,Parent_Id) values('" + entry.Name + "', " +
                   parentId + ")");
    GetPrimaryGroup(entry.Name);
    const std::string ledgerId = GroupIdOf(entry.Name);
    Conn().Execute(InsertStatement(ledgerId, parentId, entry));
    Conn().Execute(
        "insert into Ledger_Details(Ledger_Id,fnncl_Yr,Opening_Bal,Closing_Bal,Bal_Type) values('" +
        ledgerId + "', " + shared().FinYear + "," + entry.OpeningBal + "," + entry.OpeningBal + ",'" +
        LetterOf(entry.BalType.value()) + "')");
}

void UpdateLedgerRows(const std::string& ledgerId, const LedgerEntry& entry) {
    const std::string parentId = GroupIdOf(entry.GroupName);
    Conn().Execute("Update Group_Head_Master set Group_Head_Name ='" + entry.Name +
                   "', Parent_Id = " + parentId + " Where Group_id = " + ledgerId);
    GetPrimaryGroup(entry.Name);  // fails where the groups do; its result is not used here
    Conn().Execute(UpdateStatement(ledgerId, parentId, entry));
    ExecuteRecordset("select Ledger_Id from Ledger_Master where Name='" + entry.Name +
                     "' and Group_Id=" + parentId);
    WriteOpeningBalance(ledgerId, entry.OpeningBal, entry.BalType.value());
}

void WriteOpeningBalance(const std::string& ledgerId, const std::string& openingBal, LedgerSide side) {
    Conn().Execute("update Ledger_Details set Ledger_Id = " + ledgerId + ",fnncl_Yr = " + shared().FinYear +
                   ",Opening_Bal = " + openingBal + ",Closing_Bal= " + openingBal + ",Bal_Type=  '" +
                   LetterOf(side) + "' Where ledger_id = " + ledgerId);
}

bool LedgerHasVouchers(const std::string& ledgerId) {
    return HasRow("Select * From tb_Ledger" + shared().FinYear + " Where LedgerCode = " + ledgerId);
}

void DeleteLedgerRows(const std::string& ledgerId, const std::string& leafCondition) {
    ExecuteNoRecords("Delete From Ledger_Details Where Ledger_ID=" + ledgerId +
                     " And Fnncl_Yr = " + shared().FinYear);
    ExecuteNoRecords("Delete From Ledger_Master Where Ledger_ID=" + ledgerId);
    ExecuteNoRecords("Delete From Group_Head_Master Where " + leafCondition);
}

}  // namespace qm
