// Anchors in texts: what is echoed, what Word is told, and how far an error gets.
#include "FrontEndTest.h"

namespace {

class AnchorTextTest : public FrontEndTest
{
protected:
    AnchorTextTest() { openDocument(); }

    void insert(const std::string& text) { EXPECT_THAT(client->insertText(bstr(text)), isHresult(S_OK)); }
    /// The echo lines of one text.
    std::string echoOf(const std::string& text)
    {
        trace(10);
        insert(text);
        trace(0);
        return log();
    }
};

TEST_F(AnchorTextTest, WritesPrefixLabelAndTail)
{
    trace(10);
    insert("abc<a href=\"t1\">Label</a>def");
    EXPECT_LINES(takeTranscript(), (Lines{
                                       "body.InsertAfter(\"abc\")",
                                       "body.End -> 3",
                                       "body.InsertAfter(\"Label\")",
                                       "body.End -> 8",
                                       "body.InsertAfter(\"def\")",
                                   }));
    EXPECT_EQ(log(), logLines({
                         "mirovel->insertText(\"abc<a href=\"t1\">Label</a>def\");",
                         "mirovel->insertText(\"abc\");",
                         "mirovel->insertXref(\"Label\",\"t1\");",
                         "mirovel->insertText(\"def\");",
                     }));
    EXPECT_EQ(documentText(), "abcLabeldef");
}

TEST_F(AnchorTextTest, EchoesEveryTailOfSeveralAnchors)
{
    EXPECT_EQ(echoOf("<a href=\"a\">A</a>-<a href=\"b\">B</a>"),
              logLines({
                  "mirovel->insertText(\"<a href=\"a\">A</a>-<a href=\"b\">B</a>\");",
                  "mirovel->insertText(\"\");",
                  "mirovel->insertXref(\"A\",\"a\");",
                  "mirovel->insertText(\"-<a href=\"b\">B</a>\");",
                  "mirovel->insertText(\"-\");",
                  "mirovel->insertXref(\"B\",\"b\");",
                  "mirovel->insertText(\"\");",
              }));
    EXPECT_EQ(documentText(), "A-B");
}

TEST_F(AnchorTextTest, TakesTheMarkOffGuids)
{
    EXPECT_EQ(echoOf("<a href=\"#GUID 123\">A</a>"),
              logLines({
                  "mirovel->insertText(\"<a href=\"#GUID 123\">A</a>\");",
                  "mirovel->insertText(\"\");",
                  "mirovel->insertXref(\"A\",\"GUID 123\");",
                  "mirovel->insertText(\"\");",
              }));
}

TEST_F(AnchorTextTest, TakesEveryMarkOffATargetThatBeginsWithOne)
{
    EXPECT_THAT(echoOf("<a href=\"#GUID 1 #GUID 2\">A</a>"),
                testing::HasSubstr("mirovel->insertXref(\"A\",\"GUID 1 GUID 2\");\r\n"));
    EXPECT_THAT(echoOf("<a href=\"x #GUID 1\">A</a>"),
                testing::HasSubstr("mirovel->insertXref(\"A\",\"x #GUID 1\");\r\n"));
}

TEST_F(AnchorTextTest, WritesThePrefixOfAMalformedAnchorTwice)
{
    trace(10);
    insert("x<a href=\"t\" no end");
    EXPECT_LINES(takeTranscript(), (Lines{
                                       "body.InsertAfter(\"x\")",
                                       "body.InsertAfter(\"x<a href=\\\"t\\\" no end\")",
                                   }));
    EXPECT_EQ(log(),
              logLines({"mirovel->insertText(\"x<a href=\"t\" no end\");", "mirovel->insertText(\"x\");"}));
}

TEST_F(AnchorTextTest, WritesThePrefixOfAMalformedTailTwice)
{
    insert("<a href=\"a\">A</a>y<a href=b>B</a>");
    EXPECT_EQ(documentText(), "Ayy<a href=b>B</a>");
}

TEST_F(AnchorTextTest, PassesTheWholeTextOnWhenItHoldsNoAnchor)
{
    insert("<A HREF=\"t\">x</A><a  href=\"t\">");
    EXPECT_LINES(takeTranscript(), Lines{"body.InsertAfter(\"<A HREF=\\\"t\\\">x</A><a  href=\\\"t\\\">\")"});
}

TEST_F(AnchorTextTest, KeepsCharactersOutsideTheCodePageOnlyWithoutAnchor)
{
    EXPECT_THAT(client->insertText(L"\u4e2d"_b), isHresult(S_OK));
    EXPECT_THAT(client->insertText(L"\u4e2d<a href=\"t\">\u4e2d</a>\u4e2d"_b), isHresult(S_OK));
    EXPECT_THAT(client->insertText(L"\u4e2d<a href="_b), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), (Lines{
                                       "body.InsertAfter(\"\\u4e2d\")",
                                       "body.InsertAfter(\"?\")",
                                       "body.End -> 2",
                                       "body.InsertAfter(\"?\")",
                                       "body.End -> 3",
                                       "body.InsertAfter(\"?\")",
                                       "body.InsertAfter(\"?\")",
                                       "body.InsertAfter(\"\\u4e2d<a href=\")",
                                   }));
}

