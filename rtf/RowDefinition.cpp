#include "RowDefinition.h"

#include "RtfBuilder.h"

#include <cmath>
#include <cstdint>

namespace rtf {

namespace {

std::int32_t twips(float points)
{
    return static_cast<std::int32_t>(std::lround(points * 20));
}

} // namespace

std::string textOf(const RowDefinition& row)
{
    RtfBuilder rtf;
    rtf.word("trowd");
    rtf.word("trgaph", twips(row.padding));
    rtf.word("trleft", twips(row.leftEdge));
    if (row.exactHeight != 0)
        rtf.word("trrh", -twips(row.exactHeight));
    // Edges are summed up before they are rounded, so that columns do not drift.
    float edge = row.leftEdge;
    for (const float width : row.widths) {
        edge += width;
        rtf.word("cellx", twips(edge));
    }
    rtf.endLine();
    return rtf.take();
}

} // namespace rtf
