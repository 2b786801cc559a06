#include "control/TypeBuilder.h"

#include "base/Text.h"
#include "formats/records/ResourceFile.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

constexpr std::size_t kPrefix = 4;           // "UNVT" and "UCPT" are not stored
constexpr std::size_t kMemberOverhead = 15;  // length of the name, three strings, the shortest description
constexpr std::int32_t kLargestArray = 65535;
constexpr std::int32_t kMostMembers = 65535;

}  // namespace

Outcome TypeBuilder::Start(const std::string& name, std::uint8_t scope) {
    if (state_ != State::none)
        return Failure(resultErrorAddingType, "type \"" + type_.name + "\" is not registered yet");
    const std::string bytes = ToCodePage(name);
    if (bytes.size() <= kPrefix || bytes.size() - kPrefix > kLongestName) {
        return Failure(resultErrorAddingType,
                       "a type's name has 1 to 255 characters after the first four: \"" + name + '"');
    }
    type_ = {};
    type_.name = FromCodePage(std::string_view(bytes).substr(kPrefix));
    scope_ = scope;
    state_ = State::describing;
    hasRoot_ = false;
    frames_.clear();
    recordBytes_ = bytes.size();
    return {};
}

Outcome TypeBuilder::CheckRoom() const {
    if (state_ == State::none)
        return Failure(resultNoCurrentType, "no type is started");
    if (state_ == State::complete || (hasRoot_ && frames_.empty()))
        return Failure(resultErrorAddingMember, "type \"" + type_.name + "\" has all its members");
    return {};
}

Outcome TypeBuilder::CheckElement(const TypeElement& element) const {
    if (Outcome room = CheckRoom(); !room.Ok())
        return room;
    if (!IsTextNumber(element.nameText) || !IsTextNumber(element.descriptionText) ||
        !IsTextNumber(element.unitText))
        return Failure(resultBadParam, "a text number is 0 to 16777215");
    if (element.arraySize < 0 || element.arraySize > kLargestArray)
        return Failure(resultErrorSettingDetails, "an array has 1 to 65535 elements");
    if (!hasRoot_)
        return {};
    const std::size_t nameBytes = ToCodePage(element.name).size();
    if (nameBytes == 0 || nameBytes > kLongestName) {
        return Failure(resultErrorAddingMember,
                       "a member's name has 1 to 255 characters: \"" + element.name + '"');
    }
    if (recordBytes_ + nameBytes + kMemberOverhead > kLongestRecord) {
        return Failure(resultErrorAddingMember,
                       "the description of \"" + type_.name + "\" exceeds 65535 bytes");
    }
    return {};
}

TypeDescription* TypeBuilder::Attach(const TypeElement& element, TypeDescription type) {
    if (element.arraySize > 0)
        type = ArrayOf(std::move(type), static_cast<std::uint16_t>(element.arraySize), scope_);
    TypeDescription* place = &type_.type;
    if (hasRoot_) {
        Frame& frame = frames_.back();
        --frame.missing;
        frame.type->members.push_back({element.name, Text(element.nameText), Text(element.descriptionText),
                                       Text(element.unitText), std::move(type)});
        recordBytes_ += ToCodePage(element.name).size() + kMemberOverhead;
        place = &frame.type->members.back().type;
    } else {
        type_.nameText = Text(element.nameText);
        type_.description = Text(element.descriptionText);
        type_.unit = Text(element.unitText);
        type_.type = std::move(type);
        hasRoot_ = true;
    }
    return element.arraySize > 0 ? &place->members[0].type : place;
}

Outcome TypeBuilder::Add(const TypeElement& element, TypeDescription type) {
    if (Outcome check = CheckElement(element); !check.Ok())
        return check;
    Attach(element, std::move(type));
    DropFullFrames();
    return {};
}

Outcome TypeBuilder::AddStructure(const TypeElement& element, TypeKind kind, std::int32_t memberCount) {
    if (Outcome room = CheckRoom(); !room.Ok())
        return room;
    if (memberCount < 1 || memberCount > kMostMembers)
        return Failure(resultErrorSettingNumMembers, "a structure or union has 1 to 65535 members");
    const int depth = Depth() + (element.arraySize > 0 ? 2 : 1);
    if (depth + 2 > kDeepestNesting)  // a member may be an array of texts
        return Failure(resultErrorSettingNumMembers, "structures and unions are nested too deeply");
    if (Outcome check = CheckElement(element); !check.Ok())
        return check;
    TypeDescription type;
    type.kind = kind;
    frames_.push_back({Attach(element, std::move(type)), static_cast<std::size_t>(memberCount), depth});
    return {};
}

void TypeBuilder::DropFullFrames() {
    while (!frames_.empty() && frames_.back().missing == 0)
        frames_.pop_back();
}

Outcome TypeBuilder::Complete() {
    if (state_ != State::describing)
        return Failure(resultNoCurrentType, "no type is started");
    if (!hasRoot_ || !frames_.empty())
        return Failure(resultTypeIsNotComplete, "type \"" + type_.name + "\" lacks members");
    state_ = State::complete;
    return {resultTypeComplete, {}};
}

NvType TypeBuilder::Take() {
    state_ = State::none;
    return std::move(type_);
}

}  // namespace tovarek
