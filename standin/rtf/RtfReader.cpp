#include "RtfReader.h"

#include "LiveRange.h"
#include "PlainText.h"
#include "RtfBookmarks.h"
#include "RtfFields.h"
#include "RtfLexer.h"
#include "RtfObjects.h"
#include "RtfPictures.h"
#include "RtfTables.h"
#include "TableMarks.h"
#include "TableSpans.h"
#include "WordError.h"

#include <algorithm>
#include <array>
#include <map>
#include <vector>

namespace standin::rtf {

namespace {

using namespace model;

std::optional<char16_t> characterOf(std::string_view word)
{
    static const std::map<std::string_view, char16_t> characters = {
        {"tab", mark::tab},    {"line", mark::line},  {"page", mark::page}, {"column", mark::column},
        {"emdash", 0x2014},    {"endash", 0x2013},    {"lquote", 0x2018},   {"rquote", 0x2019},
        {"ldblquote", 0x201C}, {"rdblquote", 0x201D}, {"bullet", 0x2022},   {"emspace", 0x2003},
        {"enspace", 0x2002}};
    const auto found = characters.find(word);
    return found == characters.end() ? std::nullopt : std::optional(found->second);
}

float points(std::int32_t twips)
{
    return static_cast<float>(twips) / 20;
}

/// Leaves open what `base` has as well.
FontProperties fontBeyond(const FontProperties& wanted, const FontProperties& base)
{
    FontProperties own = wanted;
    const auto drop = [](auto& mine, const auto& other) {
        if (mine == other) {
            mine.reset();
        }
    };
    drop(own.name, base.name);
    drop(own.size, base.size);
    drop(own.bold, base.bold);
    drop(own.italic, base.italic);
    drop(own.strikeThrough, base.strikeThrough);
    drop(own.hidden, base.hidden);
    drop(own.underline, base.underline);
    drop(own.color, base.color);
    return own;
}

ParagraphProperties paragraphBeyond(const ParagraphProperties& wanted, const ParagraphProperties& base)
{
    ParagraphProperties own = wanted;
    const auto drop = [](auto& mine, const auto& other) {
        if (mine == other) {
            mine.reset();
        }
    };
    drop(own.alignment, base.alignment);
    drop(own.leftIndent, base.leftIndent);
    drop(own.rightIndent, base.rightIndent);
    drop(own.firstLineIndent, base.firstLineIndent);
    drop(own.spaceBefore, base.spaceBefore);
    drop(own.spaceAfter, base.spaceAfter);
    drop(own.keepWithNext, base.keepWithNext);
    drop(own.pageBreakBefore, base.pageBreakBefore);
    drop(own.outlineLevel, base.outlineLevel);
    drop(own.tabs, base.tabs);
    drop(own.topBorder, base.topBorder);
    drop(own.bottomBorder, base.bottomBorder);
    return own;
}

enum class Destination
{
    text,
    skip,
    fonts,
    colors,
    styles,
    field,         ///< between a field's code and its result
    contentsEntry, ///< the text of an entry for a table of contents
    bookmarkStart,
    bookmarkEnd,
    picture,
    object, ///< what of it is neither data nor picture
    objectClass,
    objectData
};

/// RTF's own defaults, from which \plain and \pard start.
FontProperties plainFont()
{
    return {.name = u"Times New Roman",
            .size = 12.0f,
            .bold = false,
            .italic = false,
            .strikeThrough = false,
            .hidden = false,
            .underline = 0,
            .color = FontProperties::automaticColor};
}

ParagraphProperties plainParagraph()
{
    return {.alignment = Alignment::left,
            .leftIndent = 0.0f,
            .rightIndent = 0.0f,
            .firstLineIndent = 0.0f,
            .spaceBefore = 0.0f,
            .spaceAfter = 0.0f,
            .keepWithNext = false,
            .pageBreakBefore = false,
            .outlineLevel = 10,
            .tabs = std::vector<TabStop>(),
            .topBorder = Border(),
            .bottomBorder = Border()};
}

/// What a closing brace restores.
struct GroupState
{
    Destination destination = Destination::text;
    FontProperties font = plainFont();
    ParagraphProperties paragraph = plainParagraph();
    TabStop nextTab;
    std::optional<Border> ParagraphProperties::*border = nullptr; ///< which one the words for lines mean
    const Style* paragraphStyle = nullptr;
    const Style* characterStyle = nullptr;
    std::int32_t fallbackLength = 1; ///< characters that follow a \uN for readers without Unicode
    bool opensHeader = false;
    bool opensField = false;
    bool opensPicture = false;
    bool opensObject = false;
    bool inTable = false;
};

/// A style of the sheet while its entry is being read.
struct StyleEntry
{
    std::int32_t number = 0;
    StyleType type = StyleType::paragraph;
    std::int32_t base = -1;
    std::int32_t next = -1;
    std::u16string name;
};

[[noreturn]] void refuse(const char* reason)
{
    throw WordError(WordErrorNumber::invalidDocumentName, reason);
}

class Reader
{
public:
    Reader(std::string_view bytes, Document& document)
        : lexer_(bytes), document_(document), story_(document.mainStory())
    {
        state_.paragraphStyle = &document.styles().normal();
    }

