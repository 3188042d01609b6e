#include "BusyWait.h"

#include <utility>

#include <objbase.h>
#include <windows.h>

namespace Word {
namespace {
BusyWaitOverride* currentOverride = nullptr;

/// What nobody ever signals.
class Never
{
public:
    Never() noexcept : event_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
    ~Never()
    {
        if (event_)
            CloseHandle(event_);
    }
    Never(const Never&) = delete;
    Never& operator=(const Never&) = delete;

    [[nodiscard]] HANDLE* handles() noexcept { return event_ ? &event_ : nullptr; }

private:
    HANDLE event_;
};
} // namespace

std::chrono::milliseconds busyClock()
{
    return currentOverride ? currentOverride->now_ : std::chrono::milliseconds(GetTickCount64());
}

// Not Sleep: Word may be busy because it waits for this very thread, for the release of an object or the
// answer to a message, and would stay so until the pause is over.
void busyPause(std::chrono::milliseconds time)
{
    if (currentOverride) {
        currentOverride->now_ += time;
        if (currentOverride->onPause_)
            currentOverride->onPause_(time);
        return;
    }
    const auto milliseconds = static_cast<DWORD>(time.count());
    Never never;
    DWORD signalled = 0;
    if (!never.handles() ||
        CoWaitForMultipleHandles(0, milliseconds, 1, never.handles(), &signalled) != RPC_S_CALLPENDING)
        Sleep(milliseconds);
}

BusyWaitOverride::BusyWaitOverride(OnPause onPause)
    : onPause_(std::move(onPause)), outer_(std::exchange(currentOverride, this))
{
}

BusyWaitOverride::~BusyWaitOverride()
{
    currentOverride = outer_;
}
} // namespace Word
