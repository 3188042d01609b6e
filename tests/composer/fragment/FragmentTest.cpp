#include "Fragment.h"

#include "TestStyles.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <utility>

namespace compose {
namespace {

std::string fragment(Blocks blocks, std::vector<LinkTarget> links = {}, bool isLinked = true)
{
    TestStyles styles;
    return fragmentOf(
        blocks, {styles, links, [isLinked](const std::u16string&) { return isLinked; }, /*textWidth=*/400});
}

/// Of one that names no font and no style but Normal: what stands behind its tables.
std::string textOf(Blocks blocks, std::vector<LinkTarget> links = {}, bool isLinked = true)
{
    static const std::string start =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fnil No Such Font;}}\n";
    const std::string rtf = fragment(std::move(blocks), std::move(links), isLinked);
    EXPECT_TRUE(rtf.starts_with(start)) << rtf;
    const std::size_t sheet = rtf.find("{\\stylesheet{\\s0\\f0 Normal;}");
    const std::size_t text = rtf.find('\n', sheet) + 1;
    EXPECT_TRUE(sheet == start.size() && text != 0 && rtf.ends_with('}')) << rtf;
    return rtf.substr(text, rtf.size() - text - 1);
}

Item text(std::u16string characters, FontWish wish = {.style = u"Normal"}, LinkNumber link = noLink)
{
    return {Text{std::move(characters)}, std::make_shared<const FontWish>(std::move(wish)), link};
}

Item linked(std::u16string characters, LinkNumber link)
{
    return text(std::move(characters), {.style = u"Normal"}, link);
}

FontWish bold()
{
    return {.style = u"Normal", .isBold = true};
}

TEST(Fragment, OfPlainTextStatesStylesByNameAlone)
{
    EXPECT_EQ(fragment({Paragraph{.items = {text(u"a", {.style = u"Heading 1"})}, .style = u"Heading 1"},
                        Paragraph{.items = {text(u"b{")}}}),
              "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fnil No Such Font;}}\n"
              "{\\stylesheet{\\s0\\f0 Normal;}{\\s1\\f0 heading 1;}}\n"
              "\\pard\\plain\\s1\\f0 a\\par\n"
              "\\pard\\plain\\s0\\f0 b\\{\\par\n"
              "}");
}

TEST(Fragment, NamesStylesAndFontsInSevenBits)
{
    const std::string rtf =
        fragment({Paragraph{.items = {text(u"a", {.style = u"Zitat {\u00E4\u4E2D}", .name = u"\uFF2D"})},
                            .style = u"Zitat {\u00E4\u4E2D}"}});
    EXPECT_NE(rtf.find("{\\f1\\fnil \\u-211?;}"), rtf.npos) << rtf;
    EXPECT_NE(rtf.find("{\\s1\\f0 Zitat \\{\\u228?\\u20013?\\};}"), rtf.npos) << rtf;
}

TEST(Fragment, HasDirectFormattingOnlyWhereTextDiffersFromItsStyle)
{
    EXPECT_EQ(
        textOf({Paragraph{.items = {text(u"a", {.style = u"Normal", .size = 12}), text(u"b", bold())}}}),
        "\\pard\\plain\\s0\\f0 a{\\b b}\\par\n");
}

TEST(Fragment, SaysEachPropertyOfAFont)
{
    const FontWish all{.style = u"Normal",
                       .name = u"Arial",
                       .size = 9,
                       .isBold = true,
                       .isItalic = true,
                       .isUnderlined = true,
                       .isStruck = true};
    const std::string rtf = fragment({Paragraph{.items = {text(u"a", all)}}});
    EXPECT_NE(rtf.find("{\\f1\\fnil Arial;}"), rtf.npos) << rtf;
    EXPECT_NE(rtf.find("\\s0\\f0{\\f1\\fs18\\b\\i\\ul\\strike a}\\par"), rtf.npos) << rtf;
}

