#include "convert/FromSet.h"

#include "base/Text.h"
#include "convert/Definitions.h"
#include "convert/DisplayUnits.h"
#include "convert/ElementOfType.h"
#include "convert/StoredNames.h"

namespace tovarek {
namespace {

// Members lie inside one another so deep at most; beyond, and behind so many of them in one type, bytes do.
constexpr int kDeepestPart = 900;
constexpr int kMostParts = 100000;

struct Texts {
    std::string name;
    std::string description;
    std::string unit;
};

std::string HexOf(const std::string& bytes) {
    std::string digits;
    for (const char byte : bytes)
        AppendHex(digits, static_cast<unsigned char>(byte), 2);
    return digits;
}

bool IsCharacter(TypeKind kind) {
    return kind == TypeKind::signedChar || kind == TypeKind::unsignedChar;
}

class SetConverter {
  public:
    SetConverter(const ResourceSetInput& set, const StandardCatalog* catalog, StandardTexts texts,
                 Definitions& definitions)
        : set_(set), names_(catalog, texts), definitions_(definitions) {
        names_.Use(set.types);
        names_.Use(set.texts);
    }

    std::vector<UserType> Types() {
        std::vector<UserType> unvts;
        for (std::size_t i = 0; i < set_.types.nvTypes.size(); ++i)
            if (const auto& type = set_.types.nvTypes[i])
                unvts.push_back(TypeOf(*type, true, i));
        std::vector<UserType> ucpts;
        for (std::size_t i = 0; i < set_.types.cpTypes.size(); ++i)
            if (const auto& type = set_.types.cpTypes[i]) {
                ucpts.push_back(TypeOf(*type, false, i));
                ucpts.back().rawMinimum = HexOf(type->minimum.value_or(""));
                ucpts.back().rawMaximum = HexOf(type->maximum.value_or(""));
                ucpts.back().rawInitial = HexOf(type->initial);
            }
        unvts.insert(unvts.end(), std::make_move_iterator(ucpts.begin()),
                     std::make_move_iterator(ucpts.end()));
        return unvts;
    }

  private:
    UserType TypeOf(const NvType& source, bool isUnvt, std::size_t position) {
        UserType type;
        type.isUnvt = isUnvt;
        type.scope = set_.types.header.scope;
        type.number = static_cast<std::uint16_t>(position + 1);
        type.wholeName = (isUnvt ? WholeNvName : WholeCpName)(type.scope, source.name);
        type.size = source.size;
        NameType(source.name, type);
        units_ = DisplayUnits(set_.formats, type.wholeName, PlacesOf(source.type), names_);
        members_ = 0;
        // The template's own types are called after their definition.
        mainName_ = isUnvt && type.scope == kOwnScope ? type.name : std::string();
        mayRefer_ = mainName_.empty();
        type.definition = Define(source.type, TextsOf(source), "", 0);
        definitions_.Comment(type.definition, type.wholeName);
        return type;
    }

    template <class Record>
    Texts TextsOf(const Record& record) const {
        return {TextIn(set_, names_, record.nameText), TextIn(set_, names_, record.description),
                TextIn(set_, names_, record.unit)};
    }

    // What is not told of a part is told of what it is made of.
    static Texts Merged(Texts outer, const Texts& inner) {
        outer.name = outer.name.empty() ? inner.name : outer.name;
        outer.description = outer.description.empty() ? inner.description : outer.description;
        outer.unit = outer.unit.empty() ? inner.unit : outer.unit;
        return outer;
    }

    const NvType* OwnTarget(const TypeDescription& type) const {
        const bool isOwn = type.kind == TypeKind::reference && type.target.scope != 0;
        return isOwn ? names_.Nv(type.target) : nullptr;
    }

    // ---- where units may be ----

    std::vector<UnitPlace> PlacesOf(const TypeDescription& type) {
        std::vector<UnitPlace> places;
        members_ = 0;
        AddPlaces(type, "", 0, places);
        return places;
    }

