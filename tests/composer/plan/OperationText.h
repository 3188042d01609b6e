#pragma once

#include "Plan.h"

#include <string>
#include <vector>

/// A line for an operation: "style 0-3 Title", "field 2 4".
std::string printable(const compose::Operation& operation);

/// The operations of a passage; of a cell's, the cell comes first.
std::vector<std::string> linesOf(const compose::Passage& passage);
/// Those of all passages.
std::vector<std::string> linesOf(const compose::Plan& plan);
