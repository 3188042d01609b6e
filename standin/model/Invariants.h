#pragma once

#include "Document.h"

#include <string>

namespace standin::model {

/// Looks whether a document's parts fit together: every story ends with a paragraph mark, each paragraph and
/// section end stands on its character, tables consist of whole rows, runs cover the text without gaps and
/// neighbours differ, endpoints lie inside the story, field characters are paired. Returns an empty string,
/// or what is wrong.
std::string checkInvariants(const Document& document);

} // namespace standin::model
