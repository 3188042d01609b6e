#include "EchoLine.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

/// What an echo line writes to, as the trace does: texts, numbers and ends of line.
class TextSink
{
public:
    TextSink& operator<<(const QdxString& text) { return add(text.data()); }
    TextSink& operator<<(const char* text) { return add(text); }
    TextSink& operator<<(short number) { return add(number); }
    TextSink& operator<<(long number) { return add(number); }
    TextSink& operator<<(std::ostream& (*)(std::ostream&)) { return add("|"); }

    [[nodiscard]] std::string text() const { return text_.str(); }

private:
    template <class Value>
    TextSink& add(const Value& value)
    {
        text_ << value;
        return *this;
    }

    std::ostringstream text_;
};

class EchoLineTest : public testing::Test
{
protected:
    TextSink sink;
    EchoLine<TextSink> line{sink};
};

TEST_F(EchoLineTest, WritesACallWithoutArguments)
{
    line.call("insertEndl");
    EXPECT_EQ(sink.text(), "mirovel->insertEndl();|");
}

TEST_F(EchoLineTest, WritesTextBetweenQuotesWithoutEscaping)
{
    line.call("insertText", Quoted{"a \"b\" \\ \n\tc"});
    EXPECT_EQ(sink.text(), "mirovel->insertText(\"a \"b\" \\ \n\tc\");|");
}

TEST_F(EchoLineTest, WritesAnEmptyTextAsTwoQuotes)
{
    line.call("setStyle", Quoted{});
    EXPECT_EQ(sink.text(), "mirovel->setStyle(\"\");|");
}

TEST_F(EchoLineTest, WritesBareTextWithoutQuotes)
{
    line.call("insertImage", QdxString("a b.bmp"), Quoted{"c"});
    EXPECT_EQ(sink.text(), "mirovel->insertImage(a b.bmp,\"c\");|");
}

TEST_F(EchoLineTest, WritesNumbersInDecimal)
{
    line.call("insertField", static_cast<short>(-32768));
    line.call("insertField", 2147483647L);
    EXPECT_EQ(sink.text(), "mirovel->insertField(-32768);|mirovel->insertField(2147483647);|");
}

TEST_F(EchoLineTest, SeparatesArgumentsByACommaWithoutSpace)
{
    line.call("overrideRegistry", Quoted{"g"}, Quoted{"n"}, Quoted{"v"}, static_cast<short>(2));
    EXPECT_EQ(sink.text(), "mirovel->overrideRegistry(\"g\",\"n\",\"v\",2);|");
}

TEST_F(EchoLineTest, WritesALineInPieces)
{
    line.begin("setFontAttribute");
    EXPECT_EQ(sink.text(), "mirovel->setFontAttribute(");
    sink << "DocBold,"
         << "true";
    line.end();
    EXPECT_EQ(sink.text(), "mirovel->setFontAttribute(DocBold,true);|");
}

} // namespace
