#pragma once

#include "Hyperlink.h"

#include <StandinBases.h>

namespace standin {
class HyperlinkObject : public HyperlinkBase
{
public:
    HyperlinkObject(std::shared_ptr<Server> server, model::Hyperlink link);

protected:
    Word::RangePtr getRange() override;
    void doDelete() override { link_.remove(); }
    std::u16string getAddress() override { return link_.target().address; }
    std::u16string getSubAddress() override { return link_.target().subAddress; }
    std::u16string getTextToDisplay() override { return link_.textToDisplay(); }

private:
    model::Hyperlink link_;
};
} // namespace standin
