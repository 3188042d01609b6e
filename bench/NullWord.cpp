#include "NullWord.h"

#include "NullWordObjects.h"

Word::_Application& NullWord::application()
{
    return *theOne<Word::_Application>();
}

Word::_Document& NullWord::document()
{
    return *theOne<Word::_Document>();
}

Word::Range& NullWord::range()
{
    return *theOne<Word::Range>();
}
