// Calls of the virtual table that come from another apartment, through a proxy: failures are returned.
#include "Apartment.h"
#include "FrontEndTest.h"

#include "TextConversion.h"

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <thread>

_COM_SMARTPTR_TYPEDEF(ISupportErrorInfo, __uuidof(ISupportErrorInfo));

namespace {

/// An apartment in which a Word and a client's object live.
class OtherApartment
{
public:
    OtherApartment()
    {
        apartment_.run([this] {
            word = std::make_unique<standin::InProcessWord>();
            installed_ = std::make_unique<standin::ClassRegistration>(*word);
            void* created = nullptr;
            _com_util::CheckError(Mirovel::createInstance(nullptr, IID_IDocument, &created));
            object = IDocumentPtr(static_cast<IDocument*>(created), false);
        });
    }
    ~OtherApartment()
    {
        apartment_.run([this] {
            object = nullptr;
            installed_.reset();
            word.reset();
        });
    }
    OtherApartment(const OtherApartment&) = delete;
    OtherApartment& operator=(const OtherApartment&) = delete;

    /// The object, for the calling thread.
    IDocumentPtr proxy() { return apartment_.proxyOf(object); }
    /// Does `work` in the apartment.
    void run(const std::function<void()>& work) { apartment_.run(work); }

    std::unique_ptr<standin::InProcessWord> word;
    IDocumentPtr object; ///< For use in the apartment alone.

private:
    std::unique_ptr<standin::ClassRegistration> installed_;
    Apartment apartment_;
};

/// "source: description" of the calling thread's error object, which is then gone.
std::string takeErrorObject()
{
    IErrorInfo* taken = nullptr;
    if (GetErrorInfo(0, &taken) != S_OK)
        return "(none)";
    GUID interfaceId{};
    _bstr_t source;
    _bstr_t description;
    taken->GetGUID(&interfaceId);
    taken->GetSource(source.GetAddress());
    taken->GetDescription(description.GetAddress());
    taken->Release();
    EXPECT_TRUE(IsEqualIID(interfaceId, IID_IDocument));
    return std::string(toNarrow(source).data()) + ": " + toNarrow(description).data();
}

class OtherApartmentTest : public testing::Test
{
protected:
    OtherApartmentTest()
    {
        client->overrideRegistry(L"Word"_b, L"WordTemplateName"_b, L""_b, 1);
        takeErrorObject();
    }

    /// The error object that a call has left, with the client or with the object: Windows carries it over,
    /// Wine leaves it where it was made.
    std::string errorObject()
    {
        std::string text = takeErrorObject();
        if (text == "(none)")
            apartment.run([&] { text = takeErrorObject(); });
        return text;
    }

    ScratchFolder folder;
    OtherApartment apartment;
    IDocumentPtr client = apartment.proxy();
};

const std::string cannotOpen = "Cannot open Word\nCOMERROR 0x800a1234\nUnknown error 0x800A1234";

TEST_F(OtherApartmentTest, CallsThroughAProxy)
{
    EXPECT_NE(client.GetInterfacePtr(), apartment.object.GetInterfacePtr());
    EXPECT_THAT(client->start(), isHresult(S_OK));
    EXPECT_THAT(client->create(bstr(folder.file("a.doc"))), isHresult(S_OK));
    EXPECT_THAT(client->insertText(L"abc"_b), isHresult(S_OK));
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_EQ(errorObject(), "(none)");
    EXPECT_THAT(contentOf(folder.file("a.doc")), testing::HasSubstr("abc"));
}

TEST_F(OtherApartmentTest, AFramedMethodReturnsItsFailure)
{
    apartment.word->failCall(1, refused);
    EXPECT_EQ(outcome([&] { return client->start(); }), "0x80004005");
    EXPECT_EQ(errorObject(), "Mirovel.Mirovel: " + cannotOpen);
    EXPECT_THAT(client->start(), isHresult(S_OK)) << "both sides live on";
}

TEST_F(OtherApartmentTest, AnUnframedMethodReturnsItsFailure)
{
    EXPECT_EQ(outcome([&] { return client->setOrientation(1); }), "0x80004003");
    EXPECT_EQ(errorObject(), "Mirovel.Mirovel: " + systemMessage(E_POINTER));
    ASSERT_THAT(client->start(), isHresult(S_OK));
    ASSERT_THAT(client->create(bstr(folder.file("a.doc"))), isHresult(S_OK));
    apartment.word->failCall(1, refused);
    EXPECT_EQ(outcome([&] { return client->startTable(); }), "0x800a1234");
    EXPECT_EQ(errorObject(), "Mirovel.Mirovel: Unknown error 0x800A1234");
}

TEST_F(OtherApartmentTest, AScriptGetsTheSameTextAsBeside)
{
    apartment.word->failCall(1, refused);
    EXPECT_EQ(invoke(*client, 17, {}).outcome, "Mirovel.Mirovel 0x80004005 " + cannotOpen);
}

// A piece is a call of the object's own, and its failure an exception there.
TEST_F(OtherApartmentTest, AFailureInAPieceOfATextStopsTheRest)
{
    ASSERT_THAT(client->start(), isHresult(S_OK));
    ASSERT_THAT(client->create(bstr(folder.file("a.doc"))), isHresult(S_OK));
    apartment.word->clearTranscript();
    apartment.word->failCall(1, refused);
    EXPECT_EQ(outcome([&] { return client->insertText(L"a<a href=\"t\">L</a>b"_b); }), "0x00000000");
    EXPECT_LINES(apartment.word->transcript(), Lines{"body.InsertAfter(\"a\") !! 0x800a1234"});
    EXPECT_EQ(errorObject(), "(none)");
}

TEST_F(OtherApartmentTest, ACallerBesideTheObjectGetsTheException)
{
    apartment.word->failCall(1, refused);
    std::string got;
    std::string left;
    apartment.run([&] {
        got = outcome([&] { return apartment.object->start(); });
        left = takeErrorObject();
    });
    EXPECT_EQ(got, "QdxException: " + cannotOpen);
    EXPECT_EQ(left, "(none)");
}

TEST_F(OtherApartmentTest, TheObjectSaysThatItHasErrorObjects)
{
    const ISupportErrorInfoPtr support = client;
    ASSERT_TRUE(support);
    EXPECT_THAT(support->InterfaceSupportsErrorInfo(IID_IDocument), isHresult(S_OK));
    EXPECT_THAT(support->InterfaceSupportsErrorInfo(IID_IUnknown), isHresult(S_FALSE));
}

} // namespace
