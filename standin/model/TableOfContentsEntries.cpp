#include "TableOfContentsEntries.h"

#include "PageNumbers.h"
#include "VisibleText.h"

#include <algorithm>
#include <map>

namespace standin::model {

namespace {

constexpr std::int32_t deepestLevel = 9;

/// The leading decimal number, 0 when there is none; large ones are cut.
std::int32_t numberOf(std::u16string_view text)
{
    std::int32_t number = 0;
    for (const char16_t unit : text) {
        if (unit < u'0' || unit > u'9' || number > deepestLevel)
            break;
        number = number * 10 + (unit - u'0');
    }
    return number;
}

bool isBlank(char16_t c)
{
    return c <= u' ' || c == 0xA0;
}

/// A line holds no breaks, and its only tab is the one in front of the page number.
std::u16string asLine(std::u16string_view text)
{
    std::u16string line;
    for (const char16_t unit : text)
        if (!isBlank(unit))
            line += unit;
        else if (!line.empty() && line.back() != u' ')
            line += unit == 0xA0 ? unit : u' ';
    while (!line.empty() && isBlank(line.back()))
        line.pop_back();
    return line;
}

/// Levels by style name, folded.
std::map<std::u16string, std::int32_t> addedLevels(std::u16string_view styles)
{
    std::map<std::u16string, std::int32_t> levels;
    while (!styles.empty()) {
        const auto take = [&styles] {
            const std::size_t comma = std::min(styles.find_first_of(u",;"), styles.size());
            const std::u16string part = asLine(styles.substr(0, comma));
            styles.remove_prefix(std::min(comma + 1, styles.size()));
            return part;
        };
        const std::u16string name = take();
        const std::int32_t level = numberOf(take());
        levels[foldCase(name)] = std::clamp(level, 1, deepestLevel);
    }
    return levels;
}

class Collector
{
public:
    Collector(const Document& document, const TableOfContentsOptions& options)
        : story_(*document.mainStory()), options_(options), added_(addedLevels(options.addedStyles))
    {
    }

    std::vector<TableOfContentsEntry> collect()
    {
        addHeadings();
        if (options_.useFields)
            addFields();
        std::stable_sort(
            entries_.begin(), entries_.end(),
            [](const TableOfContentsEntry& a, const TableOfContentsEntry& b) { return a.start < b.start; });
        PageCounter pages(story_.document());
        for (TableOfContentsEntry& entry : entries_)
            entry.page = pages.pageAt(entry.start);
        return std::move(entries_);
    }

private:
    /// 0 for a style whose paragraphs are not listed.
    std::int32_t levelOf(const Style& style) const
    {
        if (const auto added = added_.find(foldCase(style.name())); added != added_.end())
            return added->second;
        const std::int32_t level = -style.builtinNumber() - 1;
        const bool listed = options_.useHeadingStyles && level >= std::max(1, options_.upperHeadingLevel) &&
                            level <= std::min(deepestLevel, options_.lowerHeadingLevel);
        return listed ? level : 0;
    }

    void addHeadings()
    {
        for (std::size_t i = 0; i < story_.paragraphCount(); ++i) {
            const Paragraph paragraph = story_.paragraph(i);
            const std::int32_t level = levelOf(*paragraph.format->style);
            if (level == 0)
                continue;
            std::u16string text = asLine(visibleText(story_, paragraph.start, paragraph.end - 1));
            if (text.empty())
                continue;
            // A break at the paragraph's start puts its text on the page behind.
            Position start = paragraph.start;
            while (start < paragraph.end - 1 && isBreak(story_.at(start)))
                ++start;
            entries_.push_back({level, std::move(text), start, paragraph.end - 1});
        }
    }

    static bool isBreak(char16_t c) { return c == mark::page || c == mark::column || c == mark::line; }

    void addFields()
    {
        for (const FieldPlace& place : story_.fields().startingIn(0, story_.length())) {
            const FieldCode code(visibleText(story_, place.codeStart(), place.codeEnd()));
            if (code.keyword() != u"TC")
                continue;
            std::u16string id = code.value(u'f').value_or(std::u16string());
            id = foldCase(id.empty() ? u"C" : id);
            std::u16string text = asLine(code.argument(0));
            if (!text.empty() && id == foldCase(options_.tableId.empty() ? u"C" : options_.tableId)) {
                const std::int32_t level = numberOf(code.value(u'l').value_or(u"1"));
                entries_.push_back(
                    {std::clamp(level, 1, deepestLevel), std::move(text), place.begin, place.past()});
            }
        }
    }

    const Story& story_;
    const TableOfContentsOptions& options_;
    std::map<std::u16string, std::int32_t> added_;
    std::vector<TableOfContentsEntry> entries_;
};

} // namespace

std::vector<TableOfContentsEntry> tableOfContentsEntries(const Document& document,
                                                         const TableOfContentsOptions& options)
{
    return Collector(document, options).collect();
}

} // namespace standin::model
