#include "SavedFormatting.h"

#include <cctype>
#include <map>
#include <optional>
#include <stdexcept>
#include <utility>

namespace standin::rtf {

namespace {

enum class Use
{
    text,
    skipped,
    fontTable,
    colorTable,
    styleSheet
};

struct Group
{
    Use use = Use::skipped;
    std::size_t story = 0;
    bool isField = false;
    bool mayBeSkipped = false; ///< after \*
    std::int32_t font = 0;
    std::int32_t color = 0;
    std::int32_t characterStyle = -1;
    std::int32_t paragraphStyle = 0;
    SavedCharacter format;
};

class SavedFormattingReader
{
public:
    explicit SavedFormattingReader(std::string_view rtf) : rtf_(rtf), stories_(1), paragraphStarts_(1) {}

    std::vector<SavedStory> read()
    {
        while (at_ < rtf_.size()) {
            const char c = rtf_[at_++];
            if (c == '{') {
                outer_.push_back(group_);
                group_.isField = false;
                group_.mayBeSkipped = false;
            } else if (c == '}') {
                close();
            } else if (c == '\\') {
                backslash();
            } else if (c != '\r' && c != '\n') {
                put(static_cast<unsigned char>(c));
            }
        }
        if (!outer_.empty())
            throw std::runtime_error("a group is open at the end");
        return std::move(stories_);
    }

private:
    void close()
    {
        if (outer_.empty())
            throw std::runtime_error("a brace closes nothing");
        if (group_.isField)
            put(21);
        group_ = std::move(outer_.back());
        outer_.pop_back();
    }

    void backslash()
    {
        if (std::isalpha(static_cast<unsigned char>(rtf_.at(at_))) == 0) {
            symbol(rtf_[at_++]);
            return;
        }
        std::string word;
        while (std::isalpha(static_cast<unsigned char>(rtf_.at(at_))) != 0)
            word += rtf_[at_++];
        std::string digits;
        while (rtf_.at(at_) == '-' || std::isdigit(static_cast<unsigned char>(rtf_.at(at_))) != 0)
            digits += rtf_[at_++];
        at_ += rtf_.at(at_) == ' ' ? 1 : 0;
        take(word, digits.empty() ? std::nullopt : std::optional(std::stoi(digits)));
    }

    void symbol(char c)
    {
        switch (c) {
        case '*':
            group_.mayBeSkipped = true;
            return;
        case '~':
            put(0xA0);
            return;
        case '_':
            put(30);
            return;
        case '-':
            put(31);
            return;
        default:
            put(static_cast<unsigned char>(c));
        }
    }

    void take(const std::string& word, std::optional<std::int32_t> number)
    {
        if (group_.use == Use::skipped && word != "rtf")
            return;
        if (!destination(word) && !table(word, number.value_or(0)) && !character(word, number.value_or(0)) &&
            !paragraph(word, number.value_or(0)))
            font(word, number);
    }

    bool destination(const std::string& word)
    {
        const bool mayBeSkipped = std::exchange(group_.mayBeSkipped, false);
        static const std::map<std::string, Use> uses = {{"rtf", Use::text},
                                                        {"fonttbl", Use::fontTable},
                                                        {"colortbl", Use::colorTable},
                                                        {"stylesheet", Use::styleSheet},
                                                        {"mvcodetext", Use::skipped}};
        if (const auto found = uses.find(word); found != uses.end()) {
            group_.use = found->second;
        } else if (word == "field") {
            group_.isField = true;
            put(19);
        } else if (word == "fldrslt") {
            put(20);
        } else if (word.starts_with("header") && word != "headery") {
            enterPart(word);
        } else if (word.starts_with("footer") && word != "footery") {
            enterPart(word);
        } else if (mayBeSkipped && word != "fldinst" && word != "mvcodefield" && word != "cs") {
            group_.use = Use::skipped;
        } else {
            return word == "fldinst" || word == "mvcodefield";
        }
        return true;
    }

    void enterPart(const std::string& word)
    {
        group_.story = stories_.size();
        stories_.push_back({word, {}});
        paragraphStarts_.push_back(0);
    }

