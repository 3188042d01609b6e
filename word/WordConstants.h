#pragma once

/// Word's enumeration values, under Word's own names. An enumeration travels as a 32-bit integer.
namespace Word {
enum WdUnits : long
{
    wdCharacter = 1
};

enum WdCollapseDirection : long
{
    wdCollapseEnd = 0
};

enum WdBreakType : long
{
    wdSectionBreakNextPage = 2
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
    wdFormatRTF = 6,
    wdFormatXMLDocument = 12,
    wdFormatPDF = 17
};

enum WdBuiltinStyle : long
{
    wdStyleNormal = -1,
    wdStyleHeading1 = -2,
    wdStyleHeader = -32,
    wdStyleFooter = -33
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
    wdFieldFileName = 29,
    wdFieldDate = 31,
    wdFieldTime = 32,
    wdFieldPage = 33,
    wdFieldHyperlink = 88
};

enum WdRulerStyle : long
{
    wdAdjustNone = 0,
    wdAdjustProportional = 1,
    wdAdjustSameWidth = 3
};

enum WdTableFieldSeparator : long
{
    wdSeparateByParagraphs = 0,
    wdSeparateByTabs = 1,
    wdSeparateByCommas = 2,
    wdSeparateByDefaultListSeparator = 3
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
    wdTabLeaderDots = 1
};

enum WdHeaderFooterIndex : long
{
    wdHeaderFooterPrimary = 1
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
