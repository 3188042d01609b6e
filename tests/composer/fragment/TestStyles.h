#pragma once

#include "StyleSheet.h"

#include <span>
#include <string>

namespace compose {

struct TestStyle
{
    std::u16string name;
    std::u16string rtfName;
    Font font;
    int alignment = 0; ///< Word's number
};

/// The styles of the documents in the tests.
class TestStyles : public StyleSheet
{
public:
    static std::span<const TestStyle> all();
    /// By either name.
    static const TestStyle& find(const std::u16string& name);

    const Font& fontOf(const std::u16string& style, FontProperty) override { return find(style).font; }
    int alignmentOf(const std::u16string& style) override { return find(style).alignment; }
};

} // namespace compose
