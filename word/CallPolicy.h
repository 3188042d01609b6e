#pragma once

#include <chrono>

namespace Word {
class CallObserver;

/// How calls are made: for how long a call that a busy Word rejects is repeated, and who hears of what goes
/// wrong.
struct CallPolicy
{
    std::chrono::milliseconds busyTimeout{0}; ///< For each call; 0: rejected calls fail at once.
    CallObserver* observer = nullptr;         ///< May be null; not owned.
};

/// While one of these is alive on a thread, that thread's Word calls follow its policy; without one they are
/// made once, and nobody hears of them. Scopes nest, the innermost counts. Entering and leaving costs two
/// accesses to a thread's slot.
class CallScope
{
public:
    /// `policy` must outlive the scope.
    explicit CallScope(const CallPolicy& policy) noexcept;
    ~CallScope();
    CallScope(const CallScope&) = delete;
    CallScope& operator=(const CallScope&) = delete;

    /// The policy in force on this thread, or null.
    [[nodiscard]] static const CallPolicy* current() noexcept;

private:
    const CallPolicy* outer_;
};
} // namespace Word
