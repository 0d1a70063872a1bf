// Cuts a statement into its shape and its literals: the one pass that every statement pays, so it works on
// bytes.
#include "platform/ado/dialect/Shape.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "platform/ado/dialect/Refusal.h"
#include "platform/ado/dialect/Tokens.h"
#include "platform/basic/Dates.h"

namespace ado {
namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The marks of the literals are among these.
bool IsControl(char c) {
    return (c >= 0 && c < ' ') || c == 0x7f;
}

[[noreturn]] void Refuse(const std::string& text) {
    ado::Refuse(error::Statement, text);
}

constexpr double TimeOfDay = 0.5;          // what no date without one has
constexpr std::size_t UsualLiterals = 12;  // a voucher's row has ten

class Cutter {
  public:
    Cutter(std::string_view statement, bool dates) : text_(statement), dates_(dates) {
        shape_.key.reserve(statement.size());
        shape_.literals.reserve(UsualLiterals);
    }

    Shape Cut() {
        while (at_ < text_.size()) {
            const char c = text_[at_];
            if (IsBlank(c))
                Blank();
            else if (c == '\'' || c == '"')
                Text(c);
            else if (c == '#' && dates_)
                Date();
            else if (c == '[')
                Bracketed();
            else if (IsDigit(c) || (c == '.' && at_ + 1 < text_.size() && IsDigit(text_[at_ + 1])))
                Number();
            else if (IsNameByte(c))
                Name();
            else if (c == ';')
                End();
            else
                Symbol();
        }
        if (!shape_.key.empty() && shape_.key.back() == ' ') shape_.key.pop_back();
        return std::move(shape_);
    }

  private:
    void Blank() {
        if (!shape_.key.empty() && shape_.key.back() != ' ') shape_.key += ' ';
        ++at_;
    }

    void Name() {
        const std::size_t from = at_;
        while (at_ < text_.size() && IsNameByte(text_[at_])) ++at_;
        shape_.key.append(text_, from, at_ - from);
    }

    void Bracketed() {
        const std::size_t end = text_.find(']', at_);
        if (end == std::string_view::npos) Refuse("Syntax error: a name in brackets does not end");
        if (end == at_ + 1) Refuse("Syntax error: a name in brackets is empty");
        if (std::any_of(text_.begin() + at_, text_.begin() + end, IsControl))
            Refuse("Syntax error: a name in brackets holds a control character");
        shape_.key.append(text_, at_, end + 1 - at_);
        at_ = end + 1;
    }

    void Symbol() {
        if (IsControl(text_[at_])) Refuse("Syntax error: the statement holds a control character");
        shape_.key += text_[at_++];
    }

    // A doubled quote stands for one.
    void Text(char quote) {
        Literal literal;
        literal.isText = true;
        for (++at_;; ++at_) {
            const std::size_t end = text_.find(quote, at_);
            if (end == std::string_view::npos) Refuse("Syntax error: a text does not end");
            literal.text.append(text_, at_, end - at_);
            at_ = end + 1;
            if (at_ >= text_.size() || text_[at_] != quote) break;
            literal.text += quote;
        }
        Add(std::move(literal), TextMark);
    }

    void Number() {
        Literal literal;
        const char* const from = text_.data() + at_;
        const auto result = std::from_chars(from, text_.data() + text_.size(), literal.number);
        literal.text.assign(from, result.ptr);
        if (result.ec != std::errc()) Refuse("Syntax error: the number " + literal.text + " is out of range");
        at_ += static_cast<std::size_t>(result.ptr - from);
        Add(std::move(literal), NumberMark);
    }

    // Month first where both are numbers, whatever the order of dates elsewhere; no time of day.
    void Date() {
        const std::size_t end = text_.find('#', at_ + 1);
        if (end == std::string_view::npos) Refuse("Syntax error: a date does not end");
        Literal literal;
        literal.text = text_.substr(at_ + 1, end - at_ - 1);
        try {
            literal.number = basic::ReadDate(DayFirst(literal.text)).Serial;
        } catch (const basic::Error&) {
            literal.number = TimeOfDay;
        }
        if (std::trunc(literal.number) != literal.number || literal.text.find(':') != std::string::npos)
            Refuse("Syntax error: '" + literal.text + "' is no date");
        at_ = end + 1;
        Add(std::move(literal), DateMark);
    }

    static std::string DayFirst(const std::string& text) {
        const std::string_view numbers = "0123456789";
        const std::size_t first = text.find_first_not_of(numbers);
        if (first == 0 || first > 2 || (text[first] != '/' && text[first] != '-')) return text;
        const std::size_t second = text.find_first_not_of(numbers, first + 1);
        if (second == text.npos || second == first + 1 || text[second] != text[first]) return text;
        return text.substr(first + 1, second - first) + text.substr(0, first) + text.substr(second);
    }

    void Add(Literal literal, char mark) {
        shape_.literals.push_back(std::move(literal));
        shape_.key += mark;
    }

    void End() {
        while (++at_ < text_.size())
            if (!IsBlank(text_[at_])) Refuse("Characters stand after the end of the statement");
    }

    std::string_view text_;
    const bool dates_;
    std::size_t at_ = 0;
    Shape shape_;
};

}  // namespace

Shape ShapeOf(std::string_view statement, bool dates) {
    return Cutter(statement, dates).Cut();
}

}  // namespace ado
