#include "DocumentReading.h"

#include "DocumentComparison.h"
#include "DocumentToRead.h"

#include "Hyperlink.h"
#include "InlineShape.h"
#include "Table.h"
#include "TableOfContents.h"

#include <gtest/gtest.h>

namespace reference {
namespace {

namespace model = standin::model;

class DocumentReadingTest : public DocumentToRead
{
protected:
    [[nodiscard]] StoryContent read(std::size_t story = bodyStory) const
    {
        return readContent(*document).stories.at(story).value();
    }
};

TEST_F(DocumentReadingTest, TextFontsStylesAndAlignments)
{
    write(u"ab\nc");
    range(1, 2).setFont({.name = u"Georgia",
                         .size = 9.0F,
                         .bold = true,
                         .italic = true,
                         .strikeThrough = true,
                         .underline = 1});
    range(0, 1).setStyle(u"Heading 2");
    range(3, 4).setStyle(u"Title");
    const StoryContent story = read();
    EXPECT_EQ(printable(story), "ab<paragraph end>c<paragraph end>");
    EXPECT_EQ(story.tokens[0].font, (Font{u"Arial", 14, true, true}));
    EXPECT_EQ(story.tokens[1].font, (Font{u"Georgia", 9, true, true, true, true}));
    EXPECT_EQ(story.tokens[2].style, u"Heading 2");
    EXPECT_EQ(story.tokens[2].alignment, Alignment::left);
    EXPECT_EQ(story.tokens[4].alignment, Alignment::centre);
    range(3, 4).setParagraphFormat({.alignment = model::Alignment::right});
    EXPECT_EQ(read().tokens[4].alignment, Alignment::right);
}

TEST_F(DocumentReadingTest, WhatIsHiddenIsADifference)
{
    write(u"ab");
    const DocumentContent shown = readContent(*document);
    range(1, 2).setFont({.hidden = true});
    const DocumentContent found = readContent(*document);
    EXPECT_FALSE(read().tokens[0].isHidden);
    EXPECT_TRUE(read().tokens[1].isHidden);
    EXPECT_EQ(printable(compare(shown, shown)), "");
    EXPECT_NE(printable(compare(shown, found)).find("hidden"), std::string::npos);
}

TEST_F(DocumentReadingTest, TablesBreaksAndHeaders)
{
    write(u"a");
    range(1, 1).insertBreak();
    model::LiveRange end = range(2, 2);
    end.insertBreak(model::BreakType::sectionNextPage);
    model::LiveRange place = range(3, 3);
    model::Table::add(place, 1, 2);
    EXPECT_EQ(printable(read()), "a<page break><section end><cell end><cell end><row end><paragraph end>");
    EXPECT_TRUE(read().tokens[3].isInTable);
    EXPECT_FALSE(read().tokens[6].isInTable);

    const auto header = [this](std::int32_t section) {
        return document->section(section)->story(model::Section::Part::header,
                                                 model::HeaderFooterIndex::primary);
    };
    model::LiveRange(header(1), 0, 0).insertAfter(u"h");
    EXPECT_EQ(printable(read(headerStory(0))), "h<paragraph end>");
    EXPECT_FALSE(readContent(*document).stories.at(headerStory(1)));
    document->section(2)->setLinkToPrevious(model::Section::Part::header, model::HeaderFooterIndex::primary,
                                            false);
    EXPECT_EQ(printable(read(headerStory(1))), "h<paragraph end>");
}

TEST_F(DocumentReadingTest, ObjectsAreOneTokenWithAndWithoutAField)
{
    for (const bool isField : {true, false}) {
        model::Switches switches;
        switches.oleObjectIsField = isField;
        document = model::Document::make(u"Document1", switches);
        write(u"ab");
        model::LiveRange first = range(0, 0);
        model::addObject(first, {u"Excel.Sheet", "bytes", u"", u"label"});
        model::LiveRange last =
            range(document->mainStory()->length() - 1, document->mainStory()->length() - 1);
        model::addObject(last, {u"Excel.Sheet", "", u"c:\\sheet.xls", u"label"});
        EXPECT_EQ(printable(read()), "<embedded object>ab<linked object><paragraph end>") << isField;
    }
}

TEST_F(DocumentReadingTest, PagesOfSections)
{
    write(u"ab");
    range(1, 1).insertBreak(model::BreakType::sectionNextPage);
    document->section(2)->pageSetup.setOrientation(model::Orientation::landscape);
    document->section(2)->pageSetup.leftMargin = 130;
    EXPECT_EQ(readContent(*document).pages, (std::vector<Page>{{false, 90}, {true, 130}}));
}

TEST_F(DocumentReadingTest, LinksAndTheirTargets)
{
    write(u"abcd");
    document->bookmarks().add(u"b1", range(3, 4));
    model::addHyperlink(range(0, 1), {u"http://a.example/", u""});
    const model::Position second = document->mainStory()->length() - 4;
    model::addHyperlink(range(second, second + 1), {u"", u"b1"});
    const StoryContent story = read();
    EXPECT_EQ(printable(story), "abcd<paragraph end>");
    EXPECT_EQ(story.tokens[0].link, (LinkTarget{u"http://a.example/"}));
    EXPECT_TRUE(story.tokens[0].beginsLink);
    EXPECT_EQ(story.tokens[1].link, (LinkTarget{{}, Place{bodyStory, 3}}));
    EXPECT_FALSE(story.tokens[2].link);
    document->bookmarks().remove(u"b1");
    EXPECT_EQ(read().tokens[1].link, LinkTarget{});
}

TEST_F(DocumentReadingTest, BookmarksByTheTokenTheyBeginInFrontOf)
{
    write(u"abc");
    document->bookmarks().add(u"b1", range(1, 1));
    document->bookmarks().add(u"b2", range(2, 3));
    document->bookmarks().add(u"_Toc1", range(0, 1));
    const model::Field link = model::addHyperlink(range(0, 1), {u"http://a.example/", u""}).field();
    EXPECT_EQ(read().tags, (std::vector<Tag>{{1}, {2}}));
    document->bookmarks().add(u"b1", range(link.place().begin + 3, link.place().past()));
    EXPECT_EQ(read().tags, (std::vector<Tag>{{2}, {Tag::nowhere}}));
    document->bookmarks().find(u"b1")->setStart(0);
    document->bookmarks().find(u"b1")->setEnd(document->mainStory()->length());
    EXPECT_EQ(read().tags, (std::vector<Tag>{{0, false}, {2}}));
}

TEST_F(DocumentReadingTest, FieldsEntriesPicturesAndTheTableOfContents)
{
    write(u"ab");
    range(0, 1).setStyle(u"Heading 1");
    model::addField(range(1, 1), {model::pageFieldType});
    model::addField(range(0, 0), {model::tocEntryFieldType, u"\"an \\\"entry\\\"\" \\fC \\l \"2\""});
    EXPECT_EQ(printable(read()), "<entry 2 \"an \"entry\"\">a<field PAGE>b<paragraph end>");
    range(0, 0).insertBefore(u"\r");
    model::addTableOfContents(range(0, 0), {.useFields = true});
    EXPECT_EQ(printable(read()), "<table of contents><paragraph end><entry 2 \"an \"entry\"\">a<field PAGE>b"
                                 "<paragraph end>");
    insertShape(document->mainStory(), 0, {});
    EXPECT_EQ(printable(read()).substr(0, 28), "<picture><table of contents>");
}

} // namespace
} // namespace reference
