#include "WordSettings.h"

#include <cstdlib>
#include <string>

namespace {

constexpr const SettingDescription& templateNameSetting = describe(SettingName::wordTemplateName);
constexpr const SettingDescription& tocLevelSetting = describe(SettingName::tocLevel);

} // namespace

RegEntry WordSettings::read(SettingName name) const
{
    const SettingDescription& setting = describe(name);
    return environment_.read(setting.group, setting.name, defaultEntry(setting));
}

QdxString WordSettings::templateName() const
{
    const QdxString installDir = read(SettingName::installDir);
    // Not the template that documents are made from when nothing is stored: the page proposes one of its own.
    return environment_.read(templateNameSetting.group, templateNameSetting.name,
                             environment_.appendToDir(installDir, "templates\\KXR1.dot"));
}

int WordSettings::tocLevel() const
{
    return read(SettingName::tocLevel);
}

std::optional<WordSettings::Refusal> WordSettings::apply(const QdxString& templateName,
                                                         const QdxString& tocLevel)
{
    if (std::optional<Refusal> refusal = applyTemplateName(templateName))
        return refusal;
    return applyTocLevel(tocLevel);
}

std::optional<WordSettings::Refusal> WordSettings::applyTemplateName(const QdxString& name)
{
    if (name.isEmpty())
        return std::nullopt;
    if (!environment_.fileExists(name)) {
        QdxString text = name;
        text.append("\nFile Not Found.\n").append("Please verify the correct template name was given.");
        return Refusal{Field::templateName, text};
    }
    environment_.write(templateNameSetting.group, templateNameSetting.name, name);
    return std::nullopt;
}

std::optional<WordSettings::Refusal> WordSettings::applyTocLevel(const QdxString& level)
{
    const long long number = std::strtoll(level.data(), nullptr, 10);
    if (number < lowestTocLevel || number > highestTocLevel) {
        const std::string text = "Heading level must fall between " + std::to_string(lowestTocLevel) +
                                 " and " + std::to_string(highestTocLevel) + ".";
        return Refusal{Field::tocLevel, text.c_str()};
    }
    environment_.write(tocLevelSetting.group, tocLevelSetting.name, static_cast<int>(number));
    return std::nullopt;
}
