// Logs made of the pieces that logs consist of. The pieces of a reading must make up the log, the calls among
// them must leave just their lines, and so must what the object itself makes of anchors.
#include "LogReader.h"
#include "Script.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace replay;

constexpr std::array<std::string_view, 40> parts = {
    "mirovel->",
    "insertText(\"",
    "insertXref(\"",
    "insertImage(",
    "insertFile(\"",
    "overrideRegistry(\"",
    "create(\"",
    "setFontAttribute(",
    "setFontSize(",
    "insertPageBreak(",
    "start(",
    "close(",
    "stop(",
    "\");\r\n",
    ");\r\n",
    "\r\n",
    "\n",
    "\r",
    "\"",
    "\",\"",
    ",\"",
    "\",",
    "1",
    "-2",
    "DocBold,",
    "true",
    "// Page ",
    "// ",
    "ERR File not found: ",
    "COMERROR 0x",
    "<a href=\"",
    "\">",
    "</a>",
    "#GUID ",
    "a",
    "?",
    "mirovel->insertText(\"",
    "mirovel->insertXref(\"",
    "mirovel->insertEndl();\r\n",
    "mirovel->setFontAttribute(",
};

void require(bool condition)
{
    if (!condition)
        std::abort();
}

std::string logFrom(const std::uint8_t* data, std::size_t size)
{
    std::string log;
    for (std::size_t i = 0; i < size; ++i)
        if (data[i] < 0xc0)
            log += parts[data[i] % parts.size()];
        else
            log += static_cast<char>(data[i]);
    return log;
}

void checkPieces(const ReadLog& log)
{
    const std::string_view text = log.text;
    std::size_t at = 0;
    int line = 1;
    for (const Piece& piece : log.pieces) {
        require(piece.begin == at && piece.end > at && piece.line == line);
        const std::string_view bytes = text.substr(piece.begin, piece.end - piece.begin);
        if (piece.kind == PieceKind::call)
            require(echoOf(piece.call) == bytes);
        at = piece.end;
        line += static_cast<int>(std::ranges::count(bytes, '\n'));
    }
    require(at == text.size());
    for (const Doubt& doubt : log.doubts)
        require(doubt.line >= 1 && doubt.line <= line);
}

void checkScript(const ReadLog& log, replay::LineRange range)
{
    Script script = scriptOf(log);
    require(script.callCount() >=
            static_cast<std::size_t>(std::ranges::count(log.pieces, PieceKind::call, &Piece::kind)));
    keepLines(script, range);
    complete(script);
    const std::size_t size = script.steps.size();
    complete(script);
    require(script.steps.size() == size);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ReadLog log = readLog(logFrom(data, size));
    checkPieces(log);
    checkScript(log, {});
    if (size > 1)
        checkScript(log, {data[0] % 8, data[1] % 16});
    // The raw bytes as well; a zero byte is refused.
    try {
        checkPieces(readLog({reinterpret_cast<const char*>(data), size}));
    } catch (const NotALog&) {
        require(std::find(data, data + size, 0) != data + size);
    }
    return 0;
}
