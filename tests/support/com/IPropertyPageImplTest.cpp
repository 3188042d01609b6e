#include "IPropertyPageImpl.h"

#include "CComCoClass.h"
#include "CComSingleThreadModel.h"
#include "Hresult.h"
#include "InterfaceList.h"

#include <IDocument.h>
#include <gtest/gtest.h>

#include <vector>

namespace {

class TestPage : public CComObjectRootEx<CComSingleThreadModel>,
                 public CComCoClass<TestPage, &CLSID_MirovelComPage>,
                 public IPropertyPageImpl
{
public:
    using Interfaces = InterfaceList<IPropertyPage>;
    using IPropertyPageImpl::setDirty;
};

class Site : public IPropertyPageSite
{
public:
    STDMETHODIMP QueryInterface(REFIID, void** out) override
    {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++count; }
    STDMETHODIMP_(ULONG) Release() override { return --count; }
    STDMETHODIMP OnStatusChange(DWORD status) override
    {
        told.push_back(status);
        return S_OK;
    }
    STDMETHODIMP GetLocaleID(LCID*) override { return E_NOTIMPL; }
    STDMETHODIMP GetPageContainer(IUnknown**) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*) override { return E_NOTIMPL; }

    ULONG count = 1;
    std::vector<DWORD> told;
};

TEST(IPropertyPageImpl, tellsItsSiteWhenItBecomesDirtyOrClean)
{
    Site site;
    CComObject<TestPage>* const page = CComObject<TestPage>::create();
    EXPECT_THAT(page->IsPageDirty(), isHresult(S_FALSE));
    EXPECT_THAT(page->SetPageSite(&site), isHresult(S_OK));
    page->setDirty(true);
    page->setDirty(true);
    EXPECT_THAT(page->IsPageDirty(), isHresult(S_OK));
    page->setDirty(false);
    EXPECT_THAT(page->IsPageDirty(), isHresult(S_FALSE));
    EXPECT_EQ(site.told, (std::vector<DWORD>{PROPPAGESTATUS_DIRTY, 0}));
    EXPECT_EQ(page->Release(), 0u);
    EXPECT_EQ(site.count, 1u);
}

TEST(IPropertyPageImpl, hasOneSiteAtATime)
{
    Site first;
    Site second;
    CComObject<TestPage>* const page = CComObject<TestPage>::create();
    EXPECT_THAT(page->SetPageSite(&first), isHresult(S_OK));
    EXPECT_THAT(page->SetPageSite(&second), isHresult(E_UNEXPECTED));
    EXPECT_THAT(page->SetPageSite(nullptr), isHresult(S_OK));
    EXPECT_EQ(first.count, 1u);
    EXPECT_THAT(page->SetPageSite(&second), isHresult(S_OK));
    EXPECT_EQ(page->Release(), 0u);
    EXPECT_EQ(second.count, 1u);
}

TEST(IPropertyPageImpl, saysWhatItCannotDo)
{
    CComObject<TestPage>* const page = CComObject<TestPage>::create();
    EXPECT_THAT(page->Apply(), isHresult(E_NOTIMPL));
    EXPECT_THAT(page->Activate(nullptr, nullptr, FALSE), isHresult(E_NOTIMPL));
    EXPECT_THAT(page->SetObjects(1, nullptr), isHresult(E_POINTER));
    EXPECT_THAT(page->SetObjects(0, nullptr), isHresult(S_OK));
    page->Release();
}

} // namespace
