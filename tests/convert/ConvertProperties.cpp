// Devices of all kinds that every form can hold: the XIF file of one and that of its converted inputs are the
// same.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "../Scratch.h"
#include "base/Text.h"
#include "component/XifWriter.h"
#include "convert/FromInput.h"
#include "convert/FromXif.h"
#include "convert/InputText.h"
#include "profile/CProfile.h"
#include "profile/ProfileFields.h"
#include "system/Clock.h"

namespace tovarek::test {
namespace {

std::int32_t Between(std::int32_t low, std::int32_t high) {
    return *rc::gen::inRange(low, high + 1);
}

std::string Any(const std::vector<std::string>& pieces, int longest) {
    std::string text;
    for (int i = Between(1, longest); i > 0; --i)
        text += *rc::gen::elementOf(pieces);
    return text;
}

// Letters of names that are names of XML elements and one word in an XIF file.
std::string AnyName() {
    return *rc::gen::elementOf(std::vector<std::string>{"nvi", "nvo", "_", "cp"}) +
           Any({"a", "B", "9", "-", ".", "\xC3\xA4"}, 12);
}

// Texts that stand in one line of an INI file: marks of all forms inside, none of them at the ends.
std::string AnyText() {
    return Between(0, 3) == 0 ? ""
                              : "&" +
                                    Any({"a", " ", "\"", "'", ";", "<", "&", ">", "--", "]]>", "=", "\\xB0",
                                         "\xC2\xB0", "\t"},
                                        90) +
                                    ".";
}

std::string AnyHex(std::int32_t bytes) {
    std::string text;
    for (std::int32_t i = 0; i < bytes; ++i)
        AppendHex(text, static_cast<unsigned>(Between(0, 255)), 2);
    return text;
}

CTemplate AnyDevice() {
    CTemplate device;
    device.programID = AnyHex(8);
    device.selfDocumentation = AnyText();
    std::int32_t index = 0;
    for (int i = Between(0, 5); i > 0; --i) {
        CNv nv;
        nv.name = AnyName();
        nv.selfdoc = AnyText();
        nv.avgRate = Between(0, 250);
        nv.maxRate = Between(0, 250);
        nv.arraySize = Between(0, 3);
        nv.index = index;
        index += std::max(1, nv.arraySize);
        for (std::int32_t CNv::*flag :
             {&CNv::offline, &CNv::direction, &CNv::serviceCanBeChanged, &CNv::defaultAuth,
              &CNv::authCanBeChanged, &CNv::defaultPriority, &CNv::priorityCanBeChanged, &CNv::polled,
              &CNv::synchronized, &CNv::configuration})
            nv.*flag = Between(0, 1);
        nv.defaultService = Between(0, 2);
        nv.typeIndex = *rc::gen::elementOf(std::vector<std::int32_t>{0, 8, 95, 105});
        nv.length = nv.typeIndex == 0 ? Between(1, 31) : 2;
        device.nvs.push_back(nv);
    }
    for (int i = Between(0, 3); i > 0; --i) {
        CTag tag;
        tag.name = AnyName();
        tag.avgRate = Between(0, 250);
        tag.maxRate = Between(0, 250);
        tag.bindable = Between(0, 1);
        tag.index = static_cast<std::int32_t>(device.tags.size());
        device.tags.push_back(tag);
    }
    for (int i = Between(0, 4); i > 0; --i) {
        CCp cp;
        const std::int32_t length = Between(1, 31);
        const std::int32_t count = Between(0, 3);
        cp.declaration = std::to_string(Between(0, 2)) + ",1.2,0\\x80," + std::to_string(Between(1, 380)) +
                         ',' + std::to_string(length) + (count > 0 ? ',' + std::to_string(count) : "") + ';';
        cp.defaultValue = AnyHex(length * std::max(1, count));
        device.cps.push_back(cp);
    }
    device.versionCP = device.cps.empty() ? "" : "1.1";
    device.numberStaticNvs = static_cast<std::int32_t>(device.nvs.size());
    device.maximumNumberOfNvs = device.numberStaticNvs + Between(0, 3);
    device.numberOfMessageTags = static_cast<std::int32_t>(device.tags.size());
    device.numberOfCps = static_cast<std::int32_t>(device.cps.size());
    return device;
}

class Text : public FileSink {
  public:
    void Append(std::string_view bytes) override { text += bytes; }
    void Close() override {}
    std::string text;
};

std::string XifOf(const ProfileValues& values, const CTemplate& device) {
    CProfile profile;
    static_cast<ProfileValues&>(profile) = values;
    Text text;
    WriteXifText(text, "n.xif", profile, device, CResources(), *FixedClock(0));
    return text.text;
}

TEST(ConvertProperties, DevicesThatEveryFormHoldsComeBack) {
    const Scratch scratch;
    std::unique_ptr<StandardCatalog> catalog;
    ASSERT_TRUE(StandardCatalog::Open(std::string(TOVAREK_CATALOG) + "/ldrf.cat", catalog).Ok());
    const ResourceNames names(catalog.get());
    EXPECT_TRUE(rc::check([&] {
        CTemplate device = AnyDevice();
        ProfileValues profile;
        for (const ProfileField& field : kProfileFields)
            profile.*field.value = *rc::gen::arbitrary<std::int32_t>();
        const std::string given = XifOf(profile, device);
        XifFile file;
        RC_ASSERT(ReadXifFile(given, file).reason == "");
        const DeviceInterface found = InterfaceOfXif(file, *catalog);
        RC_ASSERT(found.losses.empty());
        for (const InputForm form : {InputForm::ini, InputForm::xml}) {
            const std::string ending = form == InputForm::ini ? ".ini" : ".xml";
            const std::string profilePath = scratch.File("p" + ending, ProfileText(found.profile, form));
            const std::string templatePath =
                scratch.File("t" + ending, TemplateText(found.device, form, names));
            std::vector<Loss> losses;
            TellProfileLosses(found.profile, profilePath, form, losses);
            TellTemplateLosses(found.device, templatePath, form, losses);
            for (const Loss& loss : losses)
                RC_LOG(loss.record + " " + loss.field + " " + loss.value + " " + loss.reason);
            RC_ASSERT(losses.empty());
            const auto read = [&](const std::string& path) {
                return form == InputForm::ini ? InterfaceOfIni(path) : InterfaceOfXml(path, "");
            };
            DeviceInterface again = read(templatePath);
            // What the rules of a template complete.
            for (CNv& nv : again.device.nvs)
                nv.length = nv.typeIndex > 0 ? 2 : nv.length;
            RC_ASSERT(XifOf(read(profilePath).profile, again.device) == given);
        }
    }));
}

}  // namespace
}  // namespace tovarek::test
