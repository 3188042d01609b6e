#include "Hresult.h"
#include "OuterObject.h"
#include "TestDocument.h"

#include "CComModule.h"

#include <gtest/gtest.h>

#include <new>

namespace {

class ComObject : public testing::Test
{
protected:
    ComObject()
    {
        CoInitialize(nullptr);
        TestDocumentPlan::current() = {};
        locks_ = comModule().lockCount();
    }

    ~ComObject() override
    {
        EXPECT_EQ(TestDocumentPlan::current().alive, 0);
        EXPECT_EQ(comModule().lockCount(), locks_);
        CoUninitialize();
    }

    LONG locks() const { return comModule().lockCount() - locks_; }

private:
    LONG locks_ = 0;
};

void* poison()
{
    return reinterpret_cast<void*>(0xdeadbeef);
}

TEST_F(ComObject, isBornWithOneReferenceAndOneModuleLock)
{
    IDocument* document = nullptr;
    ASSERT_THAT(TestDocument::createInstance(nullptr, IID_IDocument, reinterpret_cast<void**>(&document)),
                isHresult(S_OK));
    EXPECT_EQ(locks(), 1);
    EXPECT_EQ(document->AddRef(), 2u);
    EXPECT_EQ(document->Release(), 1u);
    EXPECT_EQ(TestDocumentPlan::current().alive, 1);
    EXPECT_EQ(document->Release(), 0u);
    EXPECT_EQ(locks(), 0);
}

TEST_F(ComObject, hasOneIdentity)
{
    IDocument* document = nullptr;
    IDispatch* dispatch = nullptr;
    IUnknown* unknown = nullptr;
    IUnknown* again = nullptr;
    ASSERT_THAT(TestDocument::createInstance(nullptr, IID_IDocument, reinterpret_cast<void**>(&document)),
                isHresult(S_OK));
    EXPECT_THAT(document->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch)),
                isHresult(S_OK));
    EXPECT_THAT(document->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&unknown)), isHresult(S_OK));
    EXPECT_THAT(dispatch->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&again)), isHresult(S_OK));
    EXPECT_EQ(unknown, again);
    void* none = poison();
    EXPECT_THAT(document->QueryInterface(IID_IClassFactory, &none), isHresult(E_NOINTERFACE));
    EXPECT_EQ(none, nullptr);
    EXPECT_THAT(document->QueryInterface(IID_IUnknown, nullptr), isHresult(E_POINTER));
    again->Release();
    unknown->Release();
    dispatch->Release();
    EXPECT_EQ(document->Release(), 0u);
}

TEST_F(ComObject, hasItsMethodsInOrderBehindTheSevenOfIDispatchAndThenItsDestructor)
{
    IDocument* document = nullptr;
    ASSERT_THAT(TestDocument::createInstance(nullptr, IID_IDocument, reinterpret_cast<void**>(&document)),
                isHresult(S_OK));
    using NoArguments = HRESULT(STDMETHODCALLTYPE*)(IDocument*);
    void** const table = *reinterpret_cast<void***>(document);
    TestDocumentPlan::current().close = [] { return HRESULT{77}; };
    EXPECT_EQ(reinterpret_cast<NoArguments>(table[7 + 1])(document), 77);
    // The deleting destructor is the second of the two slots that this ABI gives it.
    reinterpret_cast<void (*)(IDocument*)>(table[7 + 42 + 1])(document);
    EXPECT_EQ(TestDocumentPlan::current().alive, 0);
}

TEST_F(ComObject, clearsTheResultWhenTheInterfaceIsUnknown)
{
    void* out = poison();
    EXPECT_THAT(TestDocument::createInstance(nullptr, IID_IClassFactory, &out), isHresult(E_NOINTERFACE));
    EXPECT_EQ(out, nullptr);
    EXPECT_THAT(TestDocument::createInstance(nullptr, IID_IDocument, nullptr), isHresult(E_POINTER));
}

TEST_F(ComObject, isNotMadeWhenItsConstructorThrows)
{
    TestDocumentPlan::current().construct = [] { throw std::bad_alloc(); };
    void* out = poison();
    EXPECT_THAT(TestDocument::createInstance(nullptr, IID_IDocument, &out), isHresult(E_OUTOFMEMORY));
    EXPECT_EQ(out, nullptr);
    OuterObject outer;
    out = poison();
    EXPECT_THAT(TestDocument::createInstance(&outer, IID_IUnknown, &out), isHresult(E_OUTOFMEMORY));
    EXPECT_EQ(out, nullptr);
}

