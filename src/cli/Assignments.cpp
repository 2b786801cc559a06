#include "cli/Assignments.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/Nearest.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "cli/Json.h"
#include "cli/Locations.h"
#include "support/CTools.h"
#include "system/Files.h"

namespace tovarek {
namespace {

const Property& PropertyOf(const std::string& name) {
    if (const Property* property = FindProperty(name))
        return *property;
    std::vector<std::string> names;
    for (const Property& property : Properties())
        names.emplace_back(property.name);
    throw WrongUse("there is no property '" + Excerpt(name) + "'" + DidYouMean(name, names));
}

[[noreturn]] void RefuseValue(const Property& property, const std::string& shown, const std::string& wanted) {
    throw WrongUse("'" + Excerpt(shown) + "' cannot be the value of " + std::string(property.name) +
                   "; give " + wanted);
}

constexpr const char* kBooleanWanted = "true or false";
constexpr const char* kIntegerWanted = "a whole number from -2147483648 to 2147483647";
constexpr const char* kStringWanted = "a text in quotation marks";

XmlNode LoadElement(const std::string& file, const std::string& element) {
    return CTools().SearchXmlNode(file, element, CErrorHandler());
}

std::optional<bool> BooleanOf(const std::string& text) {
    const std::string upper = UpperCase(text);
    if (upper == "TRUE" || upper == "1")
        return true;
    if (upper == "FALSE" || upper == "0")
        return false;
    return std::nullopt;
}

PropertyValue ValueOfText(const Property& property, const std::string& text) {
    switch (property.kind) {
        case PropertyKind::boolean:
            if (const auto value = BooleanOf(text))
                return *value;
            RefuseValue(property, text, kBooleanWanted);
        case PropertyKind::integer:
            if (const auto value = ExactNumber<std::int32_t>(text))
                return *value;
            RefuseValue(property, text, kIntegerWanted);
        case PropertyKind::node: {
            const std::size_t mark = text.rfind('#');
            if (text.empty())
                return XmlNode();
            if (mark == std::string::npos)
                RefuseValue(property, text, "FILE#ELEMENT, such as template.xml#DEVICE");
            return LoadElement(text.substr(0, mark), text.substr(mark + 1));
        }
        case PropertyKind::string:
            break;
    }
    return text;
}

// What names an input in a job. The catalog's file name stands in the catalog's folder.
constexpr std::string_view kInputProperties[] = {
    "catalogDir",      "iniProfileFile",  "xmlProfileFile",  "xmlProfileNode",     "xifProfileFile",
    "iniTemplateFile", "xmlTemplateFile", "xmlTemplateNode", "typeFilesXMLFormat", "userTypeFilePath",
};

bool Exists(const std::string& path) {
    return FileExists(path) || FolderExists(path);
}

// A job and its inputs are moved together, so inputs count from the job's folder. Outputs are the business of
// whoever runs it and count from the current folder.
std::string PathInJob(const std::string& job, const Property& property, const std::string& path) {
    if (std::find(std::begin(kInputProperties), std::end(kInputProperties), property.name) ==
        std::end(kInputProperties))
        return path;
    std::string beside = BesideFile(job, path);
    if (!Exists(beside) && Exists(path))
        throw WrongUse(std::string(property.name) + " '" + Excerpt(path) +
                       "' counts from the folder of the job file, so it is looked for at '" + beside +
                       "'; it is only in the current folder: write the path as seen from the job file");
    return beside;
}

PropertyValue ValueOfJson(const std::string& job, const Property& property, const Json& json) {
    const auto refuse = [&](const char* wanted) {
        const bool isQuoted = property.kind != PropertyKind::string && json.is_string();
        RefuseValue(property, json.dump(-1, ' ', false, Json::error_handler_t::replace),
                    std::string(wanted) + (isQuoted ? " without quotation marks" : ""));
    };
    switch (property.kind) {
        case PropertyKind::boolean:
            if (!json.is_boolean())
                refuse(kBooleanWanted);
            return json.get<bool>();
        case PropertyKind::integer:
            if (!json.is_number_integer() ||
                (json.is_number_unsigned() && json.get<std::uint64_t>() > INT32_MAX) ||
                json.get<std::int64_t>() < INT32_MIN)
                refuse(kIntegerWanted);
            return json.get<std::int32_t>();
        case PropertyKind::node:
            if (!json.is_object() || !json.contains("file") || !json.contains("element") ||
                json.size() != 2 || !json["file"].is_string() || !json["element"].is_string())
                refuse(R"({"file": path, "element": name})");
            return LoadElement(PathInJob(job, property, json["file"].get<std::string>()),
                               json["element"].get<std::string>());
        case PropertyKind::string:
            break;
    }
    if (!json.is_string())
        refuse(kStringWanted);
    return PathInJob(job, property, json.get<std::string>());
}

// What the JSON reader refuses, without its own numbers.
std::string JsonFault(const std::string& bytes, const Json::exception& error) {
    std::string text = error.what();
    std::string place;
    if (const auto* parse = dynamic_cast<const Json::parse_error*>(&error)) {
        const std::string_view read(bytes.data(),
                                    std::min(bytes.size(), parse->byte - (parse->byte > 0 ? 1 : 0)));
        const auto line = 1 + std::count(read.begin(), read.end(), '\n');
        place = " at line " + std::to_string(line) + ", column " +
                std::to_string(read.size() - (read.rfind('\n') + 1) + 1);
    }
    for (const std::string_view end : {"] ", " - "})
        if (const std::size_t found = text.find(end); found != std::string::npos)
            text.erase(0, found + end.size());
    return " is not valid JSON" + place + ": " + text +
           "; names and texts stand in quotation marks, true, false and numbers do not";
}

std::string ReadJobFile(const std::string& path) {
    try {
        return ReadFile(path);
    } catch (const Error& error) {
        const std::string& reason = error.Context().reason;
        throw WrongUse("job file '" + path + "': " + (reason.empty() ? error.Description() : reason));
    }
}

// The line of a key of a job behind `earlier` others of its name; 0 for one that is written with escapes.
int LineOfKey(const std::string& bytes, const std::string& name, int earlier = 0) {
    const std::string quoted = '"' + name + '"';
    for (std::size_t at = bytes.find(quoted); at != std::string::npos; at = bytes.find(quoted, at + 1)) {
        const std::size_t next = bytes.find_first_not_of(kWhiteSpace, at + quoted.size());
        if (next == std::string::npos || bytes[next] != ':' || earlier-- > 0)
            continue;
        int line = 0;
        for (std::string_view rest = bytes; bytes.size() - rest.size() <= at; ++line)
            TakeLine(rest);
        return line;
    }
    return 0;
}

// The job as one JSON object, keys in the order of the file. The same key twice is refused: which one acts
// last would be a guess.
Json ReadJob(const std::string& path, const std::string& bytes) {
    std::vector<std::vector<std::string>> keys;
    std::string repeated;
    const Json::parser_callback_t watch = [&](int depth, Json::parse_event_t event, Json& parsed) {
        constexpr int kDeepestValue = 32;
        if (depth > kDeepestValue)
            throw WrongUse("job file '" + path + "' is nested too deeply");
        if (event == Json::parse_event_t::object_start)
            keys.emplace_back();
        else if (event == Json::parse_event_t::object_end)
            keys.pop_back();
        else if (event == Json::parse_event_t::key) {
            const auto key = parsed.get<std::string>();
            if (std::find(keys.back().begin(), keys.back().end(), key) != keys.back().end())
                repeated = key;
            keys.back().push_back(key);
        }
        return true;
    };
    try {
        Json job = Json::parse(bytes, watch);
        if (!repeated.empty())
            throw WrongUse("job file '" + path + "', line " + std::to_string(LineOfKey(bytes, repeated, 1)) +
                           ": '" + Excerpt(repeated) + "' is set a second time; keep one of them");
        if (!job.is_object())
            throw WrongUse("job file '" + path + "' does not hold a JSON object {property: value}");
        return job;
    } catch (const Json::exception& error) {
        throw WrongUse("job file '" + path + "'" + JsonFault(bytes, error));
    }
}

}  // namespace

SetProperty AssignText(Tovarek& component, const std::string& name, const std::string& text) {
    const Property& property = PropertyOf(name);
    property.set(component, ValueOfText(property, text));
    return {.name = name, .isEmpty = text.empty()};
}

SetProperty AssignPair(Tovarek& component, const std::string& pair) {
    const std::size_t equals = pair.find('=');
    if (equals == std::string::npos)
        throw WrongUse("'" + Excerpt(pair) + "' has no '='; give NAME=VALUE, such as localeID=1033");
    return AssignText(component, pair.substr(0, equals), pair.substr(equals + 1));
}

std::vector<SetProperty> AssignJob(Tovarek& component, const std::string& path, FindingSink& findings) {
    const std::string bytes = ReadJobFile(path);
    const Json job = ReadJob(path, bytes);
    std::vector<SetProperty> set;
    for (const auto& [name, value] : job.items()) {
        // Tells editors what the keys mean.
        if (name == "$schema")
            continue;
        const int line = LineOfKey(bytes, name);
        try {
            const Property& property = PropertyOf(name);
            // Clang 14 lets no lambda take a part of a structured binding by its name alone.
            TellingErrors(findings, [&, &given = value] {
                property.set(component, ValueOfJson(path, property, given));
            });
        } catch (const WrongUse& fault) {
            throw WrongUse("job file '" + path + "'" + (line > 0 ? ", line " + std::to_string(line) : "") +
                           ": " + fault.what());
        }
        set.push_back({name, path, line, value.is_string() && value.get<std::string>().empty()});
    }
    return set;
}

}  // namespace tovarek
