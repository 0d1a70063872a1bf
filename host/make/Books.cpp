#include "host/make/Books.h"

#include <string>

#include "host/make/BooksFolder.h"
#include "host/make/BooksStore.h"
#include "host/make/CsvFile.h"
#include "host/make/Embedded.h"
#include "host/make/Fail.h"
#include "host/make/YearTables.h"
#include "platform/basic/Files.h"

namespace host {
namespace {

constexpr int FirstYear = 2001;

void SeedGroups(BooksStore& store) {
    for (const auto& group : EmbeddedRows("groups.csv"))
        store.Run("INSERT INTO Group_Head_Master (Group_Head_Name, Parent_Id, GrpType) VALUES (?1, 0, ?2)",
                  group.fields);
}

void SeedRegister(BooksStore& store, const std::string& year) {
    for (const auto& type : EmbeddedRows("vouchertypes.csv"))
        store.Run("INSERT INTO tblvchrmst VALUES (?1, CAST(?3 AS INTEGER), CAST(?2 AS INTEGER))",
                  {type.fields[0], type.fields[1], year});
}

// A year's table is its template under another name, checks and indexes included.
void MakeTables(BooksStore& store, const std::string& year, bool all) {
    for (const auto& [source, table, delivered] : YearTables()) {
        if (!all && !delivered) continue;
        for (const auto& definition :
             store.Run("SELECT replace(sql, ?1, ?2) FROM sqlite_master WHERE tbl_name = ?1 ORDER BY rowid",
                       {source, table + year}))
            store.Run(definition);
    }
}

void LayDown(const std::filesystem::path& file, std::optional<int> year) {
    basic::MakePrivate(file);
    BooksStore store(file);
    store.Run("PRAGMA journal_mode = WAL");
    store.Run("BEGIN IMMEDIATE");
    store.RunAll(Embedded("schema.sql"));
    const std::string shortForm = std::to_string(year.value_or(FirstYear));
    SeedGroups(store);
    SeedRegister(store, shortForm);
    MakeTables(store, shortForm, year.has_value());
    if (year)
        store.Run("INSERT INTO Fnncl_Yr_Mstr (Fnncl_Yr, Crrnt_Yr_Flg) VALUES (?1, 1)", {LongForm(*year)});
    store.Run("COMMIT");
    store.Close();
}

// Opened again as the next program will, and walked through.
void CheckWhole(const std::filesystem::path& file) {
    BooksStore store(file);
    const std::vector<std::string> found = store.Run("PRAGMA integrity_check");
    if (found.front() != "ok") Fail(std::string("the new books are damaged: ").append(found.front()));
    store.Close();
}

}  // namespace

std::vector<std::filesystem::path> CreateBooks(
    const std::filesystem::path& folder, std::optional<int> year,
    const std::function<void(const std::filesystem::path& folder)>& fill) {
    if (year && (*year < LowestYear || *year > HighestYear))
        Fail("the year " + std::to_string(*year) + " is not one of " + std::to_string(LowestYear) + " to " +
             std::to_string(HighestYear));
    BooksFolder place(folder, BooksFile);
    LayDown(place.Staging() / BooksFile, year);
    if (fill) fill(place.Staging());
    CheckWhole(place.Staging() / BooksFile);
    place.Publish();
    return place.SetAside();
}

}  // namespace host
