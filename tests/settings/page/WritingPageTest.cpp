// The program's own page as its container sees it.
#include "Hresult.h"
#include "ImportedFunction.h"
#include "WritingPageFixture.h"

#include <cstring>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WritingPageTest : public WritingPageFixture
{
protected:
    ~WritingPageTest() override { writing.SetPageSite(nullptr); }

    HWND shown()
    {
        container.show();
        return container.page();
    }

    PageContainer container{writing};
};

TEST_F(WritingPageTest, TellsItsTitleItsPurposeAndItsSize)
{
    PROPPAGEINFO info;
    std::memset(&info, 0xAB, sizeof info);
    ASSERT_THAT(writing.GetPageInfo(&info), isHresult(S_OK));
    EXPECT_EQ(info.cb, sizeof info);
    EXPECT_STREQ(info.pszTitle, L"Writing");
    EXPECT_STREQ(info.pszDocString, L"How documents are written");
    EXPECT_EQ(info.pszHelpFile, nullptr);
    EXPECT_EQ(info.dwHelpContext, 0u);
    CoTaskMemFree(info.pszTitle);
    CoTaskMemFree(info.pszDocString);
    RECT place{};
    GetWindowRect(shown(), &place);
    EXPECT_EQ(info.size.cx, place.right - place.left);
    EXPECT_EQ(info.size.cy, place.bottom - place.top);
    EXPECT_THAT(writing.GetPageInfo(nullptr), isHresult(E_POINTER));
}

TEST_F(WritingPageTest, ShowsTheDefaultsGreyedWhenNothingIsStored)
{
    const HWND page = shown();
    std::vector<std::wstring> fields;
    for (const int row : allRows) {
        fields.push_back(field(page, row));
        EXPECT_FALSE(isOwn(page, row)) << row;
        EXPECT_FALSE(canEdit(page, row)) << row;
        EXPECT_EQ(machine(page, row), L"") << row;
        EXPECT_TRUE(note(page, row).ends_with(L".")) << row;
    }
    EXPECT_THAT(fields, ElementsAre(L"Off", L"Off", L"Off", L"30", L"", L"", L"Table of Contents"));
    EXPECT_THAT(writing.IsPageDirty(), isHresult(S_FALSE));
    EXPECT_THAT(container.record(), IsEmpty());
    EXPECT_EQ(GetFocus(), GetDlgItem(page, composition + isOwnPart));
}

TEST_F(WritingPageTest, ShowsTheMachinesValueBesideTheUsers)
{
    storeForAll(L"Word", L"Compose", L"1"); // as the installer does
    storeForAll(L"Word", L"OwnInstance", L"1");
    storeForAll(L"Word", L"BusyTimeout", 60);
    storeForAll(L"Word", L"TOCTitle", L"");
    store(L"Word", L"Compose", 2);
    store(L"Word", L"BusyTimeout", L"soon");
    const HWND page = shown();
    EXPECT_TRUE(isOwn(page, composition));
    EXPECT_TRUE(canEdit(page, composition));
    EXPECT_EQ(field(page, composition), L"Fragments");
    EXPECT_EQ(machine(page, composition), L"All users: Typed calls");
    EXPECT_FALSE(isOwn(page, ownWord));
    EXPECT_EQ(field(page, ownWord), L"On");
    EXPECT_EQ(machine(page, ownWord), L"All users: On");
    EXPECT_EQ(field(page, busyTime), L"soon") << "shown even if it would be refused";
    EXPECT_EQ(machine(page, busyTime), L"All users: 60");
    EXPECT_EQ(machine(page, contentsTitle), L"All users: (empty)");
    for (const int row : allRows)
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(page, row + machinePart))) << "greyed";
}

TEST_F(WritingPageTest, StoresOnlyWhatWasChanged)
{
    storeForAll(L"Word", L"Strict", 1);
    store(L"Word", L"BusyTimeout", L"soon");
    const HWND page = shown();
    chooses(page, composition, 2);
    enters(page, diagnosticsFile, L"c:\\logs\\\u03b1.log");
    enters(page, tableStyle, L"Table Grid");
    EXPECT_THAT(writing.IsPageDirty(), isHresult(S_OK));
    EXPECT_THAT(writing.Apply(), isHresult(S_OK));
    EXPECT_THAT(writing.IsPageDirty(), isHresult(S_FALSE));
    EXPECT_EQ(stored(L"Word", L"Compose"), L"number 2");
    EXPECT_EQ(stored(L"Log", L"Diagnostics"), L"c:\\logs\\\u03b1.log");
    EXPECT_EQ(stored(L"Word", L"TableStyle"), L"Table Grid");
    EXPECT_EQ(stored(L"Word", L"BusyTimeout"), L"soon") << "not changed, so not judged";
    for (const wchar_t* name : {L"Strict", L"OwnInstance", L"TOCTitle"})
        EXPECT_EQ(stored(L"Word", name), L"(none)") << name;
    EXPECT_THAT(container.record(), ElementsAre("status 1", "status 0"));
}

