#include <algorithm>
#include <map>
#include <optional>

#include "compare/Documentation.h"
#include "compare/RecordChanges.h"
#include "formats/xif/XifProperties.h"
#include "values/ValueTypes.h"

namespace tovarek {
namespace {

constexpr std::int64_t kTemplateType = 2;

std::uint16_t NumberOf(const std::string& digits) {
    constexpr std::size_t kMostDigits = 4;  // there is no type beyond
    std::uint16_t number = 0;
    for (const char c : digits.size() > kMostDigits ? std::string() : digits)
        number = static_cast<std::uint16_t>(number * 10 + (c - '0'));
    return number;
}

struct PropertyList {
    explicit PropertyList(const XifFile& file) : declared(ReadXifTemplate(file)) {
        values.resize(declared.properties.size());
        for (const XifSection& section : file.sections) {
            if (section.type == kTemplateType)
                continue;
            bytes += section.content.bytes;
            for (const XifPropertyValue& value : XifPropertyValues(file, section, declared.properties))
                values[static_cast<std::size_t>(value.property - declared.properties.data())] = value.bytes;
        }
    }

    XifPropertyTemplate declared;
    std::vector<std::optional<std::string_view>> values;  // by property
    std::string bytes;                                    // of all files of values
};

// The bytes of the flags, whichever way they are written.
std::string Flags(const XifProperty& property) {
    return DocumentationBytes(property.flags);
}

class PropertyComparison {
  public:
    PropertyComparison(const XifFile& before, const XifFile& after, const ResourceNames& names,
                       ChangeList& changes)
        : before_(before), after_(after), names_(names), changes_(changes) {}

    void Compare() {
        const std::vector<XifProperty>& old = before_.declared.properties;
        const std::vector<XifProperty>& now = after_.declared.properties;
        changes_.Expect(InterfaceRule::propertyVersion, "configuration properties", "version",
                        before_.declared.version, after_.declared.version);
        const Alignment alignment = Align(Keys(old), Keys(now), [&](std::size_t i, std::size_t j) {
            return old[i].isKnown && old[i].scope == now[j].scope && old[i].type == now[j].type ? 1 : 0;
        });
        const std::vector<std::string> titles = Titles(now);
        TellAlignment(alignment,
                      {InterfaceRule::propertyAdded, InterfaceRule::propertyRemoved,
                       InterfaceRule::propertyMoved, InterfaceRule::propertiesSwapped},
                      Titles(old), titles, changes_);
        for (const AlignedPair& pair : alignment.pairs)
            ComparePair(titles[pair.after], pair);
        CompareBytes();
    }

  private:
    // What tells a property from the others.
    static std::vector<std::string> Keys(const std::vector<XifProperty>& properties) {
        std::vector<std::string> keys;
        keys.reserve(properties.size());
        for (const XifProperty& property : properties)
            keys.push_back(property.isKnown ? property.appliesTo + ',' + property.select + ',' +
                                                  property.scope + ',' + property.type
                                            : property.record);
        return keys;
    }

    std::string TypeName(const XifProperty& property) const {
        if (!property.isKnown)
            return Printable(property.record);
        const std::string name =
            property.scope == "0" ? names_.CpName({0, NumberOf(property.type)}) : std::string();
        return name.empty() ? "type " + property.type + " of scope " + property.scope : name;
    }

    std::vector<std::string> Titles(const std::vector<XifProperty>& properties) const {
        std::vector<std::string> titles;
        titles.reserve(properties.size());
        for (const XifProperty& property : properties)
            titles.push_back("configuration property " + std::to_string(titles.size() + 1) + " (" +
                             TypeName(property) + ")");
        return titles;
    }

    void ComparePair(const std::string& record, const AlignedPair& pair) {
        const XifProperty& old = before_.declared.properties[pair.before];
        const XifProperty& now = after_.declared.properties[pair.after];
        const bool isSame = old.isKnown == now.isKnown && old.appliesTo == now.appliesTo &&
                            old.select == now.select && Flags(old) == Flags(now) &&
                            old.length == now.length && old.count == now.count;
        if (!isSame)
            changes_.Tell(InterfaceRule::propertyChanged, record, "declaration", old.record, now.record);
        changes_.Expect(InterfaceRule::propertyLimits, record, "limits", old.range, now.range);
        changes_.Expect(InterfaceRule::propertyName, record, "name", old.name, now.name);
        const std::optional<std::string_view>& valueBefore = before_.values[pair.before];
        const std::optional<std::string_view>& valueAfter = after_.values[pair.after];
        if (valueBefore && valueAfter && *valueBefore != *valueAfter)
            changes_.Tell(InterfaceRule::propertyValue, record, "value", ValueText(old, *valueBefore),
                          ValueText(now, *valueAfter));
    }

    // Scaled, with its unit, where the catalog knows the type; else the bytes.
    std::string ValueText(const XifProperty& property, std::string_view bytes) const {
        const StandardCatalog* const catalog = names_.Catalog();
        const CpType* const type =
            property.scope == "0" && catalog != nullptr ? catalog->Cp(NumberOf(property.type)) : nullptr;
        if (type == nullptr)
            return HexText(bytes);
        const ValueType valueType = ValueTypeOf(TypeName(property), *type, names_);
        const std::size_t size = SizeOf(valueType.type);
        if (size == 0 || bytes.empty() || bytes.size() % size != 0)
            return HexText(bytes);
        std::string text;
        for (std::size_t at = 0; at < bytes.size(); at += size) {
            DecodedValue value;
            std::vector<std::string> notes;
            if (!DecodeValue(valueType, bytes.substr(at, size), names_, value, notes).Ok())
                return HexText(bytes);
            text += (text.empty() ? "" : ", ") + WrittenValue(value);
        }
        return text;
    }

    // Where the sizes do not add up nobody knows which byte is whose.
    void CompareBytes() {
        const auto isKnown = [](const auto& value) { return value.has_value(); };
        const auto all = [&](const PropertyList& list) {
            return std::all_of(list.values.begin(), list.values.end(), isKnown);
        };
        if (!(all(before_) && all(after_)) && before_.bytes != after_.bytes)
            changes_.Tell(InterfaceRule::propertyValue, "values of the configuration properties", "bytes",
                          std::to_string(before_.bytes.size()) + " bytes: " + HexText(before_.bytes),
                          std::to_string(after_.bytes.size()) + " bytes: " + HexText(after_.bytes));
    }

    PropertyList before_;
    PropertyList after_;
    const ResourceNames& names_;
    ChangeList& changes_;
};

std::string LayoutOf(const XifFile& file) {
    std::string layout;
    for (const XifSection& section : file.sections)
        layout += (layout.empty() ? "" : ", ") + section.name + ' ' + NumberText(section.index) + ' ' +
                  NumberText(section.type) + (section.length ? ' ' + NumberText(*section.length) : "");
    return layout;
}

}  // namespace

void CompareProperties(const XifFile& before, const XifFile& after, const ResourceNames& names,
                       ChangeList& changes) {
    PropertyComparison(before, after, names, changes).Compare();
    changes.Expect(InterfaceRule::propertyFiles, "files of properties", "files", LayoutOf(before),
                   LayoutOf(after));
}

bool HasOwnPropertyTypes(const XifFile& file) {
    const XifPropertyTemplate declared = ReadXifTemplate(file);
    return std::any_of(declared.properties.begin(), declared.properties.end(),
                       [](const XifProperty& property) { return property.isKnown && property.scope != "0"; });
}

}  // namespace tovarek
