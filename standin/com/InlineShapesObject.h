#pragma once

#include "InlineShape.h"

#include <StandinBases.h>

namespace standin {
/// The pictures and objects in a range; of a document, those of its main text. New ones go to the range's
/// start; a range's own may replace it, where Word does.
class InlineShapesObject : public InlineShapesBase
{
public:
    enum class Of
    {
        document,
        range
    };
    InlineShapesObject(std::shared_ptr<Server> server, const model::LiveRange& scope, Of of);

protected:
    long getCount() override { return static_cast<long>(model::shapesIn(scope_).size()); }
    Word::InlineShapePtr doItem(long index) override;
    Word::InlineShapePtr doAddPicture(std::u16string_view fileName, const VARIANT& linkToFile,
                                      const VARIANT& saveWithDocument, const VARIANT& range) override;
    Word::InlineShapePtr doAddOLEObject(const VARIANT& classType, const VARIANT& fileName,
                                        const VARIANT& linkToFile, const VARIANT& displayAsIcon,
                                        const VARIANT& iconFileName, const VARIANT& iconIndex,
                                        const VARIANT& iconLabel, const VARIANT& range) override;

private:
    /// Where a new shape goes: the range given, emptied, or this collection's own.
    model::LiveRange& placeFor(const VARIANT& range);
    Word::InlineShapePtr shown(const model::PlacedShape& shape);

    model::LiveRange scope_;
    Of of_;
};
} // namespace standin