    void read()
    {
        try {
            readAll();
        } catch (...) {
            endRow(lastParagraphStart()); // what was read so far holds together
            throw;
        }
    }

private:
    void readAll()
    {
        expectStart();
        while (!groups_.empty()) {
            const RtfToken token = lexer_.next();
            if (token.kind == RtfToken::Kind::end) {
                refuse("The file ends in the middle.");
            }
            take(token);
        }
    }

    void expectStart()
    {
        const RtfToken brace = lexer_.next();
        const RtfToken word = lexer_.next();
        if (brace.kind != RtfToken::Kind::groupStart || word.kind != RtfToken::Kind::word ||
            word.word != "rtf") {
            refuse("The file is not in rich text format.");
        }
        groups_.push_back(state_);
    }

    void take(const RtfToken& token)
    {
        switch (token.kind) {
        case RtfToken::Kind::groupStart:
            openGroup();
            return;
        case RtfToken::Kind::groupEnd:
            closeGroup();
            return;
        case RtfToken::Kind::word:
            isIgnorable_ ? ignorableWord(token) : word(token);
            return;
        case RtfToken::Kind::symbol:
            symbol(token.byte);
            return;
        case RtfToken::Kind::byte:
            if (toSkip_ > 0) {
                --toSkip_;
            } else {
                character(fromAnsi(token.byte));
            }
            return;
        case RtfToken::Kind::end:
            return;
        }
    }

    void openGroup()
    {
        static constexpr std::size_t deepest = 10000;
        if (groups_.size() > deepest) {
            refuse("The file's groups are nested too deep.");
        }
        flush();
        toSkip_ = 0;
        groups_.push_back(state_);
        state_.opensHeader = false;
        state_.opensField = false;
        state_.opensPicture = false;
        state_.opensObject = false;
    }

    void closeGroup()
    {
        flush();
        toSkip_ = 0;
        isIgnorable_ = false;
        if (state_.destination != groups_.back().destination) {
            finishDestination();
        }
        if (state_.opensField) {
            fields_.close();
            endedWithMark_ = false;
        }
        if (state_.opensPicture) {
            finishPicture();
        } else if (state_.opensObject) {
            finishObject();
        } else if (state_.destination == Destination::styles) {
            finishStyle();
        } else if (state_.opensHeader) {
            finishStory();
            story_ = document_.mainStory();
        }
        if (groups_.size() == 1) {
            finishStory();
            findLandscapes();
        }
        state_ = std::move(groups_.back());
        groups_.pop_back();
    }

    /// After \*: a reader may skip the destination when it does not know it.
    void ignorableWord(const RtfToken& token)
    {
        isIgnorable_ = false;
        static constexpr std::array<std::string_view, 8> known = {
            "cs", "fldinst", "bkmkstart", "bkmkend", "mvcodefield", "shppict", "objclass", "objdata"};
        if (std::find(known.begin(), known.end(), token.word) != known.end()) {
            word(token);
        } else {
            state_.destination = Destination::skip;
        }
    }

