#include "base/Text.h"
#include "convert/FormWriters.h"
#include "convert/InputText.h"
#include "profile/ProfileFields.h"
#include "profile/ProfileRules.h"

namespace tovarek {
namespace {

// What the checks accept, without what they say of later versions.
std::string_view AcceptedFor(const ProfileField& field) {
    for (const auto member : {&ProfileRule::field, &ProfileRule::upperBound})
        for (const ProfileRule& rule : ProfileRules())
            if (rule.*member == field.value)
                return std::string_view(rule.accepted).substr(0, std::string_view(rule.accepted).find(';'));
    return {};
}

std::string CommentOf(const ProfileField& field) {
    return std::string(field.meaning) + "; accepted: " + std::string(AcceptedFor(field));
}

}  // namespace

std::string ProfileText(const ProfileValues& profile, InputForm form,
                        const std::vector<std::string>& comments, KeyComments keys) {
    IniWriter ini;
    XmlWriter xml;
    for (const std::string& comment : comments) {
        ini.Comment(comment);
        xml.Comment(comment);
    }
    xml.Open(kProfileElement);
    for (int line = kFirstProfileLine; line <= kLastProfileLine; ++line) {
        const std::string number = std::to_string(line);
        ini.Section("Line" + number);
        xml.Open("XIF_LINE" + number);
        for (const ProfileField& field : kProfileFields) {
            if (field.line != line)
                continue;
            const std::string value = std::to_string(profile.*field.value);
            if (keys == KeyComments::yes) {
                ini.Comment(CommentOf(field));
                xml.Comment(CommentOf(field));
            }
            ini.Key(field.iniKey, value);
            xml.Element(UpperCase(field.name), value);
        }
        xml.Close("XIF_LINE" + number);
    }
    xml.Close(kProfileElement);
    return form == InputForm::ini ? ini.Take() : xml.Take();
}

}  // namespace tovarek
