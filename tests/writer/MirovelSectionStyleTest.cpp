#include "WriterFixture.h"

#include <array>

namespace {

using MirovelSectionStyleTest = WriterTest;

/// What changing from an empty run in "Normal" costs when the new style's font is known already.
Calls emptyNormalRunApplied()
{
    return join(rangeLaid(0, 0), Calls{"body.Style = -1"}, rangeLaid(0, 0), fontWritten("body", normalFont));
}

TEST_F(MirovelSectionStyleTest, StartsARunAndAppliesTheOneBefore)
{
    writer().insertText(L"body");
    writer().insertEndl();
    takeCalls();
    writer().setStyle("Heading 1", false);
    EXPECT_LINES(takeCalls(),
                 join(styleFontRead("-2", heading1Font), rangeLaid(0, 5), Calls{"body.Style = -1"},
                      rangeLaid(0, 5), fontWritten("body", normalFont)));
    EXPECT_EQ(writer().getFont(), heading1Font.data());
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 5"}) << "no paragraph is open";
    writer().setStyle("Heading 1", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force";
    writer().insertText(L"Title");
    writer().applyStyle();
    EXPECT_LINES(takeCalls(),
                 join(Calls{R"(body.InsertAfter("Title"))"}, styleRunApplied(5, 10, "-2", heading1Font)));
}

TEST_F(MirovelSectionStyleTest, StylesReachTheirOwnParagraphs)
{
    writer().setStyle("Heading 1", false);
    writer().insertText(L"Title");
    writer().insertEndl();
    writer().setStyle("Normal", false);
    writer().insertText(L"body");
    writer().insertEndl();
    writer().setStyle("Heading 2", false);
    writer().insertText(L"Part");
    writer().insertEndl();
    finish();
    EXPECT_EQ(text(), u"Title\rbody\rPart\r");
    EXPECT_EQ(styleAt(0), u"Heading 1");
    EXPECT_EQ(styleAt(6), u"Normal");
    EXPECT_EQ(styleAt(11), u"Heading 2");
    EXPECT_EQ(fontAt(0).name, u"Arial");
    EXPECT_EQ(fontAt(0).size, 16.0F);
    EXPECT_EQ(fontAt(0).bold, true);
    EXPECT_EQ(fontAt(0).italic, false);
    EXPECT_EQ(fontAt(6).name, u"Times New Roman");
    EXPECT_EQ(fontAt(6).bold, false);
    EXPECT_EQ(fontAt(11).size, 14.0F);
    EXPECT_EQ(fontAt(11).italic, true);
}

TEST_F(MirovelSectionStyleTest, TheStyleInForceIsNotStartedAgain)
{
    writer().insertText(L"x");
    writer().setStyle("Heading 1", false);
    writer().insertText(L"open paragraph"); // another style would end it
    takeCalls();
    writer().setStyle("Heading 1", false);
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(text(), u"xopen paragraph");
    EXPECT_LINES(finish(), join(Calls{R"(body.InsertAfter("\n"))"},
                                styleRunApplied(1, 16, "-2", heading1Font), Calls{"document.UndoClear()"}))
        << "the font is recorded once";
}

TEST_F(MirovelSectionStyleTest, ForceStartsTheStyleInForceAgain)
{
    writer().insertText(L"body");
    takeCalls();
    writer().setStyle("Normal", true);
    EXPECT_LINES(takeCalls(), join(rangeLaid(0, 4), Calls{"body.Style = -1"}, rangeLaid(0, 4),
                                   fontWritten("body", normalFont)));
    EXPECT_EQ(writer().getFont(), normalFont.data());
    EXPECT_LINES(finish(), join(styleRunApplied(4, 4, "-1", normalFont), Calls{"document.UndoClear()"}))
        << "the style's font is recorded anew, since its name was forgotten";
}

TEST_F(MirovelSectionStyleTest, NamesOfStylesAreComparedByteForByte)
{
    writer().setStyle("normal", false);
    EXPECT_LINES(takeCalls(), join(styleFontRead(R"("normal")", normalFont), emptyNormalRunApplied()));
    writer().setStyle("normal", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "this one is in force";
}

TEST_F(MirovelSectionStyleTest, EndsAnOpenParagraphFirst)
{
    writer().insertText(L"x");
    writer().setStyle("Heading 1", false); // begins inside the paragraph
    writer().insertText(L"T");
    takeCalls();
    writer().setStyle("Heading 2", false);
    EXPECT_LINES(takeCalls(),
                 join(Calls{R"(body.InsertAfter("\n"))"}, styleFontRead("-3", heading2Font), rangeLaid(1, 3),
                      Calls{"body.Style = -2"}, rangeLaid(1, 3), fontWritten("body", heading1Font)));
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 3"}) << "no paragraph is open";
    EXPECT_EQ(text(), u"xT\r");
    EXPECT_EQ(styleRunAtEnd(), std::pair(3, 3));
}

TEST_F(MirovelSectionStyleTest, LeavesAParagraphOpenWhoseStyleBeganBehindAParagraphEnd)
{
    writer().insertText(L"x");
    writer().insertEndl();
    writer().setStyle("Heading 1", false);
    writer().insertText(L"T");
    takeCalls();
    writer().setStyle("Normal", false);
    EXPECT_LINES(takeCalls(), join(rangeLaid(2, 3), Calls{"body.Style = -2"}, rangeLaid(2, 3),
                                   fontWritten("body", heading1Font)));
    EXPECT_EQ(text(), u"x\rT");
    EXPECT_EQ(styleRunAtEnd().second, 3);
}

TEST_F(MirovelSectionStyleTest, BuiltInStylesGoByTheirNumber)
{
    struct Style
    {
        const char* name;
        const char* argument;
    };
    constexpr std::array styles = {
        Style{"Heading 1", "-2"}, Style{"Heading 2", "-3"}, Style{"Heading 3", "-4"},
        Style{"Heading 4", "-5"}, Style{"Heading 5", "-6"}, Style{"Heading 6", "-7"},
        Style{"Heading 7", "-8"}, Style{"Heading 8", "-9"}, Style{"Heading 9", "-10"},
        Style{"Header", "-32"},   Style{"Footer", "-33"},   Style{"Normal", "-1"}};
    MirovelSection::clearCache();
    for (const Style& style : styles) {
        MirovelSectionProbe::findFont(writer(), style.name);
        const Calls calls = takeCalls();
        ASSERT_FALSE(calls.empty());
        EXPECT_EQ(calls.front(), std::string("document.Styles.Item(") + style.argument +
                                     ") -> document.Styles(" + style.argument + ")");
        writer().setStyle(style.name, true);
        takeCalls();
        writer().applyStyle();
        EXPECT_EQ(takeCalls().at(2), std::string("body.Style = ") + style.argument);
    }
}

TEST_F(MirovelSectionStyleTest, OtherStylesGoByName)
{
    addStyle(u"Custom", {.name = u"Courier New", .size = 9.0F});
    const FontLook customFont{"Courier New", 9};
    writer().setStyle("Custom", false);
    EXPECT_LINES(takeCalls(), join(styleFontRead(R"("Custom")", customFont), emptyNormalRunApplied()));
    writer().insertText(L"text");
    EXPECT_LINES(finish(), join(rangeLaid(0, 4), Calls{R"(body.Style = "Custom")"}, rangeLaid(0, 4),
                                fontWritten("body", customFont), Calls{"document.UndoClear()"}));
    EXPECT_EQ(styleAt(0), u"Custom");
    EXPECT_EQ(fontAt(0).name, u"Courier New");
    EXPECT_EQ(fontAt(0).size, 9.0F);
}

TEST_F(MirovelSectionStyleTest, ANameOutsideAsciiReachesWordAsUnicode)
{
    addStyle(u"Gr\u00fc\u00dfe");
    writer().setStyle("Gr\xfc\xdf"
                      "e",
                      false);
    EXPECT_EQ(firstOf(takeCalls()),
              R"(document.Styles.Item("Gr\u00fc\u00dfe") -> document.Styles("Gr\u00fc\u00dfe"))");
}

TEST_F(MirovelSectionStyleTest, DeepHeadingsAreWrittenAsHeading9)
{
    writer().setStyle("Heading 10", false);
    EXPECT_LINES(takeCalls(), join(styleFontRead("-10", heading9Font), emptyNormalRunApplied()));
    writer().setStyle("Heading 10", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force by the name given";
    writer().insertText(L"deep");
    takeCalls();
    writer().setStyle("Heading 9", false);
    EXPECT_LINES(takeCalls(), join(rangeLaid(0, 4), Calls{"body.Style = -10"}, rangeLaid(0, 4),
                                   fontWritten("body", heading9Font)))
        << "another name, so another run, but the same font";
    EXPECT_EQ(styleAt(0), u"Heading 9");
}

TEST_F(MirovelSectionStyleTest, ResolvesWhateverEndsInANumberAboveNine)
{
    const auto real = [](const char* name) {
        return std::string(MirovelSectionProbe::realStyle(name).data());
    };
    EXPECT_EQ(real("Normal"), "Normal");
    EXPECT_EQ(real("Heading 1"), "Heading 1");
    EXPECT_EQ(real("Heading 9"), "Heading 9");
    EXPECT_EQ(real("Heading 10"), "Heading 9");
    EXPECT_EQ(real("Heading 012"), "Heading 9");
    EXPECT_EQ(real("My style12"), "Heading 9");
    EXPECT_EQ(real("My style 9"), "My style 9");
    EXPECT_EQ(real("Heading -20"), "Heading -20");
    EXPECT_EQ(real("Style 12"), "Style 12") << "nothing behind the first eight characters";
    EXPECT_EQ(real(""), "");
}

TEST_F(MirovelSectionStyleTest, ANameWithoutANumberIsOfLevelOne)
{
    EXPECT_EQ(MirovelSectionProbe::level("Heading ", "Heading 3"), 3);
    EXPECT_EQ(MirovelSectionProbe::level("Heading ", "Normal"), 1);
    EXPECT_EQ(MirovelSectionProbe::level("Heading ", "Heading 0"), 1);
    EXPECT_EQ(MirovelSectionProbe::level("Heading ", "Anything12"), 12);
    EXPECT_EQ(MirovelSectionProbe::level("", "7"), 7);
}

TEST_F(MirovelSectionStyleTest, AnUnknownStyleIsNamedAndTheOldOneStays)
{
    writer().insertText(L"body");
    takeCalls();
    EXPECT_EQ(reasonOf([&] { writer().setStyle("Nope", false); }), "ERR Unknown style: Nope");
    EXPECT_LINES(takeCalls(), Calls{R"(document.Styles.Item("Nope") !! 0x800a1735)"});
    EXPECT_EQ(writer().getFont(), normalFont.data());
    EXPECT_LINES(finish(), join(styleRunApplied(0, 4, "-1", normalFont), Calls{"document.UndoClear()"}));
}

TEST_F(MirovelSectionStyleTest, AnUnknownStyleIsAskedForEachTime)
{
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(reasonOf([&] { writer().setStyle("", false); }), "ERR Unknown style: ");
        EXPECT_LINES(takeCalls(), Calls{R"(document.Styles.Item("") !! 0x800a1735)"});
    }
}

TEST_F(MirovelSectionStyleTest, AnUnknownStyleEndsAnOpenParagraphAllTheSame)
{
    writer().insertText(L"x");
    writer().setStyle("Heading 1", false);
    writer().insertText(L"T");
    takeCalls();
    EXPECT_EQ(reasonOf([&] { writer().setStyle("Nope", false); }), "ERR Unknown style: Nope");
    EXPECT_LINES(takeCalls(),
                 (Calls{R"(body.InsertAfter("\n"))", R"(document.Styles.Item("Nope") !! 0x800a1735)"}));
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 3"}) << "no paragraph is open";
    EXPECT_EQ(styleRunAtEnd(), std::pair(1, 3));
}

TEST_F(MirovelSectionStyleTest, AnyFailureOfWordIsBlamedOnTheNewStyleAsGiven)
{
    writer().setStyle("Heading 2", false);
    const auto expectBlamed = [&](int call) {
        word_.failCall(call, E_ACCESSDENIED);
        EXPECT_EQ(reasonOf([&] { writer().setStyle("Heading 12", false); }), "ERR Unknown style: Heading 12")
            << "call " << call;
        word_.clearFaults();
        takeCalls();
        writer().setStyle("Heading 2", false);
        EXPECT_LINES(takeCalls(), Calls{}) << "it is in force still";
    };
    for (int lookUp = 1; lookUp <= 8; ++lookUp)
        expectBlamed(lookUp);
    MirovelSectionProbe::findFont(writer(), "Heading 9");
    for (int application = 1; application <= 12; ++application)
        expectBlamed(application);
    writer().setStyle("Heading 12", false);
    takeCalls();
    writer().setStyle("Heading 12", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "now it is this one";
}

TEST_F(MirovelSectionStyleTest, AFailureToApplyKeepsTheRunOpen)
{
    writer().insertText(L"body");
    writer().insertEndl();
    writer().setStyle("Heading 1", false);
    writer().insertText(L"Title");
    takeCalls();
    word_.failCall(3, static_cast<HRESULT>(0x800A11FD));
    EXPECT_EQ(reasonOf([&] { writer().setStyle("Normal", false); }), "ERR Unknown style: Normal");
    EXPECT_LINES(takeCalls(), join(rangeLaid(5, 10), Calls{"body.Style = -2 !! 0x800a11fd"}));
    EXPECT_LINES(finish(), join(styleRunApplied(5, 10, "-2", heading1Font), Calls{"document.UndoClear()"}));
}

TEST_F(MirovelSectionStyleTest, InATableAppliesNothing)
{
    openCell();
    writer().setStyle("Heading 1", false);
    takeCalls();
    writer().setStyle("Normal", false);
    EXPECT_LINES(takeCalls(), Calls{firstCell + ".End -> 1"}) << "its font is recorded in the cell";
    writer().setStyle("Normal", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force";
    writer().insertText(L"in");
    writer().endTable();
    EXPECT_EQ(fontAt(0).name, u"Times New Roman");
    EXPECT_EQ(styleRunAtEnd().first, 3) << "the run goes on behind the table";
}

TEST_F(MirovelSectionStyleTest, ApplyStyleClosesTheRun)
{
    writer().setStyle("Heading 1", false);
    writer().insertText(L"Title");
    takeCalls();
    writer().applyStyle();
    EXPECT_LINES(takeCalls(), join(rangeLaid(0, 5), Calls{"body.Style = -2"}, rangeLaid(0, 5),
                                   fontWritten("body", heading1Font)));
    EXPECT_STREQ(writer().getFont().name.data(), "");

    writer().applyStyle();
    EXPECT_LINES(takeCalls(), Calls{}) << "no run is open";
    writer().applyFont();
    EXPECT_LINES(takeCalls(), Calls{}) << "no font waits";
    writer().setStyle("Heading 1", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force all the same";
}

TEST_F(MirovelSectionStyleTest, ApplyStyleEndsAnOpenParagraph)
{
    writer().insertText(L"x");
    writer().setStyle("Heading 1", false);
    writer().insertText(L"T");
    takeCalls();
    writer().applyStyle();
    EXPECT_LINES(takeCalls(),
                 join(Calls{R"(body.InsertAfter("\n"))"}, rangeLaid(1, 3), Calls{"body.Style = -2"},
                      rangeLaid(1, 3), fontWritten("body", heading1Font)));
    EXPECT_EQ(insertionPosition(), 3);
    EXPECT_EQ(text(), u"xT\r");
}

TEST_F(MirovelSectionStyleTest, TextGoesOnBehindWhatWasApplied)
{
    writer().insertText(L"one");
    writer().applyStyle();
    EXPECT_EQ(range_->GetEnd(), 3);
    writer().insertText(L"two");
    EXPECT_EQ(text(), u"onetwo");
}

TEST_F(MirovelSectionStyleTest, AStylesFontIsAskedForOnce)
{
    EXPECT_EQ(MirovelSectionProbe::findFont(writer(), "Heading 1"), heading1Font.data());
    EXPECT_LINES(takeCalls(), styleFontRead("-2", heading1Font));
    EXPECT_EQ(MirovelSectionProbe::findFont(writer(), "Heading 1"), heading1Font.data());
    EXPECT_LINES(takeCalls(), Calls{});
    MirovelSection::clearCache();
    EXPECT_EQ(MirovelSectionProbe::findFont(writer(), "Heading 1"), heading1Font.data());
    EXPECT_LINES(takeCalls(), styleFontRead("-2", heading1Font));
}

TEST_F(MirovelSectionStyleTest, WritersShareTheFontsOfStyles)
{
    MirovelSectionProbe::findFont(writer(), "Heading 1");
    takeCalls();
    auto* const other = new MirovelSection(application_, document_, headerRange());
    takeCalls();
    EXPECT_EQ(MirovelSectionProbe::findFont(*other, "Heading 1"), heading1Font.data());
    EXPECT_LINES(takeCalls(), Calls{});
    endWriter(other);
}

TEST_F(MirovelSectionStyleTest, AFontThatCouldNotBeReadIsNotRemembered)
{
    word_.failCall(5, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { MirovelSectionProbe::findFont(writer(), "Heading 1"); }), isHresult(E_FAIL));
    word_.clearFaults();
    takeCalls();
    EXPECT_EQ(MirovelSectionProbe::findFont(writer(), "Heading 1"), heading1Font.data());
    EXPECT_FALSE(takeCalls().empty());
}

TEST_F(MirovelSectionStyleTest, WithoutStylesRaisesUnknownStyle)
{
    word_.failCall(1, S_FALSE); // the font of "Normal" is known already
    auto* const other = new MirovelSection(application_, document_, range_);
    takeCalls();
    EXPECT_EQ(reasonOf([&] { other->setStyle("Heading 1", false); }), "ERR Unknown style: Heading 1");
    EXPECT_LINES(takeCalls(), Calls{});
    endWriter(other);
}

} // namespace
