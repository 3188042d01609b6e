#include "DocumentFixture.h"

#include "Hresult.h"
#include "TableFormats.h"

#include <WordConstants.h>

namespace {

class ConvertToTable : public standin_test::DocumentFixture
{
protected:
    Word::RangePtr write(const wchar_t* content) const
    {
        document->Range()->InsertAfter(content);
        return range(0, document->Range()->GetEnd() - 1);
    }
};

TEST_F(ConvertToTable, HasLinesUnaskedUnderTheOtherReading)
{
    const auto hasLines = [this](const _variant_t& behaviour) {
        const Word::_DocumentPtr other = word.application()->GetDocuments()->Add();
        other->Range()->InsertAfter(L"a\n");
        const _variant_t& none = Word::missing;
        other->Range(Word::integer(0), Word::integer(2))
            ->ConvertToTable(Word::integer(0), none, none, none, none, none, none, none, none, none, none,
                             none, none, none, none, behaviour);
        return word.model(other)->mainStory()->paragraph(1).format->row->cells[0].top.isVisible;
    };
    EXPECT_FALSE(hasLines(Word::missing));
    word.model().setSwitches({.convertToTableDrawsNoLines = false});
    EXPECT_TRUE(hasLines(Word::missing));
    EXPECT_FALSE(hasLines(Word::integer(0)));
}

TEST_F(ConvertToTable, ParagraphsBecomeCells)
{
    const Word::RangePtr place = write(L"a\nb\nc\nd\n");
    document->GetBookmarks()->Add(L"first", Word::object(range(0, 0)));
    range(4, 5)->PutBold(-1);
    const Word::TablePtr table = place->ConvertToTable(
        Word::integer(0), Word::integer(2), Word::integer(2), Word::missing, Word::missing, Word::missing,
        Word::missing, Word::missing, Word::missing, Word::missing, Word::missing, Word::missing,
        Word::missing, Word::missing, Word::integer(0), Word::integer(1));
    EXPECT_EQ(text(), u"a\ab\a\ac\ad\a\a\r");
    EXPECT_EQ(place->GetStart(), 0);
    EXPECT_EQ(place->GetEnd(), 10);
    EXPECT_EQ(table->GetRange()->GetEnd(), 10);
    EXPECT_EQ(table->Cell(2, 1)->GetRange()->GetText(), _bstr_t(L"c\r\a"));
    EXPECT_EQ(range(5, 6)->GetBold(), -1);
    EXPECT_EQ(document->GetBookmarks()->Item(Word::text(L"first"))->GetRange()->GetStart(), 0);
    EXPECT_TRUE(word.model(document)->mainStory()->paragraph(2).format->row->cells[0].top.isVisible);
    table->GetRows()->SetHeight(30, Word::wdRowHeightExactly);
    EXPECT_FLOAT_EQ(table->GetRows()->Item(2)->GetHeight(), 30);
    EXPECT_EQ(table->GetRows()->Item(2)->GetRange()->GetStart(), 5);
}

TEST_F(ConvertToTable, SeparatorsAreNumbersOrCharacters)
{
    write(L"a\tb\n")->ConvertToTable(Word::integer(1));
    EXPECT_EQ(text(), u"a\ab\a\a\r");
    document->Range()->Delete();
    write(L"a,b\n")->ConvertToTable(Word::integer(2));
    EXPECT_EQ(text(), u"a\ab\a\a\r");
    document->Range()->Delete();
    write(L"a|b\n")->ConvertToTable(Word::text(L"|"));
    EXPECT_EQ(text(), u"a\ab\a\a\r");
    document->Range()->Delete();
    write(L"a-b\n")->ConvertToTable();
    EXPECT_EQ(text(), u"a\ab\a\a\r");
    document->Range()->Delete();
    write(L"a-b\n")->ConvertToTable(Word::text(L"\r"), Word::missing, Word::missing, _variant_t(100.5f));
    EXPECT_EQ(text(), u"a-b\a\a\r");
    EXPECT_FLOAT_EQ(document->GetTables()->Item(1)->Cell(1, 1)->GetWidth(), 100.5f);
}

TEST_F(ConvertToTable, WorksInAHeader)
{
    const Word::RangePtr header =
        document->GetSections()->Item(1)->GetHeaders()->Item(Word::wdHeaderFooterPrimary)->GetRange();
    header->InsertAfter(L"a\nb");
    const Word::TablePtr table = header->ConvertToTable(Word::integer(0), Word::missing, Word::integer(2));
    EXPECT_EQ(header->GetText(), _bstr_t(L"a\r\ab\r\a\r\a"));
    EXPECT_EQ(header->GetStoryLength(), 6);
    EXPECT_EQ(text(), u"\r");
}

TEST_F(ConvertToTable, ColumnsCanBeAdded)
{
    const Word::TablePtr table =
        write(L"a\nb\n")->ConvertToTable(Word::integer(0), Word::missing, Word::integer(2));
    EXPECT_FLOAT_EQ(table->GetColumns()->Add()->GetWidth(), table->Cell(1, 1)->GetWidth());
    EXPECT_EQ(table->GetColumns()->GetCount(), 3);
    EXPECT_EQ(text(), u"a\ab\a\a\a\r");
}

TEST_F(ConvertToTable, RefusesWhatItCannotMake)
{
    const Word::RangePtr place = write(L"a\nb\n");
    EXPECT_THAT(comErrorOf([&] { place->ConvertToTable(Word::integer(4)); }), isHresult(wordError(4608)));
    EXPECT_THAT(comErrorOf([&] { place->ConvertToTable(Word::text(L"ab")); }), isHresult(wordError(4608)));
    EXPECT_THAT(
        comErrorOf([&] { place->ConvertToTable(Word::integer(0), Word::missing, Word::integer(64)); }),
        isHresult(wordError(4608)));
    EXPECT_THAT(comErrorOf([&] {
                    place->ConvertToTable(Word::integer(0), Word::missing, Word::missing, Word::missing,
                                          Word::integer(3));
                }),
                isHresult(E_NOTIMPL));
    EXPECT_EQ(text(), u"a\rb\r\r");
}
} // namespace
