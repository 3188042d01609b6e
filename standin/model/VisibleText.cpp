#include "VisibleText.h"

#include <algorithm>

namespace standin::model {

namespace {

bool startsInCode(const Story& story, Position start)
{
    const auto field = story.fields().around(start);
    return field && start <= field->codeEnd();
}

/// Appends [start,end), which holds no field characters.
void appendStretch(std::u16string& text, const Story& story, Position start, Position end, bool withHidden)
{
    if (withHidden) {
        text += story.text(start, end);
        return;
    }
    for (Position at = start; at < end;) {
        const Position past = std::min({story.runAt(at).end, story.paragraphAt(at).end, end});
        if (!story.effectiveFont(at).hidden.value_or(false))
            text += story.text(at, past);
        at = past;
    }
}

} // namespace

std::u16string visibleText(const Story& story, Position start, Position end, const TextRetrieval& retrieval)
{
    std::u16string text;
    if (retrieval.includeFieldCodes) {
        appendStretch(text, story, start, end, retrieval.includeHiddenText);
        return text;
    }
    // Hidden characters of a code that is asked for by itself show: they are hidden as the code they are.
    bool inCode = startsInCode(story, start);
    for (Position at = start; at < end;) {
        const auto fields = story.fields().nextMark(at);
        const Position mark = std::min(fields.value_or(end), end);
        appendStretch(text, story, at, mark, inCode || retrieval.includeHiddenText);
        if (mark == end)
            break;
        at = mark + 1;
        if (story.at(mark) == mark::fieldBegin) {
            const FieldPlace field = story.fields().startingIn(mark, mark + 1).front();
            at = field.separator ? field.resultStart() : field.past();
        } else {
            inCode = startsInCode(story, at);
        }
    }
    return text;
}

} // namespace standin::model
