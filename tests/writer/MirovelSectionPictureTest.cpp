#include "FileWriterTest.h"

#include "InlineShape.h"
#include "SamplePictures.h"

#include <array>

namespace {

namespace model = standin::model;

class MirovelSectionPictureTest : public FileWriterTest
{
protected:
    std::vector<model::PlacedShape> shapes() const
    {
        const std::shared_ptr<model::Story> story = model().mainStory();
        std::vector<model::PlacedShape> shapes;
        for (const model::Position place : model::shapesIn(model::LiveRange(story, 0, story->length())))
            shapes.emplace_back(story, place);
        return shapes;
    }

    const QdxString picture_ = write("a.emf", sample::emf());
};

Calls pictureAdded(const std::string& range, int shapes, const QdxString& file)
{
    const std::string collection = range + ".InlineShapes";
    return {range + ".InlineShapes -> " + collection, collection + ".AddPicture(" + quoted(file) +
                                                          ", false, true, missing) -> " +
                                                          numbered("inlineShape", shapes)};
}

TEST_F(MirovelSectionPictureTest, StandsWhereItsPlaceholderStood)
{
    writer().insertText(L"a ");
    takeCalls();
    writer().insertImage(picture_, {}, 0, 0);
    EXPECT_LINES(takeCalls(),
                 join(Calls{R"(body.InsertAfter("X"))", "body.Start = 2"}, pictureAdded("body", 1, picture_),
                      Calls{"body.Start = 3", "body.Delete(1, 1) -> 1"}));
    EXPECT_EQ(insertionPosition(), 3);
    EXPECT_EQ(text(), u"a \x01");
    ASSERT_EQ(shapes().size(), 1U);
    EXPECT_EQ(shapes().front().shape().width, 72);
    EXPECT_EQ(shapes().front().shape().height, 36);
    EXPECT_EQ(shapes().front().shape().type, model::InlineShapeType::picture);
    writer().insertText(L" b");
    EXPECT_EQ(text(), u"a \x01 b");
    EXPECT_EQ(styleRunAtEnd().second, 5);
}

TEST_F(MirovelSectionPictureTest, SizesThatAreNotZeroAreSet)
{
    writer().insertImage(picture_, {}, 30, 0);
    EXPECT_EQ(takeCalls()[4], "inlineShape.Width = 30f");
    writer().insertImage(picture_, {}, 0, 40);
    EXPECT_EQ(takeCalls()[4], "inlineShape2.Height = 40f");
    writer().insertImage(picture_, {}, 50, 60);
    const Calls calls = takeCalls();
    EXPECT_EQ(calls[4], "inlineShape3.Width = 50f");
    EXPECT_EQ(calls[5], "inlineShape3.Height = 60f");
    EXPECT_EQ(shapes()[0].shape().width, 30);
    EXPECT_EQ(shapes()[1].shape().height, 40);
    EXPECT_EQ(shapes()[2].shape().width, 50);
    EXPECT_EQ(shapes()[2].shape().height, 60);
    EXPECT_EQ(styleRunAtEnd().second, 3);
}

TEST_F(MirovelSectionPictureTest, ASizeThatWordRefusesLeavesPictureAndPlaceholder)
{
    EXPECT_THAT(comErrorOf([&] { writer().insertImage(picture_, {}, -1, 0); }),
                isHresult(static_cast<HRESULT>(0x800A1200)));
    EXPECT_EQ(text(), u"\x01X");
    EXPECT_EQ(styleRunAtEnd().second, 2);
}

TEST_F(MirovelSectionPictureTest, LeadsToItsLink)
{
    writer().insertText(L"a");
    writer().insertImage(picture_, toBookmark("b1", false), 0, 0);
    EXPECT_EQ(writer().unresolvedLinks(), std::vector<QdxString>{"b1"});
    writer().resolve("b1");
    EXPECT_LINES(linksAtEnd(), Calls{R"(body 1-2: "", "b1")"});
    EXPECT_EQ(text(), u"a\x13 HYPERLINK  \\l \"b1\" \x14\x01\x15");
}

TEST_F(MirovelSectionPictureTest, InACellUsesNoPlaceholder)
{
    openTable();
    const std::int32_t position = insertionPosition();
    writer().insertImage(picture_, toAddress("http://example.org"), 10, 0);
    EXPECT_LINES(
        takeCalls(),
        join(Calls{"table.Rows(1).Cells(1).Range.End -> 3", "table.Rows(1).Cells(1).Range.Start = 2"},
             pictureAdded("table.Rows(1).Cells(1).Range", 1, picture_), Calls{"inlineShape.Width = 10f"}));
    EXPECT_EQ(insertionPosition(), position);
    EXPECT_EQ(cellTexts(), u"in\x01");
    writer().insertText(L"!");
    writer().endTable();
    EXPECT_EQ(cellTexts(), u"in\x01!");
    EXPECT_LINES(linksAtEnd(), Calls{firstCell + R"( 2-3: "http://example.org", "")"});
    EXPECT_EQ(cellTexts(), u"in\x13 HYPERLINK \"http://example.org\" \x14\x01\x15!");
}

TEST_F(MirovelSectionPictureTest, OfABareNameIsLookedForInTheInstallation)
{
    const QdxString installed = write("installed\\pix\\no such logo.gif", sample::gif());
    writer().insertImage("no such logo.gif", {}, 0, 0);
    EXPECT_EQ(takeCalls()[3], pictureAdded("body", 1, installed)[1]);
    EXPECT_EQ(text(), u"\x01");
}

TEST_F(MirovelSectionPictureTest, OfANameWithADirectoryIsNotLookedForElsewhere)
{
    write("installed\\pix\\logo.gif", sample::gif());
    openTrace(1);
    writer().insertImage("no such folder\\logo.gif", {}, 0, 0);
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(log(), "ERR File not found: no such folder\\logo.gif\r\n");
}

TEST_F(MirovelSectionPictureTest, OfAnotherExtensionIsNotLookedForElsewhere)
{
    write("installed\\pix\\logo.GIF", sample::gif());
    openTrace(1);
    writer().insertImage("logo.GIF", {}, 0, 0);
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(log(), "ERR File not found: logo.GIF\r\n");
}

TEST_F(MirovelSectionPictureTest, ThatIsMissingIsTracedByTheNameGiven)
{
    openTrace(1);
    writer().insertText(L"text");
    takeCalls();
    writer().insertImage("logo.gif", toBookmark("b1", true), 0, 0);
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(log(), "ERR File not found: logo.gif\r\n");
    EXPECT_LINES(linksAtEnd(), Calls{});
    EXPECT_EQ(text(), u"text");
}

TEST_F(MirovelSectionPictureTest, WithoutANameIsNotTraced)
{
    openTrace(10);
    writer().insertImage("", toBookmark("b1", true), 0, 0);
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(log(), "");
}

TEST_F(MirovelSectionPictureTest, IsNotTracedAtLevelZero)
{
    openTrace(0);
    writer().insertImage("no such logo.gif", {}, 0, 0);
    EXPECT_EQ(log(), "");
}

// insertImage asks Word whatever the extension is.
TEST_F(MirovelSectionPictureTest, ThatWordCannotReadLeavesItsPlaceholder)
{
    for (const char* name : {"empty.gif", "text.gif", "text.txt"}) {
        const QdxString file = write(name, name[0] == 'e' ? "" : "no picture");
        takeCalls();
        EXPECT_THAT(comErrorOf([&] { writer().insertImage(file, toBookmark("b1", true), 0, 0); }),
                    isFailure())
            << name;
        EXPECT_EQ(takeCalls().size(), 4U);
    }
    EXPECT_EQ(text(), u"XXX");
    EXPECT_EQ(insertionPosition(), 3);
    EXPECT_LINES(linksAtEnd(), Calls{});
}

TEST_F(MirovelSectionPictureTest, MayHaveSpacesInItsName)
{
    const QdxString file = write("a folder\\my logo 1.bmp", sample::bmp());
    writer().insertImage(file, {}, 0, 0);
    EXPECT_EQ(takeCalls()[3], pictureAdded("body", 1, file)[1]);
    EXPECT_EQ(text(), u"\x01");
}

TEST_F(MirovelSectionPictureTest, AFailureAtEachCallLeavesWhatWasDone)
{
    const std::array<std::u16string, 8> texts = {u"",      u"X",     u"X",     u"X",
                                                 u"\x01X", u"\x01X", u"\x01X", u"\x01X"};
    const std::array<std::int32_t, 8> positions = {0, 1, 1, 1, 2, 2, 1, 1};
    for (std::size_t call = 1; call <= texts.size(); ++call) {
        SCOPED_TRACE(call);
        startOver();
        word_.failCall(static_cast<long>(call), E_ACCESSDENIED);
        EXPECT_THAT(comErrorOf([&] { writer().insertImage(picture_, toBookmark("b1", false), 10, 20); }),
                    isHresult(E_ACCESSDENIED));
        word_.clearFaults();
        EXPECT_EQ(text(), texts.at(call - 1));
        EXPECT_EQ(insertionPosition(), positions.at(call - 1));
        EXPECT_EQ(writer().unresolvedLinks().size(), call > 6 ? 1U : 0U);
        abandon();
    }
}

} // namespace
