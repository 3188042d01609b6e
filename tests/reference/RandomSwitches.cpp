#include "RandomSwitches.h"

#include "RandomNumbers.h"
#include "SessionFiles.h"

#include "SwitchTable.h"

#include <array>

namespace reference {

namespace {

bool insertsRichText(const ClientCall& call)
{
    const SessionFile* const file = call.method == Method::insertFile ? findSessionFile(call.text) : nullptr;
    return file && file->kind == SessionFile::Kind::formatted;
}

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
    if (!switches.insertFileTakesRtf)
        std::erase_if(session, insertsRichText);
    return session;
}

} // namespace reference
