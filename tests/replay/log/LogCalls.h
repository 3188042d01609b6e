#pragma once

#include "LogReader.h"

#include <vector>

namespace replay {

/// The calls that a log tells of, without what stands between them.
inline std::vector<LoggedCall> callsOf(const ReadLog& log)
{
    std::vector<LoggedCall> calls;
    for (const Piece& piece : log.pieces)
        if (piece.kind == PieceKind::call)
            calls.push_back(piece.call);
    return calls;
}

} // namespace replay
