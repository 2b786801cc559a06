#include "show/BlockBoxes.h"

#include <algorithm>
#include <map>

namespace tovarek {
namespace {

ViewPort PortOf(const VariableRecord& variable) {
    return {variable.name, variable.type, variable.units};
}

std::string ProfileName(const DeclaredBlocks& declared) {
    // Every device may have the one that manages the others.
    const bool isNode = declared.profile == "0";
    std::string name = isNode ? "node object" : "profile " + ShownText(declared.profile);
    return (declared.name.empty() ? "" : ShownText(declared.name) + ", ") + name;
}

class BoxMaker {
  public:
    BoxMaker(std::string_view documentation, const DeviceRecords& records)
        : declared_(DeclaredBlocksOf(documentation)), records_(records) {}

    std::vector<ViewBlock> Make() {
        for (const VariableRecord& variable : records_.variables)
            AddVariable(variable);
        for (const PropertyRecord& property : records_.properties)
            AddProperty(property);
        for (const std::string& tag : records_.tags)
            device_.outputs.push_back({tag, "message tag"});
        std::vector<ViewBlock> boxes;
        AddBox(boxes, "Device", device_);
        AddDeclared(boxes);
        for (const auto& [index, block] : blocks_)
            AddBox(boxes, "Object " + std::to_string(index) + ", not declared", block);
        AddBox(boxes, "Of no object", rest_);
        return boxes;
    }

  private:
    static void AddBox(std::vector<ViewBlock>& boxes, std::string title, ViewBlock block) {
        if (block.inputs.empty() && block.outputs.empty() && block.properties.empty())
            return;
        block.title = std::move(title);
        boxes.push_back(std::move(block));
    }

    // Tells each of the blocks that `ranges` name; the rest where they are none or too many.
    template <class Action>
    void ForBlocks(const std::vector<IndexRange>& ranges, const Action& action) {
        std::size_t count = 0;
        for (const IndexRange& range : ranges)
            count += range.last - range.first + 1;
        if (count == 0 || count > kMostOwners)
            return action(rest_);
        for (const IndexRange& range : ranges)
            for (std::size_t index = range.first; index <= range.last; ++index)
                action(blocks_[index]);
    }

    void AddVariable(const VariableRecord& variable) {
        byIndex_.emplace(variable.index, &variable);
        ForBlocks(variable.membership.blocks, [&](ViewBlock& block) {
            if (variable.property.empty())
                (variable.isOutput ? block.outputs : block.inputs).push_back(PortOf(variable));
            else
                block.properties.push_back({variable.name + " (" + variable.property + ")", variable.value});
        });
    }

    void AddProperty(const PropertyRecord& property) {
        const ViewPort port{property.name, property.value};
        switch (property.owner) {
            case PropertyRecord::Owner::device:
                return device_.properties.push_back(port);
            case PropertyRecord::Owner::block:
                return ForBlocks(property.owners,
                                 [&](ViewBlock& block) { block.properties.push_back(port); });
            case PropertyRecord::Owner::variable:
                return AddToVariable(property, port);
            case PropertyRecord::Owner::unknown:
                return rest_.properties.push_back(port);
        }
    }

    // A property of a variable stands in the variable's block, with the variable's name in front.
    void AddToVariable(const PropertyRecord& property, const ViewPort& port) {
        const auto found = byIndex_.find(property.owners.front().first);
        const VariableRecord* const variable = found == byIndex_.end() ? nullptr : found->second;
        const std::string name = variable == nullptr ? "variable " + property.select : variable->name;
        ForBlocks(variable == nullptr ? std::vector<IndexRange>() : variable->membership.blocks,
                  [&](ViewBlock& block) {
                      block.properties.push_back({name + ": " + port.name, port.type});
                  });
    }

    void AddDeclared(std::vector<ViewBlock>& boxes) {
        for (const DeclaredBlocks& declared : declared_)
            for (std::size_t index = declared.first; index < declared.first + declared.count;)
                index = AddBlock(boxes, declared, index);
    }

    // Adds the box of the block `index`, or that of all up to the next one that has something; answers which
    // is next.
    std::size_t AddBlock(std::vector<ViewBlock>& boxes, const DeclaredBlocks& declared, std::size_t index) {
        const std::size_t end = declared.first + declared.count;
        const auto next = blocks_.lower_bound(index);
        const bool hasMembers = next != blocks_.end() && next->first == index;
        const std::size_t last = hasMembers              ? index + 1
                                 : next == blocks_.end() ? end
                                                         : std::min(end, next->first);
        ViewBlock block = hasMembers ? std::move(next->second) : ViewBlock();
        block.title =
            (last - index > 1 ? "Objects " + std::to_string(index) + " to " + std::to_string(last - 1)
                              : "Object " + std::to_string(index)) +
            ": " + ProfileName(declared);
        boxes.push_back(std::move(block));
        if (hasMembers)
            blocks_.erase(next);
        return last;
    }

    std::vector<DeclaredBlocks> declared_;
    const DeviceRecords& records_;
    std::map<std::size_t, ViewBlock> blocks_;
    std::map<std::size_t, const VariableRecord*> byIndex_;
    ViewBlock device_;
    ViewBlock rest_;
};

}  // namespace

std::vector<ViewBlock> BoxesOf(std::string_view documentation, const DeviceRecords& records) {
    return BoxMaker(documentation, records).Make();
}

}  // namespace tovarek
