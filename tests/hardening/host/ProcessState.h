#pragma once

#include <map>
#include <string>

/// What belongs to a host and not to the libraries in it, by name, as text.
using ProcessState = std::map<std::string, std::string>;

/// Gives every setting a value that is neither the system's nor a C library's default, so that a library that
/// sets one is noticed, and a library that resets one as well. The calling thread must be in an apartment.
void makeProcessStateUnusual();

/// The settings as they are. Reading leaves them as they are.
ProcessState readProcessState();
