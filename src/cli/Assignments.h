// Properties by name: from options, from NAME=VALUE and from job files.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "component/PropertyTable.h"
#include "support/Findings.h"

namespace tovarek {

// A value or a name that the command line got wrong; the message is for people.
class WrongUse : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// A property that was set, and where.
struct SetProperty {
    std::string name;
    std::string job;  // the job file; empty: the command line
    int line = 0;     // in the job file
    bool isEmpty = false;
};

// Sets the property `name` from text: booleans are true, false, 1 or 0, integers decimal; an XML node is
// written FILE#ELEMENT. Throws WrongUse for an unknown name (the nearest one is suggested) or a value that
// does not fit, and passes on what the setter raises.
SetProperty AssignText(Tovarek& component, const std::string& name, const std::string& text);

// "NAME=VALUE" likewise.
SetProperty AssignPair(Tovarek& component, const std::string& pair);

// Sets the properties of a job file, in the order in which they stand: a JSON object {property: value}, an
// XML node written {"file": path, "element": name}; "$schema" is passed over. Inputs count from the folder of
// the job file, outputs from the current folder. What a setter raises is told to `findings`. Throws as
// AssignText, and WrongUse for what is not such a file and for an input that only the current folder holds.
std::vector<SetProperty> AssignJob(Tovarek& component, const std::string& path, FindingSink& findings);

}  // namespace tovarek
