#include "inspect/Compare.h"

#include <algorithm>
#include <unordered_map>

#include "base/Text.h"
#include "inspect/InspectText.h"
#include "inspect/TypeTree.h"

namespace tovarek {
namespace {

// The children of a node under names that are all different.
struct Keyed {
    std::vector<std::string> keys;
    std::unordered_map<std::string, const InspectNode*> nodes;
};

Keyed KeyedChildren(const InspectNode& node) {
    Keyed keyed;
    std::unordered_map<std::string, int> seen;
    for (const InspectNode& child : node.children) {
        // The second of a name, and every one without a name, is told apart by its number.
        std::string key = child.name;
        int& occurrence = seen[child.name];
        do {
            if (++occurrence > 1 || child.name.empty())
                key = child.name + '#' + std::to_string(occurrence);
        } while (!keyed.nodes.emplace(key, &child).second);
        keyed.keys.push_back(std::move(key));
    }
    return keyed;
}

// A node as one value.
InspectNode::Value Summary(const InspectNode& node) {
    if (node.shape == InspectNode::Shape::value)
        return node.value;
    return OneLineText(node, true);
}

std::string Joined(const std::vector<std::string>& keys) {
    std::string text;
    for (const std::string& key : keys)
        text += (text.empty() ? "" : ", ") + key;
    return text;
}

class Comparer {
  public:
    void Nodes(const InspectNode& before, const InspectNode& after) {
        if (before.meaning != nullptr && after.meaning != nullptr) {
            Texts(*before.meaning, *after.meaning);
            return;
        }
        if (before.shape != after.shape || before.shape == InspectNode::Shape::value) {
            if (before.shape != after.shape || before.value != after.value)
                Report(Summary(before), Summary(after));
            return;
        }
        const Keyed old = KeyedChildren(before);
        const Keyed now = KeyedChildren(after);
        for (const std::string& key : old.keys) {
            const InspectNode& child = *old.nodes.at(key);
            const auto found = now.nodes.find(key);
            if (child.derived && (found == now.nodes.end() || found->second->derived))
                continue;
            const std::size_t length = Enter(before, key);
            if (found == now.nodes.end())
                Report(Summary(child), {});
            else
                Nodes(child, *found->second);
            path_.resize(length);
        }
        for (const std::string& key : now.keys) {
            if (old.nodes.count(key) != 0 || now.nodes.at(key)->derived)
                continue;
            const std::size_t length = Enter(after, key);
            Report({}, Summary(*now.nodes.at(key)));
            path_.resize(length);
        }
        if (before.shape == InspectNode::Shape::sequence)
            Order(old, now);
    }
    std::vector<Difference> Take() { return std::move(differences_); }

  private:
    std::size_t Enter(const InspectNode& parent, const std::string& key) {
        const std::size_t length = path_.size();
        if (parent.IsList())
            path_ += '[' + Printable(key) + ']';
        else
            path_ += (path_.empty() ? "" : ".") + key;
        return length;
    }

    void Report(InspectNode::Value before, InspectNode::Value after) {
        differences_.push_back({path_, std::move(before), std::move(after)});
    }

    // Two references differ by what they stand for, whatever their numbers.
    void Texts(const std::string& before, const std::string& after) {
        if (before == after)
            return;
        const std::string path = path_;
        if (path_.ends_with(kStringName))
            path_.replace(path_.size() - kStringName.size(), kStringName.size(), kTextName);
        Report(before, after);
        path_ = path;
    }

    // What both sides have must stand in the same order.
    void Order(const Keyed& old, const Keyed& now) {
        std::vector<std::string> before;
        std::vector<std::string> after;
        std::copy_if(old.keys.begin(), old.keys.end(), std::back_inserter(before),
                     [&now](const std::string& key) { return now.nodes.count(key) != 0; });
        std::copy_if(now.keys.begin(), now.keys.end(), std::back_inserter(after),
                     [&old](const std::string& key) { return old.nodes.count(key) != 0; });
        if (before == after)
            return;
        const std::size_t length = path_.size();
        path_ += ".order";
        Report(Joined(before), Joined(after));
        path_.resize(length);
    }

    std::string path_;
    std::vector<Difference> differences_;
};

}  // namespace

std::vector<Difference> Compare(const InspectNode& before, const InspectNode& after) {
    Comparer comparer;
    comparer.Nodes(before, after);
    return comparer.Take();
}

}  // namespace tovarek
