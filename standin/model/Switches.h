#pragma once

namespace standin::model {

/// What becomes of the end of the last paragraph of RTF that is read into a document.
enum class LastParagraph
{
    mark,    ///< a paragraph mark, also where the file does not end with the word for one
    dropped, ///< nothing: what stands behind joins the last paragraph
    surplus  ///< where the file ends with the word for it, an empty paragraph behind the mark
};

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
    /// Range.InsertFile, of RTF: the last paragraph.
    LastParagraph insertFileLastParagraph = LastParagraph::mark;
    /// The file's default font and its size stay behind; otherwise text that has them gets them as direct
    /// formatting.
    bool insertFileLeavesDefaultFont = true;
    /// Direct formatting is what the text says beyond its style's entry in the file; otherwise also what it
    /// says as the entry does.
    bool insertFileKeepsDifferencesOnly = true;
    /// The range afterwards covers the text; otherwise it lies collapsed in front of it.
    bool insertFileRangeCoversText = true;
    /// A bookmark whose name exists already moves to the text; otherwise the file's is dropped.
    bool insertFileMovesBookmarks = true;
    /// RTF is read; otherwise refused, as a policy can have it (4198).
    bool insertFileTakesRtf = true;
};

} // namespace standin::model
