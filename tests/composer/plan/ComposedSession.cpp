#include "ComposedSession.h"

#include "ContentReading.h"

#include <algorithm>
#include <array>
#include <memory>
#include <sstream>

using namespace compose;

namespace {

constexpr std::array<std::u16string_view, 14> texts = {
    u"a",   u"bc",  u"d e",    u"",       u"\r",           u"f\r\ng", u"\n\n",
    u"\fh", u"i\f", u"j\x01k", u"l\rm\n", u"\xD83D\xDE00", u"X",      u"\t\v",
};
constexpr std::array<std::u16string_view, 7> labels = {u"n", u"op", u"", u"\r", u"q\rr", u"\ns\n\n", u"t\fu"};
constexpr std::array<int, 4> sizes = {0, 12, 16, 20};
constexpr std::array<std::u16string_view, 3> fonts = {u"Times", u"Arial", u"Other"};
constexpr std::array<std::u16string_view, 4> bookmarks = {u"b1", u"b2", u"b3", u"b4"};

ModelStory::Readings readingsBy(Choices& choices)
{
    const std::size_t number = choices.below(8);
    return {.styleKeepsAlignment = (number & 1U) == 0,
            .beginningLooksLikeNext = (number & 2U) == 0,
            .bookmarkStaysBehindTable = (number & 4U) == 0};
}

bool leads(const LinkTarget& target)
{
    return target.bookmark != missingBookmark;
}

LinkTarget targetBy(Choices& choices)
{
    switch (choices.below(3)) {
    case 0:
        return {.address = u"http://a"};
    case 1:
        return {.bookmark = u"b1"};
    default:
        return {.bookmark = std::u16string(missingBookmark)};
    }
}

} // namespace

ComposedSession::ComposedSession(Choices choices)
    : choices_(choices), isHeader_(choices_.onceIn(4)), said_(isHeader_ ? u"Header" : u"Normal"),
      taken_(isHeader_ ? u"Header" : u"Normal"),
      model_(styles_, readingsBy(choices_), isHeader_ ? u"Header" : u"Normal"),
      ground_(isHeader_ ? Ground{.style = u""} : Ground())
{
}

std::string ComposedSession::run()
{
    while (!choices_.areOver())
        call();
    flush();
    model_.makeContents();
    return difference();
}

void ComposedSession::call()
{
    switch (choices_.below(9)) {
    case 0:
    case 1:
        return text();
    case 2:
        return font();
    case 3:
    case 4:
        return table();
    case 5:
        return contents();
    case 6:
        return setStyle();
    case 7:
        return flush();
    default:
        break;
    }
    switch (choices_.below(5)) {
    case 0:
        return breakSection();
    case 1:
        return putPicture();
    case 2: {
        const std::u16string bookmark(choices_.oneOf(bookmarks));
        return both("insertTag " + printable(bookmark),
                    [&](StoryContent& content) { content.insertTag(bookmark); });
    }
    case 3: {
        const int number = 1 + static_cast<int>(choices_.below(5));
        return both("insertField " + std::to_string(number),
                    [&](StoryContent& content) { content.insertField(number); });
    }
    default:
        return both("insertPageBreak", [](StoryContent& content) { content.insertPageBreak(); });
    }
}

void ComposedSession::text()
{
    switch (choices_.below(4)) {
    case 0: {
        const std::u16string_view label = choices_.oneOf(labels);
        const LinkTarget target = targetBy(choices_);
        return both("insertText '" + printable(label) + "' to " + printable(target.address) + "#" +
                        printable(target.bookmark),
                    [&](StoryContent& content) { content.insertText(label, &target); });
    }
    case 1:
        return both("insertEndl", [](StoryContent& content) { content.insertEndl(); });
    default: {
        const std::u16string_view characters = choices_.oneOf(texts);
        return both("insertText '" + printable(characters) + "'",
                    [&](StoryContent& content) { content.insertText(characters); });
    }
    }
}

void ComposedSession::font()
{
    switch (choices_.below(4)) {
    case 0: {
        const std::u16string_view name = choices_.oneOf(fonts);
        return both("setFontName " + printable(name),
                    [&](StoryContent& content) { content.setFontName(name); });
    }
    case 1: {
        const int size = choices_.oneOf(sizes);
        return both("setFontSize " + std::to_string(size),
                    [&](StoryContent& content) { content.setFontSize(size); });
    }
    case 2: {
        const int number = static_cast<int>(choices_.below(6));
        return both("setTextAlign " + std::to_string(number),
                    [&](StoryContent& content) { content.setTextAlign(number); });
    }
    default: {
        const std::size_t choice = choices_.below(10);
        const int attribute = choice % 5 == 0 ? 3 : 1 << (choice % 5 - 1);
        const bool isOn = choice < 5;
        return both("setFontAttribute " + std::to_string(attribute) + (isOn ? " on" : " off"),
                    [&](StoryContent& content) { content.setFontAttribute(attribute, isOn); });
    }
    }
}

void ComposedSession::table()
{
    switch (choices_.below(8)) {
    case 0:
        return both("startTable", [](StoryContent& content) { content.startTable(); });
    case 1:
    case 2:
        return both("addRow", [](StoryContent& content) { content.addRow(); });
    case 3:
    case 4:
    case 5:
        return both("addCell", [](StoryContent& content) { content.addCell(); });
    case 6:
        return both("endTable", [](StoryContent& content) { content.endTable(); });
    default: {
        const int height = 10 * static_cast<int>(1 + choices_.below(3));
        return both("setTableRowHeight " + std::to_string(height),
                    [&](StoryContent& content) { content.setTableRowHeight(height); });
    }
    }
}

