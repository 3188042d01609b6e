#include "Field.h"

#include "ModelFixture.h"

namespace standin::model {
namespace {

class FieldTest : public ModelTest
{
protected:
    FieldTest()
    {
        document->setClock([] { return LocalTime{2024, 2, 9, 15, 4, 5}; });
    }

    Field add(Position at, std::int32_t type, std::u16string text = {})
    {
        return addField(range(at, at), {.type = type, .text = std::move(text)});
    }
    static std::u16string codeOf(const Field& field) { return field.code().text(); }
    static std::u16string resultOf(const Field& field) { return field.result().text(); }
    std::vector<Field> fields() { return fieldsIn(content()); }
};

TEST_F(FieldTest, AFieldIsCodeAndResultBetweenItsCharacters)
{
    write(u"ab");
    const Field field = add(1, 33);
    EXPECT_EQ(text(), u"a\x13 PAGE \x14"
                      u"1\x15"
                      u"b\r");
    expectAt(field.range(), 1, 11);
    expectAt(field.code(), 2, 8);
    expectAt(field.result(), 9, 10);
    EXPECT_EQ(codeOf(field), u" PAGE ");
    EXPECT_EQ(resultOf(field), u"1");
    EXPECT_EQ(field.type(), 33);
}

TEST_F(FieldTest, ReadTextShowsResultsOnly)
{
    write(u"ab");
    add(1, 29);
    add(1, 9, u"\"entry\"");
    EXPECT_EQ(content().text(), u"aDocument1b\r");
}

TEST_F(FieldTest, TheFieldStandsInFrontOfItsRangeAndRangesStayOrMove)
{
    write(u"abX");
    LiveRange output = range(2, 3);
    const LiveRange place = output;
    const Field field = addField(place, {.type = 9, .text = u"\"x\""});
    EXPECT_EQ(text(), u"ab\x13 TC \"x\" \x15X\r");
    expectAt(output, 2, 13);
    expectAt(place, 2, 13);
    EXPECT_EQ(field.range().end(), 12);
}

TEST_F(FieldTest, UnderTheOtherReadingTheFieldReplacesItsRange)
{
    Switches switches;
    switches.fieldsAddReplacesNothing = false;
    switches.fieldsAddOmitsMergeFormat = false;
    document = Document::make(u"Document1", switches);
    write(u"abXc");
    const LiveRange place = range(2, 3);
    addField(place, {.type = 33});
    EXPECT_EQ(text(), u"ab\x13 PAGE \\* MERGEFORMAT \x14"
                      u"1\x15"
                      u"c\r");
    expectAt(place, 2, static_cast<Position>(text().size()) - 2);
}

TEST_F(FieldTest, CodesComeFromTypeTextAndFormatting)
{
    EXPECT_EQ(codeOf(addField(content(), {.type = 29, .text = u"\\p", .preserveFormatting = true})),
              u" FILENAME \\p \\* MERGEFORMAT ");
    EXPECT_EQ(codeOf(addField(content(), {.text = u"QUOTE \"hi\""})), u" QUOTE \"hi\" ");
    EXPECT_EQ(resultOf(fields().front()), u"hi");
    EXPECT_EQ(codeOf(addField(content(), {})), u" ");
    EXPECT_EQ(errorOf([&] { addField(content(), {.type = 4711}); }), 5843);
    EXPECT_THROW(addField(content(), {.type = 12}), NotSupported);
}

TEST_F(FieldTest, DateAndTimeComeFromTheClock)
{
    EXPECT_EQ(resultOf(add(0, 31)), u"2/9/2024");
    EXPECT_EQ(resultOf(add(0, 32)), u"3:04 PM");
    EXPECT_EQ(resultOf(add(0, 31, u"\\@ \"dddd, d. MMMM yyyy HH:mm:ss 'day'\"")),
              u"Friday, 9. February 2024 15:04:05 day");
    EXPECT_EQ(resultOf(add(0, 32, u"\\@ \"ddd dd MMM MM yy h:m am/pm\"")), u"Fri 09 Feb 02 24 3:4 PM");
}

TEST_F(FieldTest, FileNamesComeFromTheDocument)
{
    const Field name = add(0, 29);
    document->setFile(u"c:\\docs", u"a.doc");
    EXPECT_EQ(resultOf(name), u"Document1");
    EXPECT_EQ(resultOf(add(0, 29, u"\\p")), u"c:\\docs\\a.doc");
    Field again = name;
    again.update();
    EXPECT_EQ(resultOf(again), u"a.doc");
}

TEST_F(FieldTest, PagesAreCountedByBreaks)
{
    write(u"one\ftwo\rthree\rfour");
    range(8, 8).setParagraphFormat({.pageBreakBefore = true});
    document->breakSection(14, SectionStart::oddPage);
    EXPECT_EQ(resultOf(add(16, 33)), u"5");
    EXPECT_EQ(resultOf(add(9, 33)), u"3");
    EXPECT_EQ(resultOf(add(5, 33)), u"2");
    EXPECT_EQ(resultOf(add(0, 33)), u"1");
    EXPECT_EQ(resultOf(add(0, 26)), u"5");
    EXPECT_EQ(resultOf(add(0, 65)), u"1");
}

TEST_F(FieldTest, AnEntryIsHiddenAndTextBehindItIsNot)
{
    write(u"ab");
    add(2, 9, u"\"x\" \\l 1");
    EXPECT_EQ(range(2, 4).font().hidden, true);
    content().insertAfter(u"c");
    EXPECT_EQ(content().text(), u"abc\r");
    EXPECT_EQ(fields().front().code().text(), u" TC \"x\" \\l 1 ");
}

TEST_F(FieldTest, DeletingTheWholeFieldTakesIt)
{
    write(u"ab");
    const Field field = add(1, 33);
    range(0, 11).remove();
    EXPECT_EQ(text(), u"b\r");
    EXPECT_FALSE(field.exists());
    EXPECT_EQ(errorOf([&] { field.code(); }), 5825);
}

TEST_F(FieldTest, DeletingHalfAFieldLeavesItsCharacters)
{
    write(u"abcd");
    const Field field = add(2, 33);
    LiveRange front = range(1, 5);
    front.remove();
    EXPECT_EQ(text(), u"a\x13"
                      u"AGE \x14"
                      u"1\x15"
                      u"cd\r");
    expectAt(front, 1, 1);
    LiveRange back = range(4, 10);
    back.remove();
    EXPECT_EQ(text(), u"a\x13"
                      u"AG\x14\x15"
                      u"d\r");
    expectAt(back, 6, 6);
    EXPECT_TRUE(field.exists());
}

TEST_F(FieldTest, ReplacingHalfAFieldPutsTheTextOutside)
{
    write(u"abcd");
    add(2, 33);
    range(1, 5).setText(u"X");
    EXPECT_EQ(text(), u"aX\x13"
                      u"AGE \x14"
                      u"1\x15"
                      u"cd\r");
    range(8, 11).setText(u"Y");
    EXPECT_EQ(text(), u"aX\x13"
                      u"AGE \x14\x15Yd\r");
}

TEST_F(FieldTest, DeletingOneFieldCharacterAloneDeletesNothing)
{
    write(u"ab");
    add(1, 33);
    EXPECT_EQ(range(1, 1).remove(), 0);
    EXPECT_EQ(fields().size(), 1u);
    EXPECT_EQ(range(11, 11).remove(-1), 0);
    EXPECT_EQ(fields().size(), 1u);
}

TEST_F(FieldTest, TypedFieldCharactersBecomeSpaces)
{
    write(u"a\x13x\x14y\x15");
    EXPECT_EQ(text(), u"a x y \r");
    const Field field = add(0, 33);
    field.code().setText(u" \x15NUMPAGES ");
    EXPECT_EQ(field.code().text(), u"  NUMPAGES ");
    EXPECT_THROW(document->mainStory()->insert(0, u"\x13x"), std::invalid_argument);
}

TEST_F(FieldTest, FieldsAreListedByPlaceAndNest)
{
    write(u"ab");
    const Field later = add(2, 33);
    const Field first = add(0, 26);
    const Field inner = addField(first.result(), {.type = 29});
    ASSERT_EQ(fields().size(), 3u);
    EXPECT_EQ(fields()[0], first);
    EXPECT_EQ(fields()[1], inner);
    EXPECT_EQ(fields()[2], later);
    EXPECT_EQ(first.result().text(), u"Document11");
    EXPECT_EQ(fieldsIn(first.result()).size(), 1u);
    EXPECT_TRUE(crossesField(inner.range()));
    EXPECT_FALSE(crossesField(first.range()));
    EXPECT_TRUE(crossesField(range(first.place().end, later.place().past())));
}

TEST_F(FieldTest, AFieldCanBeUpdatedAndUnlinked)
{
    write(u"ab");
    Field field = add(1, 33);
    field.code().setText(u" QUOTE \"x y\" ");
    field.update();
    EXPECT_EQ(content().text(), u"ax yb\r");
    field.unlink();
    EXPECT_EQ(text(), u"ax yb\r");
    EXPECT_FALSE(field.exists());
}

TEST_F(FieldTest, ACodeWithoutResultGetsOneWhenItIsUpdated)
{
    Field field = addField(content(), {});
    EXPECT_FALSE(field.place().separator);
    field.code().setText(u" FILENAME ");
    field.update();
    EXPECT_EQ(resultOf(field), u"Document1");
}

TEST_F(FieldTest, ReferencesReadTheirBookmark)
{
    write(u"one\ftwo");
    document->bookmarks().add(u"place", range(4, 7));
    EXPECT_EQ(resultOf(addField(range(0, 0), {.type = 37, .text = u"place \\h"})), u"2");
    EXPECT_EQ(resultOf(addField(range(0, 0), {.text = u"REF place"})), u"two");
    EXPECT_EQ(resultOf(addField(range(0, 0), {.text = u"PLACE"})), u"two");
    EXPECT_EQ(resultOf(addField(range(0, 0), {.text = u"nothing"})), u"Error! Bookmark not defined.");
}

TEST_F(FieldTest, ACopiedHeaderKeepsItsFields)
{
    write(u"a");
    const auto story = document->section(1)->story(Section::Part::header, HeaderFooterIndex::primary);
    addField(LiveRange(story, 0, 0), {.type = 33}).result().insertAfter(u"\r");
    LiveRange(story, 0, 0).insertBefore(u"\r");
    addField(LiveRange(story, 0, 0), {.type = 33});
    const SectionPtr second = document->breakSection(1, SectionStart::newPage);
    second->setLinkToPrevious(Section::Part::header, HeaderFooterIndex::primary, false);
    const auto copy = second->story(Section::Part::header, HeaderFooterIndex::primary);
    ASSERT_NE(copy, story);
    EXPECT_EQ(fieldsIn(LiveRange(copy, 0, copy->length())).size(), 2u);
}

TEST_F(FieldTest, TextBehindAHiddenFieldIsHiddenUnderTheOtherReading)
{
    for (const bool shows : {true, false}) {
        readAs({.textBehindHiddenFieldShows = shows});
        write(u"ab");
        const Field field = addField(range(1, 1), {.type = tocEntryFieldType, .text = u"\"x\""});
        const Position past = field.range().end();
        range(past, past).insertAfter(u"c");
        EXPECT_EQ(range(past, past + 1).font().hidden, !shows);
        range(past + 2, past + 2).insertAfter(u"d");
        EXPECT_EQ(range(past + 2, past + 3).font().hidden, false) << "not directly behind it";
    }
}

TEST(FieldCodeTest, TakesKeywordArgumentsAndSwitchesApart)
{
    const FieldCode code(u" hyperlink \"c:\\\\my dir\\\\a.doc\" \\l \"sub \\\"x\\\"\" \\h ");
    EXPECT_EQ(code.keyword(), u"HYPERLINK");
    EXPECT_EQ(code.type(), 88);
    EXPECT_EQ(code.argument(0), u"c:\\my dir\\a.doc");
    EXPECT_EQ(code.argument(1), u"");
    EXPECT_EQ(code.value(u'L'), u"sub \"x\"");
    EXPECT_TRUE(code.has(u'h'));
    EXPECT_EQ(code.value(u'h'), u"");
    EXPECT_FALSE(code.value(u'o'));
    const FieldCode entry(u"TC \"t\" \\fC \\l \"2\"");
    EXPECT_EQ(entry.value(u'f'), u"C");
    EXPECT_EQ(entry.value(u'l'), u"2");
    EXPECT_EQ(FieldCode(u"  ").keyword(), u"");
    EXPECT_EQ(FieldCode(u"\\").argument(0), u"");
    EXPECT_EQ(FieldCode(u"NOSUCHTHING").type(), noFieldType);
    EXPECT_EQ(quotedArgument(u"a\\\"b"), u"\"a\\\\\\\"b\"");
}

} // namespace
} // namespace standin::model
