// The one way in which commands open the standard type catalog: the way of the generator itself.
#pragma once

#include <memory>
#include <string>

#include "types/catalog/CCatalog.h"

namespace tovarek {

class StandardCatalog;  // control/StandardCatalog.h

// Where the catalog is; empty members stand for the usual one and its usual name.
struct CatalogPlace {
    std::string folder;
    std::string file;

    // Whether it is the program's own, as the folder tells.
    bool IsShipped() const;
};

// The folder of the usual catalog, which counts where a command is told none: that of the environment
// variable TOVAREK_CATALOG, else that beside the program. Empty: the standard set inside the program is used.
// A folder counts even if no catalog is found in it, so that no other set takes its place unseen.
std::string UsualCatalogFolder();

// The usual catalog; null when it cannot be opened.
std::shared_ptr<StandardCatalog> OpenUsualCatalog();

// What an error about that folder says more; empty where the environment does not name it.
std::string VariableNote();

// Says where a standard set is from: the folder of its catalog file or, without one, from inside the program.
std::string SetFrom(const std::string& catalogFile);

// The opened catalog. Raises error 130 (erroraccessingSNVTmasterlist) when it cannot be opened; the context
// tells which file and why.
std::unique_ptr<CCatalog> OpenCatalog(const CatalogPlace& place);

}  // namespace tovarek
