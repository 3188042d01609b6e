#pragma once

#include "WinUtils/CommonControls.h"

#include <windows.h>

#include <ocidl.h>

#include <cstddef>
#include <vector>

/// A window with property pages behind tabs, OK, Cancel and Apply.
///
/// OK and Apply have each page applied in which something has changed, one after the other and in front while
/// it is. A page that refuses an input says so itself, stays in front, and the window stays open.
///
/// Used on the page's thread. The dialog is a resource of the program.
class PageFrame final : private IPropertyPageSite
{
public:
    /// The pages, one or more, are borrowed and not active yet. Raises `_com_error` with what they answer.
    explicit PageFrame(std::vector<IPropertyPage*> pages);
    /// Leaves the pages as they were before.
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
    void addTab(const wchar_t* title) noexcept;
    /// Where the pages lie.
    RECT layOut(SIZE page) noexcept;
    void close() noexcept;
    void command(int control) noexcept;
    /// Shows a page instead of the one in front.
    void turnTo(std::size_t page) noexcept;
    /// True for the keys that turn the page.
    [[nodiscard]] bool turnsPage(const MSG& message) noexcept;
    /// False when a page could not be applied, which the user knows by then.
    bool applied() noexcept;
    bool isApplied(IPropertyPage& page) noexcept;
    void updateApplyButton() noexcept;
    [[nodiscard]] bool isDirty() const noexcept;
    [[nodiscard]] HWND tabs() const noexcept;
    [[nodiscard]] RECT inPixels(RECT dialogUnits) const noexcept;

    CommonControls commonControls_;
    std::vector<IPropertyPage*> pages_;
    std::size_t front_ = 0;
    HWND window_ = nullptr;
};
