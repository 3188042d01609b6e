#include "SettingsReport.h"

#include "DocSession.h"

#include "TextConversion.h"

#include <algorithm>
#include <cwchar>
#include <set>
#include <string_view>

namespace {

using diagnostics::Event;

const char* nameOf(SettingOrigin origin)
{
    switch (origin) {
    case SettingOrigin::clientOverride:
        return "override";
    case SettingOrigin::user:
        return "user";
    case SettingOrigin::machine:
        return "machine";
    case SettingOrigin::byDefault:
        break;
    }
    return "default";
}

bool isSetting(std::string_view group, const std::wstring& name)
{
    return std::ranges::any_of(settingTable, [&](const SettingDescription& setting) {
        return setting.group == group && _wcsicmp(name.c_str(), toWide(setting.name)) == 0;
    });
}

/// What somebody has put into the registry where settings are and no setting is: a misspelt name, most
/// likely.
void tellUnknownSettings(DocSession& session)
{
    std::set<std::string_view> groups;
    for (const SettingDescription& setting : settingTable)
        groups.insert(setting.group);
    for (const std::string_view group : groups)
        for (const RegisterCache::StoredName& stored :
             RegisterCache::namesIn(QdxString(group.data(), group.size()))) {
            if (stored.name.empty() || isSetting(group, stored.name))
                continue;
            session.diagnostics.tell([&] {
                return Event{.severity = diagnostics::Severity::warning,
                             .what = "Nobody reads this setting: " + std::string(group) + "/" +
                                     toUtf8(stored.name) + " (" + nameOf(stored.origin) + ")",
                             .remedy = "Check the spelling of its name."};
            });
        }
}

std::string pathOf(const SettingDescription& setting)
{
    return std::string(setting.group) + "/" + setting.name;
}

} // namespace

void tellSettings(DocSession& session) noexcept
try {
    session.diagnostics.tell([&] {
        std::string line = "Settings:";
        for (const SettingDescription& setting : settingTable) {
            const SettingValue& value = session.settings[setting.id];
            line.append(" ").append(pathOf(setting)).append("=").append(toUtf8(value.text));
            line.append(" (").append(nameOf(value.origin)).append(");");
        }
        return Event{.what = std::move(line)};
    });
    if (session.diagnostics.isOn())
        tellUnknownSettings(session);
    for (const SettingDescription& setting : settingTable)
        if (!session.settings[setting.id].isOfItsKind)
            session.events.ignored(Silence::wrongSetting,
                                   static_cast<const wchar_t*>(toWide(pathOf(setting).c_str())));
} catch (...) { // NOLINT(bugprone-empty-catch): without memory nobody is told
}
