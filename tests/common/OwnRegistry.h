#pragma once

#include <windows.h>

/// While it lives, HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE are empty in this process, and what is written
/// there is gone afterwards. Other processes, and classes that are looked up below HKEY_CLASSES_ROOT, are not
/// touched. One at a time.
class OwnRegistry
{
public:
    OwnRegistry();
    ~OwnRegistry();
    OwnRegistry(const OwnRegistry&) = delete;
    OwnRegistry& operator=(const OwnRegistry&) = delete;
};
