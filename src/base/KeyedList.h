// A list keyed by name: keeps the order of insertion and finds a member by its key in constant time.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tovarek {

template <class Member>
class KeyedList {
  public:
    // Appends `member` under `key` and answers true; a key that is taken changes nothing and answers false.
    bool Add(const std::string& key, Member member) {
        if (!positions_.try_emplace(key, members_.size()).second)
            return false;
        members_.push_back(std::move(member));
        return true;
    }

    // The member under `key`, or null. Valid until the next Add.
    const Member* Find(const std::string& key) const {
        const auto found = positions_.find(key);
        return found == positions_.end() ? nullptr : &members_[found->second];
    }
    Member* Find(const std::string& key) {
        return const_cast<Member*>(static_cast<const KeyedList*>(this)->Find(key));
    }

    std::size_t size() const { return members_.size(); }
    bool empty() const { return members_.empty(); }
    auto begin() const { return members_.begin(); }
    auto end() const { return members_.end(); }
    auto begin() { return members_.begin(); }
    auto end() { return members_.end(); }

  private:
    std::vector<Member> members_;
    std::unordered_map<std::string, std::size_t> positions_;
};

}  // namespace tovarek
