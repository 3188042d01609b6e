#include "Mirovel.h"

#include "MirovelCall.h"

#include "DocumentWriter.h"
#include "RegEntry.h"
#include "TextConversion.h"

#include <algorithm>
#include <cstring>

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
                                  .what = toUtf8(QdxString(exception.reasonText())),
                                  .remedy = "Name a file that this user may write in Log/LogName."};
    });
}

/// Overrides of settings that there are not, and values that cannot be of their kind.
void tellWhatIsWrong(DocSession& session, const RegEntry& entry)
{
    const auto isNamed = [&](const SettingDescription& setting) {
        return _stricmp(setting.group, entry.getGroup().data()) == 0 &&
               _stricmp(setting.name, entry.getName().data()) == 0;
    };
    const auto setting = std::ranges::find_if(settingTable, isNamed);
    const bool isKnown = setting != settingTable.end();
    if (isKnown && canBe(setting->kind, entry))
        return;
    QdxString name = entry.getGroup();
    name.append("/").append(entry.getName());
    session.events.ignored(isKnown ? Silence::wrongSetting : Silence::unknownSetting,
                           static_cast<const wchar_t*>(toWide(name)));
}

} // namespace

STDMETHODIMP Mirovel::overrideRegistry(BSTR group, BSTR name, BSTR value, short valueType)
try {
    const MethodScope method(*session_, "overrideRegistry");
    echo("overrideRegistry", group, name, value, valueType);
    RegEntry entry(toNarrow(group), toNarrow(name), toNarrow(value));
    switch (valueType) {
    case mirovelText:
        entry.setKind(RegEntry::textKind);
        break;
    case mirovelInteger:
        entry.setKind(RegEntry::integerKind);
        break;
    case mirovelBoolean:
        entry.setKind(RegEntry::booleanKind);
        break;
    default:
        break;
    }
    tellWhatIsWrong(*session_, entry);
    session_->registry.override(entry, value ? value : L"");
    session_->settings.takeOverrides(session_->registry);
    session_->followSettings();
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::trace(short level)
try {
    const MethodScope method(*session_, "trace");
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
    // Not having a document is nothing to complain of here.
    if (session_->writer)
        session_->writer->setTrace(trace);
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}
