#include "platform/ado/store/SqlFunctions.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include <sqlcipher/sqlite3.h>

#include "platform/ado/Errors.h"
#include "platform/ado/store/Conversion.h"
#include "platform/ado/store/Pattern.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/basic/Value.h"

namespace ado {
namespace {

using basic::Value;
constexpr std::size_t MostArguments = 3;
using Arguments = std::array<Value, MostArguments>;

struct Function {
    const char* name;
    int arity;
    Value (*run)(const Arguments&);
};

template <ColumnType type>
Value As(const Arguments& a) {
    return ConvertTo(type, a[0]);
}

bool AnyNull(const Arguments& a) {
    return a[0].IsNull() || a[1].IsNull();
}

Value Like(const Arguments& a) {
    if (const auto* pattern = a[1].As<std::string>()) CheckPattern(*pattern);
    if (AnyNull(a)) return {};
    return basic::LikeText(basic::ToText(a[0]), basic::ToText(a[1]));
}

Value LikeSets(const Arguments& a) {
    if (AnyNull(a)) return {};
    return Pattern(basic::ToText(a[1])).Matches(basic::ToText(a[0]));
}

// A number beside a boolean: True equals 1 and -1.
Value Truth(const Arguments& a) {
    return a[0] == Value(std::int32_t{-1}) || a[0] == Value(-1.0) ? Value(std::int32_t{1}) : a[0];
}

Value UpperCase(const Arguments& a) {
    if (a[0].IsNull()) return {};
    return basic::UCase(basic::ToText(a[0]));
}

Value LeftPart(const Arguments& a) {
    if (AnyNull(a)) return {};
    const std::int32_t count = basic::ToLong(a[1]);
    if (count < 0) basic::Raise(basic::error::InvalidCall, "ado.Left");
    return basic::Left(basic::ToText(a[0]), static_cast<std::size_t>(count));
}

std::size_t CountOf(const Value& count, const char* function) {
    const std::int32_t number = basic::ToLong(count);
    if (number < 0) basic::Raise(basic::error::InvalidCall, function);
    return static_cast<std::size_t>(number);
}

std::size_t PlaceOf(const Value& place, const char* function) {
    const std::size_t number = CountOf(place, function);
    if (number == 0) basic::Raise(basic::error::InvalidCall, function);
    return number;
}

Value RightPart(const Arguments& a) {
    if (AnyNull(a)) return {};
    return basic::Right(basic::ToText(a[0]), CountOf(a[1], "ado.Right"));
}

Value MidRest(const Arguments& a) {
    if (AnyNull(a)) return {};
    return basic::Mid(basic::ToText(a[0]), PlaceOf(a[1], "ado.Mid"));
}

Value MidPart(const Arguments& a) {
    if (AnyNull(a) || a[2].IsNull()) return {};
    return basic::Mid(basic::ToText(a[0]), PlaceOf(a[1], "ado.Mid"), CountOf(a[2], "ado.Mid"));
}

Value Length(const Arguments& a) {
    if (a[0].IsNull()) return {};
    return static_cast<std::int32_t>(basic::Len(basic::ToText(a[0])));
}

Value Trimmed(const Arguments& a) {
    if (a[0].IsNull()) return {};
    return basic::Trim(basic::ToText(a[0]));
}

// Where the third stands in the second, from the first on; 0 where it does not.
Value PlaceIn(const Arguments& a) {
    if (AnyNull(a) || a[2].IsNull()) return {};
    const std::size_t start = PlaceOf(a[0], "ado.InStr");
    const std::string text = basic::ToText(a[1]), sought = basic::FoldCase(basic::ToText(a[2]));
    if (start > basic::Len(text)) return 0;
    const std::string from = basic::FoldCase(basic::Mid(text, start));
    const std::size_t at = from.find(sought);
    return at == from.npos ? 0 : static_cast<std::int32_t>(start + basic::Len(from.substr(0, at)));
}

Value Joined(const Arguments& a) {
    if (a[0].IsNull() && a[1].IsNull()) return {};
    return (a[0].IsNull() ? "" : basic::ToText(a[0])) + (a[1].IsNull() ? "" : basic::ToText(a[1]));
}

// Of the two as whole numbers; it has the sign of the first.
Value Remainder(const Arguments& a) {
    if (AnyNull(a)) return {};
    const std::int64_t number = basic::ToLong(a[0]), by = basic::ToLong(a[1]);
    if (by == 0) basic::Raise(basic::error::DivisionByZero, "ado.Division");
    return static_cast<std::int32_t>(number % by);
}

Value Text(const Arguments& a) {
    return basic::ToText(a[0]);
}  // of Null: "Invalid use of Null"

// Always by doubles: whole numbers must not cut the quotient, and a zero is no silent Null.
Value Divide(const Arguments& a) {
    if (AnyNull(a)) return {};
    const double by = basic::ToDouble(a[1]);
    if (by == 0) basic::Raise(basic::error::DivisionByZero, "ado.Division");
    return basic::ToDouble(a[0]) / by;
}

constexpr Function functions[] = {
    {"qm_like", 2, Like},
    {"qm_truth", 1, Truth},
    {"qm_ucase", 1, UpperCase},
    {"qm_left", 2, LeftPart},
    {"qm_cstr", 1, Text},
    {"qm_div", 2, Divide},
    {"qm_like_sets", 2, LikeSets},
    {"qm_right", 2, RightPart},
    {"qm_mid", 2, MidRest},
    {"qm_mid", 3, MidPart},
    {"qm_len", 1, Length},
    {"qm_trim", 1, Trimmed},
    {"qm_instr", 3, PlaceIn},
    {"qm_join", 2, Joined},
    {"qm_mod", 2, Remainder},
    {"qm_bool", 1, As<ColumnType::Boolean>},
    {"qm_int", 1, As<ColumnType::Integer>},
    {"qm_long", 1, As<ColumnType::Long>},
    {"qm_real", 1, As<ColumnType::Double>},
    {"qm_text", 1, As<ColumnType::Text>},
};

Value Read(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER: {
            const std::int64_t whole = sqlite3_value_int64(value);
            const auto narrow = static_cast<std::int32_t>(whole);
            return narrow == whole ? Value(narrow) : Value(static_cast<double>(whole));
        }
        case SQLITE_FLOAT:
            return sqlite3_value_double(value);
        case SQLITE_TEXT: {
            const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
            return std::string(bytes, static_cast<std::size_t>(sqlite3_value_bytes(value)));
        }
        default:
            return {};
    }
}

struct ResultWriter {
    sqlite3_context* context;
    void operator()(basic::Null) const { sqlite3_result_null(context); }
    void operator()(bool b) const { sqlite3_result_int(context, b ? 1 : 0); }
    void operator()(std::int16_t i) const { sqlite3_result_int(context, i); }
    void operator()(std::int32_t i) const { sqlite3_result_int(context, i); }
    void operator()(double d) const { sqlite3_result_double(context, d); }
    void operator()(basic::Date d) const { sqlite3_result_double(context, d.Serial); }
    void operator()(const std::string& text) const {
        sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
};

// What a registered function carries along: itself, and where its error goes.
struct Registered {
    const Function* function;
    std::optional<basic::Error>* raised;
};

Registered& Of(sqlite3_context* context) {
    return *static_cast<Registered*>(sqlite3_user_data(context));
}

void Fail(sqlite3_context* context, const basic::Error& error) {
    Of(context).raised->emplace(error);
    sqlite3_result_error(context, error.what(), -1);
}

void Call(sqlite3_context* context, int count, sqlite3_value** values) {
    try {
        Arguments arguments;
        for (int i = 0; i < count; ++i) arguments[static_cast<std::size_t>(i)] = Read(values[i]);
        Of(context).function->run(arguments).Visit(ResultWriter{context});
    } catch (const basic::Error& error) {
        Fail(context, error);
    }
}

// Searches look at the narrations of a whole year: two texts are compared where they stand, without copies.
void CallLike(sqlite3_context* context, int count, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) != SQLITE_TEXT || sqlite3_value_type(values[1]) != SQLITE_TEXT) {
        Call(context, count, values);
        return;
    }
    const auto view = [](sqlite3_value* value) {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
        return std::string_view(bytes, static_cast<std::size_t>(sqlite3_value_bytes(value)));
    };
    try {
        const std::string_view pattern = view(values[1]);
        CheckPattern(pattern);
        sqlite3_result_int(context, basic::LikeText(view(values[0]), pattern) ? 1 : 0);
    } catch (const basic::Error& error) {
        Fail(context, error);
    }
}

