#include "SessionPlayer.h"

#include "DocumentReading.h"
#include "RandomSession.h"
#include "SamplePictures.h"

#include "Invariants.h"
#include "WordConstants.h"
#include "general/QdxException.h"
#include "mirovelsection.h"

#include <array>
#include <comdef.h>
#include <cstdio>

namespace reference {

namespace {

/// A client may try again when closing failed; more than this helps nobody.
constexpr int closingAttempts = 3;

_bstr_t bstr(std::u16string_view text)
{
    const std::wstring wide(text.begin(), text.end());
    return {SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size())), false};
}

std::u16string wide(const std::string& ascii)
{
    return {ascii.begin(), ascii.end()};
}

_bstr_t bstr(const std::string& ascii)
{
    return bstr(wide(ascii));
}

std::string hexadecimal(HRESULT result)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%08lx", static_cast<unsigned long>(result));
    return text.data();
}

std::string oneLine(std::string text)
{
    for (char& c : text)
        if (c == '\r' || c == '\n')
            c = ' ';
    return text;
}

std::u16string withName(std::u16string text, std::u16string_view name, std::u16string_view inItsPlace)
{
    for (std::size_t at = text.find(name); at != text.npos; at = text.find(name, at + inItsPlace.size()))
        text.replace(at, name.size(), inItsPlace);
    return text;
}

/// Links to the picture under the name that sessions give it.
void renamePicture(DocumentContent& content, std::u16string_view file)
{
    for (std::optional<StoryContent>& story : content.stories)
        if (story)
            for (Token& token : story->tokens)
                if (token.link && token.link->address == file)
                    token.link->address = pictureName;
}

/// Thousands of files would take most of the time.
standin::SessionOptions withoutFiles()
{
    standin::SessionOptions options;
    options.writesFiles = false;
    return options;
}

} // namespace

SessionPlayer::SessionPlayer(Positions positions)
    : positions_(positions), picture_(wide(folder_.write("picture.bmp", sample::bmp()))),
      word_(withoutFiles()), registration_(word_)
{
    MirovelSection::clearCache();
    word_.model().whenClosing = [this](const standin::model::Document& document) {
        played_.content = readContent(document);
        renamePicture(played_.content, picture_);
        if (const std::string wrong = checkInvariants(document); !wrong.empty())
            played_.failures.push_back("the document: " + wrong);
        isRead_ = true;
    };
    makeClient();
}

SessionPlayer::~SessionPlayer()
{
    client_ = nullptr;
    word_.model().whenClosing = nullptr;
}

void SessionPlayer::makeClient()
{
    client_ = nullptr;
    void* created = nullptr;
    _com_util::CheckError(Mirovel::createInstance(nullptr, IID_IDocument, &created));
    client_.Attach(static_cast<IDocument*>(created));
    const _bstr_t word(L"Word");
    client_->overrideRegistry(word, bstr(std::string("WordTemplateName")), bstr(std::string()), 1);
    client_->overrideRegistry(word, bstr(std::string("TrackPositions")),
                              bstr(std::string(positions_ == Positions::tracked ? "1" : "0")), 3);
    _com_util::CheckError(client_->start());
}

template <class Call>
bool SessionPlayer::attempt(const char* name, Call&& call)
{
    std::string failure;
    try {
        const HRESULT result = call();
        if (result == S_OK)
            return true;
        failure = hexadecimal(result);
    } catch (const QdxException& exception) {
        failure = exception.reasonText();
    } catch (const _com_error& error) {
        failure = "_com_error " + hexadecimal(error.Error());
    }
    played_.failures.push_back(std::string(name) + ": " + oneLine(failure));
    return false;
}

PlayedSession SessionPlayer::play(const Session& session, const standin::model::Switches& switches)
{
    played_ = {};
    isRead_ = false;
    word_.model().setSwitches(switches);
    attempt("create", [this] { return client_->create(bstr(folder_.file("session.doc"))); });
    for (const ClientCall& each : session)
        perform(each);
    close();
    word_.clearTranscript();
    return std::move(played_);
}

void SessionPlayer::perform(const ClientCall& each)
{
    const std::string step = stepsOf({each});
    attempt(step.substr(0, step.find_first_of("\t\n")).c_str(), [&] { return call(each); });
}

void SessionPlayer::close()
{
    for (int i = 0; i < closingAttempts; ++i)
        if (attempt("close", [this] { return client_->close(); }))
            break;
    if (isRead_)
        return;
    const Word::DocumentsPtr documents = word_.application()->GetDocuments();
    documents->Close(Word::integer(Word::wdDoNotSaveChanges));
    attempt("release", [this] {
        makeClient();
        return S_OK;
    });
}

HRESULT SessionPlayer::call(const ClientCall& each)
{
    IDocument& client = *client_;
    const _bstr_t text = bstr(withName(each.text, pictureName, picture_));
    const _bstr_t target = bstr(withName(each.target, pictureName, picture_));
    const auto number = static_cast<short>(each.number);
    switch (each.method) {
    case Method::insertText:
        return client.insertText(text);
    case Method::insertEndl:
        return client.insertEndl();
    case Method::insertPageBreak:
        return client.insertPageBreak();
    case Method::insertField:
        return client.insertField(number);
    case Method::startHeader:
        return client.startHeader();
    case Method::endHeader:
        return client.endHeader();
    case Method::startFooter:
        return client.startFooter();
    case Method::endFooter:
        return client.endFooter();
    case Method::setStyle:
        return client.setStyle(text);
    case Method::setFontName:
        return client.setFontName(text);
    case Method::setFontSize:
        return client.setFontSize(number);
    case Method::setFontAttribute:
        return client.setFontAttribute(number, each.isOn ? VARIANT_TRUE : VARIANT_FALSE);
    case Method::setTextAlign:
        return client.setTextAlign(number);
    case Method::insertTOC:
        return client.insertTOC();
    case Method::startTOCEntry:
        return client.startTOCEntry();
    case Method::endTOCEntry:
        return client.endTOCEntry();
    case Method::startTable:
        return client.startTable();
    case Method::endTable:
        return client.endTable();
    case Method::addRow:
        return client.addRow();
    case Method::addCell:
        return client.addCell();
    case Method::setTableRowHeight:
        return client.setTableRowHeight(each.number);
    case Method::insertTag:
        return client.insertTag(text);
    case Method::insertXref:
        return client.insertXref(text, target);
    case Method::insertImage:
        return client.insertImage(text, target);
    }
    return E_NOTIMPL;
}

} // namespace reference
