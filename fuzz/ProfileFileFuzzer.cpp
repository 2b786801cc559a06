#include "Runs.h"
#include "formats/profile/ProfileFile.h"

std::vector<std::string> tovarek::fuzz::Seeds() {
    std::vector<std::string> seeds(2);
    ProfileFile file;
    file.header.title = TitleText(ResourceKind::profile, 1, 0);
    file.header.scope = 3;
    WriteProfileFile(file, seeds[0]);

    ProfileNv nv;
    nv.number = 1;
    nv.name = "nviTemp";
    nv.mandatory = true;
    nv.type = {0, 105};
    nv.isInput = true;
    nv.service = 4;
    nv.values = {2, std::string("\x01\x02", 2), std::nullopt, std::string("\x7F\xFF", 2)};
    ProfileCp cp;
    cp.appliesTo = 1;
    cp.number = 1;
    cp.smallestArray = 1;
    cp.largestArray = 4;
    cp.name = "cpLimit";
    cp.type = {0, 17};
    Profile profile;
    profile.name = "UFPTcontroller";
    profile.key = 20000;
    profile.principalNv = 1;
    profile.nvs = {nv};
    profile.cps = {cp};
    file.profiles = {profile, std::nullopt};
    Require(WriteProfileFile(file, seeds[1]).Ok(), "the seed can be written");
    return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovarek;
    const auto same = [](const ProfileFile& again, const ProfileFile& file) {
        fuzz::Require(again.profiles == file.profiles, "a written file has the same profiles");
    };
    fuzz::ReadWriteRead(fuzz::View(data, size), ReadProfileFile, WriteProfileFile, same);
    return 0;
}
