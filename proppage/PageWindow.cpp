#include "PageWindow.h"

#include "CComModule.h"
#include "PageResources.h"
#include "TextConversion.h"

#include <cwchar>
#include <cwctype>
#include <string>

namespace {

constexpr DWORD controlClasses = ICC_UPDOWN_CLASS;

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

SIZE PageWindow::naturalSize()
{
    const CommonControls controls(controlClasses);
    return ChildDialog::naturalSize(comModule().instance(), pageDialog);
}

void PageWindow::create(HWND parent, const RECT& place)
{
    if (!controls_)
        controls_.emplace(controlClasses);
    ChildDialog::create(comModule().instance(), pageDialog, parent);
    // The container's own Tab order goes through the page.
    SetWindowLongPtrW(handle(), GWL_EXSTYLE, GetWindowLongPtrW(handle(), GWL_EXSTYLE) | WS_EX_CONTROLPARENT);
    move(place);
}

void PageWindow::focusFirstField() const noexcept
{
    const HWND first = GetNextDlgTabItem(handle(), nullptr, FALSE);
    SendMessageW(handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first), TRUE);
}

void PageWindow::setTemplateName(const wchar_t* name) const noexcept
{
    SetDlgItemTextW(handle(), templateNameField, name);
}

void PageWindow::setTocLevel(int level) const noexcept
{
    SetDlgItemInt(handle(), tocLevelField, static_cast<UINT>(level), TRUE);
}

void PageWindow::setTocLevelRange(int lowest, int highest) const noexcept
{
    SendDlgItemMessageW(handle(), tocLevelSpin, UDM_SETRANGE32, static_cast<WPARAM>(lowest), highest);
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
    GetDlgItemTextW(handle(), field, text.data(), static_cast<int>(text.size()));
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
            if (message.hwnd != GetDlgItem(handle(), browseButton))
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
    return IsDialogMessageW(handle(), &message) != FALSE;
}

bool PageWindow::hasMnemonic(WPARAM character) const noexcept
{
    const wint_t letter = std::towupper(static_cast<wint_t>(character));
    for (HWND control = GetWindow(handle(), GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
        if ((SendMessageW(control, WM_GETDLGCODE, 0, 0) & (DLGC_STATIC | DLGC_BUTTON)) != 0 &&
            mnemonicOf(control) == letter)
            return true;
    return false;
}

bool PageWindow::tabLeaves(HWND focus) const noexcept
{
    if (isDown(VK_CONTROL))
        return true;
    const HWND first = GetNextDlgTabItem(handle(), nullptr, FALSE);
    return isDown(VK_SHIFT) ? focus == first : GetNextDlgTabItem(handle(), focus, FALSE) == first;
}

INT_PTR PageWindow::answer(UINT message, WPARAM wParam, LPARAM lParam)
{
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
    default:
        break;
    }
    return FALSE;
}
