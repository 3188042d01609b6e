#include "Watchdog.h"

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int statusOfTooLong = 124;

std::chrono::seconds patience()
{
    const char* const given = std::getenv("MIROVEL_TEST_PATIENCE");
    return std::chrono::seconds(given && *given ? std::atol(given) : 280);
}

} // namespace

Watchdog::Watchdog() : patience_(patience()), thread_([this] { watch(); }) {}

Watchdog::~Watchdog()
{
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

void Watchdog::OnTestStart(const testing::TestInfo& test)
{
    {
        const std::lock_guard lock(mutex_);
        running_ = std::string(test.test_suite_name()) + "." + test.name();
    }
    changed_.notify_one();
}

void Watchdog::OnTestEnd(const testing::TestInfo&)
{
    {
        const std::lock_guard lock(mutex_);
        running_.clear();
    }
    changed_.notify_one();
}

void Watchdog::watch()
{
    std::unique_lock lock(mutex_);
    while (!ends_) {
        if (running_.empty()) {
            changed_.wait(lock);
            continue;
        }
        const std::string watched = running_;
        const bool isOver = changed_.wait_for(lock, patience_, [&] { return ends_ || running_ != watched; });
        if (!isOver) {
            std::fprintf(stderr, "%s is not over after %lld s: the program ends here.\n", watched.c_str(),
                         static_cast<long long>(patience_.count()));
            std::fflush(stderr);
            std::_Exit(statusOfTooLong);
        }
    }
}
