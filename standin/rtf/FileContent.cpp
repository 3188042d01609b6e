#include "FileContent.h"

#include "DocumentCopy.h"
#include "PlainText.h"
#include "RtfReader.h"
#include "WordError.h"

namespace standin::rtf {

namespace {

/// The last line may or may not be ended; as a paragraph it is.
std::u16string endedText(std::string_view bytes)
{
    std::u16string text = model::normalizeText(readPlainText(bytes));
    for (char16_t& c : text)
        c = c == u'\0' ? u' ' : c;
    if (text.empty() || text.back() != model::mark::paragraph)
        text += model::mark::paragraph;
    return text;
}

model::DocumentCopyOptions optionsOf(const model::Switches& switches, const RtfFragment& fragment)
{
    model::DocumentCopyOptions options;
    options.lastParagraph = switches.insertFileLastParagraph;
    if (options.lastParagraph == model::LastParagraph::surplus && !fragment.endsParagraph)
        options.lastParagraph = model::LastParagraph::mark;
    if (!switches.insertFileLeavesDefaultFont)
        options.creepingFont = fragment.defaultFont;
    options.range = switches.insertFileRange;
    options.movesBookmarks = switches.insertFileMovesBookmarks;
    return options;
}

void removeBookmarks(const model::LiveRange& place, model::OverlappedBookmarks overlapped)
{
    if (overlapped != model::OverlappedBookmarks::kept)
        place.story().document().bookmarks().removeAt(place,
                                                      overlapped == model::OverlappedBookmarks::lostTouching);
}

} // namespace

void insertFileContent(model::LiveRange& range, std::string_view bytes)
{
    if (bytes.starts_with("\xD0\xCF\x11\xE0"))
        throw model::NotSupported("files in Word's binary format cannot be read");
    const model::Switches switches = range.story().document().switches();
    if (!bytes.starts_with("{\\rtf")) {
        removeBookmarks(range, switches.insertFileOverlappedBookmarks);
        range.setText(endedText(bytes));
        return;
    }
    if (!switches.insertFileTakesRtf)
        throw model::WordError(model::WordErrorNumber::commandFailed);
    const model::DocumentPtr document = model::Document::make(u"", switches);
    const RtfFragment fragment = readRtfFragment(bytes, *document);
    removeBookmarks(range, switches.insertFileOverlappedBookmarks);
    model::insertDocument(range, *document, optionsOf(switches, fragment));
}

} // namespace standin::rtf
