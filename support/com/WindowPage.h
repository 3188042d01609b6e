#pragma once

#include "ExceptionTranslation.h"
#include "IPropertyPageImpl.h"

#include <utility>

/// A property page whose fields stand in a window of its own. The window comes with `Activate` and goes with
/// `Deactivate`; a page fills the fields when it is shown for the first time in between.
///
/// `Window` is made without a window of the system's and has `create(HWND, const RECT&)`, `destroy()`,
/// `show(UINT)`, `move(const RECT&)`, `focusFirstField()`, and true while the system's window is there.
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

protected:
    template <class... Arguments>
    explicit WindowPage(Arguments&&... arguments) : window_(std::forward<Arguments>(arguments)...)
    {
    }
    ~WindowPage() = default;

    /// Puts what is stored into the fields.
    virtual void fill() = 0;

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
    /// Whether the fields are empty, and nobody's input.
    [[nodiscard]] bool needsFilling() const noexcept { return needsFilling_; }

private:
    Window window_;
    bool needsFilling_ = true;
};
