#include "Progress.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace replay {

namespace {

constexpr double secondsPerBar = 0.1;
constexpr double secondsPerLine = 5;
constexpr std::size_t longestBar = 40;

double rateOf(const Progress& progress)
{
    return progress.seconds > 0 ? static_cast<double>(progress.done) / progress.seconds : 0;
}

std::string whole(double number)
{
    return std::to_string(std::llround(number));
}

std::string timeOf(double seconds)
{
    const long long whole = std::llround(std::ceil(seconds));
    if (whole < 60)
        return std::to_string(whole) + " s";
    const std::string rest = std::to_string(whole % 60);
    return std::to_string(whole / 60) + ":" + (rest.size() == 1 ? "0" : "") + rest;
}

/// `  300/s  2 s left`; nothing before there is a rate.
std::string speedOf(const Progress& progress, std::string_view separator)
{
    const double rate = rateOf(progress);
    if (rate <= 0)
        return {};
    const auto left = static_cast<double>(progress.total - std::min(progress.done, progress.total));
    return std::string(separator) + whole(rate) + "/s" + std::string(separator) + timeOf(left / rate) +
           " left";
}

double shareOf(const Progress& progress)
{
    return progress.total == 0
               ? 1
               : std::min(1.0, static_cast<double>(progress.done) / static_cast<double>(progress.total));
}

} // namespace

std::string barOf(const Progress& progress, std::size_t columns)
{
    const std::string percent = whole(std::floor(100 * shareOf(progress)));
    const std::string numbers = std::string(5 - std::min<std::size_t>(percent.size(), 5), ' ') + percent +
                                "%  " + std::to_string(progress.done) + "/" + std::to_string(progress.total) +
                                " calls" + speedOf(progress, "  ");
    constexpr std::size_t brackets = 2;
    const std::size_t room = columns > numbers.size() + brackets ? columns - numbers.size() - brackets : 0;
    const std::size_t length = std::min(room, longestBar);
    if (length == 0)
        return numbers.substr(0, columns);
    const auto full = static_cast<std::size_t>(static_cast<double>(length) * shareOf(progress));
    return "[" + std::string(full, '=') + std::string(length - full, ' ') + "]" + numbers;
}

std::string lineOf(const Progress& progress)
{
    return std::to_string(progress.done) + " of " + std::to_string(progress.total) + " calls" +
           speedOf(progress, ", ");
}

ProgressReport::ProgressReport(std::size_t total, std::size_t columns, Clock clock, Write write)
    : total_(total), columns_(columns), clock_(std::move(clock)), write_(std::move(write)), begin_(clock_()),
      last_(begin_)
{
}

void ProgressReport::reached(std::size_t done)
{
    const double now = clock_();
    const bool isBar = columns_ != 0;
    if (now - last_ < (isBar ? secondsPerBar : secondsPerLine))
        return;
    last_ = now;
    const Progress progress{done, total_, now - begin_};
    if (!isBar)
        return write_(lineOf(progress) + "\n");
    // The last column stays free: some terminals go to the next line behind it.
    std::string bar = barOf(progress, columns_ - 1);
    const std::size_t size = bar.size();
    bar.resize(std::max(size, drawn_), ' ');
    drawn_ = size;
    write_("\r" + bar);
}

void ProgressReport::end()
{
    if (drawn_ != 0)
        write_("\r" + std::string(drawn_, ' ') + "\r");
    drawn_ = 0;
}

} // namespace replay
