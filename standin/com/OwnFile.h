#pragma once

#include <string>

namespace standin {
/// The file of the program or library that this code is linked into.
std::wstring ownFile();
} // namespace standin
