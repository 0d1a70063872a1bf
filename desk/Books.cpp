#include "desk/Books.h"

#include <QDir>
#include <QUrl>

#include "core/modGeneral.h"
#include "host/audit/YearList.h"
#include "host/doors/AllOrNothing.h"

namespace desk {
namespace {

bool IsServer(const std::string& address) {
    return address.starts_with("postgresql://") || address.starts_with("postgres://");
}

}  // namespace

void Books::Open(const std::string& address) {
    Close();
    address_ = IsServer(address) || address.ends_with("/") ? address : address + "/";
    try {
        host_ = std::make_unique<qm::clQm>();
        host_->dataPath(address_);
        host_->StartDataConn();
        Read();
    } catch (...) {
        Close();
        throw;
    }
}

void Books::Close() {
    check_.reset();
    worker_.reset();
    reading_.reset();
    host_.reset();
}

void Books::Read() {
    check_.reset();
    worker_.reset();
    reading_ = std::make_unique<queries::Reading>(address_, qm::shared().FinYear);
}

Worker& Books::Background() {
    if (!worker_) worker_ = std::make_shared<Worker>(address_, YearInForce());
    return *worker_;
}

BooksCheck& Books::Check() {
    if (!check_) check_ = std::make_unique<BooksCheck>(address_, YearInForce());
    return *check_;
}

bool Books::OnServer() const {
    return IsServer(address_);
}

QString Books::Name() const {
    const QString place = Place();
    return IsServer(address_) ? QUrl(place).path().mid(1) : QDir(place).dirName();
}

QString Books::Place() const {
    const QString address = QString::fromStdString(address_);
    return IsServer(address_) ? address : QDir(address).absolutePath();
}

const std::string& Books::Address() const {
    return address_;
}

std::vector<host::Year> Books::Years() {
    return host::ReadYears(qm::Conn());
}

std::string Books::YearInForce() const {
    return AreOpen() ? qm::shared().FinYear : "";
}

std::optional<std::string> Books::OtherYear() {
    const std::string current = host::CurrentYear();
    return current.empty() || current == YearInForce() ? std::nullopt : std::optional(current);
}

bool Books::Changed() {
    return AreOpen() && qm::Conn().TransDepth() == 0 && reading_->ChangedByOthers();
}

void Books::SwitchYear(const std::string& shortForm) {
    if (host::CurrentYear() != shortForm &&
        !host::AllOrNothing([&] { return host_->SetGetFinancialYear(shortForm) == shortForm; }))
        throw basic::Error(basic::error::InvalidCall, "The year could not be made the current one.", "desk");
    host_->StartDataConn();
    Read();
}

}  // namespace desk