    void AddPlaces(const TypeDescription& type, const std::string& path, int depth,
                   std::vector<UnitPlace>& places) {
        if (depth > kDeepestPart || ++members_ > kMostParts)
            return;
        if (const NvType* target = OwnTarget(type))
            return AddPlaces(target->type, path, depth + 1, places);
        if (HasMembers(type.kind)) {
            for (const TypeMember& member : type.members)
                AddPlaces(member.type, path.empty() ? member.name : path + '.' + member.name, depth + 1,
                          places);
        } else {
            const TypeDescription& value = type.kind == TypeKind::array ? type.members[0].type : type;
            if (IsValue(value.kind))
                places.push_back({path, value.kind == TypeKind::enumeration || IsText(type)});
        }
    }

    // ---- definitions ----

    std::int32_t Define(const TypeDescription& type, const Texts& texts, const std::string& path, int depth) {
        if (depth > kDeepestPart || ++members_ > kMostParts)
            return DefineBytes(SizeOf(type), texts);
        switch (type.kind) {
            case TypeKind::reference:
                return DefineReference(type, texts, path, depth);
            case TypeKind::array:
                return DefineArray(type, texts, path);
            case TypeKind::structure:
            case TypeKind::unionKind:
                return DefineMembers(type, texts, path, depth);
            default:
                return DefineValue(type, texts, path, 0);
        }
    }

    // A definition that the rest of the type's description is added to.
    DefinedType Begin(ElementType kind, const Texts& texts, const std::string& path) {
        DefinedType defined;
        defined.content.elementType = kind;
        defined.content.longname = texts.name;
        defined.content.description = texts.description;
        defined.content.unit = texts.unit;
        if (path.empty())
            defined.name = mainName_;
        if (const auto units = units_.find(path); units != units_.end())
            defined.content.availableFormats = std::make_shared<CFormats>(units->second);
        return defined;
    }

    std::int32_t DefineBytes(std::uint32_t size, const Texts& texts) {
        DefinedType defined = Begin(elementUnsigned, texts, "");
        defined.content.length = 1;
        defined.content.arraySize = size > 1 ? static_cast<std::int32_t>(size) : 0;
        return definitions_.Add(std::move(defined));
    }

    std::int32_t DefineReference(const TypeDescription& type, const Texts& texts, const std::string& path,
                                 int depth) {
        if (const NvType* target = OwnTarget(type))
            return Define(target->type, Merged(texts, TextsOf(*target)), path, depth + 1);
        if (mayRefer_ || !path.empty())
            if (AddStandard(type, 0))
                return type.target.index;
        const NvType* target = type.target.scope == 0 ? names_.Nv(type.target) : nullptr;
        return target == nullptr ? DefineBytes(type.referencedSize, texts)
                                 : Define(target->type, texts, path, depth + 1);
    }

    bool AddStandard(const TypeDescription& type, std::int32_t count) {
        const StandardCatalog* catalog = names_.Catalog();
        const std::int32_t index = type.target.index;
        if (type.target.scope != 0 || index > kLargestStandardIndex || catalog == nullptr ||
            catalog->NvSize(index) != type.referencedSize)
            return false;
        const NvType* target = catalog->Nv(index);
        // A kind with members would count nothing in the length of a structure.
        const bool isSigned = target != nullptr && ElementOf(target->type.kind) == elementSigned;
        return definitions_.AddStandard(index, count, isSigned ? elementSigned : elementUnsigned,
                                        catalog->NvName(index));
    }

    std::int32_t DefineArray(const TypeDescription& type, const Texts& texts, const std::string& path) {
        const TypeMember& member = type.members[0];
        const TypeDescription* element = &member.type;
        Texts merged = Merged(texts, TextsOf(member));
        if (element->kind == TypeKind::reference && AddStandard(*element, type.count))
            return element->target.index;
        if (const NvType* target = OwnTarget(*element)) {
            merged = Merged(merged, TextsOf(*target));
            element = &target->type;
        }
        if (IsCharacter(element->kind) && type.count > 0) {
            DefinedType defined = Begin(elementTextual, merged, path);
            defined.content.length = type.count;
            return definitions_.Add(std::move(defined));
        }
        const bool isElement = IsValue(element->kind) && element->kind != TypeKind::bitField;
        return isElement && type.count > 0 ? DefineValue(*element, merged, path, type.count)
                                           : DefineBytes(SizeOf(type), merged);
    }

