// What of a profile is read otherwise than it was written.
#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "base/Numbers.h"
#include "base/Text.h"
#include "profile/CProfile.h"
#include "profile/ProfileElements.h"
#include "profile/ProfileMends.h"
#include "support/Readings.h"
#include "system/Files.h"

namespace tovarek {
namespace {

constexpr std::size_t kLines = kLastProfileLine - kFirstProfileLine + 1;

// Values that a profile in INI form may lack without an error, since no check looks at -1 there; it is
// written.
constexpr std::int32_t ProfileValues::*kUnchecked[] = {&ProfileValues::transceiverInterface,
                                                       &ProfileValues::generalData0};

std::string RecordOf(int line) {
    return "profile line " + std::to_string(line);
}

// The names of the elements, in capitals, by line; the first list holds the lines themselves.
XmlNames ElementNames(int line) {
    static const std::vector<std::string> texts = [] {
        std::vector<std::string> all;
        for (int number = kFirstProfileLine; number <= kLastProfileLine; ++number)
            all.push_back("XIF_LINE" + std::to_string(number));
        for (const ProfileField& field : kProfileFields)
            all.push_back(UpperCase(field.name));
        return all;
    }();
    static const std::vector<std::string_view> names(texts.begin(), texts.end());
    if (line == 0)
        return XmlNames(names).first(kLines);
    std::size_t first = 0;
    while (kProfileFields[first].line != line)
        ++first;
    std::size_t end = first;
    while (end < kProfileFields.size() && kProfileFields[end].line == line)
        ++end;
    return XmlNames(names).subspan(kLines + first, end - first);
}

std::string_view ElementName(const ProfileField& field) {
    return ElementNames(field.line)[static_cast<std::size_t>(
        &field - &*std::find_if(kProfileFields.begin(), kProfileFields.end(),
                                [&](const ProfileField& other) { return other.line == field.line; }))];
}

// Why an element of this name is not read where it stands; empty when no line has such a value.
std::string MisplacedReason(std::string_view upperName, int line) {
    for (const ProfileField& field : kProfileFields)
        if (ElementName(field) == upperName && field.line != line)
            return "it belongs into <XIF_LINE" + std::to_string(field.line) + ">";
    return {};
}

}  // namespace

void CProfile::TellReadings(Readings& readings) const {
    if (!iniFile.empty())
        TellIniReadings(readings.Ini(iniFile, loadedIni_), readings.Findings());
    else if (!xifFile.empty())
        TellXifReadings(readings.Findings());
    else if (loadedXml_)
        TellXmlReadings(readings.Xml(loadedXml_), readings.Findings());
}

void CProfile::SkipReadings(Readings& readings) const {
    IniReading* const ini = iniFile.empty() ? nullptr : readings.FindIni(iniFile);
    if (ini == nullptr)
        return;
    for (int line = kFirstProfileLine; line <= kLastProfileLine; ++line)
        ini->Skip("Line" + std::to_string(line));
}

void CProfile::TellIniReadings(IniReading& ini, FindingSink& findings) const {
    for (const ProfileField& field : kProfileFields)
        ini.Integer(
            "Line" + std::to_string(field.line), field.iniKey, [&] { return RecordOf(field.line); },
            [&](std::string_view typed, std::int32_t) { return MendOfProfile(field, typed, false); },
            findings);
    for (const auto value : kUnchecked) {
        const ProfileField& field = FieldOf(value);
        const std::string section = "Line" + std::to_string(field.line);
        if (!ini.HasSection(section) || ini.HasKey(section, field.iniKey))
            continue;
        findings.Take({.context = {.record = RecordOf(field.line),
                                   .field = std::string(field.iniKey),
                                   .file = iniFile,
                                   .line = ini.LineOf(section),
                                   .reason = std::string(field.iniKey) +
                                             " is missing and is written as -1: give it a value"},
                       .warning = Warning::missingValue,
                       .part = LinePart::all});
    }
}

void CProfile::TellXmlReadings(XmlReading& reading, FindingSink& findings) const {
    reading.Structure(reading.Root(), ElementNames(0));
    std::vector<XmlRecord> records;
    for (int line = kFirstProfileLine; line <= kLastProfileLine; ++line)
        records.emplace_back(reading, findings, [line] { return RecordOf(line); });
    std::array<XmlNode, kLines> lines;
    ForEachProfileElement(loadedXml_, [&](const XmlNode& element, int line, const ProfileField* field) {
        const auto position = static_cast<std::size_t>(line - kFirstProfileLine);
        const std::string name = UpperCase(element.Name());
        if (field != nullptr) {
            records[position].Integer(
                element, ElementName(*field),
                [&](std::string_view typed, std::int32_t) { return MendOfProfile(*field, typed, true); },
                kProfileNumbers);
        } else if (line != 0 && LineOfElement(name) == line) {
            reading.Structure(element, ElementNames(line));
            lines[position] = element;
        } else if (std::string reason = MisplacedReason(name, line); !reason.empty()) {
            reading.Misplaced(element, std::move(reason));
        }
    });
    TellMissingElements(lines, findings);
}

void CProfile::TellMissingElements(const std::array<XmlNode, 5>& lines, FindingSink& findings) const {
    const std::string whose = wasLoaded_ ? "what an earlier load left" : "0";
    for (int line = kFirstProfileLine; line <= kLastProfileLine; ++line) {
        const XmlNode& element = lines[static_cast<std::size_t>(line - kFirstProfileLine)];
        bool isRefused = false;
        for (const ProfileField& field : kProfileFields)
            isRefused = isRefused || (field.line == line && IsRefused(field));
        // What is refused is told as that.
        if (!element && !isRefused)
            findings.Take(AtElement(Warning::missingValue, loadedXml_,
                                    "<" + loadedXml_.Name() + "> has no <XIF_LINE" + std::to_string(line) +
                                        ">, so all values of line " + std::to_string(line) +
                                        " are written as " + whose));
        for (std::size_t i = 0; element && i < kProfileFields.size(); ++i) {
            const ProfileField& field = kProfileFields[i];
            if (field.line != line || elements_[i] || IsRefused(field))
                continue;
            Finding finding =
                AtElement(Warning::missingValue, element,
                          "<" + element.Name() + "> has no <" + std::string(ElementName(field)) +
                              ">; it is written as " + std::to_string(this->*field.value) +
                              (wasLoaded_ ? ", " + whose : std::string()));
            finding.context.record = RecordOf(line);
            finding.context.field = ElementName(field);
            // A misspelt element explains it.
            if (const int nearest = XmlPlaceOf(field).line; nearest != finding.context.line)
                finding.causeLine = nearest;
            findings.Take(std::move(finding));
        }
    }
}

void CProfile::TellXifReadings(FindingSink& findings) const {
    const std::string bytes = ReadFile(xifFile);
    std::string_view rest = bytes;
    if (LooksLikeUtf16(bytes)) {
        findings.Take({.context = {.file = xifFile, .line = 1, .reason = std::string(kXifInUtf16)},
                       .warning = Warning::encoding,
                       .part = LinePart::all});
        return;
    }
    for (int number = 1; number <= kLastProfileLine; ++number) {
        const std::string_view line = TakeLine(rest);
        if (number >= kFirstProfileLine)
            TellXifLine(line, number, findings);
    }
}

void CProfile::TellXifLine(std::string_view line, int number, FindingSink& findings) const {
    // The maximum number of network variables, which the template gives, stands last in line 6.
    constexpr int kLastOfLine6 = 23;
    // Line 8 is always written with the transceiver type 1.
    constexpr int kTransceiverType = 3;
    const std::string_view trimmed = TrimBlanks(line);
    std::size_t start = trimmed.empty() ? 0 : static_cast<std::size_t>(trimmed.data() - line.data());
    const std::size_t end = start + trimmed.size();
    const auto tell = [&](Warning warning, std::size_t from, std::size_t to, std::string_view field,
                          std::string reason) {
        findings.Take({.context = {.record = RecordOf(number),
                                   .field = std::string(field),
                                   .value = Excerpt(line.substr(from, to - from)),
                                   .file = xifFile,
                                   .line = number,
                                   .reason = std::move(reason)},
                       .warning = warning,
                       .column = static_cast<int>(from) + 1,
                       .width = static_cast<int>(std::max<std::size_t>(to - from, 1))});
    };
    int last = number == kFirstProfileLine ? kLastOfLine6 : 0;
    bool isShifted = false;
    for (const ProfileField& field : kProfileFields)
        if (field.line == number)
            last = std::max(last, field.token);
    int token = 1;
    for (; start < end && token <= last; ++token) {
        const std::size_t stop = std::min(line.find(' ', start), end);
        const std::string_view text = line.substr(start, stop - start);
        for (const ProfileField& field : kProfileFields) {
            if (field.line != number || field.token != token)
                continue;
            const double value = LeadingProfileNumber(text);
            if (text.empty())
                tell(Warning::notANumber, start, stop, field.name,
                     "two blanks in a row make an empty number, which is read as 0 and moves those behind "
                     "it by one place");
            else if (!IsProfileNumber(text) || value != std::nearbyint(value))
                tell(Warning::notANumber, start, stop, field.name,
                     NotANumber(text, field.name, std::to_string(this->*field.value), {}));
        }
        isShifted = isShifted || text.empty();
        if (number == 8 && token == kTransceiverType && !isShifted && text != "1")
            tell(Warning::extraValues, start, stop, {},
                 "the transceiver type \"" + Excerpt(text) + "\" is not read and is written as 1");
        start = stop + 1;
    }
    if (start >= end || isShifted)
        return;
    const std::string_view behind = line.substr(start, end - start);
    const auto count = 1 + std::count(behind.begin(), behind.end(), ' ');
    tell(Warning::extraValues, start, end, {},
         (count == 1 ? std::string("1 number") : std::to_string(count) + " numbers") + " behind the " +
             std::to_string(last) + " that an interface file of version 4.0 has in line " +
             std::to_string(number) + (count == 1 ? " is" : " are") + " not read");
}

}  // namespace tovarek
