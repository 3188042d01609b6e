#include "Hyperlink.h"

#include "Document.h"
#include "VisibleText.h"
#include "WordError.h"

#include <algorithm>

namespace standin::model {

namespace {

constexpr std::int32_t hyperlinkStyle = -86;

/// Word leaves two spaces where there is no address.
std::u16string codeOf(const HyperlinkTarget& target, const Document& document)
{
    if (target.address.empty() && target.subAddress.empty())
        throw WordError(WordErrorNumber::commandFailed, "A hyperlink needs an address.");
    std::u16string code = u" HYPERLINK ";
    const auto add = [&code](std::u16string_view word, const std::u16string& value) {
        if (!value.empty()) {
            code += word;
            code += quotedArgument(value);
            code += u' ';
        }
    };
    add(u"", target.address);
    add(target.address.empty() ? u" \\l " : u"\\l ", target.subAddress);
    add(u"\\o ", target.screenTip);
    add(u"\\t ", target.frame);
    code = normalizeText(code);
    if (!document.switches().hyperlinkWithoutLinkData)
        code += mark::picture;
    return code;
}

/// Where the anchor ends when it is to hold no field by half.
Position wholeEnd(const LiveRange& anchor)
{
    const Position last = std::max(anchor.start(), std::min(anchor.end(), anchor.story().length() - 1));
    const std::vector<Position> halves = anchor.story().fields().halvesIn(anchor.start(), last);
    return halves.empty() ? last : halves.front();
}

} // namespace

HyperlinkTarget Hyperlink::target() const
{
    const FieldCode code = field_.parsedCode();
    const auto value = [&code](char16_t name) { return code.value(name).value_or(std::u16string()); };
    return {code.argument(0), value(u'l'), value(u'o'), value(u't')};
}

std::u16string Hyperlink::textToDisplay() const
{
    const FieldPlace at = field_.place();
    return visibleText(*field_.storyPtr(), at.resultStart(), at.end);
}

void Hyperlink::remove()
{
    LiveRange text = field_.result();
    text.setStyle(Styles::defaultParagraphFont);
    field_.unlink();
}

Hyperlink addHyperlink(const LiveRange& anchor, const HyperlinkTarget& target,
                       const std::optional<std::u16string>& text)
{
    Story& story = anchor.story();
    const std::u16string code = codeOf(target, story.document());
    const Position start = std::min(anchor.start(), story.length() - 1);
    Position end = std::max(start, wholeEnd(anchor));
    std::u16string shown = normalizeText(text.value_or(std::u16string()));
    if (shown.empty() && start == end)
        shown = target.address.empty() ? target.subAddress : target.address;
    if (!shown.empty()) {
        story.insert(start, shown);
        const auto count = static_cast<Position>(shown.size());
        story.erase(start + count, end + count);
        end = start + count;
    }
    const Field field(anchor.storyPtr(), story.wrapInField(start, end, code));
    styleAsHyperlink(field);
    return Hyperlink(field);
}

std::vector<Hyperlink> hyperlinksIn(const LiveRange& range)
{
    std::vector<Hyperlink> links;
    for (const Field& field : fieldsIn(range))
        if (field.type() == hyperlinkFieldType)
            links.emplace_back(field);
    return links;
}

void styleAsHyperlink(const Field& field)
{
    LiveRange result = field.result();
    if (!result.isCollapsed())
        result.setStyle(hyperlinkStyle);
}

} // namespace standin::model
