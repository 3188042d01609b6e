#pragma once

#include <StandinBases.h>

namespace standin {
class DocumentsObject : public DocumentsBase
{
public:
    using DocumentsBase::DocumentsBase;

protected:
    long getCount() override;
    Word::_DocumentPtr doItem(const VARIANT& index) override;
    Word::_DocumentPtr doAdd(const VARIANT& templateName, const VARIANT& newTemplate,
                             const VARIANT& documentType, const VARIANT& visible) override;
    Word::_DocumentPtr doOpen(const VARIANT& fileName, const VARIANT& confirmConversions,
                              const VARIANT& readOnly, const VARIANT& addToRecentFiles,
                              const VARIANT& passwordDocument, const VARIANT& passwordTemplate,
                              const VARIANT& revert, const VARIANT& writePasswordDocument,
                              const VARIANT& writePasswordTemplate, const VARIANT& format,
                              const VARIANT& encoding, const VARIANT& visible) override;
    void doClose(const VARIANT& saveChanges, const VARIANT& originalFormat,
                 const VARIANT& routeDocument) override;
};
} // namespace standin
