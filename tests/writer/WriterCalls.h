#pragma once

#include "FontData.h"
#include "Lines.h"

#include <concepts>
#include <cstdint>
#include <ostream>
#include <string>

/// Calls that Word received, as its transcript tells them.
using Calls = Lines;

/// The given calls one behind the other.
template <std::same_as<Calls>... Parts>
Calls join(const Parts&... parts)
{
    Calls all;
    (all.insert(all.end(), parts.begin(), parts.end()), ...);
    return all;
}

/// The n-th new object of a kind, "hyperlink", "hyperlink2", or range of an expression, "body.Duplicate#2".
std::string numbered(const std::string& kind, int number, const char* sign = "");

struct FontLook
{
    const char* name;
    int size;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeThrough = false;

    FontData data() const;
};

/// The fonts of styles in a new document.
inline constexpr FontLook normalFont{"Times New Roman", 12};
inline constexpr FontLook heading1Font{"Arial", 16, true};
inline constexpr FontLook heading2Font{"Arial", 14, true, true};
inline constexpr FontLook heading9Font{"Arial", 11};

/// A style is looked up under `argument` and its font is read.
Calls styleFontRead(const std::string& argument, const FontLook& font);
/// The font of `range` is taken and everything in it is set.
Calls fontWritten(const std::string& range, const FontLook& font);
/// Word's number of an alignment is given to the paragraphs of `range`.
Calls alignmentWritten(const std::string& range, int alignment);
/// A range is laid over [start, end).
Calls rangeLaid(std::int32_t start, std::int32_t end, const std::string& range = "body");
/// A style run over [start, end) is applied, and on top of it the one font run that it has.
Calls styleRunApplied(std::int32_t start, std::int32_t end, const std::string& style, const FontLook& font,
                      const std::string& range = "body");

bool operator==(const FontData& a, const FontData& b);
std::ostream& operator<<(std::ostream& out, const FontData& font);
