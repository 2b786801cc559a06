#include <gtest/gtest.h>

#include "Scratch.h"
#include "base/ErrorTable.h"
#include "support/CErrorHandler.h"

namespace tovarek::test {
namespace {

TEST(Errors, CarryNumberMessageAndSource) {
    const auto error = Raised([] { CErrorHandler().RaiseError(ErrorValue(1)); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), static_cast<std::int32_t>(0x80040001U));
    EXPECT_EQ(error->Description(), "Domains number must be 1 or 2.");
    EXPECT_STREQ(error->Source(), "QVTovarek");
}

// The spellings are a public contract; these rows are the odd ones of the reference table.
TEST(Errors, OddMessagesStayAsTheyAre) {
    const struct {
        int n;
        const char* name;
        const char* message;
    } rows[] = {
        {9, "eQVXIFerr_supportRelaxedBinding", "Support relaxed bindings must be 0 (false) or 1 (true)"},
        {11, "eQVXIFerr_maximumSizeMemoryBlock", "Bad maximum size for memory block"},
        {34, "eQVXIFerr_alternateBitsRate", "Bad alternate bits rate"},
        {52, "eQVXIFerr_programid", "Bad program ID."},
        {77, "eQVXIFerr_tagbindable", "Bad tag binable flag."},
        {98, "eQVXIFerr_QVX_editResult_filealreadyopened", "Resource file already opened."},
        {100, "eQVXIFerr_QVX_editResult_badpid", "Bad program ID."},
        {107, "eQVXIFerr_QVX_editResult_fileisnotopened", "Resource file already opened."},
        {119, "eQVXIFerr_GenericErrorEditFile", "Internal error when generating resource file."},
        {132, "eQVXIFerr_QVX_editResult_badmaxvalue", "Bad type maximum value"},
        {135, "eQVXIFerr_QVX_editResult_missingucpttypeindex", "A UCPT type index is missing."},
    };
    for (const auto& row : rows) {
        const ErrorRow* found = FindErrorRow(ErrorValue(row.n));
        ASSERT_NE(found, nullptr) << row.n;
        EXPECT_EQ(found->name, row.name);
        EXPECT_EQ(found->message, row.message);
    }
}

TEST(Errors, NumbersOutsideTheEnumerationAreRuntimeErrors) {
    const CErrorHandler handler;
    EXPECT_EQ(RaisedNumber([&] { handler.RaiseError(ErrorValue(0)); }), 9);
    EXPECT_EQ(RaisedNumber([&] { handler.RaiseError(ErrorValue(136)); }), 9);
    EXPECT_EQ(RaisedNumber([&] { handler.RaiseError(0); }), 9);
    EXPECT_EQ(RaisedNumber([&] { handler.RaiseError(INT32_MAX); }), 6);
    EXPECT_EQ(RaisedNumber([&] { handler.RaiseError(262143); }), 9);
    EXPECT_EQ(RaisedNumber([&] { handler.RaiseError(262144); }), 6);
}

TEST(Errors, AppendedTextFollowsWithoutASeparator) {
    const auto error = Raised([] { CErrorHandler().RaiseErrorWithString(ErrorValue(55), "x"); });
    EXPECT_EQ(error->Description(), "Bad network variable name.x");
}

TEST(Errors, ResultCodesOfTheControlAreMapped) {
    for (int code = -1; code < 30; ++code) {
        const bool isFirstBlock = code >= 2 && code <= 21;
        const bool isSecondBlock = code >= 24 && code <= 26;
        const int n = isFirstBlock ? 96 + code : isSecondBlock ? 107 + code : code == 23 ? 118 : 119;
        EXPECT_EQ(RaisedNumber([&] { CErrorHandler().RaiseQVxTypesEditError(code); }), 1000 + n) << code;
    }
}

TEST(Resources, AnotherLanguageKeepsTheEnglishTexts) {
    CResources resources;
    resources.lang(1);
    EXPECT_EQ(resources.lang(), 1);
    EXPECT_EQ(resources.errorString(0), "Domains number must be 1 or 2.");
    EXPECT_EQ(resources.resource(5), "(CP\\Scope[");
    EXPECT_FALSE(resources.resource(4).empty());
    for (const std::int32_t id : {-1, 9})
        EXPECT_EQ(RaisedNumber([&] { resources.resource(id); }), 9);
    EXPECT_EQ(RaisedNumber([&] { resources.errorString(135); }), 9);
}

TEST(ErrorContextTest, TheInnermostStatementWins) {
    ErrorContext inner{.field = "direction", .file = "a.ini", .line = 0};
    inner.FillFrom({.record = "nv 1", .field = "other", .file = "b.ini", .line = 7, .reason = "why"});
    EXPECT_EQ(inner.record, "nv 1");
    EXPECT_EQ(inner.field, "direction");
    EXPECT_EQ(inner.reason, "why");
    EXPECT_EQ(inner.line, 0) << "a line of another file says nothing";
    inner.FillFrom({.record = "device", .line = 0});
    inner.FillFrom({.record = "device"});
    EXPECT_EQ(inner.record, "device > nv 1") << "records make a chain, each once";
    for (int i = 0; i < 1000; ++i)
        inner.FillFrom({.record = "member " + std::to_string(i)});
    EXPECT_TRUE(inner.record.starts_with("member 999 > ") && inner.record.ends_with(" > nv 1"))
        << inner.record;
    EXPECT_LT(inner.record.size(), 400U);
}

TEST(ErrorContextTest, WhatTellsTheContextToo) {
    Error error(eQVXIFerr_nvlength, "Bad.",
                {.field = "length", .value = "40", .reason = "accepted: 1 to 31"});
    EXPECT_STREQ(error.what(), "Bad. [length \"40\": accepted: 1 to 31]");
    error.AddContext({.record = "nv 1", .file = "t.ini", .line = 12});
    error.AddReason("mend it");
    EXPECT_STREQ(error.what(), "Bad. [in nv 1, length \"40\", at t.ini:12: accepted: 1 to 31; mend it]");
    EXPECT_EQ(error.Description(), "Bad.");
    EXPECT_STREQ(Error(6, "Overflow").what(), "Overflow");
}

}  // namespace
}  // namespace tovarek::test
