#include "convert/FromXif.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "base/Text.h"
#include "formats/xif/XifProperties.h"
#include "profile/ProfileFields.h"
#include "template/TemplateFields.h"

namespace tovarek {
namespace {

// What the generator writes on the second lines of variables and tags, where templates have no say.
struct Constant {
    std::size_t place;
    std::int64_t value;
    std::string_view name;
    bool counts;
};
constexpr auto kVariableConstants = std::to_array<Constant>(
    {{placeSecond, 1, "second attribute", true}, {placeThird, 63, "third attribute", true}});
constexpr auto kTagConstants =
    std::to_array<Constant>({{placeOffline, 0, "first attribute", true},
                             {placeThird, 63, "third attribute", true},
                             {placeDirection, 1, "direction", true},
                             {placeService, 0, "service", true},
                             {placeServiceCanBeChanged, 1, "service can be changed", true},
                             {placeAuthenticated, 0, "authenticated", true},
                             {placeAuthCanBeChanged, 1, "authentication can be changed", true},
                             {placePriority, 0, "priority", true},
                             {placePriorityCanBeChanged, 1, "priority can be changed", false},
                             {placePolled, 0, "polled", true},
                             {placeSynchronized, 0, "synchronized", true},
                             {placeConfiguration, 0, "configuration", true}});

// The attributes of a variable, by their place.
constexpr std::array<std::pair<std::size_t, std::int32_t CNv::*>, 11> kVariableAttributes = {{
    {placeOffline, &CNv::offline},
    {placeDirection, &CNv::direction},
    {placeService, &CNv::defaultService},
    {placeServiceCanBeChanged, &CNv::serviceCanBeChanged},
    {placeAuthenticated, &CNv::defaultAuth},
    {placeAuthCanBeChanged, &CNv::authCanBeChanged},
    {placePriority, &CNv::defaultPriority},
    {placePriorityCanBeChanged, &CNv::priorityCanBeChanged},
    {placePolled, &CNv::polled},
    {placeSynchronized, &CNv::synchronized},
    {placeConfiguration, &CNv::configuration},
}};

std::string NumberText(const XifNumber& number) {
    return number ? std::to_string(*number) : "*";
}

class XifConverter {
  public:
    XifConverter(const XifFile& file, const StandardCatalog& catalog) : file_(file), catalog_(catalog) {}

    DeviceInterface Convert() {
        result_.hasProfile = result_.hasTemplate = true;
        CTemplate& device = result_.device;
        for (const char c : file_.programId)
            if (c != ':')
                device.programID += c;
        device.selfDocumentation = file_.documentation;
        for (const XifTag& tag : file_.tags)
            AddTag(tag);
        std::int64_t index = 0;
        for (const XifVariable& variable : file_.variables)
            AddVariable(variable, index);
        AddProperties();
        device.numberStaticNvs = static_cast<std::int32_t>(device.nvs.size());
        device.numberOfMessageTags = static_cast<std::int32_t>(device.tags.size());
        device.numberOfCps = static_cast<std::int32_t>(device.cps.size());
        device.maximumNumberOfNvs = device.numberStaticNvs;
        AddParameters();
        TellTheRest();
        return std::move(result_);
    }

  private:
    void Lose(std::string record, std::string field, std::string value, std::string reason,
              bool counts = true) {
        result_.losses.push_back(
            {std::move(record), std::move(field), std::move(value), std::move(reason), counts});
    }

    // A number that the generator counts or fixes itself.
    void Expect(const std::string& record, std::string_view field, const XifNumber& number,
                std::int64_t written, bool counts = true) {
        if (number != written)
            Lose(record, std::string(field), NumberText(number),
                 "the generator writes " + std::to_string(written), counts);
    }

    std::int32_t Number(const std::string& record, std::string_view field, const XifNumber& number) {
        if (number && *number >= INT32_MIN && *number <= INT32_MAX)
            return static_cast<std::int32_t>(*number);
        Lose(record, std::string(field), NumberText(number),
             number ? "it does not fit 32 bits; 0 was taken" : "a default that nobody tells; 0 was taken");
        return 0;
    }

    // ---- lines 6 to 10 ----

