#include "ReferenceDocument.h"

#include <algorithm>

namespace reference {

namespace {

constexpr std::u16string_view anchorOpening = u"<a href=\"";
constexpr std::u16string_view anchorTargetEnd = u"\">";
constexpr std::u16string_view anchorEnd = u"</a>";

/// "#GUID 7" names the tag "GUID 7".
std::u16string_view anchorTarget(std::u16string_view written)
{
    return written.starts_with(u"#GUID ") ? written.substr(1) : written;
}

/// Of a picture.
std::u16string_view lookOf(const std::u16string& name)
{
    const SessionFile* const file = findSessionFile(name);
    return file ? file->look : std::u16string_view();
}

} // namespace

ReferenceDocument::ReferenceDocument(AddressTest isAddress, bool areFileEndsLost, SessionLook look)
    : isAddress_(std::move(isAddress)), areFileEndsLost_(areFileEndsLost), look_(std::move(look)),
      body_(u"Normal"), sections_(1), pages_(1)
{
}

void ReferenceDocument::perform(const Session& session)
{
    for (const ClientCall& call : session)
        perform(call);
}

void ReferenceDocument::perform(const ClientCall& call)
{
    ReferenceStory& story = current();
    switch (call.method) {
    case Method::insertText:
        return insertText(call.text);
    case Method::insertEndl:
        return story.insertEndl();
    case Method::insertPageBreak:
        return story.insertPageBreak();
    case Method::insertField:
        return story.insertField(call.number);
    case Method::startHeader:
        return startPart(Part::header);
    case Method::endHeader:
        return endPart(Part::header);
    case Method::startFooter:
        return startPart(Part::footer);
    case Method::endFooter:
        return endPart(Part::footer);
    case Method::setStyle:
        if (!currentPart_)
            story.setStyle(call.text);
        return;
    case Method::setFontName:
        return story.setFontName(call.text);
    case Method::setFontSize:
        return story.setFontSize(call.number);
    case Method::setFontAttribute:
        return story.setFontAttribute(call.number, call.isOn);
    case Method::setTextAlign:
        return story.setTextAlign(call.number);
    case Method::insertTOC:
        return story.insertTOC(look_.title, look_.styleOfTitle());
    case Method::startTOCEntry:
        return story.startTOCEntry();
    case Method::endTOCEntry:
        return story.endTOCEntry();
    case Method::startTable:
        return story.startTable();
    case Method::endTable:
        return story.endTable();
    case Method::addRow:
        return story.addRow();
    case Method::addCell:
        return story.addCell();
    case Method::setTableRowHeight:
        return;
    case Method::insertTag:
        return insertTag(call.text);
    case Method::insertXref:
        return insertXref(call.text, call.target);
    case Method::insertImage:
        return story.insertImage(lookOf(call.text), call.target);
    case Method::insertFile:
        return insertFile(call.text, call.number);
    case Method::setOrientation:
        return setOrientation(call.number);
    }
}

ReferenceStory& ReferenceDocument::current()
{
    return currentPart_ ? sections_[open_.at(*currentPart_)].at(*currentPart_) : body_;
}

void ReferenceDocument::startPart(Part part)
{
    if (body_.breakSection()) {
        sections_.emplace_back();
        pages_.push_back(pages_.back());
    }
    const std::size_t last = sections_.size() - 1;
    const auto open = open_.find(part);
    if (open == open_.end() || open->second != last) {
        const ReferenceStory empty(part == Part::header ? u"Header" : u"Footer");
        sections_[last].insert_or_assign(part, empty);
        open_[part] = last;
    }
    currentPart_ = part;
}

void ReferenceDocument::endPart(Part part)
{
    open_.erase(part);
    currentPart_.reset();
}

void ReferenceDocument::insertText(std::u16string_view text)
{
    for (std::size_t at = text.find(anchorOpening); at != text.npos; at = text.find(anchorOpening)) {
        current().insertText(text.substr(0, at));
        text.remove_prefix(at + anchorOpening.size());
        const std::size_t targetEnd = text.find(anchorTargetEnd);
        const std::size_t labelStart = targetEnd + anchorTargetEnd.size();
        const std::size_t labelEnd = text.find(anchorEnd);
        insertXref(text.substr(labelStart, labelEnd - labelStart), anchorTarget(text.substr(0, targetEnd)));
        text.remove_prefix(labelEnd + anchorEnd.size());
    }
    current().insertText(text);
}

void ReferenceDocument::insertXref(std::u16string_view label, std::u16string_view target)
{
    std::optional<RequestedLink> link;
    if (!target.empty())
        link = RequestedLink{std::u16string(target)};
    current().insertText(label, link);
}

void ReferenceDocument::insertHyperlink(const std::u16string& label, const std::u16string& address)
{
    RequestedLink link = {address};
    link.isAddress = true;
    current().insertText(label, link);
}

/// What is none of the session's files is an address.
void ReferenceDocument::insertFile(const std::u16string& name, int kind)
{
    constexpr int asLink = 2;
    constexpr int asHyperlink = 4;
    const SessionFile* const file = findSessionFile(name);
    if (!file)
        return insertHyperlink(name, name);
    if (!file->exists() && kind != asHyperlink)
        return;
    if (file->kind == SessionFile::Kind::sheet)
        return current().insertObject(kind == asLink);
    if (kind == asLink || kind == asHyperlink)
        return insertHyperlink(name, name);
    if (file->kind == SessionFile::Kind::picture)
        return current().insertImage(file->look, {});
    if (refusesRichText_ && file->kind == SessionFile::Kind::formatted) {
        ++refusedFiles_;
        return current().insertNothing();
    }
    current().insertContent(*file, areFileEndsLost_);
}

void ReferenceDocument::setOrientation(int number)
{
    constexpr int leftMargin = 130;
    for (Page& page : pages_)
        page = {number == 1, leftMargin};
}

void ReferenceDocument::insertTag(const std::u16string& name)
{
    body_.removeTag(name);
    for (Section& section : sections_)
        for (auto& [part, story] : section)
            story.removeTag(name);
    current().insertTag(name);
}

int ReferenceDocument::refuseContentsInHeaders()
{
    int refused = 0;
    for (Section& section : sections_)
        for (auto& [part, story] : section)
            refused += story.removeContents() ? 1 : 0;
    return refused;
}

DocumentContent ReferenceDocument::content() const
{
    std::vector<std::optional<ReferenceStory::Flattened>> flattened = {body_.flatten()};
    for (const Section& section : sections_) {
        for (const Part part : {Part::header, Part::footer}) {
            const auto found = section.find(part);
            flattened.emplace_back();
            if (found != section.end())
                flattened.back() = found->second.flatten();
            else if (&section == &sections_.front())
                flattened.back() = ReferenceStory(u"Normal").flatten();
        }
    }

    std::map<std::u16string, Place> places;
    for (std::size_t number = 0; number < flattened.size(); ++number)
        if (flattened[number])
            for (const auto& [name, position] : flattened[number]->tags)
                places[name] = {number, position};

    DocumentContent content;
    content.pages = pages_;
    for (const auto& story : flattened) {
        content.stories.emplace_back();
        if (!story)
            continue;
        StoryContent& resolved = content.stories.back().emplace(story->content);
        for (Token& token : resolved.tokens)
            if (token.kind == TokenKind::rowEnd)
                token.style = look_.styleOfTables();
        for (std::size_t i = 0; i < story->links.size(); ++i) {
            const std::optional<RequestedLink>& link = story->links[i];
            if (!link)
                continue;
            const auto place = places.find(link->target);
            if (link->isAddress || isAddress_(link->target))
                resolved.tokens[i].link = LinkTarget{link->target};
            else if (place != places.end())
                resolved.tokens[i].link = LinkTarget{{}, place->second};
            resolved.tokens[i].beginsLink = resolved.tokens[i].link && link->begins;
        }
        std::vector<std::size_t> starts;
        for (const auto& [name, position] : story->tags)
            starts.push_back(position);
        std::sort(starts.begin(), starts.end());
        for (const std::size_t start : starts)
            resolved.tags.push_back({start});
    }
    return content;
}

} // namespace reference
