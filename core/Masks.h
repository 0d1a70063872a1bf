#pragma once

// The masks of the system, for basic::Format and the grids. What stands in a box is read back and posted by
// these texts, so each screen keeps to its own.
namespace qm {

inline constexpr const char* AmountMask = "#,##,###.00";     // voucher and receipt screens; nought is ".00"
inline constexpr const char* PlainAmountMask = "######.00";  // a receipt's amount without its commas
inline constexpr const char* GroupAmountMask = "##,#00.00";  // the lists of the group screen
inline constexpr const char* DayBookAmountMask = "0.00";     // the day book
inline constexpr const char* ReportMask = "standard";        // reports; the only one that follows the locale
inline constexpr const char* QuantityMask = "#,##,###";      // whole quantities; nought is empty
inline constexpr const char* DateMask = "dd-MMM-yyyy";       // what screens and reports show
inline constexpr const char* ShortDateMask = "dd/MM/yyyy";   // what DateNumber reads; the error log
inline constexpr const char* TimeMask = "hh:mm:ss";          // the error log

}  // namespace qm