    void word(const RtfToken& token)
    {
        toSkip_ = 0;
        const std::int32_t number = token.number.value_or(0);
        if (state_.destination == Destination::skip || openDestination(token.word)) {
            return;
        }
        if (state_.destination == Destination::picture) {
            picture_.word(token.word, number);
            picture_.data(token.data);
        } else if (state_.destination == Destination::objectData) {
            objectData_.raw(token.data);
        } else if (token.word == "u") {
            unicode(number);
        } else if (token.word == "uc") {
            state_.fallbackLength = std::clamp(number, 0, 100);
        } else if (state_.destination == Destination::colors) {
            colorWord(token.word, number);
        } else if (state_.destination == Destination::fonts) {
            fontTableWord(token.word, number);
        } else if (!styleSheetWord(token.word, number)) {
            flush();
            textWord(token, number);
        }
    }

    bool openDestination(std::string_view name)
    {
        static const std::map<std::string_view, Destination> destinations = {
            {"fonttbl", Destination::fonts},     {"colortbl", Destination::colors},
            {"stylesheet", Destination::styles}, {"info", Destination::skip},
            {"footnote", Destination::skip},     {"annotation", Destination::skip},
            {"nonshppict", Destination::skip},   {"xe", Destination::skip},
            {"listtext", Destination::skip},     {"mvcodetext", Destination::skip},
            {"nonesttables", Destination::skip}, {"pntext", Destination::skip},
            {"revtbl", Destination::skip},       {"filetbl", Destination::skip}};
        const auto found = destinations.find(name);
        if (found != destinations.end()) {
            flush();
            state_.destination = found->second;
            return true;
        }
        return openFieldPart(name) || openName(name) || openPicture(name) || openObjectPart(name) ||
               openHeader(name);
    }

    bool openFieldPart(std::string_view name)
    {
        if (name == "field") {
            if (state_.destination == Destination::text && !state_.opensField) {
                flush();
                fields_.open(story_, characterFormat());
                state_.opensField = true;
                state_.destination = Destination::field;
                endedWithMark_ = false;
            }
            return true;
        }
        if (name != "fldinst" && name != "fldrslt") {
            return false;
        }
        if (state_.destination == Destination::field) {
            if (name == "fldrslt") {
                fields_.openResult();
            }
            state_.destination = Destination::text;
        } else if (name == "fldinst") {
            state_.destination = Destination::skip;
        }
        return true;
    }

    bool openName(std::string_view name)
    {
        static const std::map<std::string_view, Destination> destinations = {
            {"bkmkstart", Destination::bookmarkStart},
            {"bkmkend", Destination::bookmarkEnd},
            {"tc", Destination::contentsEntry},
            {"tcn", Destination::contentsEntry}};
        const auto found = destinations.find(name);
        if (found == destinations.end() || state_.destination != Destination::text) {
            return false;
        }
        flush();
        state_.destination = found->second;
        name_.clear();
        entry_ = {};
        return true;
    }

    /// The group that ends was the whole of a bookmark's name or of an entry.
    void finishDestination()
    {
        const Position at = fields_.insertionPoint(*story_);
        if (state_.destination == Destination::bookmarkStart) {
            bookmarks_.start(name_, story_, at);
        } else if (state_.destination == Destination::bookmarkEnd) {
            bookmarks_.end(name_, story_, at);
        } else if (state_.destination == Destination::contentsEntry) {
            insertContentsEntry();
        }
    }

    void insertContentsEntry()
    {
        CharacterFormat format = characterFormat();
        format.font.hidden = true;
        entry_.text = normalizeText(name_);
        std::replace(entry_.text.begin(), entry_.text.end(), mark::paragraph, u' ');
        fields_.open(story_, format);
        const Position at = fields_.insertionPoint(*story_);
        const std::u16string code = entry_.code();
        story_->insert(at, code);
        story_->setCharacterFormat(at, at + static_cast<Position>(code.size()), format);
        fields_.close();
        endedWithMark_ = false;
    }

    bool openPicture(std::string_view name)
    {
        if (name != "pict" ||
            (state_.destination != Destination::text && state_.destination != Destination::object)) {
            return false;
        }
        flush();
        picture_ = {};
        state_.destination = Destination::picture;
        state_.opensPicture = true;
        return true;
    }

    void finishPicture()
    {
        const std::optional<InlineShape> shape = picture_.finish();
        if (!shape) {
            return;
        }
        if (groups_.back().destination == Destination::object) {
            object_.picture = shape->picture;
            object_.width = shape->width;
            object_.height = shape->height;
        } else {
            insertShape(*shape);
        }
    }

