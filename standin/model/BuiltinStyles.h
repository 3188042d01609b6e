#pragma once

#include "Styles.h"

#include <vector>

namespace standin::model {

/// Makes Word's built-in styles, as a new document of Word 2000 has them; Normal first.
std::vector<StylePtr> makeBuiltinStyles();

} // namespace standin::model
