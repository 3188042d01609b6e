#pragma once

#include "QdxExport.h"

#include <cstddef>
#include <cstdint>

/// An 8-bit string in the ANSI code page, held by value.
///
/// One pointer wide: it points at the first character of a NUL-terminated buffer, whose length stands beside
/// it. Copies share the buffer until one of them is changed; all empty strings share one static buffer, so
/// making and copying an empty string allocates nothing.
///
/// Text may contain NUL bytes. Comparisons, hash, insert, append and remove work on the whole length; what
/// takes a `const char*` stops at its NUL, and a null `const char*` counts as an empty text.
///
/// Threads: one QdxString belongs to one thread at a time, as an int does. The hidden count of a shared
/// buffer is atomic, because two apartments of a host may hold copies of the same constant without knowing
/// it.
///
/// Failures: std::out_of_range for a position beyond the end, std::length_error for a text that no buffer can
/// hold, std::bad_alloc. After a failure the string is unchanged.
class QdxString
{
public:
    /// "No position": what the searches answer when nothing was found.
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    QDXEXPORT QdxString() noexcept;
    QDXEXPORT QdxString(const QdxString& other) noexcept;
    /// Leaves `other` empty.
    QDXEXPORT QdxString(QdxString&& other) noexcept;
    QDXEXPORT QdxString(const char* s);
    /// Exactly `n` bytes from `s`, NUL bytes included.
    QDXEXPORT QdxString(const char* s, std::size_t n);
    QDXEXPORT ~QdxString();

    QDXEXPORT QdxString& operator=(const QdxString& other) noexcept;
    QDXEXPORT QdxString& operator=(QdxString&& other) noexcept;
    QDXEXPORT QdxString& operator=(const char* s);

    /// The NUL-terminated bytes. Not to be written through: other strings may share them. Valid until this
    /// string is changed or destroyed.
    [[nodiscard]] QDXEXPORT char* data() const noexcept;
    /// Length in bytes.
    [[nodiscard]] QDXEXPORT std::size_t length() const noexcept;
    [[nodiscard]] QDXEXPORT bool isEmpty() const noexcept;

    /// Puts all of `s` in front of the byte at `pos`; `pos == length()` appends.
    QDXEXPORT QdxString& insert(std::size_t pos, const QdxString& s);
    QDXEXPORT QdxString& append(const QdxString& s);
    /// The first `n` bytes of `s`, or all of it when it is shorter.
    QDXEXPORT QdxString& append(const QdxString& s, std::size_t n);
    QDXEXPORT QdxString& append(const char* s);
    /// Exactly `n` bytes from `s`, NUL bytes included.
    QDXEXPORT QdxString& append(const char* s, std::size_t n);
    /// Deletes from `pos` to the end.
    QDXEXPORT QdxString& remove(std::size_t pos);
    /// Deletes `n` bytes at `pos`, fewer when the text ends before.
    QDXEXPORT QdxString& remove(std::size_t pos, std::size_t n);

    /// Compared up to the first NUL of either; an empty prefix always matches.
    [[nodiscard]] QDXEXPORT bool startsWith(const char* prefix) const noexcept;
    /// First occurrence of `pat`, which counts up to its first NUL. An empty pattern is found at 0, but not
    /// in an empty text.
    [[nodiscard]] QDXEXPORT std::size_t find(const QdxString& pat) const noexcept;
    /// First byte equal to `c`.
    [[nodiscard]] QDXEXPORT std::size_t first(char c) const noexcept;
    /// First byte that is one of the bytes of `set`, which counts up to its first NUL.
    [[nodiscard]] QDXEXPORT std::size_t first(const QdxString& set) const noexcept;
    /// Last byte equal to `c`.
    [[nodiscard]] QDXEXPORT std::size_t last(char c) const noexcept;

    /// Byte by byte, by the current C locale.
    QDXEXPORT void toUpper();
    QDXEXPORT void toLower();

    /// Case-sensitive; the value may change from version to version.
    [[nodiscard]] QDXEXPORT std::uint32_t hash() const noexcept;

    /// Replaces every occurrence of `from` in the text as it stands, from left to right and without overlaps.
    /// An empty `from` changes nothing.
    QDXEXPORT void replaceStr(const QdxString& from, const QdxString& to);

private:
    void splice(std::size_t pos, std::size_t removed, const char* s, std::size_t n);
    void mapBytes(int (*map)(int));

    char* text_;
};

QDXEXPORT bool operator==(const QdxString& a, const QdxString& b) noexcept;
QDXEXPORT bool operator!=(const QdxString& a, const QdxString& b) noexcept;
/// Bytes compared as unsigned values; of two texts that agree as far as the shorter goes, the shorter comes
/// first.
QDXEXPORT bool operator<(const QdxString& a, const QdxString& b) noexcept;
QDXEXPORT bool operator>(const QdxString& a, const QdxString& b) noexcept;
