#pragma once

#include "Switches.h"

#include <span>
#include <string_view>
#include <vector>

namespace standin::model {

/// A switch as data.
struct SwitchEntry
{
    std::string_view name;
    std::vector<std::string_view> values; ///< the default first
    void (*set)(Switches& switches, std::size_t value);
    std::size_t (*get)(const Switches& switches);
};

/// All of them.
std::span<const SwitchEntry> switchTable();

/// Sets one by name. Of those that are on or off the values are 1 and 0, "true" and "false" as well. Raises
/// std::invalid_argument for a name or value that there is not.
void setSwitch(Switches& switches, std::string_view name, std::string_view value);

/// Sets switches from a text: "name=value" for each, with commas between. Raises as setSwitch.
void readSwitches(Switches& switches, std::string_view text);

/// Those that differ from the default, as readSwitches takes them.
std::string namedSwitches(const Switches& switches);

} // namespace standin::model
