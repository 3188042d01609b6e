#include "Profile.h"

#include "SwitchTable.h"

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

namespace standin::model {

namespace {

std::string textOf(const nlohmann::json& value)
{
    if (value.is_string())
        return value.get<std::string>();
    return value.dump(-1, ' ', true, nlohmann::json::error_handler_t::replace);
}

} // namespace

void readProfile(Switches& switches, std::string_view json)
{
    const nlohmann::json profile = nlohmann::json::parse(json, nullptr, false);
    if (profile.is_discarded())
        throw std::invalid_argument("a profile that is no JSON");
    const auto found = profile.is_object() ? profile.find("switches") : profile.end();
    if (found == profile.end() || !found->is_object())
        throw std::invalid_argument("a profile without \"switches\"");
    Switches read = switches;
    for (const auto& [name, value] : found->items())
        setSwitch(read, name, textOf(value));
    switches = read;
}

} // namespace standin::model
