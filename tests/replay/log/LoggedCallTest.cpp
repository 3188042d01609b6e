#include "LoggedCall.h"

#include <gtest/gtest.h>

namespace replay {
namespace {

TEST(LoggedCallTest, EchoesAsTheLogHasIt)
{
    EXPECT_EQ(echoOf({.method = Method::insertEndl}), "mirovel->insertEndl();\r\n");
    EXPECT_EQ(echoOf({.method = Method::insertText, .texts = {"a \"b\" \\ c"}}),
              "mirovel->insertText(\"a \"b\" \\ c\");\r\n");
    EXPECT_EQ(echoOf({.method = Method::setTextAlign, .number = -1}), "mirovel->setTextAlign(-1);\r\n");
    EXPECT_EQ(echoOf({.method = Method::insertFile, .texts = {"a"}, .number = 4}),
              "mirovel->insertFile(\"a\",4);\r\n");
    EXPECT_EQ(echoOf({.method = Method::insertXref, .texts = {"a", "b"}}),
              "mirovel->insertXref(\"a\",\"b\");\r\n");
    EXPECT_EQ(echoOf({.method = Method::insertImage, .texts = {"a", "b"}}),
              "mirovel->insertImage(a,\"b\");\r\n");
    EXPECT_EQ(echoOf({.method = Method::overrideRegistry, .texts = {"a", "b", "c"}, .number = 2}),
              "mirovel->overrideRegistry(\"a\",\"b\",\"c\",2);\r\n");
    EXPECT_EQ(echoOf({.method = Method::setFontAttribute, .number = 4, .isOn = true}),
              "mirovel->setFontAttribute(DocUnderline,true);\r\n");
    EXPECT_EQ(echoOf({.method = Method::setFontAttribute, .number = 3}),
              "mirovel->setFontAttribute(false);\r\n");
    EXPECT_EQ(echoOf({.method = Method::setTableRowHeight, .number = 20}),
              "mirovel->setTableRowHeight();\r\n");
}

TEST(LoggedCallTest, EndsLinesAsTheLogDoes)
{
    EXPECT_EQ(echoOf({.method = Method::insertText, .texts = {"a\nb\r\nc\rd"}}),
              "mirovel->insertText(\"a\r\nb\r\nc\rd\");\r\n");
}

TEST(LoggedCallTest, FindsEveryMethodByItsName)
{
    for (std::size_t i = 0; i < methodCount; ++i) {
        const auto method = static_cast<Method>(i);
        EXPECT_EQ(methodNamed(formOf(method).name), method);
    }
    EXPECT_EQ(formOf(Method::insertXref).name, "insertXref");
    EXPECT_EQ(formOf(Method::setFontName).name, "setFontName");
    EXPECT_FALSE(methodNamed("setOrientation"));
    EXPECT_FALSE(methodNamed(""));
}

} // namespace
} // namespace replay
