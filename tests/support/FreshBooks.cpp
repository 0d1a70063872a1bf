#include "tests/support/FreshBooks.h"

#include "core/modGeneral.h"
#include "host/make/Books.h"
#include "platform/basic/Number.h"

namespace test {

FreshBooks::FreshBooks(std::optional<int> year) {
    host::CreateBooks(folder_.Path(), year);
    OpenHost();
}

FreshBooks::~FreshBooks() {
    host_.reset();
    qm::shared() = {};
}

std::string FreshBooks::DataPath() const {
    return folder_.Path().string() + "/";
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
