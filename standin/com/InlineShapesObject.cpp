#include "InlineShapesObject.h"

#include "Arguments.h"
#include "FileNames.h"
#include "InlineShapeObject.h"
#include "RangeObject.h"

#include <array>
#include <utility>

namespace standin {
namespace {
using model::WordError;
using model::WordErrorNumber;

/// A text that may be left out, or empty in either of a VARIANT's ways.
std::u16string textOrNothing(const VARIANT& argument)
{
    return isMissing(argument) || argument.vt == VT_EMPTY ? std::u16string() : toText(argument);
}

model::Picture readPictureFile(const Server& server, const FileName& file)
{
    std::string bytes;
    try {
        bytes = server.contentOf(file.full());
    } catch (const WordError&) {
        throw WordError(WordErrorNumber::notAValidFileName); // for pictures, whatever the reason
    }
    if (auto picture = model::readPicture(bytes))
        return *std::move(picture);
    throw WordError(WordErrorNumber::commandFailed, "An error occurred while importing this file.");
}

/// The class of objects that a file's extension stands for.
std::u16string classOfFile(const std::u16string& name)
{
    static constexpr std::array<std::pair<std::u16string_view, std::u16string_view>, 3> classes = {
        {{u".xls", u"Excel.Sheet"}, {u".ppt", u"PowerPoint.Show"}, {u".doc", u"Word.Document"}}};
    const std::u16string folded = model::foldCase(name);
    for (const auto& [extension, className] : classes)
        if (folded.ends_with(extension))
            return std::u16string(className);
    return u"Package";
}

std::u16string fullName(const FileName& file)
{
    const std::wstring full = file.full();
    return {full.begin(), full.end()};
}

model::ObjectSource objectOf(const Server& server, const std::u16string& className,
                             const std::u16string& fileName, bool link)
{
    if (fileName.empty()) {
        if (className.empty() || link)
            throw WordError(WordErrorNumber::commandFailed);
        return {className, {}, {}, className};
    }
    const FileName file = resolveFileName(fileName, u"");
    model::ObjectSource source{
        className.empty() ? classOfFile(file.name) : className, server.contentOf(file.full()), {}, file.name};
    if (link)
        source.link = fullName(file);
    return source;
}
} // namespace

InlineShapesObject::InlineShapesObject(std::shared_ptr<Server> server, const model::LiveRange& scope, Of of)
    : InlineShapesBase(std::move(server)), scope_(scope), of_(of)
{
}

Word::InlineShapePtr InlineShapesObject::doItem(long index)
{
    const std::vector<model::Position> places = model::shapesIn(scope_);
    if (index < 1 || static_cast<std::size_t>(index) > places.size())
        throw WordError(WordErrorNumber::noSuchMember);
    return shown({scope_.storyPtr(), places[static_cast<std::size_t>(index) - 1]});
}

Word::InlineShapePtr InlineShapesObject::doAddPicture(std::u16string_view fileName, const VARIANT& linkToFile,
                                                      const VARIANT& saveWithDocument, const VARIANT& range)
{
    const bool link = optionalBool(linkToFile).value_or(false);
    optionalBool(saveWithDocument); // the picture is always saved; the value must be a boolean all the same
    const FileName file = resolveFileName(fileName, u"");
    const model::Picture picture = readPictureFile(server(), file);
    return shown(model::addPicture(placeFor(range), picture, link ? fullName(file) : std::u16string()));
}

Word::InlineShapePtr InlineShapesObject::doAddOLEObject(const VARIANT& classType, const VARIANT& fileName,
                                                        const VARIANT& linkToFile,
                                                        const VARIANT& displayAsIcon, const VARIANT&,
                                                        const VARIANT& iconIndex, const VARIANT& iconLabel,
                                                        const VARIANT& range)
{
    if (!optionalBool(displayAsIcon).value_or(false))
        throw model::NotSupported("an object's content needs the program that made it; icons can be shown");
    optionalLong(iconIndex); // every icon looks alike; the value must be a number all the same
    const bool link = optionalBool(linkToFile).value_or(false);
    model::ObjectSource source = objectOf(server(), textOrNothing(classType), textOrNothing(fileName), link);
    if (!isMissing(iconLabel))
        source.label = textOrNothing(iconLabel);
    return shown(model::addObject(placeFor(range), source));
}

model::LiveRange& InlineShapesObject::placeFor(const VARIANT& range)
{
    const bool isGiven = !isMissing(range);
    model::LiveRange& place = isGiven ? RangeObject::of(toObject(range)) : scope_;
    const bool replaces =
        isGiven || (of_ == Of::range && !scope_.story().document().switches().shapeReplacesNothing);
    if (replaces && !place.isCollapsed())
        place.remove();
    return place;
}

Word::InlineShapePtr InlineShapesObject::shown(const model::PlacedShape& shape)
{
    return makeObject<InlineShapeObject>(sharedServer(), shape);
}
} // namespace standin
