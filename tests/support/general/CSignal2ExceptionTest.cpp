#include "general/CSignal2Exception.h"

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <windows.h>

namespace {

// Not inlined and volatile throughout, so that the compiler neither foresees nor removes the faults.

[[gnu::noinline]] int readFrom(const volatile int* address)
{
    return *address;
}

[[gnu::noinline]] void writeTo(volatile int* address)
{
    *address = 1;
}

[[gnu::noinline]] int divide(int dividend, volatile int* divisor)
{
    return dividend / *divisor;
}

/// Takes results, so that no division is thought needless.
volatile int sink = 0;

volatile std::uintptr_t badAddress = 0x10;
volatile int zero = 0;

const volatile int* badPointer()
{
    return reinterpret_cast<const volatile int*>(badAddress);
}

/// The code of the fault that `work` raises under a guard, 0 when none arrives.
template <class Work>
std::uint32_t faultOf(Work work)
{
    try {
        const CSignal2Exception guard;
        work();
        return 0;
    } catch (const HardwareFault& fault) {
        return fault.code();
    }
}

/// Stands in for the host: notes the faults that reach it and mends them by skipping to `resume`.
class HostHandler
{
public:
    HostHandler() : handle_(AddVectoredContinueHandlerLast()) {}
    ~HostHandler() { RemoveVectoredExceptionHandler(handle_); }
    HostHandler(const HostHandler&) = delete;
    HostHandler& operator=(const HostHandler&) = delete;

    static inline int seen = 0;
    static constexpr DWORD ownCode = 0xe0001234;

private:
    static LONG CALLBACK handle(EXCEPTION_POINTERS* fault)
    {
        if (fault->ExceptionRecord->ExceptionCode == EXCEPTION_ACCESS_VIOLATION) {
            ++seen;
            // The instruction reads through this register; let it try again with a good address.
            static int good = 42;
            fault->ContextRecord->Rcx = reinterpret_cast<DWORD64>(&good);
            return EXCEPTION_CONTINUE_EXECUTION;
        }
        if (fault->ExceptionRecord->ExceptionCode == ownCode) {
            ++seen;
            return EXCEPTION_CONTINUE_EXECUTION;
        }
        return EXCEPTION_CONTINUE_SEARCH;
    }
    /// Behind the guards' handler.
    static void* AddVectoredContinueHandlerLast()
    {
        {
            const CSignal2Exception registersTheGuardsHandler;
        }
        seen = 0;
        return AddVectoredExceptionHandler(0, &handle);
    }

    void* handle_;
};

/// Reads through its argument, which the calling convention puts into rcx.
__attribute__((naked, noinline)) int readThroughRcx(const void*)
{
    __asm__("movl (%rcx), %eax\n"
            "ret");
}

class Counted
{
public:
    Counted() { ++alive; }
    ~Counted() { --alive; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    static inline int alive = 0;
};

[[gnu::noinline]] int recurseAndFault(int depth)
{
    const Counted counted;
    const std::string text(100, 'x');
    return depth == 0 ? readFrom(badPointer()) + static_cast<int>(text.size())
                      : recurseAndFault(depth - 1) + 1;
}

} // namespace

/// Not in the unnamed namespace, where the compiler would see that nobody implements it.
struct SomeInterface
{
    virtual void method() = 0;
};

TEST(CSignal2ExceptionTest, AReadViolationIsThrown)
{
    EXPECT_EQ(faultOf([] { readFrom(badPointer()); }), std::uint32_t{EXCEPTION_ACCESS_VIOLATION});
}

TEST(CSignal2ExceptionTest, AWriteViolationIsThrown)
{
    EXPECT_EQ(faultOf([] { writeTo(const_cast<volatile int*>(badPointer())); }),
              std::uint32_t{EXCEPTION_ACCESS_VIOLATION});
}

TEST(CSignal2ExceptionTest, AnIntegerDivisionByZeroIsThrown)
{
    EXPECT_EQ(faultOf([] { sink = divide(1, &zero); }), std::uint32_t{EXCEPTION_INT_DIVIDE_BY_ZERO});
}

TEST(CSignal2ExceptionTest, AnIllegalInstructionIsThrown)
{
    EXPECT_EQ(faultOf([] { __asm__ volatile("ud2"); }), std::uint32_t{EXCEPTION_ILLEGAL_INSTRUCTION});
}

TEST(CSignal2ExceptionTest, ACallThroughABadPointerIsThrown)
{
    const auto call = reinterpret_cast<void (*)()>(static_cast<std::uintptr_t>(badAddress));
    EXPECT_EQ(faultOf([call] { call(); }), std::uint32_t{EXCEPTION_ACCESS_VIOLATION});
}

TEST(CSignal2ExceptionTest, AVirtualCallOfADeadObjectIsThrown)
{
    void* table[1] = {reinterpret_cast<void*>(static_cast<std::uintptr_t>(badAddress))};
    void* object = table;
    EXPECT_EQ(faultOf([&object] { reinterpret_cast<SomeInterface*>(&object)->method(); }),
              std::uint32_t{EXCEPTION_ACCESS_VIOLATION});
}

TEST(CSignal2ExceptionTest, AFaultInAnUnalignedLeafIsThrown)
{
    // At the entry of a function the stack is not aligned as at a call.
    EXPECT_EQ(faultOf([] { readThroughRcx(const_cast<const int*>(badPointer())); }),
              std::uint32_t{EXCEPTION_ACCESS_VIOLATION});
}

TEST(CSignal2ExceptionTest, TheFaultTellsItsPlaceAndName)
{
    try {
        const CSignal2Exception guard;
        readThroughRcx(const_cast<const int*>(badPointer()));
        ADD_FAILURE() << "no fault";
    } catch (const HardwareFault& fault) {
        EXPECT_EQ(fault.address(), reinterpret_cast<std::uintptr_t>(&readThroughRcx));
        EXPECT_STREQ(fault.what(), "Access violation");
    }
}

TEST(CSignal2ExceptionTest, IsAStandardException)
{
    try {
        const CSignal2Exception guard;
        sink = divide(1, &zero);
        ADD_FAILURE() << "no fault";
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "Integer division by zero");
    }
}

