#include "DocSession.h"

#include "sysSupport/SysDirectory.h"

DocSession::DocSession() : startDirectory(SysDirectory::current()), settings(SettingsRecord::read(registry))
{
}

DocSession::~DocSession() = default;

DocumentWriter& DocSession::currentWriter() const
{
    if (!writer)
        _com_issue_error(E_POINTER);
    return *writer;
}
