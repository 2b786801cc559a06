#include <windows.h>

#include <string_view>

#include "base/Error.h"
#include "system/Clock.h"
#include "system/Wide.h"

namespace tovarek {
namespace {

CivilTime FromSystemTime(const SYSTEMTIME& time) {
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

SYSTEMTIME ToSystemTime(const CivilTime& time) {
    SYSTEMTIME system{};
    system.wYear = static_cast<WORD>(time.year);
    system.wMonth = static_cast<WORD>(time.month);
    system.wDay = static_cast<WORD>(time.day);
    system.wHour = static_cast<WORD>(time.hour);
    system.wMinute = static_cast<WORD>(time.minute);
    system.wSecond = static_cast<WORD>(time.second);
    return system;
}

class MachineClock : public Clock {
  public:
    CivilTime LocalTime() const override {
        SYSTEMTIME now{};
        GetLocalTime(&now);
        return FromSystemTime(now);
    }
    CivilTime UtcTime() const override {
        SYSTEMTIME now{};
        GetSystemTime(&now);
        return FromSystemTime(now);
    }
};

constexpr int kLongestText = 256;

// `length` is what the platform answered: the number of code units with the closing NUL, 0 for a failure.
std::string TextOf(const wchar_t* text, int length) {
    if (length <= 0)
        RaiseRuntimeError(RuntimeError::overflow, {.reason = "the system has no text for this date"});
    return FromWide(std::wstring_view(text, static_cast<std::size_t>(length) - 1));
}

}  // namespace

std::shared_ptr<const Clock> SystemClock() {
    return std::make_shared<MachineClock>();
}

std::string GeneralDateText(const CivilTime& time) {
    const SYSTEMTIME system = ToSystemTime(time);
    wchar_t piece[kLongestText];
    std::string text = TextOf(
        piece, GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &system, nullptr, piece, kLongestText));
    if (time.hour == 0 && time.minute == 0 && time.second == 0)
        return text;
    text += ' ';
    text += TextOf(piece, GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &system, nullptr, piece, kLongestText));
    return text;
}

std::string DecimalSeparator() {
    wchar_t piece[kLongestText];
    const int length = GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, piece, kLongestText);
    return length > 1 ? TextOf(piece, length) : ".";
}

}  // namespace tovarek
