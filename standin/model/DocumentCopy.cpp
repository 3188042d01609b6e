#include "DocumentCopy.h"

#include "Bookmarks.h"
#include "InlineShape.h"
#include "TableFormats.h"
#include "TableSpans.h"

#include <algorithm>
#include <map>

namespace standin::model {

namespace {

/// The styles of one document as those of another, which gets the ones that it lacks.
class StyleMap
{
public:
    explicit StyleMap(Styles& to) : to_(to) {}

    const Style* mapped(const Style* style)
    {
        if (!style)
            return nullptr;
        const auto known = known_.find(style);
        if (known != known_.end())
            return known->second;
        StylePtr found = to_.find(style->name());
        if (found && found->type() != style->type())
            found = style->type() == StyleType::paragraph ? to_.find(to_.normal().name()) : nullptr;
        else if (!found)
            found = copy(*style);
        return known_[style] = found.get();
    }

private:
    StylePtr copy(const Style& style)
    {
        const StylePtr made = to_.add(style.name(), style.type());
        known_[&style] = made.get(); // before its relatives, which may name it in turn
        if (const Style* base = mapped(style.base()))
            made->setBase(base);
        made->font = style.font;
        made->paragraph = style.paragraph;
        made->table = style.table;
        made->setNext(mapped(style.next()));
        return made;
    }

    Styles& to_;
    std::map<const Style*, const Style*> known_;
};

class Copier
{
public:
    Copier(const Document& from, const std::shared_ptr<Story>& to, Position at,
           const DocumentCopyOptions& options)
        : options_(options), from_(from), source_(*from.mainStory()), document_(to->document()), target_(to),
          story_(*to), start_(at), at_(at), styles_(document_.styles()), inTable_(isInTable(story_, at))
    {
    }

    /// Returns the place behind the copy.
    Position copy()
    {
        if (source_.paragraph(0).format->inTable && !inTable_ && story_.paragraphAt(at_).start != at_) {
            story_.insertPart(at_++, {&mark::paragraph, 1});
            start_ = at_;
        }
        for (std::size_t i = 0; i < source_.paragraphCount(); ++i)
            copyParagraph(source_.paragraph(i));
        story_.enterFields(start_, at_);
        copyCharacterFormats();
        copyBookmarks();
        if (options_.lastParagraph == LastParagraph::surplus)
            addEmptyParagraph();
        return at_;
    }

private:
    void copyParagraph(const Paragraph& paragraph)
    {
        const std::u16string text = source_.text(paragraph.start, paragraph.end - 1);
        story_.insertPart(at_, text);
        at_ += static_cast<Position>(text.size());
        const ParagraphEnd end = paragraph.format->end;
        if (paragraph.end == source_.length() && options_.lastParagraph == LastParagraph::dropped)
            return;
        if (end == ParagraphEnd::cell && inTable_) {
            story_.insertPart(at_++, {&mark::tab, 1});
            return;
        }
        if (end == ParagraphEnd::section && !inTable_ && story_.type() == StoryType::mainText) {
            copySection(paragraph);
        } else {
            const bool structure = (end == ParagraphEnd::cell || end == ParagraphEnd::row) && !inTable_;
            story_.insertParagraphEnd(at_, structure ? mark::cell : mark::paragraph,
                                      structure ? end : ParagraphEnd::mark);
        }
        setFormat(*paragraph.format);
        ++at_;
    }

    /// The text in front gets the section's page, headers and footers of its own document stay.
    void copySection(const Paragraph& paragraph)
    {
        const std::int32_t index = document_.sectionIndexAt(at_);
        const PageSetup kept = document_.section(index)->pageSetup;
        document_.breakSection(at_, kept.sectionStart);
        PageSetup setup = from_.section(from_.sectionIndexAt(paragraph.start))->pageSetup;
        setup.oddAndEvenPages = kept.oddAndEvenPages;
        document_.section(index)->pageSetup = setup;
    }

    void setFormat(const ParagraphFormat& source)
    {
        const std::size_t index = story_.paragraphIndexAt(at_);
        ParagraphFormat format = *story_.paragraph(index).format;
        format.style = styles_.mapped(source.style);
        format.properties = source.properties;
        format.inTable = inTable_ || source.inTable;
        format.row = inTable_ ? nullptr : mapped(source.row);
        story_.setParagraphFormat(index, format);
    }

    std::shared_ptr<const RowFormat> mapped(const std::shared_ptr<const RowFormat>& row)
    {
        if (!row || !row->style)
            return row;
        RowFormat made = *row;
        made.style = styles_.mapped(row->style);
        return std::make_shared<const RowFormat>(made);
    }

    void addEmptyParagraph()
    {
        const ParagraphFormat format = *story_.paragraphAt(at_ - 1).format;
        const CharacterFormat characters = *story_.runAt(at_ - 1).format;
        story_.insertParagraphEnd(at_, mark::paragraph, ParagraphEnd::mark);
        story_.setParagraphFormat(story_.paragraphIndexAt(at_), format);
        story_.setCharacterFormat(at_, at_ + 1, characters);
        ++at_;
    }

    void copyCharacterFormats()
    {
        for (Position at = 0; at < at_ - start_;) {
            const CharacterRun run = source_.runAt(at);
            Position past = std::min(run.end, at_ - start_);
            CharacterFormat format = mapped(*run.format);
            if (options_.creepingFont) {
                past = std::min(past, source_.paragraphAt(at).end);
                creep(format.font, source_.effectiveFont(at));
            }
            story_.setCharacterFormat(start_ + at, start_ + past, format);
            at = past;
        }
    }

    void creep(FontProperties& direct, const FontProperties& seen) const
    {
        if (seen.name == options_.creepingFont->name)
            direct.name = seen.name;
        if (seen.size == options_.creepingFont->size)
            direct.size = seen.size;
    }

    CharacterFormat mapped(CharacterFormat format)
    {
        format.style = styles_.mapped(format.style);
        if (format.shape)
            format.shape = std::make_shared<InlineShape>(*format.shape);
        return format;
    }

    void copyBookmarks()
    {
        for (const BookmarkPtr& bookmark : from_.bookmarks().all()) {
            const bool isFree = !document_.bookmarks().find(bookmark->name());
            if (&bookmark->range().story() == &source_ && (isFree || options_.movesBookmarks)) {
                const LiveRange& place = bookmark->range();
                document_.bookmarks().add(
                    bookmark->name(), {target_, start_ + place.start(), std::min(start_ + place.end(), at_)});
            }
        }
    }

    const DocumentCopyOptions& options_;
    const Document& from_;
    const Story& source_;
    Document& document_;
    std::shared_ptr<Story> target_;
    Story& story_;
    Position start_;
    Position at_;
    StyleMap styles_;
    bool inTable_; ///< tables are not put into tables
};

} // namespace

void insertDocument(LiveRange& range, const Document& other, const DocumentCopyOptions& options)
{
    if (!range.isCollapsed())
        range.remove();
    const Position start = std::min(range.start(), range.story().length() - 1);
    const Position past = Copier(other, range.storyPtr(), start, options).copy();
    range.setRange(options.range == InsertedRange::behind ? past : start,
                   options.range == InsertedRange::inFront ? start : past);
}

} // namespace standin::model
