#include <ObjectExpression.h>

#include <gtest/gtest.h>
#include <vector>

namespace {
std::string property(const char* receiver, const char* member, const std::vector<std::string>& arguments = {})
{
    return standin::objectExpression(receiver, member, false, arguments);
}

std::string method(const char* receiver, const char* member, const std::vector<std::string>& arguments)
{
    return standin::objectExpression(receiver, member, true, arguments);
}

TEST(ObjectExpression, APropertyIsWhatAProgramWrites)
{
    EXPECT_EQ(property("body", "Font"), "body.Font");
    EXPECT_EQ(property("document", "Range"), "document.Range");
    EXPECT_EQ(property("body", "Information", {"3"}), "body.Information(3)");
}

TEST(ObjectExpression, AnItemNeedsNoMember)
{
    EXPECT_EQ(method("document.Styles", "Item", {"-2"}), "document.Styles(-2)");
    EXPECT_EQ(method("document.Bookmarks", "Item", {"\"b1\""}), "document.Bookmarks(\"b1\")");
}

TEST(ObjectExpression, PartsNameTheirPlace)
{
    EXPECT_EQ(method("document", "Range", {"0", "5"}), "document.Range(0, 5)");
    EXPECT_EQ(method("document", "Range", {"4", "missing"}), "document.Range(4)");
    EXPECT_EQ(method("document", "Range", {"missing", "4"}), "document.Range(missing, 4)");
    EXPECT_EQ(method("table", "Cell", {"1", "2"}), "table.Cell(1, 2)");
}

TEST(ObjectExpression, AWholeTextIsABody)
{
    EXPECT_EQ(method("document", "Range", {"missing", "missing"}), "body");
    EXPECT_EQ(method("document2", "Range", {"missing", "missing"}), "document2.body");
}

TEST(ObjectExpression, WhatAMethodMakesHasNone)
{
    EXPECT_EQ(method("document.Tables", "Add", {"body", "1", "1"}), "");
    EXPECT_EQ(method("body", "ConvertToTable", {"1"}), "");
}
} // namespace
