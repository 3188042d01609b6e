#pragma once

#include "PageEnvironment.h"
#include "QdxString.h"
#include "registry/SettingTable.h"

#include <cstddef>
#include <optional>

/// The two settings of the page and the rules for them: what is read, what is accepted, what is stored and in
/// which order. Nothing is kept in between; every call looks at the store as it stands.
class WordSettings
{
public:
    static constexpr int lowestTocLevel = 0;
    static constexpr int highestTocLevel = 50;
    /// What counts of a field, in characters.
    static constexpr std::size_t fieldLength = 256;

    enum class Field
    {
        templateName,
        tocLevel
    };
    /// Why an input was not taken, in words for the user.
    struct Refusal
    {
        Field field;
        QdxString text;
    };

    /// `environment` is borrowed for the object's life.
    explicit WordSettings(PageEnvironment& environment) noexcept : environment_(environment) {}

    /// The template for new documents; without a stored one the page's own proposal below the installation
    /// directory.
    [[nodiscard]] QdxString templateName() const;
    /// The deepest heading in the table of contents, as it is stored, inside the limits or not.
    [[nodiscard]] int tocLevel() const;

    /// Takes both fields as the user left them, the template first. An empty template name stores no
    /// template; a level is read by its leading number, 0 without one. A refused template ends it; one that
    /// was taken stays stored when the level is refused. Throws what the store throws.
    [[nodiscard]] std::optional<Refusal> apply(const QdxString& templateName, const QdxString& tocLevel);

private:
    [[nodiscard]] RegEntry read(SettingName name) const;
    [[nodiscard]] std::optional<Refusal> applyTemplateName(const QdxString& name);
    [[nodiscard]] std::optional<Refusal> applyTocLevel(const QdxString& level);

    PageEnvironment& environment_;
};
