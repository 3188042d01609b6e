#pragma once

#include "Server.h"

#include <optional>
#include <string_view>

/// Documents and their files: what Word does when it opens, saves and closes one.
namespace standin {
/// Adds a document, with the content of a template unless that is empty. Raises WordError 5174 for a template
/// that there is not.
model::DocumentPtr addDocument(Server& server, std::u16string_view templateName);

/// The document that holds the file; it is read unless it is open already.
model::DocumentPtr openDocument(Server& server, std::u16string_view fileName);

/// Saves under a name, which becomes the document's own. Raises WordError for a file that cannot be written;
/// the document keeps its old name then.
void saveDocumentAs(Server& server, const model::DocumentPtr& document, std::u16string_view fileName,
                    std::optional<long> givenFormat);

/// Saves a document under the name that it has. Raises WordError 4198 when it has none, since nobody can be
/// asked.
void saveDocument(const Server& server, const model::DocumentPtr& document);

/// Closes a document; `saveChanges` is a WdSaveOptions. When it is left open nobody can be asked what to do
/// with changes: they are dropped, or the call fails with WordError 4198, as the model's switch says.
void closeDocument(Server& server, const model::DocumentPtr& document, std::optional<long> saveChanges);
void closeAllDocuments(Server& server, std::optional<long> saveChanges);
} // namespace standin
