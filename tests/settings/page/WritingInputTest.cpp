// Both pages in the program's frame, under a user's hands.
#include "DiagnosticsLog.h"
#include "PageFrame.h"
#include "WritingPageFixture.h"
#include "resource.h"

#include <commctrl.h>
#include <filesystem>
#include <fstream>

namespace {

class WritingInputTest : public WritingPageFixture
{
protected:
    /// Opens the frame with both pages, which `script` is to leave closed.
    void userDoes(const std::function<void()>& script)
    {
        const IPropertyPagePtr word = newPage();
        PageFrame frame({word.GetInterfacePtr(), &writing});
        user.uses([&] { frame.run(); },
                  [&] {
                      window = user.dialog(L"Mirovelcom Settings");
                      wordPage = shownPage();
                      script();
                      user.waitUntilGone(window);
                  });
    }
    /// With the mouse: about a window that has just got the keyboard the display may still report that no key
    /// is held.
    void turnsToWriting()
    {
        RECT tab{};
        SendMessageW(tabs(), TCM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&tab));
        RECT all{};
        GetClientRect(tabs(), &all);
        user.clicks(tabs(), (tab.left + tab.right) / 2.0 / all.right,
                    (tab.top + tab.bottom) / 2.0 / all.bottom);
        page = shownPage();
        if (user.focus() == tabs())
            user.press(VK_TAB);
    }

    HWND shownPage() const
    {
        for (HWND each = nullptr; (each = FindWindowExW(window, each, L"#32770", nullptr)) != nullptr;)
            if (IsWindowVisible(each))
                return each;
        return nullptr;
    }
    HWND button(int id) const { return GetDlgItem(window, id); }
    HWND tabs() const { return GetDlgItem(window, pageTabs); }
    HWND box(int row) const { return GetDlgItem(page, row + isOwnPart); }
    HWND field(int row) const { return GetDlgItem(page, row + fieldPart); }
    bool canApply() const { return IsWindowEnabled(button(applyButton)) != FALSE; }
    void closes(const wchar_t* title, const std::wstring& expected) const
    {
        const HWND message = user.dialog(title);
        std::wstring text;
        for (HWND each = nullptr; (each = FindWindowExW(message, each, L"Static", nullptr)) != nullptr;)
            text += textOf(each);
        EXPECT_EQ(text, expected);
        user.press(VK_RETURN);
        user.waitUntilGone(message);
        user.dialog(L"Mirovelcom Settings");
    }

    User user;
    HWND window = nullptr;
    HWND wordPage = nullptr;
    HWND page = nullptr;
};

TEST_F(WritingInputTest, ShowsBothPagesBehindTheirTabs)
{
    userDoes([&] {
        EXPECT_EQ(SendMessageW(tabs(), TCM_GETITEMCOUNT, 0, 0), 2);
        EXPECT_NE(GetDlgItem(wordPage, templateName), nullptr);
        turnsToWriting();
        EXPECT_NE(page, wordPage);
        EXPECT_FALSE(IsWindowVisible(wordPage));
        EXPECT_EQ(SendMessageW(tabs(), TCM_GETCURSEL, 0, 0), 1);
        EXPECT_EQ(user.focus(), box(composition));
        user.press(VK_TAB, VK_CONTROL);
        EXPECT_EQ(shownPage(), wordPage);
        user.press(VK_TAB, VK_CONTROL, VK_SHIFT);
        EXPECT_EQ(shownPage(), page);
        user.press(VK_PRIOR, VK_CONTROL);
        EXPECT_EQ(shownPage(), wordPage);
        user.press(VK_NEXT, VK_CONTROL);
        EXPECT_EQ(shownPage(), page);
        user.press(VK_ESCAPE);
    });
}

TEST_F(WritingInputTest, WalksAlongTheTabs)
{
    userDoes([&] {
        while (user.focus() != tabs())
            user.press(VK_TAB);
        user.press(VK_RIGHT);
        EXPECT_NE(shownPage(), wordPage);
        EXPECT_EQ(user.focus(), tabs());
        user.press(VK_LEFT);
        EXPECT_EQ(shownPage(), wordPage);
        user.press(VK_ESCAPE);
    });
}