    bool openObjectPart(std::string_view name)
    {
        static const std::map<std::string_view, Destination> parts = {{"objclass", Destination::objectClass},
                                                                      {"objdata", Destination::objectData}};
        if (name == "object" && state_.destination == Destination::text) {
            flush();
            object_ = {};
            objectData_ = {};
            state_.destination = Destination::object;
            state_.opensObject = true;
            return true;
        }
        const auto part = parts.find(name);
        if (part == parts.end()) {
            return false;
        }
        state_.destination = state_.destination == Destination::object ? part->second : Destination::skip;
        return true;
    }

    /// An object without a picture has nothing to show and is left out.
    void finishObject()
    {
        if (!object_.picture) {
            return;
        }
        ObjectData data = readObjectData(objectData_.bytes());
        std::replace_if(
            object_.objectClass.begin(), object_.objectClass.end(), [](char16_t c) { return c < 0x20; },
            u' ');
        object_.type = data.isLinked ? InlineShapeType::linkedObject : InlineShapeType::embeddedObject;
        object_.objectData = std::move(data.native);
        for (const char c : data.link) {
            const auto byte = static_cast<unsigned char>(c);
            object_.link += byte < 0x20 ? u' ' : fromAnsi(byte);
        }
        const Position at = insertShape(object_);
        if (document_.switches().oleObjectIsField) {
            story_->wrapInField(at, at + 1, objectFieldCode(object_));
        }
    }

    Position insertShape(const InlineShape& shape)
    {
        const Position at = fields_.insertionPoint(*story_);
        const char16_t character = mark::picture;
        insert({&character, 1});
        CharacterFormat format = characterFormat();
        format.shape = std::make_shared<InlineShape>(shape);
        story_->setCharacterFormat(at, at + 1, format);
        endedWithMark_ = false;
        return at;
    }

    bool openHeader(std::string_view name)
    {
        const bool header = name.starts_with("header");
        if (!header && !name.starts_with("footer")) {
            return false;
        }
        const std::string_view which = name.substr(6);
        HeaderFooterIndex index = HeaderFooterIndex::primary;
        if (which == "f") {
            index = HeaderFooterIndex::firstPage;
        } else if (which == "l") {
            index = HeaderFooterIndex::evenPages;
        } else if (!which.empty() && which != "r") {
            return false;
        }
        if (story_ != document_.mainStory()) {
            refuse("A header inside a header.");
        }
        flush();
        endRow(lastParagraphStart());
        const auto part = header ? Section::Part::header : Section::Part::footer;
        lastSection()->setLinkToPrevious(part, index, false);
        story_ = lastSection()->story(part, index);
        story_->erase(0, story_->length() - 1);
        state_.opensHeader = true;
        endedWithMark_ = false;
        return true;
    }

    void symbol(unsigned char c)
    {
        if (c == '*') {
            isIgnorable_ = true;
        } else if (c == '~') {
            character(0xA0);
        } else if (c == '_') {
            character(30);
        } else if (c == '-') {
            character(31);
        } else if (c == '\n' || c == '\r') {
            endParagraph();
        }
    }

    void unicode(std::int32_t number)
    {
        character(static_cast<char16_t>(number));
        toSkip_ = state_.fallbackLength;
    }

    void character(char16_t c)
    {
        switch (state_.destination) {
        case Destination::text:
            pending_ += c;
            return;
        case Destination::fonts:
            fontCharacter(c);
            return;
        case Destination::colors:
            if (c == u';') {
                colors_.push_back(colorIsSet_ ? color_ : FontProperties::automaticColor);
                color_ = 0;
                colorIsSet_ = false;
            }
            return;
        case Destination::styles:
            if (c == u';') {
                finishStyle();
            } else {
                style_.name += c;
            }
            return;
        case Destination::contentsEntry:
        case Destination::bookmarkStart:
        case Destination::bookmarkEnd:
            name_ += c;
            return;
        case Destination::field:
        case Destination::picture:
            picture_.character(c);
            return;
        case Destination::objectClass:
            object_.objectClass += c;
            return;
        case Destination::objectData:
            objectData_.digit(c);
            return;
        case Destination::object:
        case Destination::skip:
            return;
        }
    }

