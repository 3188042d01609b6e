#pragma once

#include "Script.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace replay {

/// What the program was started for. Texts are in UTF-8.
struct Options
{
    std::vector<std::string> logs;
    std::string dll; ///< Empty: the class as it is registered.
    std::string output;
    std::vector<Setting> settings; ///< --set, then --toc-level
    std::string templateName;
    std::string log;
    std::optional<short> level;
    LineRange lines;
    bool takesPart = false; ///< There is a range of lines.
    int rowHeight = 20;
    bool showsLast = false;
    bool onlyChecks = false;
    bool goesOn = false;
    bool isQuiet = false;
};

/// What is said instead of doing anything.
struct Answer
{
    std::string text;
    bool isRefusal = false;
};

/// Reads the command line, without the program's own name.
std::variant<Options, Answer> parseOptions(std::vector<std::string> arguments);

} // namespace replay
