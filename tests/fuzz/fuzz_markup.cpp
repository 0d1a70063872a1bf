// Nested markup, as bytes and as tags in any order, through the reader and the layout of the report view: no
// depth, width or length of it may take time or room out of proportion.
#include <QApplication>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/forms/html/Content.h"
#include "platform/forms/html/Layout.h"
#include "tests/fuzz/Check.h"
#include "tests/platform/forms/html/Extent.h"

namespace {

using namespace forms::html;
using fuzz::Check;

constexpr Bounds Narrow{.Tables = 1, .Text = 100};

// Parted by bars.
constexpr std::string_view Pieces =
    "<table>|</table>|<tr>|</tr>|<td>|</td>|<td colspan=9 rowspan=9>|<th>|<tbody>|<caption>|<col>|"
    "<b>|</b>|<i id=#>|</i>|<font size=#>|</font>|<p>|</p>|<div>|</div>|<ul>|<li>|</ul>|<a>|</a>|"
    "<h1>|<hr>|<br>|<nobr>|<form>|</form>|<svg>|<math>|<select>|<template>|<textarea>|<script>|"
    "</script>|<style>|</style>|<title>|<!--|-->|<html a#>|</body>|<b a='|'|>|<|&amp;|<x>|<pre>|"
    "w#";

std::vector<std::string> Parts() {
    std::vector<std::string> parts;
    for (std::size_t from = 0, to = 0; to != Pieces.npos; from = to + 1) {
        to = Pieces.find('|', from);
        parts.emplace_back(Pieces.substr(from, to - from));
    }
    return parts;
}

// The pieces that the bytes choose, some of them many times.
std::string Written(std::string_view choices) {
    static const std::vector<std::string> parts = Parts();
    std::string text = "<table><tr><td>";
    for (std::size_t i = 0; i + 1 < choices.size() && text.size() < 20000; i += 2) {
        const std::string& piece = parts[static_cast<std::uint8_t>(choices[i]) % parts.size()];
        const auto count = static_cast<std::uint8_t>(choices[i + 1]);
        for (int time = 0; time < (count < 200 ? 1 : count); ++time) {
            const std::size_t at = piece.find('#');
            text += at == std::string::npos
                        ? piece
                        : piece.substr(0, at) + std::to_string(time) + piece.substr(at + 1);
        }
    }
    return text;
}

void CheckTree(const std::string& text, const Bounds& bounds) {
    const Extent extent{Tree(text, bounds)};
    Check(extent.Depth <= Extent::Deepest(bounds), "the depth is bounded");
    Check(extent.Tables <= bounds.Tables, "the tables in one another are bounded");
    Check(extent.Cells <= Bounds::Cells, "the cells of a row are bounded");
}

}  // namespace

// The fonts of the system are kept by their library until the process ends.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    static int count = 1;
    static std::array<char, 12> name{"fuzz_markup"};
    static std::array<char*, 2> arguments{name.data(), nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QApplication application(count, arguments.data());
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const bool asBytes = input.Take<std::uint8_t>() % 4 == 0;
    const std::string text = asBytes ? std::string(input.Rest()) : Written(input.Rest());
    CheckTree(text, Tree::Reading);
    CheckTree(text, Narrow);
    InnerText(text);
    InnerHtml(text);
    Layout layout(text, QApplication::font());
    layout.SetWidth(600);
    layout.List(0);
    return 0;
}
