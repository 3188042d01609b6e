#pragma once

#include "PageContainer.h"
#include "ServerModule.h"
#include "User.h"

#include <gmock/gmock.h>

#include <comdef.h>

#include <string>

_COM_SMARTPTR_TYPEDEF(IPropertyPage, __uuidof(IPropertyPage));

// The controls, by the numbers that automation tools know them by.
inline constexpr int templateName = 401;
inline constexpr int browse = 402;
inline constexpr int tocEdit = 203;
inline constexpr int tocSpin = 205;

/// A page of the built DLL, empty settings and an empty folder. Every test ends with the DLL ready to be
/// unloaded.
class PageFixture : public testing::Test
{
protected:
    PageFixture();
    ~PageFixture() override;

    IPropertyPagePtr newPage() const;

    /// The user's settings. "(none)" for an absent value; an integer reads as "number 3".
    static std::wstring stored(const wchar_t* group, const wchar_t* name);
    static void store(const wchar_t* group, const wchar_t* name, const std::wstring& text);
    static void store(const wchar_t* group, const wchar_t* name, DWORD number);
    static std::wstring storedTemplate() { return stored(L"Word", L"WordTemplateName"); }
    static std::wstring storedLevel() { return stored(L"Word", L"TOCLevel"); }

    /// The path of a new file in the folder.
    std::wstring newFile(const std::wstring& name) const;

    ServerModule server;
    std::wstring folder;
};
