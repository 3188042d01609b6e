#include "PendingLinks.h"

#include <gtest/gtest.h>

#include <string>

namespace {

HyperLink link(const char* bookmark, bool resolved = false)
{
    return {toBookmark(bookmark, resolved), 0, 1, Word::RangePtr()};
}

/// "b1+ b2- ...": + for the resolved ones.
std::string shown(const PendingLinks& links)
{
    std::string text;
    for (const HyperLink& each : links)
        text += std::string(each.destination.bookmark.data()) + (each.destination.resolved ? "+ " : "- ");
    return text;
}

TEST(PendingLinksTest, KeepTheOrderOfWriting)
{
    PendingLinks links;
    links.add(link("b2"));
    links.add(link("b1", true));
    links.add(link("b2"));
    EXPECT_EQ(shown(links), "b2- b1+ b2- ");
    EXPECT_EQ(links.size(), 3U);
    EXPECT_FALSE(links.empty());
}

TEST(PendingLinksTest, ResolvesEveryLinkToTheBookmarkAndNoOther)
{
    PendingLinks links;
    for (const char* bookmark : {"b1", "b2", "b1", "B1", "b11"})
        links.add(link(bookmark));
    links.resolve("b1");
    EXPECT_EQ(shown(links), "b1+ b2- b1+ B1- b11- ");
    links.resolve("b3");
    links.resolve("b1");
    EXPECT_EQ(shown(links), "b1+ b2- b1+ B1- b11- ");
}

TEST(PendingLinksTest, ALinkWrittenAfterTheResolvingIsNotReached)
{
    PendingLinks links;
    links.resolve("b1");
    links.add(link("b1"));
    EXPECT_EQ(shown(links), "b1- ");
}

TEST(PendingLinksTest, ForgetsWhatWasErased)
{
    PendingLinks links;
    links.add(link("b1"));
    links.add(link("b1"));
    links.add(link("b1"));
    const auto behind = links.erase(std::next(links.begin()));
    EXPECT_EQ(behind, std::prev(links.end()));
    links.resolve("b1");
    EXPECT_EQ(shown(links), "b1+ b1+ ");
}

} // namespace
