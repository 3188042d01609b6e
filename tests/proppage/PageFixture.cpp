#include "PageFixture.h"

#include "Hresult.h"

#include <IDocument.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace {

constexpr wchar_t settingsKey[] = L"Software\\Lumarkscribe\\Mirovelcom";

std::wstring keyOf(const wchar_t* group)
{
    return std::wstring(settingsKey) + L"\\" + group;
}

void check(HRESULT result)
{
    if (FAILED(result))
        throw _com_error(result);
}

} // namespace

PageFixture::PageFixture()
{
    check(OleInitialize(nullptr));
    RegDeleteTreeW(HKEY_CURRENT_USER, settingsKey);
    folder = (std::filesystem::temp_directory_path() / (L"page-" + std::to_wstring(GetCurrentProcessId())))
                 .wstring();
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
}

PageFixture::~PageFixture()
{
    EXPECT_THAT(server.canUnloadNow(), isHresult(S_OK));
    OleUninitialize();
    std::error_code ignored;
    // The system's open-file dialog leaves the process in the folder it has shown.
    std::filesystem::current_path(std::filesystem::temp_directory_path(), ignored);
    std::filesystem::remove_all(folder, ignored);
}

IPropertyPagePtr PageFixture::newPage() const
{
    IClassFactory* factory = nullptr;
    check(server.getClassObject(CLSID_MirovelComPage, IID_IClassFactory, reinterpret_cast<void**>(&factory)));
    IPropertyPagePtr page;
    const HRESULT result =
        factory->CreateInstance(nullptr, IID_IPropertyPage, reinterpret_cast<void**>(&page));
    factory->Release();
    check(result);
    return page;
}

std::wstring PageFixture::stored(const wchar_t* group, const wchar_t* name)
{
    DWORD number = 0;
    DWORD size = sizeof number;
    if (RegGetValueW(HKEY_CURRENT_USER, keyOf(group).c_str(), name, RRF_RT_REG_DWORD, nullptr, &number,
                     &size) == ERROR_SUCCESS)
        return L"number " + std::to_wstring(number);
    wchar_t text[1024];
    size = sizeof text;
    if (RegGetValueW(HKEY_CURRENT_USER, keyOf(group).c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size) ==
        ERROR_SUCCESS)
        return text;
    return L"(none)";
}

void PageFixture::store(const wchar_t* group, const wchar_t* name, const std::wstring& text)
{
    RegSetKeyValueW(HKEY_CURRENT_USER, keyOf(group).c_str(), name, REG_SZ, text.c_str(),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

void PageFixture::store(const wchar_t* group, const wchar_t* name, DWORD number)
{
    RegSetKeyValueW(HKEY_CURRENT_USER, keyOf(group).c_str(), name, REG_DWORD, &number, sizeof number);
}

std::wstring PageFixture::newFile(const std::wstring& name) const
{
    const std::filesystem::path path = std::filesystem::path(folder) / name;
    std::ofstream(path) << "{\\rtf1}";
    return path.wstring();
}
