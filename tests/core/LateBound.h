#pragma once

#include <string>
#include <vector>

#include "platform/basic/Error.h"
#include "platform/basic/Text.h"
#include "platform/com/Bstr.h"
#include "platform/com/Lifetime.h"
#include "platform/com/Variant.h"

namespace test {

// An object as a late-bound host sees it: by names. Failures are thrown with their HRESULT.
class LateBound {
  public:
    explicit LateBound(IDispatch* owned) : object_(owned) {}

    basic::Value Get(const char* name, const std::vector<basic::Value>& arguments = {},
                     const std::vector<const char*>& named = {}) const {
        com::Variant result;
        Call(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments, named, result);
        return com::ValueOf(result);
    }
    // The whole result; `extra`, where it is given, is one more argument behind the others, as it stands.
    void Whole(const char* name, const std::vector<basic::Value>& arguments, VARIANT& result,
               const VARIANT* extra = nullptr) const {
        Call(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments, {}, result, extra);
    }
    LateBound Object(const char* name, const std::vector<basic::Value>& arguments = {}) const {
        com::Variant result;
        Call(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments, {}, result);
        result.vt = VT_EMPTY;
        return LateBound(result.pdispVal);
    }
    void Let(const char* name, const basic::Value& value) const {
        com::Variant none;
        Call(name, DISPATCH_PROPERTYPUT, {value}, {}, none);
    }
    // The HRESULT of a call, in the low half the classic number: 0 if it succeeds.
    HRESULT ResultOf(const char* name, const std::vector<basic::Value>& arguments = {}) const {
        try {
            Get(name, arguments);
            return S_OK;
        } catch (const basic::Error& error) {
            return error.Number;
        }
    }
    IDispatch* Raw() const { return object_.Get(); }

  private:
    // The last arguments are the named ones.
    void Call(const char* name, std::uint16_t flags, const std::vector<basic::Value>& arguments,
              const std::vector<const char*>& named, VARIANT& result, const VARIANT* extra = nullptr) const {
        std::vector<com::Variant> values(arguments.size());
        for (std::size_t i = 0; i < values.size(); ++i)
            com::Store(arguments[arguments.size() - 1 - i], values[i]);
        std::vector<VARIANT> plain(values.begin(), values.end());
        if (extra != nullptr) plain.insert(plain.begin(), *extra);
        std::vector<DISPID> ids = Ids(name, named);
        const DISPID own = ids.front();
        ids.erase(ids.begin());
        if (flags == DISPATCH_PROPERTYPUT) ids = {DISPID_PROPERTYPUT};
        DISPPARAMS parameters{plain.data(), ids.data(), static_cast<std::uint32_t>(plain.size()),
                              static_cast<std::uint32_t>(ids.size())};
        EXCEPINFO failure{};
        Check(object_->Invoke(own, IID_NULL, 0, flags, &parameters, &result, &failure, nullptr), failure);
    }
    // The member's, and those of the named arguments in the order of DISPPARAMS.
    std::vector<DISPID> Ids(const char* name, const std::vector<const char*>& named) const {
        std::vector<std::u16string> texts{basic::ToUtf16(name)};
        for (auto argument = named.rbegin(); argument != named.rend(); ++argument)
            texts.push_back(basic::ToUtf16(*argument));
        std::vector<char16_t*> names;
        for (auto& text : texts) names.push_back(text.data());
        std::vector<DISPID> ids(names.size());
        Check(object_->GetIDsOfNames(IID_NULL, names.data(), static_cast<std::uint32_t>(names.size()), 0,
                                     ids.data()),
              {});
        return ids;
    }
    static void Check(HRESULT result, const EXCEPINFO& failure) {
        const std::string source = com::TextOf(failure.bstrSource),
                          text = com::TextOf(failure.bstrDescription);
        SysFreeString(failure.bstrSource);
        SysFreeString(failure.bstrDescription);
        if (FAILED(result))
            throw basic::Error(result == DISP_E_EXCEPTION ? failure.scode : result, text, source);
    }

    com::Ptr<IDispatch> object_;
};

}  // namespace test
