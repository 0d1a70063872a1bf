#include <fstream>

#include <gtest/gtest.h>

#include "platform/ado/rows/RowStore.h"
#include "tests/platform/ado/TestStore.h"

namespace ado {
namespace {

using basic::Value;

// Rows that a function makes up, as a statement gives them.
class MadeUp final : public EngineStatement {
  public:
    using Make = std::function<Value(std::size_t row, int column)>;
    MadeUp(std::size_t rows, int columns, Make make)
        : rows_(rows), columns_(columns), make_(std::move(make)) {}
    void BindNull(int) override {}
    void BindInteger(int, std::int64_t) override {}
    void BindReal(int, double) override {}
    void BindBoolean(int, bool) override {}
    void BindText(int, std::string_view) override {}
    bool Step() override { return at_++ < rows_; }
    void Reset() override { at_ = 0; }
    int ColumnCount() const override { return columns_; }
    CellKind Kind(int column) const override {
        value_ = make_(at_ - 1, column);
        if (value_.IsNull()) return CellKind::Null;
        if (value_.Is<std::string>()) return CellKind::Text;
        return value_.Is<double>() ? CellKind::Real : CellKind::Integer;
    }
    std::int64_t Integer(int) const override { return basic::ToLong(value_); }
    double Real(int) const override { return basic::ToDouble(value_); }
    std::string_view Text(int) const override { return *value_.As<std::string>(); }

  private:
    std::size_t rows_, at_ = 0;
    int columns_;
    Make make_;
    mutable Value value_;
};

RowStore Filled(std::vector<ColumnType> types, std::size_t rows, const MadeUp::Make& make,
                bool distinct = false) {
    Plan plan;
    plan.distinct = distinct;
    for (const ColumnType type : types) plan.outputs.push_back({"f", "t", "f", type});
    MadeUp statement(rows, static_cast<int>(types.size()), make);
    RowStore store(plan);
    store.Fill(statement);
    return store;
}

// The sanitizers keep memory of their own, and take their time.
#ifdef __SANITIZE_ADDRESS__
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif

std::size_t ResidentBytes() {
    std::size_t pages = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

TEST(RowStoreTest, HoldsAMillionVoucherRowsInUnder120BytesEach) {
    using enum ColumnType;
    constexpr std::size_t rows = sanitized ? 100000 : 1000000;
    const std::size_t before = ResidentBytes();
    // Number, ledger, name, date, narration, type, debit, credit, balance, flag, and one that stays Null.
    const auto make = [](std::size_t row, int column) -> Value {
        const auto n = static_cast<std::int32_t>(row);
        switch (column) {
            case 2:
                return "Ledger number " + std::to_string(n % 500);
            case 4:
                return "Being goods, " + std::to_string(n);
            case 5:
                return n % 2 == 0 ? "Receipt" : "Payment";
            case 6:
            case 7:
                return n / 3.0;
            case 8:
                return std::to_string(n) + ".25Dr";
            case 9:
                return std::int32_t{1};
            case 10:
                return {};
            default:
                return n;
        }
    };
    const RowStore store =
        Filled({Long, Long, Text, Long, Text, Text, Double, Double, Text, Boolean, Text}, rows, make);
    EXPECT_EQ(store.Rows(), rows);
    EXPECT_LT(store.Bytes() / rows, 120);
    if (!sanitized) {
        EXPECT_LT(ResidentBytes() - before, 150 * rows);
    }
    for (const std::size_t row : {std::size_t{0}, std::size_t{70001}, rows - 1}) {
        EXPECT_EQ(store.ValueAt(row, 4), make(row, 4));
        EXPECT_EQ(store.ValueAt(row, 8), make(row, 8));
        EXPECT_EQ(store.ValueAt(row, 7), make(row, 7));
        EXPECT_EQ(store.ValueAt(row, 9), Value(true));
        EXPECT_TRUE(store.ValueAt(row, 10).IsNull());
    }
}

TEST(RowStoreTest, KeepsEachValueWhateverComesAfterIt) {
    const Value column[] = {{}, 1, {}, 2.5, "text", std::numeric_limits<std::int32_t>::min(), "text", {}};
    for (const ColumnType type :
         {ColumnType::Any, ColumnType::Long, ColumnType::Double, ColumnType::Text, ColumnType::Boolean}) {
        for (std::size_t from = 0; from < std::size(column); ++from) {
            const RowStore store = Filled({type}, std::size(column) - from,
                                          [&](std::size_t row, int) { return column[from + row]; });
            for (std::size_t row = 0; row < store.Rows(); ++row) {
                const Value& in = column[from + row];
                const Value out = store.ValueAt(row, 0);
                EXPECT_EQ(out.IsNull(), in.IsNull());
                if (!in.IsNull() && !out.Is<bool>()) {
                    EXPECT_EQ(basic::ToText(out), basic::ToText(in)) << "type " << static_cast<int>(type);
                }
            }
        }
    }
}

TEST(RowStoreTest, DistinctKeepsTheFirstOfRowsThatDifferInCaseOnly) {
    const Value rows[][2] = {{"A", 1}, {"a", 1}, {"A", 2}, {"b", {}}, {"B", {}},
                             {{}, {}}, {"ä", 1}, {"Ä", 1}, {{}, {}}};
    const RowStore store = Filled(
        {ColumnType::Text, ColumnType::Long}, std::size(rows),
        [&](std::size_t row, int c) { return rows[row][c]; }, true);
    std::string all;
    for (std::size_t row = 0; row < store.Rows(); ++row)
        all += basic::TextOrEmpty(store.ValueAt(row, 0)) + basic::TextOrEmpty(store.ValueAt(row, 1)) + " ";
    EXPECT_EQ(all, "A1 A2 b  ä1 ");
}

TEST(RowStoreTest, DistinctHoldsForMoreRowsThanItFirstMakesRoomFor) {
    const RowStore store = Filled(
        {ColumnType::Long, ColumnType::Text}, 40000,
        [](std::size_t row, int c) -> Value {
            const auto n = static_cast<std::int32_t>(row % 30000);
            return c == 0 ? Value(n) : Value((row < 30000 ? "n" : "N") + std::to_string(n));
        },
        true);
    EXPECT_EQ(store.Rows(), 30000u);
}

}  // namespace
}  // namespace ado
