#include <gtest/gtest.h>

#include <chrono>
#include <thread>

// Run alone, with little patience, by an entry of CTest that looks for what the watchdog says.
TEST(Watchdog, DISABLED_EndsThis)
{
    std::this_thread::sleep_for(std::chrono::minutes(5));
}