    void AddParameters() {
        std::map<int, const std::vector<XifNumber>*> lines;
        for (const XifParameters& parameters : file_.parameters)
            lines.emplace(parameters.line, &parameters.numbers);
        std::map<int, std::size_t> known;
        for (const ProfileField& field : kProfileFields) {
            const auto line = lines.find(field.line);
            const auto place = static_cast<std::size_t>(field.token) - 1;
            known[field.line] = place + 1;
            if (line == lines.end() || place >= line->second->size())
                Lose(LineName(field.line), std::string(field.iniKey), "",
                     "the file has no such number; 0 was taken");
            else
                result_.profile.*field.value =
                    Number(LineName(field.line), field.iniKey, (*line->second)[place]);
        }
        AddCounts(lines, known);
        for (const auto& [line, numbers] : lines)
            TellFurther(line, *numbers, known[line]);
    }

    // The places of lines 6 and 8 that no profile has.
    void AddCounts(const std::map<int, const std::vector<XifNumber>*>& lines,
                   std::map<int, std::size_t>& known) {
        constexpr int kCounts = 6;
        constexpr int kTransceiver = 8;
        constexpr std::size_t kMaximum = 22;
        CTemplate& device = result_.device;
        if (const auto line = lines.find(kCounts); line != lines.end()) {
            Expect(LineName(kCounts), "numberOfStaticNvs", NumberAt(*line->second, 3),
                   device.numberStaticNvs);
            Expect(LineName(kCounts), "numberOfTags", NumberAt(*line->second, 4), device.numberOfMessageTags);
            if (line->second->size() > kMaximum)
                device.maximumNumberOfNvs =
                    Number(LineName(kCounts), "maximumNumberOfNvs", (*line->second)[kMaximum]);
            known[kCounts] = kMaximum + 1;
        }
        if (const auto line = lines.find(kTransceiver); line != lines.end())
            Expect(LineName(kTransceiver), "transceiverType", NumberAt(*line->second, 2), 1);
    }

    void TellFurther(int line, const std::vector<XifNumber>& numbers, std::size_t known) {
        if (numbers.size() <= known)
            return;
        std::string value;
        for (std::size_t place = known; place < numbers.size(); ++place)
            value += (value.empty() ? "" : " ") + NumberText(numbers[place]);
        Lose(LineName(line), "numbers from the " + std::to_string(known + 1) + "th on", std::move(value),
             "XIF 4.0 has no such numbers");
    }

    static std::string LineName(int line) { return "line " + std::to_string(line); }

    // ---- records ----

    void AddTag(const XifTag& source) {
        CTag& tag = result_.device.tags.emplace_back();
        const std::size_t position = result_.device.tags.size() - 1;
        tag.name = source.name;
        tag.index = static_cast<std::int32_t>(position);
        const std::string record = RecordTitle(tag, position);
        Expect(record, "index", NumberAt(source.numbers, 0), tag.index);
        tag.avgRate = Number(record, "avgRate", NumberAt(source.numbers, 1));
        tag.maxRate = Number(record, "maxRate", NumberAt(source.numbers, 2));
        tag.bindable = Number(record, "bindable", NumberAt(source.attributes, placeBindable));
        for (const Constant& constant : kTagConstants)
            if (constant.place < source.attributes.size())
                Expect(record, constant.name, source.attributes[constant.place], constant.value,
                       constant.counts);
    }

    void AddVariable(const XifVariable& source, std::int64_t& index) {
        CNv& nv = result_.device.nvs.emplace_back();
        nv.name = source.name;
        const std::string record = RecordTitle(nv, result_.device.nvs.size() - 1);
        nv.avgRate = Number(record, "avgRate", source.Number(1));
        nv.maxRate = Number(record, "maxRate", source.Number(2));
        nv.arraySize = Number(record, "arraySize", source.Number(3));
        Expect(record, "index", source.Number(0), index);
        index += std::max(nv.arraySize, 1);
        for (const auto& [place, member] : kVariableAttributes)
            nv.*member = Number(record, FieldName(member), source.Attribute(place));
        for (const Constant& constant : kVariableConstants)
            Expect(record, constant.name, source.Attribute(constant.place), constant.value, constant.counts);
        nv.selfdoc = source.documentation;
        SetType(source, record, nv);
    }

