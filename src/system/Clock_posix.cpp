#include <ctime>

#include "base/Numbers.h"
#include "system/Clock.h"

namespace tovarek {
namespace {

CivilTime FromTm(const std::tm& tm) {
    return {tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec};
}

class MachineClock : public Clock {
  public:
    CivilTime LocalTime() const override {
        const std::time_t now = std::time(nullptr);
        std::tm tm{};
        localtime_r(&now, &tm);
        return FromTm(tm);
    }
    CivilTime UtcTime() const override {
        const std::time_t now = std::time(nullptr);
        std::tm tm{};
        gmtime_r(&now, &tm);
        return FromTm(tm);
    }
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

std::string DecimalSeparator() {
    return ".";
}

}  // namespace tovarek
