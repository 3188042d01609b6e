#include "RandomSession.h"

#include "RandomNumbers.h"
#include "SessionRules.h"
#include "SessionWords.h"

#include <algorithm>

namespace reference {

namespace {

/// What a session may be about.
enum Feature : unsigned
{
    usesStyles = 1 << 0,
    usesFonts = 1 << 1,
    usesAlignments = 1 << 2,
    usesPageBreaks = 1 << 3,
    usesHeaders = 1 << 4,
    usesTables = 1 << 5,
    usesContents = 1 << 6,
    usesLinks = 1 << 7,
    usesAnchors = 1 << 8,
    usesTags = 1 << 9,
    usesFields = 1 << 10,
    usesPictures = 1 << 11,
    usesBrokenTexts = 1 << 12
};
constexpr unsigned allFeatures = (1 << 13) - 1;

/// Steps of a session: those of a session without files, and the others.
constexpr std::size_t plainSteps = 16;
constexpr std::size_t allSteps = 20;

constexpr std::size_t longestSession = 70;
constexpr std::size_t longestRunOfLinks = 30;
constexpr std::size_t longTextLength = 1500;

class Generator
{
public:
    Generator(std::uint32_t seed, Extent extent) : numbers_(seed), extent_(extent)
    {
        features_ = static_cast<unsigned>(numbers_.below(allFeatures + 1));
        if (numbers_.onceIn(3))
            features_ &= static_cast<unsigned>(numbers_.below(allFeatures + 1));
    }

    Session make()
    {
        const std::size_t length = 2 + numbers_.below(longestSession);
        if (extent_ == Extent::all && numbers_.onceIn(6))
            file();
        while (session_.size() < length)
            step();
        if (!numbers_.onceIn(4))
            finish();
        return std::move(session_);
    }

private:
    [[nodiscard]] bool uses(Feature feature) const { return (features_ & feature) != 0; }

    /// Leaves the call out when it must not come now.
    void add(Method method, std::u16string_view text = {}, std::u16string_view target = {}, int number = 0,
             bool isOn = false)
    {
        ClientCall call = {method, std::u16string(text), std::u16string(target), number, isOn};
        if (rules_.accept(call))
            session_.push_back(std::move(call));
    }
    void add(Method method, int number, bool isOn = false) { add(method, {}, {}, number, isOn); }

    void step()
    {
        switch (numbers_.below(extent_ == Extent::all ? allSteps : plainSteps)) {
        case 0:
        case 1:
        case 2:
        case 3:
            return text();
        case 4:
        case 5:
            return add(Method::insertEndl);
        case 6:
            return style();
        case 7:
            return font();
        case 8:
            return alignment();
        case 9:
            return pageOrHeader();
        case 10:
        case 11:
            return table();
        case 12:
            return contents();
        case 13:
            return link();
        case 14:
            return tag();
        case 15:
            return fieldOrPicture();
        case 16:
        case 17:
            return file();
        case 18:
            return meeting();
        default:
            if (numbers_.onceIn(6))
                add(Method::setOrientation, static_cast<int>(numbers_.below(3)));
        }
    }

    void file()
    {
        const bool isContent = numbers_.onceIn(2);
        const SessionFile& file = isContent ? contentFile() : numbers_.oneOf(sessionFiles());
        if (numbers_.onceIn(8))
            return add(Method::insertFile, numbers_.oneOf(words::addresses), {},
                       numbers_.oneOf(words::fileKinds));
        add(Method::insertFile, file.name, {}, isContent ? 0 : numbers_.oneOf(words::fileKinds));
    }

    const SessionFile& contentFile()
    {
        const SessionFile* file = nullptr;
        do
            file = &numbers_.oneOf(sessionFiles());
        while (file->paragraphs.empty());
        return *file;
    }

    void insertContent() { add(Method::insertFile, contentFile().name); }

    /// Calls whose places touch, or that tell of one another from afar.
    void meeting()
    {
        switch (numbers_.below(8)) {
        case 0:
        case 1:
            return fileBehindContents();
        case 2:
            return fileBehindTable();
        case 3:
            return tableBehindFile();
        case 4:
            return fileInCell();
        case 5:
            return headerAgain();
        case 6:
            return tagAgain();
        default:
            return linksAcrossStories();
        }
    }

