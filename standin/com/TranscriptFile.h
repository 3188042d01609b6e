#pragma once

#include "Server.h"

namespace standin {
/// Appends to the file that WORDSTANDIN_TRANSCRIPT names, each line written through at once; empty when it
/// names none. Raises std::runtime_error for a file that cannot be opened.
Server::TranscriptSink transcriptFileFromEnvironment();
} // namespace standin
