#include "platform/ado/rows/Column.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace ado {
namespace {

constexpr std::int32_t noWhole = std::numeric_limits<std::int32_t>::min();
constexpr double noReal = std::numeric_limits<double>::quiet_NaN();

// After so many texts a column that hardly ever repeats one stops looking for equal ones.
constexpr std::uint32_t trial = 16384;

template <class T>
bool Fits(std::int64_t whole) {
    return whole >= std::numeric_limits<T>::min() && whole <= std::numeric_limits<T>::max();
}

}  // namespace

Cell Cell::Of(std::int64_t integer) {
    Cell cell;
    cell.kind = CellKind::Integer;
    cell.integer = integer;
    return cell;
}

Cell Cell::OfReal(double real) {
    Cell cell;
    cell.kind = CellKind::Real;
    cell.real = real;
    return cell;
}

Cell Cell::OfText(TextPool::Id text) {
    Cell cell;
    cell.kind = CellKind::Text;
    cell.text = text;
    return cell;
}

basic::Value CellValue(const Cell& cell, ColumnType type, const TextPool& pool) {
    if (cell.kind == CellKind::Null) return {};
    if (cell.kind == CellKind::Text) return pool.At(cell.text);
    if (cell.kind == CellKind::Real) return cell.real;
    const std::int64_t whole = cell.integer;
    if (type == ColumnType::Boolean && (whole == 0 || whole == 1)) return whole == 1;
    if (type == ColumnType::Integer && Fits<std::int16_t>(whole)) return static_cast<std::int16_t>(whole);
    if (type == ColumnType::Double || !Fits<std::int32_t>(whole)) return static_cast<double>(whole);
    return static_cast<std::int32_t>(whole);
}

// The narrow form of a cell, or nothing where it does not fit the column.
struct Column::Narrow {
    const Cell& cell;
    bool IsNull() const { return cell.kind == CellKind::Null; }

    std::optional<Nothing> operator()(Nothing) const {
        return IsNull() ? std::optional<Nothing>(Nothing()) : std::nullopt;
    }
    std::optional<Flag> operator()(Flag) const {
        if (IsNull()) return Flag::Null;
        if (cell.kind != CellKind::Integer || cell.integer < 0 || cell.integer > 1) return {};
        return cell.integer == 1 ? Flag::True : Flag::False;
    }
    std::optional<std::int32_t> operator()(std::int32_t) const {
        if (IsNull()) return noWhole;
        if (cell.kind != CellKind::Integer || !Fits<std::int32_t>(cell.integer) || cell.integer == noWhole)
            return {};
        return static_cast<std::int32_t>(cell.integer);
    }
    std::optional<double> operator()(double) const {
        if (IsNull()) return noReal;
        if (cell.kind == CellKind::Text) return {};
        return cell.Number();
    }
    std::optional<TextId> operator()(TextId) const {
        if (IsNull()) return TextId{TextPool::none};
        if (cell.kind != CellKind::Text) return {};
        return TextId{cell.text};
    }
    std::optional<Cell> operator()(const Cell&) const { return cell; }
};

// The whole cell of a narrow value.
struct Column::Widen {
    Cell operator()(Nothing) const { return {}; }
    Cell operator()(Flag flag) const {
        return flag == Flag::Null ? Cell() : Cell::Of(flag == Flag::True ? 1 : 0);
    }
    Cell operator()(std::int32_t whole) const { return whole == noWhole ? Cell() : Cell::Of(whole); }
    Cell operator()(double real) const { return std::isnan(real) ? Cell() : Cell::OfReal(real); }
    Cell operator()(TextId text) const { return text.id == TextPool::none ? Cell() : Cell::OfText(text.id); }
    Cell operator()(const Cell& cell) const { return cell; }
};

Column::Column(ColumnType type) {
    if (type == ColumnType::Boolean) values_ = Flags();
    if (type == ColumnType::Integer || type == ColumnType::Long) values_ = Wholes();
    if (type == ColumnType::Double) values_ = Reals();
    if (type == ColumnType::Text) values_ = Texts();
}

void Column::Add(const EngineStatement& row, int index, TextPool& pool) {
    Add(Read(row, index, pool));
}

// Hands the narrow form of the cell to `place`, with the values it belongs to; False if the cell does not fit
// them.
template <class Place>
bool Column::Put(const Cell& cell, Place place) {
    return std::visit(
        [&](auto& values) {
            using Held = typename std::decay_t<decltype(values)>::value_type;
            const auto narrow = Narrow{cell}(Held());
            if (narrow) place(values, *narrow);
            return narrow.has_value();
        },
        values_);
}

void Column::Add(const Cell& cell) {
    const auto append = [](auto& values, const auto& value) { values.push_back(value); };
    if (Put(cell, append)) return;
    Loosen(cell);
    Add(cell);
}

void Column::Set(std::size_t row, const Cell& cell) {
    const auto assign = [row](auto& values, const auto& value) { values[row] = value; };
    if (Put(cell, assign)) return;
    Loosen(cell);
    Set(row, cell);
}

void Column::RemoveLast() {
    std::visit([](auto& values) { values.pop_back(); }, values_);
}

Cell Column::At(std::size_t row) const {
    return std::visit([row](const auto& values) { return Widen()(values[row]); }, values_);
}

std::size_t Column::Size() const {
    return std::visit([](const auto& values) { return values.size(); }, values_);
}

void Column::EndFill() {
    std::visit([](auto& values) { Trim(values); }, values_);
}

std::size_t Column::Bytes() const {
    return std::visit([](const auto& values) { return values.capacity() * sizeof(values[0]); }, values_);
}

Cell Column::Read(const EngineStatement& row, int index, TextPool& pool) {
    switch (row.Kind(index)) {
        case CellKind::Integer:
            return Cell::Of(row.Integer(index));
        case CellKind::Real:
            return Cell::OfReal(row.Real(index));
        case CellKind::Text:
            return ReadText(row.Text(index), pool);
        case CellKind::Null:
            break;
    }
    return {};
}

Cell Column::ReadText(std::string_view text, TextPool& pool) {
    if (lastText_ == TextPool::none || pool.At(lastText_) != text) {
        const std::size_t before = pool.Count();
        const bool repeats = textsSeen_ < trial || textsNew_ < textsSeen_ / 8 * 7;
        lastText_ = repeats ? pool.Intern(text) : pool.Append(text);
        if (repeats) textsNew_ += pool.Count() > before ? 1 : 0;
    }
    if (textsSeen_ < trial) ++textsSeen_;
    return Cell::OfText(lastText_);
}

// Takes a form that the cell fits: its own after nothing but Null, else that of whole cells.
void Column::Loosen(const Cell& cell) {
    const std::size_t count = Size();
    const bool first = std::holds_alternative<Nulls>(values_);
    if (first && cell.kind == CellKind::Integer && Narrow{cell}(std::int32_t())) {
        values_ = Wholes(count, noWhole);
    } else if (first && cell.kind == CellKind::Text) {
        values_ = Texts(count, TextId{TextPool::none});
    } else {
        Cells cells;
        cells.reserve(count + 1);
        for (std::size_t row = 0; row < count; ++row) cells.push_back(At(row));
        values_ = std::move(cells);
    }
}

}  // namespace ado
