#include "DispatchCall.h"

#include "ComPointers.h"
#include "ExceptionTranslation.h"

#include <comdef.h>

#include <utility>
#include <vector>

namespace {

/// Says why a request cannot be carried out; it never got as far as the method.
struct BadRequest
{
    HRESULT code;
    UINT argument = 0; // Its index in the request.
};

/// The description of a method in its type information.
class Method
{
public:
    /// Looks `member` up; false if there is no method of that number.
    /// (ITypeInfo2::GetFuncIndexOfMemId is no help: in Wine its index and GetFuncDesc's count differently.)
    Method(ITypeInfo& typeInfo, DISPID member) : typeInfo_(&typeInfo)
    {
        for (UINT index = 0; SUCCEEDED(typeInfo_->GetFuncDesc(index, &description_)); ++index) {
            if (description_->memid == member && description_->invkind == INVOKE_FUNC)
                return;
            release();
        }
        description_ = nullptr;
    }

    ~Method() { release(); }

    Method(const Method&) = delete;
    Method& operator=(const Method&) = delete;

    explicit operator bool() const noexcept { return description_ != nullptr; }

    UINT parameterCount() const noexcept { return static_cast<UINT>(description_->cParams); }

    bool isOut(UINT index) const noexcept
    {
        return (parameter(index).paramdesc.wParamFlags & PARAMFLAG_FOUT) != 0 && type(index) == VT_PTR;
    }

    /// The type of the variable that an out-parameter points to.
    VARTYPE outType(UINT index) const noexcept { return parameter(index).tdesc.lptdesc->vt; }

    VARTYPE type(UINT index) const noexcept { return parameter(index).tdesc.vt; }

    /// The HRESULT that dual interfaces return is no value for the caller.
    bool hasResult() const noexcept
    {
        const VARTYPE returned = description_->elemdescFunc.tdesc.vt;
        return returned != VT_HRESULT && returned != VT_VOID;
    }

private:
    void release() noexcept
    {
        if (description_ != nullptr)
            typeInfo_->ReleaseFuncDesc(std::exchange(description_, nullptr));
    }

    const ELEMDESC& parameter(UINT index) const noexcept { return description_->lprgelemdescParam[index]; }

    ITypeInfoPtr typeInfo_;
    FUNCDESC* description_ = nullptr;
};

/// Types that an argument is converted to before the call; the others (objects, variants, arrays) travel as
/// they are.
bool isSimple(VARTYPE type) noexcept
{
    switch (type) {
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_BOOL:
    case VT_BSTR:
        return true;
    default:
        return false;
    }
}

bool isMissing(const VARIANT& argument) noexcept
{
    return argument.vt == VT_ERROR && argument.scode == DISP_E_PARAMNOTFOUND;
}

/// Follows a script's references to its variables.
VARIANT& dereferenced(VARIANT& argument) noexcept
{
    VARIANT* inner = &argument;
    while (inner->vt == (VT_BYREF | VT_VARIANT) && inner->pvarVal != nullptr)
        inner = inner->pvarVal;
    return *inner;
}

/// The arguments of one call as the method's own types, so that the system's Invoke has nothing to convert:
/// it makes no temporaries, which an exception thrown by the method would leave behind.
class CallArguments
{
public:
    CallArguments(const Method& method, const DispatchRequest& request)
        : method_(method), given_(assign(*request.arguments)), held_(method.parameterCount()),
          passed_(method.parameterCount())
    {
        for (UINT index = 0; index < method_.parameterCount(); ++index)
            passed(index) = method_.isOut(index) ? outArgument(index) : inArgument(index, request.locale);
    }

    DISPPARAMS parameters() noexcept
    {
        return {passed_.data(), nullptr, static_cast<UINT>(passed_.size()), 0};
    }

    /// Gives the script's variables what the out-parameters received.
    void storeResults()
    {
        for (UINT index = 0; index < method_.parameterCount(); ++index) {
            VARIANT* const variable = given_[index].variable;
            if (variable == nullptr)
                continue;
            _com_util::CheckError(VariantClear(variable));
            *variable = held_[index].Detach();
        }
    }

    /// The value of the last parameter, if it is one for results and was left away; else empty.
    VARIANT detachResult()
    {
        if (held_.empty() || !method_.isOut(lastIndex()) || given_.back().argument != nullptr)
            return _variant_t().Detach();
        return held_.back().Detach();
    }

private:
    /// What the request has for a parameter.
    struct Given
    {
        VARIANT* argument = nullptr;
        UINT index = 0;
        VARIANT* variable = nullptr; // Of an out-parameter, to be set after the call.
    };

    UINT lastIndex() const noexcept { return method_.parameterCount() - 1; }

    /// Arguments stand in reverse order.
    VARIANT& passed(UINT parameter) noexcept { return passed_[lastIndex() - parameter]; }

