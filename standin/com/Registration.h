#pragma once

#include "Server.h"

namespace standin {
/// Enters this program in HKEY_CLASSES_ROOT as the server of Word's Application class, of "Word.Application",
/// and its type library. Raises std::runtime_error when another program is registered there, and _com_error.
void registerServer();

/// Takes the entries back; raises std::runtime_error when they belong to another program.
void unregisterServer();

/// The type library as it is registered, null when it is not. While someone holds it, the marshaler finds it
/// in memory; otherwise it reads the whole library again for each object that crosses to a client.
ITypeLibPtr registeredTypeLibrary();
} // namespace standin
