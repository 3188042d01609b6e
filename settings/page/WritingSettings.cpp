#include "WritingSettings.h"

#include <charconv>
#include <limits>
#include <string_view>

namespace {

constexpr int highestComposition = 2;
constexpr std::wstring_view blanks = L" \t";

std::wstring wideFromAscii(const QdxString& text)
{
    return {text.data(), text.data() + text.length()};
}

std::wstring told(const SettingDescription& setting, const StoredSetting& stored)
{
    if (setting.id == SettingName::compose) {
        const int number = stored.entry;
        return std::to_wstring(number < 0 || number > highestComposition ? 0 : number);
    }
    if (setting.kind == SettingKind::flag)
        return static_cast<bool>(stored.entry) ? L"1" : L"0";
    const bool isText = stored.entry.getKind() == RegEntry::textKind;
    return isText ? stored.text : wideFromAscii(stored.entry.getValue());
}

StoredSetting defaultOf(const SettingDescription& setting)
{
    const RegEntry entry = defaultEntry(setting);
    return {entry, wideFromAscii(entry.getValue())};
}

/// The number that the text is and nothing else.
std::optional<int> numberOf(std::wstring_view text)
{
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == text.npos)
        return std::nullopt;
    text = text.substr(first, text.find_last_not_of(blanks) + 1 - first);
    if (text.find_first_not_of(L"0123456789") != text.npos)
        return std::nullopt;
    const std::string digits(text.begin(), text.end());
    int number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() ? std::optional(number) : std::nullopt;
}

std::optional<std::wstring> refusalOfSeconds(const std::wstring& input)
{
    if (numberOf(input))
        return std::nullopt;
    return L"Not stored: a whole number of seconds is needed here, from 0 to " +
           std::to_wstring(std::numeric_limits<int>::max()) + L".";
}

std::optional<std::wstring> refusalOfFile(const std::wstring& input)
{
    if (input.find_first_of(L"<>\"|?*") != input.npos)
        return L"Not stored: a file's name has none of < > \" | ? * in it.";
    if (!input.empty() && std::wstring_view(L"\\/:").find(input.back()) != std::wstring_view::npos)
        return L"Not stored: this names a folder; the name of a file is needed behind it.";
    return std::nullopt;
}

} // namespace

std::optional<std::wstring> WritingSettings::valueIn(SettingScope scope,
                                                     const SettingDescription& setting) const
{
    const std::optional<StoredSetting> stored = store_.read(scope, setting);
    return stored ? std::optional(told(setting, *stored)) : std::nullopt;
}

SettingState WritingSettings::read(SettingName name) const
{
    const SettingDescription& setting = describe(name);
    return {valueIn(SettingScope::user, setting), valueIn(SettingScope::machine, setting),
            told(setting, defaultOf(setting))};
}

std::optional<std::wstring> WritingSettings::refusalOf(SettingName name, const std::wstring& input)
{
    if (name == SettingName::busyTimeout)
        return refusalOfSeconds(input);
    if (name == SettingName::diagnostics)
        return refusalOfFile(input);
    return std::nullopt;
}

void WritingSettings::store(SettingName name, const std::optional<std::wstring>& input)
{
    const SettingDescription& setting = describe(name);
    if (!input)
        return store_.remove(setting);
    if (setting.kind == SettingKind::text)
        return store_.writeText(setting, *input);
    store_.writeNumber(setting, numberOf(*input).value_or(0));
}
