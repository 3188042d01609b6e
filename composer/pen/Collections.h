#pragma once

#include "Word.h"

namespace compose {

/// A document's collections, each asked for once; what is added to one may stand in any story.
///
/// Errors: a failed Word call raises `_com_error`; asking again asks Word again.
class Collections
{
public:
    explicit Collections(const Word::_DocumentPtr& document) : document_(document) {}

    const Word::BookmarksPtr& bookmarks()
    {
        return bookmarks_ ? bookmarks_ : bookmarks_ = document_->GetBookmarks();
    }
    const Word::FieldsPtr& fields() { return fields_ ? fields_ : fields_ = document_->GetFields(); }
    const Word::HyperlinksPtr& hyperlinks()
    {
        return hyperlinks_ ? hyperlinks_ : hyperlinks_ = document_->GetHyperlinks();
    }
    const Word::InlineShapesPtr& inlineShapes()
    {
        return inlineShapes_ ? inlineShapes_ : inlineShapes_ = document_->GetInlineShapes();
    }
    const Word::SectionsPtr& sections()
    {
        return sections_ ? sections_ : sections_ = document_->GetSections();
    }

private:
    Word::_DocumentPtr document_;
    Word::BookmarksPtr bookmarks_;
    Word::FieldsPtr fields_;
    Word::HyperlinksPtr hyperlinks_;
    Word::InlineShapesPtr inlineShapes_;
    Word::SectionsPtr sections_;
};

} // namespace compose
