#include <InProcessWord.h>

#include "TestSupport.h"

#include <gmock/gmock.h>
#include <vector>

namespace {
using testing::ElementsAre;

/// Calls as a script does: by name, with arguments from left to right.
HRESULT invoke(IDispatch* object, const wchar_t* name, WORD kind, std::vector<_variant_t> arguments,
               _variant_t* result = nullptr, EXCEPINFO* exception = nullptr)
{
    DISPID id = 0;
    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    const HRESULT found = object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(found))
        return found;
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    DISPID putId = DISPID_PROPERTYPUT;
    if (kind == DISPATCH_PROPERTYPUT) {
        parameters.rgdispidNamedArgs = &putId;
        parameters.cNamedArgs = 1;
    }
    return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result, exception, nullptr);
}

class LateBinding : public testing::Test
{
protected:
    IDispatch* application() const { return word.application().GetInterfacePtr(); }

    standin_test::Apartment apartment;
    standin::InProcessWord word;
};

TEST_F(LateBinding, ScriptsReachEveryKindOfMember)
{
    _variant_t documents;
    ASSERT_THAT(invoke(application(), L"documents", DISPATCH_PROPERTYGET | DISPATCH_METHOD, {}, &documents),
                isHresult(S_OK));
    ASSERT_EQ(documents.vt, VT_DISPATCH);
    _variant_t document;
    ASSERT_THAT(invoke(documents.pdispVal, L"Add", DISPATCH_METHOD, {}, &document), isHresult(S_OK));
    _variant_t range;
    ASSERT_THAT(invoke(document.pdispVal, L"Range", DISPATCH_METHOD, {0L, 0L}, &range), isHresult(S_OK));
    ASSERT_THAT(invoke(range.pdispVal, L"InsertAfter", DISPATCH_METHOD, {L"abc"}), isHresult(S_OK));
    ASSERT_THAT(invoke(range.pdispVal, L"Start", DISPATCH_PROPERTYPUT, {short{1}}), isHresult(S_OK));
    _variant_t text;
    ASSERT_THAT(invoke(range.pdispVal, L"Text", DISPATCH_PROPERTYGET, {}, &text), isHresult(S_OK));
    EXPECT_EQ(_bstr_t(text), _bstr_t(L"bc"));
    EXPECT_THAT(word.transcript(),
                ElementsAre("application.Documents -> application.Documents",
                            "application.Documents.Add(missing, missing, missing, missing) -> document",
                            "document.Range(0, 0) -> document.Range(0, 0)",
                            "document.Range(0, 0).InsertAfter(\"abc\")", "document.Range(0, 0).Start = 1",
                            "document.Range(0, 0).Text -> \"bc\""));
}

TEST_F(LateBinding, WordsErrorsAreExceptions)
{
    _variant_t documents;
    ASSERT_THAT(invoke(application(), L"Documents", DISPATCH_PROPERTYGET, {}, &documents), isHresult(S_OK));
    EXCEPINFO exception{};
    _variant_t result;
    EXPECT_THAT(invoke(documents.pdispVal, L"Item", DISPATCH_METHOD, {7L}, &result, &exception),
                isHresult(DISP_E_EXCEPTION));
    EXPECT_EQ(exception.wCode, 0);
    EXPECT_THAT(exception.scode, isHresult(wordError(5941)));
    EXPECT_EQ(_bstr_t(exception.bstrSource, false), _bstr_t(L"Microsoft Word"));
    EXPECT_GT(_bstr_t(exception.bstrDescription, false).length(), 0u);
    EXPECT_EQ(_bstr_t(exception.bstrHelpFile, false), _bstr_t(L"wdmain9.chm"));
    EXPECT_EQ(exception.dwHelpContext, 25421u);
}

TEST_F(LateBinding, UnknownNamesAreRefused)
{
    EXPECT_THAT(invoke(application(), L"NoSuchMember", DISPATCH_METHOD, {}), isHresult(DISP_E_UNKNOWNNAME));
    EXPECT_TRUE(word.transcript().empty());
}

TEST_F(LateBinding, TypeInformationIsThere)
{
    UINT count = 0;
    EXPECT_THAT(application()->GetTypeInfoCount(&count), isHresult(S_OK));
    EXPECT_EQ(count, 1u);
    ITypeInfo* information = nullptr;
    ASSERT_THAT(application()->GetTypeInfo(0, LOCALE_USER_DEFAULT, &information), isHresult(S_OK));
    information->Release();
    EXPECT_THAT(application()->GetTypeInfo(1, LOCALE_USER_DEFAULT, &information), isHresult(DISP_E_BADINDEX));
    EXPECT_EQ(information, nullptr);
}
} // namespace
