#include "convert/TellTypeLosses.h"

#include <algorithm>
#include <set>

#include "base/Path.h"
#include "base/Text.h"
#include "convert/FromSet.h"
#include "convert/TypeComparison.h"

namespace tovarek {
namespace {

constexpr const char* kNameReason =
    "types are called UNVT__NAME and UCPT_NUMBER_NAME after their inputs, in user type files "
    "UNVT_NUMBER_NAME "
    "as well";

class SetComparison {
  public:
    SetComparison(const SetView& given, std::vector<Loss>& losses) : given_(given), losses_(losses) {}

    // The types of one kind.
    template <class Type>
    void Types(const std::vector<std::optional<Type>>& given, const SetView& made,
               const std::vector<std::optional<Type>>& written, bool isUnvt) {
        for (std::size_t i = 0; i < given.size(); ++i) {
            if (!given[i])
                continue;
            const auto whole = isUnvt ? WholeNvName : WholeCpName;
            const std::string name = whole(given_.set.types.header.scope, given[i]->name);
            const std::string record = std::string(isUnvt ? "network-variable type " : "property type ") +
                                       std::to_string(i + 1) + " (" + name + ")";
            TypeComparison comparison(given_, made, record, losses_);
            if (i >= written.size() || !written[i]) {
                comparison.Lose("", "", "a generation does not write it");
                continue;
            }
            const std::string now = whole(made.set.types.header.scope, written[i]->name);
            if (name != now)
                comparison.Lose("name", name, "it becomes " + now + ": " + kNameReason);
            comparison.Types(*given[i], *written[i]);
            if constexpr (std::is_same_v<Type, CpType>)
                RawValues(*given[i], *written[i], comparison);
            Formats(name, made, now, record);
        }
    }

    void Rest() {
        const ResourceHeader& header = given_.set.types.header;
        const auto whole = [&](const std::string& field, std::size_t count, const std::string& reason) {
            if (count > 0)
                losses_.push_back(
                    {"scope " + std::to_string(header.scope), field, std::to_string(count), reason});
        };
        whole("functional profiles", given_.set.profiles.profiles.size(),
              "inputs have no functional profiles");
        whole("texts that no type uses", UnusedTexts(), "inputs have the texts of types alone");
        if (given_.set.files.language.empty())
            whole("language file", 1, "no language file lies beside it, so texts and units are not known");
    }

    void Headers(const SetView& made) {
        const ResourceHeader& old = given_.set.types.header;
        const ResourceHeader& now = made.set.types.header;
        const auto compare = [&](const char* field, const std::string& given, const std::string& written) {
            if (given != written)
                losses_.push_back({"header of scope " + std::to_string(old.scope), field,
                                   std::string(Excerpt(given)),
                                   "a generation writes \"" + Printable(Excerpt(written)) + '"'});
        };
        compare("contact", old.contact, now.contact);
        compare("web page", old.webPage, now.webPage);
        compare("version", VersionText(old.majorVersion, old.minorVersion),
                VersionText(now.majorVersion, now.minorVersion));
        compare("format version", std::to_string(old.formatVersion), std::to_string(now.formatVersion));
        compare("language", given_.set.texts.language, made.set.texts.language);
        compare("program ID", HexText({reinterpret_cast<const char*>(old.programId.data()), 8}),
                HexText({reinterpret_cast<const char*>(now.programId.data()), 8}));
        compare("description", TextIn(given_.set, given_.names, old.description),
                TextIn(made.set, made.names, now.description));
        compare("creator", TextIn(given_.set, given_.names, old.creator),
                TextIn(made.set, made.names, now.creator));
        if (given_.set.types.marks != made.set.types.marks)
            compare("marks", "other than usual", "the usual ones");
    }

