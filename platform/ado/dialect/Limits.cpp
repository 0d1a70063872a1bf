#include "platform/ado/dialect/Limits.h"

#include <algorithm>
#include <cstddef>

#include "platform/ado/dialect/Refusal.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

constexpr int MostParentheses = 60;         // as written; redundant ones vanish in the translation
constexpr int MostNesting = 14;             // the parser's stack holds 100 entries, a level takes up to 6
constexpr std::size_t MostLiterals = 999;   // the store's parameters
constexpr std::size_t MostOperators = 900;  // the store's expressions are at most 1000 deep

bool IsOperator(const Token& token) {
    constexpr std::string_view words[] = {"And", "Or", "Not", "Mod"};
    if (token.kind == TokenKind::Symbol) return token.text.find_first_of("+-*/&") == 0;
    return token.kind == TokenKind::Name && std::any_of(std::begin(words), std::end(words), [&](auto word) {
               return basic::EqualText(word, token.text);
           });
}

}  // namespace

void CheckSize(const std::vector<Token>& tokens) {
    int depth = 0;
    std::size_t literals = 0, operators = 0;
    for (const Token& token : tokens) {
        if (token.kind == TokenKind::Symbol) depth += token.text == "(" ? 1 : token.text == ")" ? -1 : 0;
        literals +=
            token.kind == TokenKind::Number || token.kind == TokenKind::Text || token.kind == TokenKind::Date;
        operators += IsOperator(token);
        if (depth > MostParentheses) Refuse(error::Statement, "The statement is nested too deeply");
    }
    if (literals > MostLiterals) Refuse(error::Statement, "The statement holds more than 999 values");
    if (operators > MostOperators) Refuse(error::Statement, "The statement holds too many conditions");
}

void CheckNesting(int depth) {
    if (depth > MostNesting) Refuse(error::Statement, "The statement is nested too deeply");
}

}  // namespace ado
