#include "PictureRoom.h"

#include <algorithm>

namespace compose {

namespace {

void widen(Extent& extent, const Paragraph& paragraph)
{
    for (const Item& item : paragraph.items) {
        const auto* const picture = std::get_if<Picture>(&item.what);
        if (!picture || !picture->kept)
            continue;
        const Extent own = extentOf(*picture->kept);
        extent.width = std::max(extent.width, own.width);
        extent.height = std::max(extent.height, own.height);
    }
}

} // namespace

Extent extentOf(const KeptPicture& picture)
{
    constexpr float twipsPerPoint = 20;
    return {static_cast<float>(picture.form.naturalWidth) / twipsPerPoint,
            static_cast<float>(picture.form.naturalHeight) / twipsPerPoint};
}

Extent largestPicture(std::span<const Block> blocks)
{
    Extent largest;
    for (const Block& block : blocks) {
        if (const auto* const paragraph = std::get_if<Paragraph>(&block)) {
            widen(largest, *paragraph);
            continue;
        }
        for (const Row& row : std::get<Table>(block).rows)
            for (const Cell& cell : row)
                for (const Paragraph& paragraph : cell)
                    widen(largest, paragraph);
    }
    return largest;
}

} // namespace compose
