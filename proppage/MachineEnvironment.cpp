#include "MachineEnvironment.h"

#include "registry/RegisterDynamic.h"
#include "sysSupport/SysFile.h"

RegEntry MachineEnvironment::read(const QdxString& group, const QdxString& name,
                                  const RegEntry& defaultEntry) const
{
    return RegisterDynamic::read(group, name, defaultEntry);
}

void MachineEnvironment::write(const QdxString& group, const QdxString& name, const RegEntry& entry)
{
    RegisterDynamic::write(group, name, entry);
}

bool MachineEnvironment::fileExists(const QdxString& name) const
{
    return SysFile::exists(name);
}

QdxString MachineEnvironment::appendToDir(const QdxString& dir, const QdxString& name) const
{
    return SysFile::appendToDir(dir, name);
}
