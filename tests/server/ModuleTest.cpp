#include "Hresult.h"
#include "OuterObject.h"
#include "RegistryContents.h"
#include "ServerModule.h"

#include <IDocument.h>
#include <gtest/gtest.h>

#include <ocidl.h>

namespace {

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
        EXPECT_THAT(server_.canUnloadNow(), isHresult(S_OK));
        EXPECT_THAT(server_.getClassObject(*GetParam().classId, IID_IClassFactory,
                                           reinterpret_cast<void**>(&factory_)),
                    isHresult(S_OK));
    }

    ~Module() override
    {
        factory_->Release();
        EXPECT_THAT(server_.canUnloadNow(), isHresult(S_OK));
        CoUninitialize();
    }

    ServerModule server_;
    IClassFactory* factory_ = nullptr;
};

TEST_P(Module, isHeldByAnObject)
{
    IUnknown* object = nullptr;
    ASSERT_THAT(factory_->CreateInstance(nullptr, *GetParam().interfaceId, reinterpret_cast<void**>(&object)),
                isHresult(S_OK));
    EXPECT_THAT(server_.canUnloadNow(), isHresult(S_FALSE));
    EXPECT_EQ(object->Release(), 0u);
    EXPECT_THAT(server_.canUnloadNow(), isHresult(S_OK));
}

TEST_P(Module, isHeldByAPart)
{
    OuterObject outer;
    ASSERT_THAT(factory_->CreateInstance(&outer, IID_IUnknown, reinterpret_cast<void**>(&outer.part)),
                isHresult(S_OK));
    EXPECT_THAT(server_.canUnloadNow(), isHresult(S_FALSE));
    IUnknown* inner = nullptr;
    ASSERT_THAT(outer.QueryInterface(*GetParam().interfaceId, reinterpret_cast<void**>(&inner)),
                isHresult(S_OK));
    EXPECT_EQ(outer.count, 2u);
    IUnknown* identity = nullptr;
    ASSERT_THAT(inner->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&identity)), isHresult(S_OK));
    EXPECT_EQ(identity, static_cast<IUnknown*>(&outer));
    identity->Release();
    inner->Release();
    EXPECT_EQ(outer.part->Release(), 0u);
    EXPECT_THAT(server_.canUnloadNow(), isHresult(S_OK));
}

TEST_P(Module, isHeldByALock)
{
    EXPECT_THAT(factory_->LockServer(TRUE), isHresult(S_OK));
    EXPECT_THAT(server_.canUnloadNow(), isHresult(S_FALSE));
    EXPECT_THAT(factory_->LockServer(FALSE), isHresult(S_OK));
    EXPECT_THAT(server_.canUnloadNow(), isHresult(S_OK));
}

TEST_P(Module, refusesBadCreations)
{
    OuterObject outer;
    void* out = &out;
    EXPECT_THAT(factory_->CreateInstance(&outer, *GetParam().interfaceId, &out),
                isHresult(CLASS_E_NOAGGREGATION));
    EXPECT_EQ(out, nullptr);
    out = &out;
    EXPECT_THAT(factory_->CreateInstance(nullptr, IID_IClassFactory, &out), isHresult(E_NOINTERFACE));
    EXPECT_EQ(out, nullptr);
    EXPECT_THAT(factory_->CreateInstance(nullptr, IID_IUnknown, nullptr), isHresult(E_POINTER));
}

TEST_P(Module, hasOneClassObjectForEachClass)
{
    void* again = nullptr;
    ASSERT_THAT(server_.getClassObject(*GetParam().classId, IID_IClassFactory, &again), isHresult(S_OK));
    EXPECT_EQ(again, factory_);
    factory_->Release();
    void* out = &out;
    EXPECT_THAT(server_.getClassObject(*GetParam().classId, IID_IDispatch, &out), isHresult(E_NOINTERFACE));
    EXPECT_EQ(out, nullptr);
    EXPECT_THAT(server_.getClassObject(*GetParam().classId, IID_IUnknown, nullptr), isHresult(E_POINTER));
}

TEST_P(Module, registersItsClasses)
{
    wchar_t id[64];
    StringFromGUID2(*GetParam().classId, id, 64);
    ASSERT_THAT(server_.registerServer(), isHresult(S_OK));
    EXPECT_FALSE(readRegistry(HKEY_CLASSES_ROOT, std::wstring(L"CLSID\\") + id).empty());
    EXPECT_THAT(server_.unregisterServer(), isHresult(S_OK));
    EXPECT_TRUE(readRegistry(HKEY_CLASSES_ROOT, std::wstring(L"CLSID\\") + id).empty());
}

TEST_P(Module, hasNoOtherClass)
{
    void* out = &out;
    EXPECT_THAT(server_.getClassObject(IID_IDocument, IID_IClassFactory, &out),
                isHresult(CLASS_E_CLASSNOTAVAILABLE));
    EXPECT_EQ(out, nullptr);
    EXPECT_THAT(server_.getClassObject(IID_IDocument, IID_IClassFactory, nullptr), isHresult(E_POINTER));
}

INSTANTIATE_TEST_SUITE_P(EveryClass, Module,
                         testing::Values(ClassUnderTest{&CLSID_Mirovel, &IID_IDocument},
                                         ClassUnderTest{&CLSID_MirovelComPage, &IID_IPropertyPage}),
                         [](const auto& each) { return each.index == 0 ? "Mirovel" : "MirovelComPage"; });

} // namespace
