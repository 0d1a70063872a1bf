#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ado/store/Engine.h"
#include "platform/basic/Error.h"

struct sqlite3;

namespace ado {

// One connection of the database library to one encrypted file. Statements are the library's own. Raises
// basic::Error with a number of ado::error.
class SqlHandle {
  public:
    SqlHandle() = default;
    SqlHandle(const SqlHandle&) = delete;
    SqlHandle& operator=(const SqlHandle&) = delete;
    ~SqlHandle() { Close(); }

    void Open(const std::string& path);         // the file must stand: it is never made
    void GiveKey(const std::string& password);  // the library takes any key: the first page read tells
    void Close() noexcept;

    std::unique_ptr<EngineStatement> Prepare(const std::string& sql);
    void Run(const std::string& sql);
    void RunAgain(std::string_view sql);      // the same, for what comes with each write: stays prepared
    std::string Ask(const std::string& sql);  // the first value of the first row as text, else ""
    [[noreturn]] void Fail();                 // the library's last failure

    sqlite3* Get() const { return store_; }
    std::optional<basic::Error>& Raised() { return raised_; }

  private:
    static int WaitForOthers(void* handle, int looks);

    sqlite3* store_ = nullptr;
    std::map<std::string, std::unique_ptr<EngineStatement>, std::less<>> kept_;  // for RunAgain
    std::chrono::steady_clock::time_point waitingSince_;                         // for another program's lock
    std::optional<basic::Error> raised_;  // by a function of ours, on its way out through the library
};

}  // namespace ado
