#pragma once

#include <map>
#include <optional>
#include <string_view>
#include <windows.h>

namespace standin {
/// Which calls are to fail, and how. Calls are counted from 1.
class Faults
{
public:
    void failCall(long ordinal, HRESULT result) { single_[ordinal] = result; }
    void failFromCall(long ordinal, HRESULT result) { onwards_[ordinal] = result; }
    void exitAtCall(long ordinal) { exit_ = ordinal; }
    void clear();

    /// Reads "n:0xHHHHHHHH" or "n+:0xHHHHHHHH", several separated by commas. Raises std::invalid_argument.
    void read(std::string_view text);

    std::optional<HRESULT> resultOf(long ordinal) const;
    bool exitsAt(long ordinal) const { return exit_ == ordinal; }

private:
    void readOne(std::string_view text);

    std::map<long, HRESULT> single_;
    std::map<long, HRESULT> onwards_;
    std::optional<long> exit_;
};
} // namespace standin
