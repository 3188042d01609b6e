// The page under a user's hands.
#include "Hresult.h"
#include "ImportedFunction.h"
#include "PageFixture.h"

#include <commctrl.h>
#include <commdlg.h>

#include <memory>
#include <optional>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Record = std::vector<std::string>;

std::wstring currentDirectory()
{
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data()));
    return path;
}

class PageInputTest : public PageFixture
{
protected:
    void SetUp() override
    {
        page = newPage();
        container = std::make_unique<PageContainer>(page);
        container->show();
    }
    void TearDown() override
    {
        page->SetPageSite(nullptr);
        container.reset();
        page = nullptr;
    }

    void userDoes(const std::function<void()>& script)
    {
        user.uses([this] { container->run(); },
                  [&] {
                      struct End
                      {
                          ~End() { container.end(); }
                          PageContainer& container;
                      } end{*container};
                      user.dialog(L"Container");
                      script();
                  });
    }

    HWND control(int id) const { return container->control(id); }
    HWND button(int id) const { return container->button(id); }
    void replaces(int id, const std::wstring& text) const { user.replaces(control(id), text); }
    /// The text of the message, once the user has seen it and pressed Enter.
    std::wstring confirmed() const
    {
        const HWND box = user.dialog(L"Invalid Value");
        EXPECT_EQ(GetAncestor(GetWindow(box, GW_OWNER), GA_ROOT), container->window());
        EXPECT_FALSE(IsWindowEnabled(container->window()));
        std::wstring text;
        for (HWND part = GetWindow(box, GW_CHILD); part; part = GetWindow(part, GW_HWNDNEXT)) {
            wchar_t name[16];
            GetClassNameW(part, name, 16);
            if (std::wstring(name) != L"Static")
                continue;
            const HICON icon = reinterpret_cast<HICON>(SendMessageW(part, STM_GETICON, 0, 0));
            if (icon == nullptr)
                text += textOf(part);
            else
                EXPECT_EQ(icon, LoadIconW(nullptr, IDI_EXCLAMATION));
        }
        user.press(VK_RETURN);
        user.waitUntilGone(box);
        return text;
    }

    IPropertyPagePtr page;
    std::unique_ptr<PageContainer> container;
    User user;
};

TEST_F(PageInputTest, StoresWhatIsTyped)
{
    const std::wstring file = newFile(L"my template.dot");
    userDoes([&] {
        replaces(templateName, file);
        replaces(tocEdit, L"12");
        EXPECT_THAT(container->record(), ElementsAre("status 1"));
        user.clicks(button(PageContainer::applyButton));
        EXPECT_THAT(container->record(), ElementsAre("status 1", "status 0", "Apply 0x00000000"));
    });
    EXPECT_EQ(storedTemplate(), file);
    EXPECT_EQ(storedLevel(), L"number 12");
}

TEST_F(PageInputTest, TakesOnlyDigitsAsALevel)
{
    userDoes([&] {
        replaces(tocEdit, L"1x-2");
        EXPECT_EQ(textOf(control(tocEdit)), L"12");
    });
}

TEST_F(PageInputTest, RefusesATemplateThatIsNotThere)
{
    store(L"Word", L"WordTemplateName", L"c:\\old.dot");
    userDoes([&] {
        replaces(templateName, L"c:\\none.dot");
        replaces(tocEdit, L"3");
        user.press('A', VK_MENU);
        EXPECT_EQ(confirmed(),
                  L"c:\\none.dot\nFile Not Found.\nPlease verify the correct template name was given.");
        user.waitFor("the answer", [&] { return container->record().back().starts_with("Apply"); });
        EXPECT_THAT(container->record(), ElementsAre("status 1", "Apply 0x8000ffff"));
        EXPECT_EQ(textOf(control(templateName)), L"c:\\none.dot");
    });
    EXPECT_THAT(page->IsPageDirty(), isHresult(S_OK));
    EXPECT_EQ(storedTemplate(), L"c:\\old.dot");
    EXPECT_EQ(storedLevel(), L"(none)");
}

