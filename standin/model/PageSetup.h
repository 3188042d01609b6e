#pragma once

#include "Constants.h"

namespace standin::model {

/// Page settings of a section, in points; the defaults are those of a new US document.
struct PageSetup
{
    float pageWidth = 612;
    float pageHeight = 792;
    float leftMargin = 90;
    float rightMargin = 90;
    float topMargin = 72;
    float bottomMargin = 72;
    float headerDistance = 36;
    float footerDistance = 36;
    Orientation orientation = Orientation::portrait;
    SectionStart sectionStart = SectionStart::newPage;
    bool differentFirstPage = false;
    bool oddAndEvenPages =
        false; ///< in Word a property of the whole document; Document keeps all sections alike

    bool operator==(const PageSetup&) const = default;

    /// Turning swaps width and height and rotates the margins; the same orientation again changes nothing.
    void setOrientation(Orientation orientation);
};

} // namespace standin::model
