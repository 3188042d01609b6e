#include "StylesObject.h"

#include "Arguments.h"
#include "StyleObject.h"

#include <WordConstants.h>

namespace standin {
StylesObject::StylesObject(std::shared_ptr<Server> server, model::DocumentPtr document)
    : StylesBase(std::move(server)), document_(std::move(document))
{
}

model::Styles& StylesObject::styles() const
{
    if (document_->isClosed())
        throw model::WordError(model::WordErrorNumber::objectDeleted);
    return document_->styles();
}

Word::StylePtr StylesObject::doItem(const VARIANT& index)
{
    const model::StylePtr style =
        isNumber(index) ? styles().byNumber(toLong(index)) : styles().byName(toText(index));
    return makeObject<StyleObject>(sharedServer(), document_, style);
}
} // namespace standin
