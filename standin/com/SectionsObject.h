#pragma once

#include <StandinBases.h>
#include <vector>

namespace standin {
/// The sections of a document, or those that a range touches.
class SectionsObject : public SectionsBase
{
public:
    SectionsObject(std::shared_ptr<Server> server, model::DocumentPtr document,
                   std::vector<model::SectionPtr> sections);

    model::DocumentPtr documentModel() const override { return document_; }

protected:
    long getCount() override;
    Word::SectionPtr getFirst() override { return at(1); }
    Word::SectionPtr getLast() override { return at(getCount()); }
    Word::SectionPtr doItem(long index) override { return at(index); }

private:
    Word::SectionPtr at(long index);

    model::DocumentPtr document_;
    std::vector<model::SectionPtr> sections_;
};
} // namespace standin
