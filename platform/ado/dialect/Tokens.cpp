#include "platform/ado/dialect/Tokens.h"

#include <algorithm>
#include <array>

#include "platform/ado/dialect/Limits.h"
#include "platform/ado/dialect/Refusal.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

constexpr std::array<std::string_view, 30> Keywords{
    "select", "distinct", "into",   "from", "where",  "group",   "order", "by",     "asc",   "desc",
    "insert", "values",   "update", "set",  "delete", "and",     "or",    "not",    "in",    "is",
    "null",   "like",     "as",     "true", "false",  "between", "join",  "having", "union", "exists"};

// Words of wider dialects, told by name where they stand in the way.
constexpr std::array<std::string_view, 21> Unsupported{
    "all",   "any",    "between", "cross", "distinctrow", "escape", "exists",
    "full",  "having", "inner",   "join",  "left",        "limit",  "outer",
    "pivot", "right",  "some",    "top",   "transform",   "union",  "with"};

template <class Words>
bool Holds(const Words& words, std::string_view text) {
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view word) { return basic::EqualText(word, text); });
}

std::string Shown(const Token& token) {
    switch (token.kind) {
        case TokenKind::End:
            return "the end";
        case TokenKind::Number:
            return "a number";
        case TokenKind::Text:
            return "a text";
        case TokenKind::Date:
            return "a date";
        case TokenKind::Bracketed:
            return "[" + token.text + "]";
        default:
            return "'" + token.text + "'";
    }
}

std::string SymbolAt(std::string_view key, std::size_t at) {
    const std::string_view two = key.substr(at, 2);
    if (two == "<=" || two == ">=" || two == "<>") return std::string(two);
    if (std::string_view("(),.*+-/&=<>").find(key[at]) != std::string_view::npos)
        return std::string(1, key[at]);
    Refuse(error::Statement,
           "Syntax error: the character '" + std::string(1, key[at]) + "' is not supported");
}

}  // namespace

bool IsKeyword(std::string_view word) {
    return Holds(Keywords, word);
}

std::vector<Token> TokensOf(std::string_view key) {
    std::vector<Token> tokens;
    std::size_t literals = 0;
    for (std::size_t at = 0; at < key.size();) {
        const char c = key[at];
        if (c == ' ') {
            ++at;
        } else if (c == NumberMark || c == TextMark || c == DateMark) {
            const TokenKind kind = c == NumberMark ? TokenKind::Number
                                   : c == TextMark ? TokenKind::Text
                                                   : TokenKind::Date;
            tokens.push_back({kind, {}, literals++});
            ++at;
        } else if (c == '[') {
            const std::size_t end = key.find(']', at);
            tokens.push_back({TokenKind::Bracketed, std::string(key.substr(at + 1, end - at - 1)), 0});
            at = end + 1;
        } else if (IsNameByte(c)) {
            std::size_t end = at;
            while (end < key.size() && IsNameByte(key[end])) ++end;
            tokens.push_back({TokenKind::Name, std::string(key.substr(at, end - at)), 0});
            at = end;
        } else {
            tokens.push_back({TokenKind::Symbol, SymbolAt(key, at), 0});
            at += tokens.back().text.size();
        }
    }
    tokens.push_back({});
    return tokens;
}

TokenReader::TokenReader(std::string_view key, bool hostCondition)
    : tokens_(TokensOf(key)), hostCondition_(hostCondition) {
    CheckSize(tokens_);
    for (const Token& token : tokens_)
        if (token.kind == TokenKind::Symbol && token.text == "&" && !hostCondition)
            ado::Refuse(error::Statement, "Syntax error: the character '&' is not supported");
}

const Token& TokenReader::Peek(std::size_t ahead) const {
    return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

Token TokenReader::Take() {
    const Token& token = Peek();
    if (at_ + 1 < tokens_.size()) ++at_;
    return token;
}

bool TokenReader::AtWord(std::string_view word, std::size_t ahead) const {
    return Peek(ahead).kind == TokenKind::Name && basic::EqualText(Peek(ahead).text, word);
}

bool TokenReader::AtSymbol(std::string_view symbol, std::size_t ahead) const {
    return Peek(ahead).kind == TokenKind::Symbol && Peek(ahead).text == symbol;
}

bool TokenReader::TakeWord(std::string_view word) {
    if (!AtWord(word)) return false;
    Take();
    return true;
}

bool TokenReader::TakeSymbol(std::string_view symbol) {
    if (!AtSymbol(symbol)) return false;
    Take();
    return true;
}

void TokenReader::ExpectWord(std::string_view word) {
    if (!TakeWord(word)) Refuse("'" + std::string(word) + "' is expected");
}

void TokenReader::ExpectSymbol(std::string_view symbol) {
    if (!TakeSymbol(symbol)) Refuse("'" + std::string(symbol) + "' is expected");
}

std::string TokenReader::ExpectName(std::string_view what) {
    const Token& token = Peek();
    const bool isName =
        token.kind == TokenKind::Bracketed || (token.kind == TokenKind::Name && !IsKeyword(token.text));
    if (!isName) Refuse("the name of " + std::string(what) + " is expected");
    return Take().text;
}

void TokenReader::ExpectEnd() const {
    if (Peek().kind != TokenKind::End) Refuse("the statement should end");
}

void TokenReader::RefuseBareAlias() const {
    const Token& token = Peek();
    if (token.kind == TokenKind::Bracketed || (token.kind == TokenKind::Name && !IsKeyword(token.text)))
        Refuse("'As' is expected before an alias");
}

// All the words that stand in the way together: "Not Between", "Left Outer Join".
std::string TokenReader::UnsupportedWords() const {
    std::string words;
    std::size_t ahead = AtWord("Not") ? 1 : 0;
    for (; Peek(ahead).kind == TokenKind::Name && Holds(Unsupported, Peek(ahead).text); ++ahead)
        words += (words.empty() ? "" : " ") + Peek(ahead).text;
    return words.empty() || !AtWord("Not") ? words : Peek().text + " " + words;
}

void TokenReader::RefuseUnsupported() const {
    if (const std::string words = UnsupportedWords(); !words.empty())
        ado::Refuse(error::Statement, "Syntax error: '" + words + "' is not supported in statements");
}

void TokenReader::Refuse(const std::string& text) const {
    RefuseUnsupported();
    ado::Refuse(error::Statement, "Syntax error: " + text + " where " + Shown(Peek()) + " stands");
}

}  // namespace ado
