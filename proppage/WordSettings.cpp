#include "WordSettings.h"

#include <cstdlib>
#include <string>

namespace {

constexpr char wordGroup[] = "Word";
constexpr char templateNameValue[] = "WordTemplateName";
constexpr char tocLevelValue[] = "TOCLevel";

} // namespace

QdxString WordSettings::templateName() const
{
    const QdxString installDir = environment_.read("Settings", "InstallDir", "");
    // Not the template that documents are made from when nothing is stored: the page proposes one of its own.
    return environment_.read(wordGroup, templateNameValue,
                             environment_.appendToDir(installDir, "templates\\KXR1.dot"));
}

int WordSettings::tocLevel() const
{
    return environment_.read(wordGroup, tocLevelValue, highestTocLevel);
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
    environment_.write(wordGroup, templateNameValue, name);
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
    environment_.write(wordGroup, tocLevelValue, static_cast<int>(number));
    return std::nullopt;
}
