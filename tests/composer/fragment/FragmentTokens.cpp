#include "FragmentTokens.h"

#include "ContentTokens.h"
#include "TestStyles.h"

#include <cctype>
#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <utility>

namespace compose {

namespace {

[[noreturn]] void refuse(const std::string& what)
{
    throw std::runtime_error("not well-formed: " + what);
}

/// Between quotes, from `at` on; `at` lands behind them.
std::u16string argumentAt(const std::u16string& code, std::size_t& at)
{
    if (at >= code.size() || code[at] != u'"')
        refuse("an argument without quotes");
    std::u16string argument;
    for (++at; at < code.size() && code[at] != u'"'; ++at) {
        if (code[at] == u'\\' && ++at == code.size())
            break;
        argument += code[at];
    }
    if (at >= code.size())
        refuse("an argument without an end");
    ++at;
    return argument;
}

/// What `plain` resets.
struct TextState
{
    int font = 0;
    int halfPoints = 24;
    bool isBold = false;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isStruck = false;
    bool isHidden = false;
    int characterStyle = -1;
};

enum class Use
{
    text,
    nothing,
    fonts,
    styles,
    code,
    bookmarkStart,
    bookmarkEnd,
    field,
    picture
};

struct Group
{
    Use use = Use::text;
    TextState text;
    int style = 0;
    int alignment = 0;
    bool isInTable = false;
    std::string link;
    bool isIgnorable = false;
    bool opensPart = false; ///< Its first word gave it its use.
};

struct SheetEntry
{
    std::u16string name;
    TextState text;
    int alignment = 0;
};

class Reader
{
public:
    explicit Reader(std::string_view rtf) : rtf_(rtf) {}

    FragmentReading read()
    {
        if (!rtf_.starts_with("{\\rtf1"))
            refuse("no start");
        while (at_ < rtf_.size()) {
            const char c = rtf_[at_++];
            if (c == '{') {
                groups_.push_back(group_);
                group_.opensPart = false;
                group_.isIgnorable = false;
            } else if (c == '}') {
                close();
            } else if (c == '\\') {
                escape();
            } else if (c != '\n' && c != '\r') {
                if (static_cast<unsigned char>(c) >= 0x80 || static_cast<unsigned char>(c) < 0x20)
                    refuse("a byte that is not 7-bit text");
                character(static_cast<char16_t>(c));
            }
            if (groups_.empty() && at_ < rtf_.size())
                refuse("text behind the end");
        }
        if (!groups_.empty())
            refuse("a group is open");
        if (openCells_ != 0 || !bookmarks_.empty())
            refuse("a row or a bookmark is open");
        return std::move(reading_);
    }

private:
    void close()
    {
        if (groups_.empty())
            refuse("a brace too many");
        if (group_.opensPart && group_.use == Use::code)
            endCode();
        else if (group_.opensPart && group_.use == Use::bookmarkStart)
            bookmarks_ = std::exchange(name_, {});
        else if (group_.opensPart && group_.use == Use::bookmarkEnd)
            endBookmark();
        else if (group_.opensPart && group_.use == Use::picture)
            endPicture();
        group_ = std::move(groups_.back());
        groups_.pop_back();
    }

    void escape()
    {
        const char c = next();
        if (std::isalpha(static_cast<unsigned char>(c))) {
            --at_;
            word();
        } else if (c == '*') {
            group_.isIgnorable = true;
        } else if (c == '~') {
            character(0xA0);
        } else if (c == '_' || c == '-') {
            character(c == '_' ? 30 : 31);
        } else if (c == '\\' || c == '{' || c == '}') {
            character(static_cast<char16_t>(c));
        } else {
            refuse(std::string("an unknown symbol ") + c);
        }
    }

    char next()
    {
        if (at_ >= rtf_.size())
            refuse("it ends in a word");
        return rtf_[at_++];
    }

    void word()
    {
        std::string name;
        while (std::isalpha(static_cast<unsigned char>(peek())))
            name += next();
        std::string digits;
        if (peek() == '-')
            digits += next();
        while (std::isdigit(static_cast<unsigned char>(peek())))
            digits += next();
        if (peek() == ' ')
            ++at_;
        std::optional<int> number;
        if (!digits.empty())
            number = std::stoi(digits);
        if (name == "u") {
            if (!number || *number < -32768 || *number > 32767 || next() != '?')
                refuse("a wrong \\u");
            character(static_cast<char16_t>(*number));
        } else if (!openPart(name)) {
            take(name, number);
        }
    }

    [[nodiscard]] char peek() const { return at_ < rtf_.size() ? rtf_[at_] : '\0'; }

