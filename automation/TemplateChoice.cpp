#include "TemplateChoice.h"

#include "ComErrorReport.h"
#include "DocSession.h"

#include "TextConversion.h"
#include "WinUtils/QdxMessageBox.h"
#include "registry/SettingsRecord.h"
#include "sysSupport/SysFile.h"

namespace {

void askWhetherToContinue(DocSession& session, const QdxString& templateName, const QdxString& question,
                          UINT icon)
{
    if (!canAskUser()) {
        session.events.ignored(Silence::missingTemplate, static_cast<const wchar_t*>(toWide(templateName)));
        if (session.events.isAnythingKept())
            session.events.raiseKept();
    }
    session.diagnostics.tell([&] {
        return diagnostics::Event{.severity = diagnostics::Severity::warning,
                                  .what = "The user is asked: " + toUtf8(question),
                                  .remedy = "Check Word/WordTemplateName and Settings/InstallDir."};
    });
    if (QdxMessageBox(nullptr, question, "Lumarkscribe", MB_YESNO | icon) != IDYES)
        throwLogged(QdxException("Document generation aborted by the user."));
}

} // namespace

QdxString chooseTemplate(const SettingsRecord& settings)
{
    if (settings[SettingName::wordTemplateName].origin == SettingOrigin::byDefault)
        return SysFile::appendToDir(settings.text(SettingName::installDir), "templates\\Vantpl01.dot");
    const QdxString name = settings.text(SettingName::wordTemplateName);
    if (name.isEmpty() || !SysFile::getDir(name).isEmpty())
        return name;
    QdxString path = "Templates\\";
    path.append(name);
    return SysFile::appendToDir(SettingsRecord::registeredInstallDir(), path);
}

void askAfterRefusedTemplate(DocSession& session, const QdxString& templateName)
{
    QdxString question = "Problem reported by MS-Word :\nError occurred in setting word template file ";
    question.append(templateName).append(".\nContinue?");
    askWhetherToContinue(session, templateName, question, MB_ICONHAND);
}

void askAfterMissingTemplate(DocSession& session, const QdxString& templateName)
{
    QdxString question = "Word template file ";
    question.append(templateName)
        .append(" does not exist.\nCheck template file settings (\"File->Template properties\" and "
                "\"View->Default "
                "Document properties\").\nContinue?");
    askWhetherToContinue(session, templateName, question, MB_ICONQUESTION);
}