// A reader that compares "not bold" with a style sheet that says nothing finds no difference.
TEST(Fragment, StatesWhatAStyleHasWhereSomeTextHasItTakenAway)
{
    const Item plain = text(u"a", {.style = u"Heading 1"});
    const Item light = text(u"b", {.style = u"Heading 1", .isBold = false});
    const std::string rtf = fragment({Paragraph{.items = {plain, light}, .style = u"Heading 1"},
                                      Paragraph{.items = {plain}, .style = u"Heading 1"}});
    EXPECT_NE(rtf.find("{\\s1\\f0\\b heading 1;}"), rtf.npos) << rtf;
    EXPECT_NE(rtf.find("\\pard\\plain\\s1\\f0\\b a{\\b0 b}\\par\n\\pard\\plain\\s1\\f0\\b a\\par\n"),
              rtf.npos)
        << rtf;
}

TEST(Fragment, StatesTheSizeOfAStyleWhereSomeTextHasTheDefaultOne)
{
    const FontWish wish{.style = u"Heading 1", .name = u"Times New Roman", .size = 12};
    const std::string rtf = fragment({Paragraph{.items = {text(u"a", wish)}, .style = u"Heading 1"}});
    EXPECT_NE(rtf.find("{\\f1\\fnil Times New Roman;}}"), rtf.npos) << rtf;
    EXPECT_NE(rtf.find("{\\s1\\f0\\fs32 heading 1;}"), rtf.npos) << rtf;
    EXPECT_NE(rtf.find("\\pard\\plain\\s1\\f0\\fs32{\\f1\\fs24 a}\\par"), rtf.npos) << rtf;
}

TEST(Fragment, EndsWithAMarkInAParagraphLikeTheOneBehind)
{
    TestStyles styles;
    const Paragraph behind{.style = u"Heading 1", .alignment = 3};
    const std::vector<LinkTarget> links = {{.address = u"http://a.example/"}};
    const Paragraph linkedToTheEnd{.items = {linked(u"a", 0)}};
    const std::string rtf = fragmentOf(std::array{Block(linkedToTheEnd)}, {styles, links, {}, 400, &behind});
    EXPECT_TRUE(rtf.ends_with("\\par\n\\pard\\plain\\s1\\qr\\f0 \\u167?\\par\n}")) << rtf;
    EXPECT_NE(rtf.find("{\\s1\\f0 heading 1;}"), rtf.npos) << rtf;
}

TEST(Fragment, EndsWithAMarkInAParagraphThatGoesOn)
{
    TestStyles styles;
    const std::vector<LinkTarget> links = {{.address = u"http://a.example/"}};
    const Blocks blocks = {Paragraph{.items = {text(u"a")}}, Paragraph{.items = {linked(u"b", 0)}}};
    const std::string rtf =
        fragmentOf(blocks, {styles, links, {}, 400, /*behind=*/nullptr, /*endsOpen=*/true});
    EXPECT_TRUE(rtf.ends_with("b}}}\\u167?\\par\n}")) << rtf;
    EXPECT_EQ(rtf.find("\\u167"), rtf.rfind("\\u167"));
}

TEST(Fragment, SaysAnAlignmentOnlyWhereTheStyleHasAnother)
{
    EXPECT_EQ(textOf({Paragraph{.alignment = 1}, Paragraph{.alignment = 2}, Paragraph{.alignment = 3},
                      Paragraph{.alignment = 4}, Paragraph()}),
              "\\pard\\plain\\s0\\f0\\par\n\\pard\\plain\\s0\\qc\\f0\\par\n\\pard\\plain\\s0\\qr\\f0\\par\n"
              "\\pard\\plain\\s0\\qj\\f0\\par\n\\pard\\plain\\s0\\f0\\par\n");
    const std::string rtf = fragment({Paragraph{.style = u"Title", .alignment = 2}});
    EXPECT_NE(rtf.find("{\\s1\\f0 Title;}"), rtf.npos) << rtf;
    EXPECT_NE(rtf.find("\\s1\\f0\\par"), rtf.npos) << rtf;
}