    bool openPart(const std::string& name)
    {
        static const std::map<std::string, Use> parts = {
            {"fonttbl", Use::fonts},           {"stylesheet", Use::styles},   {"fldinst", Use::code},
            {"bkmkstart", Use::bookmarkStart}, {"bkmkend", Use::bookmarkEnd}, {"pict", Use::picture}};
        if (name == "field") {
            code_.clear();
            group_.use = Use::field;
            return true;
        }
        if (name == "fldrslt") {
            group_.use = Use::text;
            if (!linkOfCode_.empty()) {
                group_.link = std::exchange(linkOfCode_, {});
                ++reading_.links;
            }
            return true;
        }
        if (name == "shppict") {
            if (!group_.isIgnorable)
                refuse("pictures of new kinds that are not ignorable");
            return true;
        }
        if (name == "pict") {
            picture_ = {};
            hasKind_ = false;
        }
        const auto part = parts.find(name);
        if (part == parts.end())
            return false;
        if (name.starts_with("bkmk") && !group_.isIgnorable)
            refuse("a bookmark that is not ignorable");
        group_.use = part->second;
        group_.opensPart = true;
        return true;
    }

    void take(const std::string& name, std::optional<int> number)
    {
        const bool isOn = number.value_or(1) != 0;
        static const std::map<std::string, int> alignments = {{"ql", 0}, {"qc", 1}, {"qr", 2}, {"qj", 3}};
        TextState& text = group_.text;
        if (const auto alignment = alignments.find(name); alignment != alignments.end())
            group_.alignment = alignment->second;
        else if (name == "plain")
            text = {};
        else if (name == "pard")
            group_.alignment = group_.style = 0, group_.isInTable = false;
        else if (name == "intbl")
            group_.isInTable = true;
        else if (name == "s")
            group_.style = number.value();
        else if (name == "cs")
            text.characterStyle = number.value();
        else if (name == "f")
            text.font = number.value();
        else if (name == "fs")
            text.halfPoints = number.value();
        else if (name == "b")
            text.isBold = isOn;
        else if (name == "i")
            text.isItalic = isOn;
        else if (name == "ul" || name == "ulnone")
            text.isUnderlined = name == "ul";
        else if (name == "strike")
            text.isStruck = isOn;
        else if (name == "v")
            text.isHidden = isOn;
        else if (name == "tab" || name == "line")
            character(name == "tab" ? u'\t' : u'\v');
        else if (name == "page")
            emit(pageBreakToken());
        else
            takeMark(name, number);
    }

    void takeMark(const std::string& name, std::optional<int> number)
    {
        if (name == "par" || name == "cell") {
            if (name == "cell" && !group_.isInTable)
                refuse("a cell's end outside of tables");
            if (!group_.isInTable && openCells_ != 0)
                refuse("a paragraph in the middle of a row");
            openCells_ += name == "cell";
            mark(name);
        } else if (name == "row") {
            if (openCells_ != edges_.size() || openCells_ == 0)
                refuse("a row with other cells than defined");
            openCells_ = 0;
            emit(rowToken(edges_, height_));
        } else if (name == "trowd") {
            edges_.clear();
            height_ = 0;
        } else if (name == "cellx") {
            edges_.push_back(number.value());
        } else if (name == "trrh") {
            height_ = number.value();
        } else if (group_.use == Use::picture) {
            takePicture(name, number.value_or(0));
        } else {
            static const std::string known =
                " rtf ansi ansicpg deff uc fnil additive flddirty trgaph trleft ";
            if (known.find(' ' + name + ' ') == std::string::npos)
                refuse("an unknown word " + name);
        }
    }

    void takePicture(const std::string& name, int number)
    {
        static const std::map<std::string, PictureKind> kinds = {{"pngblip", PictureKind::png},
                                                                 {"jpegblip", PictureKind::jpeg},
                                                                 {"emfblip", PictureKind::emf},
                                                                 {"dibitmap", PictureKind::bitmap}};
        static const std::map<std::string, std::int32_t PictureForm::*> lengths = {
            {"picw", &PictureForm::width},
            {"pich", &PictureForm::height},
            {"picwgoal", &PictureForm::naturalWidth},
            {"pichgoal", &PictureForm::naturalHeight}};
        if (const auto kind = kinds.find(name); kind != kinds.end()) {
            picture_.kind = kind->second;
            hasKind_ = true;
        } else if (const auto length = lengths.find(name); length != lengths.end()) {
            picture_.*length->second = number;
        } else {
            refuse("an unknown word of pictures " + name);
        }
    }

    void endPicture()
    {
        const std::u16string digits = std::exchange(name_, {});
        if (!hasKind_ || digits.empty() || digits.size() % 2 != 0)
            refuse("a picture without a kind, or half a byte of one");
        std::string data;
        for (std::size_t at = 0; at < digits.size(); at += 2)
            data +=
                static_cast<char>(std::stoi(std::string(digits.begin() + static_cast<std::ptrdiff_t>(at),
                                                        digits.begin() + static_cast<std::ptrdiff_t>(at) + 2),
                                            nullptr, 16));
        emit(pictureToken(picture_, data, look().link));
    }

