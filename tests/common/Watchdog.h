#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

/// Ends the program when one test takes too long, with the test's name: who waits for it would only see that
/// it hangs.
///
/// Patience is MIROVEL_TEST_PATIENCE seconds, or 280. A guard, not a measure: CTest's own comes later.
class Watchdog : public testing::EmptyTestEventListener
{
public:
    Watchdog();
    ~Watchdog() override;

private:
    void OnTestStart(const testing::TestInfo& test) override;
    void OnTestEnd(const testing::TestInfo& test) override;
    void watch();

    const std::chrono::seconds patience_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::string running_; ///< empty: none
    bool ends_ = false;
    std::thread thread_;
};
