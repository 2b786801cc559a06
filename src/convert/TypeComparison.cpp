#include "convert/TypeComparison.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "convert/FromSet.h"
#include "listing/KindNames.h"

namespace tovarek {
namespace {

// Further down nobody reads on, and a damaged file may refer in circles.
constexpr int kDeepestCompared = 1000;
constexpr int kMostCompared = 100000;

std::string KindText(const TypeDescription& type) {
    std::string text(kKindNames.at(static_cast<std::size_t>(type.kind)));
    if (type.kind == TypeKind::array && !type.members.empty())
        text += " of " + std::to_string(type.count) + ' ' + KindText(type.members[0].type);
    return text;
}

std::string Field(const std::string& path, const char* field) {
    return path.empty() ? field : path + ", " + field;
}

std::string InvalidText(const TypeDescription& type) {
    if (type.invalid)
        return std::to_string(*type.invalid);
    return type.floatInvalid ? RealText(*type.floatInvalid) : "none";
}

}  // namespace

SetView::SetView(const ResourceSetInput& input, const StandardCatalog* catalog, StandardTexts texts)
    : set(input), names(catalog, texts) {
    names.Use(set.types);
    names.Use(set.texts);
}

void TypeComparison::Lose(const std::string& field, const std::string& value, const std::string& reason) {
    losses_.push_back({record_, field, std::string(Excerpt(value)), reason});
}

void TypeComparison::Number(const std::string& path, const char* field, std::int64_t given,
                            std::int64_t made) {
    if (given != made)
        Lose(Field(path, field), std::to_string(given), "a generation writes " + std::to_string(made));
}

template <class Record>
TypeComparison::Resolved TypeComparison::Resolve(const SetView& view, const Record& record) {
    Resolved found{&record.type, record.nameText, record.description, record.unit};
    const auto take = [&](const auto& inner) {
        found.type = &inner.type;
        for (const auto& [text, more] : {std::pair{&found.name, inner.nameText},
                                         {&found.description, inner.description},
                                         {&found.unit, inner.unit}})
            *text = text->number == 0 ? more : *text;
    };
    for (int i = 0; i < kDeepestCompared && found.type->kind == TypeKind::reference; ++i) {
        const NvType* target = found.type->target.scope == 0 ? nullptr : view.names.Nv(found.type->target);
        if (target == nullptr)
            break;
        take(*target);
    }
    return found;
}

void TypeComparison::Types(const NvType& given, const NvType& made) {
    Number("", "size", given.size, made.size);
    Descriptions(Resolve(given_, given), Resolve(made_, made), "", 0);
}

void TypeComparison::Texts(const Resolved& given, const Resolved& made, const std::string& path) {
    for (const auto& [field, string, now] : {std::tuple{"name text", given.name, made.name},
                                             {"description", given.description, made.description},
                                             {"unit", given.unit, made.unit}}) {
        const std::string text = TextIn(given_.set, given_.names, string);
        const std::string written = TextIn(made_.set, made_.names, now);
        if (string.number != 0 && text.empty() && string.scope != given_.set.types.header.scope)
            Lose(Field(path, field), std::to_string(string.scope) + '-' + std::to_string(string.number),
                 "the text stands in files of another scope, which are not given");
        else if (text != written)
            Lose(Field(path, field), text,
                 made.type->kind == TypeKind::reference
                     ? "a reference to a standard type has the texts of that"
                     : "a generation writes \"" + std::string(Excerpt(written)) + '"');
    }
}

void TypeComparison::Descriptions(const Resolved& given, const Resolved& made, const std::string& path,
                                  int depth) {
    if (depth > kDeepestCompared || ++members_ > kMostCompared)
        return;
    const TypeDescription& old = *given.type;
    const TypeDescription& now = *made.type;
    if (old.kind == TypeKind::array && now.kind == TypeKind::array && !old.members.empty() &&
        !now.members.empty()) {
        Number(path, "array size", old.count, now.count);
        Resolved element = Resolve(given_, old.members[0]);
        Resolved written = Resolve(made_, now.members[0]);
        // The texts of an array stand on it or on its element.
        for (StringRef Resolved::*text : {&Resolved::name, &Resolved::description, &Resolved::unit}) {
            element.*text = (given.*text).number != 0 ? given.*text : element.*text;
            written.*text = (made.*text).number != 0 ? made.*text : written.*text;
        }
        return Descriptions(element, written, path, depth + 1);
    }
    Texts(given, made, path);
    if (old.kind != now.kind)
        return Lose(Field(path, "kind"), KindText(old),
                    "inputs have no such kind at this place; it becomes " + KindText(now));
    if (HasMembers(old.kind))
        return Members(old, now, path, depth);
    Values(old, now, path);
}

void TypeComparison::Members(const TypeDescription& given, const TypeDescription& made,
                             const std::string& path, int depth) {
    Number(path, "members", static_cast<std::int64_t>(given.members.size()),
           static_cast<std::int64_t>(made.members.size()));
    for (std::size_t i = 0; i < std::min(given.members.size(), made.members.size()); ++i) {
        const TypeMember& old = given.members[i];
        const TypeMember& now = made.members[i];
        const std::string below = path.empty() ? old.name : path + '.' + old.name;
        if (old.name != now.name)
            Lose(Field(below, "name"), old.name,
                 "no XML element can have this name; it becomes '" + now.name + '\'');
        Descriptions(Resolve(given_, old), Resolve(made_, now), below, depth + 1);
    }
}

void TypeComparison::Values(const TypeDescription& given, const TypeDescription& made,
                            const std::string& path) {
    const bool isEnumeration = given.kind == TypeKind::enumeration;
    if (isEnumeration)
        Enumerations(given, made, path);
    Number(path, isEnumeration ? "smallest value" : "raw minimum", given.minimum, made.minimum);
    Number(path, isEnumeration ? "largest value" : "raw maximum", given.maximum, made.maximum);
    Number(path, "A", given.a, made.a);
    Number(path, "B", given.b, made.b);
    Number(path, "C", given.c, made.c);
    Number(path, "bit offset", given.bitOffset, made.bitOffset);
    Number(path, "bits", given.bitWidth, made.bitWidth);
    Number(path, "sign", given.bitSigned ? 1 : 0, made.bitSigned ? 1 : 0);
    Number(path, "referred size", given.referencedSize, made.referencedSize);
    if (given.kind == TypeKind::reference && given.target != made.target)
        Lose(Field(path, "referred type"), std::to_string(given.target.index), "it refers elsewhere");
    if (given.floatMinimum != made.floatMinimum || given.floatMaximum != made.floatMaximum)
        Lose(Field(path, "limits"), RealText(given.floatMinimum) + " to " + RealText(given.floatMaximum),
             "they become " + RealText(made.floatMinimum) + " to " + RealText(made.floatMaximum));
    if (given.invalid != made.invalid || given.floatInvalid != made.floatInvalid)
        Lose(Field(path, "invalid value"), InvalidText(given), "inputs have no invalid values");
}

void TypeComparison::Enumerations(const TypeDescription& given, const TypeDescription& made,
                                  const std::string& path) {
    const Enumeration* old = given_.names.EnumerationSet(given.target);
    const Enumeration* now = made_.names.EnumerationSet(made.target);
    if (old == nullptr || now == nullptr)
        return Lose(Field(path, "enumeration"),
                    std::to_string(given.target.scope) + '-' + std::to_string(given.target.index),
                    "the enumeration is not in these files");
    if (old->name != now->name)
        Lose(Field(path, "name of the enumeration"), old->name, "a generation calls it " + now->name);
    if (old->fileName != now->fileName)
        Lose(Field(path, "file of the enumeration"), old->fileName, "a generation calls it " + now->fileName);
    Number(path, "values", static_cast<std::int64_t>(old->values.size()),
           static_cast<std::int64_t>(now->values.size()));
    for (std::size_t i = 0; i < std::min(old->values.size(), now->values.size()); ++i) {
        const EnumerationValue& value = old->values[i];
        if (value.name != now->values[i].name || value.value != now->values[i].value)
            Lose(Field(path, "value"), value.name + " = " + std::to_string(value.value),
                 "it becomes " + now->values[i].name + " = " + std::to_string(now->values[i].value));
        if (value.description.number != 0)
            Lose(Field(path, "value"), TextIn(given_.set, given_.names, value.description),
                 "values have no descriptions in inputs: that of " + value.name);
    }
}

}  // namespace tovarek