    void textOrNothing()
    {
        if (numbers_.onceIn(2))
            text();
    }

    void formatOrNothing()
    {
        switch (numbers_.below(4)) {
        case 0:
            return add(Method::setStyle, numbers_.oneOf(words::styles));
        case 1:
            return add(Method::setTextAlign, numbers_.oneOf(words::alignments));
        case 2:
            return add(Method::setFontSize, numbers_.oneOf(words::fontSizes));
        default:
            return;
        }
    }

    void fileBehindContents()
    {
        textOrNothing();
        formatOrNothing();
        add(Method::insertTOC);
        switch (numbers_.below(4)) {
        case 0:
            text();
            break;
        case 1:
            add(Method::insertXref, label(), target());
            break;
        case 2:
            add(Method::setStyle, numbers_.oneOf(words::styles));
            break;
        default:
            break;
        }
        insertContent();
        formatOrNothing();
        textOrNothing();
    }

    void smallTable()
    {
        add(Method::startTable);
        add(Method::addRow);
        add(Method::addCell);
        textOrNothing();
        if (numbers_.onceIn(2)) {
            add(Method::addCell);
            textOrNothing();
        }
        add(Method::endTable);
    }

    void fileBehindTable()
    {
        smallTable();
        formatOrNothing();
        insertContent();
        textOrNothing();
    }

    void tableBehindFile()
    {
        insertContent();
        formatOrNothing();
        smallTable();
    }

    void fileInCell()
    {
        formatOrNothing();
        add(Method::startTable);
        add(Method::addRow);
        add(Method::addCell);
        textOrNothing();
        formatOrNothing();
        insertContent();
        formatOrNothing();
        textOrNothing();
        if (numbers_.onceIn(2))
            add(Method::addCell);
        textOrNothing();
        if (numbers_.onceIn(2))
            add(Method::endTable);
    }

    /// While it is open it is gone on with; once it was ended it begins anew.
    void headerAgain()
    {
        const bool isHeader = numbers_.onceIn(2);
        const Method start = isHeader ? Method::startHeader : Method::startFooter;
        const Method end = isHeader ? Method::endHeader : Method::endFooter;
        add(start);
        text();
        if (numbers_.onceIn(2))
            add(isHeader ? Method::startFooter : Method::startHeader);
        textOrNothing();
        add(start);
        formatOrNothing();
        text();
        add(end);
        if (numbers_.onceIn(2)) {
            textOrNothing();
            add(start);
            text();
            add(end);
        }
        isInBody_ = true;
    }

    void tagAgain()
    {
        const std::u16string_view name = numbers_.oneOf(words::tags);
        add(Method::insertTag, name);
        textOrNothing();
        if (numbers_.onceIn(2))
            add(Method::insertXref, label(), name);
        if (numbers_.onceIn(3))
            header();
        textOrNothing();
        add(Method::insertTag, name);
        textOrNothing();
    }

    void linksAcrossStories()
    {
        const std::u16string_view name = numbers_.oneOf(words::tags);
        const bool isTagInHeader = numbers_.onceIn(2);
        const auto write = [&](bool isTag) {
            textOrNothing();
            if (isTag)
                add(Method::insertTag, name);
            else
                add(Method::insertXref, label(), name);
            textOrNothing();
        };
        add(Method::startHeader);
        write(isTagInHeader);
        add(Method::endHeader);
        isInBody_ = true;
        write(!isTagInHeader);
        if (numbers_.onceIn(2))
            add(Method::insertXref, label(), name);
    }

    void text()
    {
        if (uses(usesBrokenTexts) && numbers_.onceIn(3))
            return add(Method::insertText, numbers_.oneOf(words::brokenTexts));
        add(Method::insertText, numbers_.oneOf(words::texts));
    }

    void style()
    {
        if (!uses(usesStyles))
            return;
        add(Method::setStyle, numbers_.onceIn(20) ? words::unknownStyle : numbers_.oneOf(words::styles));
    }

