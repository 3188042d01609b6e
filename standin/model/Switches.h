#pragma once

namespace standin::model {

/// Points where it is not certain how Word behaves. Each has the reading taken by default and the other one,
/// so that a client can be run under both.
struct Switches
{
    /// After a page break was inserted, the range covers it; otherwise the range lies collapsed behind it.
    bool pageBreakRangeCoversBreak = true;
    /// After a section break was inserted, the range's start lies behind it; otherwise the range covers the
    /// break.
    bool sectionBreakRangeLiesBehind = true;
    /// `Delete` on a non-empty range answers 1; otherwise the number of characters deleted.
    bool deleteAnswersOne = true;
    /// Collapsing a range that ends with the story's final mark to its end gives a place before that mark;
    /// otherwise behind it.
    bool collapseToEndStaysBeforeFinalMark = true;
    /// Putting a paragraph style keeps alignment and other direct paragraph formatting.
    bool paragraphStyleKeepsDirectFormatting = true;
    /// A style put reads back as the first one when a range holds several; otherwise as none.
    bool mixedStyleReadsFirst = true;
    /// Closing a changed document without saying what to do with the changes drops them; otherwise it fails
    /// (4198).
    bool closeDropsChanges = true;
    /// Fields.Add puts the field in front of its range and replaces nothing; otherwise it replaces a
    /// non-empty range.
    bool fieldsAddReplacesNothing = true;
    /// Fields.Add without PreserveFormatting adds no `\* MERGEFORMAT`.
    bool fieldsAddOmitsMergeFormat = true;
    /// A HYPERLINK field's code carries no link-data character in front of the separator.
    bool hyperlinkWithoutLinkData = true;
    /// An OLE object lies inside an EMBED field; otherwise it is one character.
    bool oleObjectIsField = true;
};

} // namespace standin::model
