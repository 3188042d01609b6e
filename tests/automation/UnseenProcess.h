#pragma once

#include <gtest/gtest.h>

#include <windows.h>

/// While it lives, the process is one that nobody sees, as a service is: nobody can be asked.
class UnseenProcess
{
public:
    UnseenProcess()
        : former_(GetProcessWindowStation()),
          station_(CreateWindowStationW(nullptr, 0, WINSTA_ALL_ACCESS, nullptr))
    {
        EXPECT_TRUE(SetProcessWindowStation(station_));
    }
    ~UnseenProcess()
    {
        SetProcessWindowStation(former_);
        CloseWindowStation(station_);
    }
    UnseenProcess(const UnseenProcess&) = delete;
    UnseenProcess& operator=(const UnseenProcess&) = delete;

private:
    HWINSTA former_;
    HWINSTA station_;
};