TEST_F(AnchorTextTest, WritesALabelWithoutTargetAsPlainText)
{
    insert("<a href=\"\">A</a>");
    EXPECT_LINES(takeTranscript(), (Lines{
                                       "body.InsertAfter(\"\")",
                                       "body.InsertAfter(\"A\")",
                                       "body.InsertAfter(\"\")",
                                   }));
}

TEST_F(AnchorTextTest, LeavesOutAnAnchorWithoutLabel)
{
    insert("a<a href=\"t\"></a>b");
    EXPECT_EQ(documentText(), "ab");
}

TEST_F(AnchorTextTest, CountsTheTagsOfAnchors)
{
    insert("<a href=\"one\">A</a><a href=\"two\">B</a><a href=\"one\">C</a>");
    EXPECT_EQ(documentText(), "ABC");
}

TEST_F(AnchorTextTest, SwallowsAnErrorInThePrefixAndWhatFollows)
{
    RecordedExceptionLog exceptions;
    word.failCall(1, refused);
    insert("a<a href=\"t\">L</a>b");
    EXPECT_LINES(takeTranscript(), Lines{"body.InsertAfter(\"a\") !! 0x800a1234"});
    ASSERT_EQ(exceptions.lines.size(), 1U);
    EXPECT_THAT(exceptions.lines[0],
                testing::StartsWith("Exception throw: insertText\nCOMERROR 0x800a1234\n"));
}

TEST_F(AnchorTextTest, ReportsAnErrorInTheFirstAnchorsLabel)
{
    word.failCall(2, refused); // End, which the link asks for
    EXPECT_THAT(outcome([&] { return client->insertText(L"a<a href=\"t\">L</a>b"_b); }),
                testing::StartsWith("QdxException: insertText\nCOMERROR 0x800a1234\n"));
    EXPECT_LINES(takeTranscript(), (Lines{"body.InsertAfter(\"a\")", "body.End !! 0x800a1234"}));
}

TEST_F(AnchorTextTest, SwallowsAnErrorInTheTail)
{
    RecordedExceptionLog exceptions;
    word.failCall(5, refused);
    insert("a<a href=\"t\">L</a>b");
    EXPECT_EQ(takeTranscript().back(), "body.InsertAfter(\"b\") !! 0x800a1234");
    EXPECT_EQ(exceptions.lines.size(), 1U);
}

TEST_F(AnchorTextTest, SwallowsAnErrorInALaterAnchorsLabel)
{
    RecordedExceptionLog exceptions;
    word.failCall(6, refused);
    insert("a<a href=\"t\">L</a>b<a href=\"u\">M</a>c");
    EXPECT_EQ(takeTranscript().back(), "body.End !! 0x800a1234");
    EXPECT_EQ(exceptions.lines.size(), 1U);
    EXPECT_EQ(documentText(), "aLb");
}

TEST_F(AnchorTextTest, ReportsAnErrorInTheWholeTextOfAMalformedAnchor)
{
    word.failCall(2, refused);
    EXPECT_THAT(outcome([&] { return client->insertText(L"a<a href="_b); }),
                testing::StartsWith("QdxException: insertText\nCOMERROR 0x800a1234\n"));
}

TEST_F(AnchorTextTest, TakesTwentyThousandAnchorsInOneText)
{
    constexpr int anchors = 20000;
    std::string text;
    for (int i = 0; i < anchors; ++i)
        text += "<a href=\"t\">L</a>";
    insert(text);
    EXPECT_EQ(documentText(), std::string(anchors, 'L'));
}

} // namespace
