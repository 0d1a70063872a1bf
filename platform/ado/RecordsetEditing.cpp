#include <utility>

#include "platform/ado/Errors.h"
#include "platform/ado/RecordsetImpl.h"
#include "platform/ado/dialect/Scope.h"
#include "platform/ado/store/Conversion.h"

namespace ado {
namespace {

constexpr const char* origin = "ado.Recordset";

Assignments AssignmentsOf(const PendingEdit& edit, const std::vector<Output>& outputs) {
    Assignments assignments;
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        if (!edit.values[i]) continue;
        assignments.columns.push_back(QuotedName(outputs[i].column));
        assignments.values.push_back(*edit.values[i]);
    }
    return assignments;
}

// Of the row whose identity is the given parameter; a value stored before may have bound it as a double.
std::string WhereRow(const StoreSql& words, std::size_t parameter) {
    return " WHERE rowid = CAST(" + words.Parameter(parameter) + " AS BIGINT)";
}

std::string UpdateSql(const StoreSql& words, const std::string& table, const Assignments& assignments) {
    std::string list;
    std::size_t parameter = 0;
    for (const std::string& column : assignments.columns)
        list += (list.empty() ? "" : ", ") + column + " = " + words.Parameter(++parameter);
    return "UPDATE " + QuotedName(table) + " SET " + list + WhereRow(words, ++parameter);
}

std::string ReadBackSql(const StoreSql& words, const std::string& table, const std::vector<Output>& outputs) {
    std::string columns;
    for (const Output& output : outputs)
        columns +=
            (columns.empty() ? "" : ", ") + (output.column.empty() ? "NULL" : QuotedName(output.column));
    return "SELECT " + columns + " FROM " + QuotedName(table) + WhereRow(words, 1);
}

[[noreturn]] void RefuseEditing(const std::string& why) {
    throw basic::Error(error::NotUpdatable, "The record set cannot be edited: " + why + ".", origin);
}

}  // namespace

std::string InsertSql(const StoreSql& words, const std::string& table, const Assignments& assignments) {
    std::string columns, marks;
    std::size_t parameter = 0;
    for (const std::string& column : assignments.columns) {
        const char* comma = columns.empty() ? "" : ", ";
        columns += comma + column;
        marks += comma + words.Parameter(++parameter);
    }
    const std::string values =
        columns.empty() ? " DEFAULT VALUES" : " (" + columns + ") VALUES (" + marks + ")";
    return "INSERT INTO " + QuotedName(table) + values;
}

void Recordset::Impl::RefuseReadOnly() const {
    RefuseClosed();
    if (lockType == adLockReadOnly) RefuseEditing("it was opened for reading only");
    if (!plan->rowid) RefuseEditing("its rows are not those of one table");
}

PendingEdit& Recordset::Impl::EditRecord(std::size_t field) {
    RefuseReadOnly();
    if (Outputs()[field].column.empty())
        RefuseEditing("'" + Outputs()[field].name + "' is no field of its table");
    if (edit.kind == PendingEdit::Kind::None) {
        CurrentRow();
        edit.kind = PendingEdit::Kind::Edit;
        edit.values.resize(Outputs().size());
    }
    return edit;
}

void Recordset::Impl::AddRecord() {
    edit.kind = PendingEdit::Kind::Add;
    edit.values.assign(Outputs().size(), std::nullopt);
}

void Recordset::Impl::Store() {
    if (edit.kind == PendingEdit::Kind::Edit) StoreEdit();
    if (edit.kind == PendingEdit::Kind::Add) StoreAdded();
    edit = {};
}

void Recordset::Impl::StoreEdit() {
    const std::size_t row = CurrentRow();
    Assignments assignments = AssignmentsOf(edit, Outputs());
    const std::shared_ptr<Session> on = OpenSession();
    const std::string sql = UpdateSql(on->engine().Sql(), plan->table, assignments);
    assignments.values.emplace_back(static_cast<double>(rows->RowId(row)));
    const basic::Error deleted(error::NoCurrentRecord,
                               "The record has been deleted; the change cannot be stored.", origin);
    on->ExecuteMatching(on->Own(sql, std::move(assignments.values)), &deleted);
    for (std::size_t i = 0; i < edit.values.size(); ++i)
        if (edit.values[i]) rows->Set(row, i, *edit.values[i]);
}

// The new record goes to the end of the set, whether it passes Filter or not, and becomes the current one.
void Recordset::Impl::StoreAdded() {
    RowStore& all = Rows();
    const std::shared_ptr<Session> on = OpenSession();
    Assignments assignments = AssignmentsOf(edit, Outputs());
    const StoreSql& words = on->engine().Sql();
    const std::string insert = InsertSql(words, plan->table, assignments) + words.Returning();
    on->Execute(on->Own(insert, std::move(assignments.values)));

    const std::int64_t rowid = on->engine().LastRow();
    const PreparedStatement::Copy added = on->Start(
        on->Own(ReadBackSql(words, plan->table, Outputs()), {basic::Value(static_cast<double>(rowid))}));
    added->Step();
    all.Append(*added, rowid);
    if (visible) visible->push_back(static_cast<std::uint32_t>(all.Rows() - 1));
    position = Count() - 1;
}

}  // namespace ado
