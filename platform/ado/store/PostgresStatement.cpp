#include "platform/ado/store/PostgresStatement.h"

#include <bit>
#include <cstddef>
#include <utility>

#include "platform/ado/Errors.h"
#include "platform/ado/store/PostgresEngine.h"
#include "platform/ado/store/ServerValue.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

// Beside those that are bound.
constexpr Oid Int2 = 21, Int4 = 23;

std::uint64_t Bits(const char* bytes, int length) {
    std::uint64_t bits = 0;
    for (int at = 0; at < length; ++at) bits = bits << 8 | static_cast<unsigned char>(bytes[at]);
    return bits;
}

}  // namespace

PostgresStatement::PostgresStatement(PostgresEngine& engine, std::string sql)
    : engine_(engine), sql_(std::move(sql)), reads_(sql_.starts_with("SELECT")) {}

ServerValue& PostgresStatement::At(int index) {
    const auto place = static_cast<std::size_t>(index);
    if (values_.size() < place) values_.resize(place);
    return values_[place - 1];
}

void PostgresStatement::BindNull(int index) {
    At(index) = {};
}

void PostgresStatement::BindInteger(int index, std::int64_t value) {
    At(index) = WholeValue(value);
}

void PostgresStatement::BindReal(int index, double value) {
    At(index) = RealValue(value);
}

void PostgresStatement::BindBoolean(int index, bool value) {
    At(index) = TruthValue(value);
}

void PostgresStatement::BindText(int index, std::string_view text) {
    if (text.find('\0') != std::string_view::npos || !basic::IsUtf8(text))
        throw basic::Error(error::BadValue,
                           "A text holds a zero byte or is not UTF-8: books on a server keep neither.",
                           "ado.Engine");
    At(index) = TextValue(text);
}

bool PostgresStatement::Step() {
    if (state_ == State::Ready) {
        state_ = State::Reading;
        try {
            row_ = engine_.FirstRow(*this);
        } catch (...) {
            state_ = State::Kept;
            throw;
        }
        if (!row_) state_ = State::Kept;
        NoteKinds();
    } else if (state_ == State::Reading) {
        row_ = engine_.NextRow();
        if (!row_) state_ = State::Kept;
    } else {
        row_.reset();
        if (!rest_.empty()) {
            row_ = std::move(rest_.front());
            rest_.pop_front();
        } else if (failure_) {
            throw *std::exchange(failure_, std::nullopt);
        }
    }
    return row_ != nullptr;
}

void PostgresStatement::KeepRest() noexcept {
    state_ = State::Kept;
    try {
        while (Flight::Row row = engine_.NextRow()) rest_.push_back(std::move(row));
    } catch (const basic::Error& failure) {
        failure_ = failure;
    }
}

void PostgresStatement::Reset() {
    if (state_ == State::Reading) KeepRest();
    state_ = State::Ready;
    row_.reset();
    rest_.clear();
    failure_.reset();
}

int PostgresStatement::ColumnCount() const {
    return row_ ? pq_.PQnfields(row_.get()) : 0;
}

// All rows of an answer are of the same types.
void PostgresStatement::NoteKinds() {
    kinds_.clear();
    for (int column = 0; column < ColumnCount(); ++column) switch (pq_.PQftype(row_.get(), column)) {
            case ServerValue::Bool:
            case Int2:
            case Int4:
            case ServerValue::Int8:
                kinds_.push_back(CellKind::Integer);
                break;
            case ServerValue::Float8:
                kinds_.push_back(CellKind::Real);
                break;
            default:
                kinds_.push_back(CellKind::Text);
        }
}

CellKind PostgresStatement::Kind(int column) const {
    if (pq_.PQgetisnull(row_.get(), 0, column) != 0) return CellKind::Null;
    return kinds_[static_cast<std::size_t>(column)];
}

// Null has no bytes.
std::int64_t PostgresStatement::Integer(int column) const {
    const int length = pq_.PQgetlength(row_.get(), 0, column);
    const std::uint64_t bits = Bits(pq_.PQgetvalue(row_.get(), 0, column), length);
    if (length == 2) return static_cast<std::int16_t>(bits);
    return length == 4 ? static_cast<std::int32_t>(bits) : static_cast<std::int64_t>(bits);
}

double PostgresStatement::Real(int column) const {
    if (kinds_[static_cast<std::size_t>(column)] == CellKind::Integer)
        return static_cast<double>(Integer(column));
    if (pq_.PQgetisnull(row_.get(), 0, column) != 0) return 0;
    return std::bit_cast<double>(Bits(pq_.PQgetvalue(row_.get(), 0, column), 8));
}

std::string_view PostgresStatement::Text(int column) const {
    return {pq_.PQgetvalue(row_.get(), 0, column),
            static_cast<std::size_t>(pq_.PQgetlength(row_.get(), 0, column))};
}

}  // namespace ado