TEST_F(PageInputTest, RefusesALevelBeyondTheLimitButKeepsTheTemplate)
{
    const std::wstring file = newFile(L"my.dot");
    userDoes([&] {
        replaces(tocEdit, L"51");
        replaces(templateName, file);
        user.press('A', VK_MENU);
        EXPECT_EQ(confirmed(), L"Heading level must fall between 0 and 50.");
        user.waitFor("the answer", [&] { return container->record().back().starts_with("Apply"); });
        EXPECT_THAT(container->record(), ElementsAre("status 1", "Apply 0x8000ffff"));
        EXPECT_EQ(textOf(control(tocEdit)), L"51");
    });
    EXPECT_THAT(page->IsPageDirty(), isHresult(S_OK));
    EXPECT_EQ(storedTemplate(), file);
    EXPECT_EQ(storedLevel(), L"(none)");
}

TEST_F(PageInputTest, LeavesTheFocusWhereItIsWhenTheLevelIsRefused)
{
    SetWindowTextW(control(templateName), L"");
    SetWindowTextW(control(tocEdit), L"51");
    userDoes([&] {
        for (const HWND place : {control(templateName), control(browse), button(IDOK)}) {
            while (user.focus() != place)
                user.press(VK_TAB);
            container->forget();
            // As from a menu: a press of the button would take the focus along.
            PostMessageW(container->window(), WM_COMMAND, PageContainer::applyButton, 0);
            confirmed();
            user.waitFor("the answer", [&] { return !container->record().empty(); });
            user.dialog(L"Container");
            EXPECT_EQ(user.focus(), place);
        }
    });
}

TEST_F(PageInputTest, RefusesANegativeLevel)
{
    SetWindowTextW(control(templateName), L"");
    SetWindowTextW(control(tocEdit), L"-1"); // as pasted: it cannot be typed
    container->forget();
    userDoes([&] {
        user.clicks(button(PageContainer::applyButton));
        EXPECT_EQ(confirmed(), L"Heading level must fall between 0 and 50.");
    });
    EXPECT_THAT(container->record(), ElementsAre("Apply 0x8000ffff"));
    EXPECT_EQ(storedLevel(), L"(none)");
}

TEST_F(PageInputTest, SpinsTheLevelRoundTheLimitsWithTheArrowKeys)
{
    userDoes([&] {
        replaces(tocEdit, L"49");
        container->forget();
        std::vector<std::wstring> levels;
        for (const int key : {VK_UP, VK_UP, VK_UP, VK_DOWN, VK_DOWN, VK_DOWN}) {
            user.press(static_cast<WORD>(key));
            levels.push_back(textOf(control(tocEdit)));
        }
        EXPECT_THAT(levels, ElementsAre(L"50", L"0", L"1", L"0", L"50", L"49"));
    });
}

TEST_F(PageInputTest, SpinsTheLevelRoundTheLimitsWithTheMouse)
{
    userDoes([&] {
        EXPECT_THAT(container->record(), IsEmpty());
        user.clicks(control(tocSpin), 0.5, 0.25);
        EXPECT_EQ(textOf(control(tocEdit)), L"0");
        EXPECT_THAT(container->record(), ElementsAre("status 1"));
        user.clicks(control(tocSpin), 0.5, 0.75);
        EXPECT_EQ(textOf(control(tocEdit)), L"50");
    });
}

TEST_F(PageInputTest, IsWalkedThroughWithTab)
{
    userDoes([&] {
        const std::vector<HWND> order = {control(templateName), control(browse),
                                         control(tocEdit),      button(IDOK),
                                         button(IDCANCEL),      button(PageContainer::applyButton)};
        for (const HWND each : order) {
            EXPECT_EQ(user.focus(), each);
            user.press(VK_TAB);
        }
        EXPECT_EQ(user.focus(), order.front());
        EXPECT_THAT(container->record(), ElementsAre("offered 0x09"));
        for (std::size_t i = order.size(); i-- > 0;) {
            user.press(VK_TAB, VK_SHIFT);
            EXPECT_EQ(user.focus(), order[i]);
        }
    });
}

TEST_F(PageInputTest, LeadsBothLettersToTheTemplate)
{
    // The second label is the last control, so nothing but the first field follows it.
    userDoes([&] {
        user.press(VK_TAB);
        user.press('W', VK_MENU);
        EXPECT_EQ(user.focus(), control(templateName));
        user.press(VK_TAB);
        user.press('T', VK_MENU);
        EXPECT_EQ(user.focus(), control(templateName));
    });
}

TEST_F(PageInputTest, LeavesEnterAndEscapeToItsContainer)
{
    userDoes([&] {
        user.press(VK_RETURN);
        user.press(VK_ESCAPE);
    });
    EXPECT_THAT(container->record(), ElementsAre("offered 0x0d", "OK", "offered 0x1b", "Cancel"));
}

