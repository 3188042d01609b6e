#pragma once

#include "DocumentContent.h"
#include "SessionFiles.h"

#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace reference {

/// A link as the client asked for it: an address or a tag.
struct RequestedLink
{
    std::u16string target;
    bool begins = false;
    bool isAddress = false; ///< whatever the target looks like
};

/// Something at a place of a paragraph.
struct Item
{
    Token token = {};
    std::optional<RequestedLink> link = {};
    std::u16string tag = {};  ///< not empty: nothing but a tag
    bool isLastBreak = false; ///< the page break that becomes a section break
};

struct Paragraph
{
    std::vector<Item> items = {};
    std::u16string style = u"Normal";
    std::optional<int> alignment = {}; ///< the client's number; nothing: what the style gives
    TokenKind end = TokenKind::paragraphEnd;
    std::optional<RequestedLink> endLink = {};
    bool isFormatOpen = false;
    bool isFromFile = false;
    bool isBehindFile = false;

    [[nodiscard]] bool holdsAnything() const;
};

using Cell = std::vector<Paragraph>;
using Row = std::vector<Cell>;
using Table = std::vector<Row>;

/// What the calls of a client make of one story, be it the body, a header or a footer.
///
/// The names are those of the calls. What they mean stands in docs/interface.md; what a session of calls says
/// is taken at its word here, with nothing about how a writer brings it about.
class ReferenceStory
{
public:
    explicit ReferenceStory(std::u16string_view style);

    void insertText(std::u16string_view text, std::optional<RequestedLink> link = {});
    void insertEndl();
    void insertPageBreak();
    void insertField(int kind);
    /// `look`: as a token says it.
    void insertImage(std::u16string_view look, const std::u16string& target);
    /// What a file holds, in paragraphs of its own, which keep the file's formatting. Paragraphs around it
    /// keep theirs: one that holds anything is ended first, and what follows begins a new one in the style,
    /// font and alignment in force. Between the file and what follows there is nothing. Where nothing
    /// follows, there is an empty paragraph, since a story, or a cell, does not end with the file's own end
    /// of a paragraph; in a cell its format is any.
    /// `isEndLost`: Word does not take over how the last paragraph of rich text is, which may be in any way.
    void insertContent(const SessionFile& file, bool isEndLost = false);
    /// As a file that Word refuses: what follows begins a new paragraph all the same.
    void insertNothing();
    void insertObject(bool isLinked);
    void insertTag(const std::u16string& name);
    void removeTag(std::u16string_view name);

    void setStyle(const std::u16string& name);
    void setFontName(const std::u16string& name);
    void setFontSize(int size);
    void setFontAttribute(int attribute, bool isOn);
    void setTextAlign(int number);

    void startTable();
    void addRow();
    void addCell();
    void endTable();

    /// With that heading, in that style; without a style centred, and an empty paragraph behind it.
    void insertTOC(const std::u16string& title, const std::u16string& titleStyle);
    /// The table goes, its heading stays. True when there was one.
    bool removeContents();
    void startTOCEntry();
    void endTOCEntry();

    /// The page break written last becomes the end of a section; false when there is none since the last
    /// time.
    bool breakSection();

    /// Links as they were asked for stand beside their tokens.
    struct Flattened
    {
        StoryContent content;
        std::vector<std::optional<RequestedLink>> links; ///< one for each token
        std::map<std::u16string, std::size_t> tags;
    };
    [[nodiscard]] Flattened flatten() const;

private:
    using Block = std::variant<Paragraph, Table>;

    [[nodiscard]] bool isTableOpen() const { return isTableOpen_; }
    Table& table() { return std::get<Table>(blocks_[blocks_.size() - 2]); }
    Cell& cell() { return table().back()[cell_]; }
    Paragraph& outside() { return std::get<Paragraph>(blocks_.back()); }
    Paragraph& current() { return isTableOpen() ? cell().back() : outside(); }

    void write(Item item);
    void writeToken(TokenKind kind, const std::u16string& text, const std::u16string& target = {});
    void endParagraph(const std::optional<RequestedLink>& link = {});
    void endParagraphIfItHoldsAnything();
    void beginStyle(const std::u16string& name);
    void collect(std::u16string_view text);

    std::vector<Block> blocks_ = {Paragraph()}; ///< the last one is a paragraph

    std::u16string style_;
    bool styleIsFresh_ = false; ///< another style than Normal began, and nothing was written in it
    Font font_;
    int alignmentNumber_ = 0;
    std::optional<int> alignment_;

    bool isTableOpen_ = false;
    std::size_t rowsBegun_ = 0;
    std::size_t cellsBegun_ = 0; ///< in the current row
    std::size_t cell_ = 0;

    bool hasContents_ = false;
    bool isCollecting_ = false;
    std::u16string entry_; ///< paragraph ends are CRs
};

} // namespace reference
