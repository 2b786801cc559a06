#include "show/Records.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

#include "formats/xif/XifProperties.h"

namespace tovarek {
namespace {

// Flags that are told where they are not the usual ones.
struct FlagRow {
    std::size_t place;
    std::int64_t unusual;
    std::string_view text;
};
constexpr auto kFlags = std::to_array<FlagRow>({{placeOffline, 1, "offline for updates"},
                                                {placeAuthenticated, 1, "authenticated"},
                                                {placePriority, 1, "priority"},
                                                {placePolled, 1, "polled"},
                                                {placeSynchronized, 1, "synchronized"},
                                                {placeConfiguration, 1, "configuration"},
                                                {placeServiceCanBeChanged, 0, "service fixed"},
                                                {placeAuthCanBeChanged, 0, "authentication fixed"},
                                                {placePriorityCanBeChanged, 0, "priority fixed"}});

void Append(std::string& list, const std::string& text, std::string_view separator = ", ") {
    if (!text.empty())
        list += (list.empty() ? "" : std::string(separator)) + text;
}

// A code n stands for 2^(n/8) - 5 messages per second, which is more than a long holds on Windows.
std::string RateText(std::string_view what, const XifNumber& code) {
    constexpr std::int64_t kLargestCode = 250;
    constexpr double kStep = 8;
    if (code == 0)
        return {};
    const std::string number = code ? std::to_string(*code) : "default";
    if (!code || *code < 0 || *code > kLargestCode)
        return std::string(what) + " rate " + number;
    const double rate = std::exp2(static_cast<double>(*code) / kStep) - 5;
    return std::string(what) + " rate " + number +
           (rate > 0 ? " (" + std::to_string(std::llround(rate)) + "/s)" : "");
}

std::string NotesOf(const XifVariable& variable) {
    std::string notes;
    const std::int64_t service = variable.Attribute(placeService).value_or(-1);
    if (service > 0 && service < static_cast<std::int64_t>(kXifServices.size()))
        Append(notes, std::string(kXifServices.at(static_cast<std::size_t>(service))));
    for (const FlagRow& row : kFlags)
        if (variable.Attribute(row.place) == row.unusual)
            Append(notes, std::string(row.text));
    Append(notes, RateText("average", variable.Number(1)));
    Append(notes, RateText("maximum", variable.Number(2)));
    return notes;
}

std::int64_t ArraySize(const XifVariable& variable) {
    return std::max<std::int64_t>(0, variable.Number(3).value_or(0));
}

class RecordReader {
  public:
    RecordReader(const XifFile& file, const DeviceTypes& types) : file_(file), types_(types) {}

    DeviceRecords Read() {
        for (const XifDefaultValue& value : XifDefaultValues(file_))
            defaults_.emplace(value.variable, value.bytes);
        for (std::size_t i = 0; i < file_.variables.size(); ++i)
            records_.variables.push_back(Variable(i));
        const XifPropertyTemplate declared = ReadXifTemplate(file_);
        for (const XifSection& section : file_.sections)
            for (const XifPropertyValue& value : XifPropertyValues(file_, section, declared.properties))
                values_.emplace(value.property, value.bytes);
        for (const XifProperty& property : declared.properties)
            records_.properties.push_back(Property(property));
        for (const XifTag& tag : file_.tags)
            records_.tags.push_back(ShownText(tag.name));
        return std::move(records_);
    }

  private:
    VariableRecord Variable(std::size_t position) {
        const XifVariable& source = file_.variables[position];
        VariableRecord record;
        record.name = ShownText(source.name);
        if (const std::int64_t size = ArraySize(source); size > 0)
            record.name += '[' + std::to_string(size) + ']';
        record.index = static_cast<std::size_t>(std::max<std::int64_t>(0, source.Number(0).value_or(0)));
        record.isOutput = source.Attribute(placeDirection) == 1;
        record.membership = MembershipOf(source.documentation);
        record.membership.text = ShownText(record.membership.text);
        record.notes = NotesOf(source);
        record.type = ShownText(types_.NameOfVariable(position));
        record.units = ShownText(types_.UnitsOfVariable(position));
        const Membership& membership = record.membership;
        if (source.Attribute(placeConfiguration) == 1 && !membership.propertyType.empty())
            record.property = ShownText(
                types_.NameOfProperty({.scope = membership.propertyScope, .type = membership.propertyType}));
        if (const auto value = defaults_.find(&source); value != defaults_.end())
            record.value = ShownText(types_.ValueOfVariable(position, value->second));
        return record;
    }

