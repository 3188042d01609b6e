#include "WordError.h"

namespace standin::model {

namespace {

const char* usualText(WordErrorNumber number)
{
    switch (number) {
    case WordErrorNumber::badFileName:
        return "Bad file name.";
    case WordErrorNumber::commandFailed:
        return "Command failed.";
    case WordErrorNumber::typeMismatch:
        return "Type mismatch.";
    case WordErrorNumber::notAvailable:
        return "This method or property is not available.";
    case WordErrorNumber::valueOutOfRange:
        return "Value out of range.";
    case WordErrorNumber::stringTooLong:
        return "String too long.";
    case WordErrorNumber::notAValidFileName:
        return "This is not a valid file name.";
    case WordErrorNumber::filePermission:
        return "Word cannot open or save this file because of its permissions.";
    case WordErrorNumber::fileInUse:
        return "The file is in use.";
    case WordErrorNumber::fileNotFound:
        return "The file could not be found.";
    case WordErrorNumber::atRowEnd:
        return "This is not a valid action for the end of a row.";
    case WordErrorNumber::invalidDocumentName:
        return "The document name or path is not valid.";
    case WordErrorNumber::objectDeleted:
        return "Object has been deleted.";
    case WordErrorNumber::badBookmarkName:
        return "Bad bookmark name.";
    case WordErrorNumber::noSuchItem:
        return "Item with specified name does not exist.";
    case WordErrorNumber::badValue:
        return "A value is out of range.";
    case WordErrorNumber::noSuchMember:
        return "The requested member of the collection does not exist.";
    case WordErrorNumber::mixedRows:
        return "Cannot access individual rows in this collection because the table has vertically merged "
               "cells.";
    case WordErrorNumber::mixedColumns:
        return "Cannot access individual columns in this collection because the table has mixed cell widths.";
    case WordErrorNumber::cannotDeleteRange:
        return "The range cannot be deleted.";
    }
    return "Word failed.";
}

} // namespace

WordError::WordError(WordErrorNumber number) : WordError(number, usualText(number)) {}

} // namespace standin::model
