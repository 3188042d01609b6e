#include "WriterChoice.h"

#include "Composer.h"
#include "CountingWriter.h"
#include "TextConversion.h"
#include "registry/SettingsRecord.h"
#include "tracedll/Trace.h"

std::unique_ptr<DocumentWriter> chooseWriter(const SettingsRecord& settings, const Trace& trace,
                                             WriterEvents* events)
{
    using compose::Composer;
    const int mode = settings.integer(SettingName::compose);
    if (mode != 1 && mode != 2)
        return std::make_unique<CountingWriter>(trace, events);
    const auto said = [&](SettingName name) {
        const std::wstring& text = settings[name].text;
        return std::u16string(text.begin(), text.end());
    };
    const QdxString installDir = settings.text(SettingName::installDir);
    return std::make_unique<Composer>(mode == 1 ? Composer::Pen::typed : Composer::Pen::fragments, trace,
                                      static_cast<const wchar_t*>(toWide(installDir)), events,
                                      Composer::Look{.tableStyle = said(SettingName::tableStyle),
                                                     .contentsTitle = said(SettingName::tocTitle)});
}
