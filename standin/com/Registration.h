#pragma once

namespace standin {
/// Enters this program in HKEY_CLASSES_ROOT as the server of Word's Application class, of "Word.Application",
/// and its type library. Raises std::runtime_error when another program is registered there, and _com_error.
void registerServer();

/// Takes the entries back; raises std::runtime_error when they belong to another program.
void unregisterServer();
} // namespace standin
