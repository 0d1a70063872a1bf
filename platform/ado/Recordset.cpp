#include "platform/ado/Recordset.h"

#include <algorithm>
#include <utility>

#include "platform/ado/Errors.h"
#include "platform/ado/RecordsetImpl.h"

namespace ado {
namespace {

constexpr const char* origin = "ado.Recordset";

void RefuseField(std::size_t index, std::size_t count) {
    if (index >= count) RefuseFieldNumber(static_cast<std::int64_t>(index));
}

}  // namespace

void RefuseFieldNumber(std::int64_t index) {
    throw basic::Error(error::ItemNotFound,
                       "The record set has no field number " + std::to_string(index) + ".", origin);
}

Recordset::Recordset() : impl_(std::make_unique<Impl>()) {}
Recordset::~Recordset() = default;

void Recordset::Open(std::string_view source, ConnectionPtr connection, int cursorType, int lockType,
                     int options) {
    Impl& set = *impl_;
    if (set.open)
        throw basic::Error(error::ObjectOpen, "Operation is not allowed when the object is open.", origin);
    if (connection) set.connection = std::move(connection);
    if (!set.connection) throw basic::Error(error::ObjectClosed, "The record set has no connection.", origin);
    if (cursorType != adUnspecified) set.cursorType = cursorType;
    if (lockType != adUnspecified) set.lockType = lockType;
    set.hostCondition = options != adUnspecified && (options & adHostCondition) != 0;
    if (set.location == adUseClient) set.cursorType = adOpenStatic;
    set.OpenOn(set.connection->Opened(), source.empty() ? std::string(set.source) : std::string(source));
}

void Recordset::Requery() {
    impl_->RefuseClosed();
    impl_->Run();
}

void Recordset::Close() {
    impl_->RefuseClosed();
    impl_->Forget();
    impl_->open = false;
}

int Recordset::State() const {
    return impl_->open && !impl_->session.expired() ? adStateOpen : adStateClosed;
}

int Recordset::CursorType() const {
    return impl_->cursorType;
}

int Recordset::LockType() const {
    return impl_->lockType;
}

int Recordset::CursorLocation() const {
    return impl_->location;
}

void Recordset::SetCursorLocation(int location) {
    impl_->location = location;
}

const std::string& Recordset::Source() const {
    return impl_->source;
}

void Recordset::SetSource(std::string_view source) {
    impl_->source = source;
}

void Recordset::SetActiveConnection(ConnectionPtr connection) {
    impl_->connection = std::move(connection);
}

bool Recordset::Eof() const {
    return impl_->position >= impl_->Count();
}

bool Recordset::Bof() const {
    return impl_->Count() == 0 || impl_->position < 0;
}

std::int64_t Recordset::RecordCount() const {
    return impl_->Count();
}

void Recordset::MoveFirst() {
    impl_->RefuseClosed();
    impl_->Store();
    // A forward-only set cannot go back: its statement runs again.
    if (impl_->cursorType == adOpenForwardOnly) impl_->Run();
    if (impl_->Count() == 0) RefuseNoRecord();
    impl_->position = 0;
}

void Recordset::MoveNext() {
    impl_->RefuseClosed();
    impl_->Store();
    if (Eof()) RefuseNoRecord();
    ++impl_->position;
}

void Recordset::MovePrevious() {
    impl_->RefuseClosed();
    impl_->Store();
    if (Bof()) RefuseNoRecord();
    --impl_->position;
}

void Recordset::MoveLast() {
    impl_->RefuseClosed();
    impl_->Store();
    if (impl_->Count() == 0) RefuseNoRecord();
    impl_->position = impl_->Count() - 1;
}

void Recordset::Move(std::int64_t rows) {
    impl_->RefuseClosed();
    impl_->Store();
    if (rows > 0 ? Eof() : Bof()) RefuseNoRecord();
    const std::int64_t count = impl_->Count();
    impl_->position += std::clamp(rows, -1 - impl_->position, count - impl_->position);
}

std::int64_t Recordset::AbsolutePosition() const {
    if (Bof()) return -2;
    return Eof() ? -3 : impl_->position + 1;
}

const std::string& Recordset::Filter() const {
    return impl_->filter;
}

void Recordset::SetFilter(std::string_view condition) {
    impl_->RefuseClosed();
    impl_->Store();
    std::vector<FilterTerm> terms;
    if (!condition.empty())
        for (Comparison& comparison : ReadCondition(condition)) {
            const std::size_t field = impl_->FieldAt(comparison.field);
            terms.push_back({std::move(comparison), field});
        }
    impl_->terms = std::move(terms);
    impl_->filter = condition;
    // Rows that the store left out for the filter before are read now; rows that all stand here are sifted in
    // place.
    if (impl_->filteredByStore) {
        impl_->Run();
    } else if (impl_->rows) {
        impl_->ApplyFilter();
    }
}

void Recordset::Find(std::string_view criteria, std::int64_t skip, int direction) {
    impl_->RefuseClosed();
    const std::vector<Comparison> comparisons = ReadCondition(criteria);
    if (comparisons.size() != 1 || direction != adSearchForward || skip < 0)
        throw basic::Error(error::BadArgument, "Find takes one comparison and goes forward.", origin);
    const std::size_t field = impl_->FieldAt(comparisons.front().field);
    impl_->Store();
    if (Eof()) RefuseNoRecord();
    const RowStore& rows = impl_->Rows();
    std::int64_t& at = impl_->position;
    at += skip;
    if (at < 0) at = 0;
    const std::int64_t count = impl_->Count();
    while (at < count && !comparisons.front().Meets(rows, impl_->RowAt(at), field)) ++at;
    if (at > count) at = count;
}

std::size_t Recordset::FieldCount() const {
    impl_->RefuseClosed();
    return impl_->Outputs().size();
}

Field Recordset::Fields(std::size_t index) {
    RefuseField(index, FieldCount());
    return {*this, index};
}

Field Recordset::Fields(std::string_view name) {
    return {*this, impl_->FieldAt(name)};
}

basic::Value Recordset::ValueAt(std::int64_t row, std::size_t field) const {
    if (row < 0 || row >= impl_->Count()) RefuseNoRecord();
    RefuseField(field, FieldCount());
    return impl_->Rows().ValueAt(impl_->RowAt(row), field);
}

KeptRows Recordset::Keep() const {
    impl_->Count();  // reads them if that was postponed
    return {impl_->rows, impl_->visible};
}

void Recordset::AddNew() {
    impl_->RefuseReadOnly();
    impl_->Store();
    impl_->AddRecord();
}

void Recordset::Update() {
    impl_->RefuseReadOnly();
    impl_->Store();
}

}  // namespace ado