TEST(Fragment, StatesTheAlignmentOfAStyleWhereAParagraphIsToBeLeft)
{
    const std::string rtf =
        fragment({Paragraph{.style = u"Title", .alignment = 1}, Paragraph{.style = u"Title"}});
    EXPECT_NE(rtf.find("{\\s1\\qc\\f0 Title;}"), rtf.npos) << rtf;
    EXPECT_NE(rtf.find("\\s1\\ql\\f0\\par\n\\pard\\plain\\s1\\qc\\f0\\par"), rtf.npos) << rtf;
}

TEST(Fragment, MergesNeighboursWithTheSameLook)
{
    EXPECT_EQ(textOf({Paragraph{.items = {text(u"a", bold()), text(u""), text(u"b", bold()), text(u"c"),
                                          text(u"d", bold())}}}),
              "\\pard\\plain\\s0\\f0{\\b ab}c{\\b d}\\par\n");
}

TEST(Fragment, HasFieldsThatAreToBeUpdated)
{
    EXPECT_EQ(textOf({Paragraph{
                  .items = {{Field{4}, nullptr}, {Field{1}, std::make_shared<const FontWish>(bold())}}}}),
              "\\pard\\plain\\s0\\f0{\\field\\flddirty{\\*\\fldinst{ PAGE }}{\\fldrslt}}"
              "{\\b{\\field\\flddirty{\\*\\fldinst{ DATE }}{\\fldrslt}}}\\par\n");
}

TEST(Fragment, HidesEntriesAndEscapesThemTwice)
{
    EXPECT_EQ(
        textOf({Paragraph{.items = {{Entry{u"a\\b", 2}}}}}),
        "\\pard\\plain\\s0\\f0{\\v{\\field{\\*\\fldinst{ TC \"a\\\\\\\\b\" \\\\fC \\\\l \"2\" }}}}\\par\n");
}

TEST(Fragment, HasTagsAsCollapsedBookmarks)
{
    EXPECT_EQ(textOf({Paragraph{.items = {text(u"a"), {Tag{u"b1"}}, text(u"b")}}}),
              "\\pard\\plain\\s0\\f0 a{\\*\\bkmkstart b1}{\\*\\bkmkend b1}b\\par\n");
}

TEST(Fragment, HasPageBreaks)
{
    EXPECT_EQ(textOf({Paragraph{.items = {text(u"a", bold()), {PageBreak()}, text(u"b")}}}),
              "\\pard\\plain\\s0\\f0{\\b a}\\page b\\par\n");
}

TEST(Fragment, LinksToAddressesAndBookmarks)
{
    const std::vector<LinkTarget> links = {{u"c:\\a", u""}, {u"", u"b1"}};
    const Blocks blocks = {Paragraph{.items = {linked(u"a", 0), linked(u"b", 1), text(u"c")}}};
    EXPECT_EQ(textOf(blocks, links),
              "\\pard\\plain\\s0\\f0"
              "{\\field{\\*\\fldinst{ HYPERLINK \"c:\\\\\\\\a\" }}{\\fldrslt{\\cs1 a}}}"
              "{\\field{\\*\\fldinst{ HYPERLINK  \\\\l \"b1\" }}{\\fldrslt{\\cs1 b}}}c\\par\n");
    EXPECT_NE(fragment(blocks, links).find("{\\s0\\f0 Normal;}{\\*\\cs1\\additive Hyperlink;}}"),
              std::string::npos);
}

TEST(Fragment, HasTheTextAloneOfALinkThatIsNotToBeMade)
{
    const Blocks blocks = {Paragraph{.items = {linked(u"a", 0)}}};
    EXPECT_EQ(textOf(blocks, {{u"", u"b1"}}, false), "\\pard\\plain\\s0\\f0 a\\par\n");
    EXPECT_EQ(fragment(blocks, {{u"", u"b1"}}, false).find("Hyperlink"), std::string::npos);
}

