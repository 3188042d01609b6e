#include "QdxString.h"

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cstring>
#include <functional>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>

namespace {

/// Stands directly in front of the characters.
struct Header
{
    std::atomic<std::size_t> holders;
    std::size_t length;
    /// Characters that fit, the NUL not counted.
    std::size_t capacity;
};

/// The body of all empty strings. Never counted, so that sharing it costs nothing and no thread ever writes
/// to it.
struct EmptyBody
{
    Header header{1, 0, 0};
    char text[sizeof(Header)]{};
};
constinit EmptyBody emptyBody;
static_assert(sizeof(EmptyBody) == 2 * sizeof(Header), "the characters follow the header without a gap");

constexpr std::size_t maxLength =
    static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) - sizeof(Header) - 1;

char* emptyText() noexcept
{
    return emptyBody.text;
}

Header& headerOf(char* text) noexcept
{
    return *(reinterpret_cast<Header*>(text) - 1);
}

/// A new body with one holder, of `length` characters not yet written, its end marked.
char* makeBody(std::size_t length, std::size_t capacity)
{
    void* const memory = ::operator new(sizeof(Header) + capacity + 1);
    Header* const header = new (memory) Header{1, length, capacity};
    char* const text = reinterpret_cast<char*>(header + 1);
    text[length] = '\0';
    return text;
}

char* makeBody(const char* s, std::size_t length)
{
    if (length == 0)
        return emptyText();
    if (length > maxLength)
        throw std::length_error("QdxString: text too long");
    char* const text = makeBody(length, length);
    std::memcpy(text, s, length);
    return text;
}

char* share(char* text) noexcept
{
    if (text != emptyText())
        headerOf(text).holders.fetch_add(1, std::memory_order_relaxed);
    return text;
}

bool isShared(char* text) noexcept
{
    return text == emptyText() || headerOf(text).holders.load(std::memory_order_acquire) > 1;
}

void release(char* text) noexcept
{
    if (text == emptyText())
        return;
    Header& header = headerOf(text);
    if (header.holders.fetch_sub(1, std::memory_order_acq_rel) != 1)
        return;
    header.~Header();
    ::operator delete(&header);
}

std::size_t lengthOf(const char* s) noexcept
{
    return s ? std::strlen(s) : 0;
}

/// Room to grow, so that a text built by appending is copied a constant number of times per byte.
std::size_t grownCapacity(std::size_t capacity, std::size_t needed) noexcept
{
    return std::min(maxLength, std::max(needed, capacity + capacity / 2));
}

bool liesIn(const char* s, const char* begin, const char* end) noexcept
{
    return !std::less<const char*>()(s, begin) && std::less<const char*>()(s, end);
}

int compare(const QdxString& a, const QdxString& b) noexcept
{
    const int order = std::memcmp(a.data(), b.data(), std::min(a.length(), b.length()));
    if (order != 0 || a.length() == b.length())
        return order;
    return a.length() < b.length() ? -1 : 1;
}

} // namespace

QdxString::QdxString() noexcept : text_(emptyText()) {}

QdxString::QdxString(const QdxString& other) noexcept : text_(share(other.text_)) {}

QdxString::QdxString(QdxString&& other) noexcept : text_(std::exchange(other.text_, emptyText())) {}

QdxString::QdxString(const char* s) : text_(makeBody(s, lengthOf(s))) {}

QdxString::QdxString(const char* s, std::size_t n) : text_(makeBody(s, s ? n : 0)) {}

QdxString::~QdxString()
{
    release(text_);
}

QdxString& QdxString::operator=(const QdxString& other) noexcept
{
    release(std::exchange(text_, share(other.text_)));
    return *this;
}

QdxString& QdxString::operator=(QdxString&& other) noexcept
{
    QdxString taken(std::move(other));
    std::swap(text_, taken.text_);
    return *this;
}

QdxString& QdxString::operator=(const char* s)
{
    return *this = QdxString(s);
}

char* QdxString::data() const noexcept
{
    return text_;
}

std::size_t QdxString::length() const noexcept
{
    return headerOf(text_).length;
}

bool QdxString::isEmpty() const noexcept
{
    return length() == 0;
}

QdxString& QdxString::insert(std::size_t pos, const QdxString& s)
{
    splice(pos, 0, s.data(), s.length());
    return *this;
}

QdxString& QdxString::append(const QdxString& s)
{
    if (isEmpty())
        return *this = s;
    splice(length(), 0, s.data(), s.length());
    return *this;
}

QdxString& QdxString::append(const QdxString& s, std::size_t n)
{
    splice(length(), 0, s.data(), std::min(n, s.length()));
    return *this;
}

QdxString& QdxString::append(const char* s)
{
    splice(length(), 0, s, lengthOf(s));
    return *this;
}

QdxString& QdxString::append(const char* s, std::size_t n)
{
    splice(length(), 0, s, s ? n : 0);
    return *this;
}

QdxString& QdxString::remove(std::size_t pos)
{
    splice(pos, npos, nullptr, 0);
    return *this;
}

