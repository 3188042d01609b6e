#pragma once

#include <windows.h>

/// A dialog of the child style, made of a module's resource: what is the same for all that stand on a page.
/// Used on one thread. Failures of Windows raise `_com_error`.
class ChildDialog
{
public:
    ChildDialog(const ChildDialog&) = delete;
    ChildDialog& operator=(const ChildDialog&) = delete;

    void destroy() noexcept;
    /// Null while there is none.
    [[nodiscard]] HWND handle() const noexcept { return window_; }
    explicit operator bool() const noexcept { return window_ != nullptr; }

    void move(const RECT& place) const noexcept;
    void show(UINT showCommand) const noexcept;

protected:
    ChildDialog() = default;
    ~ChildDialog() { destroy(); }

    /// In pixels, as the resource and its font make it.
    static SIZE naturalSize(HINSTANCE module, int resource);
    /// Hidden. `parent` may destroy it.
    void create(HINSTANCE module, int resource, HWND parent);

private:
    /// A message, and what its sender is to be answered. What it throws ends there.
    virtual INT_PTR answer(UINT message, WPARAM wParam, LPARAM lParam) = 0;

    static HWND make(HINSTANCE module, int resource, HWND parent, ChildDialog* owner);
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    HWND window_ = nullptr;
};