    void fontTableWord(std::string_view name, std::int32_t number)
    {
        if (name == "f") {
            font_ = number;
            fontName_.clear();
        }
    }

    void fontCharacter(char16_t c)
    {
        if (c != u';') {
            fontName_ += c;
        } else {
            fonts_[font_] = std::move(fontName_);
            fontName_.clear();
        }
    }

    void colorWord(std::string_view name, std::int32_t number)
    {
        const int shift = name == "red" ? 0 : (name == "green" ? 8 : (name == "blue" ? 16 : -1));
        if (shift >= 0) {
            color_ |= std::clamp(number, 0, 255) << shift;
            colorIsSet_ = true;
        }
    }

    /// The words that only the style sheet gives a meaning of its own.
    bool styleSheetWord(std::string_view name, std::int32_t number)
    {
        if (state_.destination != Destination::styles) {
            return false;
        }
        if (name == "s" || name == "cs") {
            style_.number = number;
            style_.type = name == "s" ? StyleType::paragraph : StyleType::character;
            return true;
        }
        if (name == "sbasedon") {
            style_.base = number;
            return true;
        }
        if (name == "snext") {
            style_.next = number;
            return true;
        }
        return false;
    }

    void finishStyle()
    {
        const std::size_t first = style_.name.find_first_not_of(u' ');
        if (first != std::u16string::npos) {
            defineStyle(style_.name.substr(first));
        }
        style_ = {};
    }

    void defineStyle(const std::u16string& name)
    {
        StylePtr style = document_.styles().find(name);
        if (style && style->type() != style_.type) {
            return;
        }
        if (!style) {
            style = document_.styles().add(name, style_.type);
        }
        styles_[style_.number] = style;
        if (style_.type == StyleType::paragraph) {
            defineParagraphStyle(*style);
        } else {
            style->font = characterStyleFont();
        }
    }

    void defineParagraphStyle(Style& style)
    {
        const auto base = styles_.find(style_.base);
        const bool isNormal = &style == &document_.styles().normal();
        if (!isNormal && base != styles_.end() && base->second->type() == StyleType::paragraph &&
            !buildsOn(*base->second, style)) {
            style.setBase(base->second.get());
        }
        if (isNormal || !style.base()) {
            style.font = state_.font;
            style.paragraph = state_.paragraph;
        } else {
            style.font = fontBeyond(state_.font, style.base()->resolvedFont());
            style.paragraph = paragraphBeyond(state_.paragraph, style.base()->resolvedParagraph());
        }
        const auto next = styles_.find(style_.next);
        if (next != styles_.end()) {
            style.setNext(next->second.get());
        }
    }

    static bool buildsOn(const Style& style, const Style& wanted)
    {
        for (const Style* each = &style; each; each = each->base()) {
            if (each == &wanted) {
                return true;
            }
        }
        return false;
    }

    FontProperties characterStyleFont() const { return fontBeyond(state_.font, plainFont()); }

    void textWord(const RtfToken& token, std::int32_t number)
    {
        const std::string_view name = token.word;
        if (const auto c = characterOf(name)) {
            character(*c);
        } else if (name == "par") {
            endParagraph();
        } else if (name == "sect") {
            endSection();
        } else if (name == "cell" || name == "nestcell") {
            name == "cell" ? endCell() : endParagraph();
        } else if (name == "row" && state_.destination == Destination::text) {
            endRow(fields_.insertionPoint(*story_));
        } else if (name == "tcl" || name == "tcf") {
            (name == "tcl" ? entry_.level : entry_.table) = number;
        } else if (!fontWord(token, number) && !paragraphWord(name, number) &&
                   !rowDefinition_.take(name, number)) {
            pageWord(name, number);
        }
    }

