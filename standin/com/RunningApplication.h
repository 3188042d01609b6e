#pragma once

#include <Word.h>

namespace standin {
/// While it lives, `application` is the running Word that GetActiveObject finds. Raises _com_error.
class RunningApplication
{
public:
    explicit RunningApplication(Word::_Application& application);
    ~RunningApplication();
    RunningApplication(const RunningApplication&) = delete;
    RunningApplication& operator=(const RunningApplication&) = delete;

private:
    DWORD registration_ = 0;
};
} // namespace standin
