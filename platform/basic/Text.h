#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Texts are UTF-8; lengths and positions count characters (code points), positions from 1.
namespace basic {

std::size_t Len(std::string_view text);
std::string Left(std::string_view text, std::size_t count);
std::string Right(std::string_view text, std::size_t count);
std::string Mid(std::string_view text, std::size_t from);  // from position `from` to the end
// Beyond the end is cut, never an error.
std::string Mid(std::string_view text, std::size_t from, std::size_t count);
std::string Trim(std::string_view text);      // takes blanks (0x20) off both ends, nothing else
std::string UCase(std::string_view text);     // full Unicode, not only ASCII
std::string FoldCase(std::string_view text);  // the form in which texts that differ only in case are equal
std::string Replace(std::string_view text, std::string_view what, std::string_view with);

// Less than, equal to or greater than 0, ignoring case: the order of Order By and of the list controls.
int CompareText(std::string_view a, std::string_view b);
bool EqualText(std::string_view a, std::string_view b);  // CompareText == 0, faster
// `pattern` with % (any run of characters) and _ (any one), ignoring case; no escape character.
bool LikeText(std::string_view text, std::string_view pattern);

bool IsUtf8(std::string_view text);  // no byte stands where no character can begin or go on

std::u16string ToUtf16(std::string_view text);    // invalid bytes become U+FFFD
std::string FromUtf16(std::u16string_view text);  // lone surrogates become U+FFFD

}  // namespace basic
