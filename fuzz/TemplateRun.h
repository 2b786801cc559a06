// Runs a loaded template through everything that Generate does with it.
#pragma once

#include "Fuzzing.h"
#include "component/XifWriter.h"
#include "profile/CProfile.h"
#include "template/CTemplate.h"

namespace tovarek::fuzz {

// The open standard catalog; the templates of a run share it.
inline CCatalog& SharedCatalog(const char* folder) {
    static CCatalog catalog;
    if (catalog.catalogDir().empty())
        catalog.catalogDir(folder);
    return catalog;
}

inline void RunTemplate(CTemplate& source, const char* catalogFolder) {
    const CErrorHandler errors;
    source.errorHandler = &errors;
    source.catalog = &SharedCatalog(catalogFolder);
    Accepts([&] {
        source.Load();
        source.VerifyData();
        source.AddNameInCp();
        NullSink sink;
        WriteXifText(sink, "node.xif", CProfile(), source, CResources(), *FixedClock(0));
    });
    // A second load starts from nothing.
    const std::size_t records = source.nvs.size();
    if (Accepts([&] { source.Load(); }))
        Require(source.nvs.size() >= records, "loading again gives the same records");
    else
        Require(source.nvs.size() <= records, "loading again fails where it failed");
}

}  // namespace tovarek::fuzz
