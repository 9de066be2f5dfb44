// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/csv/TimeStamps.h"

#include <date/date.h>

namespace qor::tool {
namespace {

bool IsDigit(char letter) { return letter >= '0' && letter <= '9'; }

// Takes a stamp apart from its front. Once something did not fit, it is not good any more.
class Scanner
{
public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    bool Good() const { return good_; }
    void Refuse() { good_ = false; }
    bool AtEnd() const { return rest_.empty(); }
    bool Sees(std::string_view letters) const
    {
        return !rest_.empty() && letters.find(rest_.front()) != std::string_view::npos;
    }
    // One of the letters.
    char Take(std::string_view letters)
    {
        if (!Sees(letters)) {
            Refuse();
            return 0;
        }
        const char letter = rest_.front();
        rest_.remove_prefix(1);
        return letter;
    }
    // A number of that many digits, or of fewer, down to the least.
    int Number(int least, int most)
    {
        int value = 0;
        int digits = 0;
        for (; digits < most && !rest_.empty() && IsDigit(rest_.front()); ++digits) {
            value = value * 10 + (rest_.front() - '0');
            rest_.remove_prefix(1);
        }
        if (digits < least) Refuse();
        return value;
    }
    // The digits of a fraction, as nanoseconds.
    std::int32_t Fraction(int& digits)
    {
        std::int32_t value = 0;
        for (digits = 0; !rest_.empty() && IsDigit(rest_.front()); ++digits) {
            if (digits < 9) value = value * 10 + (rest_.front() - '0');
            rest_.remove_prefix(1);
        }
        if (digits == 0) Refuse();
        for (int place = digits; place < 9; ++place) value *= 10;
        return value;
    }

private:
    bool good_ = true;
    std::string_view rest_;
};

// Seconds by which the stamp's zone is ahead of UTC.
std::int64_t ScanOffset(Scanner& scanner)
{
    if (scanner.AtEnd()) return 0;
    const char sign = scanner.Take("Z+-");
    if (sign == 'Z') return 0;
    const int hours = scanner.Number(2, 2);
    if (scanner.Sees(":")) scanner.Take(":");
    const int minutes = scanner.AtEnd() ? 0 : scanner.Number(2, 2);
    if (hours > 14 || minutes > 59) scanner.Refuse();
    const std::int64_t seconds = hours * 3600 + minutes * 60;
    return sign == '-' ? -seconds : seconds;
}

} // namespace

std::optional<TimeStamp> ParseTimeStamp(std::string_view text)
{
    Scanner scanner(text);
    const int year = scanner.Number(4, 4);
    const char separator = scanner.Take("-/");
    const int month = scanner.Number(1, 2);
    scanner.Take({&separator, 1});
    const int day = scanner.Number(1, 2);
    scanner.Take(" T");
    const int hour = scanner.Number(1, 2);
    scanner.Take(":");
    const int minute = scanner.Number(2, 2);
    TimeStamp stamp;
    int second = 0;
    if (scanner.Sees(":")) {
        scanner.Take(":");
        second = scanner.Number(2, 2);
        if (scanner.Sees(".,")) {
            scanner.Take(".,");
            stamp.nanoseconds = scanner.Fraction(stamp.fractionDigits);
        }
    }
    const std::int64_t offset = ScanOffset(scanner);
    if (!scanner.Good() || !scanner.AtEnd() || hour > 23 || minute > 59 || second > 60) return std::nullopt;

    const auto calendarDay = date::year(year) / month / day;
    if (!calendarDay.ok()) return std::nullopt;
    const std::int64_t days = date::sys_days(calendarDay).time_since_epoch().count();
    stamp.seconds = ((days * 24 + hour) * 60 + minute) * 60 + second - offset;
    return stamp;
}

double SecondsBetween(const TimeStamp& first, const TimeStamp& later)
{
    std::int64_t seconds = later.seconds - first.seconds;
    std::int64_t nanoseconds = later.nanoseconds - first.nanoseconds;
    if (nanoseconds < 0) {
        nanoseconds += 1000000000;
        --seconds;
    }
    // In whole milliseconds where there are no finer parts, so that 0.01 s is the double nearest to it.
    if (nanoseconds % 1000000 == 0) {
        const std::int64_t milliseconds = seconds * 1000 + nanoseconds / 1000000;
        return static_cast<double>(milliseconds) / 1e3;
    }
    return static_cast<double>(seconds) + static_cast<double>(nanoseconds) / 1e9;
}

} // namespace qor::tool