  private:
    static void RawValues(const CpType& given, const CpType& made, TypeComparison& comparison) {
        const auto compare = [&](const char* field, const std::optional<std::string>& old,
                                 const std::optional<std::string>& now) {
            if (old != now)
                comparison.Lose(field, old ? HexText(*old) : "none",
                                "a generation writes " + (now ? HexText(*now) : "none"));
        };
        compare("raw minimum", given.minimum, made.minimum);
        compare("raw maximum", given.maximum, made.maximum);
        compare("raw initial value", given.initial, made.initial);
    }

    // By what they show, whatever they look like.
    void Formats(const std::string& name, const SetView& made, const std::string& now,
                 const std::string& record) {
        for (const DisplayFormat& format : given_.set.formats.formats) {
            if (format.type != name)
                continue;
            const auto& all = made.set.formats.formats;
            const auto same = std::find_if(all.begin(), all.end(), [&](const DisplayFormat& each) {
                return each.type == now && each.name == format.name && each.form == format.form &&
                       each.text == format.text && Parameters(given_, format) == Parameters(made, each);
            });
            if (same == all.end())
                losses_.push_back({record,
                                   format.name.empty() ? "display format" : "display format " + format.name,
                                   std::string(Excerpt(format.body)),
                                   "a generation makes the formats out of the types and their UNITS"});
        }
    }

    static std::vector<FormatParameter> Parameters(const SetView& view, const DisplayFormat& format) {
        std::vector<FormatParameter> parameters = format.parameters;
        for (FormatParameter& parameter : parameters) {
            if (parameter.unit.empty())
                parameter.unit = view.names.Text(parameter.unitText);
            parameter.unitText = {};
            // A text alone is shown by its own name.
            if (parameter.expression == format.type)
                parameter.expression.clear();
        }
        return parameters;
    }

    std::size_t UnusedTexts() const {
        std::set<std::uint32_t> used;
        const std::uint8_t scope = given_.set.texts.header.scope;
        const auto use = [&](const StringRef& string) {
            if (string.scope == scope)
                used.insert(string.number);
        };
        const std::function<void(const TypeDescription&)> below = [&](const TypeDescription& type) {
            for (const TypeMember& member : type.members) {
                use(member.nameText);
                use(member.description);
                use(member.unit);
                below(member.type);
            }
        };
        const auto record = [&](const auto& types) {
            for (const auto& type : types) {
                if (!type)
                    continue;
                use(type->nameText);
                use(type->description);
                use(type->unit);
                below(type->type);
            }
        };
        record(given_.set.types.nvTypes);
        record(given_.set.types.cpTypes);
        for (const ResourceHeader* header :
             {&given_.set.types.header, &given_.set.texts.header, &given_.set.profiles.header}) {
            use(header->description);
            use(header->creator);
        }
        for (const std::optional<Enumeration>& enumeration : given_.set.types.enumerations)
            if (enumeration)
                for (const EnumerationValue& value : enumeration->values)
                    use(value.description);
        used.erase(0);
        const auto there = std::count_if(given_.set.texts.strings.begin(), given_.set.texts.strings.end(),
                                         [](const auto& text) { return text.has_value(); });
        const auto total = static_cast<std::size_t>(there);
        return total - std::min(total, used.size());
    }

    const SetView& given_;
    std::vector<Loss>& losses_;
};

}  // namespace

void TellTypeLosses(const ResourceSetInput& given, const std::vector<ResourceSetInput>& made,
                    const StandardCatalog* catalog, StandardTexts texts, CompareHeaders headers,
                    std::vector<Loss>& losses) {
    const SetView old(given, catalog, texts);
    const SetView nvs(made.front(), catalog, texts);
    const SetView cps(made.back(), catalog, texts);
    SetComparison comparison(old, losses);
    comparison.Types(given.types.nvTypes, nvs, nvs.set.types.nvTypes, true);
    comparison.Types(given.types.cpTypes, cps, cps.set.types.cpTypes, false);
    comparison.Rest();
    if (headers == CompareHeaders::yes)
        comparison.Headers(nvs);
}

}  // namespace tovarek
