#pragma once

#include <StandinBases.h>

namespace standin {
class SectionObject : public SectionBase
{
public:
    SectionObject(std::shared_ptr<Server> server, model::SectionPtr section);

protected:
    Word::RangePtr getRange() override;
    Word::PageSetupPtr getPageSetup() override;
    Word::HeadersFootersPtr getHeaders() override;
    Word::HeadersFootersPtr getFooters() override;

private:
    model::SectionPtr section_;
};
} // namespace standin
