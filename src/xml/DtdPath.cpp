#include "xml/DtdPath.h"

#include "base/Path.h"
#include "base/Text.h"

namespace tovarek {
namespace {

bool IsSlash(std::string_view path, std::size_t i) {
    return i < path.size() && kPathSeparators.find(path[i]) != std::string_view::npos;
}

bool HasDrive(std::string_view path) {
    return path.size() > 1 && path[1] == ':' && AsciiUpper(path[0]) >= 'A' && AsciiUpper(path[0]) <= 'Z';
}

bool StartsWith(std::string_view text, std::string_view capitals) {
    return UpperCase(text.substr(0, capitals.size())) == capitals;
}

std::string WithoutEscapes(std::string_view name) {
    std::string plain;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto byte =
            name[i] == '%' && i + 2 < name.size() ? FromHex(name.substr(i + 1, 2)) : std::nullopt;
        plain += byte ? byte->front() : name[i];
        i += byte ? 2U : 0U;
    }
    return plain;
}

// The path in a URL behind "file:"; nothing when it names another machine.
std::optional<std::string_view> PathOfUrl(std::string_view url) {
    if (IsSlash(url, 0) && IsSlash(url, 1)) {
        url.remove_prefix(2);
        const std::string_view machine = url.substr(0, url.find_first_of(kPathSeparators));
        if (!machine.empty() && UpperCase(machine) != "LOCALHOST")
            return std::nullopt;
        url.remove_prefix(machine.size());
    }
    if (IsSlash(url, 0) && HasDrive(url.substr(1)))
        url.remove_prefix(1);
    return url;
}

// The drive or share of a path, empty when it names none.
std::string_view RootOf(std::string_view path) {
    if (HasDrive(path))
        return path.substr(0, 2);
    if (!path.starts_with("\\\\"))
        return {};
    const std::size_t share = path.find_first_of(kPathSeparators, 2);
    return share == std::string_view::npos ? path
                                           : path.substr(0, path.find_first_of(kPathSeparators, share + 1));
}

// Without a separator the drive alone: the folder in which it stands.
std::string FolderOrRoot(std::string_view path) {
    const std::string folder = FolderOf(path);
    return folder.empty() ? std::string(RootOf(path)) : folder;
}

}  // namespace

std::optional<std::string> DtdPath(std::string_view document, std::string_view name) {
    const std::string plain = WithoutEscapes(name);
    std::string_view path = plain;
    if (StartsWith(path, "FILE:")) {
        const auto inUrl = PathOfUrl(path.substr(5));
        if (!inUrl)
            return std::nullopt;
        path = *inUrl;
    }
    const bool isOnNetwork = IsSlash(path, 0) && IsSlash(path, 1);
    if (path.empty() || isOnNetwork || path.find('\0') != std::string_view::npos)
        return std::nullopt;
    if (HasDrive(path))
        return std::string(path);
    const std::size_t colon = path.find_first_of(":/\\");
    if (colon != std::string_view::npos && path[colon] == ':')
        return std::nullopt;
    return (IsSlash(path, 0) ? std::string(RootOf(document)) : FolderOrRoot(document)).append(path);
}

}  // namespace tovarek
