#include "Hresult.h"
#include "TestDocument.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <vector>

#include "general/QdxException.h"

namespace {

class DispatchCall : public testing::Test
{
protected:
    DispatchCall()
    {
        CoInitialize(nullptr);
        TestDocumentPlan::current() = {};
        EXPECT_THAT(
            TestDocument::createInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(&document_)),
            isHresult(S_OK));
    }

    ~DispatchCall() override
    {
        clearException();
        EXPECT_EQ(document_->Release(), 0u);
        CoUninitialize();
    }

    /// Arguments in the order of the declaration.
    HRESULT call(const wchar_t* name, std::vector<VARIANT> arguments, VARIANT* result = nullptr,
                 WORD flags = DISPATCH_METHOD)
    {
        std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
        DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
        return invoke(name, parameters, result, flags);
    }

    HRESULT invoke(const wchar_t* name, DISPPARAMS& parameters, VARIANT* result = nullptr,
                   WORD flags = DISPATCH_METHOD)
    {
        clearException();
        badArgument_ = 99;
        return document_->Invoke(id(name), IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result,
                                 &exception_, &badArgument_);
    }

    DISPID id(const wchar_t* name)
    {
        LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
        DISPID found = DISPID_UNKNOWN;
        EXPECT_THAT(document_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &found),
                    isHresult(S_OK));
        return found;
    }

    void clearException()
    {
        SysFreeString(exception_.bstrSource);
        SysFreeString(exception_.bstrDescription);
        SysFreeString(exception_.bstrHelpFile);
        exception_ = {};
    }

    void expectException(HRESULT code, const std::wstring& text)
    {
        EXPECT_THAT(exception_.scode, isHresult(code));
        EXPECT_STREQ(exception_.bstrSource, L"Test.Document");
        EXPECT_EQ(std::wstring(_bstr_t(exception_.bstrDescription)), text);
        EXPECT_EQ(exception_.wCode, 0);
    }

    IDispatch* document_ = nullptr;
    EXCEPINFO exception_ = {};
    UINT badArgument_ = 0;
};

VARIANT variableReference(VARIANT& variable)
{
    VARIANT reference;
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &variable;
    return reference;
}

std::wstring systemText(HRESULT code)
{
    return _com_error(code).ErrorMessage();
}

TEST_F(DispatchCall, tellsOfItsTypeInformation)
{
    UINT count = 99;
    EXPECT_THAT(document_->GetTypeInfoCount(&count), isHresult(S_OK));
    EXPECT_EQ(count, 1u);
    EXPECT_THAT(document_->GetTypeInfoCount(nullptr), isHresult(E_POINTER));
    ITypeInfo* typeInfo = reinterpret_cast<ITypeInfo*>(0xdeadbeef);
    EXPECT_THAT(document_->GetTypeInfo(1, 0, &typeInfo), isHresult(DISP_E_BADINDEX));
    EXPECT_EQ(typeInfo, nullptr);
    EXPECT_THAT(document_->GetTypeInfo(0, 0, nullptr), isHresult(E_POINTER));
    ASSERT_THAT(document_->GetTypeInfo(0, 0, &typeInfo), isHresult(S_OK));
    TYPEATTR* attributes = nullptr;
    ASSERT_THAT(typeInfo->GetTypeAttr(&attributes), isHresult(S_OK));
    EXPECT_TRUE(IsEqualGUID(attributes->guid, IID_IDocument));
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FDUAL, 0);
    typeInfo->ReleaseTypeAttr(attributes);
    typeInfo->Release();
}

TEST_F(DispatchCall, knowsNames)
{
    EXPECT_EQ(id(L"create"), 1);
    EXPECT_EQ(id(L"GETDOCTYPE"), 24);
    EXPECT_EQ(id(L"popDirectory"), 42);
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"nothingOfThat")};
    DISPID found = 99;
    EXPECT_THAT(document_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &found),
                isHresult(DISP_E_UNKNOWNNAME));
    EXPECT_THAT(document_->GetIDsOfNames(IID_IDocument, names, 1, LOCALE_USER_DEFAULT, &found),
                isHresult(DISP_E_UNKNOWNINTERFACE));
}

