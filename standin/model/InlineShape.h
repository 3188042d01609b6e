#pragma once

#include "LiveRange.h"
#include "Picture.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace standin::model {

/// What an inline shape is; the values are Word's own.
enum class InlineShapeType : std::int32_t
{
    embeddedObject = 1,
    linkedObject = 2,
    picture = 3,
    linkedPicture = 4
};

/// A picture or object that stands in the text as one character. It is kept with that character's formatting,
/// so that it goes and is copied with it.
struct InlineShape
{
    InlineShapeType type = InlineShapeType::picture;
    std::shared_ptr<const Picture> picture; ///< what is seen; never null
    float width = 0;                        ///< as shown, points
    float height = 0;
    std::u16string link;        ///< the file that the shape is linked to
    std::u16string objectClass; ///< of an object
    std::string objectData;     ///< of an embedded object: what its program stores

    bool isObject() const
    {
        return type == InlineShapeType::embeddedObject || type == InlineShapeType::linkedObject;
    }
};

/// A shape in a story, followed through edits. Raises 5825 once it is gone.
class PlacedShape
{
public:
    PlacedShape(std::shared_ptr<Story> story, Position position);

    LiveRange range() const; ///< its one character
    const InlineShape& shape() const;
    /// Raises 4608 for a length that no shape has.
    void setWidth(float points);
    void setHeight(float points);

private:
    InlineShape& change() const;

    LiveRange anchor_;
    std::shared_ptr<InlineShape> shape_;
};

/// Puts a shape into the story; what is wider than the text, or higher than the page's, is made to fit.
PlacedShape insertShape(const std::shared_ptr<Story>& story, Position at, InlineShape shape);

/// A picture in front of `place`, in its natural size if that fits. With a `link`, it stands in a field that
/// names the file.
PlacedShape addPicture(LiveRange& place, const Picture& picture, const std::u16string& link = {});

/// An object that another program made.
struct ObjectSource
{
    std::u16string className; ///< of the program, e.g. "Excel.Sheet"
    std::string data;         ///< what it stored
    std::u16string link;      ///< the file, when the object stays there
    std::u16string label;     ///< under its icon
};

/// An object in front of `place`, shown as an icon; it stands in a field of its own, or is one character if
/// the document's switches say so.
PlacedShape addObject(LiveRange& place, const ObjectSource& source);

/// The field code that goes with an object.
std::u16string objectFieldCode(const InlineShape& shape);

/// Places of the shapes in the range.
std::vector<Position> shapesIn(const LiveRange& range);

} // namespace standin::model
