// Access to the standard type catalog: the system's one hold on the resource-file control.
#pragma once

#include <string>

#include "base/Error.h"
#include "control/QVxTypes.h"

namespace tovarek {

// The file name that catalogs have unless somebody says otherwise.
inline constexpr const char* kUsualCatalogFile = "ldrf.cat";

class CCatalog {
  public:
    // The catalog is not opened yet; the first write of catalogDir or catalogFile does that.
    CCatalog();
    ~CCatalog();
    CCatalog(const CCatalog&) = delete;
    CCatalog& operator=(const CCatalog&) = delete;

    // The folder of the catalog, as given. Writing reopens the catalog.
    const std::string& catalogDir() const { return types.CatalogDirectory(); }
    void catalogDir(const std::string& value);

    // The file name of the catalog, by default the usual one. Writing reopens the catalog.
    const std::string& catalogFile() const { return types.CatalogFileName(); }
    void catalogFile(const std::string& value);

    // Deliberate: true from the first reopening that failed, for the rest of the object's life: one wrong
    // path marks the catalog as failed even when a later one is right. Hosts rely on creating a new object.
    bool errorOpeningCatalog() const { return errorOpeningCatalog_; }

    // Which file could not be opened and why, for the context of an error.
    ErrorContext OpeningFailure() const;

    // The control. Template validation and the type-files driver call its operations directly.
    QVxTypes types;

  private:
    void ReopenCatalog();

    bool errorOpeningCatalog_ = false;
};

}  // namespace tovarek
