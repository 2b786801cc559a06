// Properties by name: from options, from NAME=VALUE and from job files.
#pragma once

#include <stdexcept>
#include <string>

#include "component/PropertyTable.h"

namespace tovarek {

// A value or a name that the command line got wrong; the message is for people.
class WrongUse : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Sets the property `name` from text: booleans are true, false, 1 or 0, integers decimal; an XML node is
// written FILE#ELEMENT. Throws WrongUse for an unknown name (the nearest one is suggested) or a value that
// does not fit, and passes on what the setter raises.
void AssignText(Tovarek& component, const std::string& name, const std::string& text);

// "NAME=VALUE" likewise.
void AssignPair(Tovarek& component, const std::string& pair);

// Sets the properties of a job file, in the order in which they stand: a JSON object {property: value}, an
// XML node written {"file": path, "element": name}; "$schema" is passed over. Inputs count from the folder of
// the job file, outputs from the current folder. Throws as AssignText, and WrongUse for what is not such a
// file and for an input that only the current folder holds.
void AssignJob(Tovarek& component, const std::string& path);

}  // namespace tovarek
