#pragma once

#include "ExceptionTranslation.h"
#include "IPropertyPageImpl.h"
#include "TaskString.h"

#include <string_view>
#include <utility>

/// A property page whose fields stand in a window of its own. The window comes with `Activate` and goes with
/// `Deactivate`; a page fills the fields when it is shown for the first time in between.
///
/// `Window` is made without a window of the system's and has `create(HWND, const RECT&)`, `destroy()`,
/// `show(UINT)`, `move(const RECT&)`, `focusFirstField()`, `naturalSize()` without an object, and true while
/// the system's window is there.
///
/// Threading: that of the page, which is one thread's.
template <class Window>
class WindowPage : public IPropertyPageImpl
{
public:
    // IPropertyPage
    /// E_POINTER without a place, E_INVALIDARG without a parent, E_UNEXPECTED while the page is active.
    STDMETHODIMP Activate(HWND parent, LPCRECT place, BOOL /*modal*/) noexcept override
    try {
        if (place == nullptr)
            return E_POINTER;
        if (!IsWindow(parent))
            return E_INVALIDARG;
        if (window_)
            return E_UNEXPECTED;
        needsFilling_ = true;
        window_.create(parent, *place);
        return S_OK;
    } catch (...) {
        return currentExceptionToHresult();
    }

    /// E_UNEXPECTED, as from `Show` and `Move`, while the page is not active.
    STDMETHODIMP Deactivate() noexcept override
    {
        if (!window_)
            return E_UNEXPECTED;
        window_.destroy();
        return S_OK;
    }

    STDMETHODIMP Show(UINT showCommand) noexcept override
    try {
        if (!window_)
            return E_UNEXPECTED;
        if (showCommand != SW_HIDE && needsFilling_)
            refill();
        window_.show(showCommand);
        if (showCommand != SW_HIDE)
            window_.focusFirstField();
        return S_OK;
    } catch (...) {
        return currentExceptionToHresult();
    }

    STDMETHODIMP Move(LPCRECT place) noexcept override
    {
        if (place == nullptr)
            return E_POINTER;
        if (!window_)
            return E_UNEXPECTED;
        window_.move(*place);
        return S_OK;
    }

    /// Active or not. The caller frees the texts with CoTaskMemFree.
    STDMETHODIMP GetPageInfo(PROPPAGEINFO* info) noexcept override
    try {
        if (info == nullptr)
            return E_POINTER;
        TaskString ownTitle = taskString(title());
        TaskString ownDescription = taskString(description());
        const SIZE size = Window::naturalSize();
        *info = {sizeof *info, ownTitle.release(), size, ownDescription.release(), nullptr, 0};
        return S_OK;
    } catch (...) {
        return currentExceptionToHresult();
    }

    /// E_UNEXPECTED while the page is not active, and when an input was refused, which the user has been told
    /// by then.
    STDMETHODIMP Apply() noexcept override
    try {
        if (!window_)
            return E_UNEXPECTED;
        if (needsFilling_)
            return S_OK; // Never shown: the empty fields are nobody's input.
        return store() ? S_OK : E_UNEXPECTED;
    } catch (...) {
        return currentExceptionToHresult();
    }

protected:
    template <class... Arguments>
    explicit WindowPage(Arguments&&... arguments) : window_(std::forward<Arguments>(arguments)...)
    {
    }
    ~WindowPage() = default;

    /// \name What differs between pages
    /// @{
    [[nodiscard]] virtual std::wstring_view title() const = 0;
    [[nodiscard]] virtual std::wstring_view description() const = 0;
    /// Puts what is stored into the fields.
    virtual void fill() = 0;
    /// Stores what stands in the fields, which are edited no more then; false when an input was refused.
    virtual bool store() = 0;
    /// @}

    /// `fill`, after which nothing is edited.
    void refill()
    {
        fill();
        needsFilling_ = false;
        setDirty(false);
    }

    /// For the window to call when the user has changed something.
    void edited() noexcept
    {
        if (!needsFilling_)
            setDirty(true);
    }

    [[nodiscard]] Window& window() noexcept { return window_; }
    [[nodiscard]] const Window& window() const noexcept { return window_; }

private:
    Window window_;
    bool needsFilling_ = true;
};
