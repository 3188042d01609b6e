#pragma once

#include "Doubt.h"
#include "LoggedCall.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace replay {

/// Raised for what cannot be a trace log, whatever is in it.
class NotALog : public std::runtime_error
{
public:
    using runtime_error::runtime_error;
};

enum class PieceKind : std::uint8_t
{
    call,
    ownCall,       ///< one that the object made itself, for an anchor
    page,          ///< `// Page 2`, an empty line in front of it included
    missingFile,   ///< `ERR File not found: ...`
    failure,       ///< what failed while an object was destroyed
    nothing,       ///< an empty line, a remark
    notUnderstood, ///< passed over
};

/// A piece of a log: whole lines.
struct Piece
{
    PieceKind kind;
    int line; ///< the first one, from 1
    std::size_t begin;
    std::size_t end;
    LoggedCall call = {}; ///< of a call
};

struct ReadLog
{
    std::string text;          ///< The log with all its line ends as CR LF, the last one included.
    std::vector<Piece> pieces; ///< They make up the text.
    std::vector<Doubt> doubts; ///< in the order of their lines
};

/// Reads a log in the most plausible way. Nothing in it is escaped, so a text ends where a line that may
/// begin there follows, and what has more than one reading is told. Raises `NotALog` for bytes with a zero
/// among them.
ReadLog readLog(std::string_view bytes);

} // namespace replay
