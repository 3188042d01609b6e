#include "BuiltServer.h"

#include "DocumentReading.h"

#include "TextConversion.h"
#include "WordConstants.h"
#include "general/QdxException.h"

#include <array>
#include <cstdlib>

namespace {

// Files would take most of the time.
standin::InProcessWordOptions withoutFiles()
{
    standin::InProcessWordOptions options;
    options.writesFiles = false;
    return options;
}

} // namespace

std::string nameOf(Mode mode)
{
    static constexpr std::array names = {"Counting", "Typed", "Fragments"};
    return names.at(static_cast<std::size_t>(mode));
}

bool isSoak()
{
    const char* const given = std::getenv("MIROVEL_SOAK");
    return given && *given;
}

_bstr_t bstr(const std::string& ascii)
{
    return {SysAllocString(std::wstring(ascii.begin(), ascii.end()).c_str()), false};
}

std::string failureOf(const std::function<HRESULT()>& call)
try {
    const HRESULT result = call();
    return result == S_OK ? std::string() : hexadecimal(result);
} catch (const QdxException& exception) {
    return exception.reasonText();
} catch (const _com_error& error) {
    return "_com_error " + hexadecimal(error.Error());
} catch (const std::exception& exception) {
    return exception.what();
}

ObservedWord::ObservedWord() : word(withoutFiles()), registration_(word)
{
    observe();
}

ObservedWord::~ObservedWord()
{
    word.model().whenClosing = nullptr;
}

void ObservedWord::observe()
{
    word.model().whenClosing = [this](const standin::model::Document& document) {
        played_.content = reference::readContent(document);
        played_.isClosed = true;
        if (whenClosing)
            whenClosing();
    };
}

void ObservedWord::clear()
{
    if (const Word::_ApplicationPtr application = word.application())
        application->GetDocuments()->Close(Word::integer(Word::wdDoNotSaveChanges));
    word.clearTranscript();
}

Played ObservedWord::playShortSession(IDocument* object, Mode mode)
{
    played_ = {};
    const _bstr_t name = bstr(folder_.file("short.doc"));
    const auto attempt = [this](const char* method, const std::function<HRESULT()>& call) {
        if (const std::string failure = failureOf(call); !failure.empty())
            played_.failures.push_back(std::string(method) + ": " + failure);
    };
    // The arguments are the client's own memory.
    const _bstr_t word1 = bstr("Word");
    const _bstr_t group = word1, compose = bstr("Compose"), templateName = bstr("WordTemplateName");
    const _bstr_t number = bstr(std::to_string(static_cast<int>(mode))), nothing = bstr("");
    const _bstr_t heading = bstr("Heading 1"), normal = bstr("Normal"), unknown = bstr("No Such");
    const _bstr_t tag = bstr("top"), address = bstr("http://a.example/");
    const _bstr_t text = bstr("Some text"), label = bstr("a label"), anchor = bstr("<a href=\"#top\">x</a>");
    attempt("overrideRegistry", [&] { return object->overrideRegistry(group, compose, number, 1); });
    attempt("overrideRegistry", [&] { return object->overrideRegistry(group, templateName, nothing, 1); });
    attempt("trace", [&] { return object->trace(10); });
    attempt("start", [&] { return object->start(); });
    observe(); // of the Word that runs now
    attempt("create", [&] { return object->create(name); });
    attempt("insertTOC", [&] { return object->insertTOC(); });
    attempt("setStyle", [&] { return object->setStyle(heading); });
    attempt("insertTag", [&] { return object->insertTag(tag); });
    attempt("insertText", [&] { return object->insertText(text); });
    attempt("insertEndl", [&] { return object->insertEndl(); });
    attempt("setStyle", [&] { return object->setStyle(normal); });
    attempt("setStyle", [&] { return object->setStyle(unknown); });
    attempt("setFontName", [&] { return object->setFontName(bstr("Courier New")); });
    attempt("setFontAttribute", [&] { return object->setFontAttribute(1, VARIANT_TRUE); });
    attempt("insertText", [&] { return object->insertText(text); });
    attempt("insertText", [&] { return object->insertText(anchor); });
    attempt("setFontAttribute", [&] { return object->setFontAttribute(1, VARIANT_FALSE); });
    attempt("insertXref", [&] { return object->insertXref(label, tag); });
    attempt("insertXref", [&] { return object->insertXref(label, address); });
    attempt("insertField", [&] { return object->insertField(4); });
    attempt("insertEndl", [&] { return object->insertEndl(); });
    attempt("setTextAlign", [&] { return object->setTextAlign(2); });
    attempt("startHeader", [&] { return object->startHeader(); });
    attempt("insertText", [&] { return object->insertText(text); });
    attempt("endHeader", [&] { return object->endHeader(); });
    attempt("startTable", [&] { return object->startTable(); });
    for (int row = 0; row < 2; ++row) {
        attempt("addRow", [&] { return object->addRow(); });
        attempt("addCell", [&] { return object->addCell(); });
        attempt("insertText", [&] { return object->insertText(text); });
        attempt("addCell", [&] { return object->addCell(); });
        attempt("insertText", [&] { return object->insertText(text); });
    }
    attempt("endTable", [&] { return object->endTable(); });
    attempt("insertText", [&] { return object->insertText(text); });
    attempt("insertPageBreak", [&] { return object->insertPageBreak(); });
    attempt("startTOCEntry", [&] { return object->startTOCEntry(); });
    attempt("insertText", [&] { return object->insertText(text); });
    attempt("endTOCEntry", [&] { return object->endTOCEntry(); });
    for (int i = 0; i < 3 && !played_.isClosed; ++i) // as often as it may help
        attempt("close", [&] { return object->close(); });
    attempt("stop", [&] { return object->stop(); });
    return std::move(played_);
}

BuiltServer::BuiltServer()
{
    _com_util::CheckError(
        module.getClassObject(CLSID_Mirovel, IID_IClassFactory, reinterpret_cast<void**>(&factory_)));
}

IDocumentPtr BuiltServer::make() const
{
    IDocumentPtr object;
    _com_util::CheckError(
        factory_->CreateInstance(nullptr, IID_IDocument, reinterpret_cast<void**>(&object)));
    return object;
}
