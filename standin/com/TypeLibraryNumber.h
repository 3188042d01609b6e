#pragma once

/// The number of the type library among the resources of the program that the stand-in is part of. Not 1,
/// where a program keeps a library of its own.
#define STANDIN_TYPELIB_RESOURCE 9