    static std::string_view FieldName(std::int32_t CNv::*member) {
        for (const RecordField<CNv>& field : NvFields())
            if (field.number == member)
                return field.iniKey;
        return {};
    }

    void SetType(const XifVariable& source, const std::string& record, CNv& nv) {
        const std::int64_t size = source.Size();
        nv.length = static_cast<std::int32_t>(size);
        nv.typeIndex = Number(record, "type", source.standardType);
        if (nv.typeIndex == 0)
            return;
        const bool isStandard = nv.typeIndex > 0 && nv.typeIndex <= kLargestStandardType;
        const std::uint16_t standard = isStandard ? catalog_.NvSize(nv.typeIndex) : std::uint16_t{0};
        if (standard == 0) {
            Lose(record, "type", std::to_string(nv.typeIndex),
                 "the catalog has no such type; it became a type of the device's own, 0, of the same length");
            nv.typeIndex = 0;
        } else if (standard != size) {
            Lose(record, "length", std::to_string(size),
                 "the catalog has " + std::to_string(standard) + " bytes for the type");
        }
    }

    // ---- properties ----

    void AddProperties() {
        const XifPropertyTemplate found = ReadXifTemplate(file_);
        result_.device.versionCP = found.version;
        std::map<const XifProperty*, std::string_view> values;
        const XifSection* const declaring = XifTemplateSection(file_);
        for (const XifSection& section : file_.sections) {
            const std::vector<XifPropertyValue> held = XifPropertyValues(file_, section, found.properties);
            for (const XifPropertyValue& value : held)
                values.emplace(value.property, value.bytes);
            if (&section != declaring && held.empty() &&
                !(section.content.bytes + section.content.text).empty())
                Lose("FILE " + section.name, "", std::to_string(section.content.bytes.size()) + " bytes",
                     "it is neither the declarations of properties nor all of their values");
        }
        const auto isNamed = [](const XifProperty& property) { return !property.name.empty(); };
        const auto named = std::count_if(found.properties.begin(), found.properties.end(), isNamed);
        result_.addsNames = named > 0 && named == static_cast<std::ptrdiff_t>(found.properties.size());
        for (const XifProperty& property : found.properties) {
            CCp& cp = result_.device.cps.emplace_back();
            const std::string record = RecordTitle(cp, result_.device.cps.size() - 1);
            cp.declaration = property.record + ';';
            if (result_.addsNames)
                cp.name = property.name;
            else if (isNamed(property))
                Lose(record, "name", property.name,
                     "not all properties of the file have one, and the generator adds all or none");
            if (!property.isKnown)
                Lose(record, "declaration", property.record, "it does not declare a property");
            if (const auto value = values.find(&property); value != values.end())
                for (const char byte : value->second)
                    AppendHex(cp.defaultValue, static_cast<unsigned char>(byte), 2);
        }
    }

    // ---- what has no place ----

    void TellTheRest() {
        if (file_.values)
            Lose("NVVAL", "default values", HexText(FirstCharacters(file_.values->bytes, kShown)),
                 "a template has no values of configuration variables", false);
        for (const XifUnknown& record : file_.unknown)
            Lose("line " + std::to_string(record.line), "record",
                 record.lines.empty() ? "" : Excerpt(record.lines[0]), "a record of an unknown kind");
        if (!file_.comments.empty())
            Lose("comments", "",
                 std::to_string(file_.comments.size()) + (file_.comments.size() == 1 ? " line" : " lines"),
                 "comments are not taken over", false);
        if (!file_.attached.empty())
            Lose("end of the file", "", std::to_string(file_.attached.size()) + " bytes",
                 "what is attached to the file does not belong to the interface");
    }

    static constexpr std::size_t kShown = 16;

    const XifFile& file_;
    const StandardCatalog& catalog_;
    DeviceInterface result_;
};

}  // namespace

DeviceInterface InterfaceOfXif(const XifFile& file, const StandardCatalog& catalog) {
    return XifConverter(file, catalog).Convert();
}

}  // namespace tovarek
