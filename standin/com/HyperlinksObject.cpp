#include "HyperlinksObject.h"

#include "Arguments.h"
#include "HyperlinkObject.h"
#include "RangeObject.h"

namespace standin {
HyperlinksObject::HyperlinksObject(std::shared_ptr<Server> server, const model::LiveRange& scope)
    : HyperlinksBase(std::move(server)), scope_(scope)
{
}

long HyperlinksObject::getCount()
{
    return static_cast<long>(model::hyperlinksIn(scope_).size());
}

Word::HyperlinkPtr HyperlinksObject::doItem(const VARIANT& index)
{
    return makeObject<HyperlinkObject>(sharedServer(), memberAt(model::hyperlinksIn(scope_), toLong(index)));
}

Word::HyperlinkPtr HyperlinksObject::doAdd(IDispatch* anchor, const VARIANT& address,
                                           const VARIANT& subAddress, const VARIANT& screenTip,
                                           const VARIANT& textToDisplay, const VARIANT& target)
{
    const model::LiveRange& range = RangeObject::of(anchor);
    const auto textOf = [](const VARIANT& text) { return optionalText(text).value_or(std::u16string()); };
    const bool crosses = model::crossesField(range);
    const model::Hyperlink link =
        model::addHyperlink(range, {textOf(address), textOf(subAddress), textOf(screenTip), textOf(target)},
                            optionalText(textToDisplay));
    if (crosses)
        server().note(crossesFieldNote);
    return makeObject<HyperlinkObject>(sharedServer(), link);
}
} // namespace standin