    void font()
    {
        if (!uses(usesFonts))
            return;
        switch (numbers_.below(3)) {
        case 0:
            return add(Method::setFontName, numbers_.oneOf(words::fonts));
        case 1:
            return add(Method::setFontSize, numbers_.oneOf(words::fontSizes));
        default:
            return add(Method::setFontAttribute, numbers_.oneOf(words::fontAttributes), numbers_.onceIn(2));
        }
    }

    void alignment()
    {
        if (uses(usesAlignments))
            add(Method::setTextAlign, numbers_.oneOf(words::alignments));
    }

    void pageOrHeader()
    {
        if (uses(usesPageBreaks) && numbers_.onceIn(2))
            return add(Method::insertPageBreak);
        if (uses(usesHeaders))
            header();
    }

    void header()
    {
        const bool isHeader = numbers_.onceIn(2);
        const bool starts = isInBody_ ? !numbers_.onceIn(8) : numbers_.onceIn(3);
        if (starts)
            add(isHeader ? Method::startHeader : Method::startFooter);
        else
            add(isHeader ? Method::endHeader : Method::endFooter);
        isInBody_ = !starts;
    }

    void table()
    {
        if (!uses(usesTables))
            return;
        const std::size_t choice = numbers_.below(20);
        if (choice < 3) {
            add(Method::startTable);
            if (!numbers_.onceIn(6))
                add(Method::addRow);
            if (!numbers_.onceIn(6))
                add(Method::addCell);
        } else if (choice < 12) {
            add(Method::addCell);
        } else if (choice < 16) {
            add(Method::addRow);
            if (!numbers_.onceIn(8))
                add(Method::addCell);
        } else if (choice < 17) {
            add(Method::setTableRowHeight, 20);
        } else {
            add(Method::endTable);
        }
    }

    void contents()
    {
        if (!uses(usesContents))
            return;
        switch (numbers_.below(4)) {
        case 0:
            return add(Method::insertTOC);
        case 1:
            add(Method::startTOCEntry);
            if (numbers_.onceIn(8))
                return add(Method::insertText, std::u16string(longTextLength, u'\u00e4'));
            return text();
        default:
            return add(Method::endTOCEntry);
        }
    }

    std::u16string_view target()
    {
        switch (numbers_.below(10)) {
        case 0:
            return {};
        case 1:
            return numbers_.oneOf(words::missingTags);
        case 9:
            return pictureName;
        case 2:
        case 3:
        case 4:
            return numbers_.oneOf(words::addresses);
        default:
            return numbers_.oneOf(words::tags);
        }
    }

    void link()
    {
        if (uses(usesAnchors) && (!uses(usesLinks) || numbers_.onceIn(2)))
            return add(Method::insertText, textWithAnchors());
        if (!uses(usesLinks))
            return;
        const std::size_t count = numbers_.onceIn(6) ? numbers_.below(longestRunOfLinks) : 1;
        for (std::size_t i = 0; i < count; ++i)
            add(Method::insertXref, label(), target());
    }

    std::u16string label()
    {
        if (uses(usesBrokenTexts) && numbers_.onceIn(8))
            return u"l\nm";
        return numbers_.onceIn(20) ? std::u16string() : std::u16string(numbers_.oneOf(words::labels));
    }

    std::u16string textWithAnchors()
    {
        std::u16string text(numbers_.oneOf(words::texts));
        for (std::size_t count = 1 + numbers_.below(3); count > 0; --count) {
            const std::u16string_view leadsTo = target();
            text += u"<a href=\"";
            text += leadsTo.starts_with(u"GUID ") && numbers_.onceIn(2) ? u"#" : u"";
            text += leadsTo;
            text += u"\">";
            text += label();
            text += u"</a>";
            text += numbers_.oneOf(words::texts);
        }
        return text;
    }

    void tag()
    {
        if (!uses(usesTags))
            return;
        for (std::size_t count = 1 + numbers_.below(2); count > 0; --count)
            add(Method::insertTag, numbers_.oneOf(words::tags));
    }

    void fieldOrPicture()
    {
        if (uses(usesFields) && numbers_.onceIn(2))
            return add(Method::insertField, 1 + static_cast<int>(numbers_.below(4)));
        if (uses(usesPictures))
            add(Method::insertImage, numbers_.oneOf(pictureNames),
                numbers_.onceIn(2) ? target() : std::u16string_view());
    }

