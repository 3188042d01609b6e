#include "ExceptionTranslation.h"

#include "ComPointers.h"

#include <comdef.h>

#include <exception>
#include <new>
#include <string>

namespace {

struct Failure
{
    HRESULT code;
    BSTR text; // Owned by whoever asked; null without memory.
};

BSTR systemText(HRESULT code)
{
    return SysAllocString(_com_error(code).ErrorMessage());
}

BSTR wideText(const char* text)
{
    const int length = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), length);
    return SysAllocString(wide.c_str());
}

HRESULT currentCode() noexcept
try {
    throw;
} catch (const _com_error& e) {
    // A _com_error that carries a success code would tell the caller that all went well.
    return FAILED(e.Error()) ? e.Error() : E_UNEXPECTED;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
} catch (const std::exception&) {
    return E_FAIL;
} catch (...) {
    return E_UNEXPECTED;
}

BSTR currentText(HRESULT code)
try {
    throw;
} catch (const _com_error& e) {
    return SysAllocString(e.ErrorMessage());
} catch (const std::bad_alloc&) {
    return systemText(code);
} catch (const std::exception& e) {
    return wideText(e.what());
} catch (...) {
    return systemText(code);
}

Failure currentFailure() noexcept
{
    const HRESULT code = currentCode();
    try {
        return {code, currentText(code)};
    } catch (...) {
        return {code, nullptr};
    }
}

} // namespace

HRESULT currentExceptionToHresult() noexcept
{
    return currentCode();
}

HRESULT currentExceptionToExcepInfo(EXCEPINFO* info, const wchar_t* source) noexcept
{
    if (info == nullptr)
        return DISP_E_EXCEPTION;
    const Failure failure = currentFailure();
    *info = {};
    info->scode = failure.code;
    info->bstrDescription = failure.text;
    info->bstrSource = SysAllocString(source);
    return DISP_E_EXCEPTION;
}

HRESULT currentExceptionToErrorObject(REFIID interfaceId, const wchar_t* source) noexcept
{
    const Failure failure = currentFailure();
    ICreateErrorInfoPtr making;
    IErrorInfoPtr made;
    // Without an error object the code must do.
    if (SUCCEEDED(CreateErrorInfo(&making)) &&
        SUCCEEDED(making->QueryInterface(__uuidof(IErrorInfo), reinterpret_cast<void**>(&made)))) {
        making->SetGUID(interfaceId);
        making->SetSource(const_cast<LPOLESTR>(source));
        making->SetDescription(failure.text);
        SetErrorInfo(0, made.GetInterfacePtr());
    }
    SysFreeString(failure.text);
    return failure.code;
}

void completeExcepInfo(EXCEPINFO& info, const wchar_t* source) noexcept
try {
    if (info.bstrSource == nullptr)
        info.bstrSource = SysAllocString(source);
    if (info.bstrDescription == nullptr)
        info.bstrDescription = systemText(info.scode);
} catch (...) {
    // Without memory the code must do.
}
