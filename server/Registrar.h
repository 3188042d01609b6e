#pragma once

#include "RegistryScript.h"

/// Applies registration scripts to the registry.
///
/// Some names are those of system keys ("CLSID", "TypeLib", ...). Where system keys lie, that is below a root
/// or below other keys that are kept, a key of such a name is never removed, whatever the script says. Inside
/// a key that the script owns the name is a name like any other (a ProgID's own "CLSID").

/// Creates what the script says. Throws `_com_error` at the first failure; what was written until then stays.
void registerScript(const RegistryScript& script);

/// Removes what the script created: keys under ForceRemove whole, the values it wrote, and then every other
/// key that holds nothing else (any more). Goes on past what is not there or cannot be removed.
void unregisterScript(const RegistryScript& script);
