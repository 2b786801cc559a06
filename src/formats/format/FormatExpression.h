// The expression of one value in a format: path, then optionally factor, offset and the unit's string.
#pragma once

#include <string>
#include <string_view>

#include "formats/format/DisplayFormat.h"

namespace tovarek {

// "level*1.8+32(0:855)". What is more complicated than that stays in `expression` as it stands.
FormatParameter ParseFormatExpression(std::string_view text);
// The inverse. Factor and offset are written where one of them, or a unit, needs it.
std::string FormatExpressionText(const FormatParameter& parameter);

// Appends factor and offset, both always: "*1.8+32".
void AppendFactorAndOffset(std::string& text, double factor, double offset);

// Appends `unit` as the comment behind a value, on one line: a run of white space with a line break in it is
// one blank. Units come that way from files that are laid out for readers; behind the break a comment would
// end.
void AppendUnitComment(std::string& text, std::string_view unit);

// The conversions in a format text, "%d" and the like with their flags; "%%" is none.
std::vector<std::string> ConversionsOf(std::string_view text);

}  // namespace tovarek
