#include "Application.h"

#include "Decimal.h"
#include "WordError.h"

#include <algorithm>

namespace standin::model {

Application::~Application()
{
    closeAll();
}

DocumentPtr Application::addDocument(const std::function<void(Document&)>& fill)
{
    DocumentPtr document = Document::make(u"Document" + decimal(lastNumber_ + 1), switches_);
    document->setClock(clock_);
    if (fill)
        fill(*document);
    ++lastNumber_;
    documents_.insert(documents_.begin(), document);
    return document;
}

DocumentPtr Application::document(std::int32_t index) const
{
    if (index < 1 || index > documentCount())
        throw WordError(WordErrorNumber::noSuchMember);
    return documents_[static_cast<std::size_t>(index - 1)];
}

DocumentPtr Application::document(std::u16string_view name) const
{
    const std::u16string wanted = foldCase(name);
    const auto found = std::find_if(documents_.begin(), documents_.end(), [&wanted](const DocumentPtr& each) {
        return foldCase(each->name()) == wanted || foldCase(each->fullName()) == wanted;
    });
    if (found == documents_.end())
        throw WordError(WordErrorNumber::badFileName);
    return *found;
}

void Application::close(Document& document)
{
    const auto found = std::find_if(documents_.begin(), documents_.end(),
                                    [&document](const DocumentPtr& each) { return each.get() == &document; });
    if (found == documents_.end())
        throw WordError(WordErrorNumber::objectDeleted);
    const DocumentPtr kept = *found;
    if (whenClosing)
        whenClosing(*kept);
    documents_.erase(found);
    kept->close();
}

void Application::closeAll()
{
    while (!documents_.empty())
        close(*documents_.front());
}

} // namespace standin::model