    PropertyRecord Property(const XifProperty& source) {
        PropertyRecord record;
        if (!source.isKnown) {
            record.name = ShownText(source.record);
            record.owner = PropertyRecord::Owner::unknown;
            return record;
        }
        record.name = ShownText(types_.NameOfProperty(source));
        if (!source.name.empty())
            record.name = ShownText(source.name) + " (" + record.name + ')';
        record.select = ShownText(source.select);
        record.owners = RangesOf(source.select);
        record.owner = source.appliesTo == "0"   ? PropertyRecord::Owner::device
                       : record.owners.empty()   ? PropertyRecord::Owner::unknown
                       : source.appliesTo == "1" ? PropertyRecord::Owner::block
                       : source.appliesTo == "2" ? PropertyRecord::Owner::variable
                                                 : PropertyRecord::Owner::unknown;
        record.range = ShownText(source.range);
        if (!source.count.empty())
            Append(record.notes, "array of " + ShownText(source.count));
        if (source.IsConstant())
            Append(record.notes, "constant");
        if (source.IsMakersOnly())
            Append(record.notes, "for the manufacturer only");
        if (const auto value = values_.find(&source); value != values_.end())
            record.value = ShownText(types_.ValueOfProperty(source, value->second));
        return record;
    }

    const XifFile& file_;
    const DeviceTypes& types_;
    DeviceRecords records_;
    std::map<const XifVariable*, std::string_view> defaults_;
    std::map<const XifProperty*, std::string_view> values_;
};

std::string OwnerText(const PropertyRecord& property) {
    switch (property.owner) {
        case PropertyRecord::Owner::device:
            return "device";
        case PropertyRecord::Owner::block:
            return "object " + property.select;
        case PropertyRecord::Owner::variable:
            return "variable " + property.select;
        case PropertyRecord::Owner::unknown:
            return "not known";
    }
    return {};
}

std::string BlockText(const VariableRecord& variable) {
    std::string text;
    for (const IndexRange& range : variable.membership.blocks)
        Append(
            text,
            std::to_string(range.first) + (range.last > range.first ? "~" + std::to_string(range.last) : ""),
            ".");
    return text;
}

}  // namespace

DeviceRecords RecordsOf(const XifFile& file, const DeviceTypes& types) {
    return RecordReader(file, types).Read();
}

ViewTable VariableTable(const DeviceRecords& records) {
    ViewTable table{"Network variables", {"Index", "Name", "In/out", "Type", "Unit", "Object", "Notes"}, {}};
    for (const VariableRecord& variable : records.variables) {
        std::string notes = variable.membership.text;
        Append(notes, variable.property, "; ");
        Append(notes, variable.value.empty() ? "" : "default " + variable.value, "; ");
        Append(notes, variable.notes, "; ");
        table.rows.push_back({std::to_string(variable.index), variable.name, variable.isOutput ? "out" : "in",
                              variable.type, variable.units, BlockText(variable), std::move(notes)});
    }
    return table;
}

ViewTable PropertyTable(const DeviceRecords& records) {
    ViewTable table{"Configuration properties", {"Number", "Property", "Of", "Value", "Notes"}, {}};
    for (const PropertyRecord& property : records.properties) {
        std::string notes = property.notes;
        Append(notes, property.range.empty() ? "" : "range " + property.range);
        table.rows.push_back({std::to_string(table.rows.size() + 1), property.name, OwnerText(property),
                              property.value, std::move(notes)});
    }
    return table;
}

ViewTable TagTable(const XifFile& file) {
    ViewTable table{"Message tags", {"Index", "Name", "Bindable", "Rates"}, {}};
    for (const XifTag& tag : file.tags) {
        std::string rates = RateText("average", NumberAt(tag.numbers, 1));
        Append(rates, RateText("maximum", NumberAt(tag.numbers, 2)));
        const bool isBindable = NumberAt(tag.attributes, placeBindable) == 1;
        table.rows.push_back({std::to_string(NumberAt(tag.numbers, 0).value_or(0)), ShownText(tag.name),
                              isBindable ? "yes" : "no", std::move(rates)});
    }
    return table;
}

}  // namespace tovarek
