#pragma once

#include <atomic>
#include <utility>

#include "platform/com/Automation.h"

namespace com {

// Counts what keeps this library loaded: its objects, and the locks that hosts put on it.
class InUse {
  public:
    InUse() { ++count_; }
    ~InUse() { --count_; }
    InUse(const InUse&) = delete;
    InUse& operator=(const InUse&) = delete;

    static void Lock() { ++count_; }
    static void Unlock() { --count_; }
    static bool Any() { return count_ != 0; }

  private:
    static inline std::atomic<long> count_{0};
};

// The reference count of one object, 1 when it is made.
class References {
  public:
    std::uint32_t Add() { return ++count_; }
    // Deletes the owner with the last reference.
    template <class Owner>
    std::uint32_t Drop(Owner* owner) {
        const std::uint32_t left = --count_;
        if (left == 0) delete owner;
        return left;
    }

  private:
    std::atomic<std::uint32_t> count_{1};
};

// The answer to QueryInterface of an object with one interface beside IUnknown.
template <class Interface>
HRESULT Offer(Interface* self, const IID& asked, const IID& own, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = asked == own || asked == IID_IUnknown ? self : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    self->AddRef();
    return S_OK;
}

// Holds one reference.
template <class Interface>
class Ptr {
  public:
    Ptr() = default;
    explicit Ptr(Interface* owned) : held_(owned) {}  // takes over the reference
    Ptr(Ptr&& other) noexcept : held_(std::exchange(other.held_, nullptr)) {}
    Ptr& operator=(Ptr&& other) noexcept {
        std::swap(held_, other.held_);
        return *this;
    }
    ~Ptr() {
        if (held_ != nullptr) held_->Release();
    }

    Interface* operator->() const { return held_; }
    Interface* Get() const { return held_; }

  private:
    Interface* held_ = nullptr;
};

}  // namespace com
