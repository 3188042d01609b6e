#pragma once

/// Runs the registration script that is the module's resource REGISTRY `resource`: writes (true) or removes
/// (false) the class's registry entries. `%MODULE%` in the script stands for the path of the module's file.
/// Throws `_com_error`, or `RegistryScriptError` for a script that is not understood.
void runClassScript(unsigned short resource, bool registering);

/// The same as a plain function for each resource, for the object map.
template <unsigned short resource>
void classScript(bool registering)
{
    runClassScript(resource, registering);
}
