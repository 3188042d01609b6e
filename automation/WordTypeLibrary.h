#pragma once

#include "ComPointers.h"

/// The registered type library of Word's object model; null when there is none that can be read.
///
/// COM makes the proxies of Word's objects from it. It is in memory as long as somebody holds it, and Wine
/// reads it again for each object that a call returns while nobody does, which takes longer than the call.
ITypeLibPtr loadWordTypeLibrary() noexcept;
