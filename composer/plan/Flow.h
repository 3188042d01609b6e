#pragma once

#include "Operation.h"
#include "Plan.h"

#include <deque>
#include <map>
#include <vector>

namespace compose {

/// Paragraphs and tables that are written one behind the other, in one go: where each of them comes to stand,
/// and the operations that bring it there.
class Flow
{
public:
    /// What it stands in. A cell's last paragraph is formatted even where it holds nothing.
    enum class Within
    {
        story,
        cell
    };

    /// `origin`: where it begins, counted from where its passage does.
    Flow(const Source& source, StyleSheet& styles, const Ground& ground, Within within, Position origin = 0);

    /// The paragraph that is added last stands in what was the story's, or the cell's, last paragraph, unless
    /// it is closed.
    /// @{
    void add(const Paragraph& paragraph);
    void add(const Table& table);
    void close() { endParagraph(); }
    /// @}

    /// `drafted`: so much of its text is there already.
    void plan(std::deque<Operation>& operations, Position drafted = 0);
    /// A character of it stands for each picture, be it there or yet to be added.
    [[nodiscard]] const std::u16string& text() const { return text_; }
    [[nodiscard]] Ground groundBehind();

private:
    /// A paragraph at its place.
    struct Line
    {
        const Paragraph* paragraph;
        Position start;             ///< In a table: as long as the table is text.
        Position end;               ///< in front of its paragraph end
        Position shift = 0;         ///< how much further it stands when its table is made
        bool isLast = false;        ///< It ends with a paragraph end that was there before.
        bool isFilledLater = false; ///< Something will take over the look of its end, should it hold no text.
        std::vector<bool> placeholders = {}; ///< for each item; empty: none has one

        [[nodiscard]] Position past() const { return end + 1; }
    };
    struct MadeTable
    {
        const Table* table;
        std::size_t firstLine;
        std::size_t pastLine;
    };

    Line& layOut(const Paragraph& paragraph, Position shift = 0);
    void endParagraph();
    [[nodiscard]] bool hasOnlyPlainFields(const Paragraph& paragraph);
    [[nodiscard]] FontChange changeOfItem(const Item& item, const Paragraph& paragraph);
    [[nodiscard]] bool isFormatted(const Line& line) const;
    [[nodiscard]] bool isPlainAtEnd(const Paragraph& paragraph, bool isPlainBefore);
    [[nodiscard]] static Position lengthOf(const Line& line, std::size_t item);
    [[nodiscard]] LinkNumber linkBefore(std::size_t line) const;

    void format(std::deque<Operation>& operations);
    void putStyles(std::deque<Operation>& operations);
    void putAlignments(std::deque<Operation>& operations);
    [[nodiscard]] bool freesOfAlignment();
    [[nodiscard]] std::vector<PutAlignment> alignmentsBeside(bool frees);
    void putFonts(std::deque<Operation>& operations);
    void findLinkEnds();
    void lengthen(std::deque<Operation>& operations);
    void makeTable(const MadeTable& made, std::deque<Operation>& operations);
    void fillCell(const Cell& cell, const Line& firstLine, std::deque<Operation>& operations);
    void lengthenLine(std::size_t index, std::deque<Operation>& operations, bool isBehindTable = false);
    void addLink(LinkNumber link, Position start, std::deque<Operation>& operations);

    const Source& source_;
    StyleSheet& styles_;
    Ground ground_;
    Within within_;
    Position origin_;
    std::u16string text_;
    std::vector<Line> lines_;
    bool isParagraphOpen_ = false;
    std::vector<MadeTable> tables_;
    std::map<LinkNumber, Position> linkEnds_;
    std::vector<PlaceTag> tagsBehindTable_; ///< right behind the table that is made next
    LinkNumber linkBefore_ = noLink;        ///< of the paragraph end in front
    /// What was asked for last.
    /// @{
    FontWishPtr lastWish_;
    std::u16string lastStyle_;
    FontChange lastChange_;
    /// @}
};

} // namespace compose
