// The program's own page at the densities of today's screens.
#include "Density.h"
#include "Hresult.h"
#include "WritingPageFixture.h"

#include <tuple>

namespace {

std::wstring classOf(HWND window)
{
    wchar_t name[64];
    GetClassNameW(window, name, 64);
    return name;
}

RECT placeOf(HWND window)
{
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

/// The width of a text in a control's own font.
LONG widthOf(HWND control, const std::wstring& text, UINT format)
{
    const HDC context = GetDC(control);
    const HGDIOBJ former =
        SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    RECT size{};
    DrawTextW(context, text.c_str(), -1, &size, DT_CALCRECT | DT_SINGLELINE | format);
    SelectObject(context, former);
    ReleaseDC(control, context);
    return size.right;
}

class WritingPageLayoutTest : public WritingPageFixture
{
protected:
    WritingPageLayoutTest() { container.show(); }
    ~WritingPageLayoutTest() override { writing.SetPageSite(nullptr); }

    std::vector<HWND> controls() const
    {
        std::vector<HWND> all;
        for (HWND each = GetWindow(container.page(), GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT))
            all.push_back(each);
        return all;
    }

    PageContainer container{writing};
};

TEST_F(WritingPageLayoutTest, IsDrawnAtTheDensityAskedFor)
{
    const HDC screen = GetDC(nullptr);
    EXPECT_EQ(GetDeviceCaps(screen, LOGPIXELSY), wantedDensity());
    ReleaseDC(nullptr, screen);
}

TEST_F(WritingPageLayoutTest, HasRoomForEachControlByItself)
{
    const RECT page = placeOf(container.page());
    const std::vector<HWND> all = controls();
    EXPECT_EQ(all.size(), 2 + 5 * allRows.size());
    for (const HWND one : all) {
        const RECT place = placeOf(one);
        RECT common{};
        EXPECT_TRUE(IntersectRect(&common, &place, &page) && EqualRect(&common, &place)) << GetDlgCtrlID(one);
        for (const HWND other : all) {
            const RECT others = placeOf(other);
            EXPECT_TRUE(one == other || !IntersectRect(&common, &place, &others))
                << GetDlgCtrlID(one) << " and " << GetDlgCtrlID(other);
        }
    }
}

TEST_F(WritingPageLayoutTest, ShowsEveryTextWhole)
{
    for (const HWND each : controls()) {
        RECT inside{};
        GetClientRect(each, &inside);
        const std::wstring text = textOf(each);
        const std::wstring name = classOf(each);
        if (name == L"Static") {
            const bool isNote = (GetWindowLongPtrW(each, GWL_STYLE) & SS_NOPREFIX) != 0;
            EXPECT_LE(widthOf(each, text, isNote ? DT_NOPREFIX : 0), inside.right)
                << testing::PrintToString(text);
        } else if (name == L"Button") {
            const bool isBox = GetDlgCtrlID(each) != openLogButton;
            const LONG mark = isBox ? GetSystemMetrics(SM_CXMENUCHECK) + 4 : 8;
            EXPECT_LE(widthOf(each, text, 0) + mark, inside.right) << testing::PrintToString(text);
        }
        const HDC context = GetDC(each);
        const HGDIOBJ former =
            SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(each, WM_GETFONT, 0, 0)));
        TEXTMETRICW metrics{};
        GetTextMetricsW(context, &metrics);
        SelectObject(context, former);
        ReleaseDC(each, context);
        EXPECT_GE(inside.bottom + 1, metrics.tmHeight) << testing::PrintToString(text);
    }
}

TEST_F(WritingPageLayoutTest, HasRoomForEveryRefusal)
{
    const auto fits = [&](int row, const std::wstring& words) {
        const HWND line = GetDlgItem(container.page(), row + notePart);
        RECT inside{};
        GetClientRect(line, &inside);
        return widthOf(line, words, DT_NOPREFIX) <= inside.right;
    };
    EXPECT_TRUE(fits(busyTime, *WritingSettings::refusalOf(SettingName::busyTimeout, L"soon")));
    EXPECT_TRUE(fits(diagnosticsFile, *WritingSettings::refusalOf(SettingName::diagnostics, L"?")));
    EXPECT_TRUE(fits(diagnosticsFile, *WritingSettings::refusalOf(SettingName::diagnostics, L"a\\")));
    for (const int row : allRows)
        EXPECT_TRUE(fits(row, L"Not stored: Windows refuses it. " +
                                  std::wstring(_com_error(E_ACCESSDENIED).ErrorMessage())))
            << row;
}

TEST_F(WritingPageLayoutTest, HasRoomForEveryChoice)
{
    for (const int row : {composition, strict, ownWord}) {
        const HWND list = GetDlgItem(container.page(), row + fieldPart);
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        ASSERT_TRUE(GetComboBoxInfo(list, &info));
        const auto count = static_cast<WPARAM>(SendMessageW(list, CB_GETCOUNT, 0, 0));
        EXPECT_EQ(count, row == composition ? 3U : 2U);
        for (WPARAM i = 0; i < count; ++i) {
            wchar_t text[64] = L"";
            SendMessageW(list, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text));
            EXPECT_LE(widthOf(list, text, DT_NOPREFIX), info.rcItem.right - info.rcItem.left);
        }
    }
}

} // namespace
