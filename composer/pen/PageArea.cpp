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

// An inserted file may have brought sections of its own, even since the other length was asked for; where
// they differ, Word answers nonsense for all of them.
float PageArea::ask(float (*lengthOf)(const Word::PageSetupPtr&))
{
    if (section_ == 1 && !own_) {
        if (!everySections_)
            everySections_ = document_->GetPageSetup();
        if (const float length = lengthOf(everySections_); length > 0 && length <= longest)
            return length;
    }
    if (!own_)
        own_ = collections_.section(section_)->GetPageSetup();
    return lengthOf(own_);
}

float PageArea::width()
{
    if (!width_)
        width_ = ask(widthOf);
    return *width_;
}

float PageArea::height()
{
    if (!height_)
        height_ = ask(heightOf);
    return *height_;
}

} // namespace compose
