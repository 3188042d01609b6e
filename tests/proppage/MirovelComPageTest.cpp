// The page as its container sees it.
#include "Hresult.h"
#include "PageFixture.h"

#include <commctrl.h>

#include <cstring>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using MirovelComPageTest = PageFixture;

std::wstring classOf(HWND window)
{
    wchar_t name[64];
    GetClassNameW(window, name, 64);
    return name;
}

RECT placeIn(HWND parent, HWND window)
{
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

std::string shown(const RECT& place)
{
    return std::to_string(place.left) + "," + std::to_string(place.top) + " " + std::to_string(place.right) +
           "," + std::to_string(place.bottom);
}

TEST_F(MirovelComPageTest, TellsItsTitleItsPurposeAndItsSize)
{
    const IPropertyPagePtr page = newPage();
    PROPPAGEINFO info;
    std::memset(&info, 0xAB, sizeof info);
    ASSERT_THAT(page->GetPageInfo(&info), isHresult(S_OK));
    EXPECT_EQ(info.cb, sizeof info);
    EXPECT_STREQ(info.pszTitle, L"&Word");
    EXPECT_STREQ(info.pszDocString, L"Microsoft Word Settings");
    EXPECT_EQ(info.pszHelpFile, nullptr);
    EXPECT_EQ(info.dwHelpContext, 0u);
    CoTaskMemFree(info.pszTitle);
    CoTaskMemFree(info.pszDocString);
    PageContainer container(page);
    container.show();
    RECT units{0, 0, 235, 84};
    MapDialogRect(container.page(), &units);
    EXPECT_EQ(info.size.cx, units.right);
    EXPECT_EQ(info.size.cy, units.bottom);
    EXPECT_THAT(page->GetPageInfo(nullptr), isHresult(E_POINTER));
    page->SetPageSite(nullptr);
}

TEST_F(MirovelComPageTest, HasItsControlsInTheirPlacesAndOrder)
{
    struct Control
    {
        int id;
        const wchar_t* windowClass;
        const wchar_t* text;
        RECT units;
        DWORD style;
    };
    constexpr DWORD own = WS_CHILD | WS_VISIBLE;
    const Control controls[] = {
        {-1, L"Static", L"&Word template tile", {5, 5, 91, 13}, own},
        {templateName, L"Edit", L"", {5, 14, 216, 28}, own | WS_TABSTOP | ES_AUTOHSCROLL},
        {browse, L"Button", L"...", {218, 14, 230, 28}, own | WS_TABSTOP | BS_PUSHBUTTON},
        {tocEdit, L"Edit", L"", {113, 41, 131, 53}, own | WS_TABSTOP | ES_NUMBER},
        {tocSpin,
         L"msctls_updown32",
         L"Spin1",
         {129, 41, 140, 53},
         own | UDS_AUTOBUDDY | UDS_SETBUDDYINT | UDS_ARROWKEYS | UDS_WRAP},
        {-1, L"Static", L"&Table of contents heading level", {5, 43, 111, 54}, own},
    };
    const IPropertyPagePtr page = newPage();
    PageContainer container(page);
    const RECT pagePlace{0, 0, 400, 200};
    ASSERT_THAT(page->Activate(container.window(), &pagePlace, FALSE), isHresult(S_OK));
    const HDC screen = GetDC(nullptr);
    const int dotsPerInch = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    HWND window = GetWindow(container.page(), GW_CHILD);
    for (const Control& control : controls) {
        SCOPED_TRACE(control.id);
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(static_cast<short>(GetDlgCtrlID(window)), control.id);
        EXPECT_EQ(classOf(window), control.windowClass);
        EXPECT_EQ(textOf(window), control.text);
        RECT expected = control.units;
        MapDialogRect(container.page(), &expected);
        const RECT place = placeIn(container.page(), window);
        // Position and size are rounded each on its own.
        for (LONG RECT::*edge : {&RECT::left, &RECT::top, &RECT::right, &RECT::bottom})
            EXPECT_NEAR(place.*edge, expected.*edge, 1);
        const DWORD style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
        EXPECT_EQ(style & (control.style | WS_TABSTOP | WS_DISABLED | ES_NUMBER), control.style)
            << std::hex << style;
        // Dialogs draw the border of a field as a sunken edge.
        EXPECT_EQ((GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0,
                  classOf(window) == L"Edit");
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
        if (control.id != tocSpin) {
            EXPECT_STREQ(font.lfFaceName, L"MS Sans Serif");
            EXPECT_EQ(font.lfHeight, -MulDiv(8, dotsPerInch, 72));
        }
        window = GetWindow(window, GW_HWNDNEXT);
    }
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(reinterpret_cast<HWND>(SendMessageW(container.control(tocSpin), UDM_GETBUDDY, 0, 0)),
              container.control(tocEdit));
}

TEST_F(MirovelComPageTest, FillsItsFieldsWhenItIsShownAndNotBefore)
{
    store(L"Word", L"WordTemplateName", L"c:\\stored.dot");
    store(L"Word", L"TOCLevel", 7);
    const IPropertyPagePtr page = newPage();
    PageContainer container(page);
    page->SetPageSite(&container);
    const RECT place{0, 0, 400, 200};
    ASSERT_THAT(page->Activate(container.window(), &place, FALSE), isHresult(S_OK));
    EXPECT_FALSE(IsWindowVisible(container.page()));
    EXPECT_EQ(textOf(container.control(templateName)), L"");
    ShowWindow(container.window(), SW_SHOW);
    EXPECT_THAT(page->Show(SW_SHOW), isHresult(S_OK));
    EXPECT_TRUE(IsWindowVisible(container.page()));
    EXPECT_EQ(textOf(container.control(templateName)), L"c:\\stored.dot");
    EXPECT_EQ(textOf(container.control(tocEdit)), L"7");
    int lowest = -1;
    int highest = -1;
    SendMessageW(container.control(tocSpin), UDM_GETRANGE32, reinterpret_cast<WPARAM>(&lowest),
                 reinterpret_cast<LPARAM>(&highest));
    EXPECT_EQ(lowest, 0);
    EXPECT_EQ(highest, 50);
    EXPECT_THAT(page->IsPageDirty(), isHresult(S_FALSE));
    EXPECT_THAT(container.record(), IsEmpty());
    EXPECT_EQ(GetFocus(), container.control(templateName));
    page->SetPageSite(nullptr);
    EXPECT_EQ(container.count, 1u);
}

TEST_F(MirovelComPageTest, ProposesATemplateAndTheDeepestLevelWhenNothingIsStored)
{
    const IPropertyPagePtr page = newPage();
    PageContainer container(page);
    container.show();
    EXPECT_EQ(textOf(container.control(templateName)), L"templates\\KXR1.dot");
    EXPECT_EQ(textOf(container.control(tocEdit)), L"50");
    EXPECT_THAT(page->Deactivate(), isHresult(S_OK));
    store(L"Settings", L"InstallDir", L"c:\\mirovel");
    page->SetPageSite(nullptr);
    container.show();
    EXPECT_EQ(textOf(container.control(templateName)), L"c:\\mirovel\\templates\\KXR1.dot");
    page->SetPageSite(nullptr);
}

TEST_F(MirovelComPageTest, ShowsAStoredLevelWithItsSignAndBeyondTheLimits)
{
    const IPropertyPagePtr page = newPage();
    PageContainer container(page);
    for (const int level : {-7, 51, 2147483647}) {
        store(L"Word", L"TOCLevel", static_cast<DWORD>(level));
        container.show();
        EXPECT_EQ(textOf(container.control(tocEdit)), std::to_wstring(level));
        EXPECT_THAT(page->Deactivate(), isHresult(S_OK));
        page->SetPageSite(nullptr);
    }
}

TEST_F(MirovelComPageTest, KeepsWhatIsTypedWhenItIsHiddenAndForgetsItWhenItIsDeactivated)
{
    const IPropertyPagePtr page = newPage();
    PageContainer container(page);
    container.show();
    SetWindowTextW(container.control(tocEdit), L"3");
    EXPECT_THAT(page->IsPageDirty(), isHresult(S_OK));
    EXPECT_THAT(page->Show(SW_HIDE), isHresult(S_OK));
    EXPECT_FALSE(IsWindowVisible(container.page()));
    EXPECT_THAT(page->Show(SW_SHOW), isHresult(S_OK));
    EXPECT_EQ(textOf(container.control(tocEdit)), L"3");
    EXPECT_THAT(page->IsPageDirty(), isHresult(S_OK));
    EXPECT_THAT(page->Deactivate(), isHresult(S_OK));
    EXPECT_EQ(container.page(), nullptr);
    page->SetPageSite(nullptr);
    container.show();
    EXPECT_EQ(textOf(container.control(tocEdit)), L"50");
    EXPECT_THAT(page->IsPageDirty(), isHresult(S_FALSE));
    EXPECT_THAT(container.record(), ElementsAre("status 1", "status 0"));
    page->SetPageSite(nullptr);
}

TEST_F(MirovelComPageTest, IsMadeDirtyByEachFieldAndByTheUpDownControl)
{
    const auto dirtyAfter = [&](const std::function<void(const PageContainer&)>& edit) {
        const IPropertyPagePtr page = newPage();
        PageContainer container(page);
        container.show();
        EXPECT_THAT(page->IsPageDirty(), isHresult(S_FALSE));
        edit(container);
        const HRESULT dirty = page->IsPageDirty();
        page->SetPageSite(nullptr);
        return dirty;
    };
    EXPECT_THAT(dirtyAfter([](const PageContainer&) {}), isHresult(S_FALSE));
    EXPECT_THAT(dirtyAfter([](const PageContainer& c) { SetWindowTextW(c.control(templateName), L"a"); }),
                isHresult(S_OK));
    EXPECT_THAT(dirtyAfter([](const PageContainer& c) { SetWindowTextW(c.control(tocEdit), L"1"); }),
                isHresult(S_OK));
    EXPECT_THAT(dirtyAfter([](const PageContainer& c) {
                    NMUPDOWN step{{c.control(tocSpin), tocSpin, static_cast<UINT>(UDN_DELTAPOS)}, 50, -1};
                    SendMessageW(c.page(), WM_NOTIFY, tocSpin, reinterpret_cast<LPARAM>(&step));
                }),
                isHresult(S_OK));
}

TEST_F(MirovelComPageTest, StoresItsFieldsAndIsCleanAgain)
{
    const std::wstring file = newFile(L"my.dot");
    const IPropertyPagePtr page = newPage();
    PageContainer container(page);
    container.show();
    SetWindowTextW(container.control(templateName), file.c_str());
    SetWindowTextW(container.control(tocEdit), L"0");
    EXPECT_THAT(page->Apply(), isHresult(S_OK));
    EXPECT_EQ(storedTemplate(), file);
    EXPECT_EQ(storedLevel(), L"number 0");
    EXPECT_THAT(page->IsPageDirty(), isHresult(S_FALSE));
    SetWindowTextW(container.control(templateName), L"");
    SetWindowTextW(container.control(tocEdit), L"49 levels");
    EXPECT_THAT(page->Apply(), isHresult(S_OK));
    EXPECT_EQ(storedTemplate(), file);
    EXPECT_EQ(storedLevel(), L"number 49");
    EXPECT_THAT(container.record(), ElementsAre("status 1", "status 0", "status 1", "status 0"));
    page->SetPageSite(nullptr);
}

TEST_F(MirovelComPageTest, ReadsTwoHundredAndFiftySixCharactersOfAField)
{
    const std::wstring file = newFile(L"my.dot");
    std::wstring longName = folder;
    while (longName.size() + 9 <= 256) // many ways to say the same folder
        longName += L"\\.";
    while (longName.size() + 7 < 256)
        longName += L"\\";
    longName += L"\\my.dot";
    ASSERT_EQ(longName.size(), 256u);
    const IPropertyPagePtr page = newPage();
    PageContainer container(page);
    container.show();
    SetWindowTextW(container.control(templateName), (longName + L"and more").c_str());
    SetWindowTextW(container.control(tocEdit), (std::wstring(255, L'0') + L"99").c_str());
    EXPECT_THAT(page->Apply(), isHresult(S_OK));
    EXPECT_EQ(storedTemplate(), longName);
    EXPECT_EQ(storedLevel(), L"number 9");
    page->SetPageSite(nullptr);
}

TEST_F(MirovelComPageTest, StoresNothingUnlessItWasShown)
{
    const IPropertyPagePtr page = newPage();
    PageContainer container(page);
    const RECT place{0, 0, 400, 200};
    ASSERT_THAT(page->Activate(container.window(), &place, FALSE), isHresult(S_OK));
    EXPECT_THAT(page->Apply(), isHresult(S_OK));
    EXPECT_EQ(storedTemplate(), L"(none)");
    EXPECT_EQ(storedLevel(), L"(none)");
}

TEST_F(MirovelComPageTest, AnswersMisuse)
{
    const IPropertyPagePtr page = newPage();
    PageContainer container(page);
    const RECT place{1, 2, 301, 152};
    MSG message{};
    EXPECT_THAT(page->Deactivate(), isHresult(E_UNEXPECTED));
    EXPECT_THAT(page->Show(SW_SHOW), isHresult(E_UNEXPECTED));
    EXPECT_THAT(page->Move(&place), isHresult(E_UNEXPECTED));
    EXPECT_THAT(page->Apply(), isHresult(E_UNEXPECTED));
    EXPECT_THAT(page->TranslateAccelerator(&message), isHresult(E_UNEXPECTED));
    EXPECT_THAT(page->TranslateAccelerator(nullptr), isHresult(E_POINTER));
    EXPECT_THAT(page->Move(nullptr), isHresult(E_POINTER));
    EXPECT_THAT(page->Activate(container.window(), nullptr, FALSE), isHresult(E_POINTER));
    EXPECT_THAT(page->Activate(nullptr, &place, FALSE), isHresult(E_INVALIDARG));
    EXPECT_THAT(page->Activate(container.window(), &place, FALSE), isHresult(S_OK));
    EXPECT_THAT(page->Activate(container.window(), &place, FALSE), isHresult(E_UNEXPECTED));
    EXPECT_THAT(page->Help(L""), isHresult(E_NOTIMPL));
}

TEST_F(MirovelComPageTest, LiesWhereItsContainerPutsIt)
{
    const IPropertyPagePtr page = newPage();
    PageContainer container(page);
    const RECT first{1, 2, 301, 152};
    const RECT second{5, 6, 205, 106};
    ASSERT_THAT(page->Activate(container.window(), &first, TRUE), isHresult(S_OK));
    EXPECT_EQ(GetParent(container.page()), container.window());
    EXPECT_EQ(shown(placeIn(container.window(), container.page())), shown(first));
    EXPECT_THAT(page->Move(&second), isHresult(S_OK));
    EXPECT_EQ(shown(placeIn(container.window(), container.page())), shown(second));
}

TEST_F(MirovelComPageTest, HasNoUseForObjects)
{
    const IPropertyPagePtr page = newPage();
    PageContainer container(page);
    IUnknown* objects[] = {&container, &container};
    EXPECT_THAT(page->SetObjects(2, objects), isHresult(S_OK));
    EXPECT_THAT(page->SetObjects(0, nullptr), isHresult(S_OK));
    EXPECT_EQ(container.count, 1u);
}

TEST_F(MirovelComPageTest, SurvivesItsWindow)
{
    const IPropertyPagePtr page = newPage();
    {
        PageContainer container(page);
        container.show();
        page->SetPageSite(nullptr);
    }
    EXPECT_THAT(page->Apply(), isHresult(E_UNEXPECTED));
    EXPECT_THAT(page->Deactivate(), isHresult(E_UNEXPECTED));
    PageContainer another(page);
    another.show();
    EXPECT_EQ(textOf(another.control(tocEdit)), L"50");
    page->SetPageSite(nullptr);
}

TEST_F(MirovelComPageTest, TakesItsWindowAlongWhenItIsReleasedWhileActive)
{
    IPropertyPagePtr page = newPage();
    PageContainer container(page);
    container.show();
    page = nullptr;
    EXPECT_EQ(container.page(), nullptr);
    EXPECT_EQ(container.count, 1u);
}

} // namespace
