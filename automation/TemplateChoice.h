#pragma once

#include "QdxString.h"

class SettingsRecord;
struct DocSession;

/// The template for a new document, from the settings. Empty: Word's own default. The file need not exist.
///
/// A name without a directory lies in the "Templates" folder of the installation directory, for which the
/// session's overrides do not count.
QdxString chooseTemplate(const SettingsRecord& settings);

/// Ask the user whether to go on with Word's default template, and raise `QdxException`
/// "Document generation aborted by the user." when the answer is not Yes. With "Word"/"Strict", where nobody
/// can be asked, that is raised instead.
/// @{
void askAfterRefusedTemplate(DocSession& session, const QdxString& templateName);
void askAfterMissingTemplate(DocSession& session, const QdxString& templateName);
/// @}