    bool fontWord(const RtfToken& token, std::int32_t number)
    {
        const std::string_view name = token.word;
        const bool on = token.number.value_or(1) != 0;
        FontProperties& font = state_.font;
        if (name == "plain") {
            font = plainFont();
            state_.characterStyle = nullptr;
        } else if (name == "f") {
            const auto found = fonts_.find(number);
            if (found != fonts_.end() && !found->second.empty()) {
                font.name = found->second;
            }
        } else if (name == "fs") {
            font.size = static_cast<float>(std::clamp(number, 2, 3276)) / 2;
        } else if (name == "b") {
            font.bold = on;
        } else if (name == "i") {
            font.italic = on;
        } else if (name == "strike") {
            font.strikeThrough = on;
        } else if (name == "v") {
            font.hidden = on;
        } else if (name == "ulnone") {
            font.underline = 0;
        } else if (name == "ul") {
            font.underline = on ? 1 : 0;
        } else if (name == "cf") {
            const bool known = number >= 0 && number < static_cast<std::int32_t>(colors_.size());
            font.color = known ? colors_[static_cast<std::size_t>(number)] : FontProperties::automaticColor;
        } else if (name == "cs") {
            const Style* style = styleOf(number, StyleType::character);
            state_.characterStyle =
                style && style->builtinNumber() == Styles::defaultParagraphFont ? nullptr : style;
        } else {
            return false;
        }
        return true;
    }

    const Style* styleOf(std::int32_t number, StyleType type) const
    {
        const auto found = styles_.find(number);
        return found != styles_.end() && found->second->type() == type ? found->second.get() : nullptr;
    }

    bool paragraphWord(std::string_view name, std::int32_t number)
    {
        ParagraphProperties& paragraph = state_.paragraph;
        if (name == "pard") {
            paragraph = plainParagraph();
            state_.border = nullptr;
            state_.paragraphStyle = &document_.styles().normal();
            state_.inTable = false;
        } else if (name == "intbl") {
            state_.inTable = true;
        } else if (name == "s") {
            const Style* style = styleOf(number, StyleType::paragraph);
            state_.paragraphStyle = style ? style : &document_.styles().normal();
        } else if (name == "ql") {
            paragraph.alignment = Alignment::left;
        } else if (name == "qc") {
            paragraph.alignment = Alignment::center;
        } else if (name == "qr") {
            paragraph.alignment = Alignment::right;
        } else if (name == "qj") {
            paragraph.alignment = Alignment::justify;
        } else if (name == "li") {
            paragraph.leftIndent = points(number);
        } else if (name == "ri") {
            paragraph.rightIndent = points(number);
        } else if (name == "fi") {
            paragraph.firstLineIndent = points(number);
        } else if (name == "sb") {
            paragraph.spaceBefore = points(number);
        } else if (name == "sa") {
            paragraph.spaceAfter = points(number);
        } else if (name == "keepn") {
            paragraph.keepWithNext = true;
        } else if (name == "pagebb") {
            paragraph.pageBreakBefore = true;
        } else if (name == "outlinelevel") {
            paragraph.outlineLevel = std::clamp(number, 0, 9) + 1;
        } else {
            return tabWord(name, number) || borderWord(name, number);
        }
        return true;
    }

    bool borderWord(std::string_view name, std::int32_t number)
    {
        if (name == "brdrt" || name == "brdrb") {
            state_.border =
                name == "brdrt" ? &ParagraphProperties::topBorder : &ParagraphProperties::bottomBorder;
        } else if (name == "brdrl" || name == "brdrr" || name.starts_with("clbrdr")) {
            state_.border = nullptr;
            return false;
        } else if (!state_.border) {
            return false;
        } else if (name == "brdrs" || name == "brdrnone") {
            (state_.paragraph.*state_.border)->isVisible = name == "brdrs";
        } else if (name == "brdrw") {
            (state_.paragraph.*state_.border)->width = points(std::clamp(number, 1, 75));
        } else {
            return false;
        }
        return true;
    }

    bool tabWord(std::string_view name, std::int32_t number)
    {
        TabStop& tab = state_.nextTab;
        if (name == "tqc") {
            tab.kind = TabStop::Kind::center;
        } else if (name == "tqr") {
            tab.kind = TabStop::Kind::right;
        } else if (name == "tldot") {
            tab.leader = TabStop::Leader::dots;
        } else if (name == "tlhyph") {
            tab.leader = TabStop::Leader::dashes;
        } else if (name == "tlul") {
            tab.leader = TabStop::Leader::lines;
        } else if (name == "tlth") {
            tab.leader = TabStop::Leader::heavy;
        } else if (name == "tlmdot") {
            tab.leader = TabStop::Leader::middleDot;
        } else if (name == "tx") {
            addTab(number);
        } else {
            return false;
        }
        return true;
    }

