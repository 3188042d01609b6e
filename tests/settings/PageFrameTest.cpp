// The frame around the page of the built DLL, under a user's hands.
#include "PageFrame.h"

#include "Hresult.h"
#include "IPropertyPageImpl.h"
#include "PageFixture.h"
#include "resource.h"

#include <memory>
#include <vector>

namespace {

class PageFrameTest : public PageFixture
{
protected:
    /// Opens the frame, which `script` is to leave closed.
    void userDoes(const std::function<void()>& script)
    {
        const IPropertyPagePtr page = newPage();
        frame = std::make_unique<PageFrame>(std::vector{page.GetInterfacePtr()});
        user.uses([this] { frame->run(); },
                  [&] {
                      window = user.dialog(L"Mirovelcom Settings");
                      script();
                      user.waitUntilGone(window);
                  });
        EXPECT_EQ(frame->window(), nullptr);
        frame.reset();
    }

    HWND pageWindow() const { return FindWindowExW(window, nullptr, L"#32770", nullptr); }
    HWND control(int id) const { return GetDlgItem(pageWindow(), id); }
    HWND button(int id) const { return GetDlgItem(window, id); }
    bool canApply() const { return IsWindowEnabled(button(applyButton)) != FALSE; }

    void replaces(int id, const std::wstring& text) const { user.replaces(control(id), text); }
    void confirms() const
    {
        const HWND box = user.dialog(L"Invalid Value");
        user.press(VK_RETURN);
        user.waitUntilGone(box);
        user.dialog(L"Mirovelcom Settings");
    }

    User user;
    std::unique_ptr<PageFrame> frame;
    HWND window = nullptr;
};

TEST_F(PageFrameTest, ShowsThePageAndItsButtons)
{
    store(L"Word", L"TOCLevel", 9);
    userDoes([&] {
        EXPECT_EQ(textOf(control(templateName)), L"templates\\KXR1.dot");
        EXPECT_EQ(textOf(control(tocEdit)), L"9");
        EXPECT_EQ(user.focus(), control(templateName));
        EXPECT_FALSE(canApply());
        RECT inside{};
        GetClientRect(window, &inside);
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&inside), 2);
        RECT ofPage{};
        GetWindowRect(pageWindow(), &ofPage);
        for (const HWND each :
             {pageWindow(), button(IDOK), button(IDCANCEL), button(applyButton), button(pageTabs)}) {
            RECT place{};
            RECT common{};
            GetWindowRect(each, &place);
            EXPECT_TRUE(IntersectRect(&common, &place, &inside) && EqualRect(&common, &place));
            EXPECT_TRUE(each == pageWindow() || !IntersectRect(&common, &place, &ofPage));
            EXPECT_TRUE(IsWindowVisible(each));
        }
        user.press(VK_ESCAPE);
    });
}

TEST_F(PageFrameTest, AppliesWithTheButtonAndStaysOpen)
{
    userDoes([&] {
        replaces(templateName, L"");
        replaces(tocEdit, L"12");
        EXPECT_TRUE(canApply());
        user.clicks(button(applyButton));
        EXPECT_EQ(storedLevel(), L"number 12");
        EXPECT_FALSE(canApply());
        EXPECT_EQ(user.focus(), button(IDOK)) << "not in a button that cannot be pressed";
        replaces(tocEdit, L"13");
        EXPECT_TRUE(canApply());
        user.press('A', VK_MENU);
        EXPECT_EQ(storedLevel(), L"number 13");
        EXPECT_FALSE(canApply());
        replaces(tocEdit, L"14");
        user.press(VK_ESCAPE);
    });
    EXPECT_EQ(storedLevel(), L"number 13");
}

TEST_F(PageFrameTest, AppliesAndClosesWithEnter)
{
    const std::wstring file = newFile(L"chosen.dot");
    userDoes([&] {
        replaces(templateName, file);
        user.press(VK_RETURN);
    });
    EXPECT_EQ(storedTemplate(), file);
    EXPECT_EQ(storedLevel(), L"number 50");
}

TEST_F(PageFrameTest, StoresNothingThatWasNotEdited)
{
    userDoes([&] { user.clicks(button(IDOK)); });
    EXPECT_EQ(storedTemplate(), L"(none)");
    EXPECT_EQ(storedLevel(), L"(none)");
}

TEST_F(PageFrameTest, ForgetsEditsWhenItIsCancelled)
{
    userDoes([&] {
        replaces(tocEdit, L"12");
        user.clicks(button(IDCANCEL));
    });
    userDoes([&] {
        replaces(tocEdit, L"12");
        user.press(VK_F4, VK_MENU);
    });
    EXPECT_EQ(storedLevel(), L"(none)");
}

