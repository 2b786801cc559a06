#include "cli/OpenCatalog.h"

#include "base/Path.h"
#include "cli/Locations.h"
#include "cli/ProgramFile.h"
#include "cli/StandardSet.h"
#include "support/CErrorHandler.h"
#include "system/Files.h"

namespace tovarek {

namespace {

constexpr const char* kVariable = "TOVAREK_CATALOG";

}  // namespace

bool CatalogPlace::IsShipped() const {
    return folder.empty() && EnvironmentText(kVariable).empty();
}

std::string UsualCatalogFolder() {
    const std::string named = EnvironmentText(kVariable);
    return named.empty() ? ShippedCatalogFolder() : named;
}

std::shared_ptr<StandardCatalog> OpenUsualCatalog() {
    const std::string folder = UsualCatalogFolder();
    std::unique_ptr<StandardCatalog> catalog;
    if (folder.empty())
        StandardCatalog::Open(StandardSetInside(), catalog);
    else
        StandardCatalog::Open(WithFinalBackslash(folder) + kUsualCatalogFile, catalog);
    return catalog;
}

std::string VariableNote() {
    return EnvironmentText(kVariable).empty()
               ? ""
               : "the environment variable " + std::string(kVariable) + " names this folder";
}

std::string SetFrom(const std::string& catalogFile) {
    return "standard set from " +
           (catalogFile.empty() ? "inside the program" : "'" + SystemPath(FolderOf(catalogFile)) + "'");
}

std::unique_ptr<CCatalog> OpenCatalog(const CatalogPlace& place) {
    auto catalog = std::make_unique<CCatalog>();
    // The name is set without opening: a failure would mark the catalog for good.
    if (!place.file.empty())
        catalog->types.CatalogFileName(place.file);
    const std::string folder = place.folder.empty() ? UsualCatalogFolder() : place.folder;
    // A file alone may be a catalog anywhere.
    if (folder.empty() && place.file.empty()) {
        catalog->types.UseCatalog(OpenUsualCatalog());
        return catalog;
    }
    catalog->catalogDir(folder);
    if (!catalog->errorOpeningCatalog())
        return catalog;
    ErrorContext context = catalog->OpeningFailure();
    if (const std::string note = VariableNote(); place.folder.empty() && !note.empty())
        context.reason += "; " + note;
    CErrorHandler().RaiseError(eQVXIFerr_erroraccessingSNVTmasterlist, std::move(context));
}

}  // namespace tovarek
