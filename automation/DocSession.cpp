#include "DocSession.h"

#include "sysSupport/SysDirectory.h"

#include <algorithm>

DocSession::DocSession() : startDirectory(SysDirectory::current()), settings(SettingsRecord::read(registry))
{
    followSettings();
}

DocSession::~DocSession() = default;

void DocSession::followSettings()
{
    wordCalls.busyTimeout = std::chrono::seconds(std::max(0, settings.integer(SettingName::busyTimeout)));
}

DocumentWriter& DocSession::currentWriter() const
{
    if (!writer)
        _com_issue_error(E_POINTER);
    return *writer;
}
