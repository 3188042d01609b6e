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

Word::IDispatchPtr StylesObject::getParent()
{
    styles();
    return Word::IDispatchPtr(server().document(document_).GetInterfacePtr());
}

Word::StylePtr StylesObject::doItem(const VARIANT& index)
{
    const model::StylePtr style =
        isNumber(index) ? styles().byNumber(toLong(index)) : styles().byName(toText(index));
    return makeObject<StyleObject>(sharedServer(), document_, style);
}

Word::StylePtr StylesObject::doAdd(std::u16string_view name, const VARIANT& type)
{
    const long kind = optionalLong(type).value_or(Word::wdStyleTypeParagraph);
    if (kind != Word::wdStyleTypeParagraph && kind != Word::wdStyleTypeCharacter)
        throw model::NotSupported("this kind of style is not part of the stand-in");
    const auto style = styles().add(name, kind == Word::wdStyleTypeCharacter ? model::StyleType::character
                                                                             : model::StyleType::paragraph);
    document_->touched();
    return makeObject<StyleObject>(sharedServer(), document_, style);
}
} // namespace standin
