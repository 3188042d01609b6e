#pragma once

#include "Server.h"

namespace standin {
/// Keeps a copy of each file that is read in, as `1-<name>`, `2-<name>` and so on in the folder that
/// WORDSTANDIN_INSERTED names, so that somebody can look at files that their makers remove; empty when it
/// names none. A copy that cannot be written fails the call.
Server::InsertedFileSink insertedFilesFromEnvironment();
} // namespace standin
