#include "core/RecordsetObject.h"

#include "platform/com/Bstr.h"
#include "platform/com/Object.h"
#include "platform/com/Variant.h"

namespace qm {
namespace {

using com::Bind;

constexpr std::uint16_t Method = DISPATCH_METHOD;
constexpr std::uint16_t Get = DISPATCH_PROPERTYGET;

// Members throw; the late binding is their guard. The faces know no interface of their own beside IDispatch.

class FieldObject final : public com::Object<IDispatch, FieldObject> {
  public:
    FieldObject(ado::RecordsetPtr rows, ado::Field field)
        : Object(IID_IDispatch, Table()), rows_(std::move(rows)), field_(field) {}

    void Name(BSTR* name) { *name = com::MakeBstr(field_.Name()); }
    void Value(VARIANT* value) { com::Store(field_.Value(), *value); }

  private:
    static const std::vector<com::Member>& Table() {
        static const std::vector<com::Member> table{
            {"Value", DISPID_VALUE, Get, {}, VT_VARIANT, Bind<&FieldObject::Value>},
            {"Name", 1, Get, {}, VT_BSTR, Bind<&FieldObject::Name>},
        };
        return table;
    }

    ado::RecordsetPtr rows_;  // the field is valid as long as its record set
    ado::Field field_;
};

class FieldsObject final : public com::Object<IDispatch, FieldsObject> {
  public:
    explicit FieldsObject(ado::RecordsetPtr rows) : Object(IID_IDispatch, Table()), rows_(std::move(rows)) {}

    void Count(std::int32_t* count) { *count = static_cast<std::int32_t>(rows_->FieldCount()); }
    void Item(VARIANT* index, IDispatch** field) {
        *field = new FieldObject(rows_, At(com::ValueOf(*index)));
    }

  private:
    static const std::vector<com::Member>& Table() {
        static const std::vector<com::Member> table{
            {"Item", DISPID_VALUE, Get, {{"Index", VT_VARIANT}}, VT_DISPATCH, Bind<&FieldsObject::Item>},
            {"Count", 1, Get, {}, VT_I4, Bind<&FieldsObject::Count>},
        };
        return table;
    }

    // A negative number is beyond the last field, too.
    ado::Field At(const basic::Value& index) {
        if (const auto* name = index.As<std::string>()) return rows_->Fields(*name);
        return rows_->Fields(static_cast<std::size_t>(basic::ToLong(index)));
    }

    ado::RecordsetPtr rows_;
};

class RecordsetObject final : public com::Object<IDispatch, RecordsetObject> {
  public:
    explicit RecordsetObject(ado::RecordsetPtr rows)
        : Object(IID_IDispatch, Table()), rows_(std::move(rows)) {}

    void Fields(IDispatch** fields) { *fields = new FieldsObject(rows_); }
    void Eof(VARIANT_BOOL* result) { *result = com::BoolOf(rows_->Eof()); }
    void Bof(VARIANT_BOOL* result) { *result = com::BoolOf(rows_->Bof()); }
    void RecordCount(std::int32_t* count) { *count = static_cast<std::int32_t>(rows_->RecordCount()); }
    void State(std::int32_t* state) { *state = rows_->State(); }
    void MoveFirst() { rows_->MoveFirst(); }
    void MoveNext() { rows_->MoveNext(); }
    void MovePrevious() { rows_->MovePrevious(); }
    void Close() { rows_->Close(); }

  private:
    static const std::vector<com::Member>& Table() {
        static const std::vector<com::Member> table{
            {"Fields", DISPID_VALUE, Get, {}, VT_DISPATCH, Bind<&RecordsetObject::Fields>},
            {"EOF", 1, Get, {}, VT_BOOL, Bind<&RecordsetObject::Eof>},
            {"BOF", 2, Get, {}, VT_BOOL, Bind<&RecordsetObject::Bof>},
            {"RecordCount", 3, Get, {}, VT_I4, Bind<&RecordsetObject::RecordCount>},
            {"State", 4, Get, {}, VT_I4, Bind<&RecordsetObject::State>},
            {"MoveFirst", 5, Method, {}, VT_EMPTY, Bind<&RecordsetObject::MoveFirst>},
            {"MoveNext", 6, Method, {}, VT_EMPTY, Bind<&RecordsetObject::MoveNext>},
            {"MovePrevious", 7, Method, {}, VT_EMPTY, Bind<&RecordsetObject::MovePrevious>},
            {"Close", 8, Method, {}, VT_EMPTY, Bind<&RecordsetObject::Close>},
        };
        return table;
    }

    ado::RecordsetPtr rows_;
};

}  // namespace

IDispatch* NewRecordsetObject(ado::RecordsetPtr rows) {
    return new RecordsetObject(std::move(rows));
}

}  // namespace qm
