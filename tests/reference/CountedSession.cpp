#include "CountedSession.h"

#include "SessionFiles.h"

#include <utility>

namespace reference {

namespace {

/// A line feed alone behind a character is not counted, and what is inserted next takes a character away.
std::u16string withCountedEnds(std::u16string text)
{
    for (std::size_t i = 1; i < text.size(); ++i)
        if (text[i] == u'\n' && text[i - 1] != u'\r')
            text[i] = u' ';
    return text;
}

class Arranger
{
public:
    Session arranged(const Session& session)
    {
        Session result;
        for (ClientCall call : session) {
            note(call.method);
            if (losesText(call))
                continue;
            call.text = withCountedEnds(std::move(call.text));
            result.push_back(std::move(call));
        }
        return result;
    }

private:
    void note(Method method)
    {
        headers_ += method == Method::startHeader ? 1 : 0;
        footers_ += method == Method::startFooter ? 1 : 0;
        if (isHeaderCall(method))
            isInBody_ = method == Method::endHeader || method == Method::endFooter;
        isInTable_ = method == Method::startTable || (isInTable_ && method != Method::endTable);
    }

    [[nodiscard]] bool losesText(const ClientCall& call) const
    {
        switch (call.method) {
        case Method::startHeader: // again: empties what may be the first one
            return headers_ > 1;
        case Method::startFooter:
            return footers_ > 1;
        case Method::insertFile: // a file's content goes to the body, wherever that is
            return !isInBody_ && isContent(call);
        case Method::endTOCEntry:
            return isInTable_;
        default:
            return false;
        }
    }

    static bool isContent(const ClientCall& call)
    {
        const SessionFile* const file = findSessionFile(call.text);
        return file && !file->paragraphs.empty();
    }

    int headers_ = 0;
    int footers_ = 0;
    bool isInBody_ = true;
    bool isInTable_ = false;
};

} // namespace

bool isHeaderCall(Method method)
{
    return method == Method::startHeader || method == Method::endHeader || method == Method::startFooter ||
           method == Method::endFooter;
}

Session withoutKnownLosses(const Session& session)
{
    return Arranger().arranged(session);
}

} // namespace reference
