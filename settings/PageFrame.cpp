#include "PageFrame.h"

#include "resource.h"

#include <comdef.h>
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace {

// Dialog units.
constexpr LONG margin = 7;
constexpr LONG gap = 4;
constexpr LONG buttonWidth = 50;
constexpr LONG buttonHeight = 14;
constexpr RECT tabPadding = {5, 2, 0, 0};
constexpr std::array buttonsFromTheRight = {applyButton, IDCANCEL, IDOK};

LONG widthOf(const RECT& place) noexcept
{
    return place.right - place.left;
}

LONG heightOf(const RECT& place) noexcept
{
    return place.bottom - place.top;
}

bool isKey(const MSG& message) noexcept
{
    return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
}

/// The window's own size for that of its content.
SIZE outerSize(HWND window, SIZE content) noexcept
{
    RECT outer{0, 0, content.cx, content.cy};
    AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)));
    return {widthOf(outer), heightOf(outer)};
}

void centre(HWND window, SIZE size) noexcept
{
    RECT screen{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    SetWindowPos(window, nullptr, (screen.left + screen.right - size.cx) / 2,
                 (screen.top + screen.bottom - size.cy) / 2, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

struct PageFacts
{
    std::wstring title;
    SIZE size;
};

PageFacts factsOf(IPropertyPage& page)
{
    PROPPAGEINFO info{};
    info.cb = sizeof info;
    _com_util::CheckError(page.GetPageInfo(&info));
    PageFacts facts{info.pszTitle != nullptr ? info.pszTitle : L"", info.size};
    for (void* text : std::array{info.pszTitle, info.pszDocString, info.pszHelpFile})
        CoTaskMemFree(text);
    // Tabs have no letters of their own: the page in front may have the same one.
    std::erase(facts.title, L'&');
    return facts;
}

bool isDown(int key) noexcept
{
    return GetKeyState(key) < 0;
}

} // namespace

PageFrame::PageFrame(std::vector<IPropertyPage*> pages)
    : commonControls_(ICC_TAB_CLASSES), pages_(std::move(pages))
{
    window_ = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(frameDialog), nullptr, procedure,
                                 reinterpret_cast<LPARAM>(this));
    if (window_ == nullptr)
        throw _com_error(HRESULT_FROM_WIN32(GetLastError()));
    try {
        open();
    } catch (...) {
        close();
        throw;
    }
}

PageFrame::~PageFrame()
{
    close();
}

void PageFrame::open()
{
    const RECT padding = inPixels(tabPadding);
    SendMessageW(tabs(), TCM_SETPADDING, 0, MAKELPARAM(padding.left, padding.top));
    SIZE size{};
    for (IPropertyPage* const page : pages_) {
        _com_util::CheckError(page->SetPageSite(this));
        const PageFacts facts = factsOf(*page);
        addTab(facts.title.c_str());
        size = {std::max(size.cx, facts.size.cx), std::max(size.cy, facts.size.cy)};
    }
    const RECT place = layOut(size);
    for (IPropertyPage* const page : pages_)
        _com_util::CheckError(page->Activate(window_, &place, FALSE));
}

void PageFrame::addTab(const wchar_t* title) noexcept
{
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<wchar_t*>(title);
    SendMessageW(tabs(), TCM_INSERTITEMW, pages_.size(), reinterpret_cast<LPARAM>(&item));
}

/// The tabs above, the page below them, the buttons in a row at the right below it.
RECT PageFrame::layOut(SIZE page) noexcept
{
    const RECT edge = inPixels({margin, margin, gap, gap});
    const RECT button = inPixels({0, 0, buttonWidth, buttonHeight});
    // What the tabs alone need: the pages lie on the window.
    RECT strip{0, 0, page.cx, 0};
    SendMessageW(tabs(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&strip));
    MoveWindow(tabs(), edge.left, edge.top, page.cx, strip.top, FALSE);
    const RECT place{edge.left, edge.top + strip.top, edge.left + page.cx, edge.top + strip.top + page.cy};
    LONG right = place.right;
    const LONG top = place.bottom + edge.bottom;
    for (const int each : buttonsFromTheRight) {
        MoveWindow(GetDlgItem(window_, each), right - button.right, top, button.right, button.bottom, FALSE);
        right -= button.right + edge.right;
    }
    const SIZE content{page.cx + 2 * edge.left, top + button.bottom + edge.top};
    centre(window_, outerSize(window_, content));
    return place;
}

void PageFrame::run()
{
    _com_util::CheckError(pages_[front_]->Show(SW_SHOW));
    updateApplyButton();
    ShowWindow(window_, SW_SHOW);
    SetForegroundWindow(window_);
    MSG message;
    while (window_ != nullptr && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (turnsPage(message))
            continue;
        if (isKey(message) && pages_[front_]->TranslateAccelerator(&message) == S_OK)
            continue;
        if (window_ != nullptr && IsDialogMessageW(window_, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void PageFrame::close() noexcept
{
    if (window_ == nullptr)
        return;
    for (IPropertyPage* const page : pages_) {
        page->Deactivate();
        page->SetPageSite(nullptr);
    }
    DestroyWindow(window_);
    window_ = nullptr;
}

void PageFrame::command(int control) noexcept
{
    switch (control) {
    case IDOK:
        if (applied())
            close();
        break;
    case IDCANCEL:
        close();
        break;
    case applyButton:
        applied();
        break;
    default:
        break;
    }
}

void PageFrame::turnTo(std::size_t page) noexcept
{
    if (page == front_)
        return;
    const bool isInTabs = GetFocus() == tabs();
    pages_[front_]->Show(SW_HIDE);
    front_ = page;
    SendMessageW(tabs(), TCM_SETCURSEL, page, 0);
    pages_[front_]->Show(SW_SHOW);
    // A page takes the keyboard when it is shown; who walks along the tabs goes on there.
    if (isInTabs)
        SetFocus(tabs());
}

bool PageFrame::turnsPage(const MSG& message) noexcept
{
    if (message.message != WM_KEYDOWN || !isDown(VK_CONTROL) ||
        (message.hwnd != window_ && !IsChild(window_, message.hwnd)))
        return false;
    const bool isBack = message.wParam == VK_PRIOR || (message.wParam == VK_TAB && isDown(VK_SHIFT));
    if (!isBack && message.wParam != VK_NEXT && message.wParam != VK_TAB)
        return false;
    turnTo((front_ + (isBack ? pages_.size() - 1 : 1)) % pages_.size());
    return true;
}

bool PageFrame::applied() noexcept
{
    const std::size_t before = front_;
    const HWND focus = GetFocus();
    for (std::size_t page = 0; page < pages_.size(); ++page) {
        if (pages_[page]->IsPageDirty() != S_OK)
            continue;
        turnTo(page);
        if (!isApplied(*pages_[page]))
            return false;
    }
    turnTo(before);
    // Pages take the keyboard when they are shown; it goes back to where the user was.
    if (GetFocus() != focus)
        SetFocus(IsWindowEnabled(focus) ? focus : GetDlgItem(window_, IDOK));
    return true;
}

bool PageFrame::isApplied(IPropertyPage& page) noexcept
{
    const HRESULT result = page.Apply();
    // By E_UNEXPECTED the page means that it has told the user what is wrong.
    if (FAILED(result) && result != E_UNEXPECTED) {
        const _com_error error(result);
        MessageBoxW(window_, error.ErrorMessage(), L"The settings could not be stored", MB_OK | MB_ICONERROR);
    }
    return SUCCEEDED(result);
}

void PageFrame::updateApplyButton() noexcept
{
    const HWND button = GetDlgItem(window_, applyButton);
    // The keyboard would be lost in a button that cannot be pressed any more.
    if (!isDirty() && GetFocus() == button)
        SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(window_, IDOK)), TRUE);
    EnableWindow(button, isDirty());
}

bool PageFrame::isDirty() const noexcept
{
    return std::ranges::any_of(pages_, [](IPropertyPage* page) { return page->IsPageDirty() == S_OK; });
}

HWND PageFrame::tabs() const noexcept
{
    return GetDlgItem(window_, pageTabs);
}

RECT PageFrame::inPixels(RECT dialogUnits) const noexcept
{
    MapDialogRect(window_, &dialogUnits);
    return dialogUnits;
}

HRESULT PageFrame::QueryInterface(REFIID iid, void** out) noexcept
{
    if (out == nullptr)
        return E_POINTER;
    const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IPropertyPageSite);
    *out = known ? static_cast<IPropertyPageSite*>(this) : nullptr;
    return known ? S_OK : E_NOINTERFACE;
}

HRESULT PageFrame::OnStatusChange(DWORD /*status*/) noexcept
{
    updateApplyButton();
    return S_OK;
}

HRESULT PageFrame::GetLocaleID(LCID* locale) noexcept
{
    if (locale == nullptr)
        return E_POINTER;
    *locale = GetUserDefaultLCID();
    return S_OK;
}

HRESULT PageFrame::GetPageContainer(IUnknown** container) noexcept
{
    if (container == nullptr)
        return E_POINTER;
    *container = nullptr;
    return E_NOTIMPL;
}

/// What the page leaves alone is treated as a dialog does, in run().
HRESULT PageFrame::TranslateAccelerator(MSG* /*message*/) noexcept
{
    return S_FALSE;
}

INT_PTR CALLBACK PageFrame::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        return FALSE; // The focus is the page's.
    }
    auto* const self = reinterpret_cast<PageFrame*>(GetWindowLongPtrW(window, DWLP_USER));
    if (self == nullptr)
        return FALSE;
    if (message == WM_COMMAND) {
        self->command(LOWORD(wParam));
        return TRUE;
    }
    const bool isNotice = message == WM_NOTIFY && wParam == pageTabs;
    if (isNotice && reinterpret_cast<const NMHDR*>(lParam)->code == static_cast<UINT>(TCN_SELCHANGE))
        self->turnTo(static_cast<std::size_t>(SendMessageW(self->tabs(), TCM_GETCURSEL, 0, 0)));
    return FALSE;
}
