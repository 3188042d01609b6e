#pragma once

#include <StandinBases.h>

namespace standin {
/// The headers or the footers of a section.
class HeadersFootersObject : public HeadersFootersBase
{
public:
    HeadersFootersObject(std::shared_ptr<Server> server, model::SectionPtr section,
                         model::Section::Part part);

protected:
    Word::HeaderFooterPtr doItem(long index) override;

private:
    model::SectionPtr section_;
    model::Section::Part part_;
};
} // namespace standin
