#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>

namespace standin {
/// Which calls are to fail, and how. Calls are counted from 1.
class Faults
{
public:
    using Result = std::int32_t; ///< a HRESULT

    void failCall(long ordinal, Result result) { single_[ordinal] = result; }
    void failFromCall(long ordinal, Result result) { onwards_[ordinal] = result; }
    /// Rejects that call `times` times before it runs, as a busy Word does. A rejected call is not counted,
    /// so the next attempt is the same call.
    void rejectCall(long ordinal, Result result, int times) { rejections_[ordinal] = {result, times}; }
    void exitAtCall(long ordinal) { exit_ = ordinal; }
    void clear();

    /// Reads "n:0xHHHHHHHH", "n+:0xHHHHHHHH" for all from the n-th on, or "n*m:0xHHHHHHHH" for m rejections
    /// of the n-th; several are separated by commas. Raises std::invalid_argument.
    void read(std::string_view text);

    std::optional<Result> resultOf(long ordinal) const;
    /// The answer to an attempt at the call that is rejected; each one is given once.
    std::optional<Result> takeRejection(long ordinal);
    bool exitsAt(long ordinal) const { return exit_ == ordinal; }

private:
    struct Rejection
    {
        Result result;
        int left;
    };

    void readOne(std::string_view text);

    std::map<long, Rejection> rejections_;
    std::map<long, Result> single_;
    std::map<long, Result> onwards_;
    std::optional<long> exit_;
};
} // namespace standin