TEST(Fragment, HasOneFieldForALinkOverSeveralItems)
{
    EXPECT_EQ(textOf({Paragraph{.items = {linked(u"a", 0), text(u"b", bold(), 0), linked(u"c", 0)}}},
                     {{u"x", u""}}),
              "\\pard\\plain\\s0\\f0{\\field{\\*\\fldinst{ HYPERLINK \"x\" }}"
              "{\\fldrslt{\\cs1 a}{\\cs1\\b b}{\\cs1 c}}}\\par\n");
}

TEST(Fragment, HasNoFieldForALinkWithoutText)
{
    EXPECT_EQ(textOf({Paragraph{.items = {linked(u"a", 0), linked(u"", 1), text(u"b")}}},
                     {{u"x", u""}, {u"y", u""}}),
              "\\pard\\plain\\s0\\f0{\\field{\\*\\fldinst{ HYPERLINK \"x\" }}{\\fldrslt{\\cs1 a}}}b\\par\n");
}

TEST(Fragment, RestatesAParagraphBehindALinkThatBeganInFrontOfIt)
{
    EXPECT_EQ(textOf({Paragraph{.items = {linked(u"a", 0)}, .endLink = 0},
                      Paragraph{.items = {linked(u"b", 0), text(u"c")}, .alignment = 2}},
                     {{u"x", u""}}),
              "\\pard\\plain\\s0\\f0{\\field{\\*\\fldinst{ HYPERLINK \"x\" }}{\\fldrslt{\\cs1 a}\\par\n"
              "\\pard\\plain\\s0\\qc\\f0{\\cs1 b}}}\\pard\\plain\\s0\\qc\\f0 c\\par\n");
}

TEST(Fragment, EndsALinkThatEndsWithAParagraphBehindItsMark)
{
    EXPECT_EQ(textOf({Paragraph{.items = {linked(u"a", 0)}, .endLink = 0}, Paragraph{.items = {text(u"b")}}},
                     {{u"x", u""}}),
              "\\pard\\plain\\s0\\f0{\\field{\\*\\fldinst{ HYPERLINK \"x\" }}{\\fldrslt{\\cs1 a}\\par\n"
              "}}\\pard\\plain\\s0\\f0 b\\par\n");
}

TEST(Fragment, EndsALinkInFrontOfTheLastMark)
{
    EXPECT_EQ(textOf({Paragraph{.items = {linked(u"a", 0)}, .endLink = 0}}, {{u"x", u""}}),
              "\\pard\\plain\\s0\\f0{\\field{\\*\\fldinst{ HYPERLINK \"x\" }}{\\fldrslt{\\cs1 a}}}\\par\n");
}

TEST(Fragment, HasTablesOfEqualColumnsAndExactHeights)
{
    const Cell a = {Paragraph{.items = {text(u"a")}}};
    const Cell bc = {Paragraph{.items = {text(u"b")}}, Paragraph{.items = {text(u"c"), {Tag{u"b1"}}}}};
    EXPECT_EQ(textOf({Table{.rows = {{a, bc}, {Cell(), a}}, .heights = {0, 20}}, Paragraph()}),
              "\\trowd\\trgaph108\\trleft-108\\cellx3892\\cellx7892\n"
              "\\pard\\plain\\intbl\\s0\\f0 a\\cell\n"
              "\\pard\\plain\\intbl\\s0\\f0 b\\par\n"
              "\\pard\\plain\\intbl\\s0\\f0 c{\\*\\bkmkstart b1}{\\*\\bkmkend b1}\\cell\n"
              "\\row\n"
              "\\trowd\\trgaph108\\trleft-108\\trrh-400\\cellx3892\\cellx7892\n"
              "\\pard\\plain\\intbl\\s0\\f0\\cell\n"
              "\\pard\\plain\\intbl\\s0\\f0 a\\cell\n"
              "\\row\n"
              "\\pard\\plain\n"
              "\\pard\\plain\\s0\\f0\\par\n");
}

