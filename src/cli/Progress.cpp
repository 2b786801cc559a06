#include "cli/Progress.h"

#include <ostream>
#include <string>
#include <string_view>

namespace tovarek {
namespace {

constexpr std::string_view kBegin = "tovarek: ";
constexpr std::chrono::milliseconds kPause{100};  // a terminal is slower than most files

}  // namespace

Progress::Progress(const Streams& streams, OutputFormat format, std::size_t total,
                   std::chrono::milliseconds patience)
    : streams_(streams),
      total_(total),
      patience_(patience),
      shown_(std::chrono::steady_clock::now()),
      isSilent_(!streams.errorIsTerminal || format != OutputFormat::text) {}

void Progress::Show(std::size_t done) {
    const auto now = std::chrono::steady_clock::now();
    // A line that made room for other output comes back at once.
    const bool isDue = now - shown_ >= (isThere_ ? kPause : patience_) || (wasShown_ && !isThere_);
    if (isSilent_ || !isDue)
        return;
    shown_ = now;
    wasShown_ = isThere_ = true;
    streams_.error << '\r' << kBegin << done << " of " << total_ << std::flush;
}

void Progress::Clear() {
    const std::size_t width = kBegin.size() + 2 * std::to_string(total_).size() + std::string(" of ").size();
    if (isThere_)
        streams_.error << '\r' << std::string(width, ' ') << '\r' << std::flush;
    isThere_ = false;
}

}  // namespace tovarek
