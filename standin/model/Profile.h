#pragma once

#include "Switches.h"

#include <string_view>

namespace standin::model {

/// Sets switches as a Word answered: JSON in UTF-8, an object whose member "switches" is an object of names
/// and values. A value is a text, true or false, or a number; other members are left alone. Raises
/// std::invalid_argument for a name or value that there is not, and where there are no switches.
void readProfile(Switches& switches, std::string_view json);

} // namespace standin::model
