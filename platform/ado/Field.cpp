#include "platform/ado/RecordsetImpl.h"
#include "platform/ado/store/Conversion.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

// Of a field without a type: as its value here is, a text where that is Null.
struct TypeOfValue {
    int operator()(basic::Null) const { return adVarWChar; }
    int operator()(bool) const { return adBoolean; }
    int operator()(std::int16_t) const { return adSmallInt; }
    int operator()(std::int32_t) const { return adInteger; }
    int operator()(double) const { return adDouble; }
    int operator()(basic::Date) const { return adDate; }
    int operator()(const std::string&) const { return adVarWChar; }
};

// The most that a text of the type could have: texts have no limit of their own.
constexpr int MostOfText = 536870910;

int SizeOf(int type) {
    switch (type) {
        case adSmallInt:
        case adBoolean:
            return 2;
        case adInteger:
            return 4;
        case adDouble:
        case adDate:
            return 8;
        default:
            return MostOfText;
    }
}

int TypeNumber(ColumnType type) {
    switch (type) {
        case ColumnType::Boolean:
            return adBoolean;
        case ColumnType::Integer:
            return adSmallInt;
        case ColumnType::Long:
            return adInteger;
        case ColumnType::Double:
            return adDouble;
        case ColumnType::Text:
        case ColumnType::Any:
            break;
    }
    return adVarWChar;
}

}  // namespace

std::string Field::Name() const {
    return owner_->Internals().Outputs().at(index_).name;
}

int Field::Type() const {
    Recordset::Impl& set = owner_->Internals();
    const ColumnType type = set.Outputs().at(index_).type;
    if (type != ColumnType::Any) return TypeNumber(type);
    return owner_->Eof() || owner_->Bof() ? adVarWChar : Value().Visit(TypeOfValue());
}

int Field::DefinedSize() const {
    return SizeOf(Type());
}

int Field::ActualSize() const {
    const basic::Value value = Value();
    if (value.IsNull()) return 0;
    const auto* text = value.As<std::string>();
    return text == nullptr ? SizeOf(value.Visit(TypeOfValue()))
                           : static_cast<int>(basic::ToUtf16(*text).size() * sizeof(char16_t));
}

basic::Value Field::Value() const {
    Recordset::Impl& set = owner_->Internals();
    if (set.edit.kind != PendingEdit::Kind::None && set.edit.values[index_]) return *set.edit.values[index_];
    if (set.edit.kind == PendingEdit::Kind::Add) return {};
    const std::size_t row = set.CurrentRow();
    return set.Rows().ValueAt(row, index_);
}

void Field::SetValue(const basic::Value& value) {
    Recordset::Impl& set = owner_->Internals();
    set.RefuseClosed();
    basic::Value converted = ConvertTo(set.Outputs().at(index_).type, value);
    set.EditRecord(index_).values[index_] = std::move(converted);
}

}  // namespace ado
