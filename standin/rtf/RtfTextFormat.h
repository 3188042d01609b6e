#pragma once

#include "RtfColorTable.h"
#include "RtfDefaults.h"
#include "RtfFontTable.h"
#include "RtfLexer.h"
#include "RtfStyleSheet.h"

namespace standin::rtf {

/// The formatting in force at a place of a file.
struct TextFormat
{
    model::FontProperties font = plainFont();
    model::ParagraphProperties paragraph = plainParagraph();
    model::FontProperties statedFont = {};           ///< what was said since \plain
    model::ParagraphProperties statedParagraph = {}; ///< what was said since \pard
    const model::Style* paragraphStyle = nullptr;
    const model::Style* characterStyle = nullptr;
    bool inTable = false;
    model::TabStop nextTab = {};
    /// Which one the words for lines mean.
    std::optional<model::Border> model::ParagraphProperties::*border = nullptr;

    /// The font that a run gets of its own: what its styles do not say, and with `allStated` whatever the
    /// file says of it.
    model::FontProperties ownFont(bool allStated) const;
    model::ParagraphProperties ownParagraph(bool allStated) const;
};

/// The tables that the words of a text refer to.
struct TextTables
{
    FontTableReader fonts = {};
    ColorTableReader colors = {};
    StyleSheetReader styles;
    std::int32_t defaultFont = -1; ///< of \deff

    /// What \plain means in this file.
    model::FontProperties plain() const;
};

/// Takes a word that formats characters or paragraphs; false for another one.
bool takeFormatWord(TextFormat& format, const TextTables& tables, const RtfToken& token);

} // namespace standin::rtf
