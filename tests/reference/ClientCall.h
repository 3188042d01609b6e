#pragma once

#include <string>
#include <vector>

namespace reference {

/// The methods that decide what a document holds.
enum class Method
{
    insertText,
    insertEndl,
    insertPageBreak,
    insertField,
    startHeader,
    endHeader,
    startFooter,
    endFooter,
    setStyle,
    setFontName,
    setFontSize,
    setFontAttribute,
    setTextAlign,
    insertTOC,
    startTOCEntry,
    endTOCEntry,
    startTable,
    endTable,
    addRow,
    addCell,
    setTableRowHeight,
    insertTag,
    insertXref,
    insertImage,
    insertFile,
    setOrientation
};

/// What setTextAlign takes.
namespace textAlign {
inline constexpr int left = 1;
inline constexpr int centred = 2;
inline constexpr int right = 3;
inline constexpr int justified = 4;
} // namespace textAlign

/// One call of a client. What the method has no use for is empty.
struct ClientCall
{
    Method method = Method::insertText;
    std::u16string text = {};   ///< the text, style, font, tag, label, picture or file
    std::u16string target = {}; ///< of insertXref and insertImage
    int number = 0;
    bool isOn = false; ///< of setFontAttribute

    bool operator==(const ClientCall&) const = default;
};

using Session = std::vector<ClientCall>;

/// The calls as steps of the end-to-end tests' client, one a line, so that a session can be played again.
std::string stepsOf(const Session& session);

} // namespace reference
