#pragma once

#include <windows.h>

#include <ocidl.h>

/// A window with one property page, OK, Cancel and Apply.
///
/// OK and Apply have the page applied when something in it has changed. A page that refuses an input says so
/// itself, and the window stays open.
///
/// Used on the page's thread. The dialog is a resource of the program.
class PageFrame final : private IPropertyPageSite
{
public:
    /// `page` is borrowed, and not active yet. Raises `_com_error` with what it answers.
    explicit PageFrame(IPropertyPage& page);
    /// Leaves the page as it was before.
    ~PageFrame();
    PageFrame(const PageFrame&) = delete;
    PageFrame& operator=(const PageFrame&) = delete;

    /// Shows the window and dispatches messages until the user has closed it. Once.
    void run();

    /// Null once it is closed.
    [[nodiscard]] HWND window() const noexcept { return window_; }

private:
    // IUnknown; the frame's life is its owner's affair.
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }

    // IPropertyPageSite
    STDMETHODIMP OnStatusChange(DWORD status) noexcept override;
    STDMETHODIMP GetLocaleID(LCID* locale) noexcept override;
    STDMETHODIMP GetPageContainer(IUnknown** container) noexcept override;
    STDMETHODIMP TranslateAccelerator(MSG* message) noexcept override;

    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void open();
    void layOut(SIZE page) noexcept;
    void close() noexcept;
    void command(int control) noexcept;
    /// False when the page could not be applied, which the user knows by then.
    bool applied() noexcept;
    void updateApplyButton() noexcept;
    [[nodiscard]] bool isPageDirty() const noexcept { return page_.IsPageDirty() == S_OK; }
    [[nodiscard]] RECT inPixels(RECT dialogUnits) const noexcept;

    IPropertyPage& page_;
    HWND window_ = nullptr;
};
