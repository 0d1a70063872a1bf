// Each statement of the system, and random ones, on a file and on a server: the same rows, order, kinds,
// counts, errors and texts, and the same tables afterwards.
#include <fstream>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "host/make/Embedded.h"
#include "platform/ado/store/Session.h"
#include "tests/fuzz/StatementWriter.h"
#include "tests/platform/ado/TestStore.h"

namespace ado {
namespace {

using test::TestStore;

struct Shown {
    std::string operator()(basic::Null) const { return "-"; }
    std::string operator()(bool truth) const { return truth ? "True" : "False"; }
    std::string operator()(std::int16_t whole) const { return "short " + std::to_string(whole); }
    std::string operator()(std::int32_t whole) const { return "long " + std::to_string(whole); }
    std::string operator()(const std::string& text) const { return "'" + text + "'"; }
    template <class Number>
    std::string operator()(const Number& number) const {
        return basic::ToText(basic::Value(number));
    }
};

std::string AllOf(Recordset& rows) {
    std::string all;
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) all += rows.Fields(i).Name() + ", ";
    for (; !rows.Eof(); rows.MoveNext()) {
        all += "\n  ";
        for (std::size_t i = 0; i < rows.FieldCount(); ++i)
            all += rows.Fields(i).Value().Visit(Shown()) + ", ";
    }
    return all;
}

struct Outcome {
    std::int64_t error = 0;
    std::string text;
    friend bool operator==(const Outcome&, const Outcome&) = default;
};

class BothStores {
  public:
    explicit BothStores(const std::string& definitions, const std::vector<std::string>& first = {})
        : file_(definitions, false), server_(definitions, true), stores_{file_.Connect(), server_.Connect()} {
        for (const ConnectionPtr& store : stores_)
            for (const std::string& statement : first) store->Execute(statement);
        // Rows that differ, and meet in joins.
        for (const ConnectionPtr& store : stores_)
            for (const std::string& table : stores_[0]->Opened()->engine().Tables())
                for (int row = 0; row < 4; ++row) store->Execute(Insert(table, row));
    }

    // The statements that came to something else on the server, with both.
    std::string Differs(const std::string& statement, int options = adCmdText) {
        const Outcome file = Run(stores_[0], statement, options),
                      server = Run(stores_[1], statement, options);
        taken_ += file.error == 0 ? 1 : 0;
        const bool metByOne = (FailsByValue(file) || FailsByValue(server)) && file.error * server.error == 0;
        if (file == server || metByOne || (FailsByValue(file) && FailsByValue(server))) return "";
        return statement + "\n file: " + file.text + "\n server: " + server.text + "\n";
    }

    int Taken() const { return taken_; }  // statements that gave rows

  private:
    std::string Insert(const std::string& table, int row) {
        std::string values;
        const auto described = stores_[0]->Opened()->engine().Describe(table);
        for (const ColumnInfo& column : described->columns) {
            const char* texts[] = {"'alpha'", "'ALPHA'", "'5'", "Null"};
            const char* numbers[] = {"1", "2", "5", "Null"};
            const char* doubles[] = {"1.5", "-2", "0", "Null"};
            const char* value = column.type == ColumnType::Text      ? texts[row]
                                : column.type == ColumnType::Boolean ? (row == 1 ? "True" : "False")
                                : column.type == ColumnType::Double  ? doubles[row]
                                                                    : numbers[column.counter ? row % 3 : row];
            values +=
                (values.empty() ? "" : ", ") + std::string(column.counter ? std::to_string(row + 1) : value);
        }
        return "Insert Into [" + table + "] Values (" + values + ")";
    }

    static Outcome Run(const ConnectionPtr& on, const std::string& statement, int options) {
        Outcome outcome;
        Connection& store = *on;
        store.BeginTrans();
        try {
            std::int64_t count = 0;
            RecordsetPtr rows = std::make_shared<Recordset>();
            if (options == adHostCondition)
                rows->Open(statement, on, adOpenForwardOnly, adLockReadOnly, options);
            else
                rows = store.Execute(statement, &count);
            outcome.text = std::to_string(count) + " ";
            if (rows->State() == adStateOpen)
                outcome.text += AllOf(*rows);
            else
                for (const std::string& table : store.Opened()->engine().Tables())
                    outcome.text +=
                        table + ": " + AllOf(*store.Execute("Select * From [" + table + "]")) + "\n";
        } catch (const basic::Error& failure) {
            outcome = {failure.Number, failure.Description};
        }
        store.RollbackTrans();
        return outcome;
    }

