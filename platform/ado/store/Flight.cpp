#include "platform/ado/store/Flight.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <utility>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include "platform/ado/Errors.h"
#include "platform/ado/store/PostgresFailure.h"

namespace ado {
namespace {

constexpr std::size_t MostNamedBytes = 50'000;  // of SQL that the server keeps prepared for us
constexpr std::chrono::seconds MostToConnect{20};
constexpr int MostUnanswered = 10;  // seconds, of a server that is connected: a short break is lived through

const Libpq& Pq() {
    return Libpq::Get();
}

basic::Error FailureOf(const PGresult& result) {
    const auto field = [&](int code) {
        const char* text = Pq().PQresultErrorField(&result, code);
        return std::string_view(text == nullptr ? "" : text);
    };
    return PostgresFailure(field(PG_DIAG_SQLSTATE), field(PG_DIAG_MESSAGE_PRIMARY),
                           field(PG_DIAG_MESSAGE_DETAIL));
}

// Waits for the connection to be made, step by step: the library's own call would not tell the state of a
// refusal.
bool Connected(PGconn* connection) {
    const auto end = std::chrono::steady_clock::now() + MostToConnect;
    PostgresPollingStatusType next = PGRES_POLLING_WRITING;
    if (Pq().PQstatus(connection) == CONNECTION_BAD) return false;
    while (next != PGRES_POLLING_OK && next != PGRES_POLLING_FAILED) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        pollfd wait{Pq().PQsocket(connection),
                    static_cast<short>(next == PGRES_POLLING_READING ? POLLIN : POLLOUT), 0};
        if (left.count() <= 0 || poll(&wait, 1, static_cast<int>(left.count())) == 0) return false;
        next = Pq().PQconnectPoll(connection);
    }
    return next == PGRES_POLLING_OK;
}

// A machine that died or was cut off closes nothing: the system would go on sending for a quarter of an hour,
// and wait for an answer for ever.
void GiveUpOnSilence(int socket) {
    const auto set = [&](int level, int name, int value) {
        setsockopt(socket, level, name, &value,
                   sizeof value);  // a socket in a folder needs none, and has none
    };
    set(SOL_SOCKET, SO_KEEPALIVE, 1);
    set(IPPROTO_TCP, TCP_KEEPIDLE, MostUnanswered / 2);
    set(IPPROTO_TCP, TCP_KEEPINTVL, MostUnanswered / 4);
    set(IPPROTO_TCP, TCP_USER_TIMEOUT, MostUnanswered * 1000);
}

// The last state in a text such as 'FATAL:  3D000: database "firm" does not exist'.
std::pair<std::string, std::string> StateIn(std::string_view message) {
    constexpr std::string_view before = ":  ";
    constexpr std::size_t length = 5;
    for (std::size_t at = message.rfind(before); at != std::string_view::npos;
         at = message.rfind(before, at - 1)) {
        const std::string_view state = message.substr(at + before.size(), length);
        const bool isState =
            state.size() == length && message.substr(at + before.size() + length, 2) == ": " &&
            state.find_first_not_of("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ") == std::string_view::npos;
        if (isState) {
            const std::string_view rest = message.substr(at + before.size() + length + 2);
            return {std::string(state), std::string(rest.substr(0, rest.find('\n')))};
        }
        if (at == 0) break;
    }
    return {};
}

// Without its end, and in one line.
std::string Phrase(std::string text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '.')) text.pop_back();
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

}  // namespace