void ComposedSession::contents()
{
    switch (choices_.below(4)) {
    case 0:
        story_ += "insertTOC\n";
        said_.insertTOC(u"T");
        if (taken_.insertTOC(u"T"))
            model_.dropContents();
        return;
    case 1:
        return both("startTOCEntry", [](StoryContent& content) { content.startTOCEntry(); });
    default:
        return both("endTOCEntry", [](StoryContent& content) { content.endTOCEntry(); });
    }
}

void ComposedSession::setStyle()
{
    if (isHeader_)
        return;
    const std::size_t choice = choices_.below(SampleStyles::names.size() + 1);
    if (choice == SampleStyles::names.size())
        return both("prepareStyle", [](StoryContent& content) { content.prepareStyle(); });
    const std::u16string_view name = SampleStyles::names[choice];
    if (said_.isInForce(name))
        return;
    both("setStyle " + printable(name), [&](StoryContent& content) {
        content.prepareStyle();
        content.setStyle(name, name);
    });
}

void ComposedSession::breakSection()
{
    story_ += "breakSection\n";
    said_.breakSection();
    if (taken_.breakSection() == StoryContent::LastBreak::written)
        isSectionDue_ = true;
    if (choices_.onceIn(2))
        flush();
}

std::optional<Passage::Cell> ComposedSession::cell() const
{
    if (!taken_.isTableOpen())
        return {};
    return Passage::Cell{taken_.currentCell().row, taken_.currentCell().column};
}

void ComposedSession::putPicture()
{
    if (taken_.takesKeptPicture() && choices_.onceIn(2))
        return keepPicture();
    if (taken_.takesPictureIntoTable())
        return putPictureIntoDraft();
    both("settleParagraph", [](StoryContent& content) { content.settleParagraph(); });
    flush();
    story_ += "picture\n";
    model_.addPicture(cell());
    taken_.objectWritten();
    said_.insertField(pictureNumber);
}

void ComposedSession::keepPicture()
{
    static const auto picture = std::make_shared<const KeptPicture>();
    const LinkTarget target = targetBy(choices_);
    const bool isLinked = choices_.onceIn(2);
    both(isLinked ? "linked picture that is kept" : "picture that is kept",
         [&](StoryContent& content) { content.addKeptPicture(picture, isLinked ? &target : nullptr); });
}

// Word refuses some.
void ComposedSession::putPictureIntoDraft()
{
    breakDueSection();
    if (const std::span<const Block> inFront = taken_.blocksInFrontOfTable(); !inFront.empty()) {
        Source source{inFront, taken_.links(), ground_, leads};
        source.endsOpen = false;
        if (draft_)
            source.drafted = draft_->length;
        const Plan plan = planOf(source, styles_);
        taken_.takenInFrontOfTable();
        draft_.reset();
        ground_ = plan.after;
        model_.carryOut(plan);
    }
    taken_.addPicture();
    if (!draft_)
        draft_.emplace();
    const DraftStep next =
        goOnWith(*draft_, *cell(), {taken_.blocks(), taken_.links(), ground_, leads}, styles_);
    model_.goOnWithDraft(draft_->length, next.text);
    draft_ = next.draft;
    if (choices_.onceIn(4)) {
        story_ += "picture that Word refuses\n";
        return;
    }
    const LinkTarget target = targetBy(choices_);
    const bool isLinked = choices_.onceIn(2);
    story_ += isLinked ? "linked picture in a draft\n" : "picture in a draft\n";
    model_.addPicture({});
    ++draft_->length;
    ++draft_->inCell;
    for (StoryContent* const content : {&said_, &taken_}) {
        if (content == &said_)
            content->addPicture();
        content->pictureWritten(isLinked ? &target : nullptr);
    }
}

void ComposedSession::breakDueSection()
{
    if (isSectionDue_)
        model_.breakSection();
    isSectionDue_ = false;
}

void ComposedSession::flush()
{
    story_ += "flush\n";
    breakDueSection();
    if (!taken_.isPending())
        return;
    Source source{taken_.blocks(), taken_.links(), ground_, leads};
    if (draft_)
        source.drafted = draft_->length;
    const Plan plan = planOf(source, styles_);
    taken_.taken();
    draft_.reset();
    ground_ = plan.after;
    model_.carryOut(plan);
}

std::string ComposedSession::difference()
{
    StoryReading wanted = readingOf(said_.blocks(), said_.links(), styles_);
    StoryReading found = model_.read();
    if (wanted.tokens.back() == StoryReading::anyEnd)
        found.tokens.back() = StoryReading::anyEnd;
    std::ostringstream result;
    if (wanted.tokens != found.tokens) {
        for (std::size_t i = 0; i < std::max(wanted.tokens.size(), found.tokens.size()); ++i) {
            const std::string want = i < wanted.tokens.size() ? wanted.tokens[i] : "nothing";
            const std::string find = i < found.tokens.size() ? found.tokens[i] : "nothing";
            result << (want == find ? "   " : "!! ") << want << "  ||  " << find << '\n';
        }
    }
    if (wanted.tags != found.tags) {
        for (const auto& [name, at] : wanted.tags)
            result << "tag " << printable(name) << " wanted at " << at << '\n';
        for (const auto& [name, at] : found.tags)
            result << "tag " << printable(name) << " found at " << at << '\n';
    }
    return result.str();
}
