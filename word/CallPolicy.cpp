#include "CallPolicy.h"

#include <windows.h>

namespace Word {
namespace {
/// A slot of each thread. Not a thread_local variable: the first use of one on a thread allocates, and a
/// scope must not fail.
class ThreadSlot
{
public:
    ThreadSlot() noexcept : slot_(TlsAlloc()) {}
    ~ThreadSlot() { TlsFree(slot_); }
    ThreadSlot(const ThreadSlot&) = delete;
    ThreadSlot& operator=(const ThreadSlot&) = delete;

    [[nodiscard]] const CallPolicy* get() const noexcept
    {
        return static_cast<const CallPolicy*>(TlsGetValue(slot_));
    }
    void set(const CallPolicy* policy) const noexcept { TlsSetValue(slot_, const_cast<CallPolicy*>(policy)); }

private:
    DWORD slot_;
};

const ThreadSlot currentPolicy;
} // namespace

CallScope::CallScope(const CallPolicy& policy) noexcept : outer_(current())
{
    currentPolicy.set(&policy);
}

CallScope::~CallScope()
{
    currentPolicy.set(outer_);
}

const CallPolicy* CallScope::current() noexcept
{
    return currentPolicy.get();
}
} // namespace Word
