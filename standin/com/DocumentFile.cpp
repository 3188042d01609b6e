#include "DocumentFile.h"

#include "FileNames.h"
#include "RtfReader.h"
#include "RtfWriter.h"
#include "WordError.h"

#include <WordConstants.h>
#include <vector>

namespace standin {
namespace {
using model::WordError;
using model::WordErrorNumber;

/// Word's number for a file that is open under the same name as another document.
constexpr auto fileOpenElsewhere = static_cast<WordErrorNumber>(5356);

// Formats of later versions of Word.
constexpr long formatXmlDocument = 12;
constexpr long formatDocumentDefault = 16;
constexpr long formatPdf = 17;

bool isSameFile(const model::Document& document, const FileName& file)
{
    const std::wstring full = file.full();
    return !document.path().empty() &&
           model::foldCase(document.fullName()) == model::foldCase(std::u16string(full.begin(), full.end()));
}

model::DocumentPtr openUnder(Server& server, const FileName& file)
{
    for (const model::DocumentPtr& document : server.model().documents())
        if (isSameFile(*document, file))
            return document;
    return nullptr;
}

/// All formats that keep formatting are written as RTF, which word processors open whatever the extension.
std::u16string_view extensionOf(long format)
{
    switch (format) {
    case Word::wdFormatDocument:
        return u".doc";
    case Word::wdFormatTemplate:
        return u".dot";
    case Word::wdFormatRTF:
        return u".rtf";
    case formatXmlDocument:
    case formatDocumentDefault:
        return u".docx";
    case formatPdf:
        return u".pdf";
    default:
        throw model::NotSupported("this file format is not part of the stand-in");
    }
}

/// What SaveAs takes when nobody says one.
long formatWithoutWish(const model::Document& document, std::u16string_view fileName)
{
    const model::DocWithoutFormat reading = document.switches().docWithoutFormat;
    if (reading == model::DocWithoutFormat::document97 || !model::foldCase(fileName).ends_with(u".doc"))
        return Word::wdFormatDocument;
    if (reading == model::DocWithoutFormat::refused)
        throw WordError(WordErrorNumber::commandFailed);
    return formatXmlDocument;
}

/// A new document with a file's content; none at all when that cannot be read.
model::DocumentPtr readDocument(Server& server, const std::wstring& file)
{
    const std::string bytes = server.contentOf(file);
    return server.model().addDocument([&bytes](model::Document& document) { rtf::readRtf(bytes, document); });
}

void write(const Server& server, const model::Document& document, const FileName& file)
{
    if (server.writesFiles)
        replaceFile(file.full(), rtf::writeRtf(document));
}
} // namespace

model::DocumentPtr addDocument(Server& server, std::u16string_view templateName)
{
    if (templateName.empty())
        return server.model().addDocument();
    const model::DocumentPtr document = readDocument(server, resolveFileName(templateName, u".dot").full());
    document->setSaved(true);
    return document;
}

model::DocumentPtr openDocument(Server& server, std::u16string_view fileName)
{
    FileName file = resolveFileName(fileName, u".doc");
    if (model::DocumentPtr open = openUnder(server, file))
        return open;
    const model::DocumentPtr document = readDocument(server, file.full());
    document->setFile(std::move(file.folder), std::move(file.name));
    document->setSaved(true);
    server.enterDocument(document);
    return document;
}

void saveDocumentAs(Server& server, const model::DocumentPtr& document, std::u16string_view fileName,
                    std::optional<long> givenFormat)
{
    const long format = givenFormat ? *givenFormat : formatWithoutWish(*document, fileName);
    FileName file = resolveFileName(fileName, extensionOf(format));
    const model::DocumentPtr open = openUnder(server, file);
    if (open && open != document)
        throw WordError(fileOpenElsewhere,
                        "Word cannot save this file because it is already open elsewhere.");
    write(server, *document, file);
    document->setFile(std::move(file.folder), std::move(file.name));
    document->setSaveFormat(format);
    document->setSaved(true);
    server.enterDocument(document);
}

void saveDocument(const Server& server, const model::DocumentPtr& document)
{
    if (document->path().empty())
        throw WordError(WordErrorNumber::commandFailed);
    write(server, *document, FileName{document->path(), document->name()});
    document->setSaved(true);
}

void closeDocument(Server& server, const model::DocumentPtr& document, std::optional<long> saveChanges)
{
    const long answer = saveChanges.value_or(Word::wdPromptToSaveChanges);
    if (!document->isSaved()) {
        if (answer == Word::wdSaveChanges)
            saveDocument(server, document);
        else if (answer != Word::wdDoNotSaveChanges && !document->switches().closeDropsChanges)
            throw WordError(WordErrorNumber::commandFailed);
    }
    server.closeDocument(*document);
}

void closeAllDocuments(Server& server, std::optional<long> saveChanges)
{
    const std::vector<model::DocumentPtr> documents = server.model().documents();
    for (const model::DocumentPtr& document : documents)
        closeDocument(server, document, saveChanges);
}
} // namespace standin
