// The kinds of resource files: what tells them apart, and the texts that their headers begin with.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tovarek {

enum class ResourceKind { language, type, profile };

struct ResourceKindRow {
    ResourceKind kind;
    std::string_view magic;      // the first four bytes of every file of the kind
    std::string_view name;       // for messages
    std::string_view title;      // in the first text block
    std::string_view extension;  // lower case; that of a language file is its language
    // The string that describes the file, in the set's language file; creating calls name the kind by it as
    // well.
    std::uint8_t descriptionText;
};

inline constexpr auto kResourceKinds = std::to_array<ResourceKindRow>({
    {ResourceKind::language, "URES", "language file", "Language Resource (RES) file", "", 1},
    {ResourceKind::type, "UTYP", "type file", "NV and CP Type and Enum (TYP) file", "typ", 4},
    {ResourceKind::profile, "UFPT", "functional-profile file", "Functional Profile Template (FPT) file",
     "fpt", 3},
});

// The string that names the creator, in every file.
inline constexpr std::uint8_t kCreatorText = 2;

constexpr const ResourceKindRow& RowOf(ResourceKind kind) {
    return kResourceKinds[static_cast<std::size_t>(kind)];
}

// "2.05".
std::string VersionText(int major, int minor);

// The first text block as every writer fills it: magic, title with the data version, the warning, end mark.
std::string TitleText(ResourceKind kind, int majorVersion, int minorVersion);

// The second text block. Without phone and e-mail only the first line is written.
std::string ContactText(const std::string& creator, const std::string& phone, const std::string& email);

// The inverse; a text of another make is the creator as a whole.
struct Contact {
    std::string creator;
    std::string phone;
    std::string email;
};
Contact ContactOf(std::string_view text);

}  // namespace tovarek
