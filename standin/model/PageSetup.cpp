#include "PageSetup.h"

#include <utility>

namespace standin::model {

void PageSetup::setOrientation(Orientation wanted)
{
    if (wanted == orientation)
        return;
    std::swap(pageWidth, pageHeight);
    const float left = leftMargin;
    if (wanted == Orientation::landscape) {
        // The page turns counter-clockwise: what was the top edge lies at the left.
        leftMargin = topMargin;
        topMargin = rightMargin;
        rightMargin = bottomMargin;
        bottomMargin = left;
    } else {
        leftMargin = bottomMargin;
        bottomMargin = rightMargin;
        rightMargin = topMargin;
        topMargin = left;
    }
    orientation = wanted;
}

} // namespace standin::model
