#include "core/RecordsetObject.h"

#include <string>
#include <utility>
#include <vector>

#include "core/FieldsObject.h"
#include "platform/ado/Errors.h"
#include "platform/basic/Error.h"
#include "platform/com/Bstr.h"
#include "platform/com/Object.h"
#include "platform/com/SafeArray.h"
#include "platform/com/Variant.h"

namespace qm {
namespace {

constexpr std::int32_t Rest = -1;  // of a number of rows: all that are left
constexpr std::int32_t ClipText = 2;
constexpr std::int32_t SupportsFind = 0x80000;
constexpr std::int32_t PositionUnknown = -1;

[[noreturn]] void Refuse(std::int32_t number, const char* text) {
    throw basic::Error(number, text, "ado.Recordset");
}

bool IsGiven(const VARIANT& argument) {
    return com::Target(argument).vt != VT_EMPTY && !com::IsMissing(com::Target(argument));
}

std::int32_t LongOr(const VARIANT& argument, std::int32_t otherwise) {
    return IsGiven(argument) ? basic::ToLong(com::ValueOf(argument)) : otherwise;
}

std::string TextOr(const VARIANT& argument, const char* otherwise) {
    return IsGiven(argument) ? basic::ToText(com::ValueOf(argument)) : otherwise;
}

[[noreturn]] void RefuseBookmark() {
    Refuse(ado::error::NotUpdatable, "The record set goes forward only: it has no bookmarks.");
}

[[noreturn]] void RefuseGoingBack() {
    Refuse(ado::error::CannotGoBack, "The record set goes forward only: it cannot go back.");
}

// Where to start: from the current record (0), all else are bookmarks.
void RefuseStart(const VARIANT& start) {
    if (LongOr(start, 0) != 0) RefuseBookmark();
}

// Members throw; the late binding is their guard. The parameters have the order and the types of clQm.idl.
class RecordsetObject final : public com::Object<IDispatch, RecordsetObject> {
  public:
    explicit RecordsetObject(ado::RecordsetPtr rows) : Object(Face()), rows_(std::move(rows)) {}

    void get_Fields(IDispatch** fields) { *fields = NewFieldsObject(rows_); }
    void get_EOF(VARIANT_BOOL* result) { *result = com::BoolOf(rows_->Eof()); }
    void get_BOF(VARIANT_BOOL* result) { *result = com::BoolOf(rows_->Bof()); }
    void get_RecordCount(std::int32_t* count) { *count = static_cast<std::int32_t>(rows_->RecordCount()); }
    void get_State(std::int32_t* state) { *state = rows_->State(); }
    void MoveFirst() { rows_->MoveFirst(); }
    void MoveNext() { rows_->MoveNext(); }
    void MovePrevious() { rows_->MovePrevious(); }
    void Close() { rows_->Close(); }

    void Move(std::int32_t count, VARIANT* start) {
        RefuseStart(*start);
        if (count < 0) RefuseGoingBack();
        rows_->Move(count);
    }
    void Find(BSTR criteria, VARIANT* skip, VARIANT* direction, VARIANT* start) {
        RefuseStart(*start);
        if (LongOr(*direction, ado::adSearchForward) < 0 || LongOr(*skip, 0) < 0) RefuseGoingBack();
        rows_->Find(com::TextOf(criteria), LongOr(*skip, 0), LongOr(*direction, ado::adSearchForward));
    }
    void get_Filter(VARIANT* condition) {
        com::Store(rows_->Filter().empty() ? basic::Value(0) : basic::Value(rows_->Filter()), *condition);
    }
    void put_Filter(VARIANT* condition) {
        const basic::Value given = com::ValueOf(*condition);
        if (const auto* text = given.As<std::string>()) return rows_->SetFilter(*text);
        if (basic::ToLong(given) != 0)
            Refuse(ado::error::BadArgument, "Filter takes a condition as a text, or 0 for none.");
        rows_->SetFilter({});
    }
    void Requery(VARIANT*) { rows_->Requery(); }
    void GetRows(VARIANT* rows, VARIANT* start, VARIANT* fields, VARIANT* result);
    void GetString(VARIANT* format, VARIANT* rows, VARIANT* columnEnd, VARIANT* rowEnd, VARIANT* null,
                   BSTR* text);

