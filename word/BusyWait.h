#pragma once

#include <chrono>
#include <functional>

/// How time passes between a call that a busy Word has rejected and the next attempt.
namespace Word {
/// The time now, of a clock that never goes back.
[[nodiscard]] std::chrono::milliseconds busyClock();
/// Lets so much time pass. In a single-threaded apartment COM serves the thread meanwhile, as it does during
/// every call to another process, and in no other way.
void busyPause(std::chrono::milliseconds time);

/// While alive, no pause takes time: `onPause` hears how long it was to be, and the clock goes on by as much.
/// Made and destroyed on the thread that calls Word.
class BusyWaitOverride
{
public:
    using OnPause = std::function<void(std::chrono::milliseconds)>;

    explicit BusyWaitOverride(OnPause onPause = {});
    ~BusyWaitOverride();
    BusyWaitOverride(const BusyWaitOverride&) = delete;
    BusyWaitOverride& operator=(const BusyWaitOverride&) = delete;

private:
    friend std::chrono::milliseconds busyClock();
    friend void busyPause(std::chrono::milliseconds);

    OnPause onPause_;
    std::chrono::milliseconds now_{0};
    BusyWaitOverride* outer_;
};
} // namespace Word
