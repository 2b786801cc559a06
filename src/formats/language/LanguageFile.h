// Language files (.enu, .eng, ...): the numbered strings of a resource set in one language.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/records/Outcome.h"
#include "formats/records/ResourceModel.h"

namespace tovarek {

// The longest text of one string, in bytes of the code page: its record's length is 16 bits and counts the
// checksum, a zero byte and the final NUL.
inline constexpr std::size_t kLongestString = 65531;
inline constexpr std::size_t kMostStrings = kLastString;

struct LanguageFile {
    ResourceHeader header;
    std::string language;  // three lower-case letters, e.g. "enu"
    // String n is strings[n - 1]; one without value is deleted (its table entry is 0).
    std::vector<std::optional<std::string>> strings;

    // The text of string `number`, or null when there is none.
    const std::string* Find(std::uint32_t number) const {
        return number == 0 || number > strings.size() || !strings[number - 1] ? nullptr
                                                                              : &*strings[number - 1];
    }
};

// Reads a whole language file. Codes: 5 cut or no resource file, 12 another kind of file, 7 unknown format
// version, 6 inconsistent header, 10 wrong checksum, 13 damaged string.
Outcome ReadLanguageFile(std::string_view bytes, LanguageFile& file);

// The bytes of a fresh file. Codes: 6 a header text is too long, 8 the language is not three letters, 13 a
// string is too long or holds a NUL, or there are too many.
Outcome WriteLanguageFile(const LanguageFile& file, std::string& bytes);

// The three-letter abbreviation of a locale's language, "enu" for 0x0409. Empty for a number (LCID) that the
// platform does not give to a locale, or whose language has no abbreviation.
std::string_view LanguageOfLocale(std::int32_t localeId);
// The inverse, letter case aside: the lowest number of a locale with this abbreviation; 0 for none.
std::int32_t LocaleOfLanguage(std::string_view language);

// True when `extension` ("enu", any case) is one of the abbreviations that LanguageOfLocale gives; false for
// "cat", which a catalog has.
bool IsLanguageExtension(std::string_view extension);

}  // namespace tovarek
