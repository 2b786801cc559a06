// A device whose resource files are written to a folder of their own.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "Device.h"
#include "check/Check.h"
#include "component/FilesList.h"
#include "formats/type/TypeFile.h"
#include "support/Readings.h"

namespace tovarek::test {

using Strings = std::vector<std::string>;

// Every kind of type once; 320 uses most of the others.
inline constexpr const char* kElements =
    "<SNVT_105><TYPE>SIGNEDNUMERIC</TYPE></SNVT_105>"
    "<SNVT_310><TYPE>USER</TYPE><NAME>level</NAME><LENGTH>2</LENGTH><B_COEF>-1</B_COEF><MIN>0.5</"
    "MIN><MAX>100</MAX>"
    "<LONGNAME>Level</LONGNAME><DESC>How full</DESC><UNIT>%</UNIT></SNVT_310>"
    "<SNVT_311><TYPE>ENUM</TYPE><NAME>mode</NAME><ENUMS><OFF>0</OFF><ON>1</ON></ENUMS></SNVT_311>"
    "<SNVT_312><TYPE>BITS</TYPE><LENGTH>1</LENGTH><BFSIZE>3</BFSIZE><BFOFFSET>2</BFOFFSET><BFSIGNED>1</"
    "BFSIGNED></SNVT_312>"
    "<SNVT_313><TYPE>FLOAT</TYPE><LENGTH>4</LENGTH><ARRAY>3</ARRAY><MAX>2.5</MAX></SNVT_313>"
    "<SNVT_314><TYPE>TEXTUAL</TYPE><LENGTH>8</LENGTH></SNVT_314>"
    "<SNVT_315><TYPE>BITFIELD</TYPE><LENGTH>4</LENGTH><MAX>7</MAX></SNVT_315>"
    "<SNVT_316><TYPE>UNION</TYPE><FIELDS><a>310</a><b>314</b></FIELDS></SNVT_316>"
    "<SNVT_320><TYPE>STRUCT</TYPE><NAME>all</NAME><FIELDS><level>310</level><mode>311</mode><bits>312</bits>"
    "<floats>313</floats><text>314</text><quad>315</quad><either>316</either><temp>105</temp></FIELDS></"
    "SNVT_320>";

class DriverDevice : public Device {
  public:
    DriverDevice() {
        settings.typeFilesDirectory = scratch.Path("out");
        settings.typeFilesBaseName = "node";
        catalog.types.SetClock(FixedClock(1700000000));
        deviceTemplate.userTypeFile = "user.xml";
    }

    void Generate() {
        written.clear();
        RaisingSink raise(errorHandler);
        Run(raise, nullptr);
    }
    // What a check of the same device tells; nothing is written.
    std::vector<Finding> Check() {
        written.clear();
        FindingList findings;
        TrialOutput trial(settings.typeFilesDirectory);
        Readings readings(findings);
        TellingErrors(findings, [&] { Run(findings, &trial, &readings); });
        readings.TellUnread();
        return findings.TakeAll();
    }
    void Run(FindingSink& findings, TrialOutput* trial, Readings* readings = nullptr) {
        const std::string format = scratch.Path("format.xml");
        const std::string folder = scratch.Folder();
        GenerateTypeFilesAndList(types,
                                 {deviceTemplate, catalog, errorHandler, settings, format, folder, readings},
                                 {findings, written, trial});
    }
    std::string Output(const std::string& name) const { return ReadFile(scratch.Path("out/" + name)); }
    // The same, empty where there is no such file.
    std::string MaybeOutput(const std::string& name) const {
        return FileExists(scratch.Path("out/" + name)) ? Output(name) : std::string();
    }
    TypeFile OutputTypes(const std::string& name) const {
        TypeFile file;
        const Outcome outcome = ReadTypeFile(Output(name), file);
        EXPECT_TRUE(outcome.Ok()) << outcome.reason;
        return file;
    }
    // The names of the files that lie in the output folder.
    Strings Files() const {
        Strings names = DirectoryEntries(scratch.Path("out"));
        std::sort(names.begin(), names.end());
        return names;
    }

    TypeFilesSettings settings;
    Strings written;
};

}  // namespace tovarek::test
