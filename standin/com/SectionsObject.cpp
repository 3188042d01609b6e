#include "SectionsObject.h"

#include "SectionObject.h"

namespace standin {
SectionsObject::SectionsObject(std::shared_ptr<Server> server, model::DocumentPtr document)
    : SectionsBase(std::move(server)), document_(std::move(document))
{
}

long SectionsObject::getCount()
{
    if (document_->isClosed())
        throw model::WordError(model::WordErrorNumber::objectDeleted);
    return document_->sectionCount();
}

Word::SectionPtr SectionsObject::doItem(long index)
{
    getCount();
    return makeObject<SectionObject>(sharedServer(), document_->section(index));
}
} // namespace standin
