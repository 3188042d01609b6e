// A great many of everything: what the process holds stays the same.
#include "BuiltServer.h"
#include "Hresult.h"
#include "Resources.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

constexpr std::size_t megabyte = 1U << 20U;

class EnduranceTest : public testing::Test
{
protected:
    EnduranceTest() { CoInitialize(nullptr); }
    ~EnduranceTest() override { CoUninitialize(); }
};

TEST_F(EnduranceTest, ObjectsComeAndGo)
{
    const BuiltServer server;
    const auto makeAndRelease = [&](int count) {
        for (int i = 0; i < count; ++i)
            EXPECT_TRUE(server.make());
    };
    makeAndRelease(200);
    const Resources before = Resources::now();
    makeAndRelease(isSoak() ? 10'000 : 1'500);
    expectFlat(before, megabyte / 2);
}

TEST_F(EnduranceTest, TheModuleComesAndGoes)
{
    ObservedWord word;
    const auto loadAndFree = [&](int count) {
        for (int i = 0; i < count; ++i) {
            {
                const BuiltServer server;
                word.playShortSession(server.make(), everyMode[i % 3]);
                // The class object that the server's user holds does not hold the module.
                EXPECT_THAT(server.module.canUnloadNow(), isHresult(S_OK));
            }
            ASSERT_EQ(GetModuleHandleW(L"mirovelcom.dll"), nullptr);
        }
    };
    loadAndFree(30);
    Resources before = Resources::now();
    const int times = isSoak() ? 1'000 : 60;
    loadAndFree(times);
    // What the compiler's threads library makes for itself it does not give back when its module goes.
    constexpr int handlesKept = 5;
    constexpr std::size_t bytesKept = 28 * 1024;
    before.handles += static_cast<std::size_t>(times * handlesKept);
    expectFlat(before, static_cast<std::size_t>(times) * bytesKept + megabyte);
}

TEST_F(EnduranceTest, ThreadsComeAndGo)
{
    const BuiltServer server;
    const auto useInThreads = [&](int count) {
        for (int i = 0; i < count; ++i)
            std::thread([&] {
                CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
                {
                    ObservedWord word;
                    word.playShortSession(server.make(), everyMode[i % 3]);
                }
                CoUninitialize();
            }).join();
    };
    useInThreads(20);
    const Resources before = Resources::now();
    useInThreads(isSoak() ? 2'000 : 60);
    expectFlat(before, 2 * megabyte);
}

class LongSessionTest : public testing::TestWithParam<Mode>
{
protected:
    LongSessionTest() { CoInitialize(nullptr); }
    ~LongSessionTest() override { CoUninitialize(); }

    /// A document of so many calls.
    void writeDocument(IDocument& client, int calls) const
    {
        ASSERT_THAT(client.create(name_), isHresult(S_OK));
        for (int i = 0; i < calls; ++i) {
            HRESULT result = S_OK;
            switch (i % 10) {
            case 0:
                result = client.setStyle(i % 20 == 0 ? heading_ : normal_);
                break;
            case 3:
                result = client.setFontAttribute(1, i % 20 < 10 ? VARIANT_TRUE : VARIANT_FALSE);
                break;
            case 5:
                result = i % 50 == 5 ? client.insertXref(text_, address_) : client.insertText(text_);
                break;
            case 9:
                result = client.insertEndl();
                break;
            default:
                result = client.insertText(text_);
            }
            ASSERT_THAT(result, isHresult(S_OK));
        }
        ASSERT_THAT(client.close(), isHresult(S_OK));
    }

    const ScratchFolder folder_;
    const _bstr_t name_ = bstr(folder_.file("long.doc"));
    const _bstr_t heading_ = bstr("Heading 1"), normal_ = bstr("Normal"), text_ = bstr("Some text, and more");
    const _bstr_t address_ = bstr("http://a.example/");
};

TEST_P(LongSessionTest, NeedsNoMoreAtItsEndThanAtItsBeginning)
{
    constexpr int callsOfADocument = 500;
    const int documents = isSoak() ? 2'000 : 40;
    const BuiltServer server;
    ObservedWord word;
    const IDocumentPtr client = server.make();
    const int mode = static_cast<int>(GetParam());
    ASSERT_THAT(client->overrideRegistry(bstr("Word"), bstr("Compose"), bstr(std::to_string(mode)), 1),
                isHresult(S_OK));
    ASSERT_THAT(client->overrideRegistry(bstr("Word"), bstr("WordTemplateName"), bstr(""), 1),
                isHresult(S_OK));
    ASSERT_THAT(client->start(), isHresult(S_OK));
    Resources before;
    for (int i = 0; i < documents && !HasFatalFailure(); ++i) {
        if (i == documents / 4)
            before = Resources::now();
        writeDocument(*client, callsOfADocument);
        word.word.clearTranscript();
    }
    // A heap in which others have left holes grows for some hundred documents, whatever they need.
    expectFlat(before, (isSoak() ? 2 : 8) * megabyte);
    EXPECT_LE(Resources::now().allocatedBytes, before.allocatedBytes + 2'000);
    EXPECT_THAT(client->stop(), isHresult(S_OK));
}

INSTANTIATE_TEST_SUITE_P(Modes, LongSessionTest, testing::ValuesIn(everyMode),
                         [](const auto& each) { return nameOf(each.param); });

} // namespace
