#include "Mirovel.h"

#include "MirovelCall.h"

#include "DocumentWriter.h"
#include "RegEntry.h"

namespace {

// A client does not fail for want of a trace.
void openTrace(DocSession& session, const QdxString& logName)
try {
    session.trace.open(logName);
} catch (const QdxException& exception) {
    session.trace.close();
    logCaught(exception);
    session.diagnostics.tell([&] {
        return diagnostics::Event{.severity = diagnostics::Severity::warning,
                                  .what = diagnostics::utf8(QdxString(exception.reasonText())),
                                  .remedy = "Name a file that this user may write in Log/LogName."};
    });
}

} // namespace

STDMETHODIMP Mirovel::overrideRegistry(BSTR group, BSTR name, BSTR value, short valueType)
try {
    echo("overrideRegistry", group, name, value, valueType);
    RegEntry entry(toNarrow(group), toNarrow(name), toNarrow(value));
    switch (valueType) {
    case 1:
        entry.setKind(RegEntry::textKind);
        break;
    case 2:
        entry.setKind(RegEntry::integerKind);
        break;
    case 3:
        entry.setKind(RegEntry::booleanKind);
        break;
    default:
        break;
    }
    session_->registry.override(entry);
    session_->settings.takeOverrides(session_->registry);
    session_->followSettings();
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::trace(short level)
try {
    Trace& trace = session_->trace;
    const SettingDescription& setting = describe(SettingName::logName);
    const QdxString logName = session_->registry.read(setting.group, setting.name, defaultEntry(setting));
    Trace::purgeBefore(logName);
    if (level == 0)
        trace.close();
    else if (level > 0)
        openTrace(*session_, logName);
    if (level >= 0)
        trace.setLevel(level);
    withWriter([&](DocumentWriter& writer) { writer.setTrace(trace); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}
