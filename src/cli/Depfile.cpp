#include "cli/Depfile.h"

#include "base/Text.h"
#include "cli/Assignments.h"

namespace tovarek {
namespace {

std::string Escaped(const std::string& path) {
    std::string text;
    for (const char each : path) {
        if (each == '\n' || each == '\r')
            throw WrongUse("the name '" + Excerpt(path) +
                           "' has a line break, which no depfile can hold; rename the file");
        if (each == ' ' || each == '\t' || each == '#' || each == ':')
            text += '\\';
        if (each == '$')
            text += '$';
        text += each == '\\' ? '/' : each;
    }
#ifdef _WIN32
    // The colon behind a drive's letter is none that divides.
    if (text.size() > 2 && text[1] == '\\' && text[2] == ':')
        text.erase(1, 1);
#endif
    return text;
}

}  // namespace

std::string DepfileText(const std::string& target, const std::vector<std::string>& inputs) {
    std::string text = Escaped(target) + ":";
    for (const std::string& input : inputs)
        text += " \\\n  " + Escaped(input);
    return text + "\n";
}

}  // namespace tovarek
