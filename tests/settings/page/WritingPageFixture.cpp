#include "WritingPageFixture.h"

namespace {

constexpr wchar_t settingsKey[] = L"Software\\Lumarkscribe\\Mirovelcom";

std::wstring keyOf(const wchar_t* group)
{
    return std::wstring(settingsKey) + L"\\" + group;
}

} // namespace

WritingPageFixture::WritingPageFixture()
{
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, settingsKey);
}

WritingPageFixture::~WritingPageFixture()
{
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, settingsKey);
}

void WritingPageFixture::storeForAll(const wchar_t* group, const wchar_t* name, const std::wstring& text)
{
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, keyOf(group).c_str(), name, REG_SZ, text.c_str(),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

void WritingPageFixture::storeForAll(const wchar_t* group, const wchar_t* name, DWORD number)
{
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, keyOf(group).c_str(), name, REG_DWORD, &number, sizeof number);
}

void WritingPageFixture::enters(HWND page, int row, const wchar_t* text)
{
    if (!isOwn(page, row))
        toggles(page, row);
    SetDlgItemTextW(page, row + fieldPart, text);
}

void WritingPageFixture::chooses(HWND page, int row, int choice)
{
    if (!isOwn(page, row))
        toggles(page, row);
    const HWND list = GetDlgItem(page, row + fieldPart);
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(choice), 0);
    SendMessageW(page, WM_COMMAND, MAKEWPARAM(row + fieldPart, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
}
