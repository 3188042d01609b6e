#pragma once

#include "ClientObject.h"

#include "Script.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace replay {

struct PlayOptions
{
    std::vector<Setting> settings; ///< of each client, from its beginning on
    std::optional<short> level;    ///< `trace` is called with it, after the settings
    int rowHeight = 20;            ///< in points, for all calls of setTableRowHeight
    bool showsLast = false;
    bool goesOn = false; ///< behind a call that fails
};

struct Failure
{
    int line;
    std::string_view method;
    std::string text;
};

struct Played
{
    std::size_t calls = 0;
    std::vector<Failure> failures;
    bool isInterrupted = false;
};

/// Makes the calls of scripts, each with objects of its own. However that ends, no document stays open and no
/// Word is left that nobody sees. Texts are in the ANSI code page.
class Player
{
public:
    /// All are borrowed. `whenCalled` hears how many calls were made; `isInterrupted` is asked between them.
    Player(ObjectSource& source, const PlayOptions& options, std::function<void(std::size_t)> whenCalled,
           std::function<bool()> isInterrupted);

    /// Raises `_com_error` when there is no object to call.
    Played play(const Script& script);

private:
    class Clients;

    ObjectSource& source_;
    const PlayOptions& options_;
    std::function<void(std::size_t)> whenCalled_;
    std::function<bool()> isInterrupted_;
};

} // namespace replay
