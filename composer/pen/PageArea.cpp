#include "PageArea.h"

namespace compose {

namespace {

constexpr float longest = 1584; // of Word's pages

float widthOf(const Word::PageSetupPtr& page)
{
    return page->GetPageWidth() - page->GetLeftMargin() - page->GetRightMargin();
}

float heightOf(const Word::PageSetupPtr& page)
{
    return page->GetPageHeight() - page->GetTopMargin() - page->GetBottomMargin();
}

} // namespace

// An inserted file may have brought sections of its own; where they differ, Word answers nonsense for all of
// them.
void PageArea::find()
{
    if (setup_)
        return;
    if (section_ == 1) {
        setup_ = document_->GetPageSetup();
        const float width = widthOf(setup_);
        if (width > 0 && width <= longest) {
            width_ = width;
            return;
        }
        setup_ = nullptr;
    }
    setup_ = collections_.section(section_)->GetPageSetup();
}

float PageArea::width()
{
    find();
    if (!width_)
        width_ = widthOf(setup_);
    return *width_;
}

float PageArea::height()
{
    find();
    if (!height_)
        height_ = heightOf(setup_);
    return *height_;
}

} // namespace compose
