#include "RtfReader.h"

#include "LiveRange.h"
#include "PlainText.h"
#include "RtfFields.h"
#include "RtfLexer.h"
#include "RtfObjects.h"
#include "RtfPageWords.h"
#include "RtfPictures.h"
#include "RtfStoryReader.h"
#include "RtfTextFormat.h"
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

/// What a closing brace restores.
struct GroupState
{
    Destination destination = Destination::text;
    TextFormat format;
    std::int32_t fallbackLength = 1; ///< characters that follow a \uN for readers without Unicode
    bool opensHeader = false;
    bool opensField = false;
    bool opensPicture = false;
    bool opensObject = false;
};

[[noreturn]] void refuse(const char* reason)
{
    throw WordError(WordErrorNumber::invalidDocumentName, reason);
}

class Reader
{
public:
    Reader(std::string_view bytes, Document& document)
        : lexer_(bytes), document_(document), tables_{.styles = StyleSheetReader(document)},
          text_(document, state_.format, tables_), pages_(document)
    {
        state_.format.paragraphStyle = &document.styles().normal();
    }

    void read()
    {
        try {
            readAll();
            pages_.findLandscapes();
        } catch (...) {
            text_.endRow(); // what was read so far holds together
            throw;
        }
    }

    void readFragment()
    {
        isFragment_ = true;
        if (!document_.switches().insertFileKeepsDifferencesOnly)
            text_.keepAllStated();
        read();
    }

    /// The text ended with the word for the end of a paragraph.
    bool endsParagraph() const { return endsParagraph_; }
    FontProperties defaultFont() const { return tables_.plain(); }

private:
    void readAll()
    {
        expectStart();
        while (!groups_.empty()) {
            const RtfToken token = lexer_.next();
            if (token.kind == RtfToken::Kind::end)
                refuse("The file ends in the middle.");
            take(token);
        }
    }

