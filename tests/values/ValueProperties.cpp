// Values of all standard types, there and back.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <cmath>

#include "Standard.h"
#include "values/Scaling.h"

namespace tovarek::test {
namespace {

std::vector<ValueType> AllStandard(const Standard& standard) {
    std::vector<ValueType> types;
    for (const CatalogEntry& entry : standard.Catalog().NvTypes())
        types.push_back(standard.Of(entry.name));
    for (const CatalogEntry& entry : standard.Catalog().CpTypes())
        types.push_back(standard.Of(entry.name));
    return types;
}

// Bytes of all kinds, often those at the ends.
std::string AnyBytes(std::uint32_t size) {
    return *rc::gen::container<std::string>(
        size, rc::gen::oneOf(rc::gen::arbitrary<char>(),
                             rc::gen::elementOf(std::string("\0\x01\x7F\x80\xFF ,\"", 8))));
}

// Bytes of all kinds have a text, and the text has the bytes.
void ExpectToComeBack(const ValueType& type, const Standard& standard) {
    const std::string bytes = AnyBytes(SizeOf(type.type));
    std::vector<std::string> notes;
    const std::string text = Decoded(type, bytes, standard.names, notes);
    std::string again;
    std::vector<std::string> rounded;
    const Outcome outcome = EncodeValue(type, text, standard.names, again, rounded);
    RC_ASSERT(outcome.reason == "");
    RC_ASSERT(rounded.empty());
    std::vector<std::string> ignored;
    RC_ASSERT(Decoded(type, again, standard.names, ignored) == text);
    const bool hidesBits = std::any_of(notes.begin(), notes.end(), [](const std::string& note) {
        return note.find("no member") != std::string::npos;
    });
    RC_ASSERT((again == bytes) != hidesBits);
}

TEST(Values, OfAllStandardTypesComeBack) {
    constexpr std::size_t kVariables = 214;
    constexpr int kArrays = 20;
    constexpr std::size_t kRuns = 5;  // that see all types between them
    const Standard standard;
    const std::vector<ValueType> types = AllStandard(standard);
    ASSERT_EQ(types.size(), kVariables + 359U);
    EXPECT_TRUE(rc::check([&] {
        for (auto i = *rc::gen::inRange<std::size_t>(0, kRuns); i < types.size(); i += kRuns)
            ExpectToComeBack(types[i], standard);
        // Properties may be arrays.
        for (int i = 0; i < kArrays; ++i) {
            const auto position = *rc::gen::inRange(kVariables, types.size());
            const auto count = *rc::gen::inRange<std::uint16_t>(1, 5);
            ExpectToComeBack(ArrayOfValues(types[position], count), standard);
        }
    }));
}

// The limits are accepted, one step more is not, and the texts of both are the numbers of the definition.
TEST(Values, OfNumbersEndAtTheLimitsOfTheirType) {
    const Standard standard;
    int numbers = 0;
    for (const ValueType& type : AllStandard(standard)) {
        const ShownType shown = ShownTypeOf(type.type, type.unit, standard.names);
        if (shown.shape != ValueShape::integer)
            continue;
        ++numbers;
        const TypeDescription& number = *shown.type;
        const double step = number.a * std::pow(10.0, number.b);
        for (const std::int64_t raw : {number.minimum, number.maximum}) {
            SCOPED_TRACE(type.name + " " + std::to_string(raw));
            const double value = step * static_cast<double>(raw + number.c);
            std::string bytes;
            std::vector<std::string> notes;
            const std::string text = ScaledText(raw, number).value_or("");
            EXPECT_NEAR(std::stod(text), value, std::abs(step) / 1000);
            if (number.invalid != raw) {
                EXPECT_EQ(EncodeValue(type, text, standard.names, bytes, notes).reason, "");
                EXPECT_EQ(ReadRaw(bytes, 0, number), raw);
            }
            const double beyond = raw == number.minimum ? value - step : value + step;
            EXPECT_FALSE(EncodeValue(type, std::to_string(beyond), standard.names, bytes, notes).Ok());
        }
    }
    EXPECT_GT(numbers, 100);
}

}  // namespace
}  // namespace tovarek::test
