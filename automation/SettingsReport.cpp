#include "SettingsReport.h"

#include "DocSession.h"

#include "TextConversion.h"

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

std::string pathOf(const SettingDescription& setting)
{
    return std::string(setting.group) + "/" + setting.name;
}

} // namespace

void tellSettings(DocSession& session) noexcept
{
    session.diagnostics.tell([&] {
        std::string line = "Settings:";
        for (const SettingDescription& setting : settingTable) {
            const SettingValue& value = session.settings[setting.id];
            line.append(" ")
                .append(pathOf(setting))
                .append("=")
                .append(diagnostics::utf8(value.entry.getValue()));
            line.append(" (").append(nameOf(value.origin)).append(");");
        }
        return Event{.what = std::move(line)};
    });
    for (const SettingDescription& setting : settingTable)
        if (!session.settings[setting.id].isOfItsKind)
            session.events.ignored(Silence::wrongSetting,
                                   static_cast<const wchar_t*>(toWide(pathOf(setting).c_str())));
}
