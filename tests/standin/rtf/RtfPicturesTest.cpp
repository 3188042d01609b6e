#include "RtfPictures.h"

#include "RtfFixture.h"
#include "RtfHex.h"
#include "RtfObjects.h"
#include "SamplePictures.h"

namespace standin::rtf {
namespace {

using namespace model;

class RtfPicturesTest : public RtfTest
{
protected:
    PlacedShape add(Position at, const std::string& file)
    {
        LiveRange place = range(at, at);
        return addPicture(place, *readPicture(file));
    }
    void read(std::string_view body) { readRtf("{\\rtf1 " + std::string(body) + "}", *document); }
    const InlineShape& shapeAt(Position position) const
    {
        const auto& shape = document->mainStory()->runAt(position).format->shape;
        EXPECT_NE(shape, nullptr);
        return *shape;
    }
};

TEST_F(RtfPicturesTest, WritesAPictureInTheSizeInWhichItIsShown)
{
    PlacedShape shape = add(0, sample::png());
    shape.setWidth(30);
    const std::string written = rtf();
    EXPECT_NE(written.find("{\\*\\shppict{\\pict\\pngblip\\picw4\\pich2\\picwgoal600\\pichgoal20\n89504e47"),
              std::string::npos);
}

TEST_F(RtfPicturesTest, OldFormsStandInNoGroupThatOldReadersSkip)
{
    add(0, sample::wmf());
    add(0, sample::bmp());
    const std::string written = rtf();
    EXPECT_EQ(written.find("\\shppict"), std::string::npos);
    EXPECT_NE(written.find("{\\pict\\wmetafile8\\picw2540\\pich1270\\picwgoal1440\\pichgoal720\n"),
              std::string::npos);
    EXPECT_NE(written.find("{\\pict\\dibitmap0\\picw3\\pich2\\picwgoal45\\pichgoal30\n28000000"),
              std::string::npos);
}

TEST_F(RtfPicturesTest, PicturesComeBackFromRtf)
{
    for (const std::string& file :
         {sample::png(), sample::jpeg(), sample::gif(), sample::bmp(), sample::emf(), sample::wmf()}) {
        document = Document::make(u"Document1");
        write(u"ab");
        PlacedShape shape = add(1, file);
        shape.setHeight(33);
        const Picture before = *shape.shape().picture;
        const float width = shape.shape().width;
        rewrite();
        EXPECT_EQ(text(), u"a\x01"
                          u"b\r");
        const InlineShape& again = shapeAt(1);
        EXPECT_EQ(again.picture->format, before.format);
        EXPECT_EQ(again.picture->bytes, before.bytes);
        EXPECT_NEAR(again.width, width, 0.05f);
        EXPECT_NEAR(again.height, 33, 0.05f);
    }
}

TEST_F(RtfPicturesTest, ReadsScaledAndBinaryPictures)
{
    const std::string bytes("\x01{\x02", 3);
    read("a{\\pict\\emfblip\\picwgoal1440\\pichgoal720\\picscalex50\\picscaley200\\bin3 " + bytes + "}b");
    EXPECT_EQ(text(), u"a\x01"
                      u"b\r");
    EXPECT_EQ(shapeAt(1).picture->bytes, bytes);
    EXPECT_FLOAT_EQ(shapeAt(1).width, 36);
    EXPECT_FLOAT_EQ(shapeAt(1).height, 72);
}

TEST_F(RtfPicturesTest, TakesOneOfTwoFormsOfAPicture)
{
    read("{\\*\\shppict{\\pict{\\*\\picprop x}\\pngblip 00}}{\\nonshppict{\\pict\\wmetafile8 11}}");
    EXPECT_EQ(text(), u"\x01\r");
    EXPECT_EQ(shapeAt(0).picture->bytes, std::string(1, '\0'));
}

TEST_F(RtfPicturesTest, LeavesOutPicturesOfUnknownForms)
{
    read("a{\\pict\\macpict 00}b");
    EXPECT_EQ(text(), u"ab\r");
}

TEST_F(RtfPicturesTest, HexIsReadAcrossLinesAndWithoutItsOddEnd)
{
    HexReader reader;
    for (const char c : std::string("0A\n1 bf"))
        reader.digit(static_cast<char16_t>(c));
    EXPECT_EQ(reader.bytes(), "\n\x1b");
    EXPECT_EQ(hexText("\x01\xfe"), "\n01fe");
}

TEST_F(RtfPicturesTest, ObjectDataComesBack)
{
    const ObjectData embedded{false, "Excel.Sheet", "", std::string("a\0b", 3)};
    const ObjectData again = readObjectData(writeObjectData(embedded));
    EXPECT_FALSE(again.isLinked);
    EXPECT_EQ(again.className, "Excel.Sheet");
    EXPECT_EQ(again.native, std::string("a\0b", 3));
    const ObjectData linked = readObjectData(writeObjectData({true, "Excel.Sheet", "c:\\a.xls", ""}));
    EXPECT_TRUE(linked.isLinked);
    EXPECT_EQ(linked.link, "c:\\a.xls");
    EXPECT_EQ(readObjectData("\x01").className, "");
}

TEST_F(RtfPicturesTest, WritesAnObjectWithItsIcon)
{
    LiveRange place = range(0, 0);
    const PlacedShape shape = addObject(place, {u"Excel.Sheet", "data", u"", u"report.xls"});
    const std::string written = objectText(shape.shape());
    EXPECT_TRUE(
        written.starts_with("{\\object\\objemb\\objw1530\\objh990{\\*\\objclass Excel.Sheet}{\\*\\objdata\n"
                            "01050000020000000c000000457863656c2e536865657400"))
        << written.substr(0, 150);
    EXPECT_NE(written.find("{\\result{\\*\\shppict{\\pict\\emfblip"), std::string::npos);
}

TEST_F(RtfPicturesTest, ObjectsComeBackInTheirFields)
{
    write(u"ab");
    LiveRange place = range(1, 1);
    addObject(place, {u"Excel.Sheet", "data", u"", u"a.xls"});
    addObject(place, {u"Excel.Sheet", "data", u"c:\\a.xls", u"a.xls"});
    const auto story = document->mainStory();
    const std::u16string expected = story->text(0, story->length());
    rewrite();
    EXPECT_EQ(document->mainStory()->text(0, document->mainStory()->length()), expected);
    EXPECT_EQ(shapesIn(rangeOf(document->mainStory())).size(), 2u);
}

TEST_F(RtfPicturesTest, LinkedPictureComesBackInItsField)
{
    write(u"ab");
    LiveRange place = range(1, 1);
    addPicture(place, *readPicture(sample::png()), u"c:\\a.png");
    const auto story = document->mainStory();
    const std::u16string expected = story->text(0, story->length());
    rewrite();
    EXPECT_EQ(document->mainStory()->text(0, document->mainStory()->length()), expected);
}

TEST_F(RtfPicturesTest, ObjectsThatAreNoFieldsComeBack)
{
    for (const char16_t* link : {u"", u"c:\\a.xls"}) {
        document = Document::make(u"Document1", {.oleObjectIsField = false});
        write(u"ab");
        LiveRange place = range(1, 1);
        const PlacedShape shape = addObject(place, {u"Excel.Sheet", "data", link, u"a.xls"});
        const std::u16string expected = text();
        const InlineShape before = shape.shape();
        rewrite();
        EXPECT_EQ(text(), expected);
        const InlineShape& again = shapeAt(document->mainStory()->length() - 3);
        EXPECT_EQ(again.type, before.type);
        EXPECT_EQ(again.objectClass, before.objectClass);
        EXPECT_EQ(again.objectData, before.objectData);
        EXPECT_EQ(again.link, before.link);
        EXPECT_EQ(again.picture->bytes, before.picture->bytes);
    }
}

TEST_F(RtfPicturesTest, ObjectWithoutAPictureIsLeftOut)
{
    read("a{\\object\\objemb{\\*\\objclass X}{\\*\\objdata 00}{\\result some text\\par}}b");
    EXPECT_EQ(text(), u"ab\r");
}

} // namespace
} // namespace standin::rtf