    // Which values a store looks at, and in which order, is its own affair: so whether it meets one that
    // fails.
    static bool FailsByValue(const Outcome& outcome) {
        return outcome.error == basic::error::DivisionByZero || outcome.error == basic::error::InvalidNull ||
               outcome.error == basic::error::InvalidCall || outcome.error == basic::error::Overflow ||
               outcome.error == error::BadValue || outcome.text.starts_with("The pattern '") ||
               outcome.text.starts_with("A subselect gave more than one row");
    }

    TestStore file_, server_;
    std::vector<ConnectionPtr> stores_;
    int taken_ = 0;
};

TEST(BothStoresTest, TakeEveryStatementOfTheSystemAlike) {
    QM_SERVER_ONLY();
    BothStores stores(
        std::string(host::Embedded("schema.sql")),
        {"Select * Into tb_Ledger2001 From tblsysLedgerstr",
         "Select * Into tblItemLed2001 From tblsysItemLedstr", "Select * Into tblPO2001 From tblsysPOstr",
         "Select * Into tblPODet2001 From tblsysPODetstr", "Select * Into tblBills2001 From tblSysBills",
         "Select * Into ItemMaster2001 From ItemMasterstr"});
    std::ifstream statements(QM_STATEMENTS);
    int count = 0;
    for (std::string statement; std::getline(statements, statement); ++count)
        EXPECT_EQ(stores.Differs(statement), "");
    EXPECT_GT(count, 150);
}

// Left out is what no statement of the system does and each store takes in its own way: items of In that are
// of several kinds, a subselect that looks at a field of the groups around it, and the case of a text that
// stands for its group beside Max.
TEST(BothStoresTest, TakeRandomStatementsAlike) {
    QM_SERVER_ONLY();
    BothStores stores(fuzz::StatementWriter::Tables);
    std::mt19937 random(2001);
    const auto any = [&](const auto& values) { return values[random() % std::size(values)]; };
    constexpr const char* numbers[] = {"1", "2.5", "5", "0", "100"};
    constexpr const char* texts[] = {"'alpha'", "'5'", "'Cr'", "'a%'", "''"};
    int takenBefore = 0;
    for (int written = 0; written < 8000; ++written) {
        const bool ofHost = written >= 5000;
        if (written == 5000) takenBefore = stores.Taken();
        std::vector<std::uint8_t> choices(ofHost ? 5 + random() % 20 : 30 + random() % 120);
        for (std::uint8_t& choice : choices) choice = static_cast<std::uint8_t>(random());
        fuzz::StatementWriter writer({choices.data(), choices.size()}, any(numbers), any(texts),
                                     ofHost ? "#1/5/1900#" : "");
        const std::string statement =
            ofHost ? "Select Name, Side From Ledger As A, Details As B Where " + writer.Condition()
                   : writer.Statement();
        const auto holds = [&](const char* words) { return statement.find(words) != std::string::npos; };
        bool listed = false;
        for (std::size_t at = 0; (at = statement.find(" In (", at)) != statement.npos; ++at)
            listed = listed || statement.compare(at, 11, " In (Select") != 0;
        const bool most = holds("Max(") || holds("Min("), grouped = holds(" Group By "),
                   subselect = holds("(Select ");
        if (listed || (subselect && (grouped || most || holds("Sum(") || holds("Avg(") || holds("Count("))) ||
            (grouped && most))
            continue;
        EXPECT_EQ(stores.Differs(statement, ofHost ? adHostCondition : adCmdText), "");
    }
    EXPECT_GT(takenBefore, 500);
    EXPECT_GT(stores.Taken() - takenBefore, 500);
}

}  // namespace
}  // namespace ado
