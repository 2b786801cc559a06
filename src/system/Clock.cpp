#include "system/Clock.h"

#include <algorithm>
#include <chrono>

namespace tovarek {
namespace {

// The civil time in UTC of a moment `seconds` after the start of 1970.
CivilTime CivilTimeOf(std::int64_t seconds) {
    using namespace std::chrono;
    const sys_seconds moment{std::chrono::seconds(seconds)};
    const sys_days day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(moment - day);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

class StandingClock : public Clock {
  public:
    explicit StandingClock(std::int64_t seconds) : time_(CivilTimeOf(seconds)) {}
    CivilTime LocalTime() const override { return time_; }
    CivilTime UtcTime() const override { return time_; }

  private:
    CivilTime time_;
};

}  // namespace

std::shared_ptr<const Clock> FixedClock(std::int64_t seconds) {
    return std::make_shared<StandingClock>(std::clamp<std::int64_t>(seconds, 0, kEndOf9999));
}

}  // namespace tovarek
