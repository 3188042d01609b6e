#include "ParagraphFormatObject.h"

#include "Document.h"
#include "StyleObject.h"

namespace standin {
ParagraphFormatObject::ParagraphFormatObject(std::shared_ptr<Server> server, ParagraphTarget target)
    : ParagraphFormatBase(std::move(server)), target_(std::move(target))
{
}

ParagraphTarget ParagraphFormatObject::targetOf(const model::LiveRange& range)
{
    auto own = std::make_shared<model::LiveRange>(range);
    return {[own] { return own->paragraphFormat(); },
            [own](const model::ParagraphProperties& properties) { own->setParagraphFormat(properties); },
            [own] { own->resetParagraphFormat(); },
            [own] {
                model::Document& document = own->story().document();
                const model::Style* const style = own->story().paragraphAt(own->start()).format->style;
                return std::pair(document.shared_from_this(), document.styles().find(style->name()));
            }};
}

ParagraphTarget ParagraphFormatObject::targetOf(model::DocumentPtr document, model::StylePtr style)
{
    return {[document, style] { return StyleObject::ofOpen(document, style).resolvedParagraph(); },
            [document, style](const model::ParagraphProperties& properties) {
                StyleObject::ofOpen(document, style).paragraph.overlay(properties);
                document->touched();
            }};
}

void ParagraphFormatObject::doReset()
{
    if (!target_.reset)
        return ParagraphFormatBase::doReset();
    target_.reset();
}

_variant_t ParagraphFormatObject::getStyle()
{
    if (!target_.style)
        return ParagraphFormatBase::getStyle();
    const auto [document, style] = target_.style();
    const Word::StylePtr object = makeObject<StyleObject>(sharedServer(), document, style);
    return _variant_t(object.GetInterfacePtr());
}

long ParagraphFormatObject::getAlignment()
{
    const auto alignment = target_.read().alignment;
    return alignment ? static_cast<long>(*alignment) : model::mixedValue;
}

void ParagraphFormatObject::putAlignment(long value)
{
    if (value < static_cast<long>(model::Alignment::left) ||
        value > static_cast<long>(model::Alignment::justify))
        throw model::WordError(model::WordErrorNumber::valueOutOfRange);
    model::ParagraphProperties properties;
    properties.alignment = static_cast<model::Alignment>(value);
    target_.write(properties);
}

float ParagraphFormatObject::points(const std::optional<float>& value)
{
    return value.value_or(static_cast<float>(model::mixedValue));
}
} // namespace standin
