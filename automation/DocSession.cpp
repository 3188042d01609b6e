#include "DocSession.h"

#include "sysSupport/SysDirectory.h"

#include <algorithm>

DocSession::DocSession() : startDirectory(SysDirectory::current()), settings(SettingsRecord::read(registry))
{
    wordCalls.observer = &events;
    followSettings();
    diagnostics.tell([] { return diagnostics::Event{.what = "Object made"}; });
}

DocSession::~DocSession()
{
    diagnostics.tell([] { return diagnostics::Event{.what = "Object released"}; });
}

void DocSession::openDiagnostics() noexcept
{
    diagnostics.open(settings[SettingName::diagnostics].text);
}

void DocSession::followSettings()
{
    wordCalls.busyTimeout = std::chrono::seconds(std::max(0, settings.integer(SettingName::busyTimeout)));
    events.setStrict(settings.isOn(SettingName::strict));
    openDiagnostics();
}

DocumentWriter& DocSession::currentWriter() const
{
    if (!writer)
        _com_issue_error(E_POINTER);
    return *writer;
}
