// Each request for memory that the DLL makes in a session fails in turn, alone or with all behind it: the
// host lives on, nothing is left behind, and the next session is as ever.
#include "BuiltServer.h"
#include "ModuleAllocations.h"
#include "Resources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace {

class AllocationsTest : public testing::TestWithParam<std::tuple<Mode, bool>>
{
protected:
    AllocationsTest() { CoInitialize(nullptr); }
    ~AllocationsTest() override { CoUninitialize(); }

    /// Made, played and released; without memory for the object, what that failed with is the only failure.
    Played playObject() { return playAs(mode_); }
    Played playAs(Mode mode)
    {
        Played played;
        const std::string failure = failureOf([&] {
            const IDocumentPtr object = server_->make();
            played = word_->playShortSession(object, mode);
            return S_OK;
        });
        if (!failure.empty())
            played.failures.push_back("new: " + failure);
        return played;
    }

    /// What the diagnostics have said since the last time.
    std::string takeDiagnostics()
    {
        std::string news;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
            std::ifstream file(entry.path(), std::ios::binary);
            file.seekg(told_);
            news.assign(std::istreambuf_iterator(file), {});
        }
        told_ += static_cast<std::streamoff>(news.size());
        return news;
    }

    /// The counting writer takes every failure of a change of style for a style that is not there.
    static bool isLossTold(const std::string& diagnostics)
    {
        return diagnostics.find("Swallowed: ") != diagnostics.npos ||
               diagnostics.find("does not have the style \"Heading 1\"") != diagnostics.npos ||
               diagnostics.find("does not have the style \"Normal\"") != diagnostics.npos;
    }

    void SetUp() override
    {
        SetEnvironmentVariableW(L"MIROVEL_DIAGNOSTICS", bstr(folder_.file("diagnostics.log")));
        server_ = std::make_unique<BuiltServer>();
        word_ = std::make_unique<ObservedWord>();
    }

    void TearDown() override
    {
        word_.reset();
        server_.reset();
        SetEnvironmentVariableW(L"MIROVEL_DIAGNOSTICS", nullptr);
    }

    const Mode mode_ = std::get<Mode>(GetParam());
    const bool onwards_ = std::get<bool>(GetParam());
    const ScratchFolder folder_;
    std::streamoff told_ = 0;
    std::unique_ptr<BuiltServer> server_;
    std::unique_ptr<ObservedWord> word_;
};

TEST_P(AllocationsTest, MayFailWithoutAnyHarm)
{
    ModuleAllocations allocations(server_->module.handle());
    // What is kept for good is allocated: the counting writer's fonts of styles as well, since a session that
    // fails to choose another writer gets that.
    playAs(Mode::counting);
    const Played undisturbed = playObject();
    ASSERT_EQ(undisturbed.failures, std::vector<std::string>());
    ASSERT_TRUE(undisturbed.isClosed);
    std::size_t handlesKept = Resources::now().handles;
    allocations.refuse(0, false);
    playObject();
    const long total = allocations.grantAll().made;
    std::size_t kept = allocations.liveBlocks();
    ASSERT_GT(total, 500);
    const long step = isSoak() ? 1 : 13;
    long runs = 0;
    for (long n = 1; n <= total && !HasFailure(); n += step, ++runs) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, "request " + std::to_string(n));
        takeDiagnostics();
        allocations.refuse(n, onwards_);
        const Played played = playObject();
        const ModuleAllocations::Requests requests = allocations.grantAll();
        EXPECT_GE(requests.refused, 1);
        // Without any memory there is none for a line either.
        EXPECT_TRUE(onwards_ || played == undisturbed || !played.failures.empty() ||
                    isLossTold(takeDiagnostics()))
            << "something was lost without a word";
        word_->clear();
        const Played next = playObject();
        EXPECT_EQ(next.failures, undisturbed.failures);
        EXPECT_TRUE(next.content == undisturbed.content);
        EXPECT_EQ(word_->word.liveObjects(), 0);
        if (const std::size_t handles = Resources::now().handles;
            allocations.liveBlocks() > kept || handles > handlesKept) {
            // Told once, made once, or known from now on: another time adds nothing.
            kept = std::max(kept, allocations.liveBlocks());
            handlesKept = std::max(handlesKept, handles);
            allocations.refuse(n, onwards_);
            playObject();
            allocations.grantAll();
            word_->clear();
            playObject();
        }
        EXPECT_LE(allocations.liveBlocks(), kept);
        EXPECT_LE(Resources::now().handles, handlesKept);
    }
    std::printf("%ld of %ld requests\n", runs, total);
}

INSTANTIATE_TEST_SUITE_P(Modes, AllocationsTest,
                         testing::Combine(testing::ValuesIn(everyMode), testing::Bool()),
                         [](const auto& each) {
                             return nameOf(std::get<Mode>(each.param)) +
                                    (std::get<bool>(each.param) ? "FromThenOn" : "Once");
                         });

} // namespace