TEST_F(WritingPageTest, GoesBackToWhatHoldsForAll)
{
    storeForAll(L"Word", L"BusyTimeout", 60);
    store(L"Word", L"BusyTimeout", 5);
    store(L"Word", L"Strict", 1);
    const HWND page = shown();
    toggles(page, busyTime);
    toggles(page, strict);
    EXPECT_EQ(field(page, busyTime), L"60");
    EXPECT_FALSE(canEdit(page, busyTime));
    EXPECT_EQ(field(page, strict), L"Off");
    EXPECT_THAT(writing.IsPageDirty(), isHresult(S_OK));
    EXPECT_EQ(stored(L"Word", L"BusyTimeout"), L"number 5") << "not before it is applied";
    EXPECT_THAT(writing.Apply(), isHresult(S_OK));
    EXPECT_EQ(stored(L"Word", L"BusyTimeout"), L"(none)");
    EXPECT_EQ(stored(L"Word", L"Strict"), L"(none)");
    EXPECT_FALSE(isOwn(page, busyTime));
}

TEST_F(WritingPageTest, StoresAValueThatIsAsForAllWhenTheUserWantsIt)
{
    storeForAll(L"Word", L"OwnInstance", 1);
    const HWND page = shown();
    toggles(page, ownWord);
    EXPECT_TRUE(canEdit(page, ownWord));
    EXPECT_THAT(writing.Apply(), isHresult(S_OK));
    EXPECT_EQ(stored(L"Word", L"OwnInstance"), L"number 1");
}

TEST_F(WritingPageTest, RefusesBesideTheFieldAndStoresNothing)
{
    const HWND page = shown();
    const std::wstring explanation = note(page, busyTime);
    chooses(page, strict, 1);
    enters(page, diagnosticsFile, L"a?.log");
    enters(page, busyTime, L"-1");
    EXPECT_THAT(writing.Apply(), isHresult(E_UNEXPECTED));
    EXPECT_EQ(note(page, busyTime),
              L"Not stored: a whole number of seconds is needed here, from 0 to 2147483647.");
    EXPECT_EQ(note(page, diagnosticsFile), L"Not stored: a file's name has none of < > \" | ? * in it.");
    EXPECT_EQ(GetFocus(), GetDlgItem(page, busyTime + fieldPart)) << "the first one that was refused";
    EXPECT_EQ(stored(L"Word", L"Strict"), L"(none)");
    EXPECT_THAT(writing.IsPageDirty(), isHresult(S_OK));

    SetDlgItemTextW(page, busyTime + fieldPart, L"0");
    EXPECT_EQ(note(page, busyTime), explanation) << "edited";
    toggles(page, diagnosticsFile);
    EXPECT_THAT(writing.Apply(), isHresult(S_OK));
    EXPECT_EQ(stored(L"Word", L"BusyTimeout"), L"number 0");
    EXPECT_EQ(stored(L"Word", L"Strict"), L"number 1");
}

TEST_F(WritingPageTest, DrawsARefusalInRed)
{
    const HWND page = shown();
    const auto colour = [&] {
        const HWND line = GetDlgItem(page, busyTime + notePart);
        const HDC context = GetDC(line);
        SendMessageW(page, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context),
                     reinterpret_cast<LPARAM>(line));
        const COLORREF found = GetTextColor(context);
        ReleaseDC(line, context);
        return found;
    };
    const COLORREF before = colour();
    EXPECT_NE(before, RGB(176, 0, 0));
    enters(page, busyTime, L"soon");
    EXPECT_THAT(writing.Apply(), isHresult(E_UNEXPECTED));
    EXPECT_EQ(colour(), RGB(176, 0, 0));
    SetDlgItemTextW(page, busyTime + fieldPart, L"1");
    EXPECT_EQ(colour(), before);
}

// A user who may not write some of his settings.
LSTATUS WINAPI refuseCompose(HKEY key, const wchar_t* name, DWORD reserved, DWORD type, const BYTE* data,
                             DWORD size)
{
    static const auto real = reinterpret_cast<decltype(&RegSetValueExW)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"advapi32.dll"), "RegSetValueExW")));
    return std::wcscmp(name, L"Compose") == 0 ? ERROR_ACCESS_DENIED
                                              : real(key, name, reserved, type, data, size);
}

LSTATUS WINAPI refuseToDelete(HKEY /*key*/, const wchar_t* /*name*/)
{
    return ERROR_ACCESS_DENIED;
}

