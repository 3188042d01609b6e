#pragma once

#include "StyleSheet.h"

#include <array>
#include <cstddef>
#include <map>
#include <stdexcept>
#include <string>

/// Styles of which some give what others give too.
class SampleStyles : public compose::StyleSheet
{
public:
    static constexpr std::array names = {u"Normal", u"Heading 1",      u"Heading 2",
                                         u"Title",  u"Twin of Normal", u"Header"};

    const compose::Font& fontOf(const std::u16string& style) { return at(style).font; }
    const compose::Font& fontOf(const std::u16string& style, compose::FontProperty) override
    {
        return fontOf(style);
    }
    int alignmentOf(const std::u16string& style) override { return at(style).alignment; }

private:
    struct Style
    {
        compose::Font font;
        int alignment = 0;
    };
    const Style& at(const std::u16string& style)
    {
        const auto found = styles_.find(style);
        if (found == styles_.end())
            throw std::logic_error("asked for a style that there is not");
        return found->second;
    }

    std::map<std::u16string, Style> styles_ = {
        {u"Normal", {{u"Times", 12}, 0}},
        {u"Heading 1", {{u"Arial", 16, true}, 0}},
        {u"Heading 2", {{u"Arial", 14, true, true}, 0}},
        {u"Title", {{u"Arial", 16, true}, 1}},
        {u"Twin of Normal", {{u"Times", 12}, 0}},
        {u"Header", {{u"Times", 12, false, false, true, true}, 2}},
    };
};