    std::int32_t DefineMembers(const TypeDescription& type, const Texts& texts, const std::string& path,
                               int depth) {
        if (type.members.empty())
            return DefineBytes(1, texts);
        DefinedType defined = Begin(ElementOf(type.kind), texts, path);
        for (const TypeMember& member : type.members) {
            const std::string below = path.empty() ? member.name : path + '.' + member.name;
            defined.members.emplace_back(member.name, Define(member.type, TextsOf(member), below, depth + 1));
        }
        return definitions_.Add(std::move(defined));
    }

    std::int32_t DefineValue(const TypeDescription& type, const Texts& texts, const std::string& path,
                             std::uint16_t count) {
        const ElementType kind = ElementOf(type.kind);
        DefinedType defined = Begin(kind, texts, path);
        CType& content = defined.content;
        content.length = static_cast<std::int32_t>(SizeOf(type));
        content.arraySize = count;
        if (kind == elementEnum)
            return DefineEnumeration(type, std::move(defined));
        SetLimits(type, content);
        if (kind == elementBits) {
            content.bitfieldOffset = type.bitOffset;
            content.bitfieldSize = type.bitWidth;
            content.bitfieldSigned = type.bitSigned;
        }
        if (kind == elementBitfield)
            content.hasMin = content.hasMax = false;  // it has the limits of its kind
        return definitions_.Add(std::move(defined));
    }

    std::int32_t DefineEnumeration(const TypeDescription& type, DefinedType defined) {
        const Enumeration* set = names_.EnumerationSet(type.target);
        if (set == nullptr || set->values.empty()) {
            defined.content.elementType = elementSigned;
            return definitions_.Add(std::move(defined));
        }
        defined.content.enumValues = std::make_shared<std::vector<CEnumValue>>();
        for (const EnumerationValue& value : set->values)
            defined.content.enumValues->push_back({.name = value.name, .value = value.value});
        const EnumName name = EnumNameOf(set->name);
        // The name of a type of the template stands behind ENUMS where the set was not called after it.
        defined.isNamedLast = !defined.name.empty() && name.number > 0 && name.name.empty();
        if (defined.name.empty())
            defined.name = name.name;
        return definitions_.Add(std::move(defined), name.number);
    }

    const ResourceSetInput& set_;
    ResourceNames names_;
    Definitions& definitions_;
    std::unordered_map<std::string, CFormats> units_;  // of the type at hand, by path
    std::string mainName_;                             // of the type at hand
    bool mayRefer_ = true;  // whether the type at hand may be a reference to a standard type itself
    int members_ = 0;
};

}  // namespace

std::string TextIn(const ResourceSetInput& set, const ResourceNames& names, const StringRef& string) {
    if (string.number == 0)
        return {};
    if (string.scope != set.texts.header.scope)
        return names.Text(string);
    const std::string* text = set.texts.Find(string.number);
    return text == nullptr ? "" : *text;
}

TypeInputs TypesOfSets(const std::vector<ResourceSetInput>& sets, const StandardCatalog* catalog,
                       StandardTexts texts) {
    Definitions definitions;
    for (const ResourceSetInput& set : sets)
        for (const std::optional<Enumeration>& enumeration : set.types.enumerations)
            if (enumeration)
                definitions.Reserve(EnumNameOf(enumeration->name).number);
    TypeInputs inputs;
    for (const ResourceSetInput& set : sets) {
        std::vector<UserType> types = SetConverter(set, catalog, texts, definitions).Types();
        inputs.types.insert(inputs.types.end(), std::make_move_iterator(types.begin()),
                            std::make_move_iterator(types.end()));
        std::string& id = inputs.programIds[set.types.header.scope];
        for (const std::uint8_t byte : set.types.header.programId)
            AppendHex(id, byte, 2);
    }
    inputs.definitions = definitions.Take();
    return inputs;
}

}  // namespace tovarek
