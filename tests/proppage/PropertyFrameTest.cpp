// The page in the system's own property frame.
//
// Wine's frame is a property sheet that holds the page's window. It differs from what is documented; the
// tests expect what holds everywhere, and else go by PlatformDifferences.h.
#include "Hresult.h"
#include "PageFixture.h"
#include "PlatformDifferences.h"

#include <IDocument.h>
#include <commctrl.h>
#include <cstdio>
#include <olectl.h>

namespace {

class PropertyFrameTest : public PageFixture
{
protected:
    PropertyFrameTest() { EXPECT_THAT(server.registerServer(), isHresult(S_OK)); }
    ~PropertyFrameTest() override { EXPECT_THAT(server.unregisterServer(), isHresult(S_OK)); }

    void userDoes(const std::function<void()>& script)
    {
        HRESULT result = E_FAIL;
        user.uses(
            [&] {
                CLSID page = CLSID_MirovelComPage;
                result = OleCreatePropertyFrame(nullptr, 50, 50, L"Settings", 0, nullptr, 1, &page,
                                                LOCALE_USER_DEFAULT, 0, nullptr);
            },
            [&] {
                frame = user.dialog(L"Properties for Settings");
                script();
            });
        EXPECT_THAT(result, isHresult(S_OK));
        CoFreeUnusedLibraries();
    }

    /// Wherever in the frame's tree it is.
    HWND control(int id) const
    {
        struct Search
        {
            int id;
            HWND found;
        } search{id, nullptr};
        EnumChildWindows(
            frame,
            [](HWND window, LPARAM lParam) -> BOOL {
                Search& wanted = *reinterpret_cast<Search*>(lParam);
                if (GetDlgCtrlID(window) == wanted.id)
                    wanted.found = window;
                return wanted.found == nullptr;
            },
            reinterpret_cast<LPARAM>(&search));
        return search.found;
    }
    HWND applyButton() const { return control(0x3021); }
    void replaces(int id, const std::wstring& text) const { user.replaces(control(id), text); }
    HWND frame = nullptr;
    User user;
};

TEST_F(PropertyFrameTest, ShowsThePageUnderItsTitle)
{
    store(L"Word", L"TOCLevel", 9);
    userDoes([&] {
        const HWND tabs = FindWindowExW(frame, nullptr, WC_TABCONTROLW, nullptr);
        wchar_t title[64] = L"";
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = title;
        item.cchTextMax = 64;
        EXPECT_EQ(TabCtrl_GetItemCount(tabs), 1);
        EXPECT_TRUE(SendMessageW(tabs, TCM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
        EXPECT_STREQ(title, L"&Word");

        EXPECT_EQ(textOf(control(templateName)), L"templates\\KXR1.dot");
        EXPECT_EQ(textOf(control(tocEdit)), L"9");
        EXPECT_EQ(user.focus(), control(templateName));
        EXPECT_FALSE(IsWindowEnabled(applyButton()));
        // The frame makes room for the page by the size that the page tells.
        RECT inside{};
        GetWindowRect(tabs, &inside);
        for (const int id : {templateName, browse, tocEdit, tocSpin}) {
            RECT place{};
            RECT common{};
            GetWindowRect(control(id), &place);
            EXPECT_TRUE(IntersectRect(&common, &place, &inside) && EqualRect(&common, &place)) << id;
            EXPECT_TRUE(IsWindowVisible(control(id))) << id;
        }
        user.press(VK_ESCAPE);
        user.waitUntilGone(frame);
    });
}

TEST_F(PropertyFrameTest, IsWalkedThroughWithTab)
{
    userDoes([&] {
        const std::vector<HWND> order = {control(templateName), control(browse), control(tocEdit),
                                         control(IDOK), control(IDCANCEL)};
        for (const HWND each : order) {
            EXPECT_EQ(user.focus(), each);
            user.press(VK_TAB);
        }
        user.press('W', VK_MENU);
        EXPECT_EQ(user.focus(), control(templateName));
        for (const int back : {IDCANCEL, IDOK, tocEdit, browse, templateName}) {
            do
                user.press(VK_TAB, VK_SHIFT);
            while (user.focus() == FindWindowExW(frame, nullptr, WC_TABCONTROLW, nullptr));
            EXPECT_EQ(user.focus(), control(back)) << back;
        }
        user.press(VK_ESCAPE);
        user.waitUntilGone(frame);
    });
}

TEST_F(PropertyFrameTest, LetsThePageBeUsed)
{
    const std::wstring file = newFile(L"stored.dot");
    store(L"Word", L"WordTemplateName", file);
    userDoes([&] {
        replaces(tocEdit, L"50");
        user.press(VK_UP);
        EXPECT_EQ(textOf(control(tocEdit)), L"0");
        replaces(templateName, L"typed");
        user.clicks(control(browse));
        const HWND dialog = user.dialog(L"Select Word Template File");
        EXPECT_EQ(textOf(user.focus()), L"stored.dot");
        user.press(VK_ESCAPE);
        user.waitUntilGone(dialog);
        user.dialog(L"Properties for Settings");
        EXPECT_EQ(textOf(control(templateName)), L"typed");
        user.press(VK_ESCAPE);
        user.waitUntilGone(frame);
    });
    EXPECT_EQ(storedTemplate(), file);
    EXPECT_EQ(storedLevel(), L"(none)");
}

TEST_F(PropertyFrameTest, AppliesThePageWithEnter)
{
    userDoes([&] {
        replaces(templateName, L"");
        replaces(tocEdit, L"12");
        EXPECT_EQ(IsWindowEnabled(applyButton()) != FALSE, isWindowsWay(Difference::frameHearsOfChanges));
        user.press(VK_RETURN);
        user.waitUntilGone(frame);
    });
    EXPECT_EQ(storedLevel(), isWindowsWay(Difference::frameAppliesPage) ? L"number 12" : L"(none)");
}

TEST_F(PropertyFrameTest, ForgetsWhatIsTypedWithEscape)
{
    userDoes([&] {
        replaces(tocEdit, L"12");
        user.press(VK_ESCAPE);
        user.waitUntilGone(frame);
    });
    EXPECT_EQ(storedLevel(), L"(none)");
}

} // namespace
