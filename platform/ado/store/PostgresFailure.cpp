#include "platform/ado/store/PostgresFailure.h"

#include <charconv>
#include <string>

#include "platform/ado/Errors.h"
#include "platform/ado/store/Failure.h"

namespace ado {
namespace {

// What the server put in quotes: 'relation "tb_Ledger2099" does not exist'.
std::string Quoted(std::string_view message) {
    const std::size_t from = message.find('"');
    const std::size_t to = message.rfind('"');
    return from == to ? std::string(message) : std::string(message.substr(from + 1, to - from - 1));
}

basic::Error OfEngine(const Failure& failure) {
    return {failure.number, failure.text, "ado.Engine"};
}

// A state of our own functions: the classic number, or 0 and 1 for what has none.
basic::Error Raised(std::string_view state, std::string_view message, std::string_view source) {
    std::int32_t number = 0;
    std::from_chars(state.data() + 2, state.data() + state.size(), number);
    if (number == 0) number = error::BadValue;
    if (number == 1) number = error::Statement;
    return {number, std::string(message), std::string(source)};
}

basic::Error Damaged(const std::string& message) {
    return OfEngine({error::Damaged, "The server's books are damaged (" + message +
                                         "). Nothing was changed; please restore a backup."});
}

struct Rule {
    std::string_view state;  // whole, or the class that it begins with
    basic::Error (*error)(const std::string& message);
};

// The first that suits.
constexpr Rule rules[] = {
    {"55P03", [](const std::string&) { return OfEngine(Locked()); }},
    {"40P01", [](const std::string&) { return OfEngine(Locked()); }},
    {"40001", [](const std::string&) { return OfEngine(Locked()); }},
    {"22012",
     [](const std::string&) {
         return basic::Error{basic::error::DivisionByZero, "Division by zero", "ado.Division"};
     }},
    {"22003",
     [](const std::string&) {
         return basic::Error{basic::error::Overflow, "Overflow", "basic"};
     }},
    {"21000",
     [](const std::string&) {
         return basic::Error{error::Statement,
                             "A subselect gave more than one row where one value is needed.",
                             "ado.Statement"};
     }},
    {"22", [](const std::string& message) { return OfEngine(ValueRefused(message)); }},
    {"23", [](const std::string& message) { return OfEngine(ValueRefused(message)); }},
    {"42P01", [](const std::string& message) { return OfEngine(TableMissing(Quoted(message))); }},
    {"25006",
     [](const std::string&) {
         return OfEngine(
             {error::ReadOnly, "The server of the books takes no changes: it is a copy that only reads."});
     }},
    {"42501",
     [](const std::string& message) {
         return OfEngine({error::ReadOnly, "The server lets this user not do that (" + message + ")."});
     }},
    {"57014", [](const std::string&) { return OfEngine(WasCancelled()); }},
    {"53100", [](const std::string&) { return OfEngine(OutOfRoom()); }},
    {"28",
     [](const std::string& message) {
         return OfEngine(
             {error::WrongPassword, "The server refuses this user or password (" + message + ")."});
     }},
    {"55006",
     [](const std::string& message) {
         return OfEngine({error::Locked, "Programs have the books open (" + message +
                                             "): close them first. Nothing was changed."});
     }},
    {"3D000",
     [](const std::string& message) {
         return OfEngine({error::FileNotFound, "The server holds no such books (" + message + ")."});
     }},
    {"XX001", Damaged},
    {"XX002", Damaged},
};

bool IsConnectionGone(std::string_view state) {
    return state.empty() || state.starts_with("08") || state.starts_with("57P0");
}

}  // namespace

basic::Error PostgresFailure(std::string_view state, std::string_view message, std::string_view detail) {
    if (IsConnectionGone(state))
        return OfEngine(
            {error::ConnectionLost,
             "The connection to the server was lost. What was not committed is undone; please try again."});
    if (state.starts_with("QM")) return Raised(state, message, detail);
    for (const Rule& rule : rules)
        if (state.starts_with(rule.state)) return rule.error(std::string(message));
    return OfEngine({error::Unspecified, "The server refused the statement: " + std::string(message) + "."});
}

}  // namespace ado