    void expectStart()
    {
        const RtfToken brace = lexer_.next();
        const RtfToken word = lexer_.next();
        if (brace.kind != RtfToken::Kind::groupStart || word.kind != RtfToken::Kind::word ||
            word.word != "rtf")
            refuse("The file is not in rich text format.");
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
            if (toSkip_ > 0)
                --toSkip_;
            else
                character(fromAnsi(token.byte));
            return;
        case RtfToken::Kind::end:
            return;
        }
    }

    void openGroup()
    {
        static constexpr std::size_t deepest = 10000;
        if (groups_.size() > deepest)
            refuse("The file's groups are nested too deep.");
        text_.flush();
        toSkip_ = 0;
        groups_.push_back(state_);
        state_.opensHeader = false;
        state_.opensField = false;
        state_.opensPicture = false;
        state_.opensObject = false;
    }

    void closeGroup()
    {
        text_.flush();
        toSkip_ = 0;
        isIgnorable_ = false;
        if (state_.destination != groups_.back().destination)
            finishDestination();
        if (state_.opensField)
            text_.closeField();
        if (state_.opensPicture)
            finishPicture();
        else if (state_.opensObject)
            finishObject();
        else if (state_.destination == Destination::styles)
            tables_.styles.finish(state_.format.font, state_.format.paragraph, tables_.plain());
        else if (state_.opensHeader)
            text_.endHeader();
        if (groups_.size() == 1) {
            endsParagraph_ = text_.endsWithMark();
            text_.finishStory();
        }
        const bool wasFonts = state_.destination == Destination::fonts;
        state_ = std::move(groups_.back());
        groups_.pop_back();
        if (wasFonts && state_.destination != Destination::fonts)
            takeDefaultFont();
    }

    /// What comes behind the table of fonts, styles included, starts from the file's default font.
    void takeDefaultFont()
    {
        if (!state_.format.statedFont.name)
            state_.format.font.name = tables_.plain().name;
        // A fragment's Normal says nothing but what the fragment says of it.
        if (isFragment_ && !tables_.styles.definesNormal())
            document_.styles().find(document_.styles().normal().name())->font.name = tables_.plain().name;
    }

    /// After \*: a reader may skip the destination when it does not know it.
    void ignorableWord(const RtfToken& token)
    {
        isIgnorable_ = false;
        static constexpr std::array<std::string_view, 9> known = {
            "cs", "ts", "fldinst", "bkmkstart", "bkmkend", "mvcodefield", "shppict", "objclass", "objdata"};
        if (std::find(known.begin(), known.end(), token.word) != known.end())
            word(token);
        else
            state_.destination = Destination::skip;
    }

    void word(const RtfToken& token)
    {
        toSkip_ = 0;
        const std::int32_t number = token.number.value_or(0);
        if (state_.destination == Destination::skip || openDestination(token.word))
            return;
        if (state_.destination == Destination::picture) {
            picture_.word(token.word, number);
            picture_.data(token.data);
        } else if (state_.destination == Destination::objectData) {
            object_.raw(token.data);
        } else if (token.word == "u") {
            unicode(number);
        } else if (token.word == "uc") {
            state_.fallbackLength = std::clamp(number, 0, 100);
        } else if (state_.destination == Destination::colors) {
            tables_.colors.word(token.word, number);
        } else if (state_.destination == Destination::fonts) {
            tables_.fonts.word(token.word, number);
        } else if (state_.destination != Destination::styles ||
                   !tables_.styles.take(token.word, number, tables_.colors)) {
            text_.flush();
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
            text_.flush();
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
                text_.openField();
                state_.opensField = true;
                state_.destination = Destination::field;
            }
            return true;
        }
        if (name != "fldinst" && name != "fldrslt")
            return false;
        if (state_.destination == Destination::field) {
            if (name == "fldrslt")
                text_.openResult();
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
        if (found == destinations.end() || state_.destination != Destination::text)
            return false;
        text_.flush();
        state_.destination = found->second;
        name_.clear();
        entry_ = {};
        return true;
    }

    /// The group that ends was the whole of a bookmark's name or of an entry.
    void finishDestination()
    {
        if (state_.destination == Destination::bookmarkStart)
            text_.startBookmark(name_);
        else if (state_.destination == Destination::bookmarkEnd)
            text_.endBookmark(name_);
        else if (state_.destination == Destination::contentsEntry)
            insertContentsEntry();
    }

    void insertContentsEntry()
    {
        entry_.text = normalizeText(name_);
        std::replace(entry_.text.begin(), entry_.text.end(), mark::paragraph, u' ');
        text_.insertHiddenField(entry_.code());
    }

    bool openPicture(std::string_view name)
    {
        if (name != "pict" ||
            (state_.destination != Destination::text && state_.destination != Destination::object))
            return false;
        text_.flush();
        picture_ = {};
        state_.destination = Destination::picture;
        state_.opensPicture = true;
        return true;
    }

    void finishPicture()
    {
        const std::optional<InlineShape> shape = picture_.finish();
        if (!shape)
            return;
        if (groups_.back().destination == Destination::object)
            object_.show(*shape);
        else
            text_.insertShape(*shape);
    }

    bool openObjectPart(std::string_view name)
    {
        static const std::map<std::string_view, Destination> parts = {{"objclass", Destination::objectClass},
                                                                      {"objdata", Destination::objectData}};
        if (name == "object" && state_.destination == Destination::text) {
            text_.flush();
            object_ = {};
            state_.destination = Destination::object;
            state_.opensObject = true;
            return true;
        }
        const auto part = parts.find(name);
        if (part == parts.end())
            return false;
        state_.destination = state_.destination == Destination::object ? part->second : Destination::skip;
        return true;
    }

    void finishObject()
    {
        const std::optional<InlineShape> shape = object_.finish();
        if (!shape)
            return;
        if (document_.switches().oleObjectIsField)
            text_.insertObjectField(*shape);
        else
            text_.insertShape(*shape);
    }

    bool openHeader(std::string_view name)
    {
        const bool header = name.starts_with("header");
        if (!header && !name.starts_with("footer"))
            return false;
        const std::string_view which = name.substr(6);
        HeaderFooterIndex index = HeaderFooterIndex::primary;
        if (which == "f")
            index = HeaderFooterIndex::firstPage;
        else if (which == "l")
            index = HeaderFooterIndex::evenPages;
        else if (!which.empty() && which != "r")
            return false;
        if (!text_.isInBody())
            refuse("A header inside a header.");
        text_.beginHeader(header ? Section::Part::header : Section::Part::footer, index);
        state_.opensHeader = true;
        return true;
    }

    void symbol(unsigned char c)
    {
        if (c == '*')
            isIgnorable_ = true;
        else if (c == '~')
            character(0xA0);
        else if (c == '_')
            character(30);
        else if (c == '-')
            character(31);
        else if ((c == '\n' || c == '\r') && isText())
            text_.endParagraph();
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
            text_.character(c);
            return;
        case Destination::fonts:
            tables_.fonts.character(c);
            return;
        case Destination::colors:
            tables_.colors.character(c);
            return;
        case Destination::styles:
            if (c == u';')
                tables_.styles.finish(state_.format.font, state_.format.paragraph, tables_.plain());
            else
                tables_.styles.character(c);
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
            object_.classCharacter(c);
            return;
        case Destination::objectData:
            object_.digit(c);
            return;
        case Destination::object:
        case Destination::skip:
            return;
        }
    }

    bool isText() const { return state_.destination == Destination::text; }

    /// The end of a paragraph, a section, a cell or a row; false for any other word.
    bool takeEnd(std::string_view name)
    {
        if (name == "par" || name == "nestcell")
            text_.endParagraph();
        else if (name == "sect")
            text_.endSection();
        else if (name == "cell")
            text_.endCell();
        else if (name == "row")
            text_.endRowHere();
        else
            return false;
        return true;
    }

    void textWord(const RtfToken& token, std::int32_t number)
    {
        const std::string_view name = token.word;
        if (const auto c = characterOf(name))
            character(*c);
        else if (isText() && takeEnd(name))
            return;
        else if (name == "tcl" || name == "tcf")
            (name == "tcl" ? entry_.level : entry_.table) = number;
        else if (name == "deff")
            tables_.defaultFont = number;
        else if (!takeFormatWord(state_.format, tables_, token) && !text_.takeRowWord(name, number))
            pages_.take(name, number);
    }

    RtfLexer lexer_;
    Document& document_;
    std::vector<GroupState> groups_;
    GroupState state_;
    bool isIgnorable_ = false;
    std::int32_t toSkip_ = 0;
    std::u16string name_; ///< of a bookmark, or the text of an entry for a table of contents
    ContentsEntry entry_;
    PictureReader picture_;
    ObjectReader object_;

    bool isFragment_ = false;
    bool endsParagraph_ = false;

    TextTables tables_;
    StoryReader text_;
    PageReader pages_;
};

} // namespace

void readRtf(std::string_view bytes, Document& document)
{
    Reader(bytes, document).read();
    document.setSaved(true);
}

RtfFragment readRtfFragment(std::string_view bytes, Document& document)
{
    Reader reader(bytes, document);
    reader.readFragment();
    return {reader.endsParagraph(), reader.defaultFont()};
}

} // namespace standin::rtf
