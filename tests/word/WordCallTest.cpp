#include "Hresult.h"

#include <WordCall.h>

#include <gtest/gtest.h>
#include <string>

namespace {
/// An object that says for one interface, or for none, that the thread's error information is its own.
class Reporter : public ISupportErrorInfo
{
public:
    explicit Reporter(const IID& reportsFor) : reportsFor_(reportsFor) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) noexcept override
    {
        const bool known = id == __uuidof(ISupportErrorInfo) || id == __uuidof(IUnknown);
        *result = known ? static_cast<ISupportErrorInfo*>(this) : nullptr;
        return known ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return --references; }
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) noexcept override
    {
        ++questions;
        return id == reportsFor_ ? S_OK : S_FALSE;
    }

    ULONG references = 1;
    int questions = 0;

private:
    IID reportsFor_;
};

void leaveErrorInformation(const wchar_t* description)
{
    ICreateErrorInfo* created = nullptr;
    ASSERT_THAT(CreateErrorInfo(&created), isHresult(S_OK));
    std::wstring text = description;
    created->SetDescription(text.data());
    IErrorInfo* information = nullptr;
    ASSERT_THAT(created->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&information)),
                isHresult(S_OK));
    SetErrorInfo(0, information);
    information->Release();
    created->Release();
}

_com_error errorOf(HRESULT result, Reporter* reporter)
{
    try {
        // Only its IUnknown is called.
        auto* const object = reinterpret_cast<IDispatch*>(static_cast<ISupportErrorInfo*>(reporter));
        Word::call(object, __uuidof(IDispatch), {"IDispatch", "Invoke"}, [&] { return result; });
        return {S_OK};
    } catch (const _com_error& error) {
        return error;
    }
}

constexpr HRESULT wordFailure = static_cast<HRESULT>(0x800A1735);

TEST(WordCall, AFailureCarriesTheObjectsErrorInformation)
{
    Reporter reporter(__uuidof(IDispatch));
    leaveErrorInformation(L"No such member.");
    const _com_error error = errorOf(wordFailure, &reporter);
    EXPECT_THAT(error.Error(), isHresult(wordFailure));
    EXPECT_STREQ(error.Description(), L"No such member.");
    EXPECT_EQ(reporter.references, 1u);
}

TEST(WordCall, ErrorInformationOfAnotherInterfaceIsNotShown)
{
    Reporter reporter(__uuidof(IClassFactory));
    leaveErrorInformation(L"An older failure.");
    EXPECT_EQ(errorOf(wordFailure, &reporter).ErrorInfo(), nullptr);
    EXPECT_EQ(reporter.questions, 1);
    EXPECT_EQ(reporter.references, 1u);
    SetErrorInfo(0, nullptr);
}

TEST(WordCall, AServerThatIsGoneIsAskedNothing)
{
    Reporter reporter(__uuidof(IDispatch));
    for (const HRESULT gone : {HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), RPC_E_DISCONNECTED}) {
        EXPECT_THAT(errorOf(gone, &reporter).Error(), isHresult(gone));
        EXPECT_EQ(reporter.questions, 0);
    }
}

TEST(WordCall, FlagsTravelAsVariantBooleans)
{
    EXPECT_EQ(Word::passed(true), VARIANT_TRUE);
    EXPECT_EQ(Word::passed(false), VARIANT_FALSE);
}
} // namespace
