// What of a property's declaration is read as something else than it says.
#pragma once

#include <string>
#include <string_view>

namespace tovarek {

// A sentence about `declaration`, "header,select,scope,type,length[,array size[,range]];" as a template has
// it; empty when all of it says what is read.
std::string OddityOfDeclaration(std::string_view declaration);

}  // namespace tovarek
