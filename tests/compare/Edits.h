// Changes of a device as its makers make them: of INI templates and XIF files.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "Scratch.h"

namespace tovarek::test {

using Edit = std::function<std::string(std::string)>;

// All places; the text has to be there.
inline Edit Replace(std::string from, std::string to) {
    return [=](std::string text) {
        std::size_t at = text.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        for (; at != std::string::npos; at = text.find(from, at + to.size()))
            text.replace(at, from.size(), to);
        return text;
    };
}

inline Edit Both(Edit first, Edit second) {
    return [=](std::string text) { return second(first(std::move(text))); };
}

// An edit of the sections nv1, nv2, ... (or tag, cp) of an INI template as a list.
using Sections = std::vector<std::string>;
inline Edit OfSections(const std::string& prefix, std::function<void(Sections&)> change) {
    return [=](std::string text) {
        Sections sections;
        const auto header = [&](std::size_t number) { return "[" + prefix + std::to_string(number) + "]\n"; };
        for (std::size_t at = text.find(header(1)); at != std::string::npos;
             at = text.find(header(sections.size() + 1))) {
            const std::size_t body = at + header(sections.size() + 1).size();
            const std::size_t end = std::min(text.find("\n[", body), text.size());
            sections.push_back(text.substr(body, end - body) + '\n');
            text.erase(at, end - at);
        }
        change(sections);
        const std::string key = prefix == "nv"    ? "numberOfStaticNvs="
                                : prefix == "tag" ? "numberOfTags="
                                                  : "numberOfCp=";
        const std::size_t count = text.find(key) + key.size();
        text.replace(count, text.find('\n', count) - count, std::to_string(sections.size()));
        for (std::size_t i = 0; i < sections.size(); ++i)
            text += "\n" + header(i + 1) + sections[i];
        return text;
    };
}
inline Edit Remove(const std::string& prefix, std::ptrdiff_t number) {
    return OfSections(prefix, [=](Sections& all) { all.erase(all.begin() + number - 1); });
}
inline Edit Insert(const std::string& prefix, std::ptrdiff_t number, std::string section) {
    return OfSections(prefix, [=](Sections& all) { all.insert(all.begin() + number - 1, section); });
}
inline Edit Swap(const std::string& prefix, std::size_t first, std::size_t second) {
    return OfSections(prefix, [=](Sections& all) { std::swap(all[first - 1], all[second - 1]); });
}
inline Edit Move(const std::string& prefix, std::ptrdiff_t from, std::ptrdiff_t to) {
    return OfSections(prefix, [=](Sections& all) {
        const std::string section = all.begin()[from - 1];
        all.erase(all.begin() + from - 1);
        all.insert(all.begin() + to - 1, section);
    });
}

}  // namespace tovarek::test