    /// Most clients end what they began.
    void finish()
    {
        if (!isInBody_) {
            add(Method::endTable);
            add(Method::endHeader);
            add(Method::endFooter);
        }
        add(Method::endTable);
    }

    RandomNumbers numbers_;
    Extent extent_;
    unsigned features_ = 0;
    Session session_;
    SessionRules rules_;
    bool isInBody_ = true;
};

class ArrangedGenerator
{
public:
    explicit ArrangedGenerator(std::uint32_t seed) : numbers_(seed) {}

    Session make()
    {
        if (numbers_.onceIn(2)) {
            add(Method::startHeader);
            paragraph();
            if (numbers_.onceIn(2))
                link();
            add(Method::endHeader);
        }
        const bool hasContents = numbers_.onceIn(2);
        if (hasContents)
            add(Method::insertTOC);
        for (std::size_t count = 1 + numbers_.below(8); count > 0; --count) {
            styledParagraph(hasContents);
            if (numbers_.onceIn(4))
                pageBreak();
        }
        if (numbers_.onceIn(2)) {
            link();
            plainText();
            add(Method::insertEndl);
        }
        return std::move(session_);
    }

private:
    void add(Method method, std::u16string_view text = {}, std::u16string_view target = {}, int number = 0,
             bool isOn = false)
    {
        session_.push_back({method, std::u16string(text), std::u16string(target), number, isOn});
    }

    void plainText() { add(Method::insertText, u"some text "); }

    void paragraph()
    {
        for (std::size_t count = 1 + numbers_.below(3); count > 0; --count) {
            if (numbers_.onceIn(2))
                font();
            if (numbers_.onceIn(3))
                add(Method::setFontAttribute, {}, {}, numbers_.oneOf(words::fontAttributes), true);
            plainText();
            if (numbers_.onceIn(3))
                add(Method::insertField, {}, {}, 1 + static_cast<int>(numbers_.below(4)));
            add(Method::insertText, numbers_.onceIn(2) ? u"Gr\u00fc\u00dfe" : u"\u6f22\U0001f600");
        }
    }

    void font()
    {
        add(Method::setFontName, numbers_.oneOf(words::fonts));
        add(Method::setFontSize, {}, {}, 9 + static_cast<int>(numbers_.below(20)));
    }

    void styledParagraph(bool hasContents)
    {
        add(Method::setStyle, words::styles[1 + numbers_.below(3)]);
        if (numbers_.onceIn(3))
            add(Method::setTextAlign, {}, {}, numbers_.oneOf(words::alignments));
        if (nextTag_ < words::tags.size() && numbers_.onceIn(2)) {
            plainText();
            add(Method::insertTag, words::tags[nextTag_++]);
        }
        const bool hasEntry = hasContents && numbers_.onceIn(2);
        if (hasEntry)
            add(Method::startTOCEntry);
        paragraphOrText(hasEntry);
        if (hasEntry)
            add(Method::endTOCEntry);
        if (numbers_.onceIn(4))
            add(Method::insertImage, pictureName);
        add(Method::insertEndl);
    }

    /// What an entry can hold without loss.
    void paragraphOrText(bool hasEntry)
    {
        if (hasEntry)
            plainText();
        else
            paragraph();
    }

    void pageBreak()
    {
        add(Method::setStyle, u"Normal");
        add(Method::insertPageBreak);
        plainText();
        add(Method::insertEndl);
    }

    void link()
    {
        if (nextTag_ > 0 && numbers_.onceIn(2))
            add(Method::insertXref, u"label", words::tags[numbers_.below(nextTag_)]);
        else
            add(Method::insertXref, u"label", numbers_.oneOf(words::addresses));
    }

    RandomNumbers numbers_;
    Session session_;
    std::size_t nextTag_ = 0;
};

} // namespace

Session randomSession(std::uint32_t seed, Extent extent)
{
    return Generator(seed, extent).make();
}

Session arrangedSession(std::uint32_t seed)
{
    return ArrangedGenerator(seed).make();
}

bool isAddress(std::u16string_view target)
{
    return target == pictureName ||
           std::find(words::addresses.begin(), words::addresses.end(), target) != words::addresses.end();
}

} // namespace reference
