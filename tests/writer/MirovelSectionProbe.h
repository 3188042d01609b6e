#pragma once

#include "MirovelSectionData.h"
#include "mirovelsection.h"

/// A writer's friend: reaches what only the writer itself calls.
class MirovelSectionProbe
{
public:
    /// A writer is never made without a document, so no call leads to what it does without one.
    static void setDocument(MirovelSection& writer, const Word::_DocumentPtr& document)
    {
        writer.data_->document = document;
    }
    /// A style without a name, as no call leads to it: Word has none, and a writer begins with "Normal".
    static void leaveStyle(MirovelSection& writer) { writer.data_->styleName = ""; }

    static void setRange(MirovelSection& writer, const Word::RangePtr& range) { writer.setRange(range); }
    static void checkForEndl(MirovelSection& writer) { writer.checkForEndl(); }
    static void deleteLastChar(MirovelSection& writer) { writer.deleteLastChar(); }
    static void drawHyperLinks(MirovelSection& writer) { writer.drawHyperLinks(); }
    static void applyAlign(MirovelSection& writer) { writer.applyAlign(); }

    static QdxString realStyle(const char* name) { return MirovelSection::getRealStyle(name); }
    static int level(const char* prefix, const char* name) { return MirovelSection::getLevel(prefix, name); }
    static FontData findFont(MirovelSection& writer, const char* style) { return writer.findFont(style); }
    static void writeFont(const Word::_FontPtr& target, const FontData& font)
    {
        MirovelSection::toFontPtr(target, font);
    }
};
