#include "DocumentsObject.h"

#include "Arguments.h"
#include "DocumentFile.h"

namespace standin {
namespace {
void refuse(bool asked, const char* what)
{
    if (asked)
        throw model::NotSupported(what);
}
} // namespace

long DocumentsObject::getCount()
{
    return server().model().documentCount();
}

Word::_DocumentPtr DocumentsObject::doItem(const VARIANT& index)
{
    model::Application& application = server().model();
    if (isNumber(index))
        return server().document(application.document(toLong(index)));
    return server().document(application.document(toText(index)));
}

Word::_DocumentPtr DocumentsObject::doAdd(const VARIANT& templateName, const VARIANT& newTemplate,
                                          const VARIANT& documentType, const VARIANT& visible)
{
    refuse(optionalBool(newTemplate).value_or(false), "new templates are not part of the stand-in");
    refuse(optionalLong(documentType).value_or(0) != 0, "this kind of document is not part of the stand-in");
    optionalBool(visible); // there is no window to show; the value must be a boolean all the same
    const std::u16string name = isMissing(templateName) ? std::u16string() : toText(templateName);
    return server().document(addDocument(server(), name));
}

Word::_DocumentPtr DocumentsObject::doOpen(const VARIANT& fileName, const VARIANT&, const VARIANT&,
                                           const VARIANT&, const VARIANT&, const VARIANT&, const VARIANT&,
                                           const VARIANT&, const VARIANT&, const VARIANT&, const VARIANT&,
                                           const VARIANT&)
{
    return server().document(openDocument(server(), toText(fileName)));
}

void DocumentsObject::doClose(const VARIANT& saveChanges, const VARIANT&, const VARIANT&)
{
    closeAllDocuments(server(), optionalLong(saveChanges));
}
} // namespace standin
