// For GCC and clang with mingw, which have no /EHa: a vectored handler makes the faulting instruction look as
// if it had called a function that throws. Code compiled with -fnon-call-exceptions has unwind tables for
// such a "call".
#include "general/CSignal2Exception.h"

#include <utility>
#include <windows.h>

extern "C" [[noreturn]] __attribute__((used)) void mirovelThrowHardwareFault(std::uint32_t code,
                                                                             std::uintptr_t address)
{
    throw HardwareFault(code, address);
}

extern "C" void mirovelEnterHardwareFault();

// A fault may hit where the stack is not aligned as at a call (in a prologue, in a leaf function). The stack
// pointer that the unwinder finds must stay as it was, so the entry aligns the stack only beneath a frame
// pointer.
__asm__(".text\n"
        ".p2align 4\n"
        ".globl mirovelEnterHardwareFault\n"
        ".def mirovelEnterHardwareFault; .scl 2; .type 32; .endef\n"
        ".seh_proc mirovelEnterHardwareFault\n"
        "mirovelEnterHardwareFault:\n"
        "    pushq %rbp\n"
        "    .seh_pushreg %rbp\n"
        "    movq %rsp, %rbp\n"
        "    .seh_setframe %rbp, 0\n"
        "    .seh_endprologue\n"
        "    andq $-16, %rsp\n"
        "    subq $32, %rsp\n"
        "    call mirovelThrowHardwareFault\n"
        "    ud2\n"
        "    .seh_endproc\n");

namespace {

constexpr ULONG_PTR executing = 8;

/// The fault was the attempt to run code where there is none, as after a call through a bad pointer. The
/// return address of that call is then on top of the stack already.
bool jumpedAstray(const EXCEPTION_RECORD& record) noexcept
{
    return record.ExceptionCode == EXCEPTION_ACCESS_VIOLATION && record.NumberParameters >= 2 &&
           (record.ExceptionInformation[0] == executing ||
            record.ExceptionInformation[1] == reinterpret_cast<ULONG_PTR>(record.ExceptionAddress));
}

/// Else the next floating-point instruction would fault again.
void clearFloatingPointFlags(CONTEXT& context) noexcept
{
    constexpr DWORD stickyFlags = 0x3f;
    constexpr WORD x87Flags = 0x80ff;
    context.MxCsr &= ~stickyFlags;
    context.FltSave.MxCsr &= ~stickyFlags;
    context.FltSave.StatusWord = static_cast<WORD>(context.FltSave.StatusWord & ~x87Flags);
}

void redirectToThrow(const EXCEPTION_RECORD& record, CONTEXT& context) noexcept
{
    const DWORD64 fault = context.Rip;
    if (!jumpedAstray(record)) {
        // The unwinder looks up the byte before a return address.
        context.Rsp -= sizeof(DWORD64);
        *reinterpret_cast<DWORD64*>(context.Rsp) = fault + 1;
    }
    clearFloatingPointFlags(context);
    context.Rcx = record.ExceptionCode;
    context.Rdx = fault;
    context.Rip = reinterpret_cast<DWORD64>(&mirovelEnterHardwareFault);
    // The direction flag must be clear at every call.
    context.EFlags &= ~DWORD{0x400};
}

/// The handler and the guards' depth per thread. Made with the first guard, taken back when the module is
/// unloaded.
///
/// The depth lies in a TLS slot and not in a thread_local variable, whose first use on a thread allocates:
/// the handler sees faults of foreign threads and may do no such thing.
class FaultHandler
{
public:
    FaultHandler() noexcept : slot_(TlsAlloc())
    {
        instance_ = this;
        // Behind the host's own vectored handlers: what they know as theirs stays theirs.
        handle_ = AddVectoredExceptionHandler(0, &handle);
    }
    ~FaultHandler()
    {
        RemoveVectoredExceptionHandler(handle_);
        TlsFree(slot_);
    }
    FaultHandler(const FaultHandler&) = delete;
    FaultHandler& operator=(const FaultHandler&) = delete;

    static FaultHandler& instance() noexcept
    {
        static FaultHandler handler;
        return handler;
    }

    void enter() noexcept { setDepth(depth() + 1); }
    void leave() noexcept { setDepth(depth() - 1); }

private:
    [[nodiscard]] INT_PTR depth() const noexcept { return reinterpret_cast<INT_PTR>(TlsGetValue(slot_)); }
    void setDepth(INT_PTR depth) const noexcept { TlsSetValue(slot_, reinterpret_cast<void*>(depth)); }

    [[nodiscard]] bool isGuarded() const noexcept
    {
        const DWORD lastError = GetLastError();
        const bool guarded = depth() > 0;
        SetLastError(lastError);
        return guarded;
    }

    static LONG CALLBACK handle(EXCEPTION_POINTERS* fault) noexcept
    {
        const EXCEPTION_RECORD& record = *fault->ExceptionRecord;
        const bool continuable = (record.ExceptionFlags & EXCEPTION_NONCONTINUABLE) == 0;
        if (!continuable || !HardwareFault::isHardwareFault(record.ExceptionCode) || !instance_->isGuarded())
            return EXCEPTION_CONTINUE_SEARCH;
        redirectToThrow(record, *fault->ContextRecord);
        return EXCEPTION_CONTINUE_EXECUTION;
    }

    static inline FaultHandler* instance_ = nullptr;
    DWORD slot_;
    void* handle_;
};

} // namespace

CSignal2Exception::CSignal2Exception() noexcept
{
    FaultHandler::instance().enter();
}

CSignal2Exception::~CSignal2Exception()
{
    FaultHandler::instance().leave();
}
