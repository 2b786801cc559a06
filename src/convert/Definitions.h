// The type elements of a format file while they are found: equal ones become one, and each gets its number.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "convert/DeviceInterface.h"

namespace tovarek {

class Definitions {
  public:
    // Keeps a number for the type that asks for it.
    void Reserve(std::int32_t number) { reserved_.insert(number); }

    // The format number of a definition like this one: that of an equal one, or `wanted` where it is free and
    // above 0, or the next one from 300 up. The name of an enumeration is a part of it; another type takes
    // over the name of an equal one that nobody has named.
    std::int32_t Add(DefinedType type, std::int32_t wanted = 0);

    // The reference to the standard type `index`, an array of it where `count` is above 0. False where the
    // file has it otherwise already: there is one element for each standard type.
    bool AddStandard(std::int32_t index, std::int32_t count, ElementType kind, const std::string& comment);

    // Adds to the comment of a definition that is there.
    void Comment(std::int32_t number, const std::string& text);

    // All of them, by number.
    std::vector<DefinedType> Take();

  private:
    std::int32_t FreeNumber(std::int32_t wanted);

    std::map<std::int32_t, DefinedType> types_;
    std::multimap<std::string, std::int32_t> known_;  // by all that is written of them but name and number
    std::set<std::int32_t> reserved_;
    std::int32_t next_ = 300;
};

}  // namespace tovarek
