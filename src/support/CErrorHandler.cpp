#include "support/CErrorHandler.h"

#include <string>
#include <utility>

namespace tovarek {
namespace {

// Result codes of the resource-file control that have an error of their own; every other code becomes the
// generic error. Deliberate: 22 is one of these, although its neighbours are listed. The control answers it
// for a type that is complete, which is no fault.
struct EditResult {
    std::int32_t code;
    eErrors error;
};
constexpr EditResult kEditResults[] = {
    {2, eQVXIFerr_QVX_editResult_filealreadyopened},
    {3, eQVXIFerr_QVX_editResult_badscope},
    {4, eQVXIFerr_QVX_editResult_badpid},
    {5, eQVXIFerr_QVX_editResult_erroropenfile},
    {6, eQVXIFerr_QVX_editResult_errorsettingheader},
    {7, eQVXIFerr_QVX_editResult_errorsettingversion},
    {8, eQVXIFerr_QVX_editResult_errorsettinglocale},
    {9, eQVXIFerr_QVX_editResult_errorsettinginformations},
    {10, eQVXIFerr_QVX_editResult_CRCerror},
    {11, eQVXIFerr_QVX_editResult_fileisnotopened},
    {12, eQVXIFerr_QVX_editResult_invalidforcurrentfile},
    {13, eQVXIFerr_QVX_editResult_erroraddingresource},
    {14, eQVXIFerr_QVX_editResult_erroraddingenum},
    {15, eQVXIFerr_QVX_editResult_erroraddingenumvalue},
    {16, eQVXIFerr_QVX_editResult_badparam},
    {17, eQVXIFerr_QVX_editResult_erroraddingmember},
    {18, eQVXIFerr_QVX_editResult_errorsettingnummembers},
    {19, eQVXIFerr_QVX_editResult_errorsettingdetails},
    {20, eQVXIFerr_QVX_editResult_erroraddingtype},
    {21, eQVXIFerr_QVX_editResult_nocurrenttype},
    {23, eQVXIFerr_QVX_editResult_typeisnotcomplete},
    {24, eQVXIFerr_QVX_editResult_badminvalue},
    {25, eQVXIFerr_QVX_editResult_badmaxvalue},
    {26, eQVXIFerr_QVX_editResult_badinitvalue},
};

// The position of error `e` in the message table, in 32-bit arithmetic like the public interface.
std::int32_t MessageIndex(std::int32_t e) {
    const std::int64_t number = static_cast<std::int64_t>(e) - ErrorValue(0);
    if (number > INT32_MAX)
        RaiseRuntimeError(RuntimeError::overflow);
    return static_cast<std::int32_t>(number - 1);
}

}  // namespace

void CErrorHandler::RaiseError(std::int32_t e, ErrorContext context) const {
    RaiseErrorWithString(e, {}, std::move(context));
}

void CErrorHandler::RaiseErrorWithString(std::int32_t e, std::string_view s, ErrorContext context) const {
    std::string description = resources_.errorString(MessageIndex(e));
    description += s;
    throw Error(e, std::move(description), std::move(context));
}

void CErrorHandler::RaiseQVxTypesEditError(std::int32_t error, ErrorContext context) const {
    for (const EditResult& row : kEditResults)
        if (row.code == error)
            RaiseError(row.error, std::move(context));
    RaiseError(eQVXIFerr_GenericErrorEditFile, std::move(context));
}

}  // namespace tovarek
