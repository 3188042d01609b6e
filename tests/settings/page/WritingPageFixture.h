#pragma once

#include "RegistryStore.h"
#include "WritingPage.h"
#include "WritingPageResources.h"

// Behind the settings' table, whose names its controls bear.
#include "PageFixture.h"

// The controls of the page, by the numbers that automation tools know them by.
inline constexpr int composition = composeRow;
inline constexpr int strict = strictRow;
inline constexpr int ownWord = ownInstanceRow;
inline constexpr int busyTime = busyTimeoutRow;
inline constexpr int diagnosticsFile = diagnosticsRow;
inline constexpr int tableStyle = tableStyleRow;
inline constexpr int contentsTitle = tocTitleRow;
inline constexpr std::array allRows = {composition,     strict,     ownWord,      busyTime,
                                       diagnosticsFile, tableStyle, contentsTitle};

/// The program's own page, with settings of user and machine that are empty at first.
class WritingPageFixture : public PageFixture
{
protected:
    WritingPageFixture();
    ~WritingPageFixture() override;

    static void storeForAll(const wchar_t* group, const wchar_t* name, const std::wstring& text);
    static void storeForAll(const wchar_t* group, const wchar_t* name, DWORD number);

    /// Of a page's window.
    static std::wstring field(HWND page, int row) { return textOf(GetDlgItem(page, row + fieldPart)); }
    static std::wstring machine(HWND page, int row) { return textOf(GetDlgItem(page, row + machinePart)); }
    static std::wstring note(HWND page, int row) { return textOf(GetDlgItem(page, row + notePart)); }
    static bool isOwn(HWND page, int row) { return IsDlgButtonChecked(page, row + isOwnPart) != 0; }
    static bool canEdit(HWND page, int row)
    {
        return IsWindowEnabled(GetDlgItem(page, row + fieldPart)) != FALSE;
    }
    /// As a click does.
    static void toggles(HWND page, int row) { SendDlgItemMessageW(page, row + isOwnPart, BM_CLICK, 0, 0); }
    static void enters(HWND page, int row, const wchar_t* text);
    static void chooses(HWND page, int row, int choice);

    RegistryStore registry;
    WritingPage writing{registry};
};
