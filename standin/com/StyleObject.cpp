#include "StyleObject.h"

#include "Arguments.h"
#include "CallGlue.h"
#include "FontObject.h"
#include "ParagraphFormatObject.h"

#include <WordConstants.h>

namespace standin {
StyleObject::StyleObject(std::shared_ptr<Server> server, model::DocumentPtr document, model::StylePtr style)
    : StyleBase(std::move(server)), document_(std::move(document)), style_(std::move(style))
{
}

const model::Style& StyleObject::of(IUnknown* object)
{
    const auto* found = dynamic_cast<StyleObject*>(StandinObject::of(object));
    if (!found)
        throw model::WordError(model::WordErrorNumber::typeMismatch);
    return found->style();
}

model::Style& StyleObject::ofOpen(const model::DocumentPtr& document, const model::StylePtr& style)
{
    if (document->isClosed())
        throw model::WordError(model::WordErrorNumber::objectDeleted);
    return *style;
}

long StyleObject::getType()
{
    return static_cast<long>(style().type());
}

Word::_FontPtr StyleObject::getFont()
{
    style();
    return makeObject<FontObject>(sharedServer(), FontObject::targetOf(document_, style_));
}

Word::_ParagraphFormatPtr StyleObject::getParagraphFormat()
{
    style();
    return makeObject<ParagraphFormatObject>(sharedServer(),
                                             ParagraphFormatObject::targetOf(document_, style_));
}
} // namespace standin
