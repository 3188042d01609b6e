#pragma once

namespace standin::model {

/// What becomes of the end of the last paragraph of RTF that is read into a document.
enum class LastParagraph
{
    mark,    ///< a paragraph mark, also where the file does not end with the word for one
    dropped, ///< nothing: what stands behind joins the last paragraph
    surplus  ///< where the file ends with the word for it, an empty paragraph behind the mark
};

/// Whether inserting a page break puts a paragraph mark behind it.
enum class PageBreakMark
{
    never,
    atStartOfText, ///< where a paragraph begins that is not empty
    always
};

/// Where a bookmark comes to lie that is placed, collapsed, directly in front of a table.
enum class BookmarkAtTable
{
    stays,
    firstCell,
    behind
};

/// What SaveAs makes of a name that ends in .doc, without a format.
enum class DocWithoutFormat
{
    document97,     ///< what the name says
    machineDefault, ///< the format of .docx under that name
    refused         ///< 4198
};

/// Where the range lies after a file was inserted.
enum class InsertedRange
{
    coversText,
    inFront,
    behind
};

/// Bookmarks at the place where a file is inserted.
enum class OverlappedBookmarks
{
    kept,
    lostInside,  ///< those that the place lies within
    lostTouching ///< those that begin or end there, too
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
    /// Range.InsertFile: the range afterwards.
    InsertedRange insertFileRange = InsertedRange::coversText;
    /// Range.InsertFile: bookmarks that are there.
    OverlappedBookmarks insertFileOverlappedBookmarks = OverlappedBookmarks::kept;
    /// A bookmark whose name exists already moves to the text; otherwise the file's is dropped.
    bool insertFileMovesBookmarks = true;
    /// RTF is read; otherwise refused, as a policy can have it (4198).
    bool insertFileTakesRtf = true;
    /// A built-in style that has a character style beside it (a heading's, Header, Footer, Title), put on a
    /// part of one paragraph without its mark, formats the whole paragraph; otherwise the characters only.
    bool linkedStyleFormatsParagraph = true;
    /// Putting a paragraph style keeps direct character formatting that covers more than half of a paragraph.
    bool paragraphStyleKeepsFontOfMost = true;
    PageBreakMark pageBreakParagraphMark = PageBreakMark::never;
    /// Text inserted directly behind a field that is formatted as hidden is not.
    bool textBehindHiddenFieldShows = true;
    /// AddPicture and AddOLEObject without a range, called on a range's InlineShapes, insert in front of that
    /// range and replace nothing; otherwise they replace its text.
    bool shapeReplacesNothing = true;
    /// The range of a whole story is [0,0) after `Delete`; otherwise [0,1).
    bool deletedStoryRangeCollapses = true;
    /// InsertAfter on a cell's range leaves the cell's mark in it; otherwise the range ends in front of the
    /// mark.
    bool cellRangeKeepsMark = true;
    /// Headers and footers take page breaks; otherwise refused (4605).
    bool headerTakesPageBreak = true;
    /// Headers and footers take tables of contents; otherwise refused (4605).
    bool headerTakesContents = true;
    /// TablesOfContents.Add takes a LowerHeadingLevel of 0 or above 9; otherwise refused (4608).
    bool contentsTakeAnyLevel = true;
    /// Start and End beyond the story are refused (4608); otherwise they come to stand at its end.
    bool endBeyondStoryIsRefused = true;
    BookmarkAtTable bookmarkInFrontOfTable = BookmarkAtTable::stays;
    DocWithoutFormat docWithoutFormat = DocWithoutFormat::document97;
    /// After ConvertToTable the range covers the table; otherwise it lies collapsed in front of it.
    bool convertToTableRangeCoversTable = true;
    /// ConvertToTable draws no lines unless it is asked to.
    bool convertToTableDrawsNoLines = true;
};

} // namespace standin::model
