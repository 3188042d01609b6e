#pragma once

#include "LiveRange.h"

#include <StandinBases.h>

namespace standin {
/// The one object of an open document. After closing, every call on it fails with WordError 5825.
class DocumentObject : public DocumentBase
{
public:
    DocumentObject(std::shared_ptr<Server> server, model::DocumentPtr document);
    ~DocumentObject() override;

    model::DocumentPtr documentModel() const override { return document_; }

protected:
    std::string chooseName(const std::string& expression) override;

    std::u16string getName() override { return open().name(); }
    std::u16string getPath() override { return open().path(); }
    std::u16string getFullName() override { return open().fullName(); }
    bool getSaved() override { return open().isSaved(); }
    Word::RangePtr getContent() override;
    Word::PageSetupPtr getPageSetup() override;
    Word::StylesPtr getStyles() override;
    Word::SectionsPtr getSections() override;
    Word::TablesPtr getTables() override;
    Word::InlineShapesPtr getInlineShapes() override;
    Word::BookmarksPtr getBookmarks() override;
    Word::FieldsPtr getFields() override;
    Word::HyperlinksPtr getHyperlinks() override;
    Word::TablesOfContentsPtr getTablesOfContents() override;
    Word::RangePtr doRange(const VARIANT& start, const VARIANT& end) override;
    long getSaveFormat() override;
    void doSaveAs(const VARIANT& fileName, const VARIANT& fileFormat, const VARIANT& lockComments,
                  const VARIANT& password, const VARIANT& addToRecentFiles, const VARIANT& writePassword,
                  const VARIANT& readOnlyRecommended, const VARIANT& embedTrueTypeFonts,
                  const VARIANT& saveNativePictureFormat, const VARIANT& saveFormsData,
                  const VARIANT& saveAsAOCELetter) override;
    void doClose(const VARIANT& saveChanges, const VARIANT& originalFormat,
                 const VARIANT& routeDocument) override;
    void doUndoClear() override;

private:
    model::Document& open() const;
    model::LiveRange content() const;

    model::DocumentPtr document_;
};
} // namespace standin
