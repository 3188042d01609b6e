#pragma once

#include "Field.h"

#include <optional>
#include <string>
#include <vector>

namespace standin::model {

/// What a table of contents lists and how.
struct TableOfContentsOptions
{
    bool useHeadingStyles = true;
    std::int32_t upperHeadingLevel = 1;
    std::int32_t lowerHeadingLevel = 9;
    bool useFields = false;            ///< lists TC fields
    std::u16string tableId = {};       ///< lists only TC fields with this identifier; empty: the usual ones
    std::u16string addedStyles = {};   ///< "Style,level,Style,level": further styles that count as headings
    bool rightAlignPageNumbers = true; ///< behind a tab at the right margin; otherwise behind a space
    bool includePageNumbers = true;
    bool useHyperlinks = true;
    bool hidePageNumbersInWeb = true;

    bool operator==(const TableOfContentsOptions&) const = default;
};

/// A table of contents: a TOC field whose result is one paragraph for each entry, in the styles TOC 1 to 9.
///
/// Entries are a snapshot: they change when the table is updated. Page numbers are those of PageCounter, so
/// they know of breaks and not of text that runs over the end of a page.
class TableOfContents
{
public:
    /// `field` must be a TOC field.
    explicit TableOfContents(Field field) : field_(std::move(field)) {}

    const Field& field() const { return field_; }
    LiveRange range() const { return field_.range(); }

    TableOfContentsOptions options() const;

    /// The leader of the right tab in the TOC styles.
    TabStop::Leader tabLeader() const;
    void setTabLeader(TabStop::Leader leader);

    /// Lists the entries that there are now, or says that there are none.
    void update();

private:
    Field field_;
};

/// Puts a table of contents in the place of the range and lists the entries. Raises 4608 for heading levels
/// that are not 1 to 9, unless heading styles are not asked for.
TableOfContents addTableOfContents(const LiveRange& range, const TableOfContentsOptions& options);

/// The tables of contents of a range, by position.
std::vector<TableOfContents> tablesOfContentsIn(const LiveRange& range);

} // namespace standin::model