TEST_F(WritingInputTest, IsWalkedThroughWithTab)
{
    store(L"Word", L"Compose", 1);
    store(L"Word", L"BusyTimeout", 5);
    userDoes([&] {
        turnsToWriting();
        std::vector<HWND> order;
        for (const int row : allRows) {
            order.push_back(box(row));
            if (row == composition || row == busyTime)
                order.push_back(field(row));
            if (row == diagnosticsFile)
                order.push_back(GetDlgItem(page, openLogButton));
        }
        for (const HWND each : {button(IDOK), button(IDCANCEL), tabs()})
            order.push_back(each);
        for (const HWND each : order) {
            EXPECT_EQ(user.focus(), each);
            user.press(VK_TAB);
        }
        EXPECT_EQ(user.focus(), order.front()) << "round";
        for (auto each = order.rbegin(); each != order.rend(); ++each) {
            user.press(VK_TAB, VK_SHIFT);
            EXPECT_EQ(user.focus(), *each);
        }
        user.press(VK_ESCAPE);
    });
}

TEST_F(WritingInputTest, FollowsItsLetters)
{
    userDoes([&] {
        turnsToWriting();
        const std::vector<std::pair<char, int>> letters = {
            {'S', strict},     {'W', ownWord},       {'B', busyTime},   {'D', diagnosticsFile},
            {'T', tableStyle}, {'I', contentsTitle}, {'C', composition}};
        for (const auto& [letter, row] : letters) {
            user.press(static_cast<WORD>(letter), VK_MENU);
            EXPECT_EQ(user.focus(), box(row)) << letter << ": not in the page behind";
            EXPECT_FALSE(isOwn(page, row)) << letter << ": a letter changes nothing";
        }
        EXPECT_FALSE(canApply());
        user.press(VK_ESCAPE);
    });
}

TEST_F(WritingInputTest, IsFilledInWithTheKeyboard)
{
    userDoes([&] {
        turnsToWriting();
        user.press(VK_SPACE);
        EXPECT_TRUE(canApply());
        user.press(VK_TAB);
        user.press(VK_DOWN);
        EXPECT_EQ(WritingPageFixture::field(page, composition), L"Typed calls");
        user.press('B', VK_MENU);
        user.press(VK_SPACE);
        user.press(VK_TAB);
        user.types(L"7");
        EXPECT_EQ(WritingPageFixture::field(page, busyTime), L"7") << "what was there is selected";
        user.press('A', VK_MENU);
        EXPECT_FALSE(canApply());
        EXPECT_EQ(stored(L"Word", L"Compose"), L"number 1");
        EXPECT_EQ(stored(L"Word", L"BusyTimeout"), L"number 7");
        user.press('B', VK_MENU);
        user.press(VK_SPACE);
        user.press(VK_RETURN);
    });
    EXPECT_EQ(stored(L"Word", L"BusyTimeout"), L"(none)");
    EXPECT_EQ(stored(L"Word", L"Compose"), L"number 1");
}

TEST_F(WritingInputTest, ChoosesFromAnOpenListWithEnterAndKeepsTheWindow)
{
    store(L"Word", L"Compose", 0);
    userDoes([&] {
        turnsToWriting();
        user.press(VK_TAB);
        user.press(VK_F4);
        EXPECT_TRUE(SendMessageW(field(composition), CB_GETDROPPEDSTATE, 0, 0));
        user.press(VK_DOWN);
        user.press(VK_RETURN);
        EXPECT_FALSE(SendMessageW(field(composition), CB_GETDROPPEDSTATE, 0, 0));
        EXPECT_TRUE(IsWindowVisible(window));
        user.press(VK_F4);
        user.press(VK_ESCAPE);
        EXPECT_TRUE(IsWindowVisible(window));
        user.press(VK_RETURN);
    });
    EXPECT_EQ(stored(L"Word", L"Compose"), L"number 1");
}

