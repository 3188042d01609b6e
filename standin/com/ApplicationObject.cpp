#include "ApplicationObject.h"

#include "Arguments.h"
#include "DocumentFile.h"
#include "DocumentsObject.h"
#include "OptionsObject.h"

namespace standin {
namespace {
// Word's number for "This command is not available because no document is open."
constexpr auto noDocumentOpen = static_cast<model::WordErrorNumber>(4248);
} // namespace

Word::DocumentsPtr ApplicationObject::getDocuments()
{
    return makeObject<DocumentsObject>(sharedServer());
}

Word::_DocumentPtr ApplicationObject::getActiveDocument()
{
    const auto& documents = server().model().documents();
    if (documents.empty())
        throw model::WordError(noDocumentOpen, "This command is not available because no document is open.");
    return server().document(documents.front());
}

Word::OptionsPtr ApplicationObject::getOptions()
{
    return makeObject<OptionsObject>(sharedServer());
}

void ApplicationObject::putDisplayAlerts(long level)
{
    if (level < -2 || level > 0)
        throw model::WordError(model::WordErrorNumber::valueOutOfRange);
    displayAlerts_ = level;
}

void ApplicationObject::doQuit(const VARIANT& saveChanges, const VARIANT&, const VARIANT&)
{
    closeAllDocuments(server(), optionalLong(saveChanges));
    server().end();
}
} // namespace standin
