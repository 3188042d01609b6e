#include "RandomSwitches.h"

#include "RandomNumbers.h"
#include "SessionFiles.h"

#include "SwitchTable.h"

#include <array>

namespace reference {

namespace {

/// Finds the calls that a Word refuses, one after the other.
class Refusals
{
public:
    explicit Refusals(const standin::model::Switches& switches) : switches_(switches) {}

    bool refuses(const ClientCall& call)
    {
        switch (call.method) {
        case Method::startHeader:
        case Method::startFooter:
            isInBody_ = false;
            return false;
        case Method::endHeader:
        case Method::endFooter:
            isInBody_ = true;
            return false;
        case Method::insertTOC:
            return !isInBody_ && !switches_.headerTakesContents;
        case Method::insertFile:
            return !switches_.insertFileTakesRtf && isFormatted(call);
        default:
            return false;
        }
    }

private:
    static bool isFormatted(const ClientCall& call)
    {
        const SessionFile* const file = findSessionFile(call.text);
        return file && file->kind == SessionFile::Kind::formatted;
    }

    const standin::model::Switches& switches_;
    bool isInBody_ = true;
};

} // namespace

standin::model::Switches randomSwitches(std::uint32_t seed)
{
    RandomNumbers numbers(seed);
    const std::size_t rarity = numbers.oneOf(std::array<std::size_t, 3>{2, 4, 8});
    standin::model::Switches switches;
    for (const standin::model::SwitchEntry& entry : standin::model::switchTable())
        if (numbers.onceIn(rarity))
            entry.set(switches, 1 + numbers.below(entry.values.size() - 1));
    return switches;
}

Session playable(Session session, const standin::model::Switches& switches)
{
    Refusals refusals(switches);
    std::erase_if(session, [&](const ClientCall& call) { return refusals.refuses(call); });
    return session;
}

} // namespace reference
