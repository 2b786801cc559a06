#include "template/TemplateFields.h"

namespace tovarek {
namespace {

constexpr TemplateField kTemplateFields[] = {
    {"general", "programID", "PROGRAMID", nullptr, &CTemplate::programID},
    {"general", "selfDoc", "SDSTRING", nullptr, &CTemplate::selfDocumentation},
    {"general", "userTypeFile", "USERCPFILE", nullptr, &CTemplate::userTypeFile},
    {"nvs", "numberOfStaticNvs", "", &CTemplate::numberStaticNvs, nullptr},
    {"nvs", "maximumNumberOfNvs", "MAXIMUMNUMBEROFNVS", &CTemplate::maximumNumberOfNvs, nullptr},
    {"tags", "numberOfTags", "", &CTemplate::numberOfMessageTags, nullptr},
    {"cps", "numberOfCp", "", &CTemplate::numberOfCps, nullptr},
    {"cps", "version", "FILETYPEIIVERSION", nullptr, &CTemplate::versionCP},
};

// The defaults of direction, type and length are no values that pass: a section must have these keys, but for
// the length of a standard type, which the catalog gives.
constexpr RecordField<CNv> kNvFields[] = {
    {"name", "", nullptr, &CNv::name, 0},
    {"selfdoc", "SISD", nullptr, &CNv::selfdoc, 0},
    {"avgRate", "AVGRATE", &CNv::avgRate, nullptr, 0},
    {"maxRate", "MAXRATE", &CNv::maxRate, nullptr, 0},
    {"arraySize", "ARRAYSIZE", &CNv::arraySize, nullptr, 0},
    {"offline", "OFFLINE", &CNv::offline, nullptr, 0},
    {"direction", kDirectionElement, &CNv::direction, nullptr, -1},
    {"defaultService", "DEFAULTSERVICE", &CNv::defaultService, nullptr, 0},
    {"serviceCanBeChanged", "SERVICECANBECHANGED", &CNv::serviceCanBeChanged, nullptr, 1},
    {"defaultAuth", "DEFAULTAUTH", &CNv::defaultAuth, nullptr, 0},
    {"authCanBeChanged", "AUTHCANBECHANGED", &CNv::authCanBeChanged, nullptr, 1},
    {"defaultPriority", "DEFAULTPRIORITY", &CNv::defaultPriority, nullptr, 0},
    {"priorityCanBeChanged", "PRIORITYCANBECHANGED", &CNv::priorityCanBeChanged, nullptr, 1},
    {"polled", "POLLED", &CNv::polled, nullptr, 0},
    {"synchronized", "SYNCHRONIZED", &CNv::synchronized, nullptr, 0},
    {"configuration", "CONFIGURATION", &CNv::configuration, nullptr, 0},
    {"type", "SNVTTYPE", &CNv::typeIndex, nullptr, -1},
    {"length", "LENGTH", &CNv::length, nullptr, -1},
};

// Deliberate: an INI tag without the key is not bindable, a tag of an XML template without the element is.
constexpr RecordField<CTag> kTagFields[] = {
    {"name", "", nullptr, &CTag::name, 0},
    {"avgRate", "AVGRATE", &CTag::avgRate, nullptr, 0},
    {"maxRate", "MAXRATE", &CTag::maxRate, nullptr, 0},
    {"bindable", "BINDABLE", &CTag::bindable, nullptr, 0},
};

constexpr RecordField<CCp> kCpFields[] = {
    {"declaration", "SISD", nullptr, &CCp::declaration, 0},
    {"value", "RAWVALUE", nullptr, &CCp::defaultValue, 0},
    {"minRawVal", "MINRAWVAL", nullptr, &CCp::minValue, 0},
    {"maxRawVal", "MAXRAWVAL", nullptr, &CCp::maxValue, 0},
    {"initRawVal", "INITRAWVAL", nullptr, &CCp::initValue, 0},
    {"arraySize", "", &CCp::arraySize, nullptr, 0},
    {"typeIndex", "SNVTTYPE", &CCp::typeIndex, nullptr, 0},
    {"", "LENGTH", &CCp::length, nullptr, 0},
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
