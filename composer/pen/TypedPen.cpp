#include "TypedPen.h"

#include "ClientNumbers.h"
#include "FieldCode.h"
#include "FollowingOperations.h"
#include "FragmentFile.h"
#include "StyleBook.h"
#include "TagsInFront.h"
#include "WideText.h"
#include "WordConstants.h"

#include <algorithm>
#include <utility>

namespace compose {

namespace {

constexpr int triesOfAnOperation = 2;
constexpr bool noMergeFormat = false;

} // namespace

TypedPen::TypedPen(const Word::_DocumentPtr& document, RangeInStory ranges, const Word::RangePtr& story,
                   StoryEnd& end, Collections& collections)
    : document_(document), ranges_(std::move(ranges)), range_(story), end_(end), collections_(collections),
      files_(story, collections)
{
}

void TypedPen::carryOut(Plan& plan)
{
    lastFailed_.reset();
    while (!plan.passages.empty()) {
        Passage& passage = plan.passages.front();
        operations_ = &passage.operations;
        if (!isBegun_)
            beginPassage(passage);
        while (!passage.operations.empty()) {
            hasActed_ = false;
            try {
                performNext();
            } catch (...) {
                failed();
                throw;
            }
            passage.operations.pop_front();
            failures_ = 0;
            isDoubtful_ = false;
            isFirst_ = false;
        }
        plan.passages.pop_front();
        isBegun_ = false;
    }
}

/// The operation in hand changes the story's length from here on, and may move the range.
void TypedPen::mutate()
{
    hasActed_ = true;
    selected_.reset();
    end_.forget();
}

void TypedPen::performNext()
{
    // The operation may put another one in front of the rest.
    const Operation operation = operations_->front();
    trustsSelection_ = true;
    std::visit([this](const auto& each) { perform(each); }, operation);
    trustsSelection_ = false;
}

void TypedPen::beginPassage(Passage& passage)
{
    selected_.reset();
    try {
        base_ = passage.drafted ? beginDraft(*passage.drafted) : begin(passage.cell);
    } catch (...) {
        if (!passage.operations.empty())
            lastFailed_ = passage.operations.front();
        if (passage.cell && ++failures_ == triesOfAnOperation) {
            failures_ = 0;
            giveUpCell(passage);
        }
        throw;
    }
    failures_ = 0;
    draft_.reset();
    place_ = passage.cell;
    isFirst_ = true;
    isBegun_ = true;
}

// There is no such cell, because the table could not be made: its text stands behind what there is.
void TypedPen::giveUpCell(Passage& passage)
{
    passage.cell.reset();
    std::erase_if(passage.operations,
                  [](const Operation& each) { return !std::holds_alternative<WriteText>(each); });
}

/// The operation in hand has failed.
void TypedPen::failed()
{
    trustsSelection_ = false;
    selected_.reset();
    const Operation& operation = operations_->front();
    lastFailed_ = operation;
    isDoubtful_ = isDoubtful_ || hasActed_;
    const bool canTell = std::holds_alternative<WriteText>(operation) ||
                         std::holds_alternative<MakeTable>(operation) ||
                         std::holds_alternative<ExtendTable>(operation);
    if (++failures_ < triesOfAnOperation && (canTell || !isDoubtful_))
        return;
    failures_ = 0;
    isDoubtful_ = false;
    if (std::holds_alternative<WriteText>(operation)) {
        operations_->clear(); // they are about that text
        return;
    }
    if (std::holds_alternative<AddField>(operation) || std::holds_alternative<AddEntry>(operation))
        releaseTags(*operations_);
    if (const auto* const picture = std::get_if<AddPicture>(&operation))
        closeGap(*operations_, picture->at - 1);
    operations_->pop_front();
}

/// Where text at the end of the story, or of the cell, begins.
long TypedPen::begin(const Place& place)
{
    if (!place)
        return end_.ask();
    return table_->Cell(static_cast<long>(place->row) + 1, static_cast<long>(place->column) + 1)
               ->GetRange()
               ->GetEnd() -
           1;
}

/// Where the draft does.
long TypedPen::beginDraft(Position length)
{
    const long end = begin({});
    if (!draft_)
        draft_ = end;
    if (const long known = *draft_ + length; known < end) {
        range_->SetRange(known, end);
        end_.forget();
        range_->Delete();
    }
    return *draft_;
}

void TypedPen::select(Span span)
{
    const Span absolute{base_ + span.start, base_ + span.end};
    if (trustsSelection_ && selected_ == absolute)
        return;
    selected_.reset();
    range_->SetRange(absolute.start, absolute.end);
    selected_ = absolute;
}

/// Whether the text is there although writing it failed. That of a passage is the first thing in it; any
/// other is a further paragraph at the end of a cell.
bool TypedPen::isWritten(const WriteText& text)
{
    if (isFirst_)
        return begin(place_) != base_ + text.at;
    select({text.at, text.at + 1});
    const _bstr_t found = range_->GetText();
    return found.length() == 1 && static_cast<const wchar_t*>(found)[0] == L'\r';
}

void TypedPen::perform(const WriteText& text)
{
    if (isDoubtful_ && isWritten(text))
        return;
    const _bstr_t characters = bstr(text.text);
    select({text.at, text.at});
    mutate();
    range_->InsertAfter(characters); // and grows over them
    const long start = base_ + text.at;
    const long past = start + static_cast<long>(characters.length());
    selected_ = Span{static_cast<Position>(start), static_cast<Position>(past)};
    if (isFirst_ && !place_)
        end_.know(past);
}

void TypedPen::perform(const ClearFont& clear)
{
    select(clear.span);
    range_->GetFont()->Reset();
}

void TypedPen::perform(const PutStyle& style)
{
    select(style.span);
    range_->PutStyle(StyleBook::argumentOf(style.style));
}

void TypedPen::perform(const PutAlignment& alignment)
{
    select(alignment.span);
    const Word::_ParagraphFormatPtr format = range_->GetParagraphFormat();
    if (alignment.alignment)
        format->PutAlignment(*alignment.alignment);
    else
        format->Reset();
}

// The range has the properties that are said most often itself.
void TypedPen::perform(const PutFont& font)
{
    select(font.span);
    const FontChange& change = font.change;
    if (change.isBold)
        range_->PutBold(*change.isBold ? 1 : 0);
    if (change.isItalic)
        range_->PutItalic(*change.isItalic ? 1 : 0);
    if (change.isUnderlined)
        range_->PutUnderline(*change.isUnderlined ? Word::wdUnderlineSingle : Word::wdUnderlineNone);
    if (!change.name && !change.size && !change.isStruck)
        return;
    const Word::_FontPtr target = range_->GetFont();
    if (change.name)
        target->PutName(bstr(*change.name));
    if (change.size)
        target->PutSize(*change.size);
    if (change.isStruck)
        target->PutStrikeThrough(*change.isStruck ? 1 : 0);
}

void TypedPen::perform(const MakeTable& table)
{
    select(table.span);
    Word::TablePtr made;
    if (isDoubtful_)
        if (const Word::TablesPtr tables = range_->GetTables(); tables->GetCount() > 0)
            made = tables->Item(1);
    mutate();
    if (!made)
        made = convert(table);
    if (table.isLast)
        table_ = made;
    // The range has become the table's. In front of the heights, which are direct formatting.
    if (!table.style.empty())
        range_->PutStyle(StyleBook::argumentOf(table.style));
    putHeights(made, table.heights, 0, table.rows);
}

// Where each of them lies is not known, because Word has read them in.
void TypedPen::perform(const StyleTables& tables)
{
    selected_.reset();
    range_->SetRange(tables.start, base_);
    const Word::TablesPtr all = range_->GetTables();
    const _variant_t style = StyleBook::argumentOf(tables.style);
    for (std::size_t i = 1; i <= tables.tables; ++i)
        all->Item(static_cast<long>(i))->GetRange()->PutStyle(style);
}

/// The range selected.
Word::TablePtr TypedPen::convert(const MakeTable& table)
{
    const _variant_t& none = Word::missing;
    const bool autoFit = false;
    return range_->ConvertToTable(
        Word::integer(Word::wdSeparateByParagraphs), Word::integer(static_cast<long>(table.rows)),
        Word::integer(static_cast<long>(table.columns)), none, none, none, none, none, none, none, none, none,
        none, autoFit, Word::integer(Word::wdAutoFitFixed), Word::integer(Word::wdWord8TableBehavior));
}

// New rows look like the one above them, and are to look like none.
void TypedPen::perform(const ExtendTable& table)
{
    mutate();
    if (table.columns > table.columnsBefore) {
        const Word::ColumnsPtr columns = table_->GetColumns();
        for (long count = columns->GetCount(); count < static_cast<long>(table.columns); ++count)
            columns->Add();
    }
    if (table.rows > table.rowsBefore) {
        const Word::RowsPtr rows = table_->GetRows();
        const std::size_t there = isDoubtful_ ? static_cast<std::size_t>(rows->GetCount()) : table.rowsBefore;
        for (std::size_t row = there; row < table.rows; ++row) {
            const Word::RangePtr added = rows->Add()->GetRange();
            added->PutStyle(StyleBook::argumentOf(u"Normal"));
            added->GetParagraphFormat()->Reset();
            added->GetFont()->Reset();
        }
    }
    putHeights(table_, table.heights, table.rowsBefore - 1, table.rows);
}

void TypedPen::putHeights(const Word::TablePtr& table, const std::vector<int>& heights, std::size_t firstRow,
                          std::size_t rows)
{
    const auto isSaid = [](int height) { return height != 0; };
    if (std::ranges::none_of(heights, isSaid))
        return;
    const auto points = [](int height) { return static_cast<float>(height); };
    const Word::RowsPtr all = table->GetRows();
    const bool isSame = std::ranges::count(heights, heights.front()) == std::ssize(heights);
    if (isSame && heights.size() == rows) {
        all->SetHeight(points(heights.front()), Word::wdRowHeightExactly);
        return;
    }
    for (std::size_t i = 0; i < heights.size(); ++i)
        if (isSaid(heights[i]))
            all->Item(static_cast<long>(firstRow + i) + 1)
                ->SetHeight(points(heights[i]), Word::wdRowHeightExactly);
}

void TypedPen::perform(const AddField& field)
{
    if (field.replacesCharacter) {
        const AddField behind{field.at + 1, field.number};
        const RemoveText character{{field.at, field.at + 1}};
        operations_->front() = behind;
        operations_->insert(operations_->begin() + 1, character);
        return perform(behind);
    }
    select({field.at, field.at});
    const Word::FieldsPtr& fields = collections_.fields();
    mutate();
    const Word::FieldPtr added = fields->Add(
        range_, Word::integerOrEmpty(clientNumbers::wordField(field.number)), Word::missing, noMergeFormat);
    if (hasTagBehindField(*operations_))
        pastField_ = added->GetResult()->GetEnd() + 1;
}

void TypedPen::perform(const AddEntry& entry)
{
    const _bstr_t code = bstr(entryArguments({entry.text, entry.level}));
    select({entry.at, entry.at});
    const Word::FieldsPtr& fields = collections_.fields();
    mutate();
    const Word::FieldPtr added =
        fields->Add(range_, Word::integer(Word::wdFieldTOCEntry), code, noMergeFormat);
    if (hasTagBehindField(*operations_))
        pastField_ = added->GetCode()->GetEnd() + 1;
}

void TypedPen::perform(const AddLink& link)
{
    const Word::HyperlinksPtr& links = collections_.hyperlinks();
    const _bstr_t address = bstr(link.target.address);
    const _bstr_t bookmark = bstr(link.target.bookmark);
    select(link.span);
    mutate();
    links->Add(range_, address, bookmark);
}

void TypedPen::perform(const PlaceTag& tag)
{
    const Word::BookmarksPtr& bookmarks = collections_.bookmarks();
    const auto pastField = static_cast<Position>(pastField_ - base_);
    const Position at = tag.isBehindField ? pastField : tag.at;
    select({at, at});
    const _bstr_t name = bstr(tag.bookmark);
    const bool mayBeginTable = at == 0 && place_ == Passage::Cell{};
    if (!mayBeginTable) {
        bookmarks->Add(name, Word::object(range_));
        return;
    }
    selected_.reset();
    putTagInFront(bookmarks, range_, name, base_ + at);
}

// The section's end comes first, so that a tag behind the paragraph's end stays behind it.
void TypedPen::perform(const BreakSection& section)
{
    select({section.at, section.at});
    mutate();
    range_->InsertBreak(Word::integer(Word::wdSectionBreakNextPage));
    operations_->insert(operations_->begin() + 1, RemoveText{{section.at + 1, section.at + 2}});
}

void TypedPen::perform(const RemoveText& removal)
{
    select(removal.span);
    mutate();
    range_->Delete();
    pastField_ -= removal.span.end - removal.span.start;
}

void TypedPen::perform(const AddPicture& picture)
{
    const FragmentFile file(picture.picture->file, wide(picture.picture->extension()));
    const Word::InlineShapesPtr& shapes = collections_.inlineShapes();
    const _bstr_t path(file.path().c_str());
    select({picture.at, picture.at});
    mutate();
    addTo(shapes, path);
}

void TypedPen::perform(const KeepBreak& pageBreak)
{
    lastBreak_ = nullptr; // Should this fail, no earlier one is to end a section.
    lastBreak_ = ranges_(base_ + pageBreak.at, base_ + pageBreak.at + 1);
}

void TypedPen::perform(const KeepContents& contents)
{
    contents_ = ranges_(base_ + contents.at, base_ + contents.at);
}

void TypedPen::breakSection(bool isBehindHidden)
{
    if (!lastBreak_)
        return;
    const long at = lastBreak_->GetEnd() - 1; // What was put right in front of it is in the range as well.
    range_->SetRange(at, at);
    end_.forget();
    range_->InsertBreak(Word::integer(Word::wdSectionBreakNextPage));
    range_->SetRange(at + 1, at + 2);
    range_->Delete();
    lastBreak_ = nullptr;
    if (!isBehindHidden)
        return;
    range_->SetRange(at, at + 1);
    range_->GetFont()->Reset();
}

void TypedPen::goOnWithDraft(Position length, const std::u16string& text)
{
    base_ = beginDraft(length);
    if (text.empty())
        return;
    const _bstr_t characters = bstr(text);
    select({length, length});
    end_.forget();
    range_->InsertAfter(characters);
    end_.know(base_ + length + static_cast<long>(characters.length()));
}

void TypedPen::addPictureToDraft(Position length, const std::u16string& file)
{
    select({length, length});
    insertPicture(file);
    end_.know(base_ + length + 1);
}

void TypedPen::addPicture(const Place& place, const std::u16string& file, bool isBehindHidden)
{
    base_ = begin(place);
    select({0, 0});
    insertPicture(file);
    if (isBehindHidden) {
        select({0, 1});
        range_->GetFont()->Reset();
    }
    if (!place)
        end_.know(base_ + 1);
}

void TypedPen::linkPicture(const LinkTarget& target)
{
    perform(AddLink{{0, 1}, target});
}

void TypedPen::insertPicture(const std::u16string& file)
{
    end_.forget();
    addTo(collections_.inlineShapes(), bstr(file));
}

/// The picture in a file, at the range.
void TypedPen::addTo(const Word::InlineShapesPtr& shapes, const _bstr_t& file)
{
    const bool isLinked = false;
    const bool isSaved = true;
    shapes->AddPicture(file, isLinked, isSaved, Word::object(range_));
}

void TypedPen::addObject(const Place& place, const EmbeddedObject& object, bool isBehindHidden)
{
    constexpr long defaultIcon = 1;
    base_ = begin(place);
    select({0, 0});
    const bool isIcon = true;
    end_.forget();
    const _variant_t classType = object.isLinked ? Word::missing : _variant_t(bstr(object.classType));
    collections_.inlineShapes()->AddOLEObject(classType, bstr(object.file), object.isLinked, isIcon,
                                              bstr(object.iconProgram), Word::integer(defaultIcon),
                                              bstr(object.label), Word::object(range_));
    if (!isBehindHidden)
        return;
    range_->SetRange(base_, begin(place));
    range_->GetFont()->Reset();
}

bool TypedPen::addFile(const Place& place, const std::u16string& file, const Ground& ground,
                       const std::vector<std::u16string>& tags)
{
    base_ = begin(place);
    end_.forget();
    const auto end = [&] {
        const long behind = begin(place);
        end_.forget();
        return behind;
    };
    return files_.insert(file, {base_, ground, tags}, end);
}

void TypedPen::makeContents(int level)
{
    constexpr short deepestLevel = 9;
    constexpr short upperLevel = 1;
    const bool useHeadingStyles = level > 0;
    const auto lowerLevel = static_cast<short>(level > 0 ? std::min<int>(level, deepestLevel) : deepestLevel);
    const bool useFields = true;
    const bool rightAlignPageNumbers = true;
    const bool includePageNumbers = true;
    const Word::RangePtr place = std::exchange(contents_, nullptr);
    end_.forget();
    const Word::TableOfContentsPtr table =
        document_->GetTablesOfContents()->Add(place, useHeadingStyles, upperLevel, lowerLevel, useFields,
                                              Word::missing, rightAlignPageNumbers, includePageNumbers, L"");
    table->PutTabLeader(Word::wdTabLeaderDots);
}

void TypedPen::removeLinks(const std::set<std::u16string>& bookmarks)
{
    range_->WholeStory();
    end_.forget();
    const Word::HyperlinksPtr links = range_->GetHyperlinks();
    for (long i = links->GetCount(); i > 0; --i) {
        const Word::HyperlinkPtr link = links->Item(Word::integer(i));
        if (bookmarks.contains(portable(link->GetSubAddress())))
            link->Delete();
    }
}

void TypedPen::removeTag(const std::u16string& bookmark)
{
    const _bstr_t name = bstr(bookmark);
    const Word::BookmarksPtr& bookmarks = collections_.bookmarks();
    if (bookmarks->Exists(name))
        bookmarks->Item(Word::text(name))->Delete();
}

bool TypedPen::empty()
{
    if (end_.ask() == 0)
        return true;
    range_->WholeStory();
    end_.forget();
    range_->Delete();
    return false;
}

void TypedPen::clear()
{
    end_.forget();
    range_->Delete();
    range_->GetParagraphFormat()->Reset();
    range_->GetFont()->Reset();
}

} // namespace compose
