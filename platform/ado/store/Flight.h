#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/ado/store/Libpq.h"
#include "platform/ado/store/ServerAddress.h"
#include "platform/ado/store/ServerValue.h"
#include "platform/basic/Error.h"

namespace ado {

// One connection to a server. Statements go out in packets: all of a packet at once, and one answer for all.
// Outside BEGIN and COMMIT a packet is one transaction. The first failure ends it: what stands behind it does
// not run.
class Flight {
  public:
    using Row = std::unique_ptr<PGresult, FreeResult>;

    Flight() = default;
    Flight(const Flight&) = delete;
    Flight& operator=(const Flight&) = delete;
    ~Flight() { Disconnect(); }

    void Connect(const ServerAddress& address);  // raises what the server says, or that there is none
    void Disconnect() noexcept;
    bool IsUp() const;
    void Cancel();  // from any thread: the packet that is out fails with error::Cancelled, if one is
    bool InTransaction() const;  // as the last answer tells, one that failed included
    bool IsStillUp();            // the same, having looked whether the server hung up meanwhile

    // Puts in front what lets the server forget statements that went out of use. Not where a transaction has
    // failed.
    void DropUnused();
    // Puts one more statement into the packet. One of them may be the main one: its rows are handed out.
    void Add(const std::string& sql, const ServerValues& values = {}, bool main = false);
    void Send();
    bool IsOut() const { return out_; }  // a packet whose answer has not been read to its end
    // The next row of the main statement; null behind the last one, when the packet has come to its end.
    // Raises the packet's failure.
    Row Next();
    void Finish();                                // reads to the end, dropping rows
    std::size_t Added() const { return added_; }  // statements in the packet, so far
    // Which of the packet's statements failed, counted from 0; None for the connection itself.
    static constexpr std::size_t None = static_cast<std::size_t>(-1);
    std::size_t FailedAt() const { return failedAt_; }
    std::int64_t Matched() const { return matched_; }  // rows that the last main statement matched

    // A packet without a main statement.
    void Run(const std::vector<std::string>& statements);
    // Several statements in one text, without parameters; not within a packet.
    void Script(const std::string& sql);
    bool Notified();  // whether another connection's notification has come; takes all that came

  private:
    struct Named {
        std::string key, name;
    };
    struct Queued {
        std::string prepares;  // the key of the statement that is prepared
        bool main = false;
        std::size_t place = 0;  // which statement of the packet it belongs to
    };

    std::string NameOf(const std::string& sql, const ServerValues& values);
    void Forget(const std::string& key);
    void Enter();  // into a new packet
    void Check(int sent);
    void Take(const PGresult& result);
    void Turn();  // to the next statement of the packet
    void Queue(std::string prepares, bool main);
    void Fail(basic::Error failure, std::size_t at);
    void End();
    void KeepCancel(PGcancel* cancel);
    basic::Error Lost() const;

    PGconn* connection_ = nullptr;
    std::mutex guard_;            // of what follows
    PGcancel* cancel_ = nullptr;  // made with the connection, which another thread must not touch
    std::list<Named> names_;      // of prepared statements, the last used one first
    std::unordered_map<std::string_view, std::list<Named>::iterator> byKey_;
    std::size_t namedBytes_ = 0;
    std::int64_t lastName_ = 0;
    std::vector<std::string> unused_;  // names that the server may forget
    std::deque<Queued> queue_;
    bool out_ = false;
    std::size_t added_ = 0, failedAt_ = None;
    std::optional<basic::Error> failure_;
    std::int64_t matched_ = 0;
};

}  // namespace ado
