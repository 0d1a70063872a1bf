// The reports over the sample books. The figures were worked out from the two files in data/sample alone, by
// adding each ledger's lines to its opening in decimals; the narrations were cut after the 35th letter.
#include <gmock/gmock.h>

#include "host/commands/Sample.h"
#include "reports/frmTPL.h"
#include "tests/accounts/PartyScreens.h"
#include "tests/reports/ResultTexts.h"

using namespace testing;
using namespace ledgertext;

namespace {

class SampleReportsTest : public PartyLedgerTest {
  protected:
    SampleReportsTest() {
        books.CloseHost();
        host::FillWithSample(books.DataPath(), 2001);
        books.OpenHost();
    }
};

// Rows of the two months, printed at several ledgers.
const std::string Paper = "Copier paper and notebooks, freight", PaperOn = Further(" on their account");
const std::string Ruled = "Ruled notebooks, 800 pieces, and ge", RuledOn = Further("ometry boxes");
const std::string Settled = "Settled in full less discount for p",
                  SettledOn = Further("ayment within the month");
const std::string School = "School reopening: notebooks, pens, ";
const std::string SchoolOn = Further("geometry boxes and files as per the list signed by the school office") +
                             Further(" the school office");

// A statement over May and June 2001; the rest of the year lies before and behind it.
std::string Statement(const std::string& name, const std::string& opening, const std::string& rows,
                      const std::string& close) {
    return Begin(name) + Opening("01-May-2001", opening) + rows + close;
}
std::string Debit(const std::string& date, const std::string& narration, const std::string& type,
                  const std::string& amount, const std::string& balance) {
    return Row(date + "-2001", narration, type, amount, "0.00", balance);
}
std::string Credit(const std::string& date, const std::string& narration, const std::string& type,
                   const std::string& amount, const std::string& balance) {
    return Row(date + "-2001", narration, type, "0.00", amount, balance);
}

std::string MoneyStatements() {
    return Statement("Cash", "26,500.00Dr ",
                     Debit("11-May", "Counter sales of the week", "Receipt", "16,740.00", "43,240.00Dr") +
                         Credit("14-May", "Cash deposited", "Contra", "15,000.00", "28,240.00Dr") +
                         Credit("28-Jun", "Electricity bill", "Payment", "2,840.75", "25,399.25Dr"),
                     Close("43,240.00", "17,840.75", "25,399.25Dr")) +
           Statement(
               "Current Account", "100,500.00Dr ",
               Credit("03-May", "Shop rent for May", "Payment", "4,500.00", "96,000.00Dr") +
                   Debit("14-May", "Cash deposited", "Contra", "15,000.00", "111,000.00Dr") +
                   Debit("30-May", "Opening dues cleared by draft", "Receipt", "31,850.50", "142,850.50Dr") +
                   Credit("02-Jun", "Shop rent for June", "Payment", "4,500.00", "138,350.50Dr") +
                   Credit("06-Jun", Settled, "Payment", "27,000.00", "111,350.50Dr") + SettledOn,
               Close("147,350.50", "36,000.00", "111,350.50Dr")) +
           Statement("Discount Received", "0.00Cr",
                     Credit("06-Jun", Settled, "Payment", "450.75", "450.75Cr") + SettledOn,
                     Close("0.00", "450.75", "450.75Cr")) +
           Statement("Electricity", "0.00Cr",
                     Debit("28-Jun", "Electricity bill", "Payment", "2,840.75", "2,840.75Dr"),
                     Close("2,840.75", "0.00", "2,840.75Dr"));
}

std::string GoodsStatements() {
    return Statement("Example Paper Mart", "18,300.00Cr",
                     Credit("05-May", Paper, "Journal", "29,650.00", "47,950.00Cr") + PaperOn,
                     Close("0.00", "47,950.00", "47,950.00Cr")) +
           Statement("Freight Inward", "0.00Cr",
                     Debit("05-May", Paper, "Journal", "1,450.00", "1,450.00Dr") + PaperOn,
                     Close("1,450.00", "0.00", "1,450.00Dr")) +
           Statement("Model School Stores", "26,460.00Dr ",
                     Debit("21-Jun", School, "Journal", "78,684.00", "105,144.00Dr") + SchoolOn,
                     Close("105,144.00", "0.00", "105,144.00Dr")) +
           Statement("Packing Charges Recovered", "0.00Cr",
                     Credit("22-May", Ruled, "Journal", "350.00", "350.00Cr") + RuledOn +
                         Credit("21-Jun", School, "Journal", "600.00", "950.00Cr") + SchoolOn,
                     Close("0.00", "950.00", "950.00Cr")) +
           Statement("Purchases of Goods", "0.00Cr",
                     Debit("05-May", Paper, "Journal", "28,200.00", "28,200.00Dr") + PaperOn +
                         Debit("15-Jun", "Pens, markers and staplers", "Journal", "22,680.40", "50,880.40Dr"),
                     Close("50,880.40", "0.00", "50,880.40Dr"));
}

std::string SalesStatements() {
    return Statement("Sales of Goods", "24,500.00Cr",
                     Credit("11-May", "Counter sales of the week", "Receipt", "15,500.00", "40,000.00Cr") +
                         Credit("22-May", Ruled, "Journal", "41,250.00", "81,250.00Cr") + RuledOn +
                         Credit("21-Jun", School, "Journal", "72,300.00", "153,550.00Cr") + SchoolOn,
                     Close("0.00", "153,550.00", "153,550.00Cr")) +
           Statement("Sales Tax Payable", "1,960.00Cr",
                     Credit("11-May", "Counter sales of the week", "Receipt", "1,240.00", "3,200.00Cr") +
                         Credit("22-May", Ruled, "Journal", "3,300.00", "6,500.00Cr") + RuledOn +
                         Credit("21-Jun", School, "Journal", "5,784.00", "12,284.00Cr") + SchoolOn,
                     Close("0.00", "12,284.00", "12,284.00Cr")) +
           Statement(
               "Sample Stationery Depot", "27,450.75Cr",
               Debit("06-Jun", Settled, "Payment", "27,450.75", "0.00Cr") + SettledOn +
                   Credit("15-Jun", "Pens, markers and staplers", "Journal", "22,680.40", "22,680.40Cr"),
               Close("27,450.75", "50,131.15", "22,680.40Cr")) +
           Statement("Shop Rent", "4,500.00Dr ",
                     Debit("03-May", "Shop rent for May", "Payment", "4,500.00", "9,000.00Dr") +
                         Debit("02-Jun", "Shop rent for June", "Payment", "4,500.00", "13,500.00Dr"),
                     Close("13,500.00", "0.00", "13,500.00Dr")) +
           Statement(
               "Specimen Book House", "31,850.50Dr ",
               Debit("22-May", Ruled, "Journal", "44,900.00", "76,750.50Dr") + RuledOn +
                   Credit("30-May", "Opening dues cleared by draft", "Receipt", "31,850.50", "44,900.00Dr"),
               Close("76,750.50", "31,850.50", "44,900.00Dr"));
}

TEST_F(SampleReportsTest, StatementsOfTwoMonths) {
    OpenScreen();
    screen.ui().dtpDateFrom->SetValue(Date(31));
    screen.ui().dtpDateUpTo->SetValue(Date(91));
    EXPECT_EQ(Statements(), Open + MoneyStatements() + GoodsStatements() + SalesStatements() + End);
}

// Nothing was posted to the three ledgers without figures: their totals stay Null, and so does the closing
// balance after the rebuild. The foot leaves them out, so its closing sides differ.
TEST_F(SampleReportsTest, TrialBalanceOfTheYear) {
    const struct {
        const char *name, *opening, *debits, *credits, *closing;
        bool debit;
    } ledgers[] = {
        {"Proprietor Capital", "423617.25C", "", "", "", false},
        {"Proprietor Drawings", "0D", "12,000.00", "0.00", "12,000.00", true},
        {"Van Loan", "120000C", "30,000.00", "0.00", "90,000.00", false},
        {"Sales Tax Payable", "14200C", "44,673.00", "38,969.00", "8,496.00", false},
        {"Salaries Payable", "21000C", "43,000.00", "22,000.00", "0.00", false},
        {"Example Paper Mart", "58300C", "115,000.00", "106,775.50", "50,075.50", false},
        {"Sample Stationery Depot", "27450.75C", "67,450.75", "53,500.65", "13,500.65", false},
        {"Demo Packaging Works", "9800C", "9,800.00", "17,360.00", "17,360.00", false},
        {"Furniture and Fixtures", "64000D", "0.00", "6,400.00", "57,600.00", true},
        {"Delivery Van", "185000D", "0.00", "37,000.00", "148,000.00", true},
        {"Rent Deposit", "30000D", "", "", "", false},
        {"Staff Advances", "6000D", "0.00", "2,000.00", "4,000.00", true},
        {"Model School Stores", "46200D", "199,752.00", "216,200.00", "29,752.00", true},
        {"Specimen Book House", "31850.5D", "126,104.00", "157,954.50", "0.00", false},
        {"Trial Office Supplies", "12400D", "103,241.50", "30,739.50", "84,902.00", true},
        {"Current Account", "142000D", "490,894.00", "416,423.00", "216,471.00", true},
        {"Cash", "18500D", "112,604.00", "101,800.75", "29,303.25", true},
        {"Stock of Goods", "138417.5D", "", "", "", false},
        {"Purchases of Goods", "0D", "173,056.15", "0.00", "173,056.15", true},
        {"Freight Inward", "0D", "4,580.00", "0.00", "4,580.00", true},
        {"Sales of Goods", "0C", "0.00", "487,112.50", "487,112.50", false},
        {"Packing Charges Recovered", "0C", "0.00", "1,620.00", "1,620.00", false},
        {"Shop Rent", "0D", "58,500.00", "0.00", "58,500.00", true},
        {"Salaries", "0D", "45,000.00", "0.00", "45,000.00", true},
        {"Electricity", "0D", "6,000.75", "0.00", "6,000.75", true},
        {"Bank Charges and Interest", "0D", "11,250.00", "0.00", "11,250.00", true},
        {"Depreciation", "0D", "43,400.00", "0.00", "43,400.00", true},
        {"Discount Received", "0C", "0.00", "450.75", "450.75", false},
    };
    std::string rows;
    for (const auto& c : ledgers)
        rows += "<tr><td>" + std::string(c.name) + "</td>" + Right(c.opening) + Right(c.debits) +
                Right(c.credits) + (c.debit ? "" : "<td></td>") + Right(c.closing) + "</tr>";
    basic::Clock::Set(basic::MakeDate(2002, 3, 31));
    OpenScreen();
    EXPECT_EQ(TrialBalance(), Trial("30-Dec-1899", "31/03/2002", rows,
                                    Right("1,696,306.15") + Right("1,696,306.15") + Right("923,815.15") +
                                        Right("668,615.40")));
}

std::string ResultsOfTrading() {
    using namespace resulttext;
    return TradingHead("31-Mar-2002") + LeftLine(true, "Stock of Goods", "138,417.50") +
           LeftLine(true, "Purchases of Goods", "173,056.15") + LeftLine(true, "Freight Inward", "4,580.00") +
           RightLine(true, "Sales of Goods", "487,112.50") +
           RightLine(true, "Packing Charges Recovered", "1,620.00") +
           "<tr><td><u>Gross Profit</u></td><td align  = 'right'>172,678.85</td></tr>"
           "<tr><td></td><td><hr></td><td></td><td><ht></td></tr>" +
           TotalsRow("488,732.50", "488,732.50") + Rules +
           "<tr><td></td><td></td><td align = 'lEFT'>Gross Profit B/F</td><td align = "
           "'right'>172,678.85</td></tr>" +
           LeftLine(true, "Shop Rent", "58,500.00") + LeftLine(true, "Salaries", "45,000.00") +
           LeftLine(true, "Electricity", "6,000.75") +
           LeftLine(true, "Bank Charges and Interest", "11,250.00") +
           LeftLine(true, "Depreciation", "43,400.00") + RightLine(true, "Discount Received", "450.75") +
           "\r\n<tr><td><u>Net Profit</u></td><td align  = 'right'>8,978.85</td></tr>" + Rules +
           TotalsRow("173,129.60", "173,129.60") +
           "<tr><td></td><td><hr></td> <td></td><td><hr></td></tr></table>";
}

std::string BalanceSheet() {
    using namespace resulttext;
    return BalanceHead("31-Mar-2002") + LeftLine(false, "Proprietor Capital", "423,617.25") +
           RightLine(false, "Proprietor Drawings", "12,000.00") + LeftLine(false, "Van Loan", "90,000.00") +
           LeftLine(false, "Sales Tax Payable", "8,496.00") +
           LeftLine(false, "Example Paper Mart", "50,075.50") +
           LeftLine(false, "Sample Stationery Depot", "13,500.65") +
           LeftLine(false, "Demo Packaging Works", "17,360.00") +
           RightLine(false, "Furniture and Fixtures", "57,600.00") +
           RightLine(false, "Delivery Van", "148,000.00") + RightLine(false, "Rent Deposit", "30,000.00") +
           RightLine(false, "Staff Advances", "4,000.00") +
           RightLine(false, "Model School Stores", "29,752.00") +
           RightLine(false, "Trial Office Supplies", "84,902.00") +
           RightLine(false, "Current Account", "216,471.00") + RightLine(false, "Cash", "29,303.25") +
           LeftLine(false, "Net Profit Trf From P & L", "8,978.85") +
           "<tr><td></td><td><hr></td><td></td><td><hr></td></td>" + TotalsRow("612,028.25", "612,028.25") +
           Rules + resulttext::End;
}

// Here the ledgers without rows stand with their openings, so that both sides agree; two that came to nothing
// have no line.
TEST_F(SampleReportsTest, FinalResultsOfTheYear) {
    basic::Clock::Set(basic::MakeDate(2002, 3, 31));
    auto& results = forms::Default<qm::frmTPL>();
    Show(results);
    Click(results.ui().cmdView);
    EXPECT_EQ(results.ui().ucHTMLBox->ui().dhtEdit->DocumentHTML(), ResultsOfTrading() + BalanceSheet());
    results.Unload();
}

}  // namespace