// qm_single(value, rowid): the rowid only ties it to its select. Its state while the rows go by: nothing yet,
// or the one value.
Value*& Single(sqlite3_context* context, bool make) {
    static Value* none = nullptr;
    void* place = sqlite3_aggregate_context(context, make ? sizeof(Value*) : 0);
    return place == nullptr ? none : *static_cast<Value**>(place);
}

void SingleStep(sqlite3_context* context, int, sqlite3_value** values) {
    Value*& held = Single(context, true);
    if (held == nullptr) {
        held = new Value(Read(values[0]));
    } else {
        Fail(context, {error::Statement, "A subselect gave more than one row where one value is needed.",
                       "ado.Statement"});
    }
}

void SingleEnd(sqlite3_context* context) {
    std::unique_ptr<Value> held(Single(context, false));
    if (held) held->Visit(ResultWriter{context});
}

int Collate(void*, int lengthA, const void* a, int lengthB, const void* b) {
    const auto view = [](const void* bytes, int length) {
        return std::string_view(static_cast<const char*>(bytes), static_cast<std::size_t>(length));
    };
    return basic::CompareText(view(a, lengthA), view(b, lengthB));
}

void Forget(void* registered) {
    delete static_cast<Registered*>(registered);
}

}  // namespace

void InstallFunctions(sqlite3* store, std::optional<basic::Error>& raised) {
    constexpr int form = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    for (const Function& f : functions)
        sqlite3_create_function_v2(store, f.name, f.arity, form, new Registered{&f, &raised},
                                   f.run == Like ? CallLike : Call, nullptr, nullptr, Forget);
    sqlite3_create_function_v2(store, "qm_single", 2, form, new Registered{nullptr, &raised}, nullptr,
                               SingleStep, SingleEnd, Forget);
    sqlite3_create_collation(store, "QMTEXT", SQLITE_UTF8, nullptr, Collate);
}

}  // namespace ado
