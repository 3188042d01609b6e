#pragma once

#include "Plan.h"
#include "SampleStyles.h"
#include "StoryReading.h"

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

/// What a plan must never ask for.
class BadOperation : public std::logic_error
{
public:
    using std::logic_error::logic_error;
};

/// A story as Word keeps it, in its plainest form: a row of characters, each with the formatting of its own,
/// of which those that end a paragraph carry the paragraph's. Carries plans out to the letter.
class ModelStory
{
public:
    /// Where it is not certain how Word behaves.
    struct Readings
    {
        /// A paragraph style leaves the alignment that a paragraph has of its own.
        bool styleKeepsAlignment = true;
        /// Text in front of a paragraph's first character looks like that one; otherwise like what ends the
        /// paragraph before.
        bool beginningLooksLikeNext = true;
        /// A bookmark right behind text that becomes a table stays behind the table.
        bool bookmarkStaysBehindTable = true;
    };

    /// Nothing but an empty paragraph.
    ModelStory(SampleStyles& styles, Readings readings, const std::u16string& style);

    void carryOut(const compose::Plan& plan);

    /// \name What is done beside plans
    /// @{
    /// Writes text of a table that is made later.
    void goOnWithDraft(compose::Position length, const std::u16string& text);
    void addPicture(const std::optional<compose::Passage::Cell>& cell);
    void breakSection();
    void dropContents() { contents_.reset(); }
    void makeContents();
    /// @}

    /// Raises BadOperation where formatting of a character's own says what the style says already.
    [[nodiscard]] StoryReading read() const;
    [[nodiscard]] std::size_t length() const { return characters_.size(); }

private:
    enum class Kind
    {
        character,
        pageBreak,
        picture,
        contents,
        paragraphEnd,
        sectionEnd,
        cellEnd,
        rowEnd,
        fieldBegin,
        fieldSeparator,
        fieldEnd
    };
    struct Character
    {
        Kind kind = Kind::character;
        char16_t unit = 0;
        compose::FontChange font = {};
        std::u16string style = {};         ///< of the paragraph that ends here
        std::optional<int> alignment = {}; ///< of its own, of the paragraph that ends here
        std::size_t table = 0;             ///< of what ends a cell or a row; from 1
        int height = 0;                    ///< of the row that ends here
        std::size_t field = 0;             ///< of what marks a field
    };
    struct Field
    {
        std::string text; ///< as it is read; empty: a link
        std::string target;
    };
    using At = std::size_t;

    template <class Range>
    void insert(At at, const Range& characters);
    void erase(At start, At end);
    void insertText(At at, const std::u16string& text);
    void addField(At at, Field field, bool hasResult);

    [[nodiscard]] bool endsParagraph(At at) const { return isEnd(characters_[at].kind); }
    [[nodiscard]] static bool isEnd(Kind kind);
    [[nodiscard]] bool beginsParagraph(At at) const { return at == 0 || endsParagraph(at - 1); }
    [[nodiscard]] At endOfParagraph(At at) const;
    [[nodiscard]] compose::FontChange fontForInsertion(At at) const;
    [[nodiscard]] At endOfCell(const compose::Passage::Cell& cell) const;
    [[nodiscard]] At baseOf(const std::optional<compose::Passage::Cell>& cell) const;
    At place(compose::Position at) const;
    At endDraft(compose::Position length);
    void requireWholeParagraphs(At start, At end) const;
    void putHeights(const std::vector<int>& heights, std::size_t firstRow);

    void perform(const compose::WriteText& text);
    void perform(const compose::ClearFont& clear);
    void perform(const compose::PutStyle& style);
    void perform(const compose::PutAlignment& alignment);
    void perform(const compose::PutFont& font);
    void perform(const compose::MakeTable& table);
    void perform(const compose::ExtendTable& table);
    void perform(const compose::AddField& field);
    void perform(const compose::AddEntry& entry);
    void perform(const compose::AddLink& link);
    void perform(const compose::PlaceTag& tag);
    void perform(const compose::AddPicture& picture);
    void perform(const compose::RemoveText& removal);
    void perform(const compose::BreakSection& section);
    void perform(const compose::KeepBreak& pageBreak);
    void perform(const compose::KeepContents& contents);

    struct Live
    {
        At start = 0;
        At end = 0;
    };
    template <class Move>
    void moveLive(Move move);

    SampleStyles& styles_;
    Readings readings_;
    std::vector<Character> characters_;
    std::vector<Field> fields_;
    std::map<std::u16string, At> bookmarks_;
    std::optional<Live> lastBreak_;
    std::optional<Live> contents_;
    std::size_t tables_ = 0;
    std::size_t openTable_ = 0;
    At base_ = 0;
    std::optional<At> draft_;
    At pastField_ = 0;
};
