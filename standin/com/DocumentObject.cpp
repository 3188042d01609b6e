#include "DocumentObject.h"

#include "Arguments.h"
#include "BookmarksObject.h"
#include "DocumentFile.h"
#include "FieldsObject.h"
#include "HyperlinksObject.h"
#include "InlineShapesObject.h"
#include "PageSetupObject.h"
#include "RangeObject.h"
#include "SectionsObject.h"
#include "StylesObject.h"
#include "TablesObject.h"
#include "TablesOfContentsObject.h"

#include <WordConstants.h>

namespace standin {
DocumentObject::DocumentObject(std::shared_ptr<Server> server, model::DocumentPtr document)
    : DocumentBase(std::move(server)), document_(std::move(document))
{
}

DocumentObject::~DocumentObject()
{
    server().documentObjectDied(*document_);
}

std::string DocumentObject::chooseName(const std::string&)
{
    return server().documentName(*document_);
}

model::Document& DocumentObject::open() const
{
    if (document_->isClosed())
        throw model::WordError(model::WordErrorNumber::objectDeleted);
    return *document_;
}

model::LiveRange DocumentObject::content() const
{
    const auto& story = open().mainStory();
    return {story, 0, story->length()};
}

Word::RangePtr DocumentObject::getContent()
{
    return makeObject<RangeObject>(sharedServer(), content());
}

Word::PageSetupPtr DocumentObject::getPageSetup()
{
    return makeObject<PageSetupObject>(sharedServer(), sectionsOf(open()));
}

Word::StylesPtr DocumentObject::getStyles()
{
    open();
    return makeObject<StylesObject>(sharedServer(), document_);
}

Word::SectionsPtr DocumentObject::getSections()
{
    open();
    return makeObject<SectionsObject>(sharedServer(), document_);
}

Word::BookmarksPtr DocumentObject::getBookmarks()
{
    open();
    return makeObject<BookmarksObject>(sharedServer(), document_);
}

Word::FieldsPtr DocumentObject::getFields()
{
    return makeObject<FieldsObject>(sharedServer(), content());
}

Word::HyperlinksPtr DocumentObject::getHyperlinks()
{
    return makeObject<HyperlinksObject>(sharedServer(), content());
}

Word::TablesOfContentsPtr DocumentObject::getTablesOfContents()
{
    return makeObject<TablesOfContentsObject>(sharedServer(), content());
}

Word::TablesPtr DocumentObject::getTables()
{
    return makeObject<TablesObject>(sharedServer(), content());
}

Word::InlineShapesPtr DocumentObject::getInlineShapes()
{
    return makeObject<InlineShapesObject>(sharedServer(), content(), InlineShapesObject::Of::document);
}

Word::RangePtr DocumentObject::doRange(const VARIANT& start, const VARIANT& end)
{
    const auto& story = open().mainStory();
    const long from = optionalLong(start).value_or(0);
    const long to = optionalLong(end).value_or(story->length());
    if (from < 0 || from >= story->length() || to < from || to > story->length())
        throw model::WordError(model::WordErrorNumber::valueOutOfRange);
    return makeObject<RangeObject>(sharedServer(), model::LiveRange(story, from, to));
}

void DocumentObject::doSaveAs(const VARIANT& fileName, const VARIANT& fileFormat, const VARIANT&,
                              const VARIANT&, const VARIANT&, const VARIANT&, const VARIANT&, const VARIANT&,
                              const VARIANT&, const VARIANT&, const VARIANT&)
{
    const std::u16string name = isMissing(fileName) ? open().fullName() : toText(fileName);
    open();
    saveDocumentAs(server(), document_, name, optionalLong(fileFormat));
}

long DocumentObject::getSaveFormat()
{
    return open().saveFormat();
}

void DocumentObject::doClose(const VARIANT& saveChanges, const VARIANT&, const VARIANT&)
{
    open();
    closeDocument(server(), document_, optionalLong(saveChanges));
}

void DocumentObject::doUndoClear()
{
    open(); // there is no undo list, so it is empty
}
} // namespace standin
