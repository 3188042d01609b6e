#pragma once

#include "RegEntry.h"

#include <array>
#include <cstddef>

/// Every setting there is: its name, its kind, its default, and whose word counts. docs/settings.md shows
/// this table, and a test holds the two together.

enum class SettingKind
{
    text,
    integer,
    flag ///< a boolean
};

/// Whether a client's override goes before what is stored.
enum class SettingOverrides
{
    count,
    countInPart ///< for some of the setting's readers only
};

/// When what `create` finds is in force.
enum class SettingReading
{
    byCreate,        ///< from that `create` on
    fromTheBeginning ///< also before: as it is stored when the object is made, and as the client overrides it
};

enum class SettingName
{
    logName,
    diagnostics,
    installDir,
    wordTemplateName,
    tocLevel,
    compose,
    busyTimeout,
    ownInstance,
    strict,
    tableStyle,
    tocTitle,
    saveEmf
};

struct SettingDescription
{
    SettingName id;
    const char* group;
    const char* name;
    SettingKind kind;
    const char* defaultText; ///< Of a text; null when the default depends on other settings.
    int defaultNumber;       ///< Of an integer or a boolean.
    SettingOverrides overrides;
    SettingReading reading;
};

inline constexpr std::array settingTable = {
    SettingDescription{SettingName::logName, "Log", "LogName", SettingKind::text, "", 0,
                       SettingOverrides::count, SettingReading::byCreate},
    SettingDescription{SettingName::diagnostics, "Log", "Diagnostics", SettingKind::text, "", 0,
                       SettingOverrides::count, SettingReading::fromTheBeginning},
    SettingDescription{SettingName::installDir, "Settings", "InstallDir", SettingKind::text, "", 0,
                       SettingOverrides::countInPart, SettingReading::byCreate},
    SettingDescription{SettingName::wordTemplateName, "Word", "WordTemplateName", SettingKind::text, nullptr,
                       0, SettingOverrides::count, SettingReading::byCreate},
    SettingDescription{SettingName::tocLevel, "Word", "TOCLevel", SettingKind::integer, nullptr, 50,
                       SettingOverrides::count, SettingReading::byCreate},
    SettingDescription{SettingName::compose, "Word", "Compose", SettingKind::integer, nullptr, 0,
                       SettingOverrides::count, SettingReading::byCreate},
    SettingDescription{SettingName::busyTimeout, "Word", "BusyTimeout", SettingKind::integer, nullptr, 30,
                       SettingOverrides::count, SettingReading::fromTheBeginning},
    SettingDescription{SettingName::ownInstance, "Word", "OwnInstance", SettingKind::flag, nullptr, 0,
                       SettingOverrides::count, SettingReading::fromTheBeginning},
    SettingDescription{SettingName::strict, "Word", "Strict", SettingKind::flag, nullptr, 0,
                       SettingOverrides::count, SettingReading::fromTheBeginning},
    SettingDescription{SettingName::tableStyle, "Word", "TableStyle", SettingKind::text, "", 0,
                       SettingOverrides::count, SettingReading::byCreate},
    SettingDescription{SettingName::tocTitle, "Word", "TOCTitle", SettingKind::text, "Table of Contents", 0,
                       SettingOverrides::count, SettingReading::byCreate},
    SettingDescription{SettingName::saveEmf, "Diagram", "SaveEmf", SettingKind::flag, nullptr, 0,
                       SettingOverrides::count, SettingReading::byCreate},
};

constexpr const SettingDescription& describe(SettingName name)
{
    return settingTable[static_cast<std::size_t>(name)];
}

static_assert([] {
    for (std::size_t i = 0; i < settingTable.size(); ++i)
        if (static_cast<std::size_t>(settingTable[i].id) != i)
            return false;
    return true;
}());

/// What a reader gets when nothing is stored; empty for a default that depends on other settings.
[[nodiscard]] RegEntry defaultEntry(const SettingDescription& setting);

/// Whether the entry says a value of that kind, so that no reader has to make one up: a whole decimal number
/// of 32 bits for an integer, for a boolean a number or one of "1", "true", "yes", "on" and "0", "false",
/// "no", "off" in any case. An entry that a client calls a boolean is also good for an integer.
[[nodiscard]] bool canBe(SettingKind kind, const RegEntry& entry);
