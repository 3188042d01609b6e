#pragma once

#include <string>

#include <IDocument.h>

/// Writes the letter into a new document of that name. `to` must be the name of somebody who reads: an empty
/// one raises std::invalid_argument. Failures of Word arrive as QdxException or _com_error.
void writeLetter(IDocument& mirovel, const std::wstring& fileName, const std::wstring& to);

/// Runs `work` in a single-threaded apartment and says on the standard output how it failed. The status for
/// main(): 0, or 1 after a failure.
int runInApartment(void (*work)(int argc, wchar_t** argv), int argc, wchar_t** argv);
