#pragma once

#include "TableOfContents.h"

#include <StandinBases.h>

namespace standin {
class TableOfContentsObject : public TableOfContentsBase
{
public:
    TableOfContentsObject(std::shared_ptr<Server> server, model::TableOfContents table);

protected:
    bool getUseHeadingStyles() override { return options().useHeadingStyles; }
    void putUseHeadingStyles(bool value) override { put(&Options::useHeadingStyles, value); }
    bool getUseFields() override { return options().useFields; }
    void putUseFields(bool value) override { put(&Options::useFields, value); }
    long getUpperHeadingLevel() override { return options().upperHeadingLevel; }
    void putUpperHeadingLevel(long level) override { putLevel(&Options::upperHeadingLevel, level); }
    long getLowerHeadingLevel() override { return options().lowerHeadingLevel; }
    void putLowerHeadingLevel(long level) override { putLevel(&Options::lowerHeadingLevel, level); }
    std::u16string getTableID() override { return options().tableId; }
    void putTableID(std::u16string_view id) override { put(&Options::tableId, std::u16string(id)); }
    bool getRightAlignPageNumbers() override { return options().rightAlignPageNumbers; }
    void putRightAlignPageNumbers(bool value) override { put(&Options::rightAlignPageNumbers, value); }
    bool getIncludePageNumbers() override { return options().includePageNumbers; }
    void putIncludePageNumbers(bool value) override { put(&Options::includePageNumbers, value); }
    Word::RangePtr getRange() override;
    long getTabLeader() override { return static_cast<long>(table_.tabLeader()); }
    void putTabLeader(long leader) override;
    void doDelete() override { table_.remove(); }
    void doUpdate() override { table_.update(); }
    bool getUseHyperlinks() override { return options().useHyperlinks; }
    void putUseHyperlinks(bool value) override { put(&Options::useHyperlinks, value); }
    bool getHidePageNumbersInWeb() override { return options().hidePageNumbersInWeb; }
    void putHidePageNumbersInWeb(bool value) override { put(&Options::hidePageNumbersInWeb, value); }

private:
    using Options = model::TableOfContentsOptions;

    Options options() const { return table_.options(); }
    void putLevel(std::int32_t Options::*level, long value);

    /// Word lists the entries anew when what it lists has changed.
    template <typename Value>
    void put(Value Options::*option, Value value)
    {
        Options changed = options();
        changed.*option = std::move(value);
        table_.setOptions(changed);
        table_.update();
    }

    model::TableOfContents table_;
};
} // namespace standin
