#pragma once

#include "Doubt.h"
#include "LogReader.h"
#include "LoggedCall.h"

#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace replay {

struct Step
{
    enum class Kind
    {
        call,
        newClient, ///< From here on another object is called.
        /// The client has called `trace` in this document, unless content goes to a header or footer: their
        /// writers tell of missing files anyway, that of the body only then.
        traceInBody
    };

    Kind kind = Kind::call;
    LoggedCall call = {};
    int line = 0;
    bool isAdded = false; ///< The log has no line for it.

    bool operator==(const Step&) const = default;
};

/// What is to be done, one after the other.
struct Script
{
    std::vector<Step> steps;
    std::vector<Doubt> doubts; ///< those of the log, and about what was added

    [[nodiscard]] std::size_t callCount() const;
};

/// The calls of a log, and those that must have been made though they left no line: `start` and `create` in
/// front of a log that was begun later, `trace` in front of a file that was missed.
Script scriptOf(const ReadLog& log);

/// \name What is made of it
///@{

/// Lines of a log, from 1, both ends included.
struct LineRange
{
    int first = 1;
    int last = std::numeric_limits<int>::max();
};
/// Those that begin in the range, and what they need: the client's settings, `start`, `create`.
void keepLines(Script& script, LineRange range);

/// Closes the document and stops Word where the script does not.
void complete(Script& script);

struct Setting
{
    std::string group;
    std::string name;
    std::string value;
};
/// What the script sets itself of these is set to their values; names are compared without case.
void applySettings(Script& script, const std::vector<Setting>& settings);

/// Raised where documents cannot have the names that they are to have.
class NoSuchName : public std::runtime_error
{
public:
    using runtime_error::runtime_error;
};
/// The one document gets the name.
void nameDocument(Script& script, std::string_view name);
/// All documents get names in that folder.
void moveDocuments(Script& script, std::string_view folder);
/// Where a `create` that left no line has no name yet.
void requireNames(const Script& script);
///@}

} // namespace replay
