#include "formats/records/ResourceKinds.h"

namespace tovarek {
namespace {

constexpr bool RowsFollowTheirEnumeration() {
    for (std::size_t i = 0; i < kResourceKinds.size(); ++i)
        if (static_cast<std::size_t>(kResourceKinds.at(i).kind) != i)
            return false;
    return true;
}
static_assert(RowsFollowTheirEnumeration());

}  // namespace

std::string VersionText(int major, int minor) {
    return std::to_string(major) + (minor < 10 ? ".0" : ".") + std::to_string(minor);
}

std::string TitleText(ResourceKind kind, int majorVersion, int minorVersion) {
    std::string text(RowOf(kind).magic);
    text.append("\r\n").append(RowOf(kind).title);
    text += ", Data version " + VersionText(majorVersion, minorVersion);
    return text + ".\r\nThis file is a binary (non-ASCII) file - DO NOT EDIT!\r\n\x1A";
}

std::string ContactText(const std::string& creator, const std::string& phone, const std::string& email) {
    std::string text = "This file was created & is maintained by " + creator + ".\n";
    if (!phone.empty() || !email.empty())
        text += "Contact us at " + phone + ",\nor at " + email + " on the internet.\n";
    return text;
}

}  // namespace tovarek