TEST_F(PageInputTest, BrowsesFromTheStoredTemplate)
{
    const std::wstring file = newFile(L"stored.dot");
    const std::wstring other = newFile(L"other.dot");
    store(L"Word", L"WordTemplateName", file);
    const std::wstring directory = currentDirectory();
    userDoes([&] {
        replaces(templateName, L"typed");
        user.clicks(control(browse));
        HWND dialog = user.dialog(L"Select Word Template File");
        EXPECT_EQ(textOf(user.focus()), L"stored.dot");
        user.press(VK_ESCAPE);
        user.waitUntilGone(dialog);
        user.dialog(L"Container");
        EXPECT_EQ(textOf(control(templateName)), L"typed");

        user.clicks(control(browse));
        dialog = user.dialog(L"Select Word Template File");
        user.press(VK_HOME);
        user.press(VK_END, VK_SHIFT);
        user.types(L"other.dot");
        user.press(VK_RETURN);
        user.waitUntilGone(dialog);
        user.waitFor("the chosen name", [&] { return textOf(control(templateName)) == other; });
        user.dialog(L"Container");
    });
    EXPECT_THAT(page->IsPageDirty(), isHresult(S_OK));
    EXPECT_EQ(storedTemplate(), file);
    EXPECT_EQ(currentDirectory(), directory);
}

TEST_F(PageInputTest, BrowsesWhateverIsStored)
{
    for (const std::wstring& name : {std::wstring(L"a<b>?|*.dot"), std::wstring(L"c:\\none\\none.dot"),
                                     L"c:\\" + std::wstring(400, L'x'), std::wstring()}) {
        store(L"Word", L"WordTemplateName", name);
        userDoes([&] {
            user.clicks(control(browse));
            const HWND dialog = user.dialog(L"Select Word Template File");
            user.press(VK_ESCAPE);
            user.waitUntilGone(dialog);
            user.dialog(L"Container");
        });
    }
    EXPECT_THAT(page->IsPageDirty(), isHresult(S_FALSE));
}

struct DialogRequest
{
    OPENFILENAMEW fields;
    std::wstring filter; ///< up to the empty text that ends it
    std::wstring title;
    std::wstring file;
};

std::optional<DialogRequest> dialogRequest;

BOOL WINAPI receiveDialog(OPENFILENAMEW* fields)
{
    const wchar_t* end = fields->lpstrFilter;
    while (*end != L'\0')
        end += wcslen(end) + 1;
    dialogRequest = {*fields, {fields->lpstrFilter, end}, fields->lpstrTitle, fields->lpstrFile};
    return FALSE;
}

TEST_F(PageInputTest, AsksForATemplateFile)
{
    store(L"Word", L"WordTemplateName", L"c:\\none.dot");
    const ImportedFunction dialog(server.handle(), "GetOpenFileNameW", receiveDialog);
    dialogRequest.reset();
    SendMessageW(control(browse), BM_CLICK, 0, 0);
    ASSERT_TRUE(dialogRequest);
    const OPENFILENAMEW& fields = dialogRequest->fields;
    EXPECT_EQ(dialogRequest->filter, std::wstring(L"Word Template Files (*.dot)\0*.dot\0", 34));
    EXPECT_EQ(dialogRequest->title, L"Select Word Template File");
    EXPECT_EQ(dialogRequest->file, L"c:\\none.dot");
    EXPECT_EQ(fields.hwndOwner, GetParent(control(browse)));
    EXPECT_EQ(fields.nMaxFile, 259U);
    EXPECT_EQ(fields.Flags, static_cast<DWORD>(OFN_HIDEREADONLY | OFN_NOCHANGEDIR));
    EXPECT_EQ(fields.lpstrInitialDir, nullptr);
    EXPECT_EQ(fields.lpstrDefExt, nullptr);
    EXPECT_EQ(fields.nFilterIndex, 0U);
    EXPECT_THAT(page->IsPageDirty(), isHresult(S_FALSE));
}

TEST_F(PageInputTest, OpensTheDialogWithEnterOnItsButton)
{
    userDoes([&] {
        user.press(VK_TAB);
        user.press(VK_RETURN);
        const HWND dialog = user.dialog(L"Select Word Template File");
        user.press(VK_ESCAPE);
        user.waitUntilGone(dialog);
        user.dialog(L"Container");
    });
    EXPECT_THAT(container->record(), IsEmpty());
    EXPECT_THAT(page->IsPageDirty(), isHresult(S_FALSE));
}

} // namespace
