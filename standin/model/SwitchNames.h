#pragma once

#include "Switches.h"

#include <string_view>

namespace standin::model {

/// Sets switches from a text: "name=value" for each, with commas between. Values are 0 and 1, for
/// insertFileLastParagraph mark, dropped and surplus. Raises std::invalid_argument for a name or value that
/// there is not.
void readSwitches(Switches& switches, std::string_view text);

} // namespace standin::model
