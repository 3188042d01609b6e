#include "WriterFixture.h"

#include "Section.h"
#include "Story.h"
#include "WordConstants.h"

#include <objbase.h>

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

namespace model = standin::model;

void endWriter(MirovelSection* writer)
{
    const std::unique_ptr<MirovelSection> ended(writer);
    if (ended)
        ended->finish();
}

std::string firstOf(const Calls& calls)
{
    return calls.empty() ? "(none)" : calls.front();
}

std::string lastOf(const Calls& calls)
{
    return calls.empty() ? "(none)" : calls.back();
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
    : application_(word_.application()), document_(application_->GetDocuments()->Add()),
      range_(document_->Range())
{
    word_.clearTranscript();
    MirovelSection::clearCache(); // kept by the process, so by the tests before
}

void DocumentTest::TearDown()
{
    range_ = nullptr;
    document_ = nullptr;
    application_ = nullptr;
    EXPECT_EQ(word_.liveObjects(), 0);
}

Calls DocumentTest::takeCalls()
{
    Calls calls = word_.transcript();
    word_.clearTranscript();
    return calls;
}

model::Document& DocumentTest::model() const
{
    return *word_.model(document_);
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
    EXPECT_LINES(before, Calls{}) << "calls that the test has not looked at";
    const Word::HeadersFootersPtr headers = document_->GetSections()->Item(1)->GetHeaders();
    Word::RangePtr range = headers->Item(Word::wdHeaderFooterPrimary)->GetRange();
    word_.clearTranscript();
    return range;
}

void WriterTest::SetUp()
{
    writer_ = new MirovelSection(application_, document_, range_);
    writer_->deleteRange();
    word_.clearTranscript();
}

void WriterTest::TearDown()
{
    word_.clearFaults();
    finish();
    DocumentTest::TearDown();
}

Calls WriterTest::finish()
{
    word_.clearTranscript();
    endWriter(std::exchange(writer_, nullptr));
    return takeCalls();
}

std::pair<std::int32_t, std::int32_t> WriterTest::styleRunAtEnd()
{
    constexpr std::string_view from = "body.Start = ";
    constexpr std::string_view to = "body.End = ";
    const Calls calls = finish();
    const auto style = std::ranges::find_if(
        calls, [](const std::string& call) { return call.starts_with("body.Style = "); });
    if (style == calls.end() || style - calls.begin() < 2 || !style[-2].starts_with(from) ||
        !style[-1].starts_with(to)) {
        ADD_FAILURE() << "the writer's end has applied no style";
        return {-1, -1};
    }
    return {std::stoi(style[-2].substr(from.size())), std::stoi(style[-1].substr(to.size()))};
}

std::int32_t WriterTest::insertionPosition()
{
    constexpr std::string_view start = ".Start = ";
    word_.clearTranscript();
    word_.failCall(3, E_ACCESSDENIED);
    EXPECT_THAT(comErrorOf([&] { writer().insertTag("position"); }), isHresult(E_ACCESSDENIED));
    word_.clearFaults();
    const std::string placed = lastOf(takeCalls());
    const auto at = placed.find(start);
    if (at == std::string::npos) {
        ADD_FAILURE() << "the writer has not said where a tag begins";
        return -1;
    }
    return std::stoi(placed.substr(at + start.size()));
}

void WriterTest::abandon()
{
    delete std::exchange(writer_, nullptr);
}

void WriterTest::startOver()
{
    abandon();
    range_->PutStart(0);
    range_->PutEnd(model().mainStory()->length() - 1);
    if (!text().empty())
        range_->Delete();
    WriterTest::SetUp();
}

Calls WriterTest::linksAtEnd()
{
    constexpr std::string_view from = ".Start = ";
    constexpr std::string_view to = ".End = ";
    constexpr std::string_view add = "document.Hyperlinks.Add(";
    Calls links;
    std::string start;
    std::string end;
    for (const std::string& call : finish()) {
        if (const auto at = call.find(from); at != call.npos)
            start = call.substr(at + from.size());
        if (const auto at = call.find(to); at != call.npos)
            end = call.substr(at + to.size());
        if (!call.starts_with(add))
            continue;
        const auto range = call.find(", ");
        links.push_back(call.substr(add.size(), range - add.size()) + ' ' + start + '-' + end + ": " +
                        call.substr(range + 2, call.find(", missing") - range - 2));
    }
    return links;
}

void WriterTest::openCell()
{
    writer().startTable();
    writer().addRow();
    writer().addCell();
    takeCalls();
}
