#include "PageWindow.h"

#include "CComModule.h"
#include "PageResources.h"
#include "TextConversion.h"
#include "win32/WindowsError.h"

#include <cwchar>
#include <cwctype>
#include <string>

namespace {

HWND createDialog(HWND parent, DLGPROC procedure, PageWindow* owner)
{
    const HWND window = CreateDialogParamW(comModule().instance(), MAKEINTRESOURCEW(pageDialog), parent,
                                           procedure, reinterpret_cast<LPARAM>(owner));
    if (window == nullptr)
        throwLastError();
    return window;
}

bool isDown(int key) noexcept
{
    return GetKeyState(key) < 0;
}

/// The letter behind the first single '&', in upper case; 0 without one.
wint_t mnemonicOf(HWND control) noexcept
{
    wchar_t text[128];
    GetWindowTextW(control, text, 128);
    for (const wchar_t* each = text; (each = std::wcschr(each, L'&')) != nullptr; each += 2) {
        if (each[1] == L'\0')
            return 0;
        if (each[1] != L'&')
            return std::towupper(static_cast<wint_t>(each[1]));
    }
    return 0;
}

} // namespace

PageWindow::CommonControls::CommonControls() : library_(L"comctl32.dll")
{
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_UPDOWN_CLASS};
    library_.function<decltype(InitCommonControlsEx)>("InitCommonControlsEx")(&classes);
}

SIZE PageWindow::naturalSize()
{
    const CommonControls controls;
    // A dialog of the child style needs a parent, even to be measured.
    const HWND window = createDialog(GetDesktopWindow(), procedure, nullptr);
    RECT place{};
    GetWindowRect(window, &place);
    DestroyWindow(window);
    return {place.right - place.left, place.bottom - place.top};
}

void PageWindow::create(HWND parent, const RECT& place)
{
    if (!controls_)
        controls_.emplace();
    createDialog(parent, procedure, this);
    // The container's own Tab order goes through the page.
    SetWindowLongPtrW(window_, GWL_EXSTYLE, GetWindowLongPtrW(window_, GWL_EXSTYLE) | WS_EX_CONTROLPARENT);
    move(place);
}

void PageWindow::destroy() noexcept
{
    if (window_ != nullptr)
        DestroyWindow(window_);
}

void PageWindow::move(const RECT& place) const noexcept
{
    MoveWindow(window_, place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
}

void PageWindow::show(UINT showCommand) const noexcept
{
    ShowWindow(window_, static_cast<int>(showCommand));
}

void PageWindow::focusFirstField() const noexcept
{
    const HWND first = GetNextDlgTabItem(window_, nullptr, FALSE);
    SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first), TRUE);
}

void PageWindow::setTemplateName(const wchar_t* name) const noexcept
{
    SetDlgItemTextW(window_, templateNameField, name);
}

void PageWindow::setTocLevel(int level) const noexcept
{
    SetDlgItemInt(window_, tocLevelField, static_cast<UINT>(level), TRUE);
}

void PageWindow::setTocLevelRange(int lowest, int highest) const noexcept
{
    SendDlgItemMessageW(window_, tocLevelSpin, UDM_SETRANGE32, static_cast<WPARAM>(lowest), highest);
}

QdxString PageWindow::templateName(std::size_t limit) const
{
    return text(templateNameField, limit);
}

QdxString PageWindow::tocLevel(std::size_t limit) const
{
    return text(tocLevelField, limit);
}

QdxString PageWindow::text(int field, std::size_t limit) const
{
    std::wstring text(limit + 1, L'\0');
    GetDlgItemTextW(window_, field, text.data(), static_cast<int>(text.size()));
    return toNarrow(text.c_str());
}

bool PageWindow::translateKey(MSG& message) const noexcept
{
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST)
        return false;
    if (message.message == WM_SYSCHAR && !hasMnemonic(message.wParam))
        return false;
    if (message.message == WM_KEYDOWN) {
        switch (message.wParam) {
        case VK_ESCAPE:
            return false;
        case VK_RETURN:
            if (message.hwnd != GetDlgItem(window_, browseButton))
                return false;
            SendMessageW(message.hwnd, BM_CLICK, 0, 0);
            return true;
        case VK_TAB:
            if (tabLeaves(message.hwnd))
                return false;
            break;
        default:
            break;
        }
    }
    return IsDialogMessageW(window_, &message) != FALSE;
}

bool PageWindow::hasMnemonic(WPARAM character) const noexcept
{
    const wint_t letter = std::towupper(static_cast<wint_t>(character));
    for (HWND control = GetWindow(window_, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
        if ((SendMessageW(control, WM_GETDLGCODE, 0, 0) & (DLGC_STATIC | DLGC_BUTTON)) != 0 &&
            mnemonicOf(control) == letter)
            return true;
    return false;
}

bool PageWindow::tabLeaves(HWND focus) const noexcept
{
    if (isDown(VK_CONTROL))
        return true;
    const HWND first = GetNextDlgTabItem(window_, nullptr, FALSE);
    return isDown(VK_SHIFT) ? focus == first : GetNextDlgTabItem(window_, focus, FALSE) == first;
}

INT_PTR CALLBACK PageWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        if (PageWindow* const self = reinterpret_cast<PageWindow*>(lParam))
            self->window_ = window;
        return FALSE; // The focus stays where it is.
    }
    if (PageWindow* const self = reinterpret_cast<PageWindow*>(GetWindowLongPtrW(window, DWLP_USER)))
        self->handle(message, wParam, lParam);
    return FALSE;
}

void PageWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) noexcept
try {
    const int control = LOWORD(wParam);
    const int notification = HIWORD(wParam);
    switch (message) {
    case WM_COMMAND:
        if (notification == EN_CHANGE && (control == templateNameField || control == tocLevelField))
            handlers_.edited();
        else if (notification == BN_CLICKED && control == browseButton)
            handlers_.browse();
        break;
    case WM_NOTIFY: {
        const auto* const header = reinterpret_cast<const NMHDR*>(lParam);
        if (header->idFrom == tocLevelSpin && header->code == static_cast<UINT>(UDN_DELTAPOS))
            handlers_.edited();
        break;
    }
    case WM_NCDESTROY:
        window_ = nullptr;
        break;
    default:
        break;
    }
} catch (...) { // NOLINT(bugprone-empty-catch): the user sees that nothing has changed; there is no one else
                // to tell.
}
