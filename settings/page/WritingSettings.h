#pragma once

#include "SettingsStore.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>

/// A setting as it stands: the user's value goes before the machine's, and that before the default. Choices
/// are told by their numbers ("0" and "1" for off and on), all others by their texts as they are stored.
struct SettingState
{
    std::optional<std::wstring> user;
    std::optional<std::wstring> machine;
    std::wstring byDefault;

    /// What holds for the user without a value of his own.
    [[nodiscard]] const std::wstring& inherited() const { return machine ? *machine : byDefault; }
};

/// The settings of the page and the rules for them: what is read, what is accepted, what is stored. Nothing
/// is kept in between; every call looks at the store as it stands.
class WritingSettings
{
public:
    /// In the page's order.
    static constexpr std::array all = {
        SettingName::compose,     SettingName::strict,     SettingName::ownInstance, SettingName::busyTimeout,
        SettingName::diagnostics, SettingName::tableStyle, SettingName::tocTitle};
    /// The longest text of a field, in characters.
    static constexpr std::size_t longestText = 255;

    /// `store` is borrowed for the object's life.
    explicit WritingSettings(SettingsStore& store) noexcept : store_(store) {}

    [[nodiscard]] SettingState read(SettingName name) const;
    /// Why an input is not taken, in words for the user; nothing for a good one.
    [[nodiscard]] static std::optional<std::wstring> refusalOf(SettingName name, const std::wstring& input);
    /// A good input as the user's value; nothing deletes it. Raises `StoreRefusal`.
    void store(SettingName name, const std::optional<std::wstring>& input);

private:
    [[nodiscard]] std::optional<std::wstring> valueIn(SettingScope scope,
                                                      const SettingDescription& setting) const;

    SettingsStore& store_;
};