TEST_F(PageFrameTest, StaysOpenWhenThePageRefuses)
{
    userDoes([&] {
        replaces(templateName, L"nowhere.dot");
        user.press(VK_RETURN);
        confirms();
        EXPECT_TRUE(IsWindowVisible(window));
        EXPECT_TRUE(canApply());
        replaces(templateName, L"");
        replaces(tocEdit, L"51");
        user.clicks(button(applyButton));
        confirms();
        EXPECT_TRUE(canApply());
        replaces(tocEdit, L"50");
        user.press(VK_RETURN);
    });
    EXPECT_EQ(storedTemplate(), L"(none)");
    EXPECT_EQ(storedLevel(), L"number 50");
}

TEST_F(PageFrameTest, IsWalkedThroughWithTabAndLetters)
{
    userDoes([&] {
        replaces(tocEdit, L"3");
        user.press('W', VK_MENU);
        const std::vector<HWND> order = {control(templateName), control(browse),  control(tocEdit),
                                         button(IDOK),          button(IDCANCEL), button(applyButton),
                                         button(pageTabs)};
        for (const HWND each : order) {
            EXPECT_EQ(user.focus(), each);
            user.press(VK_TAB);
        }
        EXPECT_EQ(user.focus(), control(templateName)) << "round";
        for (auto each = order.rbegin(); each != order.rend(); ++each) {
            user.press(VK_TAB, VK_SHIFT);
            EXPECT_EQ(user.focus(), *each);
        }
        user.press(VK_ESCAPE);
    });
}

/// A page that is nothing but its answers.
class FakePage final : public IPropertyPageImpl
{
public:
    HRESULT pageInfo = S_OK;
    HRESULT applied = S_OK;
    bool isActive = false;

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID /*iid*/, void** /*out*/) noexcept override { return E_NOINTERFACE; }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }

    // IPropertyPage
    STDMETHODIMP Activate(HWND /*parent*/, LPCRECT /*place*/, BOOL /*modal*/) noexcept override
    {
        isActive = true;
        return S_OK;
    }
    STDMETHODIMP Deactivate() noexcept override
    {
        isActive = false;
        return S_OK;
    }
    STDMETHODIMP Show(UINT /*showCommand*/) noexcept override { return S_OK; }
    STDMETHODIMP Apply() noexcept override { return applied; }
    STDMETHODIMP TranslateAccelerator(MSG* /*message*/) noexcept override { return S_FALSE; }
    STDMETHODIMP GetPageInfo(PROPPAGEINFO* info) noexcept override
    {
        *info = {sizeof *info, nullptr, {300, 100}, nullptr, nullptr, 0};
        return pageInfo;
    }

    using IPropertyPageImpl::setDirty;
    bool hasSite() const { return site() != nullptr; }
};

TEST_F(PageFrameTest, TellsThatThePageCannotStore)
{
    FakePage page;
    page.applied = HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED);
    frame = std::make_unique<PageFrame>(std::vector<IPropertyPage*>{&page});
    page.setDirty(true);
    user.uses([this] { frame->run(); },
              [&] {
                  window = user.dialog(L"Mirovelcom Settings");
                  user.clicks(button(IDOK));
                  const HWND box = user.dialog(L"The settings could not be stored");
                  user.press(VK_RETURN);
                  user.waitUntilGone(box);
                  EXPECT_TRUE(IsWindowVisible(window));
                  page.applied = S_OK;
                  user.clicks(button(IDOK));
                  user.waitUntilGone(window);
              });
    EXPECT_FALSE(page.hasSite());
}

TEST_F(PageFrameTest, PassesOnThatThereIsNoPage)
{
    FakePage page;
    page.pageInfo = E_OUTOFMEMORY;
    try {
        const PageFrame unfinished({&page});
        ADD_FAILURE() << "nothing was thrown";
    } catch (const _com_error& error) {
        EXPECT_THAT(error.Error(), isHresult(E_OUTOFMEMORY));
    }
    EXPECT_FALSE(page.hasSite());
    EXPECT_EQ(FindWindowW(L"#32770", L"Mirovelcom Settings"), nullptr);
}

TEST_F(PageFrameTest, DeactivatesThePage)
{
    FakePage page;
    {
        const PageFrame unused({&page});
        EXPECT_TRUE(page.isActive);
        EXPECT_TRUE(page.hasSite());
    }
    EXPECT_FALSE(page.isActive);
    EXPECT_FALSE(page.hasSite());
}

TEST_F(PageFrameTest, LetsGoOfAPageThatIsInactiveAlready)
{
    const IPropertyPagePtr page = newPage();
    {
        const PageFrame unused({page.GetInterfacePtr()});
        EXPECT_THAT(page->Deactivate(), isHresult(S_OK)) << "it was active";
    }
    EXPECT_THAT(page->SetPageSite(nullptr), isHresult(S_OK));
    RECT place{0, 0, 10, 10};
    EXPECT_THAT(page->Activate(GetDesktopWindow(), &place, FALSE), isHresult(S_OK))
        << "it can be shown again";
    EXPECT_THAT(page->Deactivate(), isHresult(S_OK));
}

} // namespace