TEST_F(WritingPageTest, TellsThatWindowsRefusesToStore)
{
    store(L"Word", L"Strict", 1);
    const HWND page = shown();
    chooses(page, composition, 1);
    toggles(page, strict);
    enters(page, diagnosticsFile, L"a.log");
    {
        const ImportedFunction set(GetModuleHandleW(nullptr), "RegSetValueExW", refuseCompose);
        const ImportedFunction deleted(GetModuleHandleW(nullptr), "RegDeleteValueW", refuseToDelete);
        EXPECT_THAT(writing.Apply(), isHresult(E_UNEXPECTED));
    }
    const std::wstring words =
        L"Not stored: Windows refuses it. " + std::wstring(_com_error(E_ACCESSDENIED).ErrorMessage());
    EXPECT_EQ(note(page, composition), words);
    EXPECT_EQ(note(page, strict), words);
    EXPECT_FALSE(note(page, diagnosticsFile).starts_with(L"Not stored"));
    EXPECT_EQ(stored(L"Log", L"Diagnostics"), L"a.log") << "what it may be is stored";
    EXPECT_EQ(GetFocus(), GetDlgItem(page, composition + fieldPart));
    EXPECT_THAT(writing.IsPageDirty(), isHresult(S_OK));
    EXPECT_THAT(writing.Apply(), isHresult(S_OK)) << "now he may";
    EXPECT_EQ(stored(L"Word", L"Compose"), L"number 1");
    EXPECT_EQ(stored(L"Word", L"Strict"), L"(none)");
    EXPECT_FALSE(note(page, composition).starts_with(L"Not stored"));
}

TEST_F(WritingPageTest, KeepsWhatIsEnteredWhenItIsHiddenAndForgetsItWhenItIsDeactivated)
{
    HWND page = shown();
    enters(page, busyTime, L"3");
    EXPECT_THAT(writing.Show(SW_HIDE), isHresult(S_OK));
    EXPECT_FALSE(IsWindowVisible(page));
    EXPECT_THAT(writing.Show(SW_SHOW), isHresult(S_OK));
    EXPECT_EQ(field(page, busyTime), L"3");
    EXPECT_THAT(writing.Deactivate(), isHresult(S_OK));
    EXPECT_EQ(container.page(), nullptr);
    writing.SetPageSite(nullptr);
    page = shown();
    EXPECT_EQ(field(page, busyTime), L"30");
    EXPECT_THAT(writing.IsPageDirty(), isHresult(S_FALSE));
}

TEST_F(WritingPageTest, StoresNothingUnlessItWasShown)
{
    const RECT place{0, 0, 400, 200};
    ASSERT_THAT(writing.Activate(container.window(), &place, FALSE), isHresult(S_OK));
    EXPECT_THAT(writing.Apply(), isHresult(S_OK));
    for (const wchar_t* name : {L"Compose", L"Strict", L"OwnInstance", L"BusyTimeout"})
        EXPECT_EQ(stored(L"Word", name), L"(none)") << name;
}

TEST_F(WritingPageTest, AnswersMisuse)
{
    const RECT place{1, 2, 301, 152};
    MSG message{};
    EXPECT_THAT(writing.Deactivate(), isHresult(E_UNEXPECTED));
    EXPECT_THAT(writing.Show(SW_SHOW), isHresult(E_UNEXPECTED));
    EXPECT_THAT(writing.Move(&place), isHresult(E_UNEXPECTED));
    EXPECT_THAT(writing.Apply(), isHresult(E_UNEXPECTED));
    EXPECT_THAT(writing.TranslateAccelerator(&message), isHresult(E_UNEXPECTED));
    EXPECT_THAT(writing.TranslateAccelerator(nullptr), isHresult(E_POINTER));
    EXPECT_THAT(writing.Move(nullptr), isHresult(E_POINTER));
    EXPECT_THAT(writing.Activate(container.window(), nullptr, FALSE), isHresult(E_POINTER));
    EXPECT_THAT(writing.Activate(nullptr, &place, FALSE), isHresult(E_INVALIDARG));
    EXPECT_THAT(writing.Activate(container.window(), &place, FALSE), isHresult(S_OK));
    EXPECT_THAT(writing.Activate(container.window(), &place, FALSE), isHresult(E_UNEXPECTED));
}

TEST_F(WritingPageTest, SurvivesItsWindow)
{
    {
        PageContainer another(writing);
        another.show();
        writing.SetPageSite(nullptr);
    }
    EXPECT_THAT(writing.Apply(), isHresult(E_UNEXPECTED));
    EXPECT_EQ(field(shown(), busyTime), L"30");
}

TEST_F(WritingPageTest, HasALetterForEachSettingAndForTheButton)
{
    const HWND page = shown();
    std::string letters;
    for (HWND each = GetWindow(page, GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT)) {
        const std::wstring text = textOf(each);
        const std::size_t at = text.find(L'&');
        const bool hasLetters = (GetWindowLongPtrW(each, GWL_STYLE) & SS_NOPREFIX) == 0;
        if (at != text.npos && hasLetters)
            letters += static_cast<char>(std::toupper(static_cast<int>(text[at + 1])));
    }
    EXPECT_EQ(letters.size(), allRows.size() + 1);
    std::ranges::sort(letters);
    EXPECT_TRUE(std::ranges::adjacent_find(letters) == letters.end()) << letters;
    EXPECT_EQ(letters.find('A'), letters.npos) << "the frame's Apply";
}

} // namespace