TEST_F(WritingInputTest, ForgetsWithEscape)
{
    userDoes([&] {
        turnsToWriting();
        user.press(VK_SPACE);
        user.press(VK_ESCAPE);
    });
    EXPECT_EQ(stored(L"Word", L"Compose"), L"(none)");
}

TEST_F(WritingInputTest, AppliesBothPages)
{
    userDoes([&] {
        SetDlgItemTextW(wordPage, templateName, L"");
        SetDlgItemTextW(wordPage, tocEdit, L"3");
        turnsToWriting();
        user.press('B', VK_MENU);
        user.press(VK_SPACE);
        // As from a menu: a press of the button would take the keyboard along.
        PostMessageW(window, WM_COMMAND, applyButton, 0);
        user.waitFor("the answer", [&] { return !canApply(); });
        user.press(VK_CONTROL);
        EXPECT_EQ(shownPage(), page) << "it stays in front";
        EXPECT_EQ(user.focus(), box(busyTime)) << "and keeps the keyboard";
        EXPECT_EQ(storedLevel(), L"number 3");
        EXPECT_EQ(stored(L"Word", L"BusyTimeout"), L"number 30");
        user.press(VK_ESCAPE);
    });
}

TEST_F(WritingInputTest, TurnsToThePageThatRefuses)
{
    userDoes([&] {
        turnsToWriting();
        enters(page, busyTime, L"soon");
        user.press(VK_PRIOR, VK_CONTROL);
        EXPECT_EQ(shownPage(), wordPage);
        user.press(VK_RETURN);
        EXPECT_EQ(shownPage(), page);
        EXPECT_TRUE(note(page, busyTime).starts_with(L"Not stored"));
        EXPECT_EQ(user.focus(), field(busyTime));
        SetDlgItemTextW(page, busyTime + fieldPart, L"1");
        SetDlgItemTextW(wordPage, templateName, L"nowhere.dot");
        user.press(VK_RETURN);
        closes(L"Invalid Value",
               L"nowhere.dot\nFile Not Found.\nPlease verify the correct template name was given.");
        EXPECT_EQ(shownPage(), wordPage);
        EXPECT_EQ(stored(L"Word", L"BusyTimeout"), L"(none)");
        user.press(VK_ESCAPE);
    });
}

TEST_F(WritingInputTest, TellsWhereNoLogLies)
{
    userDoes([&] {
        turnsToWriting();
        user.press('O', VK_MENU);
        closes(L"Diagnostics", L"No diagnostics are written, because no file is named for them.");
        enters(page, diagnosticsFile, (folder + L"\\out.log").c_str());
        user.clicks(GetDlgItem(page, openLogButton));
        closes(L"Diagnostics",
               L"There is no file " + folder +
                   L"\\out.<process>.log yet.\n\nA program that writes documents begins one.");
        enters(page, diagnosticsFile, L"a?");
        user.press(VK_RETURN); // on the button
        closes(L"Diagnostics", L"No file can have the name a?.");
        user.press(VK_ESCAPE);
    });
}

TEST_F(WritingInputTest, OpensTheLogInTheEditor)
{
    const std::wstring file = newFile(L"out.4711.log");
    storeForAll(L"Log", L"Diagnostics", folder + L"\\out.log");
    userDoes([&] {
        turnsToWriting();
        user.press('O', VK_MENU);
        HWND editor = nullptr;
        user.waitFor("the editor", [&] {
            editor = FindWindowW(L"Notepad", nullptr);
            return editor != nullptr && textOf(editor).find(L"out.4711.log") != std::wstring::npos;
        });
        DWORD process = 0;
        GetWindowThreadProcessId(editor, &process);
        const HANDLE handle = OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, process);
        TerminateProcess(handle, 0);
        WaitForSingleObject(handle, 30000);
        CloseHandle(handle);
        user.dialog(L"Mirovelcom Settings");
        user.press(VK_ESCAPE);
    });
}

} // namespace
