#include "InlineShape.h"

#include "Document.h"
#include "FieldCode.h"
#include "IconPicture.h"
#include "TableCell.h"
#include "TextArea.h"
#include "WordError.h"

#include <algorithm>

namespace standin::model {

namespace {

constexpr float largestSide = 1584;

void checkLength(float points)
{
    if (!(points > 0 && points <= largestSide))
        throw WordError(WordErrorNumber::valueOutOfRange);
}

void fit(InlineShape& shape, const TextArea& area)
{
    const float scale = std::min({1.0f, area.width / shape.width, area.height / shape.height});
    shape.width *= scale;
    shape.height *= scale;
}

Position placeInFront(const LiveRange& range)
{
    return std::min(range.start(), range.story().length() - 1);
}

void wrap(const PlacedShape& shape, const std::u16string& code)
{
    const LiveRange place = shape.range();
    place.story().wrapInField(place.start(), place.end(), code);
}

} // namespace

PlacedShape::PlacedShape(std::shared_ptr<Story> story, Position position)
    : anchor_(std::move(story), position, position + 1), shape_(anchor_.story().runAt(position).format->shape)
{
}

LiveRange PlacedShape::range() const
{
    change();
    return {anchor_.storyPtr(), anchor_.end() - 1, anchor_.end()};
}

const InlineShape& PlacedShape::shape() const
{
    return change();
}

void PlacedShape::setWidth(float points)
{
    checkLength(points);
    change().width = points;
    anchor_.story().document().touched();
}

void PlacedShape::setHeight(float points)
{
    checkLength(points);
    change().height = points;
    anchor_.story().document().touched();
}

InlineShape& PlacedShape::change() const
{
    const Story& story = anchor_.story();
    if (anchor_.isCollapsed() || story.runAt(anchor_.end() - 1).format->shape != shape_)
        throw WordError(WordErrorNumber::objectDeleted);
    return *shape_;
}

PlacedShape insertShape(const std::shared_ptr<Story>& story, Position at, InlineShape shape)
{
    fit(shape, textAreaAt(*story, at));
    const char16_t character = mark::picture;
    story->insert(at, {&character, 1});
    CharacterFormat format = *story->runAt(at).format;
    format.shape = std::make_shared<InlineShape>(std::move(shape));
    story->setCharacterFormat(at, at + 1, format);
    return {story, at};
}

PlacedShape addPicture(LiveRange& place, const Picture& picture, const std::u16string& link)
{
    InlineShape shape;
    shape.type = link.empty() ? InlineShapeType::picture : InlineShapeType::linkedPicture;
    shape.picture = std::make_shared<const Picture>(picture);
    shape.width = picture.width;
    shape.height = picture.height;
    shape.link = link;
    PlacedShape placed = insertShape(place.storyPtr(), placeInFront(place), std::move(shape));
    if (!link.empty())
        wrap(placed, u" INCLUDEPICTURE " + quotedArgument(link) + u" \\* MERGEFORMAT ");
    return placed;
}

PlacedShape addObject(LiveRange& place, const ObjectSource& source)
{
    const bool linked = !source.link.empty();
    InlineShape shape;
    shape.type = linked ? InlineShapeType::linkedObject : InlineShapeType::embeddedObject;
    shape.picture = std::make_shared<const Picture>(iconPicture(source.label));
    shape.width = shape.picture->width;
    shape.height = shape.picture->height;
    shape.link = source.link;
    shape.objectClass = source.className;
    shape.objectData = linked ? std::string() : source.data;
    const std::u16string code = objectFieldCode(shape);
    PlacedShape placed = insertShape(place.storyPtr(), placeInFront(place), std::move(shape));
    if (place.story().document().switches().oleObjectIsField)
        wrap(placed, code);
    return placed;
}

std::u16string objectFieldCode(const InlineShape& shape)
{
    if (shape.type == InlineShapeType::linkedObject)
        return u" LINK " + shape.objectClass + u' ' + quotedArgument(shape.link) + u" \"\" \\a \\p ";
    return u" EMBED " + shape.objectClass + u' ';
}

std::vector<Position> shapesIn(const LiveRange& range)
{
    const Story& story = range.story();
    std::vector<Position> places;
    for (Position at = range.start(); at < range.end();) {
        const CharacterRun run = story.runAt(at);
        for (; at < std::min(run.end, range.end()); ++at)
            if (run.format->shape)
                places.push_back(at);
    }
    return places;
}

} // namespace standin::model
