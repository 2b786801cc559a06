#include "starter/Starter.h"

#include <array>

#include "convert/FormWriters.h"
#include "profile/ProfileFields.h"

namespace tovarek {
namespace {

// Lines 6 to 10, in the order of the table of fields.
constexpr std::array<std::int32_t, kProfileFields.size()> kProfile = {
    2,     15, 0,   4,  3,  2,   2,  3,   5, 9, 9,   9, 9, 2, 0, 16, 15, 1, 1, 11,  // 6
    0,     5,  7,   13, 28, 944, 0,  15,  5, 3, 265, 4,                             // 7
    1,     7,  0,   4,  4,  5,   15, 200, 0,                                        // 8
    78125, 0,  0,   0,  0,  0,   0,  0,   0, 0, 0,   0,                             // 9
    90,    0,  240, 0,  0,  0,   40, 40,  0, 5, 1,   2, 5, 0, 1};                   // 10

constexpr auto kStarters =
    std::to_array<const Starter*>({&kFanCoilStarter, &kSensorStarter, &kSwitchStarter});

CNv NvOf(const StarterVariable& row) {
    CNv nv;
    nv.name = row.name;
    nv.selfdoc = row.selfDocumentation;
    nv.direction = row.direction;
    nv.typeIndex = row.type;
    nv.arraySize = row.arraySize;
    nv.length = row.length;
    return nv;
}

CCp CpOf(const StarterProperty& row) {
    CCp cp;
    cp.name = row.name;
    cp.declaration = row.declaration;
    cp.defaultValue = row.value;
    cp.minValue = row.minimum;
    cp.maxValue = row.maximum;
    cp.typeIndex = row.type;
    return cp;
}

}  // namespace

std::span<const Starter* const> Starters() {
    return kStarters;
}

CTemplate TemplateOf(const Starter& starter, const std::string& userTypeFile) {
    CTemplate device;
    device.programID = starter.programId;
    device.selfDocumentation = starter.selfDocumentation;
    device.userTypeFile = userTypeFile;
    device.versionCP = "1.0";
    for (const StarterVariable& row : starter.variables)
        device.nvs.push_back(NvOf(row));
    for (const StarterProperty& row : starter.properties)
        device.cps.push_back(CpOf(row));
    CTag tag;
    tag.name = starter.tag;
    tag.bindable = 1;
    device.tags.push_back(tag);
    device.numberStaticNvs = static_cast<std::int32_t>(device.nvs.size());
    device.maximumNumberOfNvs = device.numberStaticNvs;
    device.numberOfCps = static_cast<std::int32_t>(device.cps.size());
    device.numberOfMessageTags = static_cast<std::int32_t>(device.tags.size());
    return device;
}

std::string FormatFileOf(const Starter& starter) {
    std::string text;
    for (const char c : starter.formatFile)
        (c == '\n' ? text += '\r' : text) += c;
    return text;
}

std::string UserTypesOf(const Starter& starter) {
    constexpr std::size_t kMaker = 6;  // the digits of a program ID up to those of the maker
    const std::string device = "_" + std::string(starter.programId.substr(0, kMaker)) + "0000000000";
    const MakersType& type = starter.makersType;
    XmlWriter out;
    out.Comment("Property types for all devices of the maker (scope 3).");
    out.Open("UCPTS");
    out.Open("_3");
    out.Comment("The digits of the maker are those of the program ID: change both together.");
    out.Open(device);
    out.Open("UCPT_1");
    out.Element("NAME", type.name);
    out.Comment("the number of its type in the format file");
    out.Element("SNVTTYPE", std::to_string(type.definition));
    out.Comment("smallest, largest and first value, as bytes");
    out.Element("MINRAWVAL", type.minimum);
    out.Element("MAXRAWVAL", type.maximum);
    out.Element("INITRAWVAL", type.initial);
    out.Close("UCPT_1");
    out.Close(device);
    out.Close("_3");
    out.Close("UCPTS");
    return out.Take();
}

std::string ReadMeText(const ReadMe& readMe) {
    const std::string deviceTemplate = "template." + readMe.form;
    const std::string& outputs = readMe.outputs;
    return "# " + outputs + ": " + readMe.title +
           "\n\n"
           "`tovarek generate --job " +
           readMe.job + "` in this folder writes " + outputs + ".xif" +
           (readMe.hasTypes ? " and the resource files in " + outputs + "-types" : "") +
           "; `tovarek check --job " + readMe.job + " --pedantic` finds faults, `tovarek show " + readMe.job +
           "` draws the device.\n\n"
           "What to change first:\n"
           "1. programID in " +
           deviceTemplate +
           (readMe.isExample ? ": FFFFF is the maker number of examples. `tovarek program-id` makes one; "
                               "user-types.xml has the maker's digits too.\n"
                             : ": a device with another interface needs one of its own; `tovarek diff "
                               "--interface` tells.\n") +
           "2. What your chip, memory and transceiver have otherwise, in profile." + readMe.form +
           "; each value says what it means and what is accepted.\n"
           "3. Variables, properties and selfDoc in " +
           deviceTemplate +
           ": `tovarek catalog find WORD` finds types, `tovarek value encode TYPE VALUE` makes bytes.\n" +
           (readMe.hasTypes
                ? "4. Types of the device's own in format.xml, those of all your devices in user-types.xml.\n"
                  "5. Creator, names and texts of the resource files in the job.\n"
                : "4. Types of the device's own: an interface file does not hold them; without its resource "
                  "files they are\n"
                  "   lengths alone. `tovarek new` with `--like` shows how they are written.\n");
}

ProfileValues StarterProfile() {
    ProfileValues profile;
    for (std::size_t i = 0; i < kProfile.size(); ++i)
        profile.*kProfileFields.at(i).value = kProfile.at(i);
    return profile;
}

}  // namespace tovarek
