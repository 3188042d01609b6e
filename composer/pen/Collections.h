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
    /// By its number.
    const Word::SectionPtr& section(int number)
    {
        if (!sections_)
            sections_ = document_->GetSections();
        if (!section_ || sectionNumber_ != number)
            section_ = sections_->Item(number);
        sectionNumber_ = number;
        return section_;
    }
    /// Sections may have come to stand in front of it.
    void forgetSection() { section_ = nullptr; }

private:
    Word::_DocumentPtr document_;
    Word::BookmarksPtr bookmarks_;
    Word::FieldsPtr fields_;
    Word::HyperlinksPtr hyperlinks_;
    Word::InlineShapesPtr inlineShapes_;
    Word::SectionsPtr sections_;
    Word::SectionPtr section_; ///< asked for last
    int sectionNumber_ = 0;
};

} // namespace compose
