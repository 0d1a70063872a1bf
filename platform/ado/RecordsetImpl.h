#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/ado/Recordset.h"
#include "platform/ado/dialect/StoreSql.h"
#include "platform/ado/rows/Condition.h"
#include "platform/ado/rows/RowStore.h"
#include "platform/ado/store/Session.h"
#include "platform/basic/Error.h"

namespace ado {

// A comparison of the Filter with the field that it means.
struct FilterTerm {
    Comparison comparison;
    std::size_t field = 0;
};

// What a row takes: a quoted column and its value each.
struct Assignments {
    std::vector<std::string> columns;
    std::vector<basic::Value> values;
};
std::string InsertSql(const StoreSql& words, const std::string& table, const Assignments& assignments);

// The fields that were set and not yet stored: of the record on which the set stands, or of one that is
// added.
struct PendingEdit {
    enum class Kind { None, Edit, Add };
    Kind kind = Kind::None;
    std::vector<std::optional<basic::Value>> values;  // by field
};

// What a record set is made of. Reading stands in RecordsetReading.cpp, editing in RecordsetEditing.cpp.
//
// A plain table read (no condition, nothing but columns; Distinct does no harm, since rows that are alike
// pass a Filter alike) is postponed until the first look at its rows, or until something on the connection is
// about to change. A Filter that is set in between is read along as a condition, so that showing one day of a
// million rows reads that day only.
struct Recordset::Impl final : PostponedRead {
    ~Impl();

    // Reading.
    void OpenOn(const std::shared_ptr<Session>& openSession, std::string_view statement);
    // Stands on one row of the statement after the other, of which a part is kept at a time.
    void EachOf(const std::shared_ptr<Session>& openSession, std::string_view statement,
                const std::function<void()>& row);
    void Run();  // forgets the rows and runs the source again, from its first row
    void ReadNow() noexcept override;
    RowStore& Rows();  // reads them if that was postponed
    void Forget();     // drops the rows and the edit
    void RefuseClosed() const;
    const std::vector<Output>& Outputs() const { return plan->outputs; }

    // What Filter leaves, in order.
    std::int64_t Count();
    std::size_t RowAt(std::int64_t position);  // of the store
    void ApplyFilter();                        // after the condition or the rows changed; stands on the first
    std::size_t CurrentRow();                  // raises NoCurrentRecord at BOF and EOF
    std::size_t FieldAt(std::string_view name);  // raises ItemNotFound

    // Editing.
    void RefuseReadOnly() const;
    PendingEdit& EditRecord(std::size_t field);  // begins an edit of the current record if none is pending
    void AddRecord();
    void Store();  // writes the pending edit, if any; if that fails, it stays pending
    void StoreEdit();
    void StoreAdded();

    ConnectionPtr connection;  // as the caller gave it; not needed by one that Execute handed out
    std::weak_ptr<Session> session;
    std::string source;
    int cursorType = adOpenForwardOnly;
    int lockType = adLockReadOnly;
    int location = adUseServer;
    bool hostCondition = false;
    bool open = false;

    std::shared_ptr<const Plan> plan;
    std::shared_ptr<RowStore> rows;       // nothing while reading is postponed
    std::optional<basic::Error> failure;  // of a postponed read, for whoever looks first

    std::string filter;
    std::vector<FilterTerm> terms;
    bool filteredByStore = false;                         // the rows are only those that pass Filter
    std::shared_ptr<std::vector<std::uint32_t>> visible;  // the rows that pass Filter, where not all do

    std::int64_t position = 0;  // -1 at BOF, Count() at EOF
    PendingEdit edit;

  private:
    std::vector<std::pair<std::string, std::size_t>> namesMet_;  // as callers spelled them, with their field

    std::shared_ptr<Session> OpenSession() const;  // raises ObjectClosed
    BoundStatement Statement(Session& on) const;
    bool MayPostpone() const;    // the read may wait for a Filter
    bool MayBeNarrowed() const;  // the store may apply the Filter
    std::optional<BoundStatement> WithFilter(Session& on, const BoundStatement& base) const;
    void Read();
};

}  // namespace ado
