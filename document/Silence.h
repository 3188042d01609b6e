#pragma once

/// Why a call, or a part of one, did nothing or not what was said, although its client is told of no failure.
enum class Silence
{
    notStarted,
    noDocument,
    unknownStyle,
    unknownAttribute,
    unknownField,
    unknownAlignment,
    tableOutOfOrder,
    insideTable,
    missingFile,
    missingTag,
    wrongSetting,
    unknownSetting,
    missingTemplate,
    unknownTableStyle,
    swallowed,
    startedAlready,
    ownStyle,
    noContents,
    noTitleStyle,
    withoutEffect
};
