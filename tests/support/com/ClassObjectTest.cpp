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
    ASSERT_EQ(module_.getClassObject(CLSID_Mirovel, IID_IClassFactory, reinterpret_cast<void**>(&first)),
              S_OK);
    ASSERT_EQ(module_.getClassObject(CLSID_Mirovel, IID_IUnknown, reinterpret_cast<void**>(&second)), S_OK);
    EXPECT_EQ(static_cast<IUnknown*>(first), second);
    EXPECT_EQ(second->Release(), 2u);
    EXPECT_EQ(first->Release(), 1u) << "the module keeps one";
    module_.term();
    EXPECT_EQ(map_[0].classObject, nullptr);
}

TEST_F(ClassObject, outlivesTheModuleForWhoeverStillHoldsIt)
{
    IClassFactory* factory = nullptr;
    ASSERT_EQ(module_.getClassObject(CLSID_Mirovel, IID_IClassFactory, reinterpret_cast<void**>(&factory)),
              S_OK);
    module_.term();
    EXPECT_EQ(factory->Release(), 0u);
}

TEST_F(ClassObject, isRefusedForBadRequests)
{
    void* out = &out;
    EXPECT_EQ(module_.getClassObject(CLSID_MirovelComPage, IID_IUnknown, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    out = &out;
    EXPECT_EQ(module_.getClassObject(CLSID_Mirovel, IID_IDispatch, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(module_.getClassObject(CLSID_Mirovel, IID_IUnknown, nullptr), E_POINTER);
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
    ASSERT_EQ(module_.getClassObject(CLSID_Mirovel, IID_IClassFactory, reinterpret_cast<void**>(&factory)),
              S_OK);
    IDocument* document = nullptr;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDocument, nullptr), E_POINTER);
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IDocument, reinterpret_cast<void**>(&document)), S_OK);
    document->Release();
    factory->Release();
    module_.term();
    EXPECT_EQ(TestDocumentPlan::current().alive, 0);
}

TEST_F(ClassObject, locksTheServer)
{
    IClassFactory* factory = nullptr;
    ASSERT_EQ(module_.getClassObject(CLSID_Mirovel, IID_IClassFactory, reinterpret_cast<void**>(&factory)),
              S_OK);
    const LONG before = comModule().lockCount();
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(comModule().lockCount(), before + 2);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(comModule().lockCount(), before);
    factory->Release();
    module_.term();
}

} // namespace
