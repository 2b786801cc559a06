// Windows only: between the UTF-8 of the system and the UTF-16 of the platform.
#pragma once

#include <string>
#include <string_view>

namespace tovarek {

// UTF-8 to UTF-16. An invalid byte becomes U+FFFD; a surrogate that FromWide let through comes back as it
// was.
std::wstring ToWide(std::string_view text);

// UTF-16 to UTF-8. An unpaired surrogate, which file names and a host's strings may hold, takes the three
// bytes that its number would have: no character, but nothing is lost on the way back.
std::string FromWide(std::wstring_view text);

}  // namespace tovarek
