#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/ado/Connection.h"
#include "platform/ado/Recordset.h"

namespace host {

// Errors are what should not be. Notes are what the system's own roads leave behind: what the next rebuild of
// the totals heals, doubled rows, vouchers of the stock screens that are not in the running totals.
enum class Severity { Note, Error };

// What a finding is about: where it can be looked at and mended.
struct Subject {
    enum class Kind {
        None,     // nothing shows it
        File,     // the books as a whole: a backup mends it
        Years,    // the register of the years
        Ledger,   // by its number, as its screen has it
        Totals,   // the running totals, which the group screen makes anew
        Lines,    // what was posted to the ledger of this number
        Voucher,  // by its number, as the rest; 0 for rows that never got one
        Receipt,  // of goods, against no order
        Issue,    //
        Order,    // with the receipts against it
        Item,     // with its movements
        Items,    // all of the year; so are the next two
        Movements,
        Bills,
        ErrorLog,
    } kind = Kind::None;
    std::int32_t number = 0;
    std::string year = {};  // in which it stands, in its short form; "" for what all years share
    friend bool operator==(const Subject&, const Subject&) = default;
};

struct Finding {
    Severity severity = Severity::Note;
    std::string text;  // one line
    Subject subject = {};
    bool passing = false;  // another program that is just posting explains it: look again
    friend bool operator==(const Finding&, const Finding&) = default;
};

// Reads the books as they stand and changes nothing. The checks stand in AuditStore, AuditLedgers,
// AuditYears, AuditVouchers, AuditStock and AuditBills; each adds its findings here.
class Audit {
  public:
    // Called between rows; what it raises ends the audit.
    using Step = std::function<void()>;

    static std::vector<Finding> Run();  // on the class's connection
    // On any connection, whose books others may go on posting to: rows and totals are looked at as of one
    // moment, and a voucher that has one side because another program is just posting the other is looked at
    // until it has both, for a second.
    static std::vector<Finding> RunBesideOthers(ado::Connection& books, const Step& step = {});

    void Error(Subject about, std::string text) { Add(Severity::Error, std::move(about), std::move(text)); }
    void PassingError(Subject about, std::string text) {
        Add(Severity::Error, std::move(about), std::move(text));
        findings_.back().passing = true;
    }
    void Note(Subject about, std::string text) { Add(Severity::Note, std::move(about), std::move(text)); }

    ado::Connection& Books() { return books_; }
    bool HasErrors() const;
    const std::vector<std::string>& Years() const { return years_; }  // short forms, each once
    bool HasTable(const std::string& table);

    // Calls `row` for each row of the select, as ado::EachRow does; not at all for a table that does not
    // stand.
    void Each(const std::string& sql, const std::function<void(ado::Recordset&)>& row);

    void SetYears(std::vector<std::string> years) { years_ = std::move(years); }

  private:
    Audit(ado::Connection& books, const Step& step) : books_(books), step_(step) {}
    void Add(Severity severity, Subject about, std::string text) {
        findings_.push_back({severity, std::move(text), std::move(about)});
    }
    static std::vector<Finding> Run(ado::Connection& books, const Step& step);

    ado::Connection& books_;
    const Step& step_;
    std::vector<Finding> findings_;
    std::vector<std::string> years_;
};

void AuditFile(Audit& audit);      // the file's pages, bytes that are no text
void AuditYears(Audit& audit);     // flags, doubled and half-made years, tables; tells the audit its years
void AuditLedgers(Audit& audit);   // leaves, ledgers and details against each other
void AuditVouchers(Audit& audit);  // sides, amounts, dates, unknown ledgers, running totals
void AuditStock(Audit& audit);     // counters against movements, dates of movements and orders
void AuditBills(Audit& audit);     // goods, bills and vouchers against each other

// A number that a row bears. Books that are not whole hold rows without one, which the audit must not fall
// over: it counts as 0, which no row of the system bears.
std::int32_t IdOf(ado::Recordset& row, std::string_view field);

// What shows a row of the stock movements of a year.
Subject MovementOf(ado::Recordset& row, const std::string& year);

// The day of a row as messages show it, where it lies outside the table's year: else "". Null lies in every
// year.
std::string DayOutside(const basic::Value& dayNumber, const std::string& year);

// An amount with up to 15 digits, as the tables have it; it need not be finite.
std::string Digits(double amount);

// What is wrong with an amount as such, as it stands behind it in a message; "" where it is whole paise.
std::string AmountFault(double amount);

// A sum as messages show it, rounded to paise: 0.1 + 0.2 - 0.3 is 0.
std::string Rupees(double amount);
bool Differ(double a, double b);  // by half a paisa or more

}  // namespace host
