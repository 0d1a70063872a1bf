#pragma once

#include <chrono>
#include <memory>

namespace test {

// Ends a hung test: after the time it prints the stack of the thread that made it and aborts the process.
class Watchdog {
  public:
    explicit Watchdog(std::chrono::seconds patience);
    ~Watchdog();

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace test