void Flight::Connect(const ServerAddress& address) {
    Disconnect();
    std::vector<const char*> names, values;
    for (const auto& [name, value] : address.settings) {
        names.push_back(name.c_str());
        values.push_back(value.c_str());
    }
    names.push_back(nullptr);
    values.push_back(nullptr);
    connection_ = Pq().PQconnectStartParams(names.data(), values.data(), 0);
    if (connection_ != nullptr) Pq().PQsetErrorVerbosity(connection_, PQERRORS_VERBOSE);
    if (connection_ == nullptr || !Connected(connection_)) {
        const std::string message = connection_ == nullptr ? "no memory" : Pq().PQerrorMessage(connection_);
        Disconnect();
        const auto [state, text] = StateIn(message);
        if (!state.empty()) throw PostgresFailure(state, text);
        throw basic::Error(error::FileNotFound,
                           "The server of the books at '" + address.shown + "' could not be reached (" +
                               Phrase(message) + ").",
                           "ado.Engine");
    }
    if (address.isElsewhere && Pq().PQconnectionUsedPassword(connection_) != 0 &&
        Pq().PQsslInUse(connection_) == 0) {
        Disconnect();
        throw basic::Error(
            error::BadArgument,
            "A password would go to another machine without encryption: ask for it by sslmode.",
            "ado.Engine");
    }
    if (address.isElsewhere) GiveUpOnSilence(Pq().PQsocket(connection_));
    Pq().PQsetErrorVerbosity(connection_, PQERRORS_DEFAULT);
    Pq().PQsetNoticeProcessor(
        connection_, [](void*, const char*) {}, nullptr);
    Pq().PQenterPipelineMode(connection_);
    KeepCancel(Pq().PQgetCancel(connection_));
}

void Flight::KeepCancel(PGcancel* cancel) {
    const std::lock_guard lock(guard_);
    if (cancel_ != nullptr) Pq().PQfreeCancel(cancel_);
    cancel_ = cancel;
}

void Flight::Cancel() {
    const std::lock_guard lock(guard_);
    std::array<char, 256> reason{};  // nobody asks for it: what cannot be cancelled goes on
    if (cancel_ != nullptr) Pq().PQcancel(cancel_, reason.data(), static_cast<int>(reason.size()));
}

void Flight::Disconnect() noexcept {
    if (connection_ != nullptr) {
        KeepCancel(nullptr);
        Pq().PQfinish(std::exchange(connection_, nullptr));
    }
    byKey_.clear();
    names_.clear();
    unused_.clear();
    queue_.clear();
    namedBytes_ = added_ = 0;
    out_ = false;
    failedAt_ = None;
    failure_.reset();
}

bool Flight::IsUp() const {
    return connection_ != nullptr && Pq().PQstatus(connection_) == CONNECTION_OK;
}

bool Flight::InTransaction() const {
    if (!IsUp()) return false;
    const PGTransactionStatusType status = Pq().PQtransactionStatus(connection_);
    return status == PQTRANS_INTRANS || status == PQTRANS_INERROR;
}

// The first look may find the server's last words, the second that nothing follows.
bool Flight::IsStillUp() {
    for (int look = 0; look < 2; ++look)
        if (!IsUp() || Pq().PQconsumeInput(connection_) == 0) return false;
    return IsUp();
}

basic::Error Flight::Lost() const {
    return PostgresFailure({}, connection_ == nullptr ? "" : Pq().PQerrorMessage(connection_));
}

void Flight::Check(int sent) {
    if (sent == 0) throw Lost();
}

// A statement is prepared at its first use with parameters of these types, in the packet that runs it.
std::string Flight::NameOf(const std::string& sql, const ServerValues& values) {
    std::string key = sql;
    for (const ServerValue& value : values) key.append("\n").append(std::to_string(value.type));
    if (const auto found = byKey_.find(key); found != byKey_.end()) {
        names_.splice(names_.begin(), names_, found->second);
        return found->second->name;
    }
    const std::string name = "q" + std::to_string(++lastName_);
    std::vector<Oid> types;
    for (const ServerValue& value : values) types.push_back(value.type);
    Check(Pq().PQsendPrepare(connection_, name.c_str(), sql.c_str(), static_cast<int>(types.size()),
                             types.data()));
    Queue(key, false);
    namedBytes_ += key.size();
    names_.push_front({std::move(key), name});
    byKey_.emplace(names_.front().key, names_.begin());
    while (namedBytes_ > MostNamedBytes && names_.size() > 1) {
        unused_.push_back(names_.back().name);
        Forget(names_.back().key);
    }
    return name;
}

void Flight::Forget(const std::string& key) {
    const auto found = byKey_.find(key);
    if (found == byKey_.end()) return;
    const auto named = found->second;
    namedBytes_ -= named->key.size();
    byKey_.erase(found);
    names_.erase(named);
}

