#include "DirectFormatComparison.h"

#include "ChangedStyleFonts.h"
#include "DocumentReading.h"
#include "DocumentToRead.h"
#include "RandomSession.h"
#include "RedundantFormat.h"
#include "ReferenceDocument.h"

#include "Field.h"
#include "FileContent.h"
#include "Hyperlink.h"

#include <gtest/gtest.h>

namespace reference {
namespace {

namespace model = standin::model;

class DirectFormatComparisonTest : public DocumentToRead
{
protected:
    [[nodiscard]] std::vector<std::string> differences(const Session& session = {}) const
    {
        ReferenceDocument expected(isAddress);
        expected.perform(session);
        const DocumentContent found = readContent(*document);
        const ChangedStyleFonts changed(*document);
        std::vector<std::string> descriptions;
        for (const Difference& each :
             compareDirectFormat(expected.content(), found, readContent(*document))) {
            EXPECT_EQ(each.kind, DifferenceKind::directFormat);
            descriptions.push_back(each.description);
        }
        return descriptions;
    }
};

using Strings = std::vector<std::string>;

TEST_F(DirectFormatComparisonTest, FormattingThatTheStyleDoesNotGiveIsFine)
{
    write(u"ab\rc");
    range(0, 1).setStyle(u"Heading 1");
    range(0, 1).setFont(
        {.name = u"Georgia", .size = 9.0F, .bold = false, .strikeThrough = true, .underline = 1});
    range(3, 4).setParagraphFormat({.alignment = model::Alignment::right});
    EXPECT_EQ(differences(), Strings());
}

TEST_F(DirectFormatComparisonTest, EachPropertyThatTheStyleGivesIsNamed)
{
    write(u"ab");
    range(0, 1).setStyle(u"Title");
    range(1, 2).setFont(
        {.name = u"Arial", .size = 16.0F, .bold = true, .italic = false, .strikeThrough = false});
    range(2, 3).setFont({.hidden = false, .underline = 0});
    range(2, 3).setParagraphFormat({.alignment = model::Alignment::center});
    const std::string formatting = ": formatting where the style says the same ";
    EXPECT_EQ(
        differences(),
        (Strings{"story 0, place, as it is, 1" + formatting + "(name, size, bold, italic, strike)",
                 "story 0, place, as it is, 2" + formatting + "(hidden, underline, alignment)",
                 "story 0, place, as it is, 1: a font that stays when the style's changes (name, size, bold, "
                 "italic, strike)"}));
}

TEST_F(DirectFormatComparisonTest, CellsHeadersAndFootersAreLookedAt)
{
    const auto header =
        document->section(1)->story(model::Section::Part::header, model::HeaderFooterIndex::primary);
    model::LiveRange(header, 0, 0).insertAfter(u"h");
    model::LiveRange(header, 0, 1).setFont({.bold = false});
    ASSERT_EQ(differences().size(), 2U);
    EXPECT_EQ(differences()[0],
              "story 1, place, as it is, 0: formatting where the style says the same (bold)");
}

TEST_F(DirectFormatComparisonTest, WhatIsOutOfAFileKeepsItsFormatting)
{
    const Session session = {{Method::insertText, u"a"}, {Method::insertFile, u"memo.doc"}};
    write(u"a\r");
    model::LiveRange place = range(2, 2);
    standin::rtf::insertFileContent(place, findSessionFile(u"memo.doc")->bytes);
    range(3, 4).setFont({.bold = false});
    EXPECT_EQ(differences(session), Strings());
    EXPECT_NE(differences(), Strings());
    range(0, 2).setFont({.bold = false});
    EXPECT_EQ(differences(session).size(), 2U); // one for a row of places
}

TEST_F(DirectFormatComparisonTest, LinksLookLikeLinksAndFieldsAreLeftOut)
{
    write(u"ab");
    model::addField(range(2, 2), {model::pageFieldType});
    const model::Position field = document->mainStory()->length() - 3;
    range(field, field + 2).setFont({.bold = false});
    model::addHyperlink(range(0, 1), {u"http://a.example/", u""});
    EXPECT_EQ(differences(), Strings());
}

// Nothing is redundant here: the character style says so.
TEST_F(DirectFormatComparisonTest, TextThatDoesNotFollowItsStyleIsFoundWhateverHoldsItsFont)
{
    write(u"a");
    const model::StylePtr style = document->styles().add(u"Fixed", model::StyleType::character);
    style->font.name = u"Times New Roman";
    range(0, 1).setStyle(u"Fixed");
    EXPECT_EQ(differences(),
              (Strings{"story 0, place, as it is, 0: a font that stays when the style's changes "
                       "(name)"}));
}

TEST_F(DirectFormatComparisonTest, StylesHaveTheirFontsAgainAfterwards)
{
    const model::FontProperties before = document->styles().find(u"Heading 1")->resolvedFont();
    {
        const ChangedStyleFonts changed(*document);
        EXPECT_EQ(document->styles().find(u"Heading 1")->resolvedFont().name, u"Arial changed");
        EXPECT_EQ(document->styles().find(u"Heading 1")->resolvedFont().bold, false);
    }
    EXPECT_EQ(document->styles().find(u"Heading 1")->resolvedFont(), before);
}

} // namespace
} // namespace reference
