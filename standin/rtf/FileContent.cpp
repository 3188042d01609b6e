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
    for (char16_t& c : text) {
        c = c == u'\0' ? u' ' : c;
    }
    if (text.empty() || text.back() != model::mark::paragraph) {
        text += model::mark::paragraph;
    }
    return text;
}

} // namespace

void insertFileContent(model::LiveRange& range, std::string_view bytes)
{
    if (bytes.starts_with("\xD0\xCF\x11\xE0")) {
        throw model::NotSupported("files in Word's binary format cannot be read");
    }
    if (!bytes.starts_with("{\\rtf")) {
        range.setText(endedText(bytes));
        return;
    }
    const model::DocumentPtr document = model::Document::make(u"", range.story().document().switches());
    readRtf(bytes, *document);
    model::insertDocument(range, *document);
}

} // namespace standin::rtf
