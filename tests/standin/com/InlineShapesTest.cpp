#include "DocumentFixture.h"

#include "Hresult.h"
#include "SamplePictures.h"

#include <WordConstants.h>
#include <gmock/gmock.h>

namespace {
using testing::ElementsAre;
using testing::MatchesRegex;

class InlineShapes : public standin_test::FilesFixture
{
};

TEST_F(InlineShapes, PicturesOfEveryKindGoInFrontOfTheRange)
{
    document->Range()->InsertAfter(L"aX");
    const Word::RangePtr place = range(1, 2);
    long count = 0;
    for (const auto& [name, bytes] :
         {std::pair(L"a.png", sample::png()), std::pair(L"a.jpg", sample::jpeg()),
          std::pair(L"a.gif", sample::gif()), std::pair(L"a.bmp", sample::bmp()),
          std::pair(L"a.emf", sample::emf()), std::pair(L"a.wmf", sample::wmf())}) {
        const Word::InlineShapePtr shape = place->GetInlineShapes()->AddPicture(
            write(name, bytes).c_str(), Word::boolean(false), Word::boolean(true));
        EXPECT_EQ(shape->GetType(), Word::wdInlineShapePicture);
        EXPECT_EQ(shape->GetRange()->GetStart(), 1);
        EXPECT_EQ(document->GetInlineShapes()->GetCount(), ++count);
    }
    EXPECT_EQ(text(), u"a\x01\x01\x01\x01\x01\x01X\r");
    EXPECT_EQ(place->GetStart(), 1);
    EXPECT_EQ(place->GetEnd(), 8);
}

TEST_F(InlineShapes, SizesCanBeAskedAndPut)
{
    const Word::InlineShapePtr shape =
        document->GetInlineShapes()->AddPicture(write(L"a.emf", sample::emf()).c_str());
    EXPECT_FLOAT_EQ(shape->GetWidth(), 72);
    EXPECT_FLOAT_EQ(shape->GetHeight(), 36);
    shape->PutWidth(36);
    shape->PutHeight(72);
    EXPECT_FLOAT_EQ(shape->GetWidth(), 36);
    EXPECT_FLOAT_EQ(shape->GetHeight(), 72);
    EXPECT_THAT(comErrorOf([&] { shape->PutWidth(-1); }), isHresult(wordError(4608)));
    document->Range()->Delete();
    EXPECT_EQ(text(), u"\r");
    EXPECT_THAT(comErrorOf([&] { shape->GetWidth(); }), isHresult(wordError(5825)));
}

TEST_F(InlineShapes, ARangesOwnTextIsReplacedUnderTheOtherReading)
{
    word.model().setSwitches({.shapeReplacesNothing = false});
    const Word::_DocumentPtr other = word.application()->GetDocuments()->Add();
    const std::wstring picture = write(L"a.png", sample::png());
    other->Range()->InsertAfter(L"qjkw");
    other->Range(Word::integer(1), Word::integer(2))->GetInlineShapes()->AddPicture(picture.c_str());
    EXPECT_EQ(text(other), u"q\x01"
                           u"kw\r");
    const _variant_t icon = Word::boolean(true);
    other->Range(Word::integer(2), Word::integer(3))
        ->GetInlineShapes()
        ->AddOLEObject(Word::missing, Word::text(write(L"a.xls", "x").c_str()), Word::boolean(false), icon);
    EXPECT_EQ(other->GetInlineShapes()->GetCount(), 2);
    EXPECT_EQ(text(other).find(u'k'), std::u16string::npos);
    other->GetInlineShapes()->AddPicture(picture.c_str());
    EXPECT_EQ(text(other).front(), u'\x01');
    EXPECT_NE(text(other).find(u'w'), std::u16string::npos) << "the document's own replace nothing";
}

TEST_F(InlineShapes, ARangeGivenIsReplaced)
{
    document->Range()->InsertAfter(L"abc");
    document->GetInlineShapes()->AddPicture(write(L"a.png", sample::png()).c_str(), Word::missing,
                                            Word::missing, Word::object(range(1, 2)));
    EXPECT_EQ(text(), u"a\x01"
                      u"c\r");
    EXPECT_EQ(range(0, 1)->GetInlineShapes()->GetCount(), 0);
    EXPECT_EQ(range(1, 2)->GetInlineShapes()->Item(1)->GetRange()->GetStart(), 1);
    EXPECT_THAT(comErrorOf([&] { document->GetInlineShapes()->Item(2); }), isHresult(wordError(5941)));
}

TEST_F(InlineShapes, FilesThatAreNoPicturesAreRefused)
{
    const Word::InlineShapesPtr shapes = document->GetInlineShapes();
    EXPECT_THAT(comErrorOf([&] { shapes->AddPicture(folder.file(L"none.png").c_str()); }),
                isHresult(wordError(5152)));
    EXPECT_THAT(comErrorOf([&] { shapes->AddPicture(L""); }), isHresult(wordError(5152)));
    const std::wstring damaged = write(L"damaged.png", sample::png().substr(0, 60));
    EXPECT_THAT(comErrorOf([&] { shapes->AddPicture(damaged.c_str()); }), isHresult(wordError(4198)));
    const std::wstring other = write(L"text.png", "just text");
    EXPECT_THAT(comErrorOf([&] { shapes->AddPicture(other.c_str()); }), isHresult(wordError(4198)));
    EXPECT_EQ(text(), u"\r");
}

TEST_F(InlineShapes, ALinkedPictureNamesItsFile)
{
    const Word::InlineShapePtr shape =
        document->GetInlineShapes()->AddPicture(write(L"a.png", sample::png()).c_str(), Word::boolean(true));
    EXPECT_EQ(shape->GetType(), Word::wdInlineShapeLinkedPicture);
    EXPECT_NE(text().find(u" INCLUDEPICTURE \""), std::u16string::npos);
}

TEST_F(InlineShapes, PicturesGoIntoCells)
{
    const Word::RangePtr start = range(0, 0);
    const Word::RangePtr cell = start->GetTables()->Add(start, 1, 2)->Cell(1, 2)->GetRange();
    cell->InsertAfter(L"x");
    cell->PutStart(cell->GetEnd() - 1);
    cell->GetInlineShapes()->AddPicture(write(L"a.png", sample::png()).c_str());
    EXPECT_EQ(text(), u"\ax\x01\a\a\r");
}

TEST_F(InlineShapes, AnObjectIsShownAsAnIconInItsField)
{
    const std::wstring file = write(L"report.xls", "sheet");
    const Word::InlineShapePtr shape = document->GetInlineShapes()->AddOLEObject(
        Word::text(L"Excel.Sheet"), Word::text(file.c_str()), Word::boolean(false), Word::boolean(true),
        Word::text(L"excel.exe"), _variant_t(short{1}), Word::text(L"report.xls"));
    EXPECT_EQ(shape->GetType(), Word::wdInlineShapeEmbeddedOLEObject);
    EXPECT_EQ(text(), u"\x13 EMBED Excel.Sheet \x14\x01\x15\r");
    EXPECT_EQ(shape->GetRange()->GetStart(), 21);
}

TEST_F(InlineShapes, ALinkedObjectNeedsNoClass)
{
    const std::wstring file = write(L"show.ppt", "slides");
    const Word::InlineShapePtr shape = document->GetInlineShapes()->AddOLEObject(
        _variant_t(), Word::text(file.c_str()), Word::boolean(true), Word::boolean(true));
    EXPECT_EQ(shape->GetType(), Word::wdInlineShapeLinkedOLEObject);
    EXPECT_EQ(text().find(u"\x13 LINK PowerPoint.Show \""), 0u);
}

TEST_F(InlineShapes, ObjectsThatCannotBeMadeAreRefused)
{
    const Word::InlineShapesPtr shapes = document->GetInlineShapes();
    const _variant_t none = Word::text(folder.file(L"none.xls").c_str());
    const _variant_t yes = Word::boolean(true);
    EXPECT_THAT(comErrorOf([&] { shapes->AddOLEObject(Word::missing, none, Word::missing, yes); }),
                isHresult(wordError(5174)));
    EXPECT_THAT(comErrorOf([&] { shapes->AddOLEObject(Word::missing, Word::missing, Word::missing, yes); }),
                isHresult(wordError(4198)));
    EXPECT_THAT(comErrorOf([&] { shapes->AddOLEObject(Word::text(L"Excel.Sheet")); }), isHresult(E_NOTIMPL));
    EXPECT_EQ(text(), u"\r");
}

TEST_F(InlineShapes, AreWrittenDownCallByCall)
{
    const std::wstring file = write(L"a.png", sample::png());
    word.clearTranscript();
    document->GetInlineShapes()
        ->AddPicture(file.c_str(), Word::boolean(false), Word::boolean(true))
        ->PutWidth(20);
    EXPECT_THAT(
        word.transcript(),
        ElementsAre(
            "document.InlineShapes -> document.InlineShapes",
            MatchesRegex("document.InlineShapes.AddPicture.*a\\.png\", false, true, missing. -> inlineShape"),
            "inlineShape.Width = 20f"));
}
} // namespace
