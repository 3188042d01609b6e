#pragma once

#include <StandinBases.h>

namespace standin {
/// The sections of a document.
class SectionsObject : public SectionsBase
{
public:
    SectionsObject(std::shared_ptr<Server> server, model::DocumentPtr document);

    model::DocumentPtr documentModel() const override { return document_; }

protected:
    long getCount() override;
    Word::SectionPtr doItem(long index) override;

private:
    model::DocumentPtr document_;
};
} // namespace standin
