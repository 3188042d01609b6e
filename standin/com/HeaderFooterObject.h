#pragma once

#include <StandinBases.h>

namespace standin {
class HeaderFooterObject : public HeaderFooterBase
{
public:
    HeaderFooterObject(std::shared_ptr<Server> server, model::SectionPtr section, model::Section::Part part,
                       model::HeaderFooterIndex index);

protected:
    Word::RangePtr getRange() override;
    bool getExists() override;
    bool getLinkToPrevious() override;
    void putLinkToPrevious(bool linked) override;

private:
    model::SectionPtr section_;
    model::Section::Part part_;
    model::HeaderFooterIndex index_;
};
} // namespace standin
