#include "FontObject.h"

#include "StyleObject.h"

namespace standin {
namespace {
constexpr float largestFontSize = 1638;
} // namespace

long flagValue(const std::optional<bool>& flag)
{
    if (!flag)
        return model::mixedValue;
    return *flag ? -1 : 0;
}

bool toggledFlag(const std::optional<bool>& current, long value)
{
    if (value == model::toggleValue)
        return !current.value_or(false);
    if (value == model::mixedValue)
        throw model::WordError(model::WordErrorNumber::valueOutOfRange);
    return value != 0;
}

FontObject::FontObject(std::shared_ptr<Server> server, FontTarget target)
    : FontBase(std::move(server)), target_(std::move(target))
{
}

FontTarget FontObject::targetOf(const model::LiveRange& range)
{
    auto own = std::make_shared<model::LiveRange>(range);
    return {[own] { return own->font(); },
            [own](const model::FontProperties& properties) { own->setFont(properties); },
            [own] { own->resetFont(); }};
}

FontTarget FontObject::targetOf(model::DocumentPtr document, model::StylePtr style)
{
    return {[document, style] { return StyleObject::ofOpen(document, style).resolvedFont(); },
            [document, style](const model::FontProperties& properties) {
                StyleObject::ofOpen(document, style).font.overlay(properties);
                document->touched();
            }};
}

void FontObject::doReset()
{
    if (!target_.reset)
        return FontBase::doReset();
    target_.reset();
}

float FontObject::getSize()
{
    return read().size.value_or(static_cast<float>(model::mixedValue));
}

void FontObject::putSize(float size)
{
    if (!(size >= 1 && size <= largestFontSize))
        throw model::WordError(model::WordErrorNumber::valueOutOfRange);
    put(&model::FontProperties::size, size);
}
} // namespace standin