TEST_F(ComObject, isDestroyedWhenFinalConstructThrows)
{
    TestDocumentPlan::current().finalConstruct = [] { throw _com_error(CO_E_NOTINITIALIZED); };
    void* out = poison();
    EXPECT_THAT(TestDocument::createInstance(nullptr, IID_IDocument, &out), isHresult(CO_E_NOTINITIALIZED));
    EXPECT_EQ(out, nullptr);
    OuterObject outer;
    out = poison();
    EXPECT_THAT(TestDocument::createInstance(&outer, IID_IUnknown, &out), isHresult(CO_E_NOTINITIALIZED));
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(outer.count, 1u);
}

TEST_F(ComObject, isDestroyedOnceThoughItsDestructorCountsReferences)
{
    OuterObject outer;
    ASSERT_THAT(TestDocument::createInstance(&outer, IID_IUnknown, reinterpret_cast<void**>(&outer.part)),
                isHresult(S_OK));
    int destructions = 0;
    TestDocumentPlan::current().destruct = [&] {
        ++destructions;
        outer.part->AddRef();
        EXPECT_NE(outer.part->Release(), 0u);
    };
    EXPECT_EQ(outer.part->Release(), 0u);
    EXPECT_EQ(destructions, 1);
}

TEST_F(ComObject, isGoneAfterReleaseThoughItsDestructorThrows)
{
    IDocument* document = nullptr;
    ASSERT_THAT(TestDocument::createInstance(nullptr, IID_IDocument, reinterpret_cast<void**>(&document)),
                isHresult(S_OK));
    TestDocumentPlan::current().destruct = [] { throw 1; };
    EXPECT_EQ(document->Release(), 0u);
    EXPECT_EQ(locks(), 0);
}

TEST_F(ComObject, aPartIsOnlyHandedOutByItsUnknown)
{
    OuterObject outer;
    void* out = poison();
    EXPECT_THAT(TestDocument::createInstance(&outer, IID_IDocument, &out), isHresult(CLASS_E_NOAGGREGATION));
    EXPECT_EQ(out, nullptr);
}

TEST_F(ComObject, aPartHasTheIdentityAndLifetimeOfItsOuter)
{
    OuterObject outer;
    ASSERT_THAT(TestDocument::createInstance(&outer, IID_IUnknown, reinterpret_cast<void**>(&outer.part)),
                isHresult(S_OK));
    EXPECT_EQ(locks(), 1);
    EXPECT_EQ(outer.count, 1u) << "a part does not count its outer object";

    IUnknown* partUnknown = nullptr;
    EXPECT_THAT(outer.part->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&partUnknown)),
                isHresult(S_OK));
    EXPECT_EQ(partUnknown, outer.part) << "the part's own unknown is not the outer one";
    EXPECT_EQ(partUnknown->Release(), 1u);
    EXPECT_THAT(outer.part->QueryInterface(IID_IDocument, nullptr), isHresult(E_POINTER));

    IDocument* document = nullptr;
    EXPECT_THAT(outer.part->QueryInterface(IID_IDocument, reinterpret_cast<void**>(&document)),
                isHresult(S_OK));
    EXPECT_EQ(outer.count, 2u) << "the part's interfaces are counted by the outer object";
    IUnknown* identity = nullptr;
    EXPECT_THAT(document->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&identity)), isHresult(S_OK));
    EXPECT_EQ(identity, static_cast<IUnknown*>(&outer));
    EXPECT_EQ(outer.count, 3u);
    identity->Release();
    EXPECT_EQ(document->AddRef(), 3u);
    EXPECT_EQ(document->Release(), 2u);
    EXPECT_EQ(document->Release(), 1u);
    EXPECT_EQ(TestDocumentPlan::current().alive, 1);
    EXPECT_EQ(outer.part->Release(), 0u);
    EXPECT_EQ(outer.count, 1u);
    EXPECT_EQ(locks(), 0);
}

} // namespace
