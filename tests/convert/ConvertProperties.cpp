// Devices of all kinds that every form can hold: the XIF file of one and that of its converted inputs are the
// same. Of devices that a form cannot hold each loss is listed, and nothing else. "convert-measures
// properties 5000 SEED convert_tests" holds them over more devices; the same seed makes the same ones.
//
// A device has up to 5 variables, 3 tags and 4 properties. Names begin with a letter or "_" and go on with
// ASCII letters, digits, "-", "." and "\xC3\xA4"; texts have up to 90 pieces with the marks of all forms, no
// line breaks, and no blank or quote at their ends. Numbers of the template are those that it accepts, those
// of the profile any of 32 bits. Standard types are 8, 95 and 105, others 1 to 31 bytes large.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <map>
#include <set>

#include "../Scratch.h"
#include "base/Text.h"
#include "component/XifWriter.h"
#include "convert/FromInput.h"
#include "convert/FromXif.h"
#include "convert/InputText.h"
#include "profile/CProfile.h"
#include "profile/ProfileFields.h"
#include "system/Clock.h"
#include "template/TemplateFields.h"

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

// Names and texts that some form cannot hold.
std::string OddText() {
    return Any(
        {"a", "B", "9", " ", "\"", "'", "<", "\n", "\r\n", "\x01", "\t", "=", ";", std::string(600, 'x')}, 3);
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

// What is read of a template that was written in a form.
class Passage {
  public:
    Passage() {
        StandardCatalog::Open(std::string(TOVAREK_CATALOG) + "/ldrf.cat", catalog_);
        names_ = std::make_unique<ResourceNames>(catalog_.get());
    }

    const StandardCatalog& Catalog() const { return *catalog_; }

    CTemplate Of(const CTemplate& device, InputForm form, std::vector<Loss>& losses) const {
        const std::string path =
            scratch_.File(form == InputForm::ini ? "t.ini" : "t.xml", TemplateText(device, form, *names_));
        TellTemplateLosses(device, path, form, losses);
        return Read(path, form).device;
    }
    ProfileValues Of(const ProfileValues& profile, InputForm form, std::vector<Loss>& losses) const {
        const std::string path =
            scratch_.File(form == InputForm::ini ? "p.ini" : "p.xml", ProfileText(profile, form));
        TellProfileLosses(profile, path, form, losses);
        return Read(path, form).profile;
    }

  private:
    static DeviceInterface Read(const std::string& path, InputForm form) {
        return form == InputForm::ini ? InterfaceOfIni(path) : InterfaceOfXml(path, "");
    }

    Scratch scratch_;
    std::unique_ptr<StandardCatalog> catalog_;
    std::unique_ptr<ResourceNames> names_;
};

TEST(ConvertProperties, DevicesThatEveryFormHoldsComeBack) {
    const Passage passage;
    EXPECT_TRUE(rc::check([&] {
        const CTemplate device = AnyDevice();
        ProfileValues profile;
        for (const ProfileField& field : kProfileFields)
            profile.*field.value = *rc::gen::arbitrary<std::int32_t>();
        const std::string given = XifOf(profile, device);
        XifFile file;
        RC_ASSERT(ReadXifFile(given, file).reason == "");
        DeviceInterface found = InterfaceOfXif(file, passage.Catalog());
        RC_ASSERT(found.losses.empty());
        // From the XIF file to the one form, from there to the other and back.
        for (const InputForm form : {InputForm::ini, InputForm::xml, InputForm::ini}) {
            std::vector<Loss> losses;
            found.profile = passage.Of(found.profile, form, losses);
            found.device = passage.Of(found.device, form, losses);
            // XML needs names for properties that have none.
            for (CCp& cp : found.device.cps)
                cp.name.clear();
            for (const Loss& loss : losses)
                RC_LOG(loss.record + " " + loss.field + " " + loss.value + " " + loss.reason);
            RC_ASSERT(losses.empty());
            CTemplate again = found.device;
            // What the rules of a template complete.
            for (CNv& nv : again.nvs)
                nv.length = nv.typeIndex > 0 ? 2 : nv.length;
            RC_ASSERT(XifOf(found.profile, again) == given);
        }
    }));
}

// The texts of a device, each with the title of its record and the name of its field.
std::map<std::pair<std::string, std::string>, std::string> TextsOf(const CTemplate& device,
                                                                   const CTemplate& titles) {
    std::map<std::pair<std::string, std::string>, std::string> texts;
    texts[{"template", "selfDoc"}] = device.selfDocumentation;
    for (std::size_t i = 0; i < titles.nvs.size(); ++i) {
        const std::string title = RecordTitle(titles.nvs[i], i);
        texts[{title, "name"}] = device.nvs.at(i).name;
        texts[{title, "selfdoc"}] = device.nvs.at(i).selfdoc;
    }
    for (std::size_t i = 0; i < titles.tags.size(); ++i)
        texts[{RecordTitle(titles.tags[i], i), "name"}] = device.tags.at(i).name;
    for (std::size_t i = 0; i < titles.cps.size(); ++i) {
        const std::string title = RecordTitle(titles.cps[i], i);
        texts[{title, "name"}] = device.cps.at(i).name;
        texts[{title, "declaration"}] = device.cps.at(i).declaration;
    }
    return texts;
}

TEST(ConvertProperties, WhatAFormCannotHoldIsListedAndNothingElse) {
    const Passage passage;
    EXPECT_TRUE(rc::check([&] {
        CTemplate device = AnyDevice();
        const auto change = [](std::string& text, std::string (*make)()) {
            text = Between(0, 2) == 0 ? make() : text;
        };
        change(device.selfDocumentation, OddText);
        for (CNv& nv : device.nvs) {
            change(nv.name, OddText);
            change(nv.selfdoc, OddText);
        }
        for (CTag& tag : device.tags)
            change(tag.name, OddText);
        for (CCp& cp : device.cps) {
            cp.name = AnyName();
            change(cp.name, OddText);
            if (Between(0, 2) == 0)
                cp.declaration += OddText();
        }
        for (const InputForm form : {InputForm::ini, InputForm::xml}) {
            std::vector<Loss> losses;
            const CTemplate held = passage.Of(device, form, losses);
            const auto old = TextsOf(device, device);
            const auto now = TextsOf(held, device);
            std::set<std::pair<std::string, std::string>> different;
            for (const auto& [place, text] : old)
                if (now.at(place) != text)
                    different.insert(place);
            std::set<std::pair<std::string, std::string>> listed;
            for (const Loss& loss : losses)
                listed.insert({loss.record, loss.field});
            RC_ASSERT(listed == different);
            RC_ASSERT(listed.size() == losses.size());
        }
    }));
}

}  // namespace
}  // namespace tovarek::test
