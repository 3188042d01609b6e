#include "Division.h"

#include <gtest/gtest.h>

#include <ostream>

namespace compose {

void PrintTo(const Stretch& stretch, std::ostream* out)
{
    *out << stretch.first << "-" << stretch.past << (stretch.isFragment ? " fragment" : " typed");
}

namespace {

using Stretches = std::vector<Stretch>;

Paragraph paragraphOf(Item item)
{
    Paragraph paragraph;
    paragraph.items.push_back(std::move(item));
    return paragraph;
}

Paragraph text(LinkNumber link = noLink)
{
    return paragraphOf({Text{u"text"}, {}, link});
}

Table table()
{
    Table made;
    made.rows = {{{text()}}};
    return made;
}

class DivisionTest : public testing::Test
{
protected:
    [[nodiscard]] Stretches divided(const Blocks& blocks, bool isTableOpen = false) const
    {
        return divide(blocks, links, blocks.size() - (isTableOpen ? 2 : 1));
    }
    std::vector<LinkTarget> links = {{.address = u"http://a.example/"}};
};

TEST_F(DivisionTest, EndsAFragmentWithAnOpenParagraphThatHoldsSomething)
{
    EXPECT_EQ(divided({text()}), (Stretches{{0, 1, true}}));
    EXPECT_EQ(divided({text(), Paragraph()}), (Stretches{{0, 1, true}, {1, 2, false}}));
    EXPECT_EQ(divided({text(), paragraphOf({Tag{u"b1"}})}), (Stretches{{0, 1, true}, {1, 2, false}}));
    Paragraph taggedAtItsEnd = text();
    taggedAtItsEnd.items.push_back({Tag{u"b1"}});
    EXPECT_EQ(divided({text(), taggedAtItsEnd}), (Stretches{{0, 2, true}}));
    EXPECT_EQ(divided({text(), paragraphOf({Contents()})}), (Stretches{{0, 1, true}, {1, 2, false}}));
    EXPECT_EQ(divided({text(), table(), Paragraph()}), (Stretches{{0, 2, true}, {2, 3, false}}));
}

TEST_F(DivisionTest, LeavesAnOpenTableOut)
{
    EXPECT_EQ(divided({text(), table(), Paragraph()}, true), (Stretches{{0, 1, true}, {1, 3, false}}));
}

TEST_F(DivisionTest, EndsAFragmentWithAnyParagraph)
{
    EXPECT_EQ(divided({text(), Paragraph(), Paragraph()}), (Stretches{{0, 2, true}, {2, 3, false}}));
    EXPECT_EQ(divided({text(), paragraphOf({Field{4}}), Paragraph()}),
              (Stretches{{0, 2, true}, {2, 3, false}}));
    EXPECT_EQ(divided({text(), text(0), Paragraph()}), (Stretches{{0, 2, true}, {2, 3, false}}));
}

TEST_F(DivisionTest, LeavesTheLastPageBreakOut)
{
    Paragraph behindText = text();
    behindText.items.push_back({PageBreak{true}});
    EXPECT_EQ(divided({text(), behindText, text(), text()}),
              (Stretches{{0, 1, true}, {1, 2, false}, {2, 4, true}}));
    EXPECT_EQ(divided({paragraphOf({PageBreak{false}}), text(), text()}), (Stretches{{0, 3, true}}));
}

TEST_F(DivisionTest, BeginsAFragmentWithTheLastPageBreak)
{
    EXPECT_EQ(divided({text(), paragraphOf({PageBreak{true}}), text(), text()}),
              (Stretches{{0, 1, true}, {1, 4, true}}));
    EXPECT_EQ(divided({text(), paragraphOf({PageBreak{true}}), Paragraph()}),
              (Stretches{{0, 1, true}, {1, 2, true}, {2, 3, false}}));
}

TEST_F(DivisionTest, EndsAFragmentWithTheEndOfASection)
{
    Paragraph last = text();
    last.end = ParagraphEnd::section;
    EXPECT_EQ(divided({text(), last, text(), text(), Paragraph()}),
              (Stretches{{0, 2, true}, {2, 4, true}, {4, 5, false}}));
    EXPECT_EQ(divided({text(), paragraphOf({Contents()}), text(), Paragraph()}),
              (Stretches{{0, 2, true}, {2, 3, true}, {3, 4, false}}));
}

TEST_F(DivisionTest, CutsNoLinkThatGoesOnBehindAParagraph)
{
    Paragraph ended = text();
    ended.endLink = 0;
    EXPECT_EQ(divided({text(), ended, text(), Paragraph()}), (Stretches{{0, 3, true}, {3, 4, false}}));
    EXPECT_EQ(divided({text(), ended, Paragraph()}), (Stretches{{0, 1, true}, {1, 3, false}}));
    Paragraph unfit = paragraphOf({Contents()});
    unfit.endLink = 0;
    EXPECT_EQ(divided({unfit, text(), Paragraph()}), (Stretches{{0, 3, false}}));
}

} // namespace
} // namespace compose
