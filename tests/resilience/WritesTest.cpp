// The disk is full, or access is denied, at each place where the DLL writes: of a session with a log,
// diagnostics and fragments every document is as ever; a registration says so.
#include "BuiltServer.h"
#include "FailingFunction.h"
#include "Hresult.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tuple>

namespace {

class WritesTest : public testing::TestWithParam<std::tuple<const char*, bool>>
{
protected:
    WritesTest()
    {
        CoInitialize(nullptr);
        SetEnvironmentVariableW(L"MIROVEL_DIAGNOSTICS", bstr(folder_.file("diagnostics.log")));
    }
    ~WritesTest() override
    {
        SetEnvironmentVariableW(L"MIROVEL_DIAGNOSTICS", nullptr);
        CoUninitialize();
    }

    const char* const function_ = std::get<const char*>(GetParam());
    const bool onwards_ = std::get<bool>(GetParam());
    const ScratchFolder folder_;
};

/// Files that fragments lie in while Word reads them.
long fragmentFiles()
{
    long count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::temp_directory_path()))
        if (entry.path().filename().string().starts_with("mirovel-{"))
            ++count;
    return count;
}

using SessionWritesTest = WritesTest;

TEST_P(SessionWritesTest, MayAllFailAndTheDocumentIsAsEver)
{
    const BuiltServer server;
    ObservedWord word;
    const auto play = [&] {
        const IDocumentPtr object = server.make();
        object->overrideRegistry(bstr("Log"), bstr("LogName"), bstr(folder_.file("trace.log")), 1);
        return word.playShortSession(object, Mode::fragments);
    };
    const Played undisturbed = play();
    ASSERT_EQ(undisturbed.failures, std::vector<std::string>());
    const long filesBefore = fragmentFiles();
    FailingFunction failing(server.module.handle(), function_);
    failing.refuse(0, false);
    play();
    const long calls = failing.grantAll();
    ASSERT_GE(calls, 1);
    const long step = isSoak() ? 1 : 1 + calls / 30;
    for (long n = 1; n <= calls && !HasFailure(); n += step) {
        const testing::ScopedTrace trace(__FILE__, __LINE__,
                                         "call " + std::to_string(n) + " of " + function_);
        failing.refuse(n, onwards_);
        const Played played = play();
        failing.grantAll();
        EXPECT_EQ(played.failures, undisturbed.failures);
        EXPECT_TRUE(played.content == undisturbed.content);
        EXPECT_EQ(word.word.liveObjects(), 0);
        EXPECT_EQ(fragmentFiles(), filesBefore);
    }
    EXPECT_TRUE(play() == undisturbed);
}

std::string nameOfParameter(const testing::TestParamInfo<std::tuple<const char*, bool>>& info)
{
    std::string name = std::get<const char*>(info.param);
    std::erase(name, '_');
    return name + (std::get<bool>(info.param) ? "FromThenOn" : "Once");
}

INSTANTIATE_TEST_SUITE_P(Functions, SessionWritesTest,
                         testing::Combine(testing::Values("WriteFile", "CreateFileW", "fwrite", "fflush",
                                                          "_wfsopen"),
                                          testing::Bool()),
                         nameOfParameter);

using RegistrationWritesTest = WritesTest;

TEST_P(RegistrationWritesTest, AreToldWhenTheyFail)
{
    const ServerModule server;
    FailingFunction failing(server.handle(), function_);
    failing.refuse(0, false);
    ASSERT_THAT(server.registerServer(), isHresult(S_OK));
    const long calls = failing.grantAll();
    ASSERT_GE(calls, 5);
    for (long n = 1; n <= calls; ++n) {
        failing.refuse(n, onwards_);
        EXPECT_THAT(server.registerServer(), isHresult(HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED))) << n;
        failing.grantAll();
    }
    EXPECT_THAT(server.registerServer(), isHresult(S_OK));
    EXPECT_THAT(server.unregisterServer(), isHresult(S_OK));
}

INSTANTIATE_TEST_SUITE_P(Functions, RegistrationWritesTest,
                         testing::Combine(testing::Values("RegCreateKeyExW", "RegSetValueExW"),
                                          testing::Bool()),
                         nameOfParameter);

} // namespace
