#pragma once

#include "Formats.h"
#include "TableLook.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace standin::model {

/// A style of one document. Styles live as long as their document and never move.
class Style : public std::enable_shared_from_this<Style>
{
public:
    Style(std::u16string name, StyleType type, std::int32_t builtinNumber);

    const std::u16string& name() const { return name_; }
    const std::u16string& foldedName() const { return foldedName_; } ///< for comparing
    StyleType type() const { return type_; }
    /// Word's number of a built-in style (-1 Normal, -2 Heading 1 ...), 0 for a style made by the user.
    std::int32_t builtinNumber() const { return builtinNumber_; }
    bool isBuiltin() const { return builtinNumber_ != 0; }
    /// A built-in paragraph style with a character style beside it: a heading's, Header, Footer, Title.
    bool hasCharacterStyle() const;

    /// The style that this one builds on, or null.
    const Style* base() const { return base_; }
    void setBase(const Style* base);
    const Style* next() const { return next_ ? next_ : this; }
    void setNext(const Style* next) { next_ = next; }

    /// Own properties, without those of the base.
    FontProperties font;
    ParagraphProperties paragraph;
    TableLook table; ///< of a table style, base included

    /// With the base's properties; every property of a paragraph style is set.
    FontProperties resolvedFont() const;
    ParagraphProperties resolvedParagraph() const;

private:
    std::u16string name_;
    std::u16string foldedName_;
    StyleType type_;
    std::int32_t builtinNumber_;
    const Style* base_ = nullptr;
    const Style* next_ = nullptr;
};

using StylePtr = std::shared_ptr<Style>;

/// The styles of a document: all of Word's built-in ones from the start, and those that are added.
class Styles
{
public:
    /// The number of the character style that means: no character style.
    static constexpr std::int32_t defaultParagraphFont = -66;

    Styles();

    /// \name Items, as Styles.Item finds them; raise WordError 5941 when there is none.
    ///@{
    StylePtr byName(std::u16string_view name) const; ///< compares without case
    /// Negative: number of a built-in style; positive: 1-based index in name order.
    StylePtr byNumber(std::int32_t number) const;
    ///@}
    StylePtr find(std::u16string_view name) const; ///< null when there is none
    StylePtr findBuiltin(std::int32_t number) const;
    /// The character style beside a paragraph style, with its font; made when it is asked for first.
    StylePtr characterStyleOf(const Style& style);

    std::int32_t count() const { return static_cast<std::int32_t>(styles_.size()); }
    /// All styles in name order.
    const std::vector<StylePtr>& all() const { return styles_; }

    /// Adds a style based on Normal (character styles: on nothing). Raises 4198 when the name is taken or
    /// empty.
    StylePtr add(std::u16string_view name, StyleType type);

    const Style& normal() const { return *normal_; }

private:
    /// The first style that is not in front of that name.
    std::vector<StylePtr>::const_iterator placeOf(const std::u16string& foldedName) const;

    std::vector<StylePtr> styles_; ///< in name order
    StylePtr normal_;
};

/// Lower-cases for comparing names: ASCII, Latin-1, Greek and Cyrillic letters; other characters stay.
std::u16string foldCase(std::u16string_view text);

} // namespace standin::model
