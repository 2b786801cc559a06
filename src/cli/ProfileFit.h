// Profiles of later versions, as commands make them pass.
#pragma once

#include <string>
#include <vector>

#include "convert/Fit.h"

namespace tovarek {

// Makes `profile` one that XIF 4.0 knows, with the values of `pairs`, each FIELD=VALUE. Answers what was
// replaced, in a sentence each. Throws WrongUse for a pair that is none, and where nothing says what stands
// for a value.
std::vector<std::string> FitOrAsk(const std::vector<std::string>& pairs, ProfileValues& profile);

}  // namespace tovarek
