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

// The conversions in a format text, "%d" and the like with their flags; "%%" is none.
std::vector<std::string> ConversionsOf(std::string_view text);

}  // namespace tovarek
