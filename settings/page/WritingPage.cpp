#include "WritingPage.h"

#include "DiagnosticsLog.h"

#include <comdef.h>

namespace {

constexpr wchar_t logTitle[] = L"Diagnostics";

} // namespace

WritingPage::WritingPage(SettingsStore& store)
    : WindowPage(WritingPageWindow::Handlers{[this] { edited(); }, [this] { openLog(); }}), settings_(store)
{
}

HRESULT WritingPage::QueryInterface(REFIID iid, void** out) noexcept
{
    if (out == nullptr)
        return E_POINTER;
    const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IPropertyPage);
    *out = known ? static_cast<IPropertyPage*>(this) : nullptr;
    return known ? S_OK : E_NOINTERFACE;
}

bool WritingPage::store()
{
    const std::vector<Change> wanted = changes();
    std::optional<SettingName> first = refused(wanted);
    if (!first)
        first = refusedByStore(wanted);
    if (first) {
        window().focus(*first);
        return false;
    }
    refill();
    return true;
}

HRESULT WritingPage::TranslateAccelerator(MSG* message) noexcept
{
    if (message == nullptr)
        return E_POINTER;
    if (!window())
        return E_UNEXPECTED;
    // All other keys mean what they mean in a dialog, and the container's dialog goes through this one.
    return window().pressesButton(*message) ? S_OK : S_FALSE;
}

void WritingPage::fill()
{
    for (const SettingName setting : WritingSettings::all)
        window().fill(setting, settings_.read(setting));
}

std::vector<WritingPage::Change> WritingPage::changes() const
{
    std::vector<Change> found;
    for (const SettingName setting : WritingSettings::all) {
        const std::optional<std::wstring> input = window().input(setting);
        if (input != settings_.read(setting).user)
            found.push_back({setting, input});
    }
    return found;
}

std::optional<SettingName> WritingPage::refused(const std::vector<Change>& changes)
{
    std::optional<SettingName> first;
    for (const auto& [setting, input] : changes) {
        const std::optional<std::wstring> refusal =
            input ? WritingSettings::refusalOf(setting, *input) : std::nullopt;
        if (!refusal)
            continue;
        window().refuse(setting, *refusal);
        if (!first)
            first = setting;
    }
    return first;
}

std::optional<SettingName> WritingPage::refusedByStore(const std::vector<Change>& changes)
{
    std::optional<SettingName> first;
    for (const auto& [setting, input] : changes) {
        try {
            settings_.store(setting, input);
        } catch (const StoreRefusal& refusal) {
            window().refuse(setting, L"Not stored: Windows refuses it. " + refusal.reason);
            if (!first)
                first = setting;
        }
    }
    return first;
}

void WritingPage::openLog()
{
    const auto tell = [this](const std::wstring& text) {
        MessageBoxW(window().handle(), text.c_str(), logTitle, MB_OK | MB_ICONINFORMATION);
    };
    const std::wstring name = window().shown(SettingName::diagnostics);
    if (name.empty())
        return tell(L"No diagnostics are written, because no file is named for them.");
    if (WritingSettings::refusalOf(SettingName::diagnostics, name))
        return tell(L"No file can have the name " + name + L".");
    const std::optional<std::filesystem::path> file = newestLog(name);
    if (!file)
        return tell(L"There is no file " + placeOfLogs(name) +
                    L" yet.\n\nA program that writes documents begins one.");
    try {
        openInEditor(*file);
    } catch (const _com_error& error) {
        tell(file->wstring() + L"\n\n" + error.ErrorMessage());
    }
}
