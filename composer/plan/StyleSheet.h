#pragma once

#include "Font.h"

#include <string>

namespace compose {

/// What a plan has to know of the document's paragraph styles. Asked only where the client said something
/// that a style may say already.
class StyleSheet
{
public:
    virtual ~StyleSheet() = default;

    /// Its font, in which that property is known: to know another one may cost something.
    virtual const Font& fontOf(const std::u16string& style, FontProperty property) = 0;
    /// Word's number: 0 left, 1 centred, 2 right, 3 justified.
    virtual int alignmentOf(const std::u16string& style) = 0;
};

} // namespace compose
