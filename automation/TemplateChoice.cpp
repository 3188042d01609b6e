#include "TemplateChoice.h"

#include "ComErrorReport.h"
#include "WinUtils/QdxMessageBox.h"
#include "registry/SettingsRecord.h"
#include "sysSupport/SysFile.h"

namespace {

void askWhetherToContinue(const QdxString& question, UINT icon)
{
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

void askAfterRefusedTemplate(const QdxString& templateName)
{
    QdxString question = "Problem reported by MS-Word :\nError occurred in setting word template file ";
    question.append(templateName).append(".\nContinue?");
    askWhetherToContinue(question, MB_ICONHAND);
}

void askAfterMissingTemplate(const QdxString& templateName)
{
    QdxString question = "Word template file ";
    question.append(templateName)
        .append(" does not exist.\nCheck template file settings (\"File->Template properties\" and "
                "\"View->Default "
                "Document properties\").\nContinue?");
    askWhetherToContinue(question, MB_ICONQUESTION);
}
