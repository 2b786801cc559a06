#include "types/catalog/CCatalog.h"

#include <utility>

#include "base/Path.h"

namespace tovarek {

CCatalog::CCatalog() {
    types.CatalogFileName(kUsualCatalogFile);
}

CCatalog::~CCatalog() {
    types.CloseCatalog();
}

void CCatalog::catalogDir(const std::string& value) {
    types.CatalogDirectory(value);
    ReopenCatalog();
}

void CCatalog::catalogFile(const std::string& value) {
    types.CatalogFileName(value);
    ReopenCatalog();
}

ErrorContext CCatalog::OpeningFailure() const {
    std::string file = catalogFile();
    if (!catalogDir().empty())
        file = WithFinalBackslash(catalogDir()) + file;
    // The flag outlives its cause.
    const bool earlier = types.ResultCode() == resultOk;
    return {.record = "standard type catalog",
            .file = std::move(file),
            .reason = earlier ? "an earlier opening failed; the object has to be created anew"
                              : types.ResultReason() +
                                    "; catalogDir names the catalog's folder, catalogFile its name"};
}

void CCatalog::ReopenCatalog() {
    types.CloseCatalog();
    types.PrepareCatalog(0);
    types.OpenCatalog();
    if (types.ResultCode() != 0)
        errorOpeningCatalog_ = true;
}

}  // namespace tovarek
