#pragma once

#include "CComCoClass.h"
#include "CComObjectRootEx.h"
#include "CComSingleThreadModel.h"
#include "IDispatchImpl.h"
#include "InterfaceList.h"

#include <IDocument.h>

#include <functional>
#include <string>
#include <utility>

/// What the test wants of the TestDocument objects that it makes, and what became of them.
struct TestDocumentPlan
{
    std::function<HRESULT()> close = [] { return S_OK; };
    std::function<void()> construct = [] {};
    std::function<void()> finalConstruct = [] {};
    std::function<void()> destruct = [] {};
    std::wstring text;
    long numbers[3] = {};
    VARIANT_BOOL boolean = 1;
    int alive = 0;

    static TestDocumentPlan& current()
    {
        static TestDocumentPlan plan;
        return plan;
    }
};

/// An IDocument that does what the test says.
class TestDocument : public CComObjectRootEx<CComSingleThreadModel>,
                     public CComCoClass<TestDocument, &CLSID_Mirovel>,
                     public IDispatchImpl<IDocument, &IID_IDocument, &LIBID_MIROVELCOMLib, 1, 0>
{
public:
    using Interfaces = InterfaceList<IDocument, IDispatch>;

    TestDocument() : IDispatchImpl(L"Test.Document")
    {
        TestDocumentPlan::current().construct();
        ++TestDocumentPlan::current().alive;
    }

    ~TestDocument() noexcept(false)
    {
        --TestDocumentPlan::current().alive;
        TestDocumentPlan::current().destruct();
    }

    void finalConstruct() { TestDocumentPlan::current().finalConstruct(); }

    // IDocument
    STDMETHODIMP create(BSTR) override { return E_FAIL; }
    STDMETHODIMP close() override { return TestDocumentPlan::current().close(); }
    STDMETHODIMP insertText(BSTR text) override
    {
        TestDocumentPlan::current().text = text != nullptr ? text : L"";
        return TestDocumentPlan::current().close();
    }
    STDMETHODIMP insertEndl() override { return S_OK; }
    STDMETHODIMP insertDiagram(long ptr, short width, short height) override
    {
        TestDocumentPlan& plan = TestDocumentPlan::current();
        plan.numbers[0] = ptr;
        plan.numbers[1] = width;
        plan.numbers[2] = height;
        return S_OK;
    }
    STDMETHODIMP insertPageBreak() override { return S_OK; }
    STDMETHODIMP insertField(short) override { return S_OK; }
    STDMETHODIMP startHeader() override { return S_OK; }
    STDMETHODIMP endHeader() override { return S_OK; }
    STDMETHODIMP startFooter() override { return S_OK; }
    STDMETHODIMP endFooter() override { return S_OK; }
    STDMETHODIMP setStyle(BSTR) override { return S_OK; }
    STDMETHODIMP setFontName(BSTR) override { return S_OK; }
    STDMETHODIMP setOption(BSTR, BSTR) override { return S_OK; }
    STDMETHODIMP trace(short) override { return S_OK; }
    STDMETHODIMP getPropPages(BSTR*) override { return S_OK; }
    STDMETHODIMP start() override { return S_OK; }
    STDMETHODIMP stop() override { return S_OK; }
    STDMETHODIMP showLast() override { return S_OK; }
    STDMETHODIMP setFontSize(short) override { return S_OK; }
    STDMETHODIMP setFontAttribute(short att, VARIANT_BOOL value) override
    {
        TestDocumentPlan::current().numbers[0] = att;
        TestDocumentPlan::current().boolean = value;
        return S_OK;
    }
    STDMETHODIMP setTextAlign(short) override { return S_OK; }
    STDMETHODIMP insertFile(BSTR, short) override { return S_OK; }
    STDMETHODIMP getDocType(BSTR* docType) override
    {
        *docType = SysAllocString(L"Word");
        return TestDocumentPlan::current().close();
    }
    STDMETHODIMP overrideRegistry(BSTR, BSTR, BSTR, short) override { return S_OK; }
    STDMETHODIMP insertTOC() override { return S_OK; }
    STDMETHODIMP startTable() override { return S_OK; }
    STDMETHODIMP endTable() override { return S_OK; }
    STDMETHODIMP addCell() override { return S_OK; }
    STDMETHODIMP addRow() override { return S_OK; }
    STDMETHODIMP insertMark(long, VARIANT_BOOL) override { return S_OK; }
    STDMETHODIMP startTOCEntry() override { return S_OK; }
    STDMETHODIMP endTOCEntry() override { return S_OK; }
    STDMETHODIMP insertImage(BSTR, BSTR) override { return S_OK; }
    STDMETHODIMP setOrientation(short) override { return S_OK; }
    STDMETHODIMP setTableRowHeight(long) override { return S_OK; }
    STDMETHODIMP insertTag(BSTR) override { return S_OK; }
    STDMETHODIMP insertXref(BSTR, BSTR) override { return S_OK; }
    STDMETHODIMP startFile(BSTR) override { return S_OK; }
    STDMETHODIMP insertLocate() override { return S_OK; }
    STDMETHODIMP pushDirectory(BSTR) override { return S_OK; }
    STDMETHODIMP popDirectory() override { return S_OK; }
};
