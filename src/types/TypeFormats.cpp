// Display formats of types: their names, and the values that a format shows.
#include <unordered_set>

#include "formats/format/DisplayFormat.h"
#include "types/FormatLines.h"

namespace tovarek {
namespace {

class NameCollector {
  public:
    explicit NameCollector(std::vector<std::string>& names) : names_(names) {
        seen_.insert(names.begin(), names.end());
    }

    void Collect(const CType& type) {
        // Deliberate: what a structure itself lists under UNITS, or has taken over for standard types among
        // its members, is not shown; formats of the members' own are.
        if (!type.isReference() && type.HasMembers()) {
            for (const CType& member : type.elements)
                Collect(member);
            return;
        }
        // Members of one definition share their formats.
        if (!type.availableFormats || !lists_.insert(type.availableFormats.get()).second)
            return;
        for (const CFormat& format : *type.availableFormats)
            if (seen_.insert(format.name).second)
                names_.push_back(format.name);
    }

  private:
    std::vector<std::string>& names_;
    std::unordered_set<std::string> seen_;
    std::unordered_set<const CFormats*> lists_;
};

bool ShowsNumber(std::string_view format) {
    return format == "%d" || format == "%f";
}

// The catalog's conversions may carry a width and the like; ours are plain.
std::string_view PlainConversion(const std::string& conversion) {
    switch (conversion.empty() ? '\0' : conversion.back()) {
        case 'e':
        case 'f':
        case 'g':
            return "%f";
        case 'm':
            return "%m";
        case 'c':
        case 's':
            return "%s";
        default:
            return "%d";
    }
}

// A value of the user's own type.
CParam OwnParameter(const CType& type, const std::string& formatName, std::string_view prefix) {
    CParam param;
    param.expression.append(prefix).append(type.name);
    switch (type.elementType) {
        case elementEnum:
            param.format = "%m";
            return param;
        case elementTextual:
            param.format = "%s";
            return param;
        case elementFloat:
            param.format = "%f";
            break;
        default:
            param.format = ConversionOfInteger(type.a_coef, type.b_coef);
    }
    const CFormat* format =
        formatName.empty() || !type.availableFormats ? nullptr : type.availableFormats->Find(formatName);
    if (format != nullptr) {
        param.withFormat = true;
        param.formatCoefA = format->format_a_coef;
        param.formatCoefC = format->format_c_coef;
        param.comment = format->unit;
    }
    return param;
}

// A value of a standard type. `path` is that of the standard type.
CParam StandardParameter(const FormatParameter& value, std::string_view path, bool isNamed) {
    CParam param;
    param.format = PlainConversion(value.conversion);
    param.expression = path;
    if (!path.empty() && !value.expression.empty() && value.expression.front() != '[')
        param.expression += '.';
    param.expression += value.expression;
    const bool shows = isNamed || value.factor != 1 || value.offset != 0 || !value.unit.empty();
    if (ShowsNumber(param.format) && shows) {
        param.withFormat = true;
        param.formatCoefA = value.factor;
        param.formatCoefC = value.offset;
        param.comment = value.unit;
    }
    return param;
}

void AppendStandard(const CType& type, const std::string& formatName, std::vector<CParam>& params,
                    std::string_view prefix, StandardFormats& catalog, bool isFirst) {
    // Named display formats of a standard type belong to the main type; as a member it always shows its
    // default.
    const std::vector<FormatParameter>* named =
        isFirst && !formatName.empty() ? catalog.Named(type.typeIndex, formatName) : nullptr;
    std::string path(prefix);
    path += type.name;
    for (const FormatParameter& value : named != nullptr ? *named : catalog.Default(type.typeIndex)) {
        // Paths begin inside the main type; only one that is a single value is called by its own name.
        const bool isInside = isFirst && !value.expression.empty();
        params.push_back(StandardParameter(value, isInside ? std::string_view() : path, named != nullptr));
    }
}

}  // namespace

void CType::AnalyseFormat(CType& mainType) const {
    NameCollector(mainType.formats).Collect(*this);
}

void CType::AnalyseFormatLine(const std::string& formatName, std::vector<CParam>& params, std::string& prefix,
                              StandardFormats& catalog, bool isFirst) const {
    if (isReference()) {
        AppendStandard(*this, formatName, params, prefix, catalog, isFirst);
        return;
    }
    // Deliberate: a plain signed number has no parameter, so the format file says nothing of it.
    if (elementType >= elementUnsigned && elementType <= elementBitfield && !HasMembers())
        params.push_back(OwnParameter(*this, formatName, prefix));
    if (!HasMembers())
        return;
    const std::size_t ownPrefix = prefix.size();
    if (!isFirst)
        prefix.append(name).append(".");
    for (const CType& member : elements)
        member.AnalyseFormatLine(formatName, params, prefix, catalog, false);
    prefix.resize(ownPrefix);
}

void CType::AddToFormatFile(FormatLines& file) const {
    file.WriteGroup(*this, {});
    for (const std::string& formatName : formats)
        file.WriteGroup(*this, formatName);
}

}  // namespace tovarek
