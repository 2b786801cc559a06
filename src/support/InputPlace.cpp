#include "support/InputPlace.h"

#include <algorithm>
#include <utility>

#include "base/Nearest.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "support/CTools.h"
#include "system/Files.h"

namespace tovarek {
namespace {

std::string InLine(int line) {
    return line > 0 ? " in line " + std::to_string(line) : std::string();
}

// What is nearest to `wanted` among the names that are nothing themselves.
std::string NearestUnknown(std::string_view wanted, std::vector<std::string> names,
                           const IsKnownName& isKnown) {
    std::erase_if(names, isKnown);
    return Nearest(wanted, names);
}

// The sections that stand for nothing themselves.
std::vector<std::string> UnknownSections(const IniText& text, const IsKnownName& isKnown) {
    std::vector<std::string> names;
    text.ForEachSection([&](std::string_view name) {
        if (!isKnown(name))
            names.emplace_back(name);
    });
    // The order of sections is that of a hash; the same file must give the same answer everywhere.
    std::sort(names.begin(), names.end());
    return names;
}

void TellMissingSection(const IniText& text, std::string_view section,
                        const std::vector<std::string>& unknown, InputPlace& place) {
    place.missing = InputPart::group;
    place.absence = "the file has no section [" + std::string(section) + "]";
    const std::string nearest = Nearest(section, unknown);
    if (nearest.empty())
        return;
    place.line = text.LineOf(nearest, {});
    place.absence += "; did you mean [" + nearest + "]" + InLine(place.line) + "?";
}

void TellMissingKey(const IniText& text, std::string_view section, std::string_view key,
                    const IsKnownName& isKnown, InputPlace& place) {
    IniSection keys;
    text.ReadSection(section, keys);
    const std::string nearest = NearestUnknown(key, keys.Keys(), isKnown);
    place.missing = InputPart::value;
    place.line = text.LineOf(section, nearest);
    place.absence = "section [" + std::string(section) + "] has no key '" + std::string(key) + "'";
    if (!nearest.empty())
        place.absence += "; did you mean '" + nearest + "'" + InLine(place.line) + "?";
}

}  // namespace

std::string ReadAs(std::string_view typed, std::string_view read) {
    if (TrimBlanks(typed) == read || read.empty())
        return {};
    const std::string as(read);
    if (TrimBlanks(typed).empty())
        return "an empty value reads as " + as;
    if (std::none_of(typed.begin(), typed.end(), IsDigit))
        return "this is not a number and reads as " + as;
    return "this reads as " + as;
}

std::string NotANumber(std::string_view typed, std::string_view field, std::string_view read,
                       std::string_view more) {
    std::string text =
        typed.empty() ? std::string(field) + " has no value" : "\"" + Excerpt(typed) + "\" is not a ";
    if (!typed.empty())
        text += IsNumber(typed) ? "whole number" : "number";
    constexpr std::string_view kNoBreakSpace = "\xC2\xA0";
    if (typed.find(kNoBreakSpace) != std::string_view::npos)
        text += ", for the no-break space in it";
    text += "; it is read as " + std::string(read);
    return more.empty() ? text : text + ", " + std::string(more);
}

std::string JoinSentences(std::string first, std::string_view second) {
    if (!first.empty() && !second.empty())
        first += first.ends_with('?') ? " " : "; ";
    return first.append(second);
}

IniSource::IniSource(std::string file, std::shared_ptr<const IniText> text)
    : file_(std::move(file)), text_(std::move(text)) {
    if (text_ && text_->SectionCount() > 0)
        return;
    std::string bytes;
    try {
        bytes = ReadFile(file_);
    } catch (const Error& error) {
        whyUnread_ = JoinSentences(error.Context().reason, "an INI file that cannot be read counts as empty");
    }
    text_ = std::make_shared<const IniText>(DecodeIni(std::move(bytes)));
}

InputPlace IniSource::Find(std::string_view section, std::string_view key, const IsKnownName& isKnownSection,
                           const IsKnownName& isKnownKey) const {
    InputPlace place{.file = file_};
    if (!whyUnread_.empty()) {
        place.missing = InputPart::file;
        place.absence = whyUnread_;
        return place;
    }
    const IniText& text = *text_;
    IniSection keys;
    text.ReadSection(section, keys);
    const std::string_view raw = keys.RawValue(key);
    if (!text.HasSection(section)) {
        if (!unknownSections_)
            unknownSections_ = UnknownSections(text, isKnownSection);
        TellMissingSection(text, section, *unknownSections_, place);
    } else if (raw.data() == nullptr) {
        TellMissingKey(text, section, key, isKnownKey, place);
    } else {
        place.line = text.LineOf(section, key);
        place.typed = raw;
        place.isCut = CharacterCount(TrimBlanks(raw)) > kLongestIniValue;
    }
    return place;
}

std::vector<XmlNode> ElementsBelow(const XmlNode& parent) {
    std::vector<XmlNode> elements;
    std::vector<XmlNode> pending{parent.FirstChild()};
    while (!pending.empty()) {
        const XmlNode node = pending.back();
        pending.pop_back();
        if (!node)
            continue;
        pending.push_back(node.NextSibling());
        if (!node.IsElement())
            continue;
        elements.push_back(node);
        pending.push_back(node.FirstChild());
    }
    return elements;
}

InputPlace FindXmlPlace(const XmlNode& parent, const std::vector<XmlNode>& elements, std::string_view name,
                        const IsKnownName& isKnown) {
    InputPlace place{.file = parent.File(),
                     .line = parent.Line(),
                     .column = parent.Place().column,
                     .width = parent.Place().width};
    std::vector<std::string> names;
    bool isFound = false;
    for (const XmlNode& element : elements) {
        names.push_back(element.Name());
        if (UpperCase(names.back()) != name)
            continue;
        isFound = true;
        place.line = element.Line();
        place.column = element.Place().column;
        place.width = element.Place().width;
        place.typed = CTools().nodeTextValue(element);
    }
    if (isFound)
        return place;
    place.missing = InputPart::value;
    place.absence = "<" + parent.Name() + "> has no element <" + std::string(name) + ">";
    const std::string nearest =
        NearestUnknown(name, names, [&](std::string_view other) { return isKnown(UpperCase(other)); });
    if (nearest.empty())
        return place;
    const XmlNode& meant =
        elements[static_cast<std::size_t>(std::find(names.begin(), names.end(), nearest) - names.begin())];
    place.line = meant.Line();
    place.column = meant.Place().column;
    place.width = meant.Place().width;
    place.absence += "; did you mean <" + nearest + ">" + InLine(place.line) + "?";
    return place;
}

ErrorContext ContextOf(const InputPlace& place, std::string record, std::string_view field,
                       std::string_view read, const Expected& expected) {
    ErrorContext context{.file = place.file, .line = place.line, .column = place.column};
    if (place.missing == InputPart::file) {
        context.reason = place.absence;
        return context;
    }
    context.record = std::move(record);
    if (place.missing == InputPart::group) {
        context.reason = place.absence;
        return context;
    }
    context.field = field;
    if (place.missing == InputPart::value) {
        context.reason = place.absence;
        if (!expected.values.empty())
            context.reason = JoinSentences(context.reason, "it takes " + expected.values);
    } else {
        context.value = Excerpt(place.typed);
        context.reason = ReadAs(place.typed, read);
        if (place.isCut)
            context.reason =
                JoinSentences(context.reason, "only the first " + std::to_string(kLongestIniValue) +
                                                  " characters of an INI value are read");
        if (!expected.values.empty())
            context.reason = JoinSentences(context.reason, "accepted: " + expected.values);
    }
    context.reason = JoinSentences(context.reason, expected.sentence);
    return context;
}

}  // namespace tovarek
