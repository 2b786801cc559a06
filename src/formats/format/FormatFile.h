// Format files (.fmt): plain text that tells tools how to display the values of a set's types.
//
//   set program_id 90:00:01:00:00:00:00:00;      settings, all that begins with "set"
//   UNVT_count: int;                             one whole number; "real;" for one with a fraction
//   UNVT_temp#US: text("%f",*1.8+32(0:855));     factor, offset and unit of the value itself
//   UNVT_pair: text("%d %m",                     a value per conversion: path in the type, then as above
//                   level*2+0,    ! volts        a comment behind a value is its unit's text
//                   mode);
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "formats/format/DisplayFormat.h"
#include "formats/records/Outcome.h"

namespace tovarek {

inline constexpr std::string_view kFormatExtension = "fmt";

struct FormatFile {
    std::vector<std::string> settings;   // "set" lines without "set" and ";", e.g. "selector MANUFACTURER"
    std::vector<DisplayFormat> formats;  // in the order of the file
};

// Reads a format file (windows-1252). A body that is not understood keeps form and parameters empty; only
// what is no such text at all is refused. Codes: 5 binary, 16 a line that is neither setting nor format (the
// reason names it).
Outcome ReadFormatFile(std::string_view bytes, FormatFile& file);

// The text of the file, CR LF, windows-1252. Bodies are made from form, text and parameters (from `body`
// where form is empty).
std::string WriteFormatFile(const FormatFile& file);

}  // namespace tovarek
