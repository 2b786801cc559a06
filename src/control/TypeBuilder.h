// Puts one type together, element by element, in the order in which the elements stand in the description.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "control/TypeElement.h"
#include "formats/records/Outcome.h"
#include "formats/type/TypeFile.h"

namespace tovarek {

class TypeBuilder {
  public:
    enum class State { none, describing, complete };

    State CurrentState() const { return state_; }

    // Begins a type of the given scope. `name` is whole, its first four bytes are not stored. Codes: 20 the
    // rest is empty or longer than 255 bytes, or a type is being described already.
    Outcome Start(const std::string& name, std::uint8_t scope);
    // Whether another element has a place. Codes: 21 nothing is being described, 17 all members are there.
    Outcome CheckRoom() const;
    // Adds an element that has no members; an array size wraps it. Codes: as CheckRoom, and 16 a text number,
    // 19 an array size, 17 a name that does not fit, or a type that grows beyond what a record holds.
    Outcome Add(const TypeElement& element, TypeDescription type);
    // Adds a structure or union whose `memberCount` members (1 to 65535) follow. Further code: 18 a bad
    // number of members or too deep a nesting.
    Outcome AddStructure(const TypeElement& element, TypeKind kind, std::int32_t memberCount);
    // Ends the description: 22 on success, 21 nothing is started, 23 members are missing.
    Outcome Complete();
    // Hands out the completed type and is ready for the next one.
    NvType Take();

    // Bytes of a value as it is described so far; more than 65535 is answered as 65536.
    std::uint32_t Size() const { return SizeOf(type_.type); }
    // The type that is being described, for messages.
    const std::string& Name() const { return type_.name; }

  private:
    // A structure or union whose members are still coming. Its place in the tree does not move as long as the
    // structures around it wait for it.
    struct Frame {
        TypeDescription* type;
        std::size_t missing;
        int depth;
    };

    int Depth() const { return frames_.empty() ? 0 : frames_.back().depth; }
    Outcome CheckElement(const TypeElement& element) const;
    TypeDescription* Attach(const TypeElement& element, TypeDescription type);
    StringRef Text(std::int32_t number) const { return {scope_, static_cast<std::uint32_t>(number)}; }
    void DropFullFrames();

    State state_ = State::none;
    std::uint8_t scope_ = 0;
    NvType type_;
    bool hasRoot_ = false;
    std::vector<Frame> frames_;
    std::size_t recordBytes_ = 0;  // a lower bound of the record's length
};

}  // namespace tovarek
