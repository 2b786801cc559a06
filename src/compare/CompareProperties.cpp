#include <algorithm>
#include <map>
#include <optional>

#include "compare/Documentation.h"
#include "compare/RecordChanges.h"
#include "compare/TypeChanges.h"
#include "formats/xif/XifProperties.h"

namespace tovarek {
namespace {

struct PropertyList {
    explicit PropertyList(const XifFile& file) : declared(ReadXifTemplate(file)) {
        values.resize(declared.properties.size());
        const XifSection* const declaring = XifTemplateSection(file);
        for (const XifSection& section : file.sections) {
            if (&section == declaring)
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
    PropertyComparison(const InterfaceSide& before, const InterfaceSide& after, const ResourceNames& names,
                       ChangeList& changes)
        : before_(before.file),
          after_(after.file),
          typesBefore_(before.types),
          typesAfter_(after.types),
          names_(names),
          changes_(changes) {}

    OwnTypeCount Compare() {
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
        return count_;
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
            property.scope == "0" ? StandardPropertyName(TypeNumberOf(property.type), names_) : std::string();
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
            changes_.Tell(InterfaceRule::propertyValue, record, "value",
                          ShownBytes(typesBefore_.ValueOf(old), *valueBefore),
                          ShownBytes(typesAfter_.ValueOf(now), *valueAfter));
        if (old.isKnown && now.isKnown && old.scope != "0")
            CompareOwnTypes(record, typesBefore_.OfProperty(old), typesAfter_.OfProperty(now), changes_,
                            count_);
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
    const OwnTypesOfDevice& typesBefore_;
    const OwnTypesOfDevice& typesAfter_;
    const ResourceNames& names_;
    ChangeList& changes_;
    OwnTypeCount count_;
};

std::string LayoutOf(const XifFile& file) {
    std::string layout;
    for (const XifSection& section : file.sections)
        layout += (layout.empty() ? "" : ", ") + section.name + ' ' + NumberText(section.index) + ' ' +
                  NumberText(section.type) + (section.length ? ' ' + NumberText(*section.length) : "");
    return layout;
}

}  // namespace

OwnTypeCount CompareProperties(const InterfaceSide& before, const InterfaceSide& after,
                               const ResourceNames& names, ChangeList& changes) {
    const OwnTypeCount count = PropertyComparison(before, after, names, changes).Compare();
    changes.Expect(InterfaceRule::propertyFiles, "files of properties", "files", LayoutOf(before.file),
                   LayoutOf(after.file));
    return count;
}

}  // namespace tovarek
