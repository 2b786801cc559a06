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

// What stands around creator, phone and e-mail.
constexpr std::string_view kMaintained = "This file was created & is maintained by ";
constexpr std::string_view kBehindCreator = ".\n";
constexpr std::string_view kContact = "Contact us at ";
constexpr std::string_view kBehindPhone = ",\nor at ";
constexpr std::string_view kBehindEmail = " on the internet.\n";

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
    std::string text;
    text.append(kMaintained).append(creator).append(kBehindCreator);
    if (!phone.empty() || !email.empty())
        text.append(kContact).append(phone).append(kBehindPhone).append(email).append(kBehindEmail);
    return text;
}

Contact ContactOf(std::string_view text) {
    std::string_view rest = text;
    const std::size_t end = rest.find(kBehindCreator);
    if (!rest.starts_with(kMaintained) || end == std::string_view::npos)
        return {std::string(text), {}, {}};
    Contact contact;
    contact.creator = rest.substr(kMaintained.size(), end - kMaintained.size());
    rest.remove_prefix(end + kBehindCreator.size());
    const std::size_t comma = rest.find(kBehindPhone);
    if (rest.starts_with(kContact) && rest.ends_with(kBehindEmail) && comma != std::string_view::npos) {
        contact.phone = rest.substr(kContact.size(), comma - kContact.size());
        rest.remove_prefix(comma + kBehindPhone.size());
        contact.email = rest.substr(0, rest.size() - kBehindEmail.size());
    }
    return contact;
}

}  // namespace tovarek
