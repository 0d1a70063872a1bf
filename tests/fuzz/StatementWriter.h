#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

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

    StatementWriter(Input choices, std::string_view number, std::string_view text)
        : choices_(choices), number_(number), text_(text) {}

    std::string Statement() {
        switch (Choice(8)) {
            case 0:
                return "Insert Into Ledger (ID, Name, Deleted) Values (" + Value() + ", " + Value() + ", " +
                       Value() + ")";
            case 1:
                return "Insert Into Details Select " + Value() + " As Bal, " + Value() + " As Side" + Rest();
            case 2:
                return "Update Ledger Set Name = " + Value() + ", Deleted = " + Condition() + Where();
            case 3:
                return "Delete * From Details" + Where();
            default:
                return Select();
        }
    }

  private:
    std::size_t Choice(std::size_t count) { return choices_.Take<std::uint8_t>() % count; }

    std::string Select() {
        std::string list = Pick("", "Distinct ");
        for (std::size_t more = Choice(3) + 1; more > 0; --more)
            list += Pick("*", "A.*", Field(), Value(), Condition() + " As x", "Max(" + Value() + ")",
                         "Sum(" + Value() + ") As x") +
                    (more > 1 ? ", " : "");
        return "Select " + list + Rest() +
               Pick("", "", " Group By " + Field() + ", Name", " Order By x Desc, Yr",
                    " Order By " + Field() + " Desc");
    }

    std::string Rest() {
        return Pick(" From Ledger", " From Details", " From Ledger As A, Details As B") + Where();
    }

    std::string Where() { return Choice(3) == 0 ? "" : " Where " + Condition(); }

    std::string Field() {
        return Pick("ID", "Name", "Head", "Deleted", "Yr", "Bal", "Side", "A.ID", "B.ID", "Nobody");
    }

    std::string Value() {
        if (++depth_ > MostDepth) return number_;
        switch (Choice(16)) {
            case 0:
            case 1:
                return number_;
            case 2:
            case 3:
                return text_;
            case 4:
                return Value() + Pick(" + ", " - ", " * ", " / ", " --") + Value();
            case 5:
                return Pick("-", "+") + Value();
            case 6:
                return "(" + Value() + ")";
            case 7:
                return "Iif(" + Condition() + ", " + Value() + ", " + Value() + ")";
            case 8:
                return Pick("UCase(", "CStr(") + Value() + ")";
            case 9:
                return "Left(" + Value() + ", " + number_ + ")";
            case 10:
                return "(Select " + Pick(Field(), Value(), "Max(" + Field() + ")") + Rest() + ")";
            case 11:
                return Pick("True", "False", "Null");
            default:
                return Field();
        }
    }

    std::string Condition() {
        if (++depth_ > MostDepth) return "Deleted";
        switch (Choice(9)) {
            case 0:
                return Condition() + Pick(" And ", " Or ") + Condition();
            case 1:
                return "Not " + Condition();
            case 2:
                return "(" + Condition() + ")";
            case 3:
                return Value() + Pick(" Is Null", " Is Not Null");
            case 4:
                return "IsNull(" + Value() + ")";
            case 5:
                return Value() + Pick(" In (", " Not In (") + Value() + ", " + Value() + ")";
            case 6:
                return Value() + Pick(" Like ", " Not Like ") + Value();
            case 7:
                return Field();
            default:
                return Value() + Pick(" = ", " <> ", " < ", " >= ") + Value();
        }
    }

    template <class... Texts>
    std::string Pick(const Texts&... texts) {
        const std::string all[] = {texts...};
        return all[Choice(sizeof...(texts))];
    }

    static constexpr int MostDepth = 60;  // of values and conditions in one statement

    Input choices_;
    std::string number_, text_;
    int depth_ = 0;
};

}  // namespace fuzz
