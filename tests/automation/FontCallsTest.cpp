// setFontName, setFontSize and setFontAttribute: what becomes of the other properties of the font.
#include "FrontEndTest.h"

#include <cstring>

namespace {

class FontCallsTest : public FrontEndTest
{
protected:
    FontCallsTest() { openDocument(); }

    /// The last font that is written when the document is closed, as "Name size biu s".
    std::string fontAtClose()
    {
        client->insertText(L"x"_b);
        word.clearTranscript();
        EXPECT_THAT(client->close(), isHresult(S_OK));
        std::string font;
        for (const std::string& call : takeTranscript()) {
            const std::size_t value = call.find(" = ");
            const std::size_t member = call.rfind(".Font.", value);
            if (member == std::string::npos || value == std::string::npos)
                continue;
            if (call.find(".Name", member) != std::string::npos)
                font.clear();
            const std::size_t name = member + std::strlen(".Font.");
            font += (font.empty() ? "" : " ") + call.substr(name, value - name) + call.substr(value + 2);
        }
        return font;
    }
};

TEST_F(FontCallsTest, OnlyNoteTheFont)
{
    client->setFontName(L"Courier New"_b);
    client->setFontSize(9);
    client->setFontAttribute(1, VARIANT_TRUE);
    EXPECT_LINES(takeTranscript(), Lines());
}

TEST_F(FontCallsTest, ANameStartsFromAFreshFont)
{
    client->setFontSize(20);
    client->setFontAttribute(1, VARIANT_TRUE);
    client->setFontName(L"Courier New"_b);
    EXPECT_EQ(fontAtClose(), "Name \"Courier New\" Bold 0 Italic 0 Underline 0 StrikeThrough 0")
        << "no size is set";
}

TEST_F(FontCallsTest, ASizeKeepsTheRest)
{
    client->setFontName(L"Courier New"_b);
    client->setFontAttribute(2, VARIANT_TRUE);
    client->setFontSize(20);
    EXPECT_EQ(fontAtClose(), "Name \"Courier New\" Size 20f Bold 0 Italic 1 Underline 0 StrikeThrough 0");
}

TEST_F(FontCallsTest, AnAttributeKeepsTheRest)
{
    client->setFontSize(20);
    client->setFontAttribute(4, VARIANT_TRUE);
    client->setFontAttribute(8, VARIANT_TRUE);
    client->setFontAttribute(4, VARIANT_FALSE);
    EXPECT_EQ(fontAtClose(), "Name \"Times New Roman\" Size 20f Bold 0 Italic 0 Underline 0 StrikeThrough 1");
}

TEST_F(FontCallsTest, EachAttributeHasItsNumber)
{
    for (const short attribute : std::initializer_list<short>{1, 2, 4, 8})
        client->setFontAttribute(attribute, VARIANT_TRUE);
    EXPECT_EQ(fontAtClose(), "Name \"Times New Roman\" Size 12f Bold 1 Italic 1 Underline 1 StrikeThrough 1");
}

TEST_F(FontCallsTest, NumbersAreNoSetOfBits)
{
    for (const short attribute : std::initializer_list<short>{0, 3, 5, 12, 15, 16, -1, 32767, -32768})
        client->setFontAttribute(attribute, VARIANT_TRUE);
    EXPECT_EQ(fontAtClose(), "Name \"Times New Roman\" Size 12f Bold 0 Italic 0 Underline 0 StrikeThrough 0");
}

TEST_F(FontCallsTest, AnyNumberButZeroIsTrue)
{
    client->setFontAttribute(1, 7);
    client->setFontAttribute(2, 1);
    EXPECT_EQ(fontAtClose(), "Name \"Times New Roman\" Size 12f Bold 1 Italic 1 Underline 0 StrikeThrough 0");
}

TEST_F(FontCallsTest, ASizeOfZeroLeavesTheStylesSize)
{
    client->setFontSize(0);
    EXPECT_EQ(fontAtClose(), "Name \"Times New Roman\" Bold 0 Italic 0 Underline 0 StrikeThrough 0");
}

// Runs are applied when the next style begins, and then the face is not known until one is set again.
TEST_F(FontCallsTest, ASizeBehindATableGoesWithAnEmptyName)
{
    client->startTable();
    client->endTable();
    client->setFontSize(20);
    client->insertText(L"x"_b);
    word.clearTranscript();
    client->close();
    EXPECT_THAT(takeTranscript(), testing::Contains("body.Font.Name = \"\""));
}

TEST_F(FontCallsTest, ASizeThatWordRefusesFailsWhenItIsApplied)
{
    for (const short size : std::initializer_list<short>{-1, -32768, 1639, 32767})
        EXPECT_EQ(outcome([&] { return client->setFontSize(size); }), "0x00000000") << size;
    client->insertText(L"x"_b);
    EXPECT_THAT(outcome([&] { return client->close(); }),
                testing::StartsWith("QdxException: Saving document\nCOMERROR 0x800a"));
    EXPECT_THAT(client->close(), isHresult(S_OK)) << "the writer has gone, the document is saved without";
    EXPECT_THAT(contentOf(documentName()), testing::HasSubstr("x"));
}

TEST_F(FontCallsTest, ANameOutsideTheCodePageLosesWhatItDoesNotHold)
{
    client->setFontName(L"\u4e2d Caf\u00e9"_b);
    client->insertText(L"x"_b);
    word.clearTranscript();
    client->close();
    EXPECT_THAT(takeTranscript(), testing::Contains("body.Font.Name = \"? Caf\\u00e9\""));
}

} // namespace
