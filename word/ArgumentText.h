#pragma once

#include <comdef.h>
#include <concepts>
#include <string>
#include <type_traits>

namespace Word {
/// The arguments of a call as a text for people: texts in quotes and at most 60 characters of them, then how
/// long they are; "missing" for an argument that was not given; "object" for one.
class ArgumentText
{
public:
    void add(const _variant_t& argument);
    void add(const _bstr_t& argument);
    void add(bool argument) { addPiece(argument ? L"true" : L"false"); }
    template <typename Number>
    requires std::is_arithmetic_v<Number>
    void add(Number argument) { addPiece(std::to_wstring(argument)); }
    template <typename Pointer>
    requires std::is_pointer_v<Pointer>
    void add(Pointer argument) { addPiece(argument ? L"object" : L"nothing"); }

    [[nodiscard]] const std::wstring& text() const noexcept { return text_; }

private:
    void addPiece(const std::wstring& piece);

    std::wstring text_;
};

/// A call's arguments, not looked at until somebody wants to read them. Borrows them.
class ArgumentsOf
{
public:
    /// `add` is called with an ArgumentText& and must outlive this.
    template <std::invocable<ArgumentText&> Add>
    explicit ArgumentsOf(const Add& add) noexcept
        : arguments_(&add),
          add_([](const void* erased, ArgumentText& text) { (*static_cast<const Add*>(erased))(text); })
    {
    }

    [[nodiscard]] std::wstring text() const
    {
        ArgumentText text;
        add_(arguments_, text);
        return text.text();
    }

private:
    const void* arguments_;
    void (*add_)(const void*, ArgumentText&);
};
} // namespace Word
