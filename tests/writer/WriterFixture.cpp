#include "WriterFixture.h"

#include "Section.h"
#include "Story.h"
#include "WordConstants.h"

#include <objbase.h>

#include <memory>
#include <utility>

namespace model = standin::model;

FontData FontLook::data() const
{
    FontData font;
    font.name = name;
    font.size = static_cast<std::int16_t>(size);
    font.bold = bold;
    font.italic = italic;
    font.underline = underline;
    font.strikeThrough = strikeThrough;
    return font;
}

Calls styleFontRead(const std::string& argument, int styleNumber, int fontNumber, const FontLook& font)
{
    const std::string style = "Style@" + std::to_string(styleNumber);
    const std::string object = "Font@" + std::to_string(fontNumber);
    const auto flag = [](bool set) { return set ? "-1" : "0"; };
    return {"Styles@1.Item(" + argument + ") -> " + style,
            style + ".Font -> " + object,
            object + ".Name -> \"" + font.name + '"',
            object + ".Size -> " + std::to_string(font.size) + 'f',
            object + ".Bold -> " + flag(font.bold),
            object + ".Italic -> " + flag(font.italic),
            object + ".Underline -> " + (font.underline ? "1" : "0"),
            object + ".StrikeThrough -> " + flag(font.strikeThrough)};
}

Calls fontWritten(const std::string& range, int fontNumber, const FontLook& font)
{
    const std::string object = "Font@" + std::to_string(fontNumber);
    const auto flag = [](bool set) { return set ? "1" : "0"; };
    Calls calls = {range + ".Font -> " + object, object + ".Name = \"" + font.name + '"'};
    if (font.size != 0)
        calls.push_back(object + ".Size = " + std::to_string(font.size) + 'f');
    calls.push_back(object + ".Bold = " + flag(font.bold));
    calls.push_back(object + ".Italic = " + flag(font.italic));
    calls.push_back(object + ".Underline = " + flag(font.underline));
    calls.push_back(object + ".StrikeThrough = " + flag(font.strikeThrough));
    return calls;
}

Calls rangeLaid(std::int32_t start, std::int32_t end)
{
    return {"Range@1.Start = " + std::to_string(start), "Range@1.End = " + std::to_string(end)};
}

Calls styleRunApplied(std::int32_t start, std::int32_t end, const std::string& style, int fontNumber,
                      const FontLook& font)
{
    return join(rangeLaid(start, end), Calls{"Range@1.Style = " + style}, rangeLaid(start, end),
                fontWritten("Range@1", fontNumber, font));
}

bool operator==(const FontData& a, const FontData& b)
{
    return !(a != b);
}

std::ostream& operator<<(std::ostream& out, const FontData& font)
{
    return out << '"' << font.name.data() << "\" " << font.size << (font.bold ? " bold" : "")
               << (font.italic ? " italic" : "") << (font.underline ? " underlined" : "")
               << (font.strikeThrough ? " struck through" : "");
}

void endWriter(MirovelSection* writer)
{
    const std::unique_ptr<MirovelSection> ended(writer);
    if (ended)
        ended->finish();
}

Apartment::Apartment()
{
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        throw _com_error(E_FAIL);
}

Apartment::~Apartment()
{
    CoUninitialize();
}

DocumentTest::DocumentTest()
    : application_(session_.application()), document_(application_->GetDocuments()->Add()),
      range_(document_->Range())
{
    session_.clearTranscript();
    MirovelSection::clearCache(); // kept by the process, so by the tests before
}

void DocumentTest::TearDown()
{
    range_ = nullptr;
    document_ = nullptr;
    application_ = nullptr;
    EXPECT_EQ(session_.liveObjects(), 0);
}

Calls DocumentTest::takeCalls()
{
    Calls calls = session_.transcript();
    session_.clearTranscript();
    return calls;
}

model::Document& DocumentTest::model() const
{
    return *session_.model(document_);
}

std::u16string DocumentTest::text() const
{
    const model::Story& story = *model().mainStory();
    return story.text(0, story.length() - 1);
}

std::u16string DocumentTest::styleAt(std::int32_t position) const
{
    return model().mainStory()->paragraphAt(position).format->style->name();
}

model::FontProperties DocumentTest::fontAt(std::int32_t position) const
{
    return model().mainStory()->effectiveFont(position);
}

model::Alignment DocumentTest::alignmentAt(std::int32_t position) const
{
    const model::Paragraph paragraph = model().mainStory()->paragraphAt(position);
    return paragraph.format->properties.alignment.value_or(model::Alignment::left);
}

void DocumentTest::addStyle(const char16_t* name, const model::FontProperties& font)
{
    model().styles().add(name, model::StyleType::paragraph)->font = font;
}

std::vector<model::Table> DocumentTest::tables() const
{
    const std::shared_ptr<model::Story> story = model().mainStory();
    return model::tablesOf(model::LiveRange(story, 0, story->length()));
}

std::u16string DocumentTest::cellTexts() const
{
    const std::vector<model::Table> all = tables();
    if (all.size() != 1)
        return u"(not one table)";
    std::u16string texts;
    for (const model::TableRow& row : all.front().rows()) {
        texts += texts.empty() ? u"" : u"/";
        for (const model::TableCell& cell : row.cells()) {
            const model::LiveRange range = cell.range();
            texts += cell.index() == 1 ? u"" : u"|";
            texts += range.story().text(range.start(), range.end() - 1);
        }
    }
    return texts;
}

Word::RangePtr DocumentTest::headerRange()
{
    Calls before = takeCalls();
    EXPECT_EQ(before, Calls{}) << "calls that the test has not looked at";
    const Word::HeadersFootersPtr headers = document_->GetSections()->Item(1)->GetHeaders();
    Word::RangePtr range = headers->Item(Word::wdHeaderFooterPrimary)->GetRange();
    session_.clearTranscript();
    return range;
}

void WriterTest::SetUp()
{
    writer_ = new MirovelSection(application_, document_, range_);
    session_.clearTranscript();
}

void WriterTest::TearDown()
{
    session_.clearFaults();
    finish();
    DocumentTest::TearDown();
}

Calls WriterTest::finish()
{
    session_.clearTranscript();
    endWriter(std::exchange(writer_, nullptr));
    return takeCalls();
}

void WriterTest::openCell(const Word::RangePtr& cell)
{
    data().cellRange = cell;
    data().tableIndex = data().pos;
}

void WriterTest::closeCell()
{
    data().cellRange = nullptr;
    data().tableIndex = -1;
    data().fontRuns.clear();
}

void ClientWriterTest::SetUp()
{
    WriterTest::SetUp();
    writer().deleteRange();
    takeCalls();
}
