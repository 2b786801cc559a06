// Real sets of several makers: they read completely, and rewriting them keeps content and order.
#include <algorithm>

#include "Fixtures.h"
#include "control/ResourceSet.h"
#include "formats/records/ByteReader.h"
#include "formats/type/TypeFileView.h"

namespace tovarek::test {
namespace {

// Numbers of the records in the order of a sorted table. A record begins with its number of `size` bytes.
std::vector<std::uint32_t> TableNumbers(const std::string& bytes, std::size_t table, std::size_t count) {
    std::vector<std::uint32_t> numbers;
    ByteReader entries(std::string_view(bytes).substr(table));
    for (std::size_t i = 0; i < count; ++i)
        numbers.push_back(ByteReader(std::string_view(bytes).substr(entries.U32())).U16());
    return numbers;
}

TEST(Samples, LanguageFilesReadAndRewrite) {
    const auto paths = Samples(".enu");
    if (paths.empty())
        GTEST_SKIP() << "no samples here";
    for (const std::string& path : paths) {
        SCOPED_TRACE(path);
        LanguageFile file;
        ASSERT_EQ(ReadLanguageFile(ReadFile(path), file).reason, "");
        EXPECT_FALSE(file.strings.empty());
        std::string bytes;
        ASSERT_EQ(WriteLanguageFile(file, bytes).reason, "");
        LanguageFile again;
        ASSERT_EQ(ReadLanguageFile(bytes, again).reason, "");
        EXPECT_EQ(again.strings, file.strings);
        EXPECT_EQ(bytes.substr(0, 0x314), ReadFile(path).substr(0, 0x314)) << "header texts, versions, time";
    }
}

TEST(Samples, TypeFilesReadAndRewriteWithTheSameTables) {
    const auto paths = Samples(".typ");
    if (paths.empty())
        GTEST_SKIP() << "no samples here";
    for (const std::string& path : paths) {
        SCOPED_TRACE(path);
        const std::string original = ReadFile(path);
        TypeFile file;
        ASSERT_EQ(ReadTypeFile(original, file).reason, "");
        std::string bytes;
        ASSERT_EQ(WriteTypeFile(file, bytes).reason, "");
        TypeFile again;
        ASSERT_EQ(ReadTypeFile(bytes, again).reason, "");
        EXPECT_EQ(again.nvTypes, file.nvTypes);
        EXPECT_EQ(again.cpTypes, file.cpTypes);
        EXPECT_EQ(again.enumerations, file.enumerations);
        std::size_t table = file.header.formatVersion == 3 ? 0x34D : 0x353;
        std::size_t newTable = 0x353;
        for (const std::size_t count :
             {file.nvTypes.size(), file.nvTypes.size(), file.cpTypes.size(), file.cpTypes.size(),
              file.enumerations.size(), file.enumerations.size(), file.enumerations.size()}) {
            EXPECT_EQ(TableNumbers(bytes, newTable, count), TableNumbers(original, table, count));
            table += 4 * count;
            newTable += 4 * count;
        }
        for (const auto& nv : file.nvTypes)
            EXPECT_EQ(SizeOf(nv->type), nv->size) << nv->name;
    }
}

TEST(Samples, ProfileFilesReadAndRewrite) {
    const auto paths = Samples(".fpt");
    if (paths.empty())
        GTEST_SKIP() << "no samples here";
    for (const std::string& path : paths) {
        SCOPED_TRACE(path);
        ProfileFile file;
        ASSERT_EQ(ReadProfileFile(ReadFile(path), file).reason, "");
        std::string bytes;
        ASSERT_EQ(WriteProfileFile(file, bytes).reason, "");
        ProfileFile again;
        ASSERT_EQ(ReadProfileFile(bytes, again).reason, "");
        EXPECT_EQ(again.profiles, file.profiles);
        const std::size_t live =
            static_cast<std::size_t>(std::count_if(file.profiles.begin(), file.profiles.end(),
                                                   [](const auto& profile) { return profile.has_value(); }));
        const std::size_t sorted = 0x34B + 4 * file.profiles.size();
        EXPECT_EQ(TableNumbers(bytes, sorted, 2 * live), TableNumbers(ReadFile(path), sorted, 2 * live));
    }
}

TEST(Samples, FormatFilesReadAndRewrite) {
    const auto paths = Samples(".fmt");
    if (paths.empty())
        GTEST_SKIP() << "no samples here";
    for (const std::string& path : paths) {
        SCOPED_TRACE(path);
        FormatFile file;
        ASSERT_EQ(ReadFormatFile(ReadFile(path), file).reason, "");
        EXPECT_EQ(file.settings.size(), 2U);
        FormatFile again;
        ASSERT_EQ(ReadFormatFile(WriteFormatFile(file), again).reason, "");
        ASSERT_EQ(again.formats.size(), file.formats.size());
        for (std::size_t i = 0; i < file.formats.size(); ++i) {
            EXPECT_EQ(file.formats[i].form, "text") << file.formats[i].type;
            EXPECT_EQ(again.formats[i].parameters, file.formats[i].parameters) << file.formats[i].type;
        }
    }
}

TEST(Samples, AnyFileOfASetLeadsToTheOthers) {
    const auto paths = Samples(".typ");
    if (paths.empty())
        GTEST_SKIP() << "no samples here";
    for (const std::string& path : paths) {
        const ResourceSetFiles files = FindResourceSet(path);
        EXPECT_EQ(files.types, path);
        EXPECT_FALSE(files.language.empty()) << path;
        EXPECT_FALSE(files.profiles.empty()) << path;
        EXPECT_FALSE(files.formats.empty()) << path;
        EXPECT_EQ(FindResourceSet(files.language).types, path);
    }
}

}  // namespace
}  // namespace tovarek::test
