#include "template/TemplateFields.h"

namespace tovarek {
namespace {

constexpr TemplateField kTemplateFields[] = {
    {"general", "programID", "PROGRAMID", nullptr, &CTemplate::programID,
     "program ID, 16 hexadecimal digits: format, manufacturer, device class, usage, channel, model"},
    {"general", "selfDoc", "SDSTRING", nullptr, &CTemplate::selfDocumentation,
     "self-documentation: &3.0@, the profile number of each functional block, and behind ; a text"},
    {"general", "userTypeFile", "USERCPFILE", nullptr, &CTemplate::userTypeFile,
     "the user type file: types of the scopes 1 to 5"},
    {"nvs", "numberOfStaticNvs", "", &CTemplate::numberStaticNvs, nullptr,
     "how many sections [nv1], [nv2], ... are read"},
    {"nvs", "maximumNumberOfNvs", "MAXIMUMNUMBEROFNVS", &CTemplate::maximumNumberOfNvs, nullptr,
     "most network variables, at least the static ones"},
    {"tags", "numberOfTags", "", &CTemplate::numberOfMessageTags, nullptr,
     "how many sections [tag1], [tag2], ... are read"},
    {"cps", "numberOfCp", "", &CTemplate::numberOfCps, nullptr,
     "how many sections [cp1], [cp2], ... are read"},
    {"cps", "version", "FILETYPEIIVERSION", nullptr, &CTemplate::versionCP, "version of the property file"},
};

// The defaults of direction, type and length are no values that pass: a section must have these keys, but for
// the length of a standard type, which the catalog gives.
constexpr RecordField<CNv> kNvFields[] = {
    {"name", "", nullptr, &CNv::name, 0, "name; other programs take 16 characters, and no blanks"},
    {"selfdoc", "SISD", nullptr, &CNv::selfdoc, 0,
     "self-documentation: @1|2 is member 2 of functional block 1, @1#2 the second one of the maker's own"},
    {"avgRate", "AVGRATE", &CNv::avgRate, nullptr, 0, "average message rate, encoded"},
    {"maxRate", "MAXRATE", &CNv::maxRate, nullptr, 0, "maximum message rate, encoded"},
    {"arraySize", "ARRAYSIZE", &CNv::arraySize, nullptr, 0, "elements of an array, 0 = no array"},
    {"offline", "OFFLINE", &CNv::offline, nullptr, 0, "1: the device must be offline for an update"},
    {"direction", kDirectionElement, &CNv::direction, nullptr, -1,
     "0 input, 1 output; in XML the words input and output"},
    {"defaultService", "DEFAULTSERVICE", &CNv::defaultService, nullptr, 0,
     "0 acknowledged, 1 repeated, 2 unacknowledged"},
    {"serviceCanBeChanged", "SERVICECANBECHANGED", &CNv::serviceCanBeChanged, nullptr, 1,
     "the service may be changed in the field"},
    {"defaultAuth", "DEFAULTAUTH", &CNv::defaultAuth, nullptr, 0, "authenticated"},
    {"authCanBeChanged", "AUTHCANBECHANGED", &CNv::authCanBeChanged, nullptr, 1, "that may be changed"},
    {"defaultPriority", "DEFAULTPRIORITY", &CNv::defaultPriority, nullptr, 0, "sent with priority"},
    {"priorityCanBeChanged", "PRIORITYCANBECHANGED", &CNv::priorityCanBeChanged, nullptr, 1,
     "that may be changed"},
    {"polled", "POLLED", &CNv::polled, nullptr, 0, "polled"},
    {"synchronized", "SYNCHRONIZED", &CNv::synchronized, nullptr, 0, "synchronized"},
    {"configuration", "CONFIGURATION", &CNv::configuration, nullptr, 0, "configuration class"},
    {"type", "SNVTTYPE", &CNv::typeIndex, nullptr, -1, "1 to 255: standard type; 0 or above 255: user type"},
    {"length", "LENGTH", &CNv::length, nullptr, -1, "bytes of one element"},
};

// Deliberate: an INI tag without the key is not bindable, a tag of an XML template without the element is.
constexpr RecordField<CTag> kTagFields[] = {
    {"name", "", nullptr, &CTag::name, 0, "name, as for variables"},
    {"avgRate", "AVGRATE", &CTag::avgRate, nullptr, 0, "average message rate, encoded"},
    {"maxRate", "MAXRATE", &CTag::maxRate, nullptr, 0, "maximum message rate, encoded"},
    {"bindable", "BINDABLE", &CTag::bindable, nullptr, 0, "1: the tag can be bound"},
};

constexpr RecordField<CCp> kCpFields[] = {
    {"declaration", "SISD", nullptr, &CCp::declaration, 0,
     "what it applies to (0 device, 1 functional block, 2 variable), which of them, scope and flags, type, "
     "length, array size"},
    {"value", "RAWVALUE", nullptr, &CCp::defaultValue, 0, "default value, raw bytes"},
    {"minRawVal", "MINRAWVAL", nullptr, &CCp::minValue, 0, "minimum"},
    {"maxRawVal", "MAXRAWVAL", nullptr, &CCp::maxValue, 0, "maximum"},
    {"initRawVal", "INITRAWVAL", nullptr, &CCp::initValue, 0, "initial value"},
    {"arraySize", "", &CCp::arraySize, nullptr, 0, "overruled by the declaration"},
    {"typeIndex", "SNVTTYPE", &CCp::typeIndex, nullptr, 0,
     "number of the type in the format file; used for scope 6 only"},
    {"", "LENGTH", &CCp::length, nullptr, 0, "overruled by the declaration"},
};

}  // namespace

std::span<const TemplateField> TemplateFields() {
    return kTemplateFields;
}
std::span<const RecordField<CNv>> NvFields() {
    return kNvFields;
}
std::span<const RecordField<CTag>> TagFields() {
    return kTagFields;
}
std::span<const RecordField<CCp>> CpFields() {
    return kCpFields;
}

}  // namespace tovarek
