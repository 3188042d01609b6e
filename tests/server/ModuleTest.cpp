#include "RegistryContents.h"
#include "ServerModule.h"

#include <IDocument.h>
#include <gtest/gtest.h>

#include <ocidl.h>

namespace {

/// The outer object of an aggregate.
class Outer : public IUnknown
{
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override
    {
        if (!IsEqualIID(iid, IID_IUnknown))
            return part->QueryInterface(iid, out);
        *out = static_cast<IUnknown*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++count; }
    STDMETHODIMP_(ULONG) Release() override { return --count; }

    IUnknown* part = nullptr;
    ULONG count = 1;
};

struct ClassUnderTest
{
    const CLSID* classId;
    const IID* interfaceId;
};

class Module : public testing::TestWithParam<ClassUnderTest>
{
protected:
    Module()
    {
        CoInitialize(nullptr);
        EXPECT_EQ(server_.canUnloadNow(), S_OK);
        EXPECT_EQ(server_.getClassObject(*GetParam().classId, IID_IClassFactory,
                                         reinterpret_cast<void**>(&factory_)),
                  S_OK);
    }

    ~Module() override
    {
        factory_->Release();
        EXPECT_EQ(server_.canUnloadNow(), S_OK);
        CoUninitialize();
    }

    ServerModule server_;
    IClassFactory* factory_ = nullptr;
};

TEST_P(Module, isHeldByAnObject)
{
    IUnknown* object = nullptr;
    ASSERT_EQ(factory_->CreateInstance(nullptr, *GetParam().interfaceId, reinterpret_cast<void**>(&object)),
              S_OK);
    EXPECT_EQ(server_.canUnloadNow(), S_FALSE);
    EXPECT_EQ(object->Release(), 0u);
    EXPECT_EQ(server_.canUnloadNow(), S_OK);
}

TEST_P(Module, isHeldByAPart)
{
    Outer outer;
    ASSERT_EQ(factory_->CreateInstance(&outer, IID_IUnknown, reinterpret_cast<void**>(&outer.part)), S_OK);
    EXPECT_EQ(server_.canUnloadNow(), S_FALSE);
    IUnknown* inner = nullptr;
    ASSERT_EQ(outer.QueryInterface(*GetParam().interfaceId, reinterpret_cast<void**>(&inner)), S_OK);
    EXPECT_EQ(outer.count, 2u);
    IUnknown* identity = nullptr;
    ASSERT_EQ(inner->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&identity)), S_OK);
    EXPECT_EQ(identity, static_cast<IUnknown*>(&outer));
    identity->Release();
    inner->Release();
    EXPECT_EQ(outer.part->Release(), 0u);
    EXPECT_EQ(server_.canUnloadNow(), S_OK);
}

TEST_P(Module, isHeldByALock)
{
    EXPECT_EQ(factory_->LockServer(TRUE), S_OK);
    EXPECT_EQ(server_.canUnloadNow(), S_FALSE);
    EXPECT_EQ(factory_->LockServer(FALSE), S_OK);
    EXPECT_EQ(server_.canUnloadNow(), S_OK);
}

TEST_P(Module, refusesBadCreations)
{
    Outer outer;
    void* out = &out;
    EXPECT_EQ(factory_->CreateInstance(&outer, *GetParam().interfaceId, &out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(out, nullptr);
    out = &out;
    EXPECT_EQ(factory_->CreateInstance(nullptr, IID_IClassFactory, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(factory_->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
}

TEST_P(Module, hasOneClassObjectForEachClass)
{
    void* again = nullptr;
    ASSERT_EQ(server_.getClassObject(*GetParam().classId, IID_IClassFactory, &again), S_OK);
    EXPECT_EQ(again, factory_);
    factory_->Release();
    void* out = &out;
    EXPECT_EQ(server_.getClassObject(*GetParam().classId, IID_IDispatch, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(server_.getClassObject(*GetParam().classId, IID_IUnknown, nullptr), E_POINTER);
}

TEST_P(Module, registersItsClasses)
{
    wchar_t id[64];
    StringFromGUID2(*GetParam().classId, id, 64);
    ASSERT_EQ(server_.registerServer(), S_OK);
    EXPECT_FALSE(readRegistry(HKEY_CLASSES_ROOT, std::wstring(L"CLSID\\") + id).empty());
    EXPECT_EQ(server_.unregisterServer(), S_OK);
    EXPECT_TRUE(readRegistry(HKEY_CLASSES_ROOT, std::wstring(L"CLSID\\") + id).empty());
}

TEST_P(Module, hasNoOtherClass)
{
    void* out = &out;
    EXPECT_EQ(server_.getClassObject(IID_IDocument, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(server_.getClassObject(IID_IDocument, IID_IClassFactory, nullptr), E_POINTER);
}

INSTANTIATE_TEST_SUITE_P(EveryClass, Module,
                         testing::Values(ClassUnderTest{&CLSID_Mirovel, &IID_IDocument},
                                         ClassUnderTest{&CLSID_MirovelComPage, &IID_IPropertyPage}),
                         [](const auto& each) { return each.index == 0 ? "Mirovel" : "MirovelComPage"; });

} // namespace
