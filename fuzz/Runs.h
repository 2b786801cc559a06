// What several targets do with what they have read.
#pragma once

#include <optional>

#include "Fuzzing.h"
#include "component/XifWriter.h"
#include "formats/records/Outcome.h"
#include "profile/CProfile.h"
#include "support/Findings.h"
#include "support/Readings.h"
#include "template/CTemplate.h"
#include "types/CTypes.h"

namespace tovarek::fuzz {

// What raises errors, and the open standard catalog; all runs share them.
inline const CErrorHandler& SharedErrors() {
    static const CErrorHandler errors;
    return errors;
}
inline CCatalog& SharedCatalog() {
    static CCatalog catalog;
    if (catalog.catalogDir().empty())
        catalog.catalogDir(TOVAREK_CATALOG_FOLDER);
    return catalog;
}

// Reads an input as `tovarek check` does and as a generation does: what the check finds first is what the
// generation raises, and every warning has a text.
template <class Check, class Generate>
void CompareCheck(const Check& check, const Generate& generate) {
    struct : FindingSink {
        std::int32_t first = 0;
        void Take(Finding finding) override {
            Require(finding.warning == Warning::none || !finding.context.reason.empty(),
                    "a warning has a text");
            if (first == 0 && finding.warning == Warning::none)
                first = finding.error;
        }
        bool WantsWarnings() const override { return true; }
    } findings;
    Readings readings(findings);
    TellingErrors(findings, [&] { check(readings); });
    readings.TellUnread();
    std::int32_t raised = 0;
    try {
        generate();
    } catch (const Error& error) {
        raised = error.Number();
    }
    Require(findings.first == raised, "a check finds first what a generation raises");
}

// A template or profile.
template <class Input>
void RunCheck(Input& input) {
    CompareCheck(
        [&](Readings& readings) {
            input.Load(readings.Findings());
            input.TellReadings(readings);
            input.VerifyData(readings.Findings());
        },
        [&] {
            input.Load();
            input.VerifyData();
        });
}

// The types of a device.
inline void RunTypesCheck(CTypes& types, const std::string& formatFile, const std::string& userTypeFile) {
    CompareCheck(
        [&](Readings& readings) {
            types.LoadTypes(formatFile, userTypeFile, readings.Findings(), &readings);
        },
        [&] { types.LoadTypes(formatFile, userTypeFile); });
}

// The profile that `file` at `path` holds, loaded and checked; in XML the element P. Nothing when it could
// not be loaded.
inline std::optional<CProfile> RunProfile(std::string CProfile::*file, const std::string& path) {
    CProfile profile;
    profile.*file = path;
    profile.xmlNodeName = "P";
    profile.errorHandler = &SharedErrors();
    RunCheck(profile);
    if (!Accepts([&] { profile.Load(); }))
        return std::nullopt;
    Accepts([&] { profile.VerifyData(); });
    return profile;
}

// Runs the template that `file` holds, in XML the element T, through everything that Generate does with it.
inline void RunTemplate(std::string CTemplate::*file, std::string_view input) {
    const InputFile written(input);
    CTemplate source;
    source.*file = written.Path();
    source.xmlNodeName = "T";
    source.errorHandler = &SharedErrors();
    source.catalog = &SharedCatalog();
    RunCheck(source);
    Accepts([&] {
        source.Load();
        source.VerifyData();
        source.AddNameInCp();
        NullSink sink;
        WriteXifText(sink, "node.xif", CProfile(), source, CResources(), *FixedClock(0));
    });
    // A second load starts from nothing.
    const std::size_t records = source.nvs.size();
    if (Accepts([&] { source.Load(); }))
        Require(source.nvs.size() >= records, "loading again gives the same records");
    else
        Require(source.nvs.size() <= records, "loading again fails where it failed");
}

// Reads an input as it is and with its checksums made right. What can be read and written again must have the
// same content, as `same` tells.
template <class File, class Same>
void ReadWriteRead(std::string_view input, Outcome (*read)(std::string_view, File&),
                   Outcome (*write)(const File&, std::string&), const Same& same) {
    File file;
    read(input, file);
    const std::string bytes = WithRightChecksums(std::string(input));
    std::string written;
    if (!read(bytes, file).Ok() || !write(file, written).Ok())
        return;
    File again;
    Require(read(written, again).Ok(), "a written file can be read");
    same(again, file);
}

}  // namespace tovarek::fuzz
