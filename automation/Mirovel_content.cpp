#include "Mirovel.h"

#include "AnchorMarkup.h"
#include "MirovelCall.h"

#include "ClientNumbers.h"
#include "DocumentWriter.h"

#include <cwchar>
#include <string>

namespace {

/// `setStyle` calls after which the document is saved, so that a long generation does not lose everything.
constexpr std::int32_t styleChangesPerSave = 100;

const wchar_t* textOf(BSTR text)
{
    return text ? text : L"";
}

_bstr_t pieceOf(std::wstring_view text)
{
    const BSTR piece = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!piece)
        _com_issue_error(E_OUTOFMEMORY);
    return {piece, false};
}

/// As it is echoed.
const char* attributeName(short attribute)
{
    switch (attribute) {
    case mirovelBold:
        return "DocBold,";
    case mirovelItalic:
        return "DocItalic,";
    case mirovelUnderline:
        return "DocUnderline,";
    case mirovelStrike:
        return "DocStrike,";
    default:
        return "";
    }
}

} // namespace

MIROVEL_NOT_INLINED STDMETHODIMP Mirovel::insertText(BSTR text)
try {
    const MethodScope method(*session_, "insertText");
    if (!session_->documentOpen)
        return method.ignored(Silence::noDocument);
    echo("insertText", text);
    framed("insertText", [&] { writeText(text); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

void Mirovel::writeText(BSTR text)
{
    DocumentWriter& writer = session_->currentWriter();
    if (std::wcsstr(textOf(text), AnchorMarkup::opening.data()) == nullptr) {
        writer.insertText(text);
        return;
    }
    const std::wstring understood = writer.understood(text);
    std::wstring_view tail;
    if (splitAnchorMarkup(understood, understood.find(AnchorMarkup::opening), tail))
        writeTail(tail);
    else
        writer.insertText(text);
}

// What stands in front of a malformed anchor is written here and once more with the whole text: so it has
// always been.
bool Mirovel::splitAnchorMarkup(std::wstring_view text, std::size_t anchorPos, std::wstring_view& tail)
{
    insertText(pieceOf(text.substr(0, anchorPos)));
    const std::optional<AnchorMarkup> anchor = parseAnchor(text, anchorPos);
    if (!anchor)
        return false;
    insertXref(pieceOf(anchor->label), pieceOf(withoutGuidMarks(anchor->target)));
    tail = anchor->tail;
    return true;
}

// Each tail counts as a call of insertText of its own, with echo, guard and frame. The loop takes the place
// of that recursion, whose depth the client's text would decide.
void Mirovel::writeTail(std::wstring_view text)
{
    framed("insertText", [&] {
        for (std::wstring_view rest = text; session_->documentOpen;) {
            if (echoes())
                echo("insertText", pieceOf(rest).GetBSTR());
            const std::size_t anchorPos = rest.find(AnchorMarkup::opening);
            if (anchorPos != rest.npos && splitAnchorMarkup(rest, anchorPos, rest))
                continue;
            session_->currentWriter().insertText(pieceOf(rest));
            return;
        }
    });
}

STDMETHODIMP Mirovel::insertEndl()
try {
    const MethodScope method(*session_, "insertEndl");
    if (!session_->documentOpen)
        return method.ignored(Silence::noDocument);
    echo("insertEndl");
    framed("insertEndl", [&] { session_->currentWriter().insertEndl(); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::insertPageBreak()
try {
    const MethodScope method(*session_, "insertPageBreak");
    DocSession& session = *session_;
    if (!session.documentOpen)
        return method.ignored(Silence::noDocument);
    if (echoes()) {
        echo("insertPageBreak");
        session.trace << std::endl;
        ++session.pageNumber;
        session.trace << "// Page " << static_cast<long>(session.pageNumber) << std::endl;
    }
    framed("insertPageBreak", [&] { session.currentWriter().insertPageBreak(); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::insertField(short field)
try {
    const MethodScope method(*session_, "insertField");
    if (!session_->documentOpen)
        return method.ignored(Silence::noDocument);
    echo("insertField", field);
    if (!clientNumbers::wordField(field))
        session_->events.ignored(Silence::unknownField, std::to_wstring(field));
    framed("insertField", [&] { session_->currentWriter().insertField(field); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setStyle(BSTR style)
try {
    const MethodScope method(*session_, "setStyle");
    DocSession& session = *session_;
    if (!session.documentOpen)
        return method.ignored(Silence::noDocument);
    echo("setStyle", style);
    if (++session.styleChangeCount > styleChangesPerSave) {
        framed("Saving document because of style changes", [&] {
            DocumentWriter& writer = session.currentWriter();
            writer.prepareSave();
            saveDocument(writer);
            session.styleChangeCount = 0;
        });
    }
    framed("setStyle", [&] {
        DocumentWriter& writer = session.currentWriter();
        try {
            writer.setStyle(textOf(style));
        } catch (const QdxException&) {
            // The style in force stays.
            session.events.ignored(Silence::unknownStyle, textOf(style));
        }
    });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setFontName(BSTR name)
try {
    const MethodScope method(*session_, "setFontName");
    if (!session_->documentOpen)
        return method.ignored(Silence::noDocument);
    echo("setFontName", name);
    framed("setFontName", [&] { session_->currentWriter().setFontName(textOf(name)); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setFontSize(short size)
try {
    const MethodScope method(*session_, "setFontSize");
    if (!session_->documentOpen)
        return method.ignored(Silence::noDocument);
    framed("setFontSize", [&] {
        DocumentWriter& writer = session_->currentWriter();
        echo("setFontSize", size);
        writer.setFontSize(size);
    });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setFontAttribute(short att, VARIANT_BOOL value)
try {
    const MethodScope method(*session_, "setFontAttribute");
    DocSession& session = *session_;
    if (!session.documentOpen)
        return method.ignored(Silence::noDocument);
    const bool on = value != VARIANT_FALSE;
    if (*attributeName(att) == '\0')
        session.events.ignored(Silence::unknownAttribute, std::to_wstring(att));
    framed("setFontAttribute", [&] {
        EchoLine<Trace> line(session.trace);
        if (echoes())
            line.begin("setFontAttribute");
        DocumentWriter& writer = session.currentWriter();
        if (echoes()) {
            session.trace << attributeName(att) << (on ? "true" : "false");
            line.end();
        }
        writer.setFontAttribute(att, on);
    });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setTextAlign(short textAlign)
try {
    const MethodScope method(*session_, "setTextAlign");
    echo("setTextAlign", textAlign);
    withWriter([&](DocumentWriter& writer) {
        if (!clientNumbers::isAlignment(textAlign))
            session_->events.ignored(Silence::unknownAlignment, std::to_wstring(textAlign));
        writer.setTextAlign(textAlign);
    });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::insertFile(BSTR fileName, short insertAsType)
try {
    const MethodScope method(*session_, "insertFile");
    echo("insertFile", fileName, insertAsType);
    withWriter([&](DocumentWriter& writer) { writer.insertFile(fileName, insertAsType); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::insertTOC()
try {
    const MethodScope method(*session_, "insertTOC");
    echo("insertTOC");
    withWriter([&](DocumentWriter& writer) { writer.insertTOC(static_cast<short>(session_->tocLevel)); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::startTOCEntry()
try {
    const MethodScope method(*session_, "startTOCEntry");
    echo("startTOCEntry");
    withWriter([](DocumentWriter& writer) { writer.startTOCEntry(); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::endTOCEntry()
try {
    const MethodScope method(*session_, "endTOCEntry");
    echo("endTOCEntry");
    withWriter([](DocumentWriter& writer) { writer.endTOCEntry(); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::startTable()
try {
    const MethodScope method(*session_, "startTable");
    echo("startTable");
    withWriter([](DocumentWriter& writer) { writer.startTable(); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::endTable()
try {
    const MethodScope method(*session_, "endTable");
    echo("endTable");
    withWriter([](DocumentWriter& writer) { writer.endTable(); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::addCell()
try {
    const MethodScope method(*session_, "addCell");
    echo("addCell");
    withWriter([](DocumentWriter& writer) { writer.addCell(); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::addRow()
try {
    const MethodScope method(*session_, "addRow");
    echo("addRow");
    withWriter([](DocumentWriter& writer) { writer.addRow(); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setTableRowHeight(long points)
try {
    const MethodScope method(*session_, "setTableRowHeight");
    echo("setTableRowHeight");
    withWriter([&](DocumentWriter& writer) { writer.setTableRowHeight(points); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}
