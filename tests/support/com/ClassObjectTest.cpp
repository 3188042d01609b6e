#include "Hresult.h"
#include "TestDocument.h"

#include "CComModule.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<bool> hooks;

class HookedDocument : public TestDocument
{
public:
    static void objectMain(bool starting) noexcept { hooks.push_back(starting); }
};

class ClassObject : public testing::Test
{
protected:
    ClassObject()
    {
        CoInitialize(nullptr);
        TestDocumentPlan::current() = {};
        hooks.clear();
        module_.init(map_, GetModuleHandleW(nullptr), &LIBID_MIROVELCOMLib);
    }

    ~ClassObject() override { CoUninitialize(); }

    ObjectMapEntry map_[1] = {objectMapEntry<HookedDocument>([](bool) {})};
    CComModule module_;
};

TEST_F(ClassObject, isMadeOnceAndCached)
{
    IClassFactory* first = nullptr;
    IUnknown* second = nullptr;
    EXPECT_EQ(map_[0].classObject, nullptr);
    ASSERT_THAT(module_.getClassObject(CLSID_Mirovel, IID_IClassFactory, reinterpret_cast<void**>(&first)),
                isHresult(S_OK));
    ASSERT_THAT(module_.getClassObject(CLSID_Mirovel, IID_IUnknown, reinterpret_cast<void**>(&second)),
                isHresult(S_OK));
    EXPECT_EQ(static_cast<IUnknown*>(first), second);
    EXPECT_EQ(second->Release(), 2u);
    EXPECT_EQ(first->Release(), 1u) << "the module keeps one";
    module_.term();
    EXPECT_EQ(map_[0].classObject, nullptr);
}

TEST_F(ClassObject, outlivesTheModuleForWhoeverStillHoldsIt)
{
    IClassFactory* factory = nullptr;
    ASSERT_THAT(module_.getClassObject(CLSID_Mirovel, IID_IClassFactory, reinterpret_cast<void**>(&factory)),
                isHresult(S_OK));
    module_.term();
    EXPECT_EQ(factory->Release(), 0u);
}

TEST_F(ClassObject, isRefusedForBadRequests)
{
    void* out = &out;
    EXPECT_THAT(module_.getClassObject(CLSID_MirovelComPage, IID_IUnknown, &out),
                isHresult(CLASS_E_CLASSNOTAVAILABLE));
    EXPECT_EQ(out, nullptr);
    out = &out;
    EXPECT_THAT(module_.getClassObject(CLSID_Mirovel, IID_IDispatch, &out), isHresult(E_NOINTERFACE));
    EXPECT_EQ(out, nullptr);
    EXPECT_THAT(module_.getClassObject(CLSID_Mirovel, IID_IUnknown, nullptr), isHresult(E_POINTER));
    module_.term();
}

TEST_F(ClassObject, runsTheHooksAtStartAndEnd)
{
    EXPECT_EQ(hooks, std::vector{true});
    module_.term();
    EXPECT_EQ(hooks, (std::vector{true, false}));
}

TEST_F(ClassObject, makesInstances)
{
    IClassFactory* factory = nullptr;
    ASSERT_THAT(module_.getClassObject(CLSID_Mirovel, IID_IClassFactory, reinterpret_cast<void**>(&factory)),
                isHresult(S_OK));
    IDocument* document = nullptr;
    EXPECT_THAT(factory->CreateInstance(nullptr, IID_IDocument, nullptr), isHresult(E_POINTER));
    ASSERT_THAT(factory->CreateInstance(nullptr, IID_IDocument, reinterpret_cast<void**>(&document)),
                isHresult(S_OK));
    document->Release();
    factory->Release();
    module_.term();
    EXPECT_EQ(TestDocumentPlan::current().alive, 0);
}

TEST_F(ClassObject, locksTheServer)
{
    IClassFactory* factory = nullptr;
    ASSERT_THAT(module_.getClassObject(CLSID_Mirovel, IID_IClassFactory, reinterpret_cast<void**>(&factory)),
                isHresult(S_OK));
    const LONG before = comModule().lockCount();
    EXPECT_THAT(factory->LockServer(TRUE), isHresult(S_OK));
    EXPECT_THAT(factory->LockServer(TRUE), isHresult(S_OK));
    EXPECT_EQ(comModule().lockCount(), before + 2);
    EXPECT_THAT(factory->LockServer(FALSE), isHresult(S_OK));
    EXPECT_THAT(factory->LockServer(FALSE), isHresult(S_OK));
    EXPECT_EQ(comModule().lockCount(), before);
    factory->Release();
    module_.term();
}

} // namespace