    void addTab(std::int32_t number)
    {
        static constexpr std::size_t mostTabs = 64; // as many as Word keeps in a paragraph
        std::vector<TabStop>& tabs = *state_.paragraph.tabs;
        if (tabs.size() < mostTabs) {
            state_.nextTab.position = points(number);
            tabs.push_back(state_.nextTab);
        }
        state_.nextTab = {};
    }

    void pageWord(std::string_view name, std::int32_t number)
    {
        static const std::map<std::string_view, float PageSetup::*> ofDocument = {
            {"paperw", &PageSetup::pageWidth}, {"paperh", &PageSetup::pageHeight},
            {"margl", &PageSetup::leftMargin}, {"margr", &PageSetup::rightMargin},
            {"margt", &PageSetup::topMargin},  {"margb", &PageSetup::bottomMargin}};
        static const std::map<std::string_view, float PageSetup::*> ofSection = {
            {"pgwsxn", &PageSetup::pageWidth},       {"pghsxn", &PageSetup::pageHeight},
            {"marglsxn", &PageSetup::leftMargin},    {"margrsxn", &PageSetup::rightMargin},
            {"margtsxn", &PageSetup::topMargin},     {"margbsxn", &PageSetup::bottomMargin},
            {"headery", &PageSetup::headerDistance}, {"footery", &PageSetup::footerDistance}};
        PageSetup& setup = lastSection()->pageSetup;
        if (const auto length = ofDocument.find(name); length != ofDocument.end()) {
            defaults_.*length->second = points(number);
            setup.*length->second = points(number);
        } else if (const auto own = ofSection.find(name); own != ofSection.end()) {
            setup.*own->second = points(number);
        } else if (name == "landscape") {
            defaults_.orientation = setup.orientation = Orientation::landscape;
        } else if (name == "lndscpsxn") {
            setup.orientation = Orientation::landscape;
        } else if (name == "facingp") {
            defaults_.oddAndEvenPages = true;
            document_.setOddAndEvenPages(true);
        } else if (name == "titlepg") {
            setup.differentFirstPage = true;
        } else if (name == "sectd") {
            setup = defaults_;
        } else {
            sectionStartWord(name, setup);
        }
    }

    static void sectionStartWord(std::string_view name, PageSetup& setup)
    {
        static const std::map<std::string_view, SectionStart> starts = {{"sbknone", SectionStart::continuous},
                                                                        {"sbkcol", SectionStart::newColumn},
                                                                        {"sbkpage", SectionStart::newPage},
                                                                        {"sbkeven", SectionStart::evenPage},
                                                                        {"sbkodd", SectionStart::oddPage}};
        if (const auto found = starts.find(name); found != starts.end()) {
            setup.sectionStart = found->second;
        }
    }

    SectionPtr lastSection() const { return document_.section(document_.sectionCount()); }

    void flush()
    {
        if (pending_.empty()) {
            return;
        }
        insert(normalizeText(pending_));
        pending_.clear();
        endedWithMark_ = false;
    }

    void insert(std::u16string_view text)
    {
        const Position at = fields_.insertionPoint(*story_);
        story_->insert(at, text);
        story_->setCharacterFormat(at, at + static_cast<Position>(text.size()), characterFormat());
    }

    CharacterFormat characterFormat() const
    {
        FontProperties base = state_.paragraphStyle->resolvedFont();
        if (state_.characterStyle) {
            base.overlay(state_.characterStyle->resolvedFont());
        }
        return {state_.characterStyle, fontBeyond(state_.font, base)};
    }

    void formatLastParagraph()
    {
        ParagraphFormat format;
        format.style = state_.paragraphStyle;
        format.properties = paragraphBeyond(state_.paragraph, format.style->resolvedParagraph());
        story_->setParagraphFormat(story_->paragraphCount() - 1, format);
    }

    void endParagraph()
    {
        if (state_.destination != Destination::text) {
            return;
        }
        flush();
        if (!state_.inTable) {
            endRow(lastParagraphStart());
        }
        formatLastParagraph();
        const char16_t paragraphMark = mark::paragraph;
        insert({&paragraphMark, 1});
        if (state_.inTable) {
            rowIsOpen_ = true;
            putIntoTable(story_->paragraphCount() - 2);
        }
        endedWithMark_ = true;
        markedStory_ = story_;
    }

