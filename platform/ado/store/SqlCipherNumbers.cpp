#include "platform/ado/store/SqlCipherNumbers.h"

#include <string>

#include <sqlcipher/sqlite3.h>

#include "platform/ado/dialect/Scope.h"

namespace ado::sqlcipher {
namespace {

void Line(sqlite3_context* context, int, sqlite3_value** values) {
    const KeyedNumbers* const numbers = *static_cast<const KeyedNumbers**>(sqlite3_user_data(context));
    if (numbers == nullptr || sqlite3_value_type(values[0]) == SQLITE_NULL) return;
    const auto found = numbers->lines.find(sqlite3_value_int64(values[0]));
    if (found == numbers->lines.end()) return;
    sqlite3_result_double(context, found->second[static_cast<std::size_t>(sqlite3_value_int(values[1]))]);
}

}  // namespace

void InstallNumbers(SqlHandle& store, const KeyedNumbers*& numbers) {
    sqlite3_create_function_v2(store.Get(), "qm_line", 2, SQLITE_UTF8, &numbers, Line, nullptr, nullptr,
                               nullptr);
}

void SetNumbers(SqlHandle& store, const KeyedNumbers*& current, const KeyedNumbers& numbers) {
    const std::string key = QuotedName(numbers.key);
    std::string sets;
    for (std::size_t i = 0; i < numbers.columns.size(); ++i) {
        const std::string line = "qm_line(" + key + ", " + std::to_string(i) + ")";
        sets += (i > 0 ? ", " : "") + QuotedName(numbers.columns[i]) + " = " +
                (numbers.others ? "ifnull(" + line + ", ?2)" : line);
    }
    const auto update = store.Prepare("UPDATE " + QuotedName(numbers.table) + " SET " + sets + " WHERE " +
                                      QuotedName(numbers.where) + " = ?1" +
                                      (numbers.others ? "" : " AND qm_line(" + key + ", 0) IS NOT NULL"));
    update->BindInteger(1, numbers.is);
    if (numbers.others) update->BindReal(2, *numbers.others);
    current = &numbers;
    try {
        update->Step();
    } catch (...) {
        current = nullptr;
        throw;
    }
    current = nullptr;
}

}  // namespace ado::sqlcipher
