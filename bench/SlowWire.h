#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>

#include <sys/types.h>

namespace bench {

// A wire to a server on this machine, served by a child process, one connection at a time: whatever goes to
// the server is late by the same time, as it is by the distance there and back, and the trips are counted.
class SlowWire {
  public:
    explicit SlowWire(const std::string& server);  // a URI of a folder's socket, with "/" behind it
    ~SlowWire();
    SlowWire(const SlowWire&) = delete;
    SlowWire& operator=(const SlowWire&) = delete;

    std::string Uri() const;  // by which the server is reached over the wire, with "/" behind it
    void Delay(std::chrono::microseconds trip);
    std::int64_t Trips() const;  // so far

  private:
    struct Shared;
    void Serve(int client) const;

    const std::filesystem::path server_, folder_;
    Shared* const shared_;
    pid_t child_ = 0;
};

}  // namespace bench
