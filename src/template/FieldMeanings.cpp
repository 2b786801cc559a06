#include "template/FieldMeanings.h"

#include <algorithm>
#include <vector>

#include "base/Nearest.h"
#include "base/Text.h"
#include "control/StandardCatalog.h"

namespace tovarek {
namespace {

// What a number of a field means, and the words that people write in its place.
struct Meaning {
    std::string_view iniKey;
    std::int32_t value;
    std::string_view meaning;
    std::string_view words;  // in capitals, each with blanks around it
};
constexpr Meaning kMeanings[] = {
    {"direction", 0, "an input", " INPUT IN "},
    {"direction", 1, "an output", " OUTPUT OUT "},
    {"defaultService", 0, "acknowledged", " ACKNOWLEDGED ACKD ACK "},
    {"defaultService", 1, "repeated", " REPEATED UNACKD_RPT RPT "},
    {"defaultService", 2, "unacknowledged", " UNACKNOWLEDGED UNACKD UNACK "},
    {"type", 0, "a user type", ""},
};
// Of every other field.
constexpr Meaning kFlags[] = {
    {"", 0, "", " NO FALSE OFF "},
    {"", 1, "", " YES TRUE ON "},
};

std::string Mend(const FieldName& field, const std::string& value) {
    if (field.xmlName.empty())
        return "write " + std::string(field.iniKey) + "=" + value;
    const std::string name(field.xmlName);
    return "write <" + name + ">" + value + "</" + name + ">";
}

// Whether it is the name of an element of the format file, such as SNVT_300.
bool NamesElement(std::string_view typed, std::string_view number) {
    constexpr std::size_t kMostDigits = 5;
    return number.size() < typed.size() && !number.empty() && number.size() <= kMostDigits &&
           std::all_of(number.begin(), number.end(), IsDigit);
}

// The type that a word means.
Advice TypeMend(const CCatalog* catalog, const FieldName& field, std::string_view typed) {
    if (const std::string_view own = typed.substr(typed.find('_') + 1); NamesElement(typed, own))
        return {Mend(field, std::string(own)), std::string(own)};
    const StandardCatalog* const standard = catalog == nullptr ? nullptr : catalog->types.Catalog();
    if (standard == nullptr)
        return {};
    const CatalogEntry type = standard->NearestNv(typed);
    if (type.name.empty())
        return {};
    const std::string number = std::to_string(type.index);
    // Of a misspelt name another type may be meant.
    const bool isSure = UpperCase(type.name) == UpperCase(typed);
    return {type.name + " is " + number + ": " + Mend(field, number), isSure ? number : std::string()};
}

Advice WordMend(const FieldName& field, std::string_view typed, bool hasMeanings) {
    const std::string word = " " + UpperCase(typed) + " ";
    for (const Meaning& row : kMeanings)
        if (row.iniKey == field.iniKey && row.words.find(word) != std::string_view::npos)
            return {"for " + std::string(row.meaning) + " " + Mend(field, std::to_string(row.value)),
                    std::to_string(row.value)};
    for (const Meaning& row : kFlags)
        if (!hasMeanings && row.words.find(word) != std::string_view::npos)
            return {Mend(field, std::to_string(row.value)), std::to_string(row.value)};
    return {};
}

}  // namespace

Advice ExplainNumber(const CCatalog* catalog, const FieldName& field, std::string_view typed,
                     std::int32_t read) {
    std::string meaning;
    bool hasMeanings = false;
    for (const Meaning& row : kMeanings) {
        hasMeanings = hasMeanings || row.iniKey == field.iniKey;
        if (row.iniKey == field.iniKey && row.value == read)
            meaning = row.meaning;
    }
    Advice mend;
    if (!typed.empty())
        mend = field.iniKey == "type" ? TypeMend(catalog, field, typed) : WordMend(field, typed, hasMeanings);
    if (!meaning.empty())
        mend.text.insert(0, mend.text.empty() ? meaning : meaning + "; ");
    return mend;
}

std::string_view DirectionMeant(std::string_view typed) {
    const std::string word = " " + UpperCase(typed) + " ";
    for (const Meaning& row : kMeanings)
        if (row.iniKey == "direction" &&
            (typed == std::to_string(row.value) || row.words.find(word) != std::string_view::npos))
            return row.value == 0 ? "INPUT" : "OUTPUT";
    return {};
}

}  // namespace tovarek
