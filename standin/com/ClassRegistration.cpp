#include "ClassRegistration.h"

#include "ApplicationFactory.h"
#include "InProcessWord.h"

#include <string>

namespace standin {
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

ClassRegistration::ClassRegistration(const InProcessWord& word)
    : state_(std::make_unique<State>(word.server()))
{
}

ClassRegistration::~ClassRegistration() = default;

long ClassRegistration::created() const
{
    return state_->factory->created();
}
} // namespace standin
