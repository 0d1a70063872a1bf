#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/ado/dialect/Catalog.h"
#include "platform/ado/rows/TextPool.h"
#include "platform/ado/store/Engine.h"
#include "platform/basic/Value.h"

namespace ado {

// One value of a stored row; a text by its number in the pool.
struct Cell {
    CellKind kind = CellKind::Null;
    union {
        std::int64_t integer = 0;
        double real;
        TextPool::Id text;
    };

    static Cell Of(std::int64_t integer);
    static Cell OfReal(double real);
    static Cell OfText(TextPool::Id text);
    double Number() const { return kind == CellKind::Integer ? static_cast<double>(integer) : real; }
};

// What a field of the type shows for a cell.
basic::Value CellValue(const Cell& cell, ColumnType type, const TextPool& pool);

// The values of one column, as narrow as its type allows: 1 byte for a boolean, 4 for a whole number or a
// text, 8 for a double. A value that does not fit (another program may have stored it) turns the column into
// one of whole cells.
class Column {
  public:
    explicit Column(ColumnType type);

    void Add(const EngineStatement& row, int index, TextPool& pool);
    void Add(const Cell& cell);
    void Set(std::size_t row, const Cell& cell);
    void RemoveLast();
    Cell At(std::size_t row) const;
    std::size_t Size() const;

    void EndFill();
    std::size_t Bytes() const;

  private:
    // Nothing but Null so far, so only a count. The first other value decides the form of a column without a
    // type.
    struct Nothing {};
    struct Nulls {
        using value_type = Nothing;
        std::size_t count;
        Nulls() : count(0) {}
        void push_back(Nothing) { ++count; }
        void pop_back() { --count; }
        Nothing operator[](std::size_t) const { return {}; }
        std::size_t size() const { return count; }
        std::size_t capacity() const { return 0; }
        void shrink_to_fit() {}
    };
    enum class Flag : std::uint8_t { False, True, Null };
    struct TextId {
        TextPool::Id id;
    };
    using Flags = std::vector<Flag>;
    using Wholes = std::vector<std::int32_t>;  // the least number stands for Null
    using Reals = std::vector<double>;         // what is no number stands for Null
    using Texts = std::vector<TextId>;         // TextPool::none stands for Null
    using Cells = std::vector<Cell>;
    struct Narrow;
    struct Widen;

    template <class Place>
    bool Put(const Cell& cell, Place place);
    Cell Read(const EngineStatement& row, int index, TextPool& pool);
    Cell ReadText(std::string_view text, TextPool& pool);
    void Loosen(const Cell& cell);

    std::variant<Nulls, Flags, Wholes, Reals, Texts, Cells> values_;
    TextPool::Id lastText_ = TextPool::none;
    std::uint32_t textsSeen_ = 0;
    std::uint32_t textsNew_ = 0;
};

}  // namespace ado
