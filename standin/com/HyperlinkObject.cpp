#include "HyperlinkObject.h"

#include "RangeObject.h"

namespace standin {
HyperlinkObject::HyperlinkObject(std::shared_ptr<Server> server, model::Hyperlink link)
    : HyperlinkBase(std::move(server)), link_(std::move(link))
{
}

std::u16string HyperlinkObject::getName()
{
    const model::HyperlinkTarget target = link_.target();
    return target.address.empty() ? target.subAddress : target.address;
}

long HyperlinkObject::getType()
{
    link_.target();
    return 0; // a link over text
}

Word::RangePtr HyperlinkObject::getRange()
{
    return makeObject<RangeObject>(sharedServer(), link_.range());
}

bool HyperlinkObject::getExtraInfoRequired()
{
    link_.target();
    return false;
}

void HyperlinkObject::putAddress(std::u16string_view address)
{
    change(&model::HyperlinkTarget::address, address);
}

void HyperlinkObject::putSubAddress(std::u16string_view subAddress)
{
    change(&model::HyperlinkTarget::subAddress, subAddress);
}

void HyperlinkObject::putScreenTip(std::u16string_view tip)
{
    change(&model::HyperlinkTarget::screenTip, tip);
}

void HyperlinkObject::putTarget(std::u16string_view frame)
{
    change(&model::HyperlinkTarget::frame, frame);
}

void HyperlinkObject::change(std::u16string model::HyperlinkTarget::*part, std::u16string_view text)
{
    model::HyperlinkTarget target = link_.target();
    target.*part = text;
    link_.setTarget(target);
}
} // namespace standin
