#pragma once

#include <windows.h>

#include <ocidl.h>

#include <mutex>
#include <string>
#include <vector>

/// A small container for one property page: a dialog with the page, an OK, a Cancel and an Apply button, and
/// the page's site. It offers keys to the page first and then treats them as a dialog does. Keeps a record of
/// what happens.
class PageContainer final : public IPropertyPageSite
{
public:
    static constexpr int applyButton = 3;

    /// `page` is borrowed; it is neither activated nor given this site.
    explicit PageContainer(IPropertyPage& page);
    ~PageContainer();
    PageContainer(const PageContainer&) = delete;
    PageContainer& operator=(const PageContainer&) = delete;

    /// As containers do: site, information, activation in front of the buttons, showing.
    void show();

    /// Dispatches messages until `end`, which may be called on any thread.
    void run();
    void end();

    HWND window() const { return window_; }
    /// The page's window; null when there is none.
    HWND page() const;
    HWND control(int id) const { return GetDlgItem(page(), id); }
    HWND button(int id) const { return GetDlgItem(window_, id); }

    /// "OK", "Cancel", "Apply 0x00000000", "status 1", "offered 0x09" (a key that the page passed on).
    std::vector<std::string> record() const;
    void forget();
    ULONG count = 1;

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++count; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return --count; }

    // IPropertyPageSite
    STDMETHODIMP OnStatusChange(DWORD status) noexcept override;
    STDMETHODIMP GetLocaleID(LCID* locale) noexcept override;
    STDMETHODIMP GetPageContainer(IUnknown** container) noexcept override;
    STDMETHODIMP TranslateAccelerator(MSG* message) noexcept override;

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void note(const std::string& event);

    IPropertyPage& page_;
    HWND window_ = nullptr;
    bool ended_ = false;
    mutable std::mutex lock_;
    std::vector<std::string> record_;
};
