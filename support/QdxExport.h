#pragma once

/// QDXEXPORT marks what mirovelcom.dll offers to C++ clients by decorated name. A client that links to the
/// DLL's import library defines QDX_IMPORT before it includes our headers; in our own builds the marked
/// functions are exported from whatever module they are linked into.
#if !defined(_WIN32)
#define QDXEXPORT
#elif defined(QDX_IMPORT)
#define QDXEXPORT __declspec(dllimport)
#else
#define QDXEXPORT __declspec(dllexport)
#endif