    /// Finds each parameter's argument: the named ones come first, the others follow from the last to the
    /// first.
    std::vector<Given> assign(const DISPPARAMS& arguments) const
    {
        if (arguments.cArgs > method_.parameterCount())
            throw BadRequest{DISP_E_BADPARAMCOUNT};
        std::vector<Given> given(method_.parameterCount());
        for (UINT index = 0; index < arguments.cArgs; ++index) {
            const UINT parameter = index < arguments.cNamedArgs
                                       ? static_cast<UINT>(arguments.rgdispidNamedArgs[index])
                                       : arguments.cArgs - 1 - index;
            if (parameter >= given.size() || given[parameter].argument != nullptr)
                throw BadRequest{DISP_E_PARAMNOTFOUND, index};
            if (!method_.isOut(parameter) || !isMissing(arguments.rgvarg[index]))
                given[parameter] = {&arguments.rgvarg[index], index, nullptr};
        }
        return given;
    }

    VARIANT inArgument(UINT parameter, LCID locale)
    {
        const Given& given = given_[parameter];
        if (given.argument == nullptr)
            throw BadRequest{DISP_E_BADPARAMCOUNT};
        VARIANT& argument = dereferenced(*given.argument);
        const VARTYPE wanted = method_.type(parameter);
        if (argument.vt == wanted || !isSimple(wanted))
            return argument;
        const HRESULT result = VariantChangeTypeEx(&held_[parameter], &argument, locale, 0, wanted);
        if (FAILED(result))
            throw BadRequest{result, given.index};
        return held_[parameter];
    }

    VARIANT outArgument(UINT parameter)
    {
        Given& given = given_[parameter];
        const VARTYPE wanted = method_.outType(parameter);
        if (given.argument == nullptr && parameter != lastIndex())
            throw BadRequest{DISP_E_BADPARAMCOUNT};
        if (given.argument != nullptr) {
            VARIANT& argument = dereferenced(*given.argument);
            if (argument.vt == (wanted | VT_BYREF))
                return argument;
            if (given.argument->vt != (VT_BYREF | VT_VARIANT) || (argument.vt & VT_BYREF) != 0)
                throw BadRequest{DISP_E_TYPEMISMATCH, given.index};
            given.variable = &argument;
        }
        VARIANT& storage = held_[parameter];
        if (wanted != VT_VARIANT)
            storage.vt = wanted;
        VARIANT reference;
        reference.vt = static_cast<VARTYPE>(wanted | VT_BYREF);
        reference.byref = wanted == VT_VARIANT ? static_cast<void*>(&storage) : &storage.byref;
        return reference;
    }

    const Method& method_;
    std::vector<Given> given_;
    std::vector<_variant_t> held_; // Converted values and the storage of results, by parameter.
    std::vector<VARIANT> passed_;  // What the call gets; owns nothing.
};

HRESULT call(ITypeInfo& typeInfo, void* object, const DispatchRequest& request)
try {
    const Method method(typeInfo, request.member);
    if (!method || (request.flags & DISPATCH_METHOD) == 0)
        return typeInfo.Invoke(object, request.member, request.flags, request.arguments, request.result,
                               request.exception, request.badArgument);

    CallArguments arguments(method, request);
    DISPPARAMS parameters = arguments.parameters();
    _variant_t returned;
    const HRESULT result = typeInfo.Invoke(object, request.member, DISPATCH_METHOD, &parameters, &returned,
                                           request.exception, request.badArgument);
    if (FAILED(result))
        return result;
    arguments.storeResults();
    VARIANT value = method.hasResult() ? returned.Detach() : arguments.detachResult();
    if (request.result != nullptr)
        *request.result = value;
    else
        VariantClear(&value);
    return result;
} catch (const BadRequest& bad) {
    if (request.badArgument != nullptr)
        *request.badArgument = bad.argument;
    return bad.code;
}

bool isWellFormed(const DISPPARAMS* arguments) noexcept
{
    return arguments != nullptr && (arguments->cArgs == 0 || arguments->rgvarg != nullptr) &&
           arguments->cNamedArgs <= arguments->cArgs &&
           (arguments->cNamedArgs == 0 || arguments->rgdispidNamedArgs != nullptr);
}

} // namespace

HRESULT callByTypeInfo(ITypeInfo& typeInfo, void* object, const DispatchRequest& request,
                       const wchar_t* source) noexcept
try {
    if (!isWellFormed(request.arguments))
        return E_INVALIDARG;
    if (request.result != nullptr)
        VariantInit(request.result);
    if (request.exception != nullptr)
        *request.exception = {};
    const HRESULT result = call(typeInfo, object, request);
    if (result == DISP_E_EXCEPTION && request.exception != nullptr)
        completeExcepInfo(*request.exception, source);
    return result;
} catch (...) {
    return currentExceptionToExcepInfo(request.exception, source);
}
