#pragma once

#include "Constants.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace standin::model {

class Style;

/// Font properties of which any may be left open; what is left open comes from the style below.
struct FontProperties
{
    std::optional<std::u16string> name = {};
    std::optional<float> size = {}; ///< points
    std::optional<bool> bold = {};
    std::optional<bool> italic = {};
    std::optional<bool> strikeThrough = {};
    std::optional<bool> hidden = {};
    std::optional<std::int32_t> underline = {}; ///< Word's underline kind: 0 none, 1 single, ...
    std::optional<std::int32_t> color = {};     ///< 0x00BBGGRR, or automaticColor

    static constexpr std::int32_t automaticColor = -16777216;

    bool operator==(const FontProperties&) const = default;
    /// Takes over every property that `other` has set.
    void overlay(const FontProperties& other);
    /// Leaves open every property in which `other` differs.
    void keepCommon(const FontProperties& other);
};

struct InlineShape;

/// Formatting of a run of characters: a character style (null: the paragraph's own font) and direct
/// properties; of a picture's character, the picture as well.
struct CharacterFormat
{
    const Style* style = nullptr;
    FontProperties font;
    std::shared_ptr<InlineShape> shape = {};

    bool operator==(const CharacterFormat&) const = default;
};

struct TabStop
{
    enum class Kind
    {
        left,
        center,
        right
    };
    enum class Leader
    {
        spaces,
        dots,
        dashes,
        lines,
        heavy,
        middleDot
    };

    float position = 0; ///< points
    Kind kind = Kind::left;
    Leader leader = Leader::spaces;

    bool operator==(const TabStop&) const = default;
};

struct Border
{
    bool isVisible = false; ///< a single line when it is
    float width = 0.5f;     ///< points
    std::int32_t color = FontProperties::automaticColor;

    bool operator==(const Border&) const = default;
};

/// Paragraph properties of which any may be left open. Lengths in points.
struct ParagraphProperties
{
    std::optional<Alignment> alignment = {};
    std::optional<float> leftIndent = {};
    std::optional<float> rightIndent = {};
    std::optional<float> firstLineIndent = {};
    std::optional<float> spaceBefore = {};
    std::optional<float> spaceAfter = {};
    std::optional<bool> keepWithNext = {};
    std::optional<bool> pageBreakBefore = {};
    std::optional<std::int32_t> outlineLevel = {}; ///< 1..9, 10 body text
    std::optional<std::vector<TabStop>> tabs = {};
    std::optional<Border> topBorder = {};
    std::optional<Border> bottomBorder = {};

    bool operator==(const ParagraphProperties&) const = default;
    void overlay(const ParagraphProperties& other);
    void keepCommon(const ParagraphProperties& other);
};

/// What the last character of a paragraph is.
enum class ParagraphEnd
{
    mark,
    section,
    cell,
    row
};

struct RowFormat;

/// Formatting of one paragraph; Word keeps it with the paragraph's last character.
struct ParagraphFormat
{
    const Style* style = nullptr;
    ParagraphProperties properties;
    ParagraphEnd end = ParagraphEnd::mark;
    bool inTable = false;                      ///< part of a cell, or the end of a row
    std::shared_ptr<const RowFormat> row = {}; ///< of the paragraph that a row mark ends, never null there

    bool operator==(const ParagraphFormat&) const = default;
};

} // namespace standin::model
