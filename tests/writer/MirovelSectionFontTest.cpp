#include "WriterFixture.h"

#include <algorithm>
#include <string>

namespace {

class MirovelSectionFontTest : public WriterTest
{
protected:
    Calls applied()
    {
        takeCalls();
        writer().applyFont();
        return takeCalls();
    }
};

constexpr FontLook courier{"Courier New", 10};
constexpr FontLook courierBold{"Courier New", 10, true};

TEST_F(MirovelSectionFontTest, RecordsWhereAFontBegins)
{
    writer().insertText(L"plain");
    takeCalls();
    writer().setFont(courier.data());
    EXPECT_LINES(takeCalls(), Calls{}) << "fonts are applied later";
    EXPECT_EQ(writer().getFont(), courier.data());
    EXPECT_LINES(applied(), join(rangeLaid(0, 5), fontWritten("body", normalFont), rangeLaid(5, 5),
                                 fontWritten("body", courier)));
}

TEST_F(MirovelSectionFontTest, TheFontInForceIsNotRecordedAgain)
{
    writer().setFont(normalFont.data());
    writer().setFont(courier.data());
    writer().setFont(courier.data());
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_LINES(applied(), join(rangeLaid(0, 0), fontWritten("body", normalFont), rangeLaid(0, 0),
                                 fontWritten("body", courier)));
}

TEST_F(MirovelSectionFontTest, GivesACopyOfTheFontInForce)
{
    FontData font = writer().getFont();
    font.bold = 1;
    EXPECT_EQ(writer().getFont(), normalFont.data());
    writer().setFont(font);
    font.italic = 1;
    EXPECT_EQ(writer().getFont().bold, 1);
    EXPECT_EQ(writer().getFont().italic, 0);
    EXPECT_LINES(applied(), join(rangeLaid(0, 0), fontWritten("body", normalFont), rangeLaid(0, 0),
                                 fontWritten("body", FontLook{normalFont.name, normalFont.size, true})));
}

TEST_F(MirovelSectionFontTest, AppliesEachFontUpToTheNextOnTopOfTheStyle)
{
    writer().setStyle("Heading 1", false);
    writer().insertText(L"one");
    writer().setFont(courier.data());
    writer().insertText(L"four");
    writer().setFont(courierBold.data());
    writer().insertText(L"more");
    EXPECT_LINES(finish(),
                 join(rangeLaid(0, 11), Calls{"body.Style = -2"}, rangeLaid(0, 3),
                      fontWritten("body", heading1Font), rangeLaid(3, 7), fontWritten("body", courier),
                      rangeLaid(7, 11), fontWritten("body", courierBold), Calls{"document.UndoClear()"}));
    EXPECT_EQ(text(), u"onefourmore");
    EXPECT_EQ(styleAt(0), u"Heading 1");
    EXPECT_EQ(fontAt(2).name, u"Arial");
    EXPECT_EQ(fontAt(2).bold, true);
    EXPECT_EQ(fontAt(3).name, u"Courier New");
    EXPECT_EQ(fontAt(3).size, 10.0F);
    EXPECT_EQ(fontAt(6).bold, false);
    EXPECT_EQ(fontAt(7).bold, true);
    EXPECT_EQ(fontAt(10).name, u"Courier New");
}

TEST_F(MirovelSectionFontTest, AFontWithoutTextIsAppliedToNothing)
{
    writer().insertText(L"a");
    writer().setFont(courier.data());
    writer().setFont(courierBold.data());
    writer().insertText(L"b");
    takeCalls();
    writer().applyFont();
    EXPECT_LINES(takeCalls(),
                 join(rangeLaid(0, 1), fontWritten("body", normalFont), rangeLaid(1, 1),
                      fontWritten("body", courier), rangeLaid(1, 2), fontWritten("body", courierBold)));
    EXPECT_EQ(fontAt(0).name, u"Times New Roman");
    EXPECT_EQ(fontAt(1).name, u"Courier New");
}

TEST_F(MirovelSectionFontTest, ForgetsTheRunsAndTheFacesNameOnceApplied)
{
    FontData all = courierBold.data();
    all.italic = all.underline = all.strikeThrough = 1;
    writer().setFont(all);
    writer().applyFont();
    FontData nameless = all;
    nameless.name = "";
    EXPECT_EQ(writer().getFont(), nameless);
    takeCalls();

    writer().applyFont();
    EXPECT_LINES(takeCalls(), Calls{});

    writer().setFont(all);
    EXPECT_LINES(applied(), join(rangeLaid(0, 0),
                                 fontWritten("body", FontLook{"Courier New", 10, true, true, true, true})))
        << "the same font is recorded again";
}

TEST_F(MirovelSectionFontTest, AppliesTheStylesFontLeftByTheConstructor)
{
    writer().applyFont();
    EXPECT_LINES(takeCalls(), join(rangeLaid(0, 0), fontWritten("body", normalFont)));
}

TEST_F(MirovelSectionFontTest, WritingGoesOnBehindTheLastRun)
{
    writer().insertText(L"one");
    writer().applyFont();
    EXPECT_EQ(range_->GetEnd(), 3);
    writer().insertText(L"two");
    EXPECT_EQ(text(), u"onetwo");
}

TEST_F(MirovelSectionFontTest, WithoutAStyleAFontIsAppliedAtOnce)
{
    writer().insertText(L"ab");
    takeCalls();
    MirovelSectionProbe::leaveStyle(writer());
    writer().setFont(courier.data());
    EXPECT_LINES(takeCalls(), join(rangeLaid(0, 2), fontWritten("body", normalFont), rangeLaid(2, 2),
                                   fontWritten("body", courier)));
    EXPECT_EQ(writer().getFont(), courier.data()) << "it is in force all the same";
    EXPECT_LINES(applied(), Calls{});
    abandon();
}

TEST_F(MirovelSectionFontTest, WritesEveryPropertyInOrder)
{
    constexpr FontLook all{"Courier New", 10, true, true, true, true};
    writer().insertText(L"x");
    takeCalls();
    MirovelSectionProbe::writeFont(range_->GetFont(), all.data());
    EXPECT_LINES(takeCalls(), (Calls{"body.Font -> body.Font", R"(body.Font.Name = "Courier New")",
                                     "body.Font.Size = 10f", "body.Font.Bold = 1", "body.Font.Italic = 1",
                                     "body.Font.Underline = 1", "body.Font.StrikeThrough = 1"}));
    const standin::model::FontProperties font = fontAt(0);
    EXPECT_EQ(font.name, u"Courier New");
    EXPECT_EQ(font.size, 10.0F);
    EXPECT_EQ(font.bold, true);
    EXPECT_EQ(font.italic, true);
    EXPECT_EQ(font.underline, 1);
    EXPECT_EQ(font.strikeThrough, true);
}

TEST_F(MirovelSectionFontTest, ClearsEveryPropertyThatAFontDoesNotHave)
{
    writer().insertText(L"x");
    MirovelSectionProbe::writeFont(range_->GetFont(),
                                   FontLook{"Courier New", 10, true, true, true, true}.data());
    takeCalls();
    MirovelSectionProbe::writeFont(range_->GetFont(), courier.data());
    EXPECT_LINES(takeCalls(), (Calls{"body.Font -> body.Font", R"(body.Font.Name = "Courier New")",
                                     "body.Font.Size = 10f", "body.Font.Bold = 0", "body.Font.Italic = 0",
                                     "body.Font.Underline = 0", "body.Font.StrikeThrough = 0"}));
    const standin::model::FontProperties font = fontAt(0);
    EXPECT_EQ(font.bold, false);
    EXPECT_EQ(font.italic, false);
    EXPECT_EQ(font.underline, 0);
    EXPECT_EQ(font.strikeThrough, false);
}

TEST_F(MirovelSectionFontTest, ASizeOfZeroLeavesWordsSize)
{
    writer().insertText(L"x");
    takeCalls();
    MirovelSectionProbe::writeFont(range_->GetFont(), FontLook{"Courier New", 0}.data());
    EXPECT_LINES(takeCalls(),
                 (Calls{"body.Font -> body.Font", R"(body.Font.Name = "Courier New")", "body.Font.Bold = 0",
                        "body.Font.Italic = 0", "body.Font.Underline = 0", "body.Font.StrikeThrough = 0"}));
    EXPECT_EQ(fontAt(0).size, 12.0F);
}

TEST_F(MirovelSectionFontTest, AnEmptyNameIsSetToo)
{
    const Word::_FontPtr font = range_->GetFont();
    takeCalls();
    FontData nameless;
    nameless.clear();
    MirovelSectionProbe::writeFont(font, nameless);
    EXPECT_LINES(takeCalls(), (Calls{R"(body.Font.Name = "")", "body.Font.Bold = 0", "body.Font.Italic = 0",
                                     "body.Font.Underline = 0", "body.Font.StrikeThrough = 0"}));
}

TEST_F(MirovelSectionFontTest, ReadsEveryProperty)
{
    addStyle(u"All", {.name = u"Courier New",
                      .size = 10.0F,
                      .bold = true,
                      .italic = true,
                      .strikeThrough = true,
                      .underline = 1});
    EXPECT_EQ(MirovelSectionProbe::findFont(writer(), "All"),
              (FontLook{"Courier New", 10, true, true, true, true}.data()));
}

TEST_F(MirovelSectionFontTest, ReadsEachFlagFromItsOwnProperty)
{
    addStyle(u"B", {.bold = true});
    addStyle(u"I", {.italic = true});
    addStyle(u"U", {.underline = 1});
    addStyle(u"S", {.strikeThrough = true});
    const auto read = [&](const char* style) { return MirovelSectionProbe::findFont(writer(), style); };
    EXPECT_EQ(read("B"), (FontLook{"Times New Roman", 12, true, false, false, false}.data()));
    EXPECT_EQ(read("I"), (FontLook{"Times New Roman", 12, false, true, false, false}.data()));
    EXPECT_EQ(read("U"), (FontLook{"Times New Roman", 12, false, false, true, false}.data()));
    EXPECT_EQ(read("S"), (FontLook{"Times New Roman", 12, false, false, false, true}.data()));
}

TEST_F(MirovelSectionFontTest, ReadsHalfPointsDownAndAnyUnderlineAsOne)
{
    addStyle(u"Odd", {.name = u"Caf\u00e9 \u4e2d", .size = 10.5F, .underline = 3});
    const FontData font = MirovelSectionProbe::findFont(writer(), "Odd");
    EXPECT_STREQ(font.name.data(), "Caf\xe9 ?");
    EXPECT_EQ(font.size, 10);
    EXPECT_EQ(font.underline, 1);
}

TEST_F(MirovelSectionFontTest, InATableAFontIsAlwaysRecordedInTheCell)
{
    openCell();
    writer().addCell();
    writer().addRow();
    writer().addCell();
    writer().addRow();
    writer().addCell();
    writer().addCell();
    writer().insertText(L"cell");
    takeCalls();
    writer().setFont(normalFont.data()); // the one in force
    writer().setFont(normalFont.data());
    EXPECT_LINES(takeCalls(), (Calls{"row2.Cells(2).Range.End -> 12", "row2.Cells(2).Range.End -> 12"}));
    writer().endTable();
    const Calls calls = applied();
    EXPECT_EQ(std::ranges::count(calls, "table.Cell(3, 2) -> table.Cell(3, 2)"), 2);
    EXPECT_EQ(std::ranges::count(calls, "table.Cell(3, 2).Range.Start = 11"), 1) << "in front of its mark";
    EXPECT_TRUE(std::ranges::none_of(calls, [](const std::string& call) {
        return call.starts_with("table.Cell(") && !call.starts_with("table.Cell(3, 2)");
    }));
}

TEST_F(MirovelSectionFontTest, InATableRowAndColumnCountFromOneAndPositionsFromZero)
{
    writer().startTable();
    takeCalls();
    word_.failCall(1, S_FALSE); // the cell ends at 0, says Word
    writer().setFont(courier.data());
    word_.clearFaults();
    writer().addRow();
    writer().addCell();
    writer().endTable();
    const Calls calls = applied();
    EXPECT_EQ(std::ranges::count(calls, "table.Cell(1, 1) -> table.Cell(1, 1)"), 1);
    EXPECT_EQ(std::ranges::count(calls, "table.Cell(1, 1).Range.Start = 0"), 1);
}

TEST_F(MirovelSectionFontTest, AFailedApplicationKeepsTheRuns)
{
    writer().insertText(L"x");
    writer().setFont(courier.data());
    word_.failCall(4, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { writer().applyFont(); }), isHresult(E_FAIL));
    EXPECT_EQ(writer().getFont(), courier.data());
    EXPECT_LINES(applied(), join(rangeLaid(0, 1), fontWritten("body", normalFont), rangeLaid(1, 1),
                                 fontWritten("body", courier)));
}

/// A writer that only listens to what the base class asks of it.
class ListeningWriter : public MirovelSection
{
public:
    using MirovelSection::MirovelSection;

    void storeFont(const FontData&) override { ++stored; }
    void applyFont() override { ++applied; }
    void applyStyle() override { ++styled; }

    int stored = 0;
    int applied = 0;
    int styled = 0;
};

TEST_F(MirovelSectionFontTest, ADerivedWriterMayTakeFontsAndStylesOver)
{
    ListeningWriter listening(application_, document_, range_);
    MirovelSection& base = listening;
    base.setFont(courier.data());
    EXPECT_EQ(listening.stored, 1);
    base.setStyle("Heading 1", false);
    EXPECT_EQ(listening.styled, 1);
    EXPECT_EQ(listening.stored, 2);
    EXPECT_EQ(listening.applied, 0);
    MirovelSectionProbe::leaveStyle(base);
    base.setFont(normalFont.data());
    EXPECT_EQ(listening.applied, 1);
}

} // namespace