    void character(char16_t c)
    {
        switch (group_.use) {
        case Use::text:
            emit(characterToken(c, look()));
            return;
        case Use::fonts:
            if (c == u';')
                fonts_[group_.text.font] = std::exchange(name_, {});
            else
                name_ += c;
            return;
        case Use::styles:
            if (c == u';')
                endSheetEntry();
            else
                name_ += c;
            return;
        case Use::code:
            code_ += c;
            return;
        case Use::bookmarkStart:
        case Use::bookmarkEnd:
        case Use::picture:
            name_ += c;
            return;
        case Use::nothing:
        case Use::field:
            refuse("text in a wrong place");
        }
    }

    void endSheetEntry()
    {
        const std::u16string name = std::exchange(name_, {});
        if (group_.text.characterStyle != -1) {
            if (name != u"Hyperlink" || !group_.isIgnorable)
                refuse("a character style");
            linkStyle_ = group_.text.characterStyle;
        } else {
            sheet_[group_.style] = {name, group_.text, group_.alignment};
        }
    }

    void endBookmark()
    {
        if (name_.empty() || name_ != bookmarks_)
            refuse("a bookmark's end without its beginning");
        emit(tagToken(name_));
        name_.clear();
        bookmarks_.clear();
    }

    void endCode()
    {
        const std::u16string code = std::exchange(code_, {});
        if (code.size() < 3 || code.front() != u' ' || code.back() != u' ')
            refuse("a code without its spaces");
        linkOfCode_.clear();
        if (std::size_t at = code.find(u'"'); code.starts_with(u" HYPERLINK  \\l \"")) {
            linkOfCode_ = "#" + printable(argumentAt(code, at));
        } else if (code.starts_with(u" HYPERLINK \"")) {
            linkOfCode_ = printable(argumentAt(code, at));
        } else if (code.starts_with(u" TC \"")) {
            const std::u16string text = argumentAt(code, at);
            if (!group_.text.isHidden)
                refuse("an entry that shows");
            if (code.substr(at, 9) != u" \\fC \\l \"" || code.size() != at + 12)
                refuse("an entry's switches");
            emit(entryToken(text, code[at + 9] - u'0'));
        } else {
            emit(fieldToken(printable(std::u16string_view(code).substr(1, code.size() - 2)), look()));
        }
    }

    const SheetEntry& entry() const
    {
        const auto found = sheet_.find(group_.style);
        if (found == sheet_.end())
            refuse("a style without an entry");
        return found->second;
    }

    Look look()
    {
        const SheetEntry& sheet = entry();
        const TextState& text = group_.text;
        if ((text.characterStyle != -1) != !group_.link.empty() ||
            (text.characterStyle != -1 && text.characterStyle != linkStyle_))
            refuse("a link without its style, or the style without a link");
        if (text.isHidden)
            refuse("hidden text");
        Font font = TestStyles::find(sheet.name).font;
        overlay(font.name, fonts_.at(text.font), fonts_.at(sheet.text.font));
        overlay(font.size, static_cast<float>(text.halfPoints) / 2,
                static_cast<float>(sheet.text.halfPoints) / 2);
        overlay(font.isBold, text.isBold, sheet.text.isBold);
        overlay(font.isItalic, text.isItalic, sheet.text.isItalic);
        overlay(font.isUnderlined, text.isUnderlined, sheet.text.isUnderlined);
        overlay(font.isStruck, text.isStruck, sheet.text.isStruck);
        return {font, group_.link};
    }

    template <class Property>
    void overlay(Property& own, const Property& stated, const Property& ofSheet)
    {
        if (stated == ofSheet)
            return;
        if (own == stated)
            ++reading_.idleProperties;
        own = stated;
    }

    void mark(const std::string& kind)
    {
        const SheetEntry& sheet = entry();
        int alignment = TestStyles::find(sheet.name).alignment;
        overlay(alignment, group_.alignment, sheet.alignment);
        if (group_.text.characterStyle != -1)
            refuse("a mark in a character style");
        emit(markToken(kind, sheet.name, alignment, group_.link));
    }

    void emit(std::string token) { reading_.tokens.push_back(std::move(token)); }

    std::string_view rtf_;
    std::size_t at_ = 0;
    Group group_;
    std::vector<Group> groups_;
    std::map<int, std::u16string> fonts_;
    std::map<int, SheetEntry> sheet_;
    int linkStyle_ = -2;
    std::u16string name_;
    std::u16string bookmarks_; ///< the one that is open
    std::u16string code_;
    PictureForm picture_;
    bool hasKind_ = false;
    std::string linkOfCode_;
    std::vector<int> edges_;
    int height_ = 0;
    std::size_t openCells_ = 0;
    FragmentReading reading_;
};

} // namespace

FragmentReading readFragment(std::string_view rtf)
{
    return Reader(rtf).read();
}

} // namespace compose