    void get_Source(BSTR* source) { *source = com::MakeBstr(rows_->Source()); }
    void get_CursorType(std::int32_t* type) { *type = rows_->CursorType(); }
    void get_LockType(std::int32_t* type) { *type = rows_->LockType(); }
    void get_CursorLocation(std::int32_t* location) { *location = rows_->CursorLocation(); }
    void put_Source(VARIANT*) { RefuseSetting(); }
    void put_CursorType(VARIANT*) { RefuseSetting(); }
    void put_LockType(VARIANT*) { RefuseSetting(); }
    void put_CursorLocation(VARIANT*) { RefuseSetting(); }
    void Supports(std::int32_t options, VARIANT_BOOL* result) {
        rows_->FieldCount();  // raises where it is closed
        *result = com::BoolOf((options & ~SupportsFind) == 0);
    }
    void get_AbsolutePosition(std::int32_t* position) {
        rows_->FieldCount();
        *position = PositionUnknown;
    }
    void put_AbsolutePosition(VARIANT*) { RefuseBookmark(); }
    void get_Bookmark(VARIANT*) { RefuseBookmark(); }
    void put_Bookmark(VARIANT*) { RefuseBookmark(); }
    void MoveLast() { RefuseGoingBack(); }
    void AddNew(VARIANT*, VARIANT*) { RefuseUpdate(); }
    void Update(VARIANT*, VARIANT*) { RefuseUpdate(); }
    void Delete(VARIANT*) { RefuseUpdate(); }
    void get_EditMode(std::int32_t* mode) { *mode = 0; }

  private:
    static const com::Interface& Face() {
        static const com::Interface face{
#include "RecordsetFace.h"
        };
        return face;
    }

    // As it was opened, so it stays.
    [[noreturn]] void RefuseSetting() {
        if (rows_->State() == ado::adStateOpen)
            Refuse(ado::error::ObjectOpen, "Operation is not allowed when the object is open.");
        Refuse(ado::error::NotUpdatable, "The record set of a list stays as it was opened.");
    }

    std::vector<std::size_t> Columns(const VARIANT& asked);
    template <class Take>
    void TakeRows(const VARIANT& count, const Take& take);

    ado::RecordsetPtr rows_;
};

// The fields that were asked for by one name or number, or an array of these; all where none were.
std::vector<std::size_t> RecordsetObject::Columns(const VARIANT& asked) {
    std::vector<std::size_t> columns;
    const VARIANT& target = com::Target(asked);
    if ((target.vt & VT_ARRAY) != 0)
        for (const VARIANT& each : com::ListOf(target)) columns.push_back(FieldPlace(*rows_, each));
    else if (IsGiven(asked))
        columns.push_back(FieldPlace(*rows_, asked));
    else
        for (std::size_t field = 0; field < rows_->FieldCount(); ++field) columns.push_back(field);
    return columns;
}

// From the current record on, the set standing behind the last one that was taken.
template <class Take>
void RecordsetObject::TakeRows(const VARIANT& count, const Take& take) {
    std::int32_t left = LongOr(count, Rest);
    if (left < Rest) Refuse(ado::error::BadArgument, "The number of rows is -1 (all) or not below 0.");
    if (rows_->Eof()) ado::RefuseNoRecord();
    for (; left != 0 && !rows_->Eof(); left -= left > 0 ? 1 : 0, rows_->MoveNext()) take();
}

void RecordsetObject::GetRows(VARIANT* rows, VARIANT* start, VARIANT* fields, VARIANT* result) {
    RefuseStart(*start);
    const std::vector<std::size_t> columns = Columns(*fields);
    std::vector<basic::Value> values;
    TakeRows(*rows, [&] {
        for (const std::size_t column : columns) values.push_back(rows_->Fields(column).Value());
    });
    com::StoreTable(values, columns.size(), *result);
}

void RecordsetObject::GetString(VARIANT* format, VARIANT* rows, VARIANT* columnEnd, VARIANT* rowEnd,
                                VARIANT* null, BSTR* text) {
    if (LongOr(*format, ClipText) != ClipText)
        Refuse(ado::error::BadArgument, "GetString knows one format: 2, delimited text.");
    const std::string between = TextOr(*columnEnd, "\t"), behind = TextOr(*rowEnd, "\r"),
                      none = TextOr(*null, "");
    std::string all;
    TakeRows(*rows, [&] {
        for (std::size_t field = 0; field < rows_->FieldCount(); ++field) {
            const basic::Value value = rows_->Fields(field).Value();
            all.append(field == 0 ? "" : between).append(value.IsNull() ? none : basic::ToText(value));
        }
        all += behind;
    });
    *text = com::MakeBstr(all);
}

}  // namespace

IDispatch* NewRecordsetObject(ado::RecordsetPtr rows) {
    return new RecordsetObject(std::move(rows));
}

}  // namespace qm
