#include "Server.h"

#include "ApplicationObject.h"
#include "DocumentObject.h"
#include "FileNames.h"
#include "OwnFile.h"
#include "TypeLibraryNumber.h"

#include <vector>

namespace standin {
namespace {
_COM_SMARTPTR_TYPEDEF(IRunningObjectTable, __uuidof(IRunningObjectTable));
_COM_SMARTPTR_TYPEDEF(IMoniker, __uuidof(IMoniker));

IRunningObjectTablePtr runningObjects()
{
    IRunningObjectTablePtr table;
    _com_util::CheckError(GetRunningObjectTable(0, &table));
    return table;
}

std::wstring fullNameOf(const model::Document& document)
{
    const std::u16string name = document.fullName();
    return {name.begin(), name.end()};
}
} // namespace

std::shared_ptr<Server> Server::make(const model::Switches& switches)
{
    return std::shared_ptr<Server>(new Server(switches));
}

Server::~Server() = default;

void Server::start(bool visible)
{
    closeDocuments();
    ++life_;
    ended_ = false;
    model_ = std::make_unique<model::Application>(switches_, clock);
    application_ = makeObject<ApplicationObject>(shared_from_this(), visible);
}

void Server::end()
{
    if (ended_)
        return;
    closeDocuments();
    ended_ = true;
    application_ = nullptr;
    if (whenEnded)
        whenEnded();
}

void Server::closeDocuments()
{
    if (!model_)
        return;
    const std::vector<model::DocumentPtr> documents = model_->documents();
    for (const model::DocumentPtr& document : documents)
        closeDocument(*document);
}

void Server::closeDocument(model::Document& document)
{
    const model::Document* key = &document;
    revokeDocument(document);
    // Its number lasts as long as its object; the address may be another document's later.
    if (const auto known = documents_.find(key); known != documents_.end() && !known->second.object)
        forget(known);
    model_->close(document);
}

Word::_ApplicationPtr Server::application() const
{
    return application_;
}

Word::_DocumentPtr Server::document(const model::DocumentPtr& document)
{
    if (!document)
        return {};
    KnownDocument& known = documents_[document.get()];
    if (known.object)
        return Word::_DocumentPtr(known.object);
    auto* object = new DocumentObject(shared_from_this(), document);
    documents_[document.get()].object = object;
    return Word::_DocumentPtr(object, false);
}

std::string Server::contentOf(const std::wstring& file) const
{
    if (keptFiles)
        if (std::optional<std::string> kept = keptFiles(file))
            return *std::move(kept);
    return readFile(file);
}

void Server::documentObjectDied(const model::Document& document)
{
    const auto known = documents_.find(&document);
    if (known == documents_.end())
        return;
    known->second.object = nullptr;
    if (document.isClosed())
        forget(known);
}

void Server::forget(std::map<const model::Document*, KnownDocument>::iterator known)
{
    // Nothing else will be called after it.
    std::erase_if(
        uses_, [owner = known->second.name + '.'](const auto& use) { return use.first.starts_with(owner); });
    documents_.erase(known);
}

void Server::enterDocument(const model::DocumentPtr& document)
{
    if (!documentsInRunningObjectTable)
        return;
    revokeDocument(*document);
    IMonikerPtr moniker;
    _com_util::CheckError(CreateFileMoniker(fullNameOf(*document).c_str(), &moniker));
    DWORD registration = 0;
    const Word::_DocumentPtr object = this->document(document);
    _com_util::CheckError(runningObjects()->Register(ROTFLAGS_REGISTRATIONKEEPSALIVE,
                                                     object.GetInterfacePtr(), moniker, &registration));
    documents_[document.get()].registration = registration;
}

void Server::revokeDocument(const model::Document& document)
{
    const auto known = documents_.find(&document);
    if (known == documents_.end() || known->second.registration == 0)
        return;
    const DWORD registration = std::exchange(known->second.registration, 0);
    runningObjects()->Revoke(registration);
}

ITypeInfoPtr Server::typeInfo(const IID& interfaceId)
{
    if (!library_) {
        const std::wstring file = ownFile() + L'\\' + std::to_wstring(STANDIN_TYPELIB_RESOURCE);
        _com_util::CheckError(LoadTypeLibEx(file.c_str(), REGKIND_NONE, &library_));
    }
    ITypeInfoPtr information;
    _com_util::CheckError(library_->GetTypeInfoOfGuid(interfaceId, &information));
    return information;
}

long Server::liveObjects() const
{
    if (!application_)
        return liveObjects_;
    // AddRef and Release are how a COM object tells its count.
    application_->AddRef();
    const bool heldByOthers = application_->Release() > 1;
    return heldByOthers ? liveObjects_ : liveObjects_ - 1;
}

HRESULT Server::countCall()
{
    if (const auto rejection = faults.takeRejection(callCount_ + 1))
        return *rejection;
    ++callCount_;
    if (faults.exitsAt(callCount_)) {
        note("# the process ends at call " + std::to_string(callCount_));
        TerminateProcess(GetCurrentProcess(), 1);
    }
    return faults.resultOf(callCount_).value_or(S_OK);
}

void Server::note(const std::string& line, const CalledMember& member)
{
    if (transcript)
        transcript(line, member);
}

int Server::nextUse(const std::string& name)
{
    return ++uses_[name];
}

std::string Server::ordinalName(std::string_view interfaceName)
{
    std::string kind(interfaceName);
    kind.front() = static_cast<char>(kind.front() - 'A' + 'a');
    const int use = nextUse(kind);
    return use == 1 ? kind : kind + std::to_string(use);
}

std::string Server::documentName(const model::Document& document)
{
    KnownDocument& known = documents_[&document];
    if (known.name.empty())
        known.name = ordinalName("Document");
    return known.name;
}

std::string Server::numberedName(const std::string& expression)
{
    const int use = nextUse(expression);
    return use == 1 ? expression : expression + '#' + std::to_string(use);
}

std::string Server::nameOf(IUnknown* object)
{
    if (!object)
        return "null";
    StandinObject* own = StandinObject::of(object);
    return own ? own->name() : "foreign";
}
} // namespace standin
