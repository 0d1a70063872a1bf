#include "platform/com/ErrorInfo.h"

#include <new>

#include "platform/com/Bstr.h"
#include "platform/com/Lifetime.h"

namespace com {
namespace {

constexpr std::int32_t LastClassicNumber = 65535;

class ErrorInfo final : public IErrorInfo {
  public:
    ErrorInfo(std::string source, std::string description)
        : source_(std::move(source)), description_(std::move(description)) {}

    HRESULT QueryInterface(const IID& iid, void** object) override {
        return Offer<IErrorInfo>(this, iid, IID_IErrorInfo, object);
    }
    std::uint32_t AddRef() override { return references_.Add(); }
    std::uint32_t Release() override { return references_.Drop(this); }

    HRESULT GetGUID(GUID* iid) override {
        if (iid == nullptr) return E_POINTER;
        *iid = IID_NULL;
        return S_OK;
    }
    HRESULT GetSource(BSTR* source) override { return Give(source_, source); }
    HRESULT GetDescription(BSTR* description) override { return Give(description_, description); }
    HRESULT GetHelpFile(BSTR* file) override { return Give({}, file); }
    HRESULT GetHelpContext(std::uint32_t* context) override {
        if (context == nullptr) return E_POINTER;
        *context = 0;
        return S_OK;
    }

  private:
    static HRESULT Give(const std::string& text, BSTR* to) noexcept {
        if (to == nullptr) return E_POINTER;
        try {
            *to = MakeBstr(text);
            return S_OK;
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
    }

    std::string source_, description_;
    References references_;
};

// One error object for each thread.
struct Slot {
    IErrorInfo* held = nullptr;
    ~Slot() { Put(nullptr); }
    void Put(IErrorInfo* info) {
        if (info != nullptr) info->AddRef();
        if (held != nullptr) held->Release();
        held = info;
    }
};
thread_local Slot slot;

HRESULT Keep(HRESULT result, const std::string& source, const std::string& description) {
    auto* info = new ErrorInfo(source, description);
    slot.Put(info);
    info->Release();
    return result;
}

HRESULT KeepCurrent() {
    try {
        throw;
    } catch (const basic::Error& error) {
        return Keep(ResultOf(error.Number), error.Source, error.Description);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::exception& error) {
        return Keep(E_FAIL, {}, error.what());
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace

HRESULT ResultOf(std::int32_t number) {
    if (number < 0) return number;
    return number >= 1 && number <= LastClassicNumber ? FACILITY_CONTROL_ERROR | number : E_FAIL;
}

HRESULT Failure() noexcept {
    try {
        return KeepCurrent();
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

void Describe(HRESULT result, EXCEPINFO* failure) noexcept {
    if (failure == nullptr) return;
    *failure = EXCEPINFO{};
    failure->scode = result;
    IErrorInfo* info = nullptr;
    if (GetErrorInfo(0, &info) != S_OK) return;
    info->GetSource(&failure->bstrSource);
    info->GetDescription(&failure->bstrDescription);
    info->Release();
}

}  // namespace com

extern "C" {

HRESULT GetErrorInfo(std::uint32_t, IErrorInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = com::slot.held;
    com::slot.held = nullptr;
    return *info == nullptr ? S_FALSE : S_OK;
}

HRESULT SetErrorInfo(std::uint32_t, IErrorInfo* info) {
    com::slot.Put(info);
    return S_OK;
}

}  // extern "C"
