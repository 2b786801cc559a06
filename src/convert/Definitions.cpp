#include "convert/Definitions.h"

#include <utility>

#include "convert/TypeText.h"

namespace tovarek {
namespace {

std::string ContentOf(const DefinedType& type) {
    DefinedType content = type;
    content.name.clear();
    XmlWriter out(XmlHead::none);
    WriteDefinition(out, content);
    return out.Take();
}

bool NamesAgree(const DefinedType& known, const DefinedType& wanted) {
    if (wanted.content.elementType == elementEnum)
        return known.name == wanted.name && known.isNamedLast == wanted.isNamedLast;
    return known.name.empty() || wanted.name.empty() || known.name == wanted.name;
}

}  // namespace

std::int32_t Definitions::FreeNumber(std::int32_t wanted) {
    if (wanted > 0 && !types_.contains(wanted))
        return wanted;
    while (reserved_.contains(next_) || types_.contains(next_))
        ++next_;
    return next_;
}

std::int32_t Definitions::Add(DefinedType type, std::int32_t wanted) {
    std::string content = ContentOf(type);
    const auto [begin, end] = known_.equal_range(content);
    for (auto each = begin; each != end; ++each) {
        DefinedType& known = types_.at(each->second);
        if (!NamesAgree(known, type))
            continue;
        if (known.name.empty())
            known.name = type.name;
        return each->second;
    }
    type.number = FreeNumber(wanted);
    const std::int32_t number = type.number;
    known_.emplace(std::move(content), number);
    types_.emplace(number, std::move(type));
    return number;
}

bool Definitions::AddStandard(std::int32_t index, std::int32_t count, ElementType kind,
                              const std::string& comment) {
    DefinedType type;
    type.number = index;
    type.comment = comment;
    type.content.typeIndex = index;
    type.content.elementType = kind;
    type.content.arraySize = count;
    return types_.try_emplace(index, std::move(type)).first->second.content.arraySize == count;
}

void Definitions::Comment(std::int32_t number, const std::string& text) {
    const auto found = types_.find(number);
    if (found == types_.end() || number <= kLargestStandardIndex)
        return;
    std::string& comment = found->second.comment;
    if (comment.empty())
        comment = text;
    else if (comment.find(text) == std::string::npos)
        comment += ", " + text;
}

std::vector<DefinedType> Definitions::Take() {
    std::vector<DefinedType> all;
    all.reserve(types_.size());
    for (auto& [number, type] : types_)
        all.push_back(std::move(type));
    types_.clear();
    known_.clear();
    return all;
}

}  // namespace tovarek
