#include "Hyperlink.h"

#include "ModelFixture.h"

namespace standin::model {
namespace {

using HyperlinkTest = ModelTest;

TEST_F(HyperlinkTest, ALinkLengthensTheTextByItsCodeAndThreeCharacters)
{
    write(u"see here now");
    const LiveRange anchor = range(4, 8);
    const LiveRange all = content();
    const Hyperlink link = addHyperlink(anchor, {u"http://a", u""});
    EXPECT_EQ(text(), u"see \x13 HYPERLINK \"http://a\" \x14here\x15 now\r");
    expectAt(anchor, 4, 32);
    expectAt(all, 0, 13 + 3 + 22 + 0);
    expectAt(link.range(), 4, 33);
    EXPECT_EQ(content().text(), u"see here now\r");
    EXPECT_EQ(link.textToDisplay(), u"here");
}

TEST_F(HyperlinkTest, TheTextLooksLikeALinkAndWhatFollowsDoesNot)
{
    write(u"see here");
    const Hyperlink link = addHyperlink(range(4, 8), {u"http://a", u""});
    EXPECT_EQ(link.field().result().style()->name(), u"Hyperlink");
    EXPECT_EQ(link.field().result().font().underline, 1);
    content().insertAfter(u" behind");
    EXPECT_EQ(content().text(), u"see here behind\r");
    const Position past = link.range().end();
    EXPECT_EQ(range(past, past + 7).font().underline, 0);
    LiveRange inside = link.field().result();
    inside.insertAfter(u"!");
    EXPECT_EQ(link.textToDisplay(), u"here!");
}

TEST_F(HyperlinkTest, CodesHoldWhatThereIsOfATarget)
{
    write(u"x");
    const auto codeOf = [&](const HyperlinkTarget& target) {
        Hyperlink link = addHyperlink(range(0, 1), target);
        std::u16string code = link.field().code().text();
        EXPECT_EQ(link.target(), target);
        link.remove();
        return code;
    };
    EXPECT_EQ(codeOf({u"a", u""}), u" HYPERLINK \"a\" ");
    EXPECT_EQ(codeOf({u"a", u"b"}), u" HYPERLINK \"a\" \\l \"b\" ");
    EXPECT_EQ(codeOf({u"", u"b"}), u" HYPERLINK  \\l \"b\" ");
    EXPECT_EQ(codeOf({u"c:\\d e\\f.doc", u"", u"tip", u"frame"}),
              u" HYPERLINK \"c:\\\\d e\\\\f.doc\" \\o \"tip\" \\t \"frame\" ");
    EXPECT_EQ(text(), u"x\r");
    EXPECT_EQ(errorOf([&] { addHyperlink(range(0, 1), {u"", u""}); }), 4198);
}

TEST_F(HyperlinkTest, AnEmptyAnchorShowsTheAddress)
{
    addHyperlink(range(0, 0), {u"http://a", u"b"});
    EXPECT_EQ(content().text(), u"http://a\r");
    addHyperlink(range(0, 0), {u"", u"b"});
    EXPECT_EQ(content().text(), u"bhttp://a\r");
}

TEST_F(HyperlinkTest, ATextToDisplayReplacesTheAnchors)
{
    write(u"abc");
    addHyperlink(range(1, 2), {u"u", u""}, u"long text");
    EXPECT_EQ(content().text(), u"along textc\r");
    Hyperlink link = hyperlinksIn(content()).front();
    link.remove();
    EXPECT_EQ(text(), u"along textc\r");
    EXPECT_EQ(range(1, 2).font().underline, 0);
}

TEST_F(HyperlinkTest, ALinkInsideTheCodeOfAnotherIsMadeThere)
{
    write(u"one two three");
    addHyperlink(range(0, 3), {u"http://first", u""});
    const LiveRange inCode = range(8, 13);
    EXPECT_TRUE(crossesField(inCode));
    addHyperlink(inCode, {u"http://second", u""});
    EXPECT_EQ(hyperlinksIn(content()).size(), 2u);
    EXPECT_EQ(content().text(), u"one two three\r");
}

TEST_F(HyperlinkTest, ALinkThatCrossesAFieldEndsAtItsBorder)
{
    write(u"one two three");
    addHyperlink(range(4, 7), {u"http://a", u""}); // one <19>...<20>two<21> three
    const Hyperlink into = addHyperlink(range(0, 10), {u"http://b", u""});
    EXPECT_EQ(into.textToDisplay(), u"one ");
    const FieldPlace second = hyperlinksIn(content())[1].field().place();
    const Hyperlink outOf = addHyperlink(range(second.end - 1, second.end + 4), {u"http://c", u""});
    EXPECT_EQ(outOf.textToDisplay(), u"o");
    EXPECT_EQ(content().text(), u"one two three\r");
}

TEST_F(HyperlinkTest, TheFinalMarkStaysOutsideALink)
{
    write(u"ab");
    const Hyperlink link = addHyperlink(range(1, 3), {u"u", u""});
    EXPECT_EQ(link.textToDisplay(), u"b");
}

TEST_F(HyperlinkTest, UnderTheOtherReadingTheCodeEndsInTheLinkData)
{
    Switches switches;
    switches.hyperlinkWithoutLinkData = false;
    document = Document::make(u"Document1", switches);
    write(u"ab");
    const Hyperlink link = addHyperlink(range(0, 2), {u"u", u""});
    EXPECT_EQ(link.field().code().text(), u" HYPERLINK \"u\" \x01");
    EXPECT_EQ(link.target(), (HyperlinkTarget{u"u", u""}));
}

} // namespace
} // namespace standin::model
