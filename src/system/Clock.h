// The clock that generated files take their date from. A host may fix it so that equal inputs give equal
// bytes.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace tovarek {

// A calendar date and time of day; year as is, month 1 to 12, day 1 to 31, hour 0 to 23, second 0 to 60.
struct CivilTime {
    int year = 1970;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

class Clock {
  public:
    virtual ~Clock() = default;
    // Now, in the zone that texts for people are written in.
    virtual CivilTime LocalTime() const = 0;
    // Now, in UTC; the headers of resource files carry it.
    virtual CivilTime UtcTime() const = 0;
};

// The machine's clock and time zone.
std::shared_ptr<const Clock> SystemClock();

// The last second of the year 9999, counted from 1970: texts have four digits for the year.
inline constexpr std::int64_t kEndOf9999 = 253402300799;

// A clock that stands still, `seconds` after 1970-01-01 00:00:00 UTC, and knows no zone but UTC.
// `seconds` is 0 to kEndOf9999; the nearest end is taken for what lies outside.
std::shared_ptr<const Clock> FixedClock(std::int64_t seconds);

// The general form of a date: "11/21/2026 9:41:07 AM". The time part is left out at exactly midnight. On
// Windows the user's regional settings decide: short date, blank, long time. Raises runtime error 6 when they
// have no text for it.
std::string GeneralDateText(const CivilTime& time);

// What stands between whole and fraction where a number becomes text for people: the point; on Windows what
// the user's regional settings say.
std::string DecimalSeparator();

}  // namespace tovarek
