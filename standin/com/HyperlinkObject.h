#pragma once

#include "Hyperlink.h"

#include <StandinBases.h>

namespace standin {
class HyperlinkObject : public HyperlinkBase
{
public:
    HyperlinkObject(std::shared_ptr<Server> server, model::Hyperlink link);

protected:
    std::u16string getName() override;
    std::u16string getAddressOld() override { return getAddress(); }
    long getType() override;
    Word::RangePtr getRange() override;
    std::u16string getSubAddressOld() override { return getSubAddress(); }
    bool getExtraInfoRequired() override;
    void doDelete() override { link_.remove(); }
    std::u16string getAddress() override { return link_.target().address; }
    void putAddress(std::u16string_view address) override;
    std::u16string getSubAddress() override { return link_.target().subAddress; }
    void putSubAddress(std::u16string_view subAddress) override;
    std::u16string getScreenTip() override { return link_.target().screenTip; }
    void putScreenTip(std::u16string_view tip) override;
    std::u16string getTextToDisplay() override { return link_.textToDisplay(); }
    void putTextToDisplay(std::u16string_view text) override { link_.setTextToDisplay(text); }
    std::u16string getTarget() override { return link_.target().frame; }
    void putTarget(std::u16string_view frame) override;

private:
    void change(std::u16string model::HyperlinkTarget::*part, std::u16string_view text);

    model::Hyperlink link_;
};
} // namespace standin
