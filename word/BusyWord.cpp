#include "BusyWord.h"

#include "BusyWait.h"
#include "CallObserver.h"
#include "CallPolicy.h"
#include "MessageFilter.h"

#include <algorithm>

namespace Word {
namespace {
using std::chrono::milliseconds;

constexpr milliseconds firstPause{10};
constexpr milliseconds longestPause{1000};

template <typename Report>
void tell(const CallPolicy& policy, Report&& report) noexcept
try {
    if (policy.observer)
        report(*policy.observer);
} catch (...) { // NOLINT(bugprone-empty-catch): a report is no reason for a call to fail
}
} // namespace

HRESULT repeatRejected(HRESULT rejection, const CallName& name, const RepeatableCall& again)
{
    const CallPolicy* const policy = CallScope::current();
    if (!policy || policy->busyTimeout <= milliseconds::zero() || hasMessageFilter())
        return rejection;
    tell(*policy, [&](CallObserver& observer) { observer.retrying(name, rejection); });

    const milliseconds start = busyClock();
    const milliseconds end = start + policy->busyTimeout;
    int attempts = 2;
    HRESULT result = again();
    for (milliseconds pause = firstPause; isRejected(result); pause = std::min(2 * pause, longestPause)) {
        const milliseconds left = end - busyClock();
        if (left <= milliseconds::zero())
            break;
        busyPause(std::min(pause, left));
        ++attempts;
        result = again();
    }
    tell(*policy,
         [&](CallObserver& observer) { observer.retried(name, attempts, busyClock() - start, result); });
    return result;
}
} // namespace Word
