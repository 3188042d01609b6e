#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>

/// A second interface pointer to a COM object, as a client may get one for each way by which it asked. Every
/// slot goes on to the object, IUnknown's too, so that COM takes both for the same one.
template <class Interface>
class OtherPointer
{
public:
    /// `object` must outlive this.
    explicit OtherPointer(Interface* object) : face_{nullptr, object}
    {
        code_ = VirtualAlloc(nullptr, slots * slotSize, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE);
        if (code_ == nullptr)
            throw std::bad_alloc();
        for (std::size_t slot = 0; slot < slots; ++slot) {
            table_[slot] = static_cast<std::byte*>(code_) + slot * slotSize;
            // mov rcx,[rcx+8]; mov rax,[rcx]; jmp [rax+8*slot]
            const std::uint8_t instructions[] = {0x48, 0x8B, 0x49, 0x08, 0x48, 0x8B, 0x01, 0xFF, 0xA0};
            const auto offset = static_cast<std::uint32_t>(slot * sizeof(void*));
            std::memcpy(table_[slot], instructions, sizeof(instructions));
            std::memcpy(static_cast<std::byte*>(table_[slot]) + sizeof(instructions), &offset,
                        sizeof(offset));
        }
        face_.table = table_.data();
    }
    ~OtherPointer() { VirtualFree(code_, 0, MEM_RELEASE); }
    OtherPointer(const OtherPointer&) = delete;
    OtherPointer& operator=(const OtherPointer&) = delete;

    Interface* get() { return reinterpret_cast<Interface*>(&face_); }

private:
    static constexpr std::size_t slots = 256;
    static constexpr std::size_t slotSize = 16;

    struct Face
    {
        void** table;
        Interface* object;
    };

    void* code_;
    std::array<void*, slots> table_{};
    Face face_;
};
