#include "Mirovel.h"

#include "AnchorMarkup.h"
#include "MirovelCall.h"

#include "mirovelsection.h"

#include <cwchar>

namespace {

/// `setStyle` calls after which the document is saved, so that a long generation does not lose everything.
constexpr std::int32_t styleChangesPerSave = 100;

constexpr wchar_t wideAnchorOpening[] = L"<a href=";

const wchar_t* textOf(BSTR text)
{
    return text ? text : L"";
}

} // namespace

MIROVEL_NOT_INLINED STDMETHODIMP Mirovel::insertText(BSTR text)
try {
    if (!session_->documentOpen)
        return S_OK;
    echo("insertText", text);
    framed("insertText", [&] { writeText(text); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

void Mirovel::writeText(BSTR text)
{
    if (std::wcsstr(textOf(text), wideAnchorOpening) == nullptr) {
        session_->writer().insertText(textOf(text));
        return;
    }
    const QdxString narrow = session_->held(text);
    const std::string_view view(narrow.data(), narrow.length());
    std::string_view tail;
    if (splitAnchorMarkup(view, view.find(AnchorMarkup::opening), tail))
        writeTail(tail);
    else
        session_->writer().insertText(textOf(text));
}

// What stands in front of a malformed anchor is written here and once more with the whole text: so it has
// always been.
bool Mirovel::splitAnchorMarkup(std::string_view text, std::size_t anchorPos, std::string_view& tail)
{
    insertText(session_->said(text.substr(0, anchorPos)));
    const std::optional<AnchorMarkup> anchor = parseAnchor(text, anchorPos);
    if (!anchor)
        return false;
    QdxString target(anchor->target.data(), anchor->target.size());
    if (target.startsWith("#GUID "))
        target.replaceStr("#GUID ", "GUID ");
    insertXref(session_->said(anchor->label), session_->said({target.data(), target.length()}));
    tail = anchor->tail;
    return true;
}

// Each tail counts as a call of insertText of its own, with echo, guard and frame. The loop takes the place
// of that recursion, whose depth the client's text would decide.
void Mirovel::writeTail(std::string_view text)
{
    framed("insertText", [&] {
        for (std::string_view rest = text; session_->documentOpen;) {
            if (echoes())
                echo("insertText", _bstr_t(session_->said(rest)).GetBSTR());
            const std::size_t anchorPos = rest.find(AnchorMarkup::opening);
            if (anchorPos != rest.npos && splitAnchorMarkup(rest, anchorPos, rest))
                continue;
            session_->writer().insertText(session_->said(rest));
            return;
        }
    });
}

STDMETHODIMP Mirovel::insertEndl()
try {
    if (!session_->documentOpen)
        return S_OK;
    echo("insertEndl");
    framed("insertEndl", [&] { session_->writer().insertEndl(); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::insertPageBreak()
try {
    DocSession& session = *session_;
    if (!session.documentOpen)
        return S_OK;
    if (echoes()) {
        echo("insertPageBreak");
        session.trace << std::endl;
        ++session.pageNumber;
        session.trace << "// Page " << static_cast<long>(session.pageNumber) << std::endl;
    }
    framed("insertPageBreak", [&] {
        session.writer().insertPageBreak();
        session.document->UndoClear();
    });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::insertField(short field)
try {
    if (!session_->documentOpen)
        return S_OK;
    echo("insertField", field);
    framed("insertField", [&] { session_->writer().insertField(field); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setStyle(BSTR style)
try {
    DocSession& session = *session_;
    if (!session.documentOpen)
        return S_OK;
    echo("setStyle", style);
    if (++session.styleChangeCount > styleChangesPerSave) {
        framed("Saving document because of style changes", [&] {
            saveDocument();
            session.styleChangeCount = 0;
        });
    }
    if (session.currentSection == session.mainSection)
        framed("setStyle", [&] { session.writer().setStyle(toNarrow(style), false); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setFontName(BSTR name)
try {
    if (!session_->documentOpen)
        return S_OK;
    echo("setFontName", name);
    framed("setFontName", [&] {
        FontData font;
        font.name = toNarrow(name);
        session_->writer().setFont(font);
    });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setFontSize(short size)
try {
    if (!session_->documentOpen)
        return S_OK;
    framed("setFontSize", [&] {
        FontData font = session_->writer().getFont();
        font.size = size;
        echo("setFontSize", size);
        session_->writer().setFont(font);
    });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setFontAttribute(short att, VARIANT_BOOL value)
try {
    DocSession& session = *session_;
    if (!session.documentOpen)
        return S_OK;
    const bool on = value != VARIANT_FALSE;
    framed("setFontAttribute", [&] {
        EchoLine<Trace> line(session.trace);
        if (echoes())
            line.begin("setFontAttribute");
        FontData font = session.writer().getFont();
        const char* attribute = "";
        switch (att) {
        case 1:
            attribute = "DocBold,";
            font.bold = on;
            break;
        case 2:
            attribute = "DocItalic,";
            font.italic = on;
            break;
        case 4:
            attribute = "DocUnderline,";
            font.underline = on;
            break;
        case 8:
            attribute = "DocStrike,";
            font.strikeThrough = on;
            break;
        default:
            break;
        }
        if (echoes()) {
            session.trace << attribute << (on ? "true" : "false");
            line.end();
        }
        session.writer().setFont(font);
    });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setTextAlign(short textAlign)
try {
    echo("setTextAlign", textAlign);
    withWriter([&](MirovelSection& writer) { writer.setTextAlign(textAlign); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::insertFile(BSTR fileName, short insertAsType)
try {
    echo("insertFile", fileName, insertAsType);
    withWriter([&](MirovelSection& writer) { writer.insertFile(toNarrow(fileName), insertAsType); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::insertTOC()
try {
    echo("insertTOC");
    withWriter([&](MirovelSection& writer) { writer.insertTOC(static_cast<short>(session_->tocLevel)); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::startTOCEntry()
try {
    echo("startTOCEntry");
    withWriter([](MirovelSection& writer) { writer.startTOCEntry(); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::endTOCEntry()
try {
    echo("endTOCEntry");
    withWriter([](MirovelSection& writer) { writer.endTOCEntry(); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::startTable()
try {
    echo("startTable");
    withWriter([](MirovelSection& writer) { writer.startTable(); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::endTable()
try {
    echo("endTable");
    withWriter([](MirovelSection& writer) { writer.endTable(); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::addCell()
try {
    echo("addCell");
    withWriter([](MirovelSection& writer) { writer.addCell(); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::addRow()
try {
    echo("addRow");
    withWriter([](MirovelSection& writer) { writer.addRow(); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setTableRowHeight(long points)
try {
    echo("setTableRowHeight");
    withWriter([&](MirovelSection& writer) { writer.setTableRowHeight(points); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}
