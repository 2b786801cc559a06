#include "show/Facts.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "base/Text.h"
#include "formats/xif/XifBuffers.h"
#include "values/ProgramId.h"

namespace tovarek {
namespace {

// A number of lines 6 to 10 by its line and its place on it, from 1; nothing where the file has none such.
XifNumber Parameter(const XifFile& file, int line, std::size_t token) {
    for (const XifParameters& parameters : file.parameters)
        if (parameters.line == line && token <= parameters.numbers.size())
            return parameters.numbers[token - 1];
    return std::nullopt;
}

struct NamedNumber {
    std::int64_t number;
    std::string_view name;
};

constexpr auto kChips = std::to_array<NamedNumber>({{0, "3150"},
                                                    {1, "PL 3150"},
                                                    {14, "FT 3120 E4"},
                                                    {15, "PL 3120 E4"},
                                                    {17, "PL 3170"},
                                                    {32, "FT 5000"},
                                                    {36, "FT 6050"},
                                                    {115, "host stack"}});
constexpr auto kClocks = std::to_array<NamedNumber>({{1, "0.625 MHz"},
                                                     {2, "1.25 MHz"},
                                                     {3, "2.5 MHz"},
                                                     {4, "5 MHz"},
                                                     {5, "10 MHz"},
                                                     {6, "20 MHz"},
                                                     {7, "40 MHz"}});
constexpr auto kTransceivers = std::to_array<NamedNumber>(
    {{6, "1.25 Mbit/s"}, {7, "free topology"}, {8, "power line"}, {9, "power line"}});
constexpr auto kApplications = std::to_array<NamedNumber>({{0, "unknown"},
                                                           {1, "MIP"},
                                                           {2, "Neuron"},
                                                           {3, "host selection"},
                                                           {4, "host with network-interface selection"}});
constexpr auto kYesNo = std::to_array<NamedNumber>({{0, "no"}, {1, "yes"}});

// The numbers that are shown as they are, with their units or names.
struct HardwareRow {
    std::string_view name;
    int line;
    std::size_t token;
    std::string_view unit;
    const NamedNumber* names = nullptr;
    std::size_t count = 0;
    std::size_t sizeToken = 0;  // on line 7: bytes of one entry
};
template <std::size_t count>
constexpr HardwareRow Named(std::string_view name, int line, std::size_t token,
                            const std::array<NamedNumber, count>& names) {
    return {name, line, token, "", names.data(), count};
}
constexpr HardwareRow kHardware[] = {
    Named("Chip", 7, 1, kChips),
    Named("Clock", 7, 2, kClocks),
    {"Firmware", 7, 3, ""},
    Named("Application", 6, 16, kApplications),
    Named("Standard transceiver", 8, 1, kYesNo),
    Named("Transceiver", 8, 2, kTransceivers),
    {"Bit rate", 9, 1, "bit/s"},
    {"Domains", 6, 1, "entries", nullptr, 0, 8},
    {"Addresses", 6, 2, "entries", nullptr, 0, 9},
    {"Aliases", 6, 19, "entries", nullptr, 0, 12},
    {"Receive transactions", 6, 18, "records", nullptr, 0, 4},
    {"Free RAM on the chip", 7, 6, "bytes"},
    {"Free RAM off the chip", 7, 7, "bytes"},
    {"Largest memory write", 6, 22, "bytes"},
    {"Most network variables", 6, 23, ""},
    Named("Handles incoming messages", 6, 3, kYesNo),
};

// The buffers: places of their count and size codes on line 6.
struct BufferRow {
    std::string_view name;
    std::size_t count;
    std::size_t size;
};
constexpr auto kBuffers = std::to_array<BufferRow>({{"network input", 6, 12},
                                                    {"network output", 7, 13},
                                                    {"network output, priority", 8, 13},
                                                    {"application output", 10, 14},
                                                    {"application output, priority", 9, 14},
                                                    {"application input", 11, 15}});

// Products of what files say are refused before they overflow.
constexpr std::int64_t kMostFactor = INT32_MAX;

std::string HardwareText(const HardwareRow& row, std::int64_t number, const XifNumber& size) {
    const NamedNumber* const end = row.names + row.count;
    const NamedNumber* const named =
        std::find_if(row.names, end, [&](const NamedNumber& name) { return name.number == number; });
    if (named != end)
        return std::string(named->name) +
               (row.names == kYesNo.data() ? "" : " (" + std::to_string(number) + ")");
    std::string text = std::to_string(number);
    if (row.count > 0)
        return "number " + text;
    if (!row.unit.empty())
        text += ' ' + std::string(row.unit);
    if (size && *size > 0 && *size <= kMostFactor && number >= 0 && number <= kMostFactor)
        text += " of " + std::to_string(*size) + " bytes: " + std::to_string(number * *size) + " bytes";
    return text;
}

template <std::size_t count>
std::optional<std::int64_t> Decoded(const std::array<int, count>& codes, const XifNumber& code) {
    if (!code || *code < 0 || *code >= static_cast<std::int64_t>(count))
        return std::nullopt;
    return codes.at(static_cast<std::size_t>(*code));
}

std::string FieldText(const ProgramIdField& field, const std::string& digits) {
    constexpr int kHexadecimal = 16;
    const std::string part = digits.substr(field.first, field.digits);
    const std::string number = std::to_string(std::stoul(part, nullptr, kHexadecimal));
    if (field.name == "format")
        return part + (part == "8" ? ", a certified device" : "");
    return part + " (" + number + ')' +
           (field.name == "channel" && part == "04" ? ", twisted pair, free topology, 78 kbit/s" : "");
}

}  // namespace

ViewTable ProgramIdTable(const XifFile& file) {
    ViewTable table{"Program ID", {"Part", "Value"}, {{"program ID", ShownText(file.programId)}}};
    const std::optional<std::string> digits = ProgramIdDigits(file.programId);
    if (digits && IsStandardProgramId(*digits))
        for (const ProgramIdField& field : kProgramIdFields)
            table.rows.push_back({std::string(field.name), FieldText(field, *digits)});
    return table;
}

ViewTable HardwareTable(const XifFile& file) {
    ViewTable table{"Hardware", {"Fact", "Value"}, {}};
    for (const HardwareRow& row : kHardware) {
        const XifNumber number = Parameter(file, row.line, row.token);
        constexpr int kSizes = 7;
        const XifNumber size = row.sizeToken == 0 ? std::nullopt : Parameter(file, kSizes, row.sizeToken);
        if (number)
            table.rows.push_back({std::string(row.name), HardwareText(row, *number, size)});
    }
    return table;
}

ViewTable BufferTable(const XifFile& file) {
    constexpr int kCodes = 6;
    ViewTable table{"Buffers", {"Kind", "Count", "Size", "Bytes"}, {}};
    std::int64_t total = 0;
    for (const BufferRow& row : kBuffers) {
        const auto count = Decoded(kXifBufferCounts, Parameter(file, kCodes, row.count));
        const auto size = Decoded(kXifBufferSizes, Parameter(file, kCodes, row.size));
        if (!count || !size)
            continue;
        total += *count * *size;
        table.rows.push_back({std::string(row.name), std::to_string(*count), std::to_string(*size),
                              std::to_string(*count * *size)});
    }
    if (!table.rows.empty())
        table.rows.push_back({"all", "", "", std::to_string(total)});
    return table;
}

}  // namespace tovarek
