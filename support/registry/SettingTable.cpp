#include "registry/SettingTable.h"

#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <string_view>

namespace {

std::string_view viewOf(const QdxString& text) noexcept
{
    return {text.data(), text.length()};
}

bool isNumber(std::string_view text) noexcept
{
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return false;
    text = text.substr(first, text.find_last_not_of(" \t") + 1 - first);
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

bool saysYesOrNo(const QdxString& text)
{
    QdxString lowered = text;
    lowered.toLower();
    const std::initializer_list<std::string_view> words = {"1", "true",  "yes", "on",
                                                           "0", "false", "no",  "off"};
    return std::ranges::find(words, viewOf(lowered)) != words.end();
}

} // namespace

RegEntry defaultEntry(const SettingDescription& setting)
{
    switch (setting.kind) {
    case SettingKind::text:
        break;
    case SettingKind::integer:
        return {setting.group, setting.name, setting.defaultNumber};
    case SettingKind::flag: {
        RegEntry entry(setting.group, setting.name, setting.defaultNumber);
        entry.setKind(RegEntry::booleanKind);
        return entry;
    }
    }
    return {setting.group, setting.name, setting.defaultText ? setting.defaultText : ""};
}

bool canBe(SettingKind kind, const RegEntry& entry)
{
    if (kind == SettingKind::text)
        return true;
    const QdxString& value = entry.getValue();
    switch (entry.getKind()) {
    case RegEntry::integerKind:
        return isNumber(viewOf(value));
    case RegEntry::booleanKind:
        return saysYesOrNo(value) || isNumber(viewOf(value));
    default:
        return kind == SettingKind::integer ? isNumber(viewOf(value)) : saysYesOrNo(value);
    }
}