    /// The words of the tables in front of the text.
    bool table(const std::string& word, std::int32_t number)
    {
        if (group_.use == Use::fontTable)
            group_.font = word == "f" ? number : group_.font;
        else if (group_.use == Use::colorTable)
            color_ += (color_.empty() ? "" : ",") + std::to_string(number);
        else if (group_.use == Use::styleSheet)
            group_.characterStyle = word == "s" || word == "cs" ? number : group_.characterStyle;
        else
            return false;
        return true;
    }

    bool character(const std::string& word, std::int32_t number)
    {
        static const std::map<std::string, char16_t> characters = {
            {"tab", u'\t'}, {"line", u'\v'}, {"page", u'\f'}, {"column", 14},
            {"par", u'\r'}, {"sect", u'\f'}, {"cell", 7},     {"row", 7}};
        if (word == "u") {
            put(static_cast<char16_t>(number));
            ++at_; // what stands in for the character in other readers
            return true;
        }
        const auto found = characters.find(word);
        if (found == characters.end())
            return false;
        put(found->second);
        if (word == "par" || word == "sect" || word == "cell" || word == "row")
            endParagraph();
        return true;
    }

    void endParagraph()
    {
        std::vector<SavedCharacter>& characters = stories_[group_.story].characters;
        for (std::size_t i = paragraphStarts_[group_.story]; i < characters.size(); ++i) {
            characters[i].paragraphStyle = styles_.at(group_.paragraphStyle);
            characters[i].alignment = group_.format.alignment;
        }
        paragraphStarts_[group_.story] = characters.size();
    }

    bool paragraph(const std::string& word, std::int32_t number)
    {
        if (word == "pard") {
            group_.paragraphStyle = 0;
            group_.format.alignment = "ql";
        } else if (word == "s") {
            group_.paragraphStyle = number;
        } else if (word == "ql" || word == "qc" || word == "qr" || word == "qj") {
            group_.format.alignment = word;
        } else {
            return false;
        }
        return true;
    }

    void font(const std::string& word, std::optional<std::int32_t> number)
    {
        const bool on = number != 0;
        if (word == "plain") {
            group_.format = {.alignment = group_.format.alignment};
            group_.font = 0;
            group_.color = 0;
            group_.characterStyle = -1;
        } else if (word == "f") {
            group_.font = number.value();
        } else if (word == "fs") {
            group_.format.halfPoints = number.value();
        } else if (word == "b") {
            group_.format.bold = on;
        } else if (word == "i") {
            group_.format.italic = on;
        } else if (word == "strike") {
            group_.format.strikeThrough = on;
        } else if (word == "v") {
            group_.format.hidden = on;
        } else if (word == "ulnone") {
            group_.format.underline.clear();
        } else if (word.starts_with("ul")) {
            group_.format.underline = on ? word : "";
        } else if (word == "cf") {
            group_.color = number.value();
        } else if (word == "cs") {
            group_.characterStyle = number.value();
        }
    }

    void put(char16_t unit)
    {
        switch (group_.use) {
        case Use::skipped:
            return;
        case Use::fontTable:
            addToName(fonts_[group_.font], unit);
            return;
        case Use::colorTable:
            colors_.push_back(std::exchange(color_, ""));
            return;
        case Use::styleSheet:
            // A style without a number is the first one, Normal.
            addToName(styles_[group_.characterStyle < 0 ? 0 : group_.characterStyle], unit);
            return;
        case Use::text:
            break;
        }
        SavedCharacter character = group_.format;
        character.unit = unit;
        character.fontName = fonts_.at(group_.font);
        character.color = colors_.at(static_cast<std::size_t>(group_.color));
        character.characterStyle = group_.characterStyle < 0 ? "" : styles_.at(group_.characterStyle);
        stories_[group_.story].characters.push_back(std::move(character));
    }

    static void addToName(std::string& name, char16_t unit)
    {
        if (unit != u';')
            name += static_cast<char>(unit);
    }

    std::string_view rtf_;
    std::size_t at_ = 0;
    Group group_;
    std::vector<Group> outer_;
    std::map<std::int32_t, std::string> fonts_;
    std::map<std::int32_t, std::string> styles_;
    std::vector<std::string> colors_;
    std::string color_; ///< the one that is being read
    std::vector<SavedStory> stories_;
    std::vector<std::size_t> paragraphStarts_; ///< of each story's paragraph that has no mark yet
};

} // namespace

std::vector<SavedStory> readSavedFormatting(std::string_view rtf)
{
    return SavedFormattingReader(rtf).read();
}

} // namespace standin::rtf
