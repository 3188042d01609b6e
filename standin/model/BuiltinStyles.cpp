#include "BuiltinStyles.h"

#include <array>

namespace standin::model {

namespace {

constexpr std::u16string_view courier = u"Courier New";
constexpr std::u16string_view arial = u"Arial";

struct Row
{
    std::int32_t number;
    std::u16string_view name;
};

constexpr std::array paragraphStyles = {
    Row{-1, u"Normal"},
    Row{-2, u"Heading 1"},
    Row{-3, u"Heading 2"},
    Row{-4, u"Heading 3"},
    Row{-5, u"Heading 4"},
    Row{-6, u"Heading 5"},
    Row{-7, u"Heading 6"},
    Row{-8, u"Heading 7"},
    Row{-9, u"Heading 8"},
    Row{-10, u"Heading 9"},
    Row{-11, u"Index 1"},
    Row{-12, u"Index 2"},
    Row{-13, u"Index 3"},
    Row{-14, u"Index 4"},
    Row{-15, u"Index 5"},
    Row{-16, u"Index 6"},
    Row{-17, u"Index 7"},
    Row{-18, u"Index 8"},
    Row{-19, u"Index 9"},
    Row{-20, u"TOC 1"},
    Row{-21, u"TOC 2"},
    Row{-22, u"TOC 3"},
    Row{-23, u"TOC 4"},
    Row{-24, u"TOC 5"},
    Row{-25, u"TOC 6"},
    Row{-26, u"TOC 7"},
    Row{-27, u"TOC 8"},
    Row{-28, u"TOC 9"},
    Row{-29, u"Normal Indent"},
    Row{-30, u"Footnote Text"},
    Row{-31, u"Comment Text"},
    Row{-32, u"Header"},
    Row{-33, u"Footer"},
    Row{-34, u"Index Heading"},
    Row{-35, u"Caption"},
    Row{-36, u"Table of Figures"},
    Row{-37, u"Envelope Address"},
    Row{-38, u"Envelope Return"},
    Row{-44, u"Endnote Text"},
    Row{-45, u"Table of Authorities"},
    Row{-46, u"Macro Text"},
    Row{-47, u"TOA Heading"},
    Row{-48, u"List"},
    Row{-49, u"List Bullet"},
    Row{-50, u"List Number"},
    Row{-51, u"List 2"},
    Row{-52, u"List 3"},
    Row{-53, u"List 4"},
    Row{-54, u"List 5"},
    Row{-55, u"List Bullet 2"},
    Row{-56, u"List Bullet 3"},
    Row{-57, u"List Bullet 4"},
    Row{-58, u"List Bullet 5"},
    Row{-59, u"List Number 2"},
    Row{-60, u"List Number 3"},
    Row{-61, u"List Number 4"},
    Row{-62, u"List Number 5"},
    Row{-63, u"Title"},
    Row{-64, u"Closing"},
    Row{-65, u"Signature"},
    Row{-67, u"Body Text"},
    Row{-68, u"Body Text Indent"},
    Row{-69, u"List Continue"},
    Row{-70, u"List Continue 2"},
    Row{-71, u"List Continue 3"},
    Row{-72, u"List Continue 4"},
    Row{-73, u"List Continue 5"},
    Row{-74, u"Message Header"},
    Row{-75, u"Subtitle"},
    Row{-76, u"Salutation"},
    Row{-77, u"Date"},
    Row{-78, u"Body Text First Indent"},
    Row{-79, u"Body Text First Indent 2"},
    Row{-80, u"Note Heading"},
    Row{-81, u"Body Text 2"},
    Row{-82, u"Body Text 3"},
    Row{-83, u"Body Text Indent 2"},
    Row{-84, u"Body Text Indent 3"},
    Row{-85, u"Block Text"},
    Row{-90, u"Document Map"},
    Row{-91, u"Plain Text"},
    Row{-92, u"E-mail Signature"},
    Row{-93, u"HTML Top of Form"},
    Row{-94, u"HTML Bottom of Form"},
    Row{-95, u"Normal (Web)"},
    Row{-97, u"HTML Address"},
    Row{-102, u"HTML Preformatted"},
};

constexpr std::array characterStyles = {
    Row{-39, u"Footnote Reference"}, Row{-40, u"Comment Reference"}, Row{-41, u"Line Number"},
    Row{-42, u"Page Number"},        Row{-43, u"Endnote Reference"}, Row{-66, u"Default Paragraph Font"},
    Row{-86, u"Hyperlink"},          Row{-87, u"FollowedHyperlink"}, Row{-88, u"Strong"},
    Row{-89, u"Emphasis"},           Row{-96, u"HTML Acronym"},      Row{-98, u"HTML Cite"},
    Row{-99, u"HTML Code"},          Row{-100, u"HTML Definition"},  Row{-101, u"HTML Keyboard"},
    Row{-103, u"HTML Sample"},       Row{-104, u"HTML Typewriter"},  Row{-105, u"HTML Variable"},
};

void setFont(Style& style, std::u16string_view name, float size, bool bold = false, bool italic = false)
{
    if (!name.empty())
        style.font.name = std::u16string(name);
    style.font.size = size;
    if (bold)
        style.font.bold = true;
    if (italic)
        style.font.italic = true;
}

void setSpacing(Style& style, float before, float after)
{
    style.paragraph.spaceBefore = before;
    style.paragraph.spaceAfter = after;
}

void setUpNormal(Style& normal)
{
    FontProperties& font = normal.font;
    font.name = u"Times New Roman";
    font.size = 12.0f;
    font.bold = font.italic = font.strikeThrough = font.hidden = false;
    font.underline = 0;
    font.color = FontProperties::automaticColor;
    ParagraphProperties& paragraph = normal.paragraph;
    paragraph.alignment = Alignment::left;
    paragraph.leftIndent = paragraph.rightIndent = paragraph.firstLineIndent = 0.0f;
    paragraph.spaceBefore = paragraph.spaceAfter = 0.0f;
    paragraph.keepWithNext = paragraph.pageBreakBefore = false;
    paragraph.outlineLevel = 10;
    paragraph.tabs = std::vector<TabStop>();
    paragraph.topBorder = Border();
    paragraph.bottomBorder = Border();
}

void setUpHeading(Style& style, std::int32_t level, const Style& normal)
{
    static constexpr std::array<float, 9> sizes = {16, 14, 13, 14, 13, 11, 12, 12, 11};
    const bool isArial = level <= 3 || level == 9;
    const bool bold = level <= 6;
    const bool italic = level == 2 || level == 5 || level == 8;
    setFont(style, isArial ? arial : std::u16string_view(), sizes[static_cast<std::size_t>(level - 1)], bold,
            italic);
    setSpacing(style, 12, 3);
    if (level <= 4)
        style.paragraph.keepWithNext = true;
    style.paragraph.outlineLevel = level;
    style.setNext(&normal);
}

void setUpHeaderOrFooter(Style& style)
{
    style.paragraph.tabs = std::vector<TabStop>{{216, TabStop::Kind::center}, {432, TabStop::Kind::right}};
}

void setUpParagraphStyle(Style& style, const Style& normal)
{
    const std::int32_t number = style.builtinNumber();
    const auto within = [number](std::int32_t first, std::int32_t last) {
        return number <= first && number >= last;
    };
    ParagraphProperties& paragraph = style.paragraph;
    if (within(-2, -10)) {
        setUpHeading(style, -number - 1, normal);
    } else if (within(-11, -19)) {
        paragraph.leftIndent = static_cast<float>(12 * (-number - 10));
        paragraph.firstLineIndent = -12.0f;
    } else if (within(-20, -28)) {
        paragraph.leftIndent = static_cast<float>(12 * (-number - 20));
        style.setNext(&normal);
    } else if (within(-32, -33)) {
        setUpHeaderOrFooter(style);
    } else if (within(-48, -48) || within(-51, -54)) {
        const std::int32_t level = number == -48 ? 1 : -number - 49;
        paragraph.leftIndent = static_cast<float>(18 * level);
        paragraph.firstLineIndent = -18.0f;
    } else if (within(-49, -50) || within(-55, -62)) {
        const std::int32_t level = number >= -50 ? 1 : (number >= -58 ? -number - 53 : -number - 57);
        paragraph.leftIndent = static_cast<float>(18 * level);
        paragraph.firstLineIndent = -18.0f;
    } else if (within(-69, -73)) {
        paragraph.leftIndent = static_cast<float>(18 * (-number - 68));
        paragraph.spaceAfter = 6.0f;
    }
}

void setUpSingleStyle(Style& style)
{
    ParagraphProperties& paragraph = style.paragraph;
    switch (style.builtinNumber()) {
    case -29:
        paragraph.leftIndent = 36.0f;
        break;
    case -30:
    case -31:
    case -44:
    case -38:
        setFont(style, style.builtinNumber() == -38 ? arial : std::u16string_view(), 10);
        break;
    case -34:
        setFont(style, arial, 12, true);
        break;
    case -35:
        setFont(style, {}, 10, true);
        setSpacing(style, 6, 6);
        break;
    case -36:
        paragraph.leftIndent = 24.0f;
        paragraph.firstLineIndent = -24.0f;
        break;
    case -37:
        setFont(style, arial, 12);
        paragraph.leftIndent = 144.0f;
        break;
    case -45:
        paragraph.leftIndent = 12.0f;
        paragraph.firstLineIndent = -12.0f;
        break;
    case -46:
    case -91:
    case -102:
        setFont(style, courier, 10);
        break;
    case -47:
        setFont(style, arial, 12, true);
        setSpacing(style, 6, 0);
        break;
    case -63:
        setFont(style, arial, 16, true);
        setSpacing(style, 12, 3);
        paragraph.alignment = Alignment::center;
        paragraph.outlineLevel = 1;
        break;
    case -64:
    case -65:
        paragraph.leftIndent = 216.0f;
        break;
    case -67:
    case -78:
        paragraph.spaceAfter = 6.0f;
        break;
    case -68:
    case -79:
        paragraph.leftIndent = 18.0f;
        paragraph.spaceAfter = 6.0f;
        break;
    case -74:
        setFont(style, arial, 12);
        paragraph.leftIndent = 54.0f;
        paragraph.firstLineIndent = -54.0f;
        break;
    case -75:
        setFont(style, arial, 12);
        paragraph.spaceAfter = 3.0f;
        paragraph.alignment = Alignment::center;
        paragraph.outlineLevel = 2;
        break;
    case -82:
    case -84:
        setFont(style, {}, 8);
        paragraph.spaceAfter = 6.0f;
        break;
    case -85:
        paragraph.leftIndent = paragraph.rightIndent = 72.0f;
        paragraph.spaceAfter = 6.0f;
        break;
    case -90:
        setFont(style, u"Tahoma", 12);
        break;
    case -93:
    case -94:
        setFont(style, arial, 8);
        style.font.hidden = true;
        paragraph.alignment = Alignment::center;
        break;
    case -97:
        style.font.italic = true;
        break;
    default:
        break;
    }
}

void setUpCharacterStyle(Style& style)
{
    FontProperties& font = style.font;
    switch (style.builtinNumber()) {
    case -40:
        font.size = 8.0f;
        break;
    case -86:
    case -87:
        font.color = style.builtinNumber() == -86 ? 0xFF0000 : 0x800080;
        font.underline = 1;
        break;
    case -88:
        font.bold = true;
        break;
    case -89:
    case -98:
    case -100:
    case -105:
        font.italic = true;
        break;
    case -99:
    case -101:
    case -104:
        font.size = 10.0f;
        [[fallthrough]];
    case -103:
        font.name = std::u16string(courier);
        break;
    default:
        break;
    }
}

} // namespace

std::vector<StylePtr> makeBuiltinStyles()
{
    std::vector<StylePtr> styles;
    for (const Row& row : paragraphStyles) {
        auto style = std::make_shared<Style>(std::u16string(row.name), StyleType::paragraph, row.number);
        if (styles.empty()) {
            setUpNormal(*style);
        } else {
            const Style& normal = *styles.front();
            style->setBase(&normal);
            setUpParagraphStyle(*style, normal);
            setUpSingleStyle(*style);
        }
        styles.push_back(std::move(style));
    }
    for (const Row& row : characterStyles) {
        auto style = std::make_shared<Style>(std::u16string(row.name), StyleType::character, row.number);
        setUpCharacterStyle(*style);
        styles.push_back(std::move(style));
    }
    return styles;
}

} // namespace standin::model
