#include "InlineShape.h"

#include "IconPicture.h"
#include "ModelFixture.h"
#include "SamplePictures.h"
#include "Table.h"

namespace standin::model {
namespace {

class InlineShapeTest : public ModelTest
{
protected:
    PlacedShape add(Position at, const std::string& file = sample::png())
    {
        LiveRange place = range(at, at);
        return addPicture(place, *readPicture(file));
    }
    static Picture large(float width, float height)
    {
        Picture picture = *readPicture(sample::png());
        picture.width = width;
        picture.height = height;
        return picture;
    }
};

TEST_F(InlineShapeTest, PictureIsOneCharacter)
{
    write(u"ab");
    const PlacedShape shape = add(1);
    EXPECT_EQ(text(), u"a\x01"
                      u"b\r");
    expectAt(shape.range(), 1, 2);
    EXPECT_EQ(shape.shape().type, InlineShapeType::picture);
    EXPECT_NEAR(shape.shape().width, 2, 0.01f);
}

TEST_F(InlineShapeTest, PictureStandsInFrontOfItsRange)
{
    write(u"aXb");
    LiveRange place = range(1, 2);
    addPicture(place, *readPicture(sample::png()));
    EXPECT_EQ(text(), u"a\x01Xb\r");
    expectAt(place, 1, 3);
}

TEST_F(InlineShapeTest, TextBehindAPictureIsJustText)
{
    add(0);
    range(1, 1).insertAfter(u"x");
    EXPECT_EQ(shapesIn(content()), std::vector<Position>{0});
    EXPECT_EQ(document->mainStory()->runAt(1).format->shape, nullptr);
}

TEST_F(InlineShapeTest, PictureKeepsItsSizeThroughEditsAndFonts)
{
    write(u"ab");
    PlacedShape shape = add(1);
    shape.setWidth(30);
    shape.setHeight(40);
    range(0, 0).insertBefore(u"xyz");
    content().setFont({.bold = true});
    expectAt(shape.range(), 4, 5);
    EXPECT_FLOAT_EQ(shape.shape().width, 30);
    EXPECT_FLOAT_EQ(shape.shape().height, 40);
    EXPECT_EQ(shape.range().font().bold, true);
}

TEST_F(InlineShapeTest, PicturesSideBySideStayApart)
{
    PlacedShape first = add(0);
    const PlacedShape second = add(1);
    first.setWidth(50);
    EXPECT_NEAR(second.shape().width, 2, 0.01f);
    EXPECT_EQ(shapesIn(content()), (std::vector<Position>{0, 1}));
}

TEST_F(InlineShapeTest, PictureWiderThanTheTextIsMadeToFit)
{
    LiveRange place = range(0, 0);
    const PlacedShape shape = addPicture(place, large(864, 100));
    EXPECT_FLOAT_EQ(shape.shape().width, 432);
    EXPECT_FLOAT_EQ(shape.shape().height, 50);
}

TEST_F(InlineShapeTest, PictureHigherThanThePageIsMadeToFit)
{
    LiveRange place = range(0, 0);
    const PlacedShape shape = addPicture(place, large(100, 1296));
    EXPECT_FLOAT_EQ(shape.shape().width, 50);
    EXPECT_FLOAT_EQ(shape.shape().height, 648);
}

TEST_F(InlineShapeTest, PictureInACellFitsTheCell)
{
    LiveRange start = range(0, 0);
    const Table table = Table::add(start, 1, 2);
    LiveRange place = table.cell(1, 2).range();
    const PlacedShape shape = addPicture(place, large(421.2f, 100));
    EXPECT_NEAR(shape.shape().width, 210.6f, 0.01f);
    EXPECT_EQ(table.cell(1, 2).range().text(), u"\x01\r\a");
}

TEST_F(InlineShapeTest, DeletedPictureIsADeletedObject)
{
    PlacedShape shape = add(0);
    shape.range().remove();
    EXPECT_EQ(text(), u"\r");
    EXPECT_EQ(errorOf([&] { shape.setWidth(10); }), 5825);
    EXPECT_EQ(errorOf([&] { shape.range(); }), 5825);
}

TEST_F(InlineShapeTest, SizesThatAreNoneAreRefused)
{
    PlacedShape shape = add(0);
    EXPECT_EQ(errorOf([&] { shape.setWidth(0); }), 4608);
    EXPECT_EQ(errorOf([&] { shape.setHeight(1585); }), 4608);
}

TEST_F(InlineShapeTest, CopiedHeaderHasPicturesOfItsOwn)
{
    const auto header = Section::Part::header;
    const auto primary = HeaderFooterIndex::primary;
    LiveRange place(document->section(1)->story(header, primary), 0, 0);
    PlacedShape shape = addPicture(place, *readPicture(sample::png()));
    range(0, 0).insertBreak(BreakType::sectionNextPage);
    document->section(2)->setLinkToPrevious(header, primary, false);
    const PlacedShape copy(document->section(2)->story(header, primary), 0);
    shape.setWidth(100);
    EXPECT_NEAR(copy.shape().width, 2, 0.01f);
}

TEST_F(InlineShapeTest, LinkedPictureStandsInAFieldThatNamesItsFile)
{
    write(u"ab");
    LiveRange place = range(1, 1);
    const PlacedShape shape = addPicture(place, *readPicture(sample::png()), u"c:\\a.png");
    EXPECT_EQ(shape.shape().type, InlineShapeType::linkedPicture);
    EXPECT_EQ(document->mainStory()->text(1, 48),
              u"\x13 INCLUDEPICTURE \"c:\\\\a.png\" \\* MERGEFORMAT \x14\x01\x15");
    expectAt(place, 1, 1);
}

TEST_F(InlineShapeTest, ObjectStandsInAFieldOfItsOwn)
{
    write(u"ab");
    LiveRange place = range(1, 1);
    const PlacedShape shape = addObject(place, {u"Excel.Sheet", "data", u"", u"report.xls"});
    EXPECT_EQ(text(), u"a\x13 EMBED Excel.Sheet \x14\x01\x15"
                      u"b\r");
    EXPECT_EQ(shape.shape().type, InlineShapeType::embeddedObject);
    EXPECT_EQ(shape.shape().objectData, "data");
    expectAt(shape.range(), 22, 23);
    expectAt(place, 1, 1);
}

TEST_F(InlineShapeTest, LinkedObjectKeepsNoData)
{
    LiveRange place = range(0, 0);
    const PlacedShape shape = addObject(place, {u"Excel.Sheet", "data", u"c:\\a.xls", u"a.xls"});
    EXPECT_EQ(shape.shape().type, InlineShapeType::linkedObject);
    EXPECT_EQ(shape.shape().objectData, "");
    EXPECT_EQ(text(), u"\x13 LINK Excel.Sheet \"c:\\\\a.xls\" \"\" \\a \\p \x14\x01\x15\r");
}

TEST_F(InlineShapeTest, ObjectIsOneCharacterUnderTheOtherReading)
{
    document = Document::make(u"Document2", {.oleObjectIsField = false});
    LiveRange place = range(0, 0);
    addObject(place, {u"Excel.Sheet", "data", u"", u"a.xls"});
    EXPECT_EQ(text(), u"\x01\r");
}

TEST_F(InlineShapeTest, IconsOfTheSameLabelAreTheSame)
{
    EXPECT_EQ(iconPicture(u"report.xls").bytes, iconPicture(u"report.xls").bytes);
    EXPECT_NE(iconPicture(u"report.xls").bytes, iconPicture(u"other.xls").bytes);
    EXPECT_NEAR(iconPicture(std::u16string(500, u'x')).width, 76.5f, 0.1f);
    EXPECT_EQ(iconPicture(u"").format, PictureFormat::emf);
}

TEST_F(InlineShapeTest, TextThatLooksLikeAPictureIsNone)
{
    write(u"a\x01");
    EXPECT_TRUE(shapesIn(content()).empty());
}

} // namespace
} // namespace standin::model
