// One type by itself: kinds, raw values, lengths and checks.
#include <functional>

#include "Device.h"

namespace tovarek::test {
namespace {

CType Number(ElementType kind, std::int32_t length) {
    CType type;
    type.isUnvt = true;
    type.typeIndex = 300;
    type.elementType = kind;
    type.name = "x";
    type.length = length;
    return type;
}

CType Structure(ElementType kind, std::vector<CType> members) {
    CType type = Number(kind, 1);
    for (CType& member : members)
        member.isField = true;
    type.elements = std::move(members);
    return type;
}

CType Bits(std::int32_t size, std::int32_t offset) {
    CType type = Number(elementBits, 1);
    type.bitfieldSize = size;
    type.bitfieldOffset = offset;
    return type;
}

TEST(TypeModel, KindWordsInAnyLetterCase) {
    const CErrorHandler handler;
    CType type;
    for (const auto& [word, kind] :
         std::vector<std::pair<const char*, ElementType>>{{"SIGNEDNUMERIC", elementSigned},
                                                          {"unsignedNumeric", elementUnsigned},
                                                          {"USER", elementUnsigned},
                                                          {"Bits", elementBits},
                                                          {"BITFIELD", elementBitfield},
                                                          {"float", elementFloat}}) {
        type.ConvertType(word, handler);
        EXPECT_EQ(type.elementType, kind) << word;
    }
    for (const char* word : {"", " ENUM", "BIT", "INTEGER"})
        EXPECT_EQ(RaisedNumber([&] { type.ConvertType(word, handler); }), 1091) << word;
}

TEST(TypeModel, RawValues) {
    struct Case {
        std::int32_t a, b, c;
        double value;
        std::int32_t raw;
    };
    for (const Case& c : std::vector<Case>{{1, -1, 0, 12.5, 125},
                                           {1, 0, 10, 12.5, 2},  // half to even
                                           {1, 0, 10, 13.5, 4},
                                           {2, 0, 5, 20, 5},
                                           {5, -2, 3, 1.0, 17},
                                           {0, 3, 4, 10, 6},  // a factor of 0 does not scale
                                           {-1, 0, 0, 5, -5},
                                           {1, 0, 0, -2147483648.0, INT32_MIN}}) {
        CType type;
        type.a_coef = c.a;
        type.b_coef = c.b;
        type.c_coef = c.c;
        type.minValue = type.maxValue = c.value;
        EXPECT_EQ(type.minValueToLong(), c.raw) << c.a << ' ' << c.b << ' ' << c.c << ' ' << c.value;
        EXPECT_EQ(type.maxValueToLong(), c.raw);
    }
    for (const Case& c : std::vector<Case>{{1, 0, 0, 2147483647.5, 0},
                                           {1, -400, 0, 1, 0},
                                           {1, 400, 0, 1, 0},
                                           {3, INT32_MIN, 7, 0, 0},
                                           {1, -1, 0, 3e8, 0}}) {
        CType type;
        type.a_coef = c.a;
        type.b_coef = c.b;
        type.c_coef = c.c;
        type.minValue = c.value;
        EXPECT_EQ(RaisedNumber([&] { return type.minValueToLong(); }), 6)
            << c.a << ' ' << c.b << ' ' << c.value;
    }
}

TEST(TypeModel, LengthsOfStructuresAndUnions) {
    CType array = Number(elementFloat, 4);
    array.arraySize = 3;
    CType unionType = Structure(elementUnion, {Number(elementUnsigned, 1), Number(elementUnsigned, 2)});
    unionType.AnalyseLength();
    EXPECT_EQ(unionType.length, 3);

    // Bit fields each count their own byte; what a nested structure says of its length does not count.
    CType nested = Structure(elementStruct, {Bits(4, 0), Bits(4, 4)});
    nested.length = 99;
    CType structure = Structure(elementStruct, {array, nested, Number(elementSigned, 2)});
    structure.AnalyseLength();
    EXPECT_EQ(structure.length, 16);

    CType huge = Structure(elementStruct, {Number(elementTextual, INT32_MAX), Number(elementUnsigned, 1)});
    EXPECT_EQ(RaisedNumber([&] { huge.AnalyseLength(); }), 6);
    CType number = Number(elementSigned, 7);
    number.AnalyseLength();
    EXPECT_EQ(number.length, 7);
}

TEST(TypeModel, WhyACatalogIsNotOpenIsTold) {
    CCatalog catalog;
    catalog.catalogDir("nowhere");
    catalog.catalogFile("none.cat");
    ErrorContext failure = catalog.OpeningFailure();
    EXPECT_EQ(failure.record, "standard type catalog");
    EXPECT_EQ(failure.file, "nowhere\\none.cat");
    EXPECT_TRUE(failure.reason.ends_with("; catalogDir names the catalog's folder, catalogFile its name"));
    catalog.catalogFile(CCatalog().catalogFile());
    catalog.catalogDir(TOVAREK_CATALOG);
    failure = catalog.OpeningFailure();
    EXPECT_EQ(failure.reason, "an earlier opening failed; the object has to be created anew");
}

TEST(TypeModel, ReferencesTakeTheirLengthFromTheCatalog) {
    Device device;
    CType reference = Number(elementSigned, 99);
    reference.typeIndex = 105;
    CType unknown = reference;
    unknown.typeIndex = 140;
    CType structure = Structure(elementStruct, {reference, unknown});
    structure.ComputeReferenceLength(device.catalog);
    EXPECT_EQ(structure.elements[0].length, 2);
    EXPECT_EQ(structure.elements[1].length, 0);
}

TEST(TypeModel, Checks) {
    const auto changed = [](CType type, const std::function<void(CType&)>& change) {
        change(type);
        return type;
    };
    CType enumeration = Number(elementEnum, 1);
    enumeration.enumName = "ENUM_300";
    enumeration.enumValues = std::make_shared<std::vector<CEnumValue>>(1);
    CType property = Number(elementSigned, 2);
    property.isUnvt = false;
    CType reference = changed(Number(elementSigned, 3), [](CType& t) {
        t.typeIndex = 255;
        t.arraySize = 2;
        t.hasMin = t.hasMax = true;
        t.minValue = 1;
    });
    const CType structure = Structure(elementStruct, {Number(elementSigned, 1)});

    const CErrorHandler handler;
    RaisingSink raise(handler);
    const auto error = [&](const CType& type) -> std::int32_t {
        const auto raised = Raised([&] { type.VerifyData(raise); });
        return raised ? raised->Number() : 0;
    };
    EXPECT_EQ(error(Number(elementSigned, 4)), 0);
    EXPECT_EQ(error(Number(elementSigned, 3)), eQVXIFerr_lengthsignednumeric);
    EXPECT_EQ(error(Number(elementUnsigned, 2)), 0);
    EXPECT_EQ(error(Number(elementUnsigned, 4)), eQVXIFerr_lengthunsignednumeric);
    EXPECT_EQ(error(Number(elementBitfield, 4)), 0) << "a BITFIELD has no rules";
    EXPECT_EQ(error(Number(elementSigned, 0)), eQVXIFerr_typeelementwithnolength);
    EXPECT_EQ(error(Number(elementNone, 1)), eQVXIFerr_typeelementwithnodefinedtype);
    EXPECT_EQ(error(changed(structure, [](CType& t) { t.name.clear(); })), eQVXIFerr_typeelementwithnoname);

    EXPECT_EQ(error(property), eQVXIFerr_badcpindexinscope);
    EXPECT_EQ(Raised([&] { property.VerifyData(raise); })->Context().value, "0") << "no input says where";
    EXPECT_EQ(error(changed(property, [](CType& t) { t.indexInScope = 1; })), 0);
    EXPECT_EQ(error(changed(property, [](CType& t) { t.isField = true; })), 0);

    const auto limits = [](double low, double high) {
        return [=](CType& t) {
            t.hasMin = t.hasMax = true;
            t.minValue = low;
            t.maxValue = high;
        };
    };
    EXPECT_EQ(error(changed(Number(elementSigned, 1), limits(2, 1))),
              eQVXIFerr_typeelementwithmaxlesserthanmin);
    EXPECT_EQ(error(changed(Number(elementSigned, 1), limits(1, 1))), 0);

    EXPECT_EQ(error(enumeration), 0);
    EXPECT_EQ(error(changed(enumeration, [](CType& t) { t.enumValues = nullptr; })),
              eQVXIFerr_typeenumwithnoenums);
    EXPECT_EQ(error(changed(enumeration, [](CType& t) { t.enumName.clear(); })), eQVXIFerr_enumwithoutname);

    EXPECT_EQ(error(reference), 0) << "what a standard type looks like is not checked";
    EXPECT_EQ(error(changed(reference, [](CType& t) { t.typeIndex = 256; })),
              eQVXIFerr_typeelementwithmaxlesserthanmin);

    EXPECT_EQ(error(structure), 0);
    EXPECT_EQ(error(Structure(elementUnion, {})), eQVXIFerr_structunionwithnofields);
    EXPECT_EQ(error(Structure(elementStruct, {changed(structure, [](CType& t) { t.length = 0; })})), 0)
        << "a member with members has no length of its own";
    EXPECT_EQ(error(Structure(elementStruct, {Structure(elementStruct, {Number(elementSigned, 3)})})),
              eQVXIFerr_lengthsignednumeric);

    const auto array = [](CType& t) { t.arraySize = 1; };
    for (const CType& type : {structure, Number(elementTextual, 5), Bits(1, 0)})
        EXPECT_EQ(error(changed(type, array)), eQVXIFerr_arraynotpossibleforthistype) << type.elementType;
    EXPECT_EQ(error(changed(Number(elementFloat, 4), array)), 0);

    EXPECT_EQ(error(Bits(8, 0)), 0);
    EXPECT_EQ(error(Bits(1, 7)), 0);
    EXPECT_EQ(error(Bits(0, 0)), eQVXIFerr_badbitfieldsize);
    EXPECT_EQ(error(Bits(9, 0)), eQVXIFerr_badbitfieldsize);
    EXPECT_EQ(error(Bits(1, 8)), eQVXIFerr_badbitfieldoffset);
    EXPECT_EQ(error(Bits(1, -1)), eQVXIFerr_badbitfieldoffset);
    EXPECT_EQ(error(Bits(4, 5)), eQVXIFerr_badbitfieldoffsetandsize);
}

TEST(TypeModel, EveryFaultOfATypeIsFound) {
    CType level = Number(elementUnsigned, 4);
    level.name = "level";
    level.arraySize = 1;
    CType nested = Structure(elementUnion, {level, Bits(9, 9)});
    nested.name = "nested";
    CType type = Structure(elementStruct, {nested});
    type.name.clear();
    type.arraySize = 2;
    CollectingSink findings;
    type.VerifyData(findings);
    EXPECT_EQ(findings.Errors(), (std::vector<int>{1093, 1122, 1124, 1123}));
}

TEST(TypeModel, ErrorsOfMembersNameTheMember) {
    CType bad = Number(elementSigned, 3);
    bad.name = "level";
    bad.lines = std::make_shared<const ElementLines>(
        ElementLines{17, {{"LENGTH", 18, ""}, {"NAME", 19, ""}, {"LENGTH", 20, " three"}}});
    const CErrorHandler handler;
    RaisingSink raise(handler);
    const auto error = Raised([&] { Structure(elementStruct, {bad}).VerifyData(raise); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Context().record, "member 'level' (type 300)");
    EXPECT_EQ(error->Context().field, "LENGTH");
    EXPECT_EQ(error->Context().value, " three");
    EXPECT_EQ(error->Context().reason, "this is not a number and reads as 3; accepted: 1, 2 and 4");
    EXPECT_EQ(error->Context().line, 20) << "the LENGTH that counts is the last one";
}

}  // namespace
}  // namespace tovarek::test
