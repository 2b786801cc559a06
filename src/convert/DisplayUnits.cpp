#include "convert/DisplayUnits.h"

#include <algorithm>

namespace tovarek {
namespace {

// What the format shows of the value at `path`; null for nothing.
const FormatParameter* ShownAt(const DisplayFormat& format, const UnitPlace& place) {
    if (place.path.empty())
        return format.parameters.size() == 1 ? &format.parameters.front() : nullptr;
    const auto found = std::find_if(
        format.parameters.begin(), format.parameters.end(), [&](const FormatParameter& parameter) {
            return parameter.expression == place.path || parameter.expression == place.path + "[0]";
        });
    return found == format.parameters.end() ? nullptr : &*found;
}

}  // namespace

std::unordered_map<std::string, CFormats> DisplayUnits(const FormatFile& file, std::string_view wholeName,
                                                       const std::vector<UnitPlace>& places,
                                                       const ResourceNames& names) {
    std::unordered_map<std::string, CFormats> units;
    const auto number = std::find_if(places.begin(), places.end(), [](const auto& p) { return !p.isWord; });
    if (places.empty())
        return units;
    // Words share their definition with other types, so numbers come first.
    std::string latest = number == places.end() ? places.front().path : number->path;
    for (const DisplayFormat& format : file.formats) {
        if (format.type != wholeName || format.name.empty() || format.form != "text")
            continue;
        bool isShown = false;
        for (const UnitPlace& place : places) {
            const FormatParameter* shown = place.isWord ? nullptr : ShownAt(format, place);
            if (shown == nullptr)
                continue;
            CFormat unit{format.name, shown->unit, shown->factor, shown->offset};
            if (unit.unit.empty())
                unit.unit = names.Text(shown->unitText);
            if (unit.unit.empty() && unit.format_a_coef == 1 && unit.format_c_coef == 0 &&
                !place.path.empty())
                continue;
            units[place.path].Add(format.name, std::move(unit));
            if (!isShown)
                latest = place.path;
            isShown = true;
        }
        if (!isShown)
            units[latest].Add(format.name, {format.name, {}, 1, 0});
    }
    return units;
}

}  // namespace tovarek
