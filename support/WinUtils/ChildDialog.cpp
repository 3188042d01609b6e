#include "ChildDialog.h"

#include "win32/WindowsError.h"

HWND ChildDialog::make(HINSTANCE module, int resource, HWND parent, ChildDialog* owner)
{
    const HWND window = CreateDialogParamW(module, MAKEINTRESOURCEW(resource), parent, procedure,
                                           reinterpret_cast<LPARAM>(owner));
    if (window == nullptr)
        throwLastError();
    return window;
}

SIZE ChildDialog::naturalSize(HINSTANCE module, int resource)
{
    // A dialog of the child style needs a parent, even to be measured.
    const HWND window = make(module, resource, GetDesktopWindow(), nullptr);
    RECT place{};
    GetWindowRect(window, &place);
    DestroyWindow(window);
    return {place.right - place.left, place.bottom - place.top};
}

void ChildDialog::create(HINSTANCE module, int resource, HWND parent)
{
    make(module, resource, parent, this);
}

void ChildDialog::destroy() noexcept
{
    if (window_ != nullptr)
        DestroyWindow(window_);
}

void ChildDialog::move(const RECT& place) const noexcept
{
    MoveWindow(window_, place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
}

void ChildDialog::show(UINT showCommand) const noexcept
{
    ShowWindow(window_, static_cast<int>(showCommand));
}

INT_PTR CALLBACK ChildDialog::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
try {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        if (auto* const self = reinterpret_cast<ChildDialog*>(lParam))
            self->window_ = window;
        return FALSE; // The focus stays where it is.
    }
    auto* const self = reinterpret_cast<ChildDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (self == nullptr)
        return FALSE;
    if (message == WM_NCDESTROY)
        self->window_ = nullptr;
    return self->answer(message, wParam, lParam);
} catch (...) { // The user sees that nothing has changed; there is no one else to tell.
    return FALSE;
}
