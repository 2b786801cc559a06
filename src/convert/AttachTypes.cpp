#include "convert/AttachTypes.h"

#include <algorithm>

#include "base/Text.h"
#include "template/TemplateFields.h"

namespace tovarek {
namespace {

constexpr std::int32_t kLongestVariable = 31;

std::vector<const UserType*> TypesOfTemplate(const TypeInputs& own, bool isUnvt) {
    std::vector<const UserType*> types;
    for (const UserType& type : own.types)
        if (type.scope == kOwnScope && type.isUnvt == isUnvt)
            types.push_back(&type);
    return types;
}

std::string VariableName(const UserType& type) {
    std::string name = type.name;
    name.front() = AsciiUpper(name.front());
    return "nvi" + name;
}

void AddVariable(const UserType& type, DeviceInterface& found) {
    CTemplate& device = found.device;
    CNv& nv = device.nvs.emplace_back();
    nv.name = VariableName(type);
    nv.typeIndex = type.definition;
    nv.length = std::min(std::int32_t{type.size}, kLongestVariable);
    if (nv.length != type.size)
        found.losses.push_back({RecordTitle(nv, device.nvs.size() - 1), "length", std::to_string(type.size),
                                "a network variable has 31 bytes at most; the type has all of them"});
}

// What is missing in a template is the property's own value; limits that nobody told are zeros.
void SetType(const UserType& type, CCp& cp) {
    cp.typeIndex = type.definition;
    const std::string zeros(2 * std::size_t{type.size}, '0');
    for (const auto& [member, raw] : {std::pair{&CCp::minValue, &type.rawMinimum},
                                      {&CCp::maxValue, &type.rawMaximum},
                                      {&CCp::initValue, &type.rawInitial}}) {
        const std::string& value = raw->empty() ? zeros : *raw;
        cp.*member = value == cp.defaultValue ? "" : value;
    }
    if (cp.name.empty())
        cp.name = type.name;
}

void AddProperty(const UserType& type, CTemplate& device) {
    CCp& cp = device.cps.emplace_back();
    cp.declaration = "0,,6\\x80," + std::to_string(type.number) + ',' + std::to_string(type.size) + ';';
    cp.defaultValue = type.rawInitial;
    SetType(type, cp);
}

void Count(CTemplate& device) {
    device.numberStaticNvs = static_cast<std::int32_t>(device.nvs.size());
    device.maximumNumberOfNvs = std::max(device.maximumNumberOfNvs, device.numberStaticNvs);
    device.numberOfCps = static_cast<std::int32_t>(device.cps.size());
}

void AttachVariables(DeviceInterface& found) {
    std::vector<std::size_t> untyped;
    for (std::size_t i = 0; i < found.device.nvs.size(); ++i)
        if (found.device.nvs[i].typeIndex == 0)
            untyped.push_back(i);
    const std::vector<const UserType*> types = TypesOfTemplate(found.own, true);
    for (std::size_t i = 0; i < untyped.size(); ++i) {
        CNv& nv = found.device.nvs[untyped[i]];
        const std::string record = RecordTitle(nv, untyped[i]);
        if (types.size() != untyped.size())
            found.losses.push_back({record, "type", "0",
                                    std::to_string(untyped.size()) + " variables are of type 0 and " +
                                        std::to_string(types.size()) +
                                        " network-variable types of scope 6 are there, so nothing tells "
                                        "which belongs to which"});
        else if (types[i]->size != nv.length)
            found.losses.push_back({record, "type", "0",
                                    types[i]->wholeName + " would be its type, and has " +
                                        std::to_string(types[i]->size) + " bytes, not " +
                                        std::to_string(nv.length)});
        else
            nv.typeIndex = types[i]->definition;
    }
}

void AttachProperties(DeviceInterface& found) {
    const std::vector<const UserType*> types = TypesOfTemplate(found.own, false);
    for (std::size_t i = 0; i < found.device.cps.size(); ++i) {
        CCp& cp = found.device.cps[i];
        CCp declared = cp;
        try {
            declared.AnalyseCP();
        } catch (const Error&) {
            continue;  // a number beyond 32 bits names no type
        }
        if (declared.scope != kOwnScope)
            continue;
        const auto type = std::find_if(types.begin(), types.end(), [&](const UserType* each) {
            return each->number == declared.typeIndexInScope;
        });
        const auto lose = [&](const std::string& reason) {
            found.losses.push_back(
                {RecordTitle(cp, i), "type", std::to_string(declared.typeIndexInScope), reason});
        };
        if (type == types.end())
            lose("the resource files of scope 6 have no property type of this number");
        else if (declared.length != (*type)->size)
            lose((*type)->wholeName + " has " + std::to_string((*type)->size) + " bytes, not " +
                 std::to_string(declared.length));
        else
            SetType(**type, cp);
    }
}

}  // namespace

void AddTemplateOfTypes(DeviceInterface& found) {
    found.hasTemplate = true;
    found.device.programID = found.own.programIds.empty() ? "" : found.own.programIds.rbegin()->second;
    for (const UserType* type : TypesOfTemplate(found.own, true))
        AddVariable(*type, found);
    for (const UserType* type : TypesOfTemplate(found.own, false))
        AddProperty(*type, found.device);
    if (!found.device.cps.empty())
        found.device.versionCP = "1.0";
    Count(found.device);
}

void AttachTypes(DeviceInterface& found) {
    AttachVariables(found);
    AttachProperties(found);
}

}  // namespace tovarek
