#include "PageFrame.h"

#include "resource.h"

#include <comdef.h>

#include <array>

namespace {

// Dialog units.
constexpr LONG margin = 7;
constexpr LONG gap = 4;
constexpr LONG buttonWidth = 50;
constexpr LONG buttonHeight = 14;
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

SIZE sizeOf(IPropertyPage& page)
{
    PROPPAGEINFO info{};
    info.cb = sizeof info;
    _com_util::CheckError(page.GetPageInfo(&info));
    for (void* text : std::array{info.pszTitle, info.pszDocString, info.pszHelpFile})
        CoTaskMemFree(text);
    return info.size;
}

} // namespace

PageFrame::PageFrame(IPropertyPage& page) : page_(page)
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
    _com_util::CheckError(page_.SetPageSite(this));
    const SIZE size = sizeOf(page_);
    layOut(size);
    RECT place = inPixels({margin, margin, 0, 0});
    place.right = place.left + size.cx;
    place.bottom = place.top + size.cy;
    _com_util::CheckError(page_.Activate(window_, &place, FALSE));
}

/// The page above, the buttons in a row at the right below it.
void PageFrame::layOut(SIZE page) noexcept
{
    const RECT edge = inPixels({margin, margin, gap, gap});
    const RECT button = inPixels({0, 0, buttonWidth, buttonHeight});
    LONG right = edge.left + page.cx;
    const LONG top = edge.top + page.cy + edge.bottom;
    for (const int each : buttonsFromTheRight) {
        MoveWindow(GetDlgItem(window_, each), right - button.right, top, button.right, button.bottom, FALSE);
        right -= button.right + edge.right;
    }
    const SIZE content{page.cx + 2 * edge.left, top + button.bottom + edge.top};
    centre(window_, outerSize(window_, content));
}

void PageFrame::run()
{
    _com_util::CheckError(page_.Show(SW_SHOW));
    updateApplyButton();
    ShowWindow(window_, SW_SHOW);
    SetForegroundWindow(window_);
    MSG message;
    while (window_ != nullptr && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (isKey(message) && page_.TranslateAccelerator(&message) == S_OK)
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
    page_.Deactivate();
    page_.SetPageSite(nullptr);
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

bool PageFrame::applied() noexcept
{
    const HRESULT result = isPageDirty() ? page_.Apply() : S_OK;
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
    if (!isPageDirty() && GetFocus() == button)
        SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(window_, IDOK)), TRUE);
    EnableWindow(button, isPageDirty());
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
    if (self == nullptr || message != WM_COMMAND)
        return FALSE;
    self->command(LOWORD(wParam));
    return TRUE;
}