TEST(CSignal2ExceptionTest, UnwindingDestroysWhatStandsBetween)
{
    EXPECT_EQ(faultOf([] { recurseAndFault(20); }), std::uint32_t{EXCEPTION_ACCESS_VIOLATION});
    EXPECT_EQ(Counted::alive, 0);
}

TEST(CSignal2ExceptionTest, FaultsAgainAndAgain)
{
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(faultOf([] { readFrom(badPointer()); }), std::uint32_t{EXCEPTION_ACCESS_VIOLATION});
}

TEST(CSignal2ExceptionTest, GuardsNest)
{
    const CSignal2Exception outer;
    EXPECT_EQ(faultOf([] { readFrom(badPointer()); }), std::uint32_t{EXCEPTION_ACCESS_VIOLATION});
    {
        const CSignal2Exception inner;
    }
    bool caught = false;
    try {
        readFrom(badPointer());
    } catch (const HardwareFault&) {
        caught = true;
    }
    EXPECT_TRUE(caught) << "the outer guard still stands";
}

TEST(CSignal2ExceptionTest, CppExceptionsPassThrough)
{
    EXPECT_THROW(
        {
            const CSignal2Exception guard;
            throw std::runtime_error("ordinary");
        },
        std::runtime_error);
}

TEST(CSignal2ExceptionTest, WithoutAGuardTheHostSeesTheFault)
{
    const HostHandler host;
    EXPECT_EQ(readThroughRcx(const_cast<const int*>(badPointer())), 42);
    EXPECT_EQ(HostHandler::seen, 1);
}

TEST(CSignal2ExceptionTest, WithAGuardTheHostBehindItDoesNotSeeTheFault)
{
    const HostHandler host;
    EXPECT_EQ(faultOf([] { readThroughRcx(const_cast<const int*>(badPointer())); }),
              std::uint32_t{EXCEPTION_ACCESS_VIOLATION});
    EXPECT_EQ(HostHandler::seen, 0);
}

TEST(CSignal2ExceptionTest, AfterTheGuardTheHostSeesTheFaultAgain)
{
    const HostHandler host;
    EXPECT_EQ(faultOf([] { readFrom(badPointer()); }), std::uint32_t{EXCEPTION_ACCESS_VIOLATION});
    EXPECT_EQ(readThroughRcx(const_cast<const int*>(badPointer())), 42);
    EXPECT_EQ(HostHandler::seen, 1);
}

TEST(CSignal2ExceptionTest, AGuardCountsForItsOwnThreadOnly)
{
    const HostHandler host;
    const CSignal2Exception guard;
    int read = 0;
    std::thread([&read] { read = readThroughRcx(const_cast<const int*>(badPointer())); }).join();
    EXPECT_EQ(read, 42);
    EXPECT_EQ(HostHandler::seen, 1);
}

TEST(CSignal2ExceptionTest, OtherExceptionsGoOnToTheHost)
{
    const HostHandler host;
    EXPECT_EQ(faultOf([] { RaiseException(HostHandler::ownCode, 0, 0, nullptr); }), 0u);
    EXPECT_EQ(HostHandler::seen, 1);
}

TEST(CSignal2ExceptionTest, AnUnloadedModuleLeavesNoHandlerBehind)
{
    const HMODULE module = LoadLibraryW(GUARD_MODULE);
    ASSERT_NE(module, nullptr) << GetLastError();
    const auto useGuard =
        reinterpret_cast<int (*)()>(reinterpret_cast<void*>(GetProcAddress(module, "useGuard")));
    ASSERT_NE(useGuard, nullptr);
    EXPECT_EQ(useGuard(), 7);
    // Stands behind the module's handler, so a handler left behind would be called first, where no code is
    // any more.
    const HostHandler host;
    ASSERT_TRUE(FreeLibrary(module));
    ASSERT_EQ(GetModuleHandleW(GUARD_MODULE), nullptr);
    RaiseException(HostHandler::ownCode, 0, 0, nullptr);
    EXPECT_EQ(HostHandler::seen, 1);
}

TEST(CSignal2ExceptionTest, KnowsWhichCodesAreFaults)
{
    EXPECT_TRUE(HardwareFault::isHardwareFault(EXCEPTION_IN_PAGE_ERROR));
    EXPECT_TRUE(HardwareFault::isHardwareFault(EXCEPTION_FLT_DIVIDE_BY_ZERO));
    EXPECT_FALSE(HardwareFault::isHardwareFault(EXCEPTION_STACK_OVERFLOW));
    EXPECT_FALSE(HardwareFault::isHardwareFault(EXCEPTION_BREAKPOINT));
    EXPECT_FALSE(HardwareFault::isHardwareFault(EXCEPTION_SINGLE_STEP));
    EXPECT_FALSE(HardwareFault::isHardwareFault(0xe06d7363));
}
