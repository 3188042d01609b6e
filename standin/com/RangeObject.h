#pragma once

#include "LiveRange.h"

#include <StandinBases.h>

namespace standin {
class RangeObject : public RangeBase
{
public:
    RangeObject(std::shared_ptr<Server> server, const model::LiveRange& range);

    /// The range behind a client's argument; raises WordError 4218 for anything else.
    static model::LiveRange& of(IUnknown* object);

    model::DocumentPtr documentModel() const override;

protected:
    /// Each range has ends of its own, and so a name of its own.
    std::string chooseName(const std::string& expression) override;
    std::u16string getText() override { return range_.text(); }
    void putText(std::u16string_view text) override { range_.setText(text); }
    long getStart() override { return range_.start(); }
    void putStart(long start) override { range_.setStart(start); }
    long getEnd() override { return range_.end(); }
    void putEnd(long end) override { range_.setEnd(end); }
    long getStoryLength() override { return range_.story().length(); }
    long getStoryType() override { return static_cast<long>(range_.story().type()); }
    Word::RangePtr getDuplicate() override;
    Word::_FontPtr getFont() override;
    Word::_ParagraphFormatPtr getParagraphFormat() override;
    Word::TablesPtr getTables() override;
    Word::InlineShapesPtr getInlineShapes() override;
    Word::BookmarksPtr getBookmarks() override;
    Word::FieldsPtr getFields() override;
    Word::HyperlinksPtr getHyperlinks() override;
    long getBold() override;
    void putBold(long value) override;
    long getItalic() override;
    void putItalic(long value) override;
    long getUnderline() override;
    void putUnderline(long value) override;
    _variant_t getStyle() override;
    void putStyle(const VARIANT& style) override;

    void doSetRange(long start, long end) override { range_.setRange(start, end); }
    void doCollapse(const VARIANT& direction) override;
    void doInsertBefore(std::u16string_view text) override { range_.insertBefore(text); }
    void doInsertAfter(std::u16string_view text) override { range_.insertAfter(text); }
    void doInsertBreak(const VARIANT& type) override;
    void doInsertFile(std::u16string_view fileName, const VARIANT& range, const VARIANT& confirmConversions,
                      const VARIANT& link, const VARIANT& attachment) override;
    long doDelete(const VARIANT& unit, const VARIANT& count) override;
    void doWholeStory() override;
    Word::TablePtr doConvertToTable(const VARIANT& separator, const VARIANT& rows, const VARIANT& columns,
                                    const VARIANT& columnWidth, const VARIANT& format,
                                    const VARIANT& applyBorders, const VARIANT& applyShading,
                                    const VARIANT& applyFont, const VARIANT& applyColor,
                                    const VARIANT& applyHeadingRows, const VARIANT& applyLastRow,
                                    const VARIANT& applyFirstColumn, const VARIANT& applyLastColumn,
                                    const VARIANT& autoFit, const VARIANT& autoFitBehavior,
                                    const VARIANT& defaultTableBehavior) override;
    void doInsertParagraphAfter() override { range_.insertParagraphAfter(); }

private:
    template <typename Value>
    void putFont(std::optional<Value> model::FontProperties::*property, Value value)
    {
        model::FontProperties properties;
        properties.*property = value;
        range_.setFont(properties);
    }

    model::LiveRange range_;
};
} // namespace standin