TEST(Fragment, HasACellForEachColumnOfTheFirstRow)
{
    EXPECT_EQ(textOf({Table{.rows = {Row(2), Row(1)}, .heights = {}}, Paragraph()}),
              "\\trowd\\trgaph108\\trleft-108\\cellx3892\\cellx7892\n"
              "\\pard\\plain\\intbl\\s0\\f0\\cell\n\\pard\\plain\\intbl\\s0\\f0\\cell\n\\row\n"
              "\\trowd\\trgaph108\\trleft-108\\cellx3892\\cellx7892\n"
              "\\pard\\plain\\intbl\\s0\\f0\\cell\n\\pard\\plain\\intbl\\s0\\f0\\cell\n\\row\n"
              "\\pard\\plain\n"
              "\\pard\\plain\\s0\\f0\\par\n");
}

Item picture(PictureKind kind, std::string file, LinkNumber link = noLink)
{
    return {.what = Picture{true, std::make_shared<const KeptPicture>(
                                      KeptPicture{{kind, 4, 2, 60, 30}, std::move(file), u"a picture"})},
            .link = link};
}

TEST(Fragment, HoldsPicturesInTheirNaturalSize)
{
    EXPECT_EQ(textOf({Paragraph{.items = {picture(PictureKind::png, "\x89P"), text(u"a")}}}),
              "\\pard\\plain\\s0\\f0{\\*\\shppict{\\pict\\pngblip\\picw4\\pich2\\picwgoal60\\pichgoal30\n"
              "8950}}a\\par\n");
    EXPECT_EQ(textOf({Paragraph{.items = {picture(PictureKind::bitmap, std::string(14, 'h') + "\x01\xAB")}}}),
              "\\pard\\plain\\s0\\f0{\\pict\\dibitmap0\\picw4\\pich2\\picwgoal60\\pichgoal30\n01ab}\\par\n");
}

TEST(Fragment, ALinkedPictureStandsInTheField)
{
    const std::string rtf =
        textOf({Paragraph{.items = {picture(PictureKind::jpeg, "j", 0)}}}, {{u"http://a/", u""}});
    const std::size_t result = rtf.find("{\\fldrslt");
    ASSERT_NE(result, rtf.npos);
    EXPECT_NE(rtf.find("\\jpegblip", result), rtf.npos);
}

TEST(Fragment, LeavesTheTagsAtItsOpenEndOut)
{
    TestStyles styles;
    const std::vector<LinkTarget> links;
    const Blocks blocks = {Paragraph{.items = {{Tag{u"first"}}, text(u"a"), {Tag{u"b1"}}, {Tag{u"b2"}}}}};
    const std::string rtf = fragmentOf(blocks, {.styles = styles,
                                                .links = links,
                                                .isLinked = {},
                                                .tableWidth = 400,
                                                .behind = nullptr,
                                                .endsOpen = true});
    EXPECT_NE(rtf.find("first"), rtf.npos);
    EXPECT_EQ(rtf.find("bkmkstart b"), rtf.npos);
    EXPECT_EQ(tagsAtEnd(std::get<Paragraph>(blocks.front())).size(), 2);
}

class CountingStyles : public TestStyles
{
public:
    const Font& fontOf(const std::u16string& style, FontProperty property) override
    {
        ++questions;
        return TestStyles::fontOf(style, property);
    }
    int alignmentOf(const std::u16string& style) override
    {
        ++questions;
        return TestStyles::alignmentOf(style);
    }
    int questions = 0;
};

TEST(Fragment, AsksNothingOfStylesWhenTheClientSaysNothingBeyondThem)
{
    CountingStyles styles;
    const std::vector<LinkTarget> links;
    const Blocks blocks = {Paragraph{.items = {text(u"a", {.style = u"Heading 1"})}, .style = u"Heading 1"},
                           Paragraph{.items = {text(u"a")}}};
    fragmentOf(blocks, {styles, links, {}, 400});
    EXPECT_EQ(styles.questions, 0);
}

} // namespace
} // namespace compose
