// dump and diff as the command line runs them: exit statuses, and what goes where.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "Fixtures.h"
#include "cli/InspectCommands.h"

namespace tovarek::test {
namespace {

using Json = nlohmann::json;

struct Result {
    int status;
    std::string out;
    std::string error;
};

Result Dump(const std::string& path, const DumpOptions& options) {
    std::ostringstream out;
    std::ostringstream error;
    const int status = RunDump(path, options, {out, error});
    return {status, out.str(), error.str()};
}

Result Diff(const std::string& before, const std::string& after, OutputFormat format) {
    std::ostringstream out;
    std::ostringstream error;
    const int status = RunDiff(before, after, format, {out, error});
    return {status, out.str(), error.str()};
}

class InspectCommandsTest : public testing::Test {
  protected:
    Scratch scratch;
    std::string bytes = BytesOf(WriteTypeFile, SmallTypes());
    std::string types = scratch.File("belt.typ", bytes);
};

TEST_F(InspectCommandsTest, DumpsAsTextAndJson) {
    const Result text = Dump(types, {});
    EXPECT_EQ(text.status, kDone);
    EXPECT_NE(text.out.find("    name: UNVT_beltSpeed\n"), std::string::npos);
    const Json json = Json::parse(Dump(types, {.format = OutputFormat::json}).out);
    EXPECT_EQ(json["nvTypes"][0]["type"]["rawMinimum"], -500);
    EXPECT_EQ(json["nvTypes"][0]["type"]["minimum"], -25.0);
    EXPECT_EQ(json.value("schema", 0), 2);
    const Json xif =
        Json::parse(Dump(scratch.File("belt.xif", kSmallXif), {.format = OutputFormat::json}).out);
    EXPECT_EQ(xif["messageTags"][0]["otherAttributes"], Json({0, 63, 1, 0, 1, 0, 1, 0, 0, 0, 0, 0}));
    for (const char* number : {"scope", "type", "length"})
        EXPECT_TRUE(xif["files"][0]["properties"][0][number].is_number()) << number;
    const Json rows = Json::parse(Dump(types, {.format = OutputFormat::json, .bytes = true}).out)["rows"];
    EXPECT_EQ(rows.back()["offset"].get<std::size_t>() + rows.back()["length"].get<std::size_t>(),
              bytes.size());
    EXPECT_NE(Dump(types, {.bytes = true}).out.find("00000300  03 00 00 04              description = 3-4\n"),
              std::string::npos);
}

TEST_F(InspectCommandsTest, ADamagedFileIsAnErrorAndShowsNothing) {
    bytes[0x400] ^= 1;
    scratch.File("belt.typ", bytes);
    EXPECT_EQ(Dump(types, {}).status, kDone) << "slack is covered by no checksum";
    bytes[bytes.size() - 10] ^= 1;
    scratch.File("belt.typ", bytes);
    const Result text = Dump(types, {});
    EXPECT_EQ(text.status, kFailed);
    EXPECT_EQ(text.out, "");
    EXPECT_NE(text.error.find("checksum"), std::string::npos);
    EXPECT_TRUE(Json::parse(Dump(types, {.format = OutputFormat::json}).out).contains("error"));
    const Result listing = Dump(types, {.bytes = true});
    EXPECT_EQ(listing.status, kFailed);
    EXPECT_NE(listing.out.find("data checksum = wrong"), std::string::npos);
    EXPECT_NE(listing.error.find("checksum"), std::string::npos);
    const Json json = Json::parse(Dump(types, {.format = OutputFormat::json, .bytes = true}).out);
    EXPECT_TRUE(json["damage"].is_string());
    EXPECT_EQ(Diff(types, types, OutputFormat::text).status, kWrongUse);
    EXPECT_EQ(Diff(scratch.Path("none.typ"), types, OutputFormat::text).status, kWrongUse);
    const Result diff = Diff(types, types, OutputFormat::json);
    EXPECT_EQ(diff.status, kWrongUse) << "1 would tell of differences";
    EXPECT_TRUE(Json::parse(diff.out).contains("error"));
}

TEST_F(InspectCommandsTest, DiffTellsByItsStatus) {
    TypeFile changed = SmallTypes();
    changed.nvTypes[0]->size = 4;
    const std::string other = scratch.File("other.typ", BytesOf(WriteTypeFile, changed));
    const Result same = Diff(types, types, OutputFormat::text);
    EXPECT_EQ(same.status, kDone);
    EXPECT_EQ(same.out, "");
    const Result different = Diff(types, other, OutputFormat::text);
    EXPECT_EQ(different.status, kDifferent);
    EXPECT_EQ(different.out, "nvTypes[1].size: 2 -> 4\n");
    const Json json = Json::parse(Diff(types, other, OutputFormat::json).out);
    EXPECT_EQ(json.value("schema", 0), 2);
    EXPECT_EQ(json["same"], false);
    EXPECT_EQ(json["differences"], Json::array({{{"path", "nvTypes[1].size"}, {"old", 2}, {"new", 4}}}));
    scratch.File("belt.enu", "URES and nothing more");
    EXPECT_NE(Diff(types, other, OutputFormat::text).error.find("belt.enu\" is damaged"), std::string::npos);
    EXPECT_EQ(Json::parse(Diff(types, other, OutputFormat::json).out)["problems"].size(), 1U);
    const std::string xif = scratch.File("belt.xif", kSmallXif);
    const Result kinds = Diff(types, xif, OutputFormat::text);
    EXPECT_EQ(kinds.status, kWrongUse);
    EXPECT_EQ(kinds.out, "");
}

TEST_F(InspectCommandsTest, OnlyACatalogThatTheUserNamesHasItsOwnTexts) {
    TypeFile file = SmallTypes();
    file.nvTypes[0]->unit = {0, 6};
    file.nvTypes[2]->unit = {0, 854};
    scratch.File("belt.typ", BytesOf(WriteTypeFile, file));
    const std::string shipped = Dump(types, {}).out;
    const std::string named = Dump(types, {.place = {.folder = TOVAREK_CATALOG}}).out;
    EXPECT_NE(shipped.find("    unitText: degrees C\n"), std::string::npos) << "no shipped catalog";
    EXPECT_EQ(shipped.find("unitString: 0-6\n    unitText"), std::string::npos);
    EXPECT_NE(named.find("unitString: 0-6\n    unitText"), std::string::npos);
    scratch.File("belt.enu", "URES and nothing more");
    EXPECT_NE(Dump(types, {}).out.find("    unitText: degrees C\n"), std::string::npos)
        << "as if it were missing";
}

TEST_F(InspectCommandsTest, ACatalogThatTheUserNamesMustBeThere) {
    const Result result =
        Dump(types, {.format = OutputFormat::json, .place = {.folder = scratch.Path("nowhere")}});
    EXPECT_EQ(result.status, kFailed);
    EXPECT_EQ(Json::parse(result.out)["name"], "eQVXIFerr_erroraccessingSNVTmasterlist") << "as everywhere";
    EXPECT_EQ(Dump(scratch.Path("none.typ"), {}).status, kFailed);
}

}  // namespace
}  // namespace tovarek::test