QdxString& QdxString::remove(std::size_t pos, std::size_t n)
{
    splice(pos, n, nullptr, 0);
    return *this;
}

bool QdxString::startsWith(const char* prefix) const noexcept
{
    const std::size_t n = lengthOf(prefix);
    return n <= length() && (n == 0 || std::memcmp(text_, prefix, n) == 0);
}

std::size_t QdxString::find(const QdxString& pat) const noexcept
{
    const char* const end = text_ + length();
    const char* const found =
        std::search(static_cast<const char*>(text_), end, static_cast<const char*>(pat.data()),
                    static_cast<const char*>(pat.data()) + std::strlen(pat.data()));
    return found == end ? npos : static_cast<std::size_t>(found - text_);
}

std::size_t QdxString::first(char c) const noexcept
{
    const void* const found = std::memchr(text_, c, length());
    return found ? static_cast<std::size_t>(static_cast<const char*>(found) - text_) : npos;
}

std::size_t QdxString::first(const QdxString& set) const noexcept
{
    const char* const end = text_ + length();
    const char* const found = std::find_first_of(static_cast<const char*>(text_), end, set.data(),
                                                 set.data() + std::strlen(set.data()));
    return found == end ? npos : static_cast<std::size_t>(found - text_);
}

std::size_t QdxString::last(char c) const noexcept
{
    for (std::size_t i = length(); i > 0; --i)
        if (text_[i - 1] == c)
            return i - 1;
    return npos;
}

void QdxString::toUpper()
{
    mapBytes(&std::toupper);
}

void QdxString::toLower()
{
    mapBytes(&std::tolower);
}

std::uint32_t QdxString::hash() const noexcept
{
    std::uint32_t value = 2166136261u;
    for (std::size_t i = 0; i < length(); ++i)
        value = (value ^ static_cast<unsigned char>(text_[i])) * 16777619u;
    return value;
}

void QdxString::replaceStr(const QdxString& from, const QdxString& to)
{
    if (from.isEmpty() || find(from) == npos)
        return;
    const char* const pattern = from.data();
    const char* const patternEnd = pattern + std::strlen(pattern);
    const char* rest = text_;
    const char* const end = text_ + length();
    QdxString out;
    while (rest != end) {
        const char* const found = std::search(rest, end, pattern, patternEnd);
        out.append(rest, static_cast<std::size_t>(found - rest));
        if (found == end)
            break;
        out.append(to);
        rest = found + std::min(from.length(), static_cast<std::size_t>(end - found));
    }
    *this = std::move(out);
}

/// Replaces `removed` bytes at `pos` by `n` bytes of `s`, which may lie in this very text.
void QdxString::splice(std::size_t pos, std::size_t removed, const char* s, std::size_t n)
{
    const std::size_t oldLength = length();
    if (pos > oldLength)
        throw std::out_of_range("QdxString: position beyond the end of the text");
    removed = std::min(removed, oldLength - pos);
    if (removed == 0 && n == 0)
        return;
    const std::size_t kept = oldLength - removed;
    if (n > maxLength - kept)
        throw std::length_error("QdxString: text too long");
    const std::size_t newLength = kept + n;
    const std::size_t tail = kept - pos;
    if (newLength == 0) {
        release(std::exchange(text_, emptyText()));
        return;
    }

    const bool shared = isShared(text_);
    const std::size_t capacity = headerOf(text_).capacity;
    if (!shared && newLength <= capacity && !liesIn(s, text_, text_ + oldLength)) {
        std::memmove(text_ + pos + n, text_ + pos + removed, tail);
        if (n > 0)
            std::memcpy(text_ + pos, s, n);
        text_[newLength] = '\0';
        headerOf(text_).length = newLength;
        return;
    }

    char* const body = makeBody(newLength, shared ? newLength : grownCapacity(capacity, newLength));
    std::memcpy(body, text_, pos);
    if (n > 0)
        std::memcpy(body + pos, s, n);
    std::memcpy(body + pos + n, text_ + pos + removed, tail);
    release(std::exchange(text_, body));
}

void QdxString::mapBytes(int (*map)(int))
{
    const auto mapped = [map](char c) { return static_cast<char>(map(static_cast<unsigned char>(c))); };
    const std::size_t n = length();
    std::size_t i = 0;
    while (i < n && mapped(text_[i]) == text_[i])
        ++i;
    if (i == n)
        return;
    if (isShared(text_))
        *this = QdxString(text_, n);
    std::transform(text_ + i, text_ + n, text_ + i, mapped);
}

bool operator==(const QdxString& a, const QdxString& b) noexcept
{
    return a.data() == b.data() ||
           (a.length() == b.length() && std::memcmp(a.data(), b.data(), a.length()) == 0);
}

bool operator!=(const QdxString& a, const QdxString& b) noexcept
{
    return !(a == b);
}

bool operator<(const QdxString& a, const QdxString& b) noexcept
{
    return compare(a, b) < 0;
}

bool operator>(const QdxString& a, const QdxString& b) noexcept
{
    return compare(a, b) > 0;
}
