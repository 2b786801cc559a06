#include "Runs.h"
#include "profile/ProfileFields.h"

namespace {

// Keeps what is written.
class TextSink : public tovarek::FileSink {
  public:
    void Append(std::string_view bytes) override { text += bytes; }
    void Close() override {}
    std::string text;
};

std::string XifOf(const tovarek::CProfile& profile) {
    TextSink sink;
    tovarek::WriteXifText(sink, "node.xif", profile, tovarek::CTemplate(), tovarek::CResources(),
                          *tovarek::FixedClock(0));
    return sink.text;
}

}  // namespace

std::vector<std::string> tovarek::fuzz::Seeds() {
    CProfile profile;
    for (const ProfileField& field : kProfileFields)
        profile.*field.value = 1;
    profile.typeneuron = 8;
    const std::string sound = XifOf(profile);
    return {sound, sound.substr(0, 400), "1\n2\n3\n4\n5\n1  2\n\n\n\n\n",
            "\r\r\r\r\r&H1 &o7 1.5e3 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1\r"};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovarek;
    const fuzz::InputFile file(fuzz::View(data, size));
    const std::optional<CProfile> profile = fuzz::RunProfile(&CProfile::xifFile, file.Path());
    if (!profile)
        return 0;

    // What the writer makes of a profile is a source of the same profile.
    const fuzz::InputFile written(XifOf(*profile));
    const std::optional<CProfile> again = fuzz::RunProfile(&CProfile::xifFile, written.Path());
    fuzz::Require(again.has_value(), "a written file is a profile");
    for (const ProfileField& field : kProfileFields)
        fuzz::Require((*again).*field.value == (*profile).*field.value, "a written profile is read back");
    return 0;
}
