#include "Failure.h"

#include "WordError.h"

#include <new>
#include <string>

namespace standin {
namespace {
constexpr ULONG wordFacility = 0x800A0000;
constexpr DWORD helpContextOffset = 19480;

struct Creator
{
    ICreateErrorInfo* created = nullptr;
    ~Creator()
    {
        if (created)
            created->Release();
    }
};

void setErrorInformation(const std::string& text, long number, const IID& interfaceId)
{
    Creator creator;
    if (FAILED(CreateErrorInfo(&creator.created)))
        return;
    std::wstring description(text.begin(), text.end());
    std::wstring source = L"Microsoft Word";
    std::wstring help = L"wdmain9.chm";
    creator.created->SetGUID(interfaceId);
    creator.created->SetSource(source.data());
    creator.created->SetDescription(description.data());
    creator.created->SetHelpFile(help.data());
    creator.created->SetHelpContext(static_cast<DWORD>(number) + helpContextOffset);
    IErrorInfo* information = nullptr;
    if (SUCCEEDED(creator.created->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&information)))) {
        SetErrorInfo(0, information);
        information->Release();
    }
}
} // namespace

void leaveErrorInformation(HRESULT result, const IID& interfaceId) noexcept
try {
    SetErrorInfo(0, nullptr);
    if ((static_cast<ULONG>(result) & 0xFFFF0000) != wordFacility)
        return;
    const model::WordError error(static_cast<model::WordErrorNumber>(result & 0xFFFF));
    setErrorInformation(error.what(), result & 0xFFFF, interfaceId);
} catch (...) {
    SetErrorInfo(0, nullptr);
}

HRESULT translateCurrentException(const IID& interfaceId) noexcept
{
    SetErrorInfo(0, nullptr);
    try {
        throw;
    } catch (const model::WordError& error) {
        const auto number = static_cast<long>(error.number());
        setErrorInformation(error.what(), number, interfaceId);
        return static_cast<HRESULT>(error.code());
    } catch (const model::NotSupported&) {
        return E_NOTIMPL;
    } catch (const _com_error& error) {
        return error.Error();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}
} // namespace standin
