#include "tests/support/FreshBooks.h"

#include <functional>

#include "core/modGeneral.h"
#include "host/make/Books.h"
#include "host/make/Embedded.h"
#include "platform/ado/Errors.h"
#include "platform/ado/Maintenance.h"
#include "platform/ado/store/PostgresFunctions.h"
#include "platform/basic/Number.h"

namespace test {
namespace {

// Books made once on the server, of which each test takes a copy: of this year, and of what the program lays
// down.
std::string PatternOf(std::optional<int> year) {
    const std::size_t laidDown =
        std::hash<std::string>()(std::string(host::Embedded("schema.sql")) + ado::ServerFunctions());
    return "pattern_" + (year ? std::to_string(*year) : "delivered") + "_" + std::to_string(laidDown);
}

// Several programs may find it missing at once: whichever is whole first stands.
void MakePattern(const std::string& pattern, std::optional<int> year) {
    const TempFolder folder;
    host::CreateBooks(folder.Path(), year);
    ado::Connection books;
    books.Properties("Data Source") = folder / host::BooksFile;
    books.Properties("Jet OlEDB:Database Password") = host::BooksPassword;
    books.Open();
    const std::string own = pattern + "_" + std::to_string(getpid());
    ado::CopyBooks(books, ServerUri() + own + "/");
    const bool stands =
        ErrorOf([&] {
            ServerDatabase::RunOn("postgres", "ALTER DATABASE " + own + " RENAME TO " + pattern);
        }) != 0;
    if (stands) ServerDatabase::RunOn("postgres", "DROP DATABASE " + own);
}

std::unique_ptr<ServerDatabase> CopyOfPattern(std::optional<int> year) {
    const std::string pattern = PatternOf(year);
    try {
        return std::make_unique<ServerDatabase>(pattern);
    } catch (const basic::Error& error) {
        if (error.Number != ado::error::FileNotFound) throw;
    }
    MakePattern(pattern, year);
    return std::make_unique<ServerDatabase>(pattern);
}

}  // namespace

FreshBooks::FreshBooks(std::optional<int> year) {
    if (OnServer())
        database_ = CopyOfPattern(year);
    else
        host::CreateBooks(folder_.Path(), year);
    OpenHost();
}

FreshBooks::~FreshBooks() {
    host_.reset();
    qm::shared() = {};
}

std::string FreshBooks::DataPath() const {
    return database_ ? database_->Uri() : folder_.Path().string() + "/";
}

void FreshBooks::OpenHost() {
    host_ = std::make_unique<qm::clQm>();
    host_->dataPath(DataPath());
    host_->StartDataConn();
}

int FreshBooks::AddLedger(const std::string& name, const std::string& group, double opening,
                          const std::string& side) {
    const std::string parent =
        One("Select Group_Id From Group_Head_Master Where Group_Head_Name = '" + group + "'");
    Run("Insert Into Group_Head_Master (Group_Head_Name, Parent_Id) Values ('" + name + "', " + parent + ")");
    const std::string id = One("Select Max(Group_Id) As Id From Group_Head_Master");
    Run("Insert Into Ledger_Master (Ledger_ID, Name, Group_Id, PrimaryGrp) Values (" + id + ", '" + name +
        "', " + parent + ", '" + group + "')");
    Run("Insert Into Ledger_Details (Ledger_ID, Fnncl_Yr, Opening_Bal, Closing_Bal, Bal_Type) Values (" + id +
        ", " + qm::shared().FinYear + ", " + basic::NumberText(opening) + ", 0, '" + side + "')");
    return std::stoi(id);
}

std::vector<std::string> FreshBooks::Rows(const std::string& sql) {
    std::vector<std::string> lines;
    const ado::RecordsetPtr rows = qm::Conn().Execute(sql);
    for (; !rows->Eof(); rows->MoveNext()) {
        std::string line;
        for (std::size_t i = 0; i < rows->FieldCount(); ++i) {
            const basic::Value value = rows->Fields(i).Value();
            line += (i == 0 ? "" : "|") + (value.IsNull() ? "Null" : basic::ToText(value));
        }
        lines.push_back(line);
    }
    return lines;
}

std::string FreshBooks::One(const std::string& sql) {
    const std::vector<std::string> lines = Rows(sql);
    return lines.empty() ? "no row" : lines.front();
}

void FreshBooks::Run(const std::string& sql) {
    qm::Conn().Execute(sql);
}

}  // namespace test
