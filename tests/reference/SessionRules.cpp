#include "SessionRules.h"

#include <algorithm>

namespace reference {

bool SessionRules::accept(const ClientCall& call)
{
    switch (call.method) {
    case Method::insertPageBreak:
        isBreakPending_ = isBreakPending_ || !current_;
        return !current_;
    case Method::startHeader:
        return start(Part::header);
    case Method::startFooter:
        return start(Part::footer);
    case Method::endHeader:
        end(Part::header);
        return true;
    case Method::endFooter:
        end(Part::footer);
        return true;
    case Method::insertTOC:
        return !collecting_.contains(current_);
    case Method::startTOCEntry:
        collecting_.insert(current_);
        return true;
    case Method::endTOCEntry:
        collecting_.erase(current_);
        return true;
    case Method::insertTag:
        tags_[call.text] = current_;
        return true;
    default:
        return true;
    }
}

bool SessionRules::start(Part part)
{
    const int section = section_ + (isBreakPending_ ? 1 : 0);
    const Header header(part, section);
    const auto open = open_.find(part);
    const bool goesOn = open != open_.end() && open->second == section;
    const auto isInHeader = [&header](const auto& tag) { return tag.second == header; };
    if (!goesOn && std::any_of(tags_.begin(), tags_.end(), isInHeader))
        return false;
    if (!goesOn)
        collecting_.erase(header);
    section_ = section;
    isBreakPending_ = false;
    open_[part] = section;
    current_ = header;
    return true;
}

void SessionRules::end(Part part)
{
    open_.erase(part);
    current_.reset();
}

bool isValid(const Session& session)
{
    SessionRules rules;
    return std::all_of(session.begin(), session.end(),
                       [&rules](const ClientCall& call) { return rules.accept(call); });
}

} // namespace reference
