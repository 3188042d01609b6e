#include "WriterFixture.h"

#include "Field.h"

#include <array>
#include <limits>

namespace {

namespace model = standin::model;

constexpr auto noSuchField = static_cast<HRESULT>(0x800A11FD);

class MirovelSectionFieldTest : public WriterTest
{
protected:
    std::vector<model::Field> fields() const
    {
        const std::shared_ptr<model::Story> story = model().mainStory();
        return model::fieldsIn(model::LiveRange(story, 0, story->length()));
    }
};

/// The characters of a field.
std::u16string fieldText(const std::u16string& code, const std::u16string& result)
{
    return u"\x13" + code + u"\x14" + result + u"\x15";
}

TEST_F(MirovelSectionFieldTest, StandsWhereItsPlaceholderStood)
{
    writer().insertText(L"page ");
    takeCalls();
    writer().insertField(4);
    EXPECT_LINES(takeCalls(),
                 (Calls{"body.Collapse(0)", R"(body.InsertAfter("X"))", "body.Duplicate -> body.Duplicate",
                        "body.Duplicate.End = 5", "body.Fields -> body.Fields",
                        "body.Fields.Add(body.Duplicate, 33, missing, missing) -> field", "body.End -> 16",
                        "body.Start = 15", "body.Delete(1, 1) -> 1"}));
    EXPECT_EQ(insertionPosition(), 15) << "one below the end that Word told";
    EXPECT_EQ(text(), u"page " + fieldText(u" PAGE ", u"1"));
    writer().insertText(L" of many");
    EXPECT_EQ(text(), u"page " + fieldText(u" PAGE ", u"1") + u" of many");
    EXPECT_EQ(styleRunAtEnd().second, 23);
}

TEST_F(MirovelSectionFieldTest, EachNumberHasItsType)
{
    struct Kind
    {
        std::int16_t number;
        const char* type;
        const char16_t* code;
    };
    for (const Kind& kind : std::array{Kind{1, "31", u" DATE "}, Kind{2, "32", u" TIME "},
                                       Kind{3, "29", u" FILENAME "}, Kind{4, "33", u" PAGE "}}) {
        takeCalls();
        writer().insertField(kind.number);
        const Calls calls = takeCalls();
        ASSERT_EQ(calls.size(), 9U);
        EXPECT_NE(calls[5].find(std::string(", ") + kind.type + ", missing, missing)"), std::string::npos)
            << calls[5];
        const std::vector<model::Field> all = fields();
        ASSERT_FALSE(all.empty());
        EXPECT_EQ(all.back().code().text(), kind.code);
        EXPECT_FALSE(all.back().result().text().empty());
        EXPECT_EQ(insertionPosition(), all.back().range().end());
    }
    EXPECT_EQ(fields().size(), 4U);
    EXPECT_EQ(text().find(u'X'), std::u16string::npos);
}

TEST_F(MirovelSectionFieldTest, AnyOtherNumberHasNone)
{
    int number = 1;
    for (const std::int16_t kind :
         std::array<std::int16_t, 6>{5, 0, -1, 260, std::numeric_limits<std::int16_t>::max(),
                                     std::numeric_limits<std::int16_t>::min()}) {
        takeCalls();
        writer().insertField(kind);
        EXPECT_EQ(takeCalls()[5], "body.Fields.Add(" + numbered("body.Duplicate", number, "#") +
                                      ", empty, missing, missing) -> " + numbered("field", number));
        ++number;
    }
    EXPECT_EQ(text().find(u'X'), std::u16string::npos);
}

TEST_F(MirovelSectionFieldTest, InACellKeepsAnXBehindIt)
{
    writer().startTable();
    writer().addRow();
    writer().addCell();
    writer().insertText(L"page ");
    takeCalls();
    writer().insertField(4);
    EXPECT_LINES(takeCalls(),
                 (Calls{"table.Rows(1).Cells(1).Range.End -> 6", "table.Rows(1).Cells(1).Range.Start = 5",
                        R"(table.Rows(1).Cells(1).Range.InsertAfter("X"))",
                        "table.Rows(1).Cells(1).Range.Duplicate -> table.Rows(1).Cells(1).Range.Duplicate",
                        "table.Rows(1).Cells(1).Range.Duplicate.End -> 7",
                        "table.Rows(1).Cells(1).Range.Duplicate.End = 6",
                        "table.Rows(1).Cells(1).Range.Fields -> table.Rows(1).Cells(1).Range.Fields",
                        "table.Rows(1).Cells(1).Range.Fields.Add(table.Rows(1).Cells(1).Range.Duplicate, 33, "
                        "missing, missing) -> field"}));
    EXPECT_EQ(insertionPosition(), 3) << "not counted in tables";
    EXPECT_EQ(cellTexts(), u"page " + fieldText(u" PAGE ", u"1") + u"X");
    writer().insertText(L"!");
    EXPECT_EQ(cellTexts(), u"page " + fieldText(u" PAGE ", u"1") + u"X!");
    writer().insertField(4);
    writer().endTable();
    EXPECT_EQ(cellTexts(), u"page " + fieldText(u" PAGE ", u"1") + u"X!" + fieldText(u" PAGE ", u"1") + u"X");
}

TEST_F(MirovelSectionFieldTest, TakesTheFontInForce)
{
    writer().setFont(FontLook{"Courier New", 9}.data());
    writer().insertField(4);
    writer().insertText(L"!");
    finish();
    EXPECT_EQ(fontAt(0).name, u"Courier New");
    EXPECT_EQ(fontAt(8).name, u"Courier New");
}

TEST_F(MirovelSectionFieldTest, AFailureAtEachCallLeavesWhatWasDone)
{
    const std::array<std::int32_t, 9> positions = {5, 5, 6, 6, 6, 6, 6, 15, 15};
    for (std::size_t call = 1; call <= positions.size(); ++call) {
        SCOPED_TRACE(call);
        startOver();
        writer().insertText(L"page ");
        word_.failCall(static_cast<long>(call), noSuchField);
        EXPECT_THAT(comErrorOf([&] { writer().insertField(4); }), isHresult(noSuchField));
        word_.clearFaults();
        EXPECT_EQ(insertionPosition(), positions.at(call - 1));
        EXPECT_EQ(fields().size(), call > 6 ? 1U : 0U);
        EXPECT_EQ(text().ends_with(u"X"), call > 2) << "the placeholder stays";
        writer().insertText(L"!");
        EXPECT_TRUE(text().ends_with(u"!"));
        abandon();
    }
}

TEST_F(MirovelSectionFieldTest, AFieldThatWordRefusesInATableLeavesItsPlaceholderInTheCell)
{
    writer().startTable();
    writer().insertText(L"page");
    takeCalls();
    word_.failCall(7, noSuchField);
    EXPECT_THAT(comErrorOf([&] { writer().insertField(4); }), isHresult(noSuchField));
    EXPECT_LINES(takeCalls(),
                 (Calls{"table.Rows(1).Cells(1).Range.End -> 5", "table.Rows(1).Cells(1).Range.Start = 4",
                        R"(table.Rows(1).Cells(1).Range.InsertAfter("X"))",
                        "table.Rows(1).Cells(1).Range.Duplicate -> table.Rows(1).Cells(1).Range.Duplicate",
                        "table.Rows(1).Cells(1).Range.Duplicate.End -> 6",
                        "table.Rows(1).Cells(1).Range.Duplicate.End = 5",
                        "table.Rows(1).Cells(1).Range.Fields !! 0x800a11fd"}));
    EXPECT_EQ(insertionPosition(), 3);
    EXPECT_EQ(cellTexts(), u"pageX");
}

} // namespace
