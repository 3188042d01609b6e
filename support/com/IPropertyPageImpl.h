#pragma once

#include "ComPointers.h"

#include <ocidl.h>
#include <windows.h>

/// The part of a property page that is the same for every page: it keeps the site and the dirty flag. A page
/// derives from it and overrides what it has behaviour for; everything else answers E_NOTIMPL.
class IPropertyPageImpl : public IPropertyPage
{
public:
    // IPropertyPage
    STDMETHODIMP SetPageSite(IPropertyPageSite* site) noexcept override;
    STDMETHODIMP Activate(HWND parent, LPCRECT place, BOOL modal) noexcept override;
    STDMETHODIMP Deactivate() noexcept override;
    STDMETHODIMP GetPageInfo(PROPPAGEINFO* info) noexcept override;
    STDMETHODIMP SetObjects(ULONG count, IUnknown** objects) noexcept override;
    STDMETHODIMP Show(UINT showCommand) noexcept override;
    STDMETHODIMP Move(LPCRECT place) noexcept override;
    STDMETHODIMP IsPageDirty() noexcept override;
    STDMETHODIMP Apply() noexcept override;
    STDMETHODIMP Help(LPCOLESTR helpDirectory) noexcept override;
    STDMETHODIMP TranslateAccelerator(MSG* message) noexcept override;

protected:
    IPropertyPageImpl() = default;
    ~IPropertyPageImpl() = default;

    /// Marks the page as changed or unchanged, and tells the site.
    void setDirty(bool dirty) noexcept;

    /// Borrowed; null without one.
    [[nodiscard]] IPropertyPageSite* site() const noexcept { return site_; }

private:
    IPropertyPageSitePtr site_;
    bool dirty_ = false;
};
