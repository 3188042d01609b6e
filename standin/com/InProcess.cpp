#include "InProcess.h"

#include "ApplicationFactory.h"
#include "Server.h"
#include "StandinObject.h"

namespace standin {
struct Session::State
{
    std::shared_ptr<Server> server;
    std::vector<std::string> lines;
    std::vector<CalledMember> members;
};

Session::Session(const SessionOptions& options) : state_(std::make_unique<State>())
{
    state_->server = Server::make(options.switches);
    state_->server->clock = options.clock;
    state_->server->documentsInRunningObjectTable = options.documentsInRunningObjectTable;
    state_->server->writesFiles = options.writesFiles;
    state_->server->keptFiles = options.keptFiles;
    state_->server->transcript = [state = state_.get()](const std::string& line, const CalledMember& member) {
        state->lines.push_back(line);
        state->members.push_back(member);
    };
    state_->server->start();
}

Session::~Session()
{
    state_->server->transcript = nullptr;
    state_->server->end();
}

Word::_ApplicationPtr Session::application() const
{
    return state_->server->application();
}

const std::vector<std::string>& Session::transcript() const
{
    return state_->lines;
}

void Session::clearTranscript()
{
    state_->lines.clear();
    state_->members.clear();
}

const std::vector<CalledMember>& Session::calledMembers() const
{
    return state_->members;
}

long Session::callCount() const
{
    return state_->server->callCount();
}

void Session::failCall(long ordinal, HRESULT result)
{
    state_->server->faults.failCall(callCount() + ordinal, result);
}

void Session::failFromCall(long ordinal, HRESULT result)
{
    state_->server->faults.failFromCall(callCount() + ordinal, result);
}

void Session::rejectCall(long ordinal, HRESULT result, int times)
{
    state_->server->faults.rejectCall(callCount() + ordinal, result, times);
}

void Session::clearFaults()
{
    state_->server->faults.clear();
}

long Session::liveObjects() const
{
    return state_->server->liveObjects();
}

std::shared_ptr<::standin::model::Document> Session::model(Word::_Document* document) const
{
    const StandinObject* object = StandinObject::of(document);
    return object ? object->documentModel() : nullptr;
}

::standin::model::Application& Session::model() const
{
    return state_->server->model();
}

bool Session::hasQuit() const
{
    return state_->server->hasEnded();
}

const std::shared_ptr<Server>& Session::server() const
{
    return state_->server;
}

namespace {
/// A key made for a while: it goes away again unless it was there before.
class TemporaryKey
{
public:
    TemporaryKey(const std::wstring& path, const wchar_t* value) : path_(path)
    {
        HKEY key = nullptr;
        DWORD disposition = 0;
        const LSTATUS made = RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                                             nullptr, &key, &disposition);
        _com_util::CheckError(HRESULT_FROM_WIN32(static_cast<unsigned long>(made)));
        isOwn_ = disposition == REG_CREATED_NEW_KEY;
        if (isOwn_ && value)
            RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value),
                           static_cast<DWORD>((wcslen(value) + 1) * sizeof(wchar_t)));
        RegCloseKey(key);
    }

    ~TemporaryKey()
    {
        if (isOwn_)
            RegDeleteKeyW(HKEY_CLASSES_ROOT, path_.c_str());
    }

    TemporaryKey(const TemporaryKey&) = delete;
    TemporaryKey& operator=(const TemporaryKey&) = delete;

private:
    std::wstring path_;
    bool isOwn_ = false;
};
} // namespace

struct ClassRegistration::State
{
    explicit State(const std::shared_ptr<Server>& server)
        : programId(applicationProgId, L"Microsoft Word Application"),
          programClass(std::wstring(applicationProgId) + L"\\CLSID", applicationClassText),
          factory(new ApplicationFactory(server))
    {
        const HRESULT registered = CoRegisterClassObject(applicationClassId, factory, CLSCTX_INPROC_SERVER,
                                                         REGCLS_MULTIPLEUSE, &registration);
        if (FAILED(registered))
            factory->Release();
        _com_util::CheckError(registered);
    }

    ~State()
    {
        CoRevokeClassObject(registration);
        factory->Release();
    }

    TemporaryKey programId;
    TemporaryKey programClass;
    ApplicationFactory* factory;
    DWORD registration = 0;
};

ClassRegistration::ClassRegistration(const Session& session)
    : state_(std::make_unique<State>(session.server()))
{
}

ClassRegistration::~ClassRegistration() = default;

long ClassRegistration::created() const
{
    return state_->factory->created();
}

RunningApplication::RunningApplication(const Session& session)
{
    _com_util::CheckError(RegisterActiveObject(session.application().GetInterfacePtr(), applicationClassId,
                                               ACTIVEOBJECT_WEAK, &registration_));
}

RunningApplication::~RunningApplication()
{
    RevokeActiveObject(registration_, nullptr);
}
} // namespace standin
