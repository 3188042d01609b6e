#include "Field.h"

#include "Document.h"
#include "FieldResult.h"
#include "Hyperlink.h"
#include "TableOfContents.h"
#include "VisibleText.h"
#include "WordError.h"

#include <algorithm>

namespace standin::model {

namespace {

std::u16string codeOf(const FieldRequest& request, const Document& document)
{
    std::u16string code = u" ";
    if (request.type != noFieldType) {
        const std::u16string_view keyword = keywordOf(request.type);
        if (keyword.empty())
            throw WordError(WordErrorNumber::badValue);
        code += keyword;
        code += u' ';
    }
    if (!request.text.empty()) {
        code += normalizeText(request.text);
        code += u' ';
    }
    if (request.preserveFormatting.value_or(!document.switches().fieldsAddOmitsMergeFormat))
        code += u"\\* MERGEFORMAT ";
    return code;
}

/// Replaces [start,end) by plain text and keeps the place's formatting.
void replace(Story& story, Position start, Position end, std::u16string_view text)
{
    story.insert(start, text);
    const auto count = static_cast<Position>(text.size());
    story.erase(start + count, end + count);
}

} // namespace

bool Field::exists() const
{
    return story_->isAlive() && story_->fields().find(id_).has_value();
}

Story& Field::story() const
{
    story_->document();
    return *story_;
}

FieldPlace Field::place() const
{
    const std::optional<FieldPlace> found = story().fields().find(id_);
    if (!found)
        throw WordError(WordErrorNumber::objectDeleted);
    return *found;
}

LiveRange Field::range() const
{
    const FieldPlace at = place();
    return rangeOf(at.begin, at.past());
}

LiveRange Field::code() const
{
    const FieldPlace at = place();
    return rangeOf(at.codeStart(), at.codeEnd());
}

LiveRange Field::result() const
{
    const FieldPlace at = place();
    return rangeOf(at.resultStart(), at.end);
}

FieldCode Field::parsedCode() const
{
    const FieldPlace at = place();
    return FieldCode(visibleText(*story_, at.codeStart(), at.codeEnd()));
}

void Field::setResult(std::u16string_view text)
{
    place();
    story_->addFieldResult(id_);
    const FieldPlace at = place();
    replace(*story_, at.resultStart(), at.end, normalizeText(text));
}

bool Field::update()
{
    const FieldCode code = parsedCode();
    if (code.type() == tocFieldType) {
        TableOfContents(*this).update();
    } else if (code.type() != hyperlinkFieldType) {
        if (const auto text = fieldResult(story(), place().begin, code))
            setResult(*text);
    }
    return !result().text().starts_with(u"Error!");
}

void Field::unlink()
{
    place();
    story_->unwrapField(id_);
}

Field addField(const LiveRange& range, const FieldRequest& request)
{
    Story& story = range.story();
    const std::u16string code = codeOf(request, story.document());
    const FieldCode parsed(code);
    const Position last = story.length() - 1;
    const Position at = std::min(range.start(), last);
    const bool replaces = !story.document().switches().fieldsAddReplacesNothing;
    const Position past = replaces ? std::max(at, std::min(range.end(), last)) : at;

    const bool isTable = parsed.type() == tocFieldType;
    const auto result = isTable ? std::nullopt : fieldResult(story, at, parsed);
    std::u16string text = mark::fieldBegin + code;
    if (result)
        text += mark::fieldSeparator + normalizeText(*result);
    text += mark::fieldEnd;
    story.insert(at, text);
    const auto count = static_cast<Position>(text.size());
    story.erase(at + count, past + count);
    if (parsed.keyword() == u"TC" || parsed.keyword() == u"XE" || parsed.keyword() == u"TA")
        LiveRange(range.storyPtr(), at, at + count).setFont({.hidden = true});
    const Field field(range.storyPtr(), story.fields().endingAt(at + count - 1)->id);
    if (isTable)
        TableOfContents(field).update();
    else if (parsed.type() == hyperlinkFieldType)
        styleAsHyperlink(field);
    return field;
}

std::vector<Field> fieldsIn(const LiveRange& range)
{
    std::vector<Field> fields;
    for (const FieldPlace& place : range.story().fields().startingIn(range.start(), range.end()))
        fields.emplace_back(range.storyPtr(), place.id);
    return fields;
}

bool crossesField(const LiveRange& range)
{
    const FieldMarks& fields = range.story().fields();
    return fields.around(range.start()) || !fields.halvesIn(range.start(), range.end()).empty();
}

} // namespace standin::model