TEST_F(DispatchCall, refusesUnknownMembersAndMalformedRequests)
{
    DISPPARAMS none{};
    EXPECT_THAT(document_->Invoke(4711, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
                isHresult(DISP_E_MEMBERNOTFOUND));
    EXPECT_THAT(document_->Invoke(2, IID_IDocument, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
                isHresult(DISP_E_UNKNOWNINTERFACE));
    EXPECT_THAT(document_->Invoke(2, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
                isHresult(E_INVALIDARG));
    DISPPARAMS withoutValues{nullptr, nullptr, 1, 0};
    EXPECT_THAT(document_->Invoke(3, IID_NULL, 0, DISPATCH_METHOD, &withoutValues, nullptr, nullptr, nullptr),
                isHresult(E_INVALIDARG));
}

TEST_F(DispatchCall, convertsArguments)
{
    EXPECT_THAT(call(L"insertDiagram", {_variant_t(7.0), _variant_t(-3L), _variant_t(L"12")}),
                isHresult(S_OK));
    EXPECT_EQ(TestDocumentPlan::current().numbers[0], 7);
    EXPECT_EQ(TestDocumentPlan::current().numbers[1], -3);
    EXPECT_EQ(TestDocumentPlan::current().numbers[2], 12);
    EXPECT_THAT(call(L"setFontAttribute", {_variant_t(4L), _variant_t(1L)}), isHresult(S_OK));
    EXPECT_EQ(TestDocumentPlan::current().boolean, VARIANT_TRUE);
    EXPECT_THAT(call(L"setFontAttribute", {_variant_t(4L), _variant_t(false)}), isHresult(S_OK));
    EXPECT_EQ(TestDocumentPlan::current().boolean, VARIANT_FALSE);
    EXPECT_THAT(call(L"insertText", {_variant_t(12L)}), isHresult(S_OK));
    EXPECT_EQ(TestDocumentPlan::current().text, L"12");
    _variant_t variable(L"from a variable");
    EXPECT_THAT(call(L"insertText", {variableReference(variable)}), isHresult(S_OK));
    EXPECT_EQ(TestDocumentPlan::current().text, L"from a variable");
}

TEST_F(DispatchCall, acceptsNamedArguments)
{
    VARIANT values[] = {_variant_t(2L), _variant_t(3L), _variant_t(1L)};
    DISPID names[] = {1, 2};
    DISPPARAMS parameters{values, names, 3, 2};
    EXPECT_THAT(invoke(L"insertDiagram", parameters), isHresult(S_OK));
    EXPECT_EQ(TestDocumentPlan::current().numbers[0], 1);
    EXPECT_EQ(TestDocumentPlan::current().numbers[1], 2);
    EXPECT_EQ(TestDocumentPlan::current().numbers[2], 3);
    names[1] = 5;
    EXPECT_THAT(invoke(L"insertDiagram", parameters), isHresult(DISP_E_PARAMNOTFOUND));
    EXPECT_EQ(badArgument_, 1u);
    names[1] = 0; // The positional one already is the first.
    EXPECT_THAT(invoke(L"insertDiagram", parameters), isHresult(DISP_E_PARAMNOTFOUND));
}

TEST_F(DispatchCall, tellsWhichArgumentDoesNotFit)
{
    EXPECT_THAT(call(L"insertDiagram", {_variant_t(1L), _variant_t(2L), _variant_t(L"many")}),
                isHresult(DISP_E_TYPEMISMATCH));
    EXPECT_EQ(badArgument_, 0u);
    EXPECT_THAT(call(L"insertDiagram", {_variant_t(1L), _variant_t(70000L), _variant_t(3L)}),
                isHresult(DISP_E_OVERFLOW));
    EXPECT_EQ(badArgument_, 1u);
    EXPECT_THAT(call(L"insertDiagram", {_variant_t(1L), _variant_t(2L)}), isHresult(DISP_E_BADPARAMCOUNT));
    EXPECT_THAT(call(L"insertText", {_variant_t(1L), _variant_t(2L)}), isHresult(DISP_E_BADPARAMCOUNT));
    EXPECT_EQ(TestDocumentPlan::current().numbers[0], 0);
}

TEST_F(DispatchCall, hasNoResultWhereTheMethodHasNone)
{
    VARIANT result;
    result.vt = VT_I4; // What it held is overwritten.
    EXPECT_THAT(call(L"insertText", {_variant_t(L"x")}, &result), isHresult(S_OK));
    EXPECT_EQ(result.vt, VT_EMPTY);
}

TEST_F(DispatchCall, storesAnOutParameterInAScriptsVariable)
{
    _variant_t variable(L"former");
    EXPECT_THAT(call(L"getDocType", {variableReference(variable)}), isHresult(S_OK));
    EXPECT_EQ(variable, _variant_t(L"Word"));
    _variant_t empty;
    EXPECT_THAT(call(L"getDocType", {variableReference(empty)}), isHresult(S_OK));
    EXPECT_EQ(empty, _variant_t(L"Word"));
    _variant_t object(document_);
    EXPECT_THAT(call(L"getDocType", {variableReference(object)}), isHresult(S_OK));
    EXPECT_EQ(object, _variant_t(L"Word"));
}

TEST_F(DispatchCall, storesAnOutParameterInAString)
{
    BSTR text = nullptr;
    VARIANT reference;
    reference.vt = VT_BYREF | VT_BSTR;
    reference.pbstrVal = &text;
    EXPECT_THAT(call(L"getDocType", {reference}), isHresult(S_OK));
    EXPECT_STREQ(text, L"Word");
    SysFreeString(std::exchange(text, nullptr));
    VARIANT inner = reference;
    EXPECT_THAT(call(L"getDocType", {variableReference(inner)}), isHresult(S_OK));
    EXPECT_STREQ(text, L"Word");
    SysFreeString(text);
}

TEST_F(DispatchCall, givesALeftAwayOutParameterAsTheResult)
{
    _variant_t result;
    EXPECT_THAT(call(L"getDocType", {}, &result, DISPATCH_METHOD | DISPATCH_PROPERTYGET), isHresult(S_OK));
    EXPECT_EQ(result, _variant_t(L"Word"));
    result.Clear();
    VARIANT missing;
    missing.vt = VT_ERROR;
    missing.scode = DISP_E_PARAMNOTFOUND;
    EXPECT_THAT(call(L"getDocType", {missing}, &result), isHresult(S_OK));
    EXPECT_EQ(result, _variant_t(L"Word"));
    EXPECT_THAT(call(L"getDocType", {}), isHresult(S_OK));
}

TEST_F(DispatchCall, refusesAValueForAnOutParameter)
{
    EXPECT_THAT(call(L"getDocType", {_variant_t(5L)}), isHresult(DISP_E_TYPEMISMATCH));
    EXPECT_EQ(badArgument_, 0u);
}

TEST_F(DispatchCall, leavesVariableAndResultAloneWhenTheMethodThrows)
{
    TestDocumentPlan::current().close = []() -> HRESULT { throw std::runtime_error("no"); };
    _variant_t variable(L"former");
    EXPECT_THAT(call(L"getDocType", {variableReference(variable)}), isHresult(DISP_E_EXCEPTION));
    EXPECT_EQ(variable, _variant_t(L"former"));
    VARIANT result;
    result.vt = VT_I4;
    EXPECT_THAT(call(L"getDocType", {}, &result), isHresult(DISP_E_EXCEPTION));
    EXPECT_EQ(result.vt, VT_EMPTY);
}

TEST_F(DispatchCall, reportsComErrors)
{
    TestDocumentPlan::current().close = []() -> HRESULT { throw _com_error(E_POINTER); };
    EXPECT_THAT(call(L"close", {}), isHresult(DISP_E_EXCEPTION));
    expectException(E_POINTER, systemText(E_POINTER));
}

TEST_F(DispatchCall, reportsQdxExceptions)
{
    TestDocumentPlan::current().close = []() -> HRESULT {
        throw QdxException("insertText\nCOMERROR 0x1\nd\xe9j\xe0");
    };
    EXPECT_THAT(call(L"insertText", {_variant_t(7L)}), isHresult(DISP_E_EXCEPTION));
    expectException(E_FAIL, L"insertText\nCOMERROR 0x1\nd\u00e9j\u00e0");
}

TEST_F(DispatchCall, reportsAnyOtherException)
{
    TestDocumentPlan::current().close = []() -> HRESULT { throw std::out_of_range("beyond"); };
    EXPECT_THAT(call(L"close", {}), isHresult(DISP_E_EXCEPTION));
    expectException(E_FAIL, L"beyond");
    TestDocumentPlan::current().close = []() -> HRESULT { throw std::bad_alloc(); };
    EXPECT_THAT(call(L"close", {}), isHresult(DISP_E_EXCEPTION));
    expectException(E_OUTOFMEMORY, systemText(E_OUTOFMEMORY));
    TestDocumentPlan::current().close = []() -> HRESULT { throw 1; };
    EXPECT_THAT(call(L"close", {}), isHresult(DISP_E_EXCEPTION));
    expectException(E_UNEXPECTED, systemText(E_UNEXPECTED));
}

TEST_F(DispatchCall, reportsReturnedFailures)
{
    EXPECT_THAT(call(L"create", {_variant_t(L"a.doc")}), isHresult(DISP_E_EXCEPTION));
    expectException(E_FAIL, systemText(E_FAIL));
}

TEST_F(DispatchCall, reportsToCallersWithoutExcepInfo)
{
    TestDocumentPlan::current().close = []() -> HRESULT { throw 1; };
    DISPPARAMS none{};
    EXPECT_THAT(document_->Invoke(2, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
                isHresult(DISP_E_EXCEPTION));
}

TEST_F(DispatchCall, throwsToVtableCallers)
{
    TestDocumentPlan::current().close = []() -> HRESULT { throw QdxException("as it is"); };
    EXPECT_THROW(static_cast<IDocument*>(document_)->close(), QdxException);
}

} // namespace
