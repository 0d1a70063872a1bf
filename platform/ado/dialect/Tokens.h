#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ado {

// How literals stand in the key of a shape.
inline constexpr char NumberMark = '\x01';
inline constexpr char TextMark = '\x02';
inline constexpr char DateMark = '\x03';

inline bool IsNameByte(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

enum class TokenKind { Name, Bracketed, Number, Text, Date, Symbol, End };

struct Token {
    TokenKind kind = TokenKind::End;
    std::string text;  // the name without its brackets, or the symbol: ( ) , . * + - / & = < > <= >= <>
    std::size_t literal = 0;  // of a Number, Text or Date: its place among the shape's literals
};

// The tokens of a shape's key, an End last. Raises error::Statement for a character that no statement holds.
std::vector<Token> TokensOf(std::string_view key);

// Walks the tokens of one statement.
class TokenReader {
  public:
    // Raises error::Statement for what is too long or too deep, and for &, unless the statement ends in a
    // host's own condition.
    explicit TokenReader(std::string_view key, bool hostCondition = false);
    bool OfHostCondition() const { return hostCondition_; }  // it may hold what only such a one may

    const Token& Peek(std::size_t ahead = 0) const;
    Token Take();
    // A bare keyword, without regard to case.
    bool AtWord(std::string_view word, std::size_t ahead = 0) const;
    bool AtSymbol(std::string_view symbol, std::size_t ahead = 0) const;
    bool TakeWord(std::string_view word);  // steps over it if it stands there
    bool TakeSymbol(std::string_view symbol);
    void ExpectWord(std::string_view word);  // raises error::Statement
    void ExpectSymbol(std::string_view symbol);
    std::string ExpectName(std::string_view what);  // a bare name that is no keyword, or a bracketed one
    void ExpectEnd() const;
    void RefuseUnsupported() const;  // raises where words of a wider dialect stand
    void RefuseBareAlias() const;    // raises where a name stands that only As could bring in

    std::size_t Position() const { return at_; }
    void MoveTo(std::size_t position) { at_ = position; }
    // Raises error::Statement: the text, and what stands at the present place.
    [[noreturn]] void Refuse(const std::string& text) const;

  private:
    std::string UnsupportedWords() const;

    std::vector<Token> tokens_;
    const bool hostCondition_;
    std::size_t at_ = 0;
};

bool IsKeyword(std::string_view word);

}  // namespace ado
