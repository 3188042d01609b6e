#pragma once

#include "Document.h"
#include "DocumentContent.h"

namespace reference {

/// What a document of the Word stand-in holds. Bookmarks are taken for tags when they do not look like the
/// stand-in's own ("_Toc...").
DocumentContent readContent(const standin::model::Document& document);

} // namespace reference
