// The one way in which commands open the standard type catalog: the way of the generator itself.
#pragma once

#include <memory>
#include <string>

#include "types/catalog/CCatalog.h"

namespace tovarek {

class StandardCatalog;  // control/StandardCatalog.h

// Where the catalog is; empty members stand for the shipped one and its usual name.
struct CatalogPlace {
    std::string folder;
    std::string file;

    bool IsShipped() const { return folder.empty(); }
};

// The shipped catalog; null where there is none, or none that can be opened.
std::shared_ptr<StandardCatalog> OpenShippedCatalog();

// Says where a catalog was looked for in vain, and how to name one.
std::string NoShippedCatalog();

// The opened catalog. Raises error 130 (erroraccessingSNVTmasterlist) when it cannot be opened; the context
// tells which file and why.
std::unique_ptr<CCatalog> OpenCatalog(const CatalogPlace& place);

}  // namespace tovarek
