// Types of the device's own in a template: those of scope 6, by its variables and properties.
#pragma once

#include "convert/DeviceInterface.h"

namespace tovarek {

// Gives the interface, which has own types and no template, one that asks for those of scope 6: a variable
// for each network-variable type, in the order of the numbers, and a property named like each property type.
void AddTemplateOfTypes(DeviceInterface& found);

// Gives the template of an XIF file the own types of scope 6: the variables of type 0 those of the variables,
// in order, and the properties those that they declare. Where numbers or sizes do not fit, a variable or
// property stays without and is listed.
void AttachTypes(DeviceInterface& found);

}  // namespace tovarek
