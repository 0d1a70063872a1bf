#include "platform/com/Dispatch.h"

#include <algorithm>
#include <string>

#include "platform/basic/Text.h"
#include "platform/com/ErrorInfo.h"
#include "platform/com/Variant.h"

namespace com {
namespace {

bool SameName(const char* name, const char16_t* asked) {
    return asked != nullptr && basic::EqualText(name, basic::FromUtf16(asked));
}

DISPID PositionOf(const std::vector<Parameter>& parameters, const char16_t* asked) {
    const auto found = std::ranges::find_if(
        parameters, [&](const Parameter& parameter) { return SameName(parameter.Name, asked); });
    return found == parameters.end() ? DISPID_UNKNOWN : static_cast<DISPID>(found - parameters.begin());
}

// One call of one member: sorts and converts the arguments, calls, hands out the result.
class CallOf {
  public:
    CallOf(const Member& member, const Request& request)
        : member_(member),
          request_(request),
          given_(member.Parameters.size()),
          converted_(member.Parameters.size()),
          data_(member.Parameters.size()) {}

    HRESULT Run(void* object) {
        if (HandsOn()) return RunOnDefaultOfResult(object);
        HRESULT outcome = Sort();
        for (std::size_t i = 0; i < given_.size() && SUCCEEDED(outcome); ++i) outcome = Take(i);
        if (FAILED(outcome)) return outcome;
        outcome = Call(object);
        if (SUCCEEDED(outcome) && request_.Result != nullptr)
            std::swap(*request_.Result, static_cast<VARIANT&>(result_));
        return outcome;
    }

  private:
    const DISPPARAMS& Arguments() const { return *request_.Arguments; }

    bool HandsOn() const {
        return member_.Parameters.empty() && member_.Result == VT_DISPATCH && Arguments().cArgs > 0;
    }

    HRESULT RunOnDefaultOfResult(void* object) {
        const HRESULT outcome = Call(object);
        if (FAILED(outcome)) return outcome;
        if (result_.vt != VT_DISPATCH || result_.pdispVal == nullptr) return DISP_E_MEMBERNOTFOUND;
        return result_.pdispVal->Invoke(DISPID_VALUE, request_.Reserved, request_.Locale, request_.Flags,
                                        request_.Arguments, request_.Result, request_.Failure,
                                        request_.BadArgument);
    }

    // Finds the argument for each parameter: those without a name stand last one first, behind the named
    // ones.
    HRESULT Sort() {
        const std::uint32_t positional = Arguments().cArgs - Arguments().cNamedArgs;
        if (positional > given_.size()) return DISP_E_BADPARAMCOUNT;
        for (std::uint32_t i = 0; i < positional; ++i)
            given_[i] = &Arguments().rgvarg[Arguments().cArgs - 1 - i];
        for (std::uint32_t i = 0; i < Arguments().cNamedArgs; ++i) {
            const DISPID id = Arguments().rgdispidNamedArgs[i];
            const std::size_t position =
                id == DISPID_PROPERTYPUT ? given_.size() - 1 : static_cast<std::size_t>(id);
            if (position >= given_.size() || given_[position] != nullptr)
                return Bad(&Arguments().rgvarg[i], DISP_E_PARAMNOTFOUND);
            given_[position] = &Arguments().rgvarg[i];
        }
        return S_OK;
    }

    HRESULT Take(std::size_t i) {
        const Parameter& parameter = member_.Parameters[i];
        data_[i] = parameter.Type == VT_VARIANT ? static_cast<void*>(&converted_[i]) : &converted_[i].lVal;
        const VARIANT* given = given_[i];
        if (given == nullptr) return parameter.Optional ? S_OK : DISP_E_BADPARAMCOUNT;
        try {
            if (IsMissing(Target(*given)))
                return parameter.Optional ? S_OK : Bad(given, DISP_E_PARAMNOTOPTIONAL);
            Take(parameter.Type, Target(*given), i);
            return S_OK;
        } catch (const basic::Error& error) {
            return Bad(given, error.Number == basic::error::Overflow ? DISP_E_OVERFLOW : DISP_E_TYPEMISMATCH);
        }
    }

    void Take(VARTYPE type, const VARIANT& value, std::size_t i) {
        if ((value.vt & VT_BYREF) != 0 && value.byref == nullptr)
            basic::Raise(basic::error::TypeMismatch, "com");
        if (type == VT_VARIANT)
            data_[i] = const_cast<VARIANT*>(&value);
        else if (value.vt == (type | VT_BYREF))
            data_[i] = value.byref;
        else
            Convert(value, type, converted_[i]);
    }

    HRESULT Bad(const VARIANT* argument, HRESULT outcome) {
        if (request_.BadArgument != nullptr)
            *request_.BadArgument = static_cast<std::uint32_t>(argument - Arguments().rgvarg);
        return outcome;
    }

    HRESULT Call(void* object) {
        const bool whole = member_.Result == VT_VARIANT;
        if (!whole) result_.vt = member_.Result;
        data_.push_back(whole ? static_cast<void*>(&result_) : &result_.lVal);
        const HRESULT outcome = Guarded([&] { return member_.Call(object, data_.data()); });
        if (SUCCEEDED(outcome)) return outcome;
        Describe(outcome, request_.Failure);
        return DISP_E_EXCEPTION;
    }

    const Member& member_;
    const Request& request_;
    std::vector<const VARIANT*> given_;
    std::vector<Variant> converted_;
    std::vector<void*> data_;
    Variant result_;
};

}  // namespace

HRESULT FindNames(Members members, char16_t** names, std::uint32_t count, DISPID* ids) noexcept {
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    return Guarded([&] {
        std::fill_n(ids, count, DISPID_UNKNOWN);
        const auto member = std::ranges::find_if(
            members, [&](const Member& candidate) { return SameName(candidate.Name, names[0]); });
        if (member == members.end()) return DISP_E_UNKNOWNNAME;
        ids[0] = member->Id;
        for (std::uint32_t i = 1; i < count; ++i) ids[i] = PositionOf(member->Parameters, names[i]);
        return std::find(ids + 1, ids + count, DISPID_UNKNOWN) == ids + count ? S_OK : DISP_E_UNKNOWNNAME;
    });
}

HRESULT Invoke(Members members, void* object, const Request& request) noexcept {
    if (request.Result != nullptr) VariantInit(request.Result);
    if (!(request.Reserved == IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (request.Arguments == nullptr || request.Arguments->cNamedArgs > request.Arguments->cArgs)
        return E_INVALIDARG;
    const auto member = std::ranges::find_if(members, [&](const Member& candidate) {
        return candidate.Id == request.Id && (candidate.Flags & request.Flags) != 0;
    });
    if (member == members.end()) return DISP_E_MEMBERNOTFOUND;
    return Guarded([&] { return CallOf(*member, request).Run(object); });
}

}  // namespace com
