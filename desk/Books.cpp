#include "desk/Books.h"

#include <QDir>
#include <QUrl>

#include <sys/stat.h>

#include "core/DBCode.h"
#include "core/modGeneral.h"
#include "host/audit/YearList.h"
#include "host/doors/AllOrNothing.h"
#include "host/make/Books.h"
#include "queries/Server.h"

namespace desk {
namespace {

constexpr std::int32_t FileNotFound = 53;

// KB of the file in memory: to show and to write, the pages around the rows that are looked at; in the
// background, what one walk through an index and its table needs, of which the next would find nothing.
constexpr int KeptToShow = 2048, KeptToWatch = 512, KeptInBackground = 2048;

// Which file stands there, whatever it is called; none where there is none.
std::optional<std::pair<dev_t, ino_t>> FileAt(const std::string& path) {
    struct stat found {};
    if (::stat(path.c_str(), &found) != 0) return {};
    return std::pair(found.st_dev, found.st_ino);
}

}  // namespace

void Books::Open(const std::string& address) {
    Close();
    address_ = address.ends_with("/") ? address : address + "/";
    try {
        host_ = std::make_unique<qm::clQm>();
        host_->dataPath(address_);
        host_->StartDataConn();
        file_ = FileAt(address_ + qm::BooksFile);
        Read();
    } catch (...) {
        Close();
        throw;
    }
}

void Books::Close() {
    check_.reset();
    worker_.reset();
    writer_.reset();
    watcher_.reset();
    reading_.reset();
    host_.reset();
}

void Books::Read() {
    check_.reset();
    worker_.reset();
    writer_.reset();
    watcher_.reset();
    reading_ = std::make_unique<queries::Reading>(address_, qm::shared().FinYear, KeptToShow);
}

Worker& Books::Background() {
    return Started(worker_, KeptInBackground);
}

Worker& Books::Writer() {
    return Started(writer_, KeptToShow);
}

Worker& Books::Watcher() {
    return Started(watcher_, KeptToWatch);
}

Worker& Books::Started(std::shared_ptr<Worker>& worker, int keptKb) {
    if (!worker) worker = std::make_shared<Worker>(address_, YearInForce(), keptKb);
    return *worker;
}

BooksCheck& Books::Check() {
    if (!check_) check_ = std::make_unique<BooksCheck>(address_, YearInForce());
    return *check_;
}

bool Books::IsServer(const std::string& address) {
    return queries::IsOnServer(address);
}

QString Books::Name() const {
    const QString place = Place();
    return IsServer(address_) ? QUrl(place).path().mid(1) : QDir(place).dirName();
}

QString Books::Place() const {
    const QString address = QString::fromStdString(address_);
    return IsServer(address_) ? address.chopped(1) : QDir(address).absolutePath();
}

const std::string& Books::Address() const {
    return address_;
}

bool Books::IsFileThere() const {
    return !AreOpen() || OnServer() || FileAt(address_ + qm::BooksFile) == file_;
}

void Books::RequireFile() const {
    if (!IsFileThere())
        throw basic::Error(
            FileNotFound, "The books in '" + address_ + "' were taken away or replaced while they were open.",
            "desk");
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

QString Books::LongForm(const std::string& shortForm) {
    return QString::fromStdString(host::LongForm(QString::fromStdString(shortForm).toInt()));
}

bool Books::Changed() {
    return AreOpen() && qm::Conn().TransDepth() == 0 && reading_->ChangedByOthers();
}

void Books::SwitchYear(const std::string& shortForm) {
    RequireFile();
    if (host::CurrentYear() != shortForm &&
        !host::AllOrNothing([&] { return host_->SetGetFinancialYear(shortForm) == shortForm; }))
        throw basic::Error(basic::error::InvalidCall, "The year could not be made the current one.", "desk");
    const BooksCheck::ResultPtr found = check_ ? check_->Last() : nullptr;
    host_->StartDataConn();
    Read();
    if (found) Check().Keep(found);  // it is of all years
}

}  // namespace desk
