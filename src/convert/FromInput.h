// The interface that files of the generator's own inputs tell.
#pragma once

#include <string>

#include "convert/DeviceInterface.h"

namespace tovarek {

// Reads the INI file at `path`: a profile, a template, or both where it has the sections of both.
DeviceInterface InterfaceOfIni(const std::string& path);

// Reads the XML file at `path`: what stands in the element `element`, in the document element where that is
// empty. Raises the errors of loading XML files.
DeviceInterface InterfaceOfXml(const std::string& path, const std::string& element);

}  // namespace tovarek
