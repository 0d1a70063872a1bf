#include "queries/GroupTree.h"

#include <algorithm>
#include <map>

#include "platform/basic/Text.h"
#include "queries/PrimaryGroups.h"
#include "queries/TrialBalance.h"

namespace queries {
namespace {

struct Branch {
    TreeRow head;
    std::vector<TreeRow> ledgers;
};

void Hang(Branch& branch, const TreeRow& ledger) {
    branch.head.opening += ledger.opening;
    *branch.head.debit += ledger.debit.value_or(0);
    *branch.head.credit += ledger.credit.value_or(0);
    *branch.head.closing += ledger.closing.value_or(0);
    branch.ledgers.push_back(ledger);
}

std::vector<TreeRow> Tree(Reading& books, std::vector<TrialRow> ledgers) {
    std::vector<Branch> branches;
    std::map<std::string, std::size_t> places;
    for (const PrimaryGroup& group : PrimaryGroups(books)) {
        places.emplace(basic::FoldCase(group.name), branches.size());
        branches.emplace_back().head.name = group.name;
    }
    branches.emplace_back();
    std::stable_sort(ledgers.begin(), ledgers.end(), [](const TrialRow& a, const TrialRow& b) {
        return basic::CompareText(a.name, b.name) < 0;
    });
    for (const TrialRow& ledger : ledgers) {
        const auto place = places.find(basic::FoldCase(ledger.group));
        Hang(branches[place == places.end() ? branches.size() - 1 : place->second],
             {1, ledger.id, ledger.name, ledger.deleted, ledger.opening, ledger.debit, ledger.credit,
              ledger.closing});
    }
    if (branches.back().ledgers.empty()) branches.pop_back();
    std::vector<TreeRow> rows;
    for (const Branch& branch : branches) {
        rows.push_back(branch.head);
        rows.insert(rows.end(), branch.ledgers.begin(), branch.ledgers.end());
    }
    return rows;
}

// Without the groups that have none.
std::vector<TreeRow> WithLedgers(const std::vector<TreeRow>& tree) {
    std::vector<TreeRow> kept;
    for (const TreeRow& row : tree) {
        if (row.level == 0 && !kept.empty() && kept.back().level == 0) kept.pop_back();
        kept.push_back(row);
    }
    if (!kept.empty() && kept.back().level == 0) kept.pop_back();
    return kept;
}

const std::vector<Filled<TreeRow>>& Columns() {
    using Row = const TreeRow&;
    static const std::vector<Filled<TreeRow>> columns{
        {{"name", "Group or Ledger", Kind::Text}, [](Row row) -> basic::Value { return row.name; }},
        {{"opening", "Opening", Kind::Amount}, [](Row row) -> basic::Value { return row.opening; }},
        {{"debit", "Debit", Kind::Amount}, [](Row row) { return ValueOf(row.debit); }},
        {{"credit", "Credit", Kind::Amount}, [](Row row) { return ValueOf(row.credit); }},
        {{"closing", "Closing", Kind::Amount}, [](Row row) { return ValueOf(row.closing); }},
    };
    return columns;
}

}  // namespace

std::vector<TreeRow> GroupTree(Reading& books, const Range& range, TrialBy by) {
    const Reading::Moment moment(books);
    return Tree(books, TrialBalance(books, range, by));
}

std::unique_ptr<SheetOf<TreeRow>> GroupTreeSheet(Reading& books, const Range& range) {
    return std::make_unique<SheetOf<TreeRow>>("Groups and ledgers, " + TitleOf(books, range), Columns(),
                                              GroupTree(books, range),
                                              [](const TreeRow& row) { return row.level; });
}

std::vector<TreeRow> TrialTree(Reading& books, const Range& range, TrialBy by) {
    return WithLedgers(GroupTree(books, range, by));
}

std::vector<TreeRow> TrialTree(Reading& books, const Range& range, LedgerSums& sums) {
    const Reading::Moment moment(books);
    return WithLedgers(Tree(books, TrialBalance(books, range, sums)));
}

std::unique_ptr<SheetOf<TreeRow>> TrialTreeSheet(Reading& books, const Range& range, TrialBy by) {
    auto columns = Columns();
    for (Filled<TreeRow>& filled : columns) filled.column.totalled = filled.column.kind == Kind::Amount;
    return std::make_unique<SheetOf<TreeRow>>("Trial balance, " + TitleOf(books, range), columns,
                                              TrialTree(books, range, by),
                                              [](const TreeRow& row) { return row.level; });
}

}  // namespace queries
