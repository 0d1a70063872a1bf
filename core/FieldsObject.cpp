#include "core/FieldsObject.h"

#include <algorithm>
#include <utility>

#include "platform/ado/Errors.h"
#include "platform/basic/Error.h"
#include "platform/com/Bstr.h"
#include "platform/com/ErrorInfo.h"
#include "platform/com/Lifetime.h"
#include "platform/com/Object.h"
#include "platform/com/Variant.h"

namespace qm {
namespace {

// Members throw; the late binding is their guard.

class FieldObject final : public com::Object<IDispatch, FieldObject> {
  public:
    FieldObject(ado::RecordsetPtr rows, ado::Field field)
        : Object(Face()), rows_(std::move(rows)), field_(field) {}

    void get_Name(BSTR* name) { *name = com::MakeBstr(field_.Name()); }
    void get_Value(VARIANT* value) { com::Store(field_.Value(), *value); }
    void put_Value(VARIANT*) { RefuseUpdate(); }
    void get_Type(std::int32_t* type) { *type = field_.Type(); }
    void get_DefinedSize(std::int32_t* size) { *size = field_.DefinedSize(); }
    void get_ActualSize(std::int32_t* size) { *size = field_.ActualSize(); }

  private:
    static const com::Interface& Face() {
        static const com::Interface face{
#include "FieldFace.h"
        };
        return face;
    }

    ado::RecordsetPtr rows_;  // the field is valid as long as its record set
    ado::Field field_;
};

// For Each over the fields.
class FieldsInTurn final : public IEnumVARIANT {
  public:
    FieldsInTurn(ado::RecordsetPtr rows, std::size_t next) : rows_(std::move(rows)), next_(next) {}

    HRESULT QueryInterface(const IID& iid, void** object) override {
        return com::Offer<IEnumVARIANT>(this, iid, IID_IEnumVARIANT, object);
    }
    std::uint32_t AddRef() override { return references_.Add(); }
    std::uint32_t Release() override { return references_.Drop(this); }

    HRESULT Next(std::uint32_t count, VARIANT* values, std::uint32_t* fetched) override {
        return com::Guarded([&] {
            com::Required(values);
            std::uint32_t given = 0;
            for (; given < count && next_ < rows_->FieldCount(); ++given) {
                VARIANT& value = values[given];
                VariantInit(&value);
                value.pdispVal = new FieldObject(rows_, rows_->Fields(next_++));
                value.vt = VT_DISPATCH;
            }
            if (fetched != nullptr) *fetched = given;
            return given == count ? S_OK : S_FALSE;
        });
    }
    HRESULT Skip(std::uint32_t count) override {
        return com::Guarded([&] {
            const std::size_t left = rows_->FieldCount() - next_;
            next_ += std::min<std::size_t>(count, left);
            return count <= left ? S_OK : S_FALSE;
        });
    }
    HRESULT Reset() override {
        next_ = 0;
        return S_OK;
    }
    HRESULT Clone(IEnumVARIANT** copy) override {
        return com::Guarded([&] { com::Required(copy) = new FieldsInTurn(rows_, next_); });
    }

  private:
    ado::RecordsetPtr rows_;
    std::size_t next_;
    com::References references_;
    com::InUse inUse_;
};

class FieldsObject final : public com::Object<IDispatch, FieldsObject> {
  public:
    explicit FieldsObject(ado::RecordsetPtr rows) : Object(Face()), rows_(std::move(rows)) {}

    void get_Count(std::int32_t* count) { *count = static_cast<std::int32_t>(rows_->FieldCount()); }
    void get_Item(VARIANT* index, IDispatch** field) {
        *field = new FieldObject(rows_, rows_->Fields(FieldPlace(*rows_, *index)));
    }
    void get__NewEnum(IUnknown** fields) { *fields = new FieldsInTurn(rows_, 0); }

  private:
    static const com::Interface& Face() {
        static const com::Interface face{
#include "FieldsFace.h"
        };
        return face;
    }

    ado::RecordsetPtr rows_;
};

}  // namespace

IDispatch* NewFieldsObject(ado::RecordsetPtr rows) {
    return new FieldsObject(std::move(rows));
}

std::size_t FieldPlace(ado::Recordset& rows, const VARIANT& index) {
    const basic::Value asked = com::ValueOf(index);
    if (const auto* name = asked.As<std::string>()) return rows.Fields(*name).Index();
    const std::int32_t number = basic::ToLong(asked);
    if (number < 0) ado::RefuseFieldNumber(number);
    return rows.Fields(static_cast<std::size_t>(number)).Index();
}

void RefuseUpdate() {
    throw basic::Error(ado::error::NotUpdatable,
                       "The record set cannot be edited: it was opened for reading only.", "ado.Recordset");
}

}  // namespace qm
