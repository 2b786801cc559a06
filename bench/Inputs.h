// Inputs of any size for the benchmarks. They look like those of real devices: a mix of standard and user
// types, self-documentation of everyday length, small arrays, flags where they are wanted. Nothing is told of
// them, so that what is measured is not the telling. Equal arguments give equal texts.
#pragma once

#include <string>

namespace tovarek::bench {

// What NVs and properties of a template refer to.
enum class TypeUse {
    mixed,  // standard types, and user types that need no definition as long as no resource files are made
    user,   // user types alone, all defined in FormatFile
};

// An application template with `records` network variables, as many configuration properties and two tags.
std::string IniTemplate(int records);
// The same device. Its element is named "TEMPLATE"; one of user types names "types.xml" as its user type
// file.
std::string XmlTemplate(int records, TypeUse use = TypeUse::mixed);

// A device profile that passes all checks.
std::string IniProfile();

// ---- user types ----

// Of `types` user types so many stand in the template, the rest in the user type file.
int TemplateTypes(int types);
// Definitions of `types` user types, one after the other a structure of 8 members, an enumeration of 16
// values and a scaled number, the last two with two display units where they can have them, behind those of
// the structures' members.
std::string FormatFile(int types);
// Names the types that the template does not, spread over scopes 1 to 5.
std::string UserTypeFile(int types);

}  // namespace tovarek::bench
