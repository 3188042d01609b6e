#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace replay {

/// The methods that leave a line in the trace log.
enum class Method : std::uint8_t
{
    start,
    stop,
    create,
    close,
    overrideRegistry,
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
    insertFile,
    insertTOC,
    startTOCEntry,
    endTOCEntry,
    startTable,
    endTable,
    addRow,
    addCell,
    setTableRowHeight,
    insertImage,
    insertTag,
    insertXref
};
inline constexpr std::size_t methodCount = 30;

/// What stands between the brackets of a method's line.
enum class Arguments : std::uint8_t
{
    none,
    number,
    attribute,      ///< `DocBold,true`; no name for a number that means none
    text,           ///< `"text"`
    textAndNumber,  ///< `"text",4`
    twoTexts,       ///< `"text","text"`
    pictureAndText, ///< `text,"text"`
    setting         ///< `"text","text","text",2`
};

/// When a method leaves its line.
enum class Guard : std::uint8_t
{
    none,
    stopped, ///< Word is not started.
    started,
    open ///< A document is open.
};

struct MethodForm
{
    std::string_view name;
    Arguments arguments;
    Guard guard;
};

const MethodForm& formOf(Method method);
std::optional<Method> methodNamed(std::string_view name);

/// A call as the log tells of it. Texts are in the log's code page. What the method has no use for is empty.
struct LoggedCall
{
    Method method = Method::start;
    std::array<std::string, 3> texts = {};
    int number = 0;    ///< Of setFontAttribute 0 where the log gives no name.
    bool isOn = false; ///< of setFontAttribute

    bool operator==(const LoggedCall&) const = default;
};

/// The line that the call leaves, its end included. Line ends in texts come out as CR LF.
std::string echoOf(const LoggedCall& call);

/// What the log calls a font attribute, the comma included; empty for a number that means none.
std::string_view attributeName(int number);

} // namespace replay