void Flight::DropUnused() {
    for (const std::string& name : std::exchange(unused_, {})) {
        const std::string sql = "DEALLOCATE " + name;
        Check(Pq().PQsendQueryParams(connection_, sql.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 1));
        Queue({}, false);
        ++added_;
    }
}

void Flight::Queue(std::string prepares, bool main) {
    queue_.push_back({std::move(prepares), main, added_});
}

void Flight::Add(const std::string& sql, const ServerValues& values, bool main) {
    if (connection_ == nullptr) throw Lost();
    if (queue_.empty()) {
        failure_.reset();
        failedAt_ = None;
    }
    const std::string name = NameOf(sql, values);
    std::vector<const char*> bytes;
    std::vector<int> lengths, formats(values.size(), 1);
    for (const ServerValue& value : values) {
        bytes.push_back(value.type == 0 ? nullptr : value.bytes.data());
        lengths.push_back(static_cast<int>(value.bytes.size()));
    }
    Check(Pq().PQsendQueryPrepared(connection_, name.c_str(), static_cast<int>(values.size()), bytes.data(),
                                   lengths.data(), formats.data(), 1));
    Queue({}, main);
    ++added_;
}

void Flight::Send() {
    Check(Pq().PQpipelineSync(connection_));
    out_ = true;
    if (!queue_.empty() && queue_.front().main) Pq().PQsetSingleRowMode(connection_);
}

// Behind each statement's results comes an empty one; behind the last statement that of the packet's end.
Flight::Row Flight::Next() {
    while (out_) {
        Row result(Pq().PQgetResult(connection_));
        if (!result) {
            if (!IsUp() || queue_.empty())
                Fail(Lost(), None), End();
            else
                Turn();
            continue;
        }
        if (Pq().PQresultStatus(result.get()) == PGRES_SINGLE_TUPLE) return result;
        Take(*result);
    }
    if (failure_) throw *std::exchange(failure_, std::nullopt);
    return nullptr;
}

void Flight::Turn() {
    if (!queue_.empty()) queue_.pop_front();
    if (!queue_.empty() && queue_.front().main) Pq().PQsetSingleRowMode(connection_);
}

void Flight::Take(const PGresult& result) {
    const Queued now = queue_.empty() ? Queued() : queue_.front();
    switch (Pq().PQresultStatus(&result)) {
        case PGRES_PIPELINE_SYNC:
            End();
            return;
        case PGRES_FATAL_ERROR:
            Fail(FailureOf(result), now.place);
            [[fallthrough]];
        case PGRES_PIPELINE_ABORTED:
            if (!now.prepares.empty()) Forget(now.prepares);
            return;
        default:
            break;
    }
    if (!now.main) return;
    const std::string_view count = Pq().PQcmdTuples(const_cast<PGresult*>(&result));
    matched_ = 0;
    std::from_chars(count.data(), count.data() + count.size(), matched_);
}

void Flight::Fail(basic::Error failure, std::size_t at) {
    if (failure_) return;
    failure_ = std::move(failure);
    failedAt_ = at;
}

void Flight::End() {
    queue_.clear();
    added_ = 0;
    out_ = false;
}

void Flight::Finish() {
    while (Next()) {
    }
}

void Flight::Run(const std::vector<std::string>& statements) {
    for (const std::string& statement : statements) Add(statement);
    Send();
    Finish();
}

void Flight::Script(const std::string& sql) {
    if (connection_ == nullptr) throw Lost();
    Pq().PQexitPipelineMode(connection_);
    const Row result(Pq().PQexec(connection_, sql.c_str()));
    Pq().PQenterPipelineMode(connection_);
    if (!result || Pq().PQresultStatus(result.get()) == PGRES_FATAL_ERROR)
        throw result ? FailureOf(*result) : Lost();
}

bool Flight::Notified() {
    if (Pq().PQconsumeInput(connection_) == 0) throw Lost();
    bool byOthers = false;
    while (PGnotify* came = Pq().PQnotifies(connection_)) {
        byOthers = byOthers || came->be_pid != Pq().PQbackendPID(connection_);
        Pq().PQfreemem(came);
    }
    return byOthers;
}

}  // namespace ado
