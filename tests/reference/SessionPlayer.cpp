#include "SessionPlayer.h"

#include "ChangedStyleFonts.h"
#include "DocumentReading.h"
#include "Hresult.h"
#include "SessionFiles.h"

#include "Invariants.h"
#include "WordConstants.h"
#include "general/QdxException.h"
#include "mirovelsection.h"
#include "registry/SettingTable.h"

#include <algorithm>
#include <array>
#include <comdef.h>
#include <cstdio>

namespace reference {

namespace {

/// A client may try again when closing failed; more than this helps nobody, but for each table of contents
/// that Word refuses.
int closingAttempts(const Session& session, const standin::model::Switches& switches)
{
    constexpr int attempts = 3;
    const auto asksForContents = [](const ClientCall& call) { return call.method == Method::insertTOC; };
    return switches.headerTakesContents
               ? attempts
               : attempts + static_cast<int>(std::ranges::count_if(session, asksForContents));
}

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

/// Links to files under the names that sessions give them.
void renameFiles(DocumentContent& content, const std::map<std::u16string_view, std::u16string>& paths)
{
    for (std::optional<StoryContent>& story : content.stories)
        if (story)
            for (Token& token : story->tokens)
                for (const auto& [name, path] : paths)
                    if (token.link && token.link->address == path)
                        token.link->address = name;
}

std::u16string everythingIn(const standin::model::Document& document)
{
    using standin::model::Section;
    constexpr auto primary = standin::model::HeaderFooterIndex::primary;
    std::vector<std::shared_ptr<standin::model::Story>> stories = {document.mainStory()};
    for (std::int32_t number = 1; number <= document.sectionCount(); ++number)
        for (const auto part : {Section::Part::header, Section::Part::footer})
            stories.push_back(document.section(number)->ownStory(part, primary));
    std::u16string text;
    for (const auto& story : stories)
        if (story)
            text += story->text(0, story->length());
    return text;
}

/// Thousands of files would take most of the time.
standin::InProcessWordOptions withoutFiles()
{
    standin::InProcessWordOptions options;
    options.writesFiles = false;
    options.keptFiles = [](const std::wstring& file) { return SessionFolder::shared().contentOf(file); };
    return options;
}

} // namespace

std::string testName(Writer writer)
{
    switch (writer) {
    case Writer::counting:
        return "Counting";
    case Writer::typed:
        return "Typed";
    case Writer::fragments:
        break;
    }
    return "Fragments";
}

SessionPlayer::SessionPlayer(Writer writer) : writer_(writer), word_(withoutFiles()), registration_(word_)
{
    MirovelSection::clearCache();
    makeClient();
}

SessionPlayer::~SessionPlayer()
{
    client_ = nullptr;
    word_.model().whenClosing = nullptr;
}

void SessionPlayer::read(const standin::model::Document& document)
{
    played_.content = readContent(document);
    renameFiles(played_.content, files_.paths());
    played_.everything = everythingIn(document);
    if (composes()) {
        const ChangedStyleFonts changed(document);
        played_.restyled = readContent(document);
        renameFiles(played_.restyled, files_.paths());
    }
    if (const std::string wrong = checkInvariants(document); !wrong.empty())
        played_.failures.push_back("the document: " + wrong);
    isRead_ = true;
}

void SessionPlayer::makeClient()
{
    client_ = nullptr;
    void* created = nullptr;
    _com_util::CheckError(Mirovel::createInstance(nullptr, IID_IDocument, &created));
    client_.Attach(static_cast<IDocument*>(created));
    // A setting that the client says is not looked for in the registry.
    for (const SettingDescription& setting : settingTable)
        override(setting.group, setting.name, defaultEntry(setting).getValue().data());
    override("Word", "Compose", std::to_string(static_cast<int>(writer_)));
    _com_util::CheckError(client_->start());
}

// As a text, which says a number as well.
void SessionPlayer::override(const char* group, const char* name, const std::string& value)
{
    constexpr short text = 1;
    client_->overrideRegistry(bstr(std::string(group)), bstr(std::string(name)), bstr(value), text);
}

void SessionPlayer::overrideLook()
{
    constexpr short asText = 1;
    const auto say = [&](const wchar_t* name, const _bstr_t& value) {
        client_->overrideRegistry(_bstr_t(L"Word"), _bstr_t(name), value, asText);
    };
    say(L"WordTemplateName", look_.hasStyles ? bstr(files_.lookTemplateFile()) : bstr(std::u16string_view()));
    say(L"TableStyle", bstr(look_.tableStyle));
    say(L"TOCTitle", bstr(look_.title));
}

void SessionPlayer::setBusyTimeout(int seconds)
{
    override("Word", "BusyTimeout", std::to_string(seconds));
}

void SessionPlayer::writeDiagnostics(const std::string& file)
{
    override("Log", "Diagnostics", file);
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

long SessionPlayer::release()
{
    client_ = nullptr;
    return word_.liveObjects();
}

PlayedSession SessionPlayer::play(const Session& session, const standin::model::Switches& switches)
{
    played_ = {};
    isRead_ = false;
    // Of the Word that runs now: a client that was released may have ended another.
    word_.model().setSwitches(switches);
    word_.model().whenClosing = [this](const standin::model::Document& document) { read(document); };
    overrideLook();
    attempt("create", [this] { return client_->create(bstr(files_.document())); });
    const long firstCall = word_.callCount();
    if (fault_.rejections > 0)
        word_.rejectCall(fault_.call, fault_.result, fault_.rejections);
    else if (fault_.lasts)
        word_.failFromCall(fault_.call, fault_.result);
    else if (fault_.call > 0)
        word_.failCall(fault_.call, fault_.result);
    for (std::size_t i = 0; i < session.size(); ++i)
        if (!perform(session[i]))
            played_.failedCalls.insert(i);
    close(closingAttempts(session, switches));
    wordCalls_ = word_.callCount() - firstCall;
    word_.clearTranscript();
    return std::move(played_);
}

bool SessionPlayer::perform(const ClientCall& each)
{
    const std::string step = stepsOf({each});
    return attempt(step.substr(0, step.find_first_of("\t\n")).c_str(), [&] { return call(*client_, each); });
}

void SessionPlayer::close(int attempts)
{
    for (int i = 0; i < attempts; ++i)
        if (attempt("close", [this] { return client_->close(); }))
            break;
    word_.clearFaults();
    if (isRead_)
        return;
    const Word::DocumentsPtr documents = word_.application()->GetDocuments();
    documents->Close(Word::integer(Word::wdDoNotSaveChanges));
    attempt("release", [this] {
        makeClient();
        return S_OK;
    });
}

/// What the call inserts or says, with files' paths.
std::u16string SessionPlayer::withPaths(const ClientCall& call) const
{
    if (call.method == Method::insertFile || call.method == Method::insertImage) {
        const auto path = files_.paths().find(call.text);
        return path == files_.paths().end() ? call.text : path->second;
    }
    return withName(call.text, pictureName, files_.paths().at(pictureName));
}

HRESULT SessionPlayer::call(IDocument& client, const ClientCall& each) const
{
    const _bstr_t text = bstr(withPaths(each));
    const _bstr_t target = bstr(withName(each.target, pictureName, files_.paths().at(pictureName)));
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
    case Method::insertFile:
        return client.insertFile(text, number);
    case Method::setOrientation:
        return client.setOrientation(number);
    }
    return E_NOTIMPL;
}

} // namespace reference
