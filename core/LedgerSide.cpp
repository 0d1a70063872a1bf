#include "core/LedgerSide.h"

namespace qm {

LedgerSide Other(LedgerSide side) {
    return side == LedgerSide::Debit ? LedgerSide::Credit : LedgerSide::Debit;
}

std::optional<LedgerSide> SideOfLetter(std::string_view letter) {
    for (const LedgerSide side : {LedgerSide::Debit, LedgerSide::Credit})
        if (letter == LetterOf(side)) return side;
    return std::nullopt;
}

const char* LetterOf(LedgerSide side) {
    return side == LedgerSide::Debit ? "D" : "C";
}

std::optional<LedgerSide> SideOfMark(std::string_view mark) {
    for (const LedgerSide side : {LedgerSide::Debit, LedgerSide::Credit})
        if (mark == MarkOf(side)) return side;
    return std::nullopt;
}

const char* MarkOf(LedgerSide side) {
    return side == LedgerSide::Debit ? "Dr." : "Cr.";
}

}  // namespace qm
