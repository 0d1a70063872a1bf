#include <new>
#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

#include "platform/com/Bstr.h"
#include "platform/com/ErrorInfo.h"

namespace {

// Takes the thread's error object and gives "source: description", or "none".
std::string TakeError() {
    IErrorInfo* info = nullptr;
    if (GetErrorInfo(0, &info) != S_OK) return "none";
    BSTR source = nullptr, description = nullptr;
    info->GetSource(&source);
    info->GetDescription(&description);
    info->Release();
    const std::string both = com::TextOf(source) + ": " + com::TextOf(description);
    SysFreeString(source);
    SysFreeString(description);
    return both;
}

TEST(ErrorInfo, NumbersBecomeResults) {
    EXPECT_EQ(com::ResultOf(91), AsResult(0x800A005B));
    EXPECT_EQ(com::ResultOf(65535), AsResult(0x800AFFFF));
    EXPECT_EQ(com::ResultOf(-2147217900), AsResult(0x80040E14));
    EXPECT_EQ(com::ResultOf(0), E_FAIL);
    EXPECT_EQ(com::ResultOf(65536), E_FAIL);
}

TEST(ErrorInfo, NoExceptionPassesTheGuard) {
    EXPECT_EQ(com::Guarded([] { throw basic::Error(94, "Invalid use of Null", "ado.Field"); }),
              AsResult(0x800A005E));
    EXPECT_EQ(TakeError(), "ado.Field: Invalid use of Null");
    EXPECT_EQ(TakeError(), "none") << "taking it hands it over";
    EXPECT_EQ(com::Guarded([] { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_EQ(com::Guarded([] { throw std::runtime_error("lost"); }), E_FAIL);
    EXPECT_EQ(TakeError(), ": lost");
    EXPECT_EQ(com::Guarded([] { throw 1; }), E_UNEXPECTED);
    EXPECT_EQ(com::Guarded([] { com::Required<int>(nullptr) = 1; }), E_POINTER);
    EXPECT_EQ(com::Guarded([] {}), S_OK);
    EXPECT_EQ(TakeError(), "none") << "a call that succeeds leaves no older failure behind";
}

TEST(ErrorInfo, EachThreadHasItsOwn) {
    com::Guarded([] { basic::Raise(basic::error::Overflow); });
    std::thread([] {
        EXPECT_EQ(TakeError(), "none");
        com::Guarded([] { basic::Raise(basic::error::Subscript); });  // left to the thread's end to free
    }).join();
    EXPECT_EQ(TakeError(), "basic: Overflow");
}

}  // namespace
