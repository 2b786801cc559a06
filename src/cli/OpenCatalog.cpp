#include "cli/OpenCatalog.h"

#include "base/Path.h"
#include "cli/Locations.h"
#include "control/StandardCatalog.h"
#include "support/CErrorHandler.h"

namespace tovarek {

std::string NoShippedCatalog() {
    std::string reason = "no catalog was found; looked for " + std::string(kUsualCatalogFile) + " in";
    for (const std::string& folder : ShippedCatalogPlaces())
        reason += " '" + folder + "'";
    return reason + "; name the folder of a catalog with --catalogDir";
}

std::shared_ptr<StandardCatalog> OpenShippedCatalog() {
    const std::string folder = ShippedCatalogFolder();
    std::unique_ptr<StandardCatalog> catalog;
    if (!folder.empty())
        StandardCatalog::Open(WithFinalBackslash(folder) + kUsualCatalogFile, catalog);
    return catalog;
}

std::unique_ptr<CCatalog> OpenCatalog(const CatalogPlace& place) {
    auto catalog = std::make_unique<CCatalog>();
    // The name is set without opening: a failure would mark the catalog for good.
    if (!place.file.empty())
        catalog->types.CatalogFileName(place.file);
    const std::string shipped = place.IsShipped() ? ShippedCatalogFolder() : "";
    // A file alone may be a catalog anywhere.
    if (place.IsShipped() && shipped.empty() && place.file.empty())
        CErrorHandler().RaiseError(eQVXIFerr_erroraccessingSNVTmasterlist,
                                   {.record = "standard type catalog", .reason = NoShippedCatalog()});
    catalog->catalogDir(place.IsShipped() ? shipped : place.folder);
    if (catalog->errorOpeningCatalog())
        CErrorHandler().RaiseError(eQVXIFerr_erroraccessingSNVTmasterlist, catalog->OpeningFailure());
    return catalog;
}

}  // namespace tovarek
