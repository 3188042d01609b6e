#include "SectionsObject.h"

#include "SectionObject.h"

namespace standin {
SectionsObject::SectionsObject(std::shared_ptr<Server> server, model::DocumentPtr document,
                               std::vector<model::SectionPtr> sections)
    : SectionsBase(std::move(server)), document_(std::move(document)), sections_(std::move(sections))
{
}

long SectionsObject::getCount()
{
    if (document_->isClosed())
        throw model::WordError(model::WordErrorNumber::objectDeleted);
    return static_cast<long>(sections_.size());
}

Word::SectionPtr SectionsObject::at(long index)
{
    if (index < 1 || index > getCount())
        throw model::WordError(model::WordErrorNumber::noSuchMember);
    return makeObject<SectionObject>(sharedServer(), sections_[static_cast<std::size_t>(index) - 1]);
}
} // namespace standin
