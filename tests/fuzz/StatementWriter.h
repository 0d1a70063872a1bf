#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/fuzz/Check.h"

namespace fuzz {

// Writes statements, most of them sound, as the input's bytes choose; two writers over the same bytes differ
// only in the literals that they were given.
class StatementWriter {
  public:
    // The tables that the statements name.
    static constexpr const char* Tables = R"(
        CREATE TABLE Ledger (ID INTEGER, Name TEXT, Head SMALLINT, Deleted BOOLEAN);
        CREATE TABLE Details (ID INTEGER, Yr INTEGER, Bal DOUBLE, Side TEXT);
    )";

    // With a date, also what only a host's own condition may hold.
    StatementWriter(Input choices, std::string_view number, std::string_view text, std::string_view date = {})
        : choices_(choices), number_(number), text_(text), date_(date) {}

    std::string Statement() { return Written("S"); }
    std::string Condition() { return Written("C"); }  // on both tables, as A and B

  private:
    // What may stand for a capital letter between bars, by its choices; # is the number, $ the text.
    static constexpr std::pair<char, std::string_view> Grammar[] = {
        {'S',
         "Insert Into Ledger (ID, Name, Deleted) Values (|V|, |V|, |V|)~Insert Into Details Select |V| As "
         "Bal, |V| As Side|R|~Update Ledger Set Name = |V|, Deleted = |C||W|~Delete * From "
         "Details|W|~|Q|~|Q|~"
         "|Q|~|Q|"},
        {'Q', "Select |D||L||R||G|~Select |D||L|, |L||R||G|~Select |D||L|, |L|, |L||R||G|"},
        {'D', "~Distinct "},
        {'L', "*~A.*~|F|~|V|~|C| As x~Max(|V|)~Sum(|V|) As x"},
        {'G', "~~ Group By |F|, Name~ Order By x Desc, Yr~ Order By |F| Desc"},
        {'R', " From Ledger|W|~ From Details|W|~ From Ledger As A, Details As B|W|"},
        {'W', "~ Where |C|~ Where |C|"},
        {'F', "ID~Name~Head~Deleted~Yr~Bal~Side~A.ID~B.ID~Nobody"},
        {'V',
         "|#|~|#|~|$|~|$|~|V||O||V|~|P||V|~(|V|)~Iif(|C|, |V|, |V|)~UCase(|V|)~CStr(|V|)~Left(|V|, |#|)~"
         "(Select |F||R|)~(Select |V||R|)~(Select Max(|F|)|R|)~True~False~Null~|F|~|F|~|F|~|F|"},
        {'O', " + ~ - ~ * ~ / ~ --"},
        {'P', "-~+"},
        {'C',
         "|C| And |C|~|C| Or |C|~Not |C|~(|C|)~|V| Is Null~|V| Is Not Null~IsNull(|V|)~|V| In (|V|, |V|)~"
         "|V| Not In (|V|, |V|)~|V| Like |V|~|V| Not Like |V|~|F|~|V| = |V|~|V| <> |V|~|V| < |V|~|V| >= |V|"},
    };
    static constexpr std::pair<char, std::string_view> OfHosts[] = {
        {'V',
         "~|V| & |V|~|V| & |V|~|V| Mod |V|~Len(|V|)~Trim(|V|)~Mid(|V|, |V|)~Mid(|V|, |#|, |#|)~Right(|V|, "
         "|#|)~"
         "InStr(|V|, |V|)~InStr(|#|, |V|, |V|)~|d|~(Select Min(|F|)|R|)~(Select Count(*)|R|)~"
         "(Select Count(|V|)|R|)~(Select Avg(|F|)|R|)"},
        {'C',
         "~|V| Between |V| And |V|~|V| Not Between |V| And |V|~|F| In (Select |F||R|)~|V| Not In (Select "
         "|V||R|)~"
         "Exists (Select |L||R|)~|V| Like |V|~|F| Like '[a-c!]%[!0-9]'"},
    };

    std::string Written(std::string_view rule) {
        const char name = rule.front();
        if (name == '#') return number_;
        if (name == '$') return text_;
        if (name == 'd') return date_;
        const bool deep = (name == 'V' || name == 'C') && ++depth_ > MostDepth;
        if (deep) return name == 'V' ? number_ : "Deleted";
        const auto* const found = std::find_if(std::begin(Grammar), std::end(Grammar),
                                               [&](const auto& entry) { return entry.first == name; });
        std::string all(found->second);
        for (const auto& [widened, more] : OfHosts)
            if (widened == name && !date_.empty()) all += more;
        const std::vector<std::string_view> ways = Parted(all, '~');
        const std::vector<std::string_view> parts =
            Parted(ways[choices_.Take<std::uint8_t>() % ways.size()], '|');
        std::string text;
        for (std::size_t i = 0; i < parts.size(); ++i)
            text += i % 2 == 0 ? std::string(parts[i]) : Written(parts[i]);
        return text;
    }
    static std::vector<std::string_view> Parted(std::string_view text, char by) {
        std::vector<std::string_view> parts;
        for (std::size_t from = 0, to = 0; to != text.npos; from = to + 1) {
            to = text.find(by, from);
            parts.push_back(text.substr(from, to - from));
        }
        return parts;
    }

    static constexpr int MostDepth = 60;  // of values and conditions in one statement
    Input choices_;
    std::string number_, text_, date_;
    int depth_ = 0;
};

}  // namespace fuzz
