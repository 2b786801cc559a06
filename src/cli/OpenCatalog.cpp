#include "cli/OpenCatalog.h"

#include "cli/Locations.h"
#include "support/CErrorHandler.h"

namespace tovarek {

std::unique_ptr<CCatalog> OpenCatalog(const CatalogPlace& place) {
    auto catalog = std::make_unique<CCatalog>();
    // The name is set without opening: a failure would mark the catalog for good.
    if (!place.file.empty())
        catalog->types.CatalogFileName(place.file);
    catalog->catalogDir(place.IsShipped() ? ShippedCatalogFolder() : place.folder);
    if (catalog->errorOpeningCatalog())
        CErrorHandler().RaiseError(eQVXIFerr_erroraccessingSNVTmasterlist, catalog->OpeningFailure());
    return catalog;
}

}  // namespace tovarek
