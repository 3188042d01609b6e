#include "Fragment.h"

#include "FieldCode.h"
#include "FontChange.h"
#include "FragmentStyles.h"
#include "PictureText.h"
#include "RowDefinition.h"
#include "RtfBuilder.h"

#include <algorithm>
#include <cstddef>

namespace compose {

namespace {

class FragmentWriter
{
public:
    FragmentWriter(std::span<const Block> blocks, const FragmentContext& context)
        : blocks_(blocks), context_(context), styles_(context.styles)
    {
    }

    std::string write()
    {
        for (const Block& block : blocks_)
            std::visit([this](const auto& each) { note(each); }, block);
        if (context_.behind)
            note(*context_.behind);
        rtf_.open();
        rtf_.word("rtf", 1);
        rtf_.word("ansi");
        rtf_.word("ansicpg", 1252);
        rtf_.word("deff", 0);
        rtf_.word("uc", 1);
        styles_.writeTables(rtf_);
        for (std::size_t index = 0; index < blocks_.size(); ++index)
            if (const auto* table = std::get_if<Table>(&blocks_[index]))
                write(*table);
            else
                write(std::get<Paragraph>(blocks_[index]), endingOf(index),
                      context_.endsOpen && index + 1 == blocks_.size());
        if (context_.behind) {
            paragraph_ = context_.behind;
            startParagraph();
            rtf_.text({&endMark, 1});
            rtf_.word("par");
            rtf_.endLine();
        }
        rtf_.close();
        return rtf_.take();
    }

private:
    enum class Ending
    {
        mark,     ///< behind which the text goes on
        lastMark, ///< of the fragment, or in front of a table
        cell
    };

    void note(const Paragraph& paragraph)
    {
        styles_.note(paragraph);
        if (made(paragraph.endLink) != noLink)
            styles_.noteLink();
        for (const Item& item : paragraph.items)
            if (made(item.link) != noLink)
                styles_.noteLink();
    }

    void note(const Table& table)
    {
        for (const Row& row : table.rows)
            for (const Cell& cell : row)
                for (const Paragraph& paragraph : cell)
                    note(paragraph);
    }

    [[nodiscard]] Ending endingOf(std::size_t index) const
    {
        const bool goesOn =
            index + 1 < blocks_.size() && std::holds_alternative<Paragraph>(blocks_[index + 1]);
        return goesOn ? Ending::mark : Ending::lastMark;
    }

    /// The link itself, if there is to be one.
    [[nodiscard]] LinkNumber made(LinkNumber link) const
    {
        if (link == noLink)
            return noLink;
        const LinkTarget& target = context_.links.at(static_cast<std::size_t>(link));
        return !target.address.empty() || context_.isLinked(target.bookmark) ? link : noLink;
    }

    void write(const Table& table)
    {
        rtf::RowDefinition definition;
        definition.widths.assign(table.columns(), context_.tableWidth / static_cast<float>(table.columns()));
        std::string definitionText;
        for (std::size_t row = 0; row < table.rows.size(); ++row) {
            const float height = row < table.heights.size() ? static_cast<float>(table.heights[row]) : 0;
            if (definitionText.empty() || height != definition.exactHeight) {
                definition.exactHeight = height;
                definitionText = textOf(definition);
            }
            rtf_.append(definitionText);
            for (std::size_t column = 0; column < table.columns(); ++column)
                write(column < table.rows[row].size() ? table.rows[row][column] : Cell());
            rtf_.word("row");
            rtf_.endLine();
        }
        rtf_.word("pard"); // what follows is not in the table
        rtf_.word("plain");
        rtf_.endLine();
    }

    void write(const Cell& cell)
    {
        isInTable_ = true;
        if (cell.empty())
            write(Paragraph(), Ending::cell);
        for (std::size_t index = 0; index < cell.size(); ++index)
            write(cell[index], index + 1 < cell.size() ? Ending::mark : Ending::cell);
        isInTable_ = false;
    }

    void write(const Paragraph& paragraph, Ending ending, bool isMarked = false)
    {
        paragraph_ = &paragraph;
        const auto first = std::ranges::find_if(paragraph.items, shows);
        if (openLink_ != noLink &&
            openLink_ != made(first == paragraph.items.end() ? paragraph.endLink : first->link))
            closeLink();
        startParagraph();
        const std::span<const Item> items = paragraph.items;
        for (const Item& item : items.first(items.size() - (isMarked ? tagsAtEnd(paragraph).size() : 0))) {
            if (!shows(item))
                continue;
            enterLink(made(item.link));
            std::visit([&](const auto& what) { write(what, item); }, item.what);
        }
        enterLink(ending == Ending::mark ? made(paragraph.endLink) : noLink);
        endRun();
        if (isMarked)
            rtf_.text({&endMark, 1});
        rtf_.word(ending == Ending::cell ? "cell" : "par");
        rtf_.endLine();
        isLinkOfParagraph_ = false;
    }

