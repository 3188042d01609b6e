#pragma once

#include "FontData.h"
#include "FontSave.h"
#include "PendingLinks.h"
#include "SaveAlign.h"
#include "WriterEvents.h"

#include "QdxString.h"
#include "tracedll/Trace.h"

#include "Word.h"

#include <cstdint>
#include <list>

/// Everything a writer knows: one record, so that a copy of a writer can share it. Positions are the writer's
/// count of characters outside tables unless a comment says that they are Word's.
struct MirovelSectionData
{
    Word::_DocumentPtr document;
    /// The Word that the writer was given with the document. Nothing here calls it: it is part of the record.
    Word::_ApplicationPtr application;
    Word::RangePtr range; ///< The output range: text outside tables goes after it.

    std::list<FontSave> fontRuns; ///< Recorded, not yet applied, in the order of recording.
    FontData pendingFont;         ///< The font in force.
    std::list<SaveAlign> alignRuns;

    Word::StylesPtr styles;
    QdxString styleName;        ///< The paragraph style in force, as the client named it.
    std::int32_t stylePos = -1; ///< Where its run began; -1: no run is open.

    std::int32_t pos = 0; ///< The insertion position.
    std::int32_t lastEndlPos =
        0; ///< The insertion position just after the last paragraph end outside tables.
    Trace trace;
    WriterEvents* events = nullptr; ///< Not owned.
    std::int32_t lastPageBreakPos =
        0; ///< Just after the last page break; 0: none that could be turned into a section.
    QdxString installDir;

    std::int32_t tocPos = 0; ///< Where the table of contents is to be built; 0: nowhere.
    std::int32_t tocStartPos =
        0; ///< That place as `insertTOC` recorded it, not moved by links drawn before it.
    std::int16_t tocLevel = 0;
    bool collectingTocEntry = false;
    QdxString tocText;

    std::int32_t sectionCount = 1;
    std::int32_t alignment = 0; ///< The client's alignment number in force.

    Word::RangePtr cellRange; ///< Range of the cell being written.
    Word::TablePtr table;
    Word::RowPtr tableRow;
    Word::CellsPtr rowCells;
    std::int16_t tableRows = 0;    ///< Rows begun.
    std::int16_t tableColumn = 0;  ///< Cells begun in the current row.
    std::int16_t tableColumns = 0; ///< Cells of the first row.
    std::int32_t rowHeight = 0;    ///< Exact height of new rows in points; 0: Word decides.
    std::int32_t tableIndex = -1;  ///< Where the open table began; -1: no table is open.
    float textWidth = 0;           ///< Usable width of a line in points.

    PendingLinks links;
    Word::BookmarkPtr lastTagBookmark;
    std::int32_t endlCount = 0; ///< Paragraph ends since the undo list was last cleared.
};
