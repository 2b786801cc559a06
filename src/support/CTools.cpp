#include "support/CTools.h"

#include <algorithm>
#include <set>

#include "base/Nearest.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "system/Files.h"

namespace tovarek {
namespace {

#ifdef _WIN32
constexpr std::string_view kSeparators = "\\:";
constexpr std::string_view kFolderSeparators = "\\";
#else
// A user of POSIX writes "/"; both forms are understood, so that a path means the same on every platform.
constexpr std::string_view kSeparators = "\\:/";
constexpr std::string_view kFolderSeparators = "\\/";
#endif

// The first element from `start` on that `is` wanted: `start`, what is below it, its following siblings.
template <class Predicate>
XmlNode FindElement(const XmlNode& start, const Predicate& is) {
    std::vector<XmlNode> pending{start};
    while (!pending.empty()) {
        XmlNode node = pending.back();
        pending.pop_back();
        if (!node)
            continue;
        if (node.IsElement() && is(node))
            return node;
        pending.push_back(node.NextSibling());
        pending.push_back(node.FirstChild());
    }
    return {};
}

// The context of an element that does not exist, with what stands near its name.
ErrorContext MissingElement(const XmlNode& start, const std::string& file, const std::string& name,
                            const char* property) {
    ErrorContext context{.record = "element <" + name + ">", .field = property, .value = name, .file = file};
    if (name.empty()) {
        context.reason = "this is empty; set it to the name of an element of the file";
        return context;
    }
    std::set<std::string> names;
    FindElement(start, [&](const XmlNode& element) {
        names.insert(element.Name());
        return false;
    });
    context.reason = "no element has this name; letter case and prefix count";
    std::string nearest = Nearest(name, {names.begin(), names.end()});
    // A part of a name is no near one.
    for (const std::string& whole : names)
        if (nearest.empty() && UpperCase(whole).find(UpperCase(name)) != std::string::npos)
            nearest = whole;
    if (nearest.empty())
        return context;
    const XmlNode meant =
        FindElement(start, [&](const XmlNode& element) { return element.Name() == nearest; });
    context.line = meant.Line();
    context.column = meant.Place().column;
    context.reason += "; did you mean <" + nearest + "> in line " + std::to_string(context.line) + "?";
    return context;
}

}  // namespace

XmlNode FirstNodeOf(const std::string& path, eErrors unloaded, const CErrorHandler& errorHandler) {
    const XmlDocument document(path);
    if (!document.IsLoaded())
        errorHandler.RaiseError(unloaded,
                                {.file = path, .line = document.Line(), .reason = document.Reason()});
    return document.FirstNode();
}

std::int32_t IntegerOfElement(const XmlNode& element, std::string_view text) {
    if (const auto number = FittingInt32(text))
        return *number;
    RaiseRuntimeError(RuntimeError::overflow, OverflowIn(element, text, element.Name()));
}

ErrorContext OverflowIn(const XmlNode& element, std::string_view text, std::string_view field) {
    return {.field = std::string(field),
            .value = Excerpt(text),
            .file = element.File(),
            .line = element.Line(),
            .column = element.Place().column,
            .reason = kOf32Bits};
}

std::string CTools::ExtractFile(std::string_view path, bool removeExtension) const {
    const std::size_t separator = path.find_last_of(kSeparators);
    if (separator == std::string_view::npos)
        return std::string(path);
    std::string_view name = path.substr(separator + 1);
    if (removeExtension)
        name = name.substr(0, name.find('.'));
    return std::string(name.empty() ? path : name);
}

std::string CTools::ExtractPath(std::string_view path) const {
    const std::size_t separator = path.find_last_of(kSeparators);
    return std::string(separator == std::string_view::npos ? std::string_view() : path.substr(0, separator));
}

XmlNode CTools::SearchXmlNode(const std::string& xmlFile, const std::string& nodeName,
                              const CErrorHandler& errorsHandler, const char* property) const {
    const XmlNode first = FirstNodeOf(xmlFile, eQVXIFerr_errorloadingxmltemplatefile, errorsHandler);
    XmlNode found = FindElement(first, [&](const XmlNode& element) { return element.Name() == nodeName; });
    if (!found)
        errorsHandler.RaiseError(eQVXIFerr_xmlnodenotfoundintemplatefile,
                                 MissingElement(first, xmlFile, nodeName, property));
    return found;
}

std::string CTools::nodeTextValue(const XmlNode& node) const {
    for (XmlNode child = node.FirstChild(); child; child = child.NextSibling())
        if (child.Kind() == XmlNodeKind::text)
            return child.Text();
    return {};
}

void CTools::GetFields(std::string_view source, std::int32_t& nFields, std::vector<std::string>& fields,
                       char separator) const {
    std::string_view rest = TrimBlanks(source);
    nFields = 0;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(separator), rest.size());
        if (nFields == 0)
            fields.clear();
        fields.emplace_back(rest.substr(0, end));
        nFields = static_cast<std::int32_t>(fields.size());
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

std::string CTools::ReplaceBadCharInType(std::string_view s) const {
    std::string cleaned;
    cleaned.reserve(s.size());
    for (std::size_t position = 0; position < s.size();) {
        const char32_t character = NextCharacter(s, position);
        const char c = character < 0x80 ? static_cast<char>(character) : '\0';
        const bool good = IsDigit(c) || (AsciiUpper(c) >= 'A' && AsciiUpper(c) <= 'Z');
        cleaned.push_back(good ? c : '_');
    }
    return cleaned;
}

bool CTools::ValidateHexaString(std::string_view text) const {
    return !std::all_of(text.begin(), text.end(), IsHexDigit);
}

void CTools::CreateDirectory(std::string_view path) const {
    if (!path.empty() && kFolderSeparators.find(path.back()) != std::string_view::npos)
        path.remove_suffix(1);
    const std::size_t separator = path.find_last_of(kFolderSeparators);
    if (separator == std::string_view::npos || separator + 1 == path.size())
        return;
    const std::string wanted = UpperCase(path.substr(separator + 1));
    for (const std::string& entry : DirectoryEntries(path.substr(0, separator)))
        if (UpperCase(entry) == wanted)
            return;
    MakeDirectory(path);
}

std::string CTools::doubleToStringWithPoint(double value) const {
    return DoubleToText(value);
}

}  // namespace tovarek