    void endCell()
    {
        if (state_.destination != Destination::text) {
            return;
        }
        flush();
        formatLastParagraph();
        const Position at = fields_.insertionPoint(*story_);
        story_->insertParagraphEnd(at, mark::cell, ParagraphEnd::cell);
        story_->setCharacterFormat(at, at + 1, characterFormat());
        putIntoTable(story_->paragraphCount() - 2);
        rowIsOpen_ = true;
        ++rowCells_;
        endedWithMark_ = false;
    }

    void putIntoTable(std::size_t paragraph)
    {
        ParagraphFormat format = *story_->paragraph(paragraph).format;
        format.inTable = true;
        story_->setParagraphFormat(paragraph, format);
    }

    Position lastParagraphStart() const { return story_->paragraph(story_->paragraphCount() - 1).start; }

    /// Ends the open row at `at`. Text behind the last cell becomes a cell, so that every row is whole.
    void endRow(Position at)
    {
        if (!rowIsOpen_) {
            return;
        }
        if (!isCellMark(*story_, at - 1)) {
            insertCellMark(*story_, at, story_->paragraphIndexAt(at - 1));
            ++at;
            ++rowCells_;
        }
        insertRowMark(*story_, at, rowDefinition_.format(rowCells_));
        rowIsOpen_ = false;
        rowCells_ = 0;
        endedWithMark_ = false;
    }

    void endSection()
    {
        if (story_ != document_.mainStory() || state_.destination != Destination::text) {
            return;
        }
        endRow(lastParagraphStart());
        formatLastParagraph();
        document_.breakSection(fields_.insertionPoint(*story_), SectionStart::newPage);
        endedWithMark_ = false;
    }

    /// The mark that the story has by nature takes the place of the last one read.
    void finishStory()
    {
        flush();
        endRow(lastParagraphStart());
        if (endedWithMark_ && markedStory_ == story_) {
            const Position last = story_->length() - 1;
            const ParagraphFormat format = *story_->paragraphAt(last - 1).format;
            const CharacterFormat characters = *story_->runAt(last - 1).format;
            BookmarkReader::eraseDoubleMark(story_);
            story_->setParagraphFormat(story_->paragraphCount() - 1, format);
            story_->setCharacterFormat(last - 1, last, characters);
        } else {
            formatLastParagraph();
        }
        endedWithMark_ = false;
        markedStory_.reset();
    }

    /// Some writers turn a page by its size alone.
    void findLandscapes()
    {
        for (std::int32_t index = 1; index <= document_.sectionCount(); ++index) {
            PageSetup& setup = document_.section(index)->pageSetup;
            if (setup.pageWidth > setup.pageHeight) {
                setup.orientation = Orientation::landscape;
            }
        }
    }

    RtfLexer lexer_;
    Document& document_;
    std::shared_ptr<Story> story_;
    std::vector<GroupState> groups_;
    GroupState state_;
    bool isIgnorable_ = false;
    std::int32_t toSkip_ = 0;
    std::u16string pending_;
    bool endedWithMark_ = false;
    std::shared_ptr<Story> markedStory_;
    OpenFields fields_;
    BookmarkReader bookmarks_;
    std::u16string name_; ///< of a bookmark, or the text of an entry for a table of contents
    ContentsEntry entry_;
    PictureReader picture_;
    InlineShape object_;
    HexReader objectData_;
    RowDefinitionReader rowDefinition_;
    bool rowIsOpen_ = false;
    std::size_t rowCells_ = 0;

    std::map<std::int32_t, std::u16string> fonts_;
    std::int32_t font_ = 0;
    std::u16string fontName_;
    std::vector<std::int32_t> colors_;
    std::int32_t color_ = 0;
    bool colorIsSet_ = false;
    std::map<std::int32_t, StylePtr> styles_;
    StyleEntry style_;
    PageSetup defaults_;
};

} // namespace

void readRtf(std::string_view bytes, Document& document)
{
    Reader(bytes, document).read();
    document.setSaved(true);
}

} // namespace standin::rtf
