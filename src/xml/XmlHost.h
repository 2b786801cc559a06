// Windows only: nodes between this system and the hosts that hand them over.
#pragma once

#include <unknwn.h>

#include "xml/Xml.h"

struct IDispatch;

namespace tovarek {

// The node behind a host's object, which stays its host's and is kept alive; XmlNode::Current copies it. An
// empty node when the object is no node of an XML DOM. A null object gives an empty node as well.
XmlNode NodeOfHost(IDispatch* object);

// The very object that NodeOfHost was given, without a reference of its own; null for any other node.
IDispatch* HostObject(const XmlNode& node);

}  // namespace tovarek
