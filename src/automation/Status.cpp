#include "automation/Status.h"

#include <QVTovarek_h.h>

#include "system/Bstr.h"
#include "system/ComPtr.h"
#include "system/Wide.h"

namespace tovarek {

HRESULT StatusOf(std::int32_t number) {
    constexpr std::int32_t kFirstRuntimeStatus = static_cast<std::int32_t>(0x800A0000U);
    if (number == static_cast<std::int32_t>(RuntimeError::outOfMemory))
        return E_OUTOFMEMORY;
    return number < 0 ? number : kFirstRuntimeStatus + number;
}

HRESULT Fail(HRESULT status, std::string_view description) noexcept {
    // When there is no memory for the description, the status alone has to do.
    try {
        ComPtr<ICreateErrorInfo> made;
        ComPtr<IErrorInfo> information;
        if (FAILED(CreateErrorInfo(made.Out())))
            return status;
        made->SetGUID(IID__Tovarek);
        made->SetSource(Bstr(ToWide(kErrorSource)).Get());
        made->SetDescription(Bstr(ToWide(description)).Get());
        if (SUCCEEDED(made->QueryInterface(IID_IErrorInfo, information.OutVoid())))
            SetErrorInfo(0, information.Get());
    } catch (const std::exception&) {
        SetErrorInfo(0, nullptr);
    }
    return status;
}

}  // namespace tovarek
