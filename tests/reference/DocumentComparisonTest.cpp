#include "DocumentComparison.h"

#include "RandomSession.h"
#include "ReferenceDocument.h"

#include <gtest/gtest.h>

#include <set>

namespace reference {
namespace {

using M = Method;

DocumentContent contentOf(const Session& session)
{
    ReferenceDocument document(isAddress);
    document.perform(session);
    return document.content();
}

using Kinds = std::set<DifferenceKind>;

Kinds kinds(const Session& expected, const Session& found)
{
    Kinds result;
    for (const Difference& difference : compare(contentOf(expected), contentOf(found)))
        result.insert(difference.kind);
    return result;
}

ClientCall text(std::u16string text)
{
    return {M::insertText, std::move(text)};
}

ClientCall size(int points)
{
    return {M::setFontSize, {}, {}, points};
}

TEST(DocumentComparisonTest, ADocumentEqualsItself)
{
    for (std::uint32_t seed = 1; seed <= 50; ++seed)
        EXPECT_EQ(kinds(randomSession(seed), randomSession(seed)), Kinds());
}

TEST(DocumentComparisonTest, OneCharacterTooMuchIsOneDifference)
{
    const auto differences =
        compare(contentOf({size(9), text(u"abcdef")}), contentOf({size(9), text(u"abXcdef")}));
    ASSERT_EQ(differences.size(), 1u);
    EXPECT_EQ(differences[0].kind, DifferenceKind::text);
    EXPECT_EQ(differences[0].description, "body, place, as it is, 2: expected nothing, found X");
}

TEST(DocumentComparisonTest, TheSameInARowIsOneDifference)
{
    const auto differences =
        compare(contentOf({text(u"abc")}), contentOf({text(u"a"), size(9), text(u"bc")}));
    ASSERT_EQ(differences.size(), 1u);
    EXPECT_EQ(differences[0].description,
              "body, place 1 to 2: expected Times New Roman 12, found Times New Roman 9");
}

TEST(DocumentComparisonTest, LinksMayBeUnderlined)
{
    const ClientCall link = {M::insertXref, u"a", u"www.b.example"};
    EXPECT_EQ(kinds({link}, {{M::setFontAttribute, {}, {}, 4, true}, link}), Kinds());
    EXPECT_EQ(kinds({link}, {{M::setFontAttribute, {}, {}, 1, true}, link}), Kinds{DifferenceKind::font});
}

TEST(DocumentComparisonTest, WhatLacksIsNamed)
{
    const auto differences = compare(contentOf({text(u"abc")}), contentOf({text(u"ac")}));
    ASSERT_EQ(differences.size(), 1u);
    EXPECT_EQ(differences[0].description, "body, place 1: expected b, found nothing");
}

TEST(DocumentComparisonTest, KindsOfDifferences)
{
    EXPECT_EQ(kinds({text(u"a")}, {text(u"a\n")}), Kinds{DifferenceKind::addedEnd});
    EXPECT_EQ(
        kinds({{M::startTable}, {M::endTable}, text(u"a")}, {{M::startTable}, {M::endTable}, text(u" a")}),
        Kinds{DifferenceKind::addedSpace});
    EXPECT_EQ(kinds({{M::startTable}, text(u"a")}, {{M::startTable}, text(u"b")}),
              Kinds{DifferenceKind::cells});
    EXPECT_EQ(
        kinds({text(u"a")},
              {{M::setStyle, u"Plain Text"}, {M::setFontName, u"Times New Roman"}, size(12), text(u"a")}),
        Kinds{DifferenceKind::style});
    EXPECT_EQ(kinds({text(u"a")}, {size(9), text(u"a")}), Kinds{DifferenceKind::font});
    EXPECT_EQ(kinds({text(u"a")}, {{M::setTextAlign, {}, {}, 2}, text(u"a")}),
              Kinds{DifferenceKind::alignment});
    EXPECT_EQ(kinds({text(u"a")}, {{M::insertXref, u"a", u"www.b.example"}}), Kinds{DifferenceKind::link});
    EXPECT_EQ(kinds({{M::insertXref, u"a", u"http://a.example/"}}, {{M::insertXref, u"a", u"www.b.example"}}),
              Kinds{DifferenceKind::link});
    EXPECT_EQ(kinds({text(u"a"), {M::insertTag, u"here"}}, {{M::insertTag, u"here"}, text(u"a")}),
              Kinds{DifferenceKind::bookmark});
    EXPECT_EQ(kinds({{M::insertField, {}, {}, 1}}, {{M::insertField, {}, {}, 2}}),
              Kinds{DifferenceKind::field});
    EXPECT_EQ(kinds({{M::insertImage}}, {}), Kinds{DifferenceKind::picture});
    EXPECT_EQ(kinds({{M::startHeader}, text(u"a")}, {{M::startHeader}}),
              Kinds{DifferenceKind::headerOrFooter});
    EXPECT_EQ(kinds({{M::insertPageBreak}}, {{M::insertPageBreak}, {M::startHeader}}),
              (Kinds{DifferenceKind::text}));
}

TEST(DocumentComparisonTest, EntriesAndTheTableOfContents)
{
    const Session entry = {{M::insertTOC}, {M::startTOCEntry}, text(u"a"), {M::endTOCEntry}};
    Session later = entry;
    later.insert(later.begin() + 3, text(u"b"));
    later.insert(later.begin() + 1, {M::setStyle, u"Heading 2"});
    EXPECT_EQ(kinds(entry, {{M::insertTOC}, text(u"a")}), Kinds{DifferenceKind::entry});
    EXPECT_EQ(kinds({{M::insertTOC}, {M::startTOCEntry}, text(u"a"), {M::endTOCEntry}, text(u"b")},
                    {{M::insertTOC}, {M::startTOCEntry}, text(u"a"), text(u"b"), {M::endTOCEntry}}),
              Kinds{DifferenceKind::entry});
    EXPECT_EQ(kinds({{M::insertTOC}, {M::insertTOC}}, {{M::insertTOC}, text(u"Table of Contents\n\n\n")}),
              (Kinds{DifferenceKind::alignment, DifferenceKind::contents}));
}

TEST(DocumentComparisonTest, PagesObjectsAndFiles)
{
    const ClientCall landscape = {M::setOrientation, {}, {}, 1};
    EXPECT_EQ(kinds({landscape}, {}), Kinds{DifferenceKind::page});
    EXPECT_EQ(
        compare(contentOf({landscape}), contentOf({}))[0].description,
        "body, pages of section 0: expected landscape with a left margin of 130, found portrait with a left "
        "margin of 90");
    const ClientCall object = {M::insertFile, u"sheet.xls"};
    EXPECT_EQ(kinds({object}, {{M::insertFile, u"sheet.xls", {}, 2}}), Kinds{DifferenceKind::picture});
    const ClientCall letter = {M::insertFile, u"letter.rtf"};
    EXPECT_EQ(kinds({letter, text(u"a")}, {text(u"a"), letter}), Kinds{DifferenceKind::text});
    DocumentContent found = contentOf({letter});
    found.stories[bodyStory]->tokens[0].font->name = u"Arial";
    ASSERT_EQ(compare(contentOf({letter}), found).size(), 1U);
    EXPECT_EQ(compare(contentOf({letter}), found)[0].kind, DifferenceKind::font);
}

TEST(DocumentComparisonTest, TargetsOfLinksAreFoundBehindDisplacedText)
{
    const Session session = {
        {M::insertXref, u"l", u"here"}, text(u"ab"), {M::insertTag, u"here"}, text(u"c")};
    Session displaced = session;
    displaced[1] = text(u"aXb");
    EXPECT_EQ(kinds(session, displaced), Kinds{DifferenceKind::text});
    Session elsewhere = session;
    std::swap(elsewhere[1], elsewhere[2]);
    EXPECT_EQ(kinds(session, elsewhere), (Kinds{DifferenceKind::link, DifferenceKind::bookmark}));
}

TEST(DocumentComparisonTest, ATagWhoseBookmarkEndsElsewhere)
{
    const DocumentContent expected = contentOf({{M::insertTag, u"here"}, text(u"a")});
    DocumentContent found = expected;
    found.stories[bodyStory]->tags[0].endsInPlace = false;
    ASSERT_EQ(compare(expected, found).size(), 1u);
    EXPECT_EQ(compare(expected, found)[0].kind, DifferenceKind::bookmark);
    found.stories[bodyStory]->tags[0] = {Tag::nowhere};
    EXPECT_EQ(compare(expected, found).size(), 2u);
}

} // namespace
} // namespace reference
