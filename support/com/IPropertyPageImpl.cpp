#include "IPropertyPageImpl.h"

HRESULT IPropertyPageImpl::SetPageSite(IPropertyPageSite* site) noexcept
{
    if (site != nullptr && site_)
        return E_UNEXPECTED;
    site_ = site;
    return S_OK;
}

HRESULT IPropertyPageImpl::Activate(HWND /*parent*/, LPCRECT /*place*/, BOOL /*modal*/) noexcept
{
    return E_NOTIMPL;
}

HRESULT IPropertyPageImpl::Deactivate() noexcept
{
    return E_NOTIMPL;
}

HRESULT IPropertyPageImpl::GetPageInfo(PROPPAGEINFO* /*info*/) noexcept
{
    return E_NOTIMPL;
}

HRESULT IPropertyPageImpl::SetObjects(ULONG count, IUnknown** objects) noexcept
{
    return count != 0 && objects == nullptr ? E_POINTER : S_OK;
}

HRESULT IPropertyPageImpl::Show(UINT /*showCommand*/) noexcept
{
    return E_NOTIMPL;
}

HRESULT IPropertyPageImpl::Move(LPCRECT /*place*/) noexcept
{
    return E_NOTIMPL;
}

HRESULT IPropertyPageImpl::IsPageDirty() noexcept
{
    return dirty_ ? S_OK : S_FALSE;
}

HRESULT IPropertyPageImpl::Apply() noexcept
{
    return E_NOTIMPL;
}

HRESULT IPropertyPageImpl::Help(LPCOLESTR /*helpDirectory*/) noexcept
{
    return E_NOTIMPL;
}

HRESULT IPropertyPageImpl::TranslateAccelerator(MSG* /*message*/) noexcept
{
    return E_NOTIMPL;
}

void IPropertyPageImpl::setDirty(bool dirty) noexcept
{
    if (dirty == dirty_)
        return;
    dirty_ = dirty;
    if (site_)
        site_->OnStatusChange(dirty ? PROPPAGESTATUS_DIRTY : 0);
}
