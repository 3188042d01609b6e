#pragma once

#include <cstdint>
#include <exception>

/// A fault that the processor raised (access violation, division by zero, ...), as CSignal2Exception throws
/// it.
class HardwareFault : public std::exception
{
public:
    HardwareFault(std::uint32_t code, std::uintptr_t address) noexcept : code_(code), address_(address) {}

    /// Whether a Windows exception code is one of those that CSignal2Exception turns into this exception.
    [[nodiscard]] static bool isHardwareFault(std::uint32_t code) noexcept;

    /// Windows' exception code, such as 0xC0000005.
    [[nodiscard]] std::uint32_t code() const noexcept { return code_; }
    /// Of the instruction that faulted.
    [[nodiscard]] std::uintptr_t address() const noexcept { return address_; }
    /// The name of the fault, in English.
    [[nodiscard]] const char* what() const noexcept override;

private:
    std::uint32_t code_;
    std::uintptr_t address_;
};