    static bool shows(const Item& item)
    {
        const auto* text = std::get_if<Text>(&item.what);
        return !text || !text->characters.empty();
    }

    void startParagraph() { styles_.writeParagraphStart(rtf_, *paragraph_, isInTable_); }

    void write(const Text& text, const Item& item)
    {
        beginRun(styles_.changeOf(item, *paragraph_));
        rtf_.text(text.characters);
    }

    void write(const PageBreak&, const Item&)
    {
        endRun();
        rtf_.word("page");
    }

    void write(const Field& field, const Item& item)
    {
        beginRun(styles_.changeOf(item, *paragraph_));
        openField(fieldCode(field.number), true);
        rtf_.open();
        rtf_.word("fldrslt");
        rtf_.close();
        rtf_.close();
    }

    void write(const Entry& entry, const Item&)
    {
        endRun();
        rtf_.open();
        rtf_.word("v");
        openField(entryCode(entry), false);
        rtf_.close();
        rtf_.close();
    }

    void write(const Tag& tag, const Item&)
    {
        endRun();
        for (const char* border : {"bkmkstart", "bkmkend"}) {
            rtf_.openIgnorable();
            rtf_.word(border);
            rtf_.text(tag.bookmark);
            rtf_.close();
        }
    }

    void write(const Picture& picture, const Item&)
    {
        static const FontChange plain;
        beginRun(plain);
        writePicture(rtf_, *picture.kept);
    }

    /// It does not fit.
    static void write(const Contents&, const Item&) {}

    /// Leaves the field's group open for a result.
    void openField(std::u16string_view code, bool isToBeUpdated)
    {
        rtf_.open();
        rtf_.word("field");
        if (isToBeUpdated)
            rtf_.word("flddirty");
        rtf_.openIgnorable();
        rtf_.word("fldinst");
        rtf_.open();
        rtf_.text(code);
        rtf_.close();
        rtf_.close();
    }

    void beginRun(const FontChange& change)
    {
        if (run_ && (run_ == &change || *run_ == change))
            return;
        endRun();
        if (change.isEmpty() && openLink_ == noLink)
            return;
        rtf_.open();
        if (openLink_ != noLink)
            styles_.writeLinkStyle(rtf_);
        styles_.writeChange(rtf_, change);
        run_ = &change;
    }

    void endRun()
    {
        if (run_)
            rtf_.close();
        run_ = nullptr;
    }

    void enterLink(LinkNumber link)
    {
        if (link == openLink_)
            return;
        const bool cutsParagraph = openLink_ != noLink && !isLinkOfParagraph_;
        closeLink();
        if (cutsParagraph)
            startParagraph(); // what was said of it inside the link ended with the link
        if (link == noLink)
            return;
        endRun();
        openField(linkCode(context_.links[static_cast<std::size_t>(link)]), false);
        rtf_.open();
        rtf_.word("fldrslt");
        openLink_ = link;
        isLinkOfParagraph_ = true;
    }

    void closeLink()
    {
        endRun();
        if (openLink_ == noLink)
            return;
        rtf_.close();
        rtf_.close();
        openLink_ = noLink;
    }

    std::span<const Block> blocks_;
    const FragmentContext& context_;
    FragmentStyles styles_;
    rtf::RtfBuilder rtf_;
    const Paragraph* paragraph_ = nullptr;
    bool isInTable_ = false;
    const FontChange* run_ = nullptr; ///< of the group that is open for text
    LinkNumber openLink_ = noLink;
    bool isLinkOfParagraph_ = false; ///< It began in this one.
};

} // namespace

std::span<const Item> tagsAtEnd(const Paragraph& paragraph)
{
    const auto last =
        std::ranges::find_if_not(paragraph.items.rbegin(), paragraph.items.rend(),
                                 [](const Item& item) { return std::holds_alternative<Tag>(item.what); });
    return {last.base(), paragraph.items.end()};
}

std::string fragmentOf(std::span<const Block> blocks, const FragmentContext& context)
{
    return FragmentWriter(blocks, context).write();
}

} // namespace compose
