#pragma once

/// Word's enumeration values, under Word's own names. An enumeration travels as a 32-bit integer.
namespace Word {
enum WdUnits : long
{
    wdCharacter = 1,
    wdWord = 2,
    wdSentence = 3,
    wdParagraph = 4,
    wdStory = 6
};

enum WdCollapseDirection : long
{
    wdCollapseEnd = 0,
    wdCollapseStart = 1
};

enum WdBreakType : long
{
    wdSectionBreakNextPage = 2,
    wdSectionBreakContinuous = 3,
    wdSectionBreakEvenPage = 4,
    wdSectionBreakOddPage = 5,
    wdLineBreak = 6,
    wdPageBreak = 7,
    wdColumnBreak = 8
};

enum WdSaveOptions : long
{
    wdPromptToSaveChanges = -2,
    wdSaveChanges = -1,
    wdDoNotSaveChanges = 0
};

enum WdSaveFormat : long
{
    wdFormatDocument = 0,
    wdFormatTemplate = 1,
    wdFormatText = 2,
    wdFormatDOSText = 4,
    wdFormatRTF = 6,
    wdFormatUnicodeText = 7,
    wdFormatHTML = 8,
    wdFormatXMLDocument = 12,
    wdFormatPDF = 17
};

enum WdBuiltinStyle : long
{
    wdStyleNormal = -1,
    wdStyleHeading1 = -2,
    wdStyleHeading9 = -10,
    wdStyleTOC1 = -20,
    wdStyleTOC9 = -28,
    wdStyleHeader = -32,
    wdStyleFooter = -33,
    wdStyleCaption = -35,
    wdStyleDefaultParagraphFont = -66,
    wdStyleHyperlink = -86,
    wdStyleHyperlinkFollowed = -87
};

enum WdStyleType : long
{
    wdStyleTypeParagraph = 1,
    wdStyleTypeCharacter = 2,
    wdStyleTypeTable = 3
};

enum WdParagraphAlignment : long
{
    wdAlignParagraphLeft = 0,
    wdAlignParagraphCenter = 1,
    wdAlignParagraphRight = 2,
    wdAlignParagraphJustify = 3
};

enum WdUnderline : long
{
    wdUnderlineNone = 0,
    wdUnderlineSingle = 1
};

enum WdConstants : long
{
    wdToggle = 9999998,
    wdUndefined = 9999999
};

enum WdFieldType : long
{
    wdFieldEmpty = -1,
    wdFieldTOCEntry = 9,
    wdFieldTOC = 13,
    wdFieldNumPages = 26,
    wdFieldFileName = 29,
    wdFieldDate = 31,
    wdFieldTime = 32,
    wdFieldPage = 33,
    wdFieldEmbed = 58,
    wdFieldIncludePicture = 67,
    wdFieldHyperlink = 88
};

enum WdRulerStyle : long
{
    wdAdjustNone = 0,
    wdAdjustProportional = 1,
    wdAdjustFirstColumn = 2,
    wdAdjustSameWidth = 3
};

enum WdTableFieldSeparator : long
{
    wdSeparateByParagraphs = 0,
    wdSeparateByTabs = 1
};

enum WdAutoFitBehavior : long
{
    wdAutoFitFixed = 0
};

enum WdDefaultTableBehavior : long
{
    wdWord8TableBehavior = 0
};

enum WdRowHeightRule : long
{
    wdRowHeightAuto = 0,
    wdRowHeightAtLeast = 1,
    wdRowHeightExactly = 2
};

enum WdTabLeader : long
{
    wdTabLeaderSpaces = 0,
    wdTabLeaderDots = 1,
    wdTabLeaderDashes = 2,
    wdTabLeaderLines = 3,
    wdTabLeaderHeavy = 4,
    wdTabLeaderMiddleDot = 5
};

enum WdHeaderFooterIndex : long
{
    wdHeaderFooterPrimary = 1,
    wdHeaderFooterFirstPage = 2,
    wdHeaderFooterEvenPages = 3
};

enum WdOrientation : long
{
    wdOrientPortrait = 0,
    wdOrientLandscape = 1
};

enum WdInlineShapeType : long
{
    wdInlineShapeEmbeddedOLEObject = 1,
    wdInlineShapeLinkedOLEObject = 2,
    wdInlineShapePicture = 3,
    wdInlineShapeLinkedPicture = 4
};
} // namespace Word
