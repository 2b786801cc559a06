#include <algorithm>
#include <ctime>

#include "support/Clock.h"
#include "support/Numbers.h"

namespace tovarek {
namespace {

CivilTime FromTm(const std::tm& tm) {
    return {tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec};
}

CivilTime UtcFromSeconds(std::time_t seconds) {
    std::tm tm{};
    gmtime_r(&seconds, &tm);
    return FromTm(tm);
}

class MachineClock : public Clock {
  public:
    CivilTime LocalTime() const override {
        const std::time_t now = std::time(nullptr);
        std::tm tm{};
        localtime_r(&now, &tm);
        return FromTm(tm);
    }
    CivilTime UtcTime() const override { return UtcFromSeconds(std::time(nullptr)); }
};

class StandingClock : public Clock {
  public:
    explicit StandingClock(std::time_t seconds) : time_(UtcFromSeconds(seconds)) {}
    CivilTime LocalTime() const override { return time_; }
    CivilTime UtcTime() const override { return time_; }

  private:
    CivilTime time_;
};

void AppendTwoDigits(std::string& text, int value) {
    if (value < 10)
        text += '0';
    AppendInteger(text, value);
}

}  // namespace

std::shared_ptr<const Clock> SystemClock() {
    return std::make_shared<MachineClock>();
}

std::shared_ptr<const Clock> FixedClock(std::int64_t seconds) {
    constexpr std::int64_t kEndOf9999 = 253402300799;
    return std::make_shared<StandingClock>(std::clamp<std::int64_t>(seconds, 0, kEndOf9999));
}

std::string GeneralDateText(const CivilTime& time) {
    std::string text;
    AppendInteger(text, time.month);
    text += '/';
    AppendInteger(text, time.day);
    text += '/';
    AppendInteger(text, time.year);
    if (time.hour == 0 && time.minute == 0 && time.second == 0)
        return text;
    text += ' ';
    AppendInteger(text, time.hour % 12 == 0 ? 12 : time.hour % 12);
    text += ':';
    AppendTwoDigits(text, time.minute);
    text += ':';
    AppendTwoDigits(text, time.second);
    text += time.hour < 12 ? " AM" : " PM";
    return text;
}

}  // namespace tovarek
