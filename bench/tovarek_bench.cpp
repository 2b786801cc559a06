// Time of Generate inside one process: templates of 16 to 2,048 network variables with as many configuration
// properties. "per_variable" must stay flat.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "Inputs.h"
#include "component/Tovarek.h"
#include "system/Files.h"

namespace {

namespace fs = std::filesystem;

// A folder of this process that is gone when it ends.
class Folder {
  public:
    Folder() : path_(fs::temp_directory_path() / ("tovarek-bench-" + std::to_string(getpid()))) {
        fs::create_directories(path_);
    }
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string Put(const std::string& name, const std::string& text) const {
        std::string path = (path_ / name).string();
        tovarek::WriteFile(path, text);
        return path;
    }
    std::string Path(const std::string& name) const { return (path_ / name).string(); }

  private:
    fs::path path_;
};

void Measure(benchmark::State& state, tovarek::Tovarek& component, const Folder& folder) {
    const std::string output = folder.Path("node.xif");
    component.catalogDir(TOVAREK_CATALOG_FOLDER);
    component.iniProfileFile(folder.Put("profile.ini", tovarek::bench::IniProfile()));
    component.mustGenerateTypes(false);
    component.outputXIFfile(output);
    while (state.KeepRunning())
        component.Generate();
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(static_cast<std::int64_t>(fs::file_size(output)) * state.iterations());
    state.counters["per_variable"] =
        benchmark::Counter(static_cast<double>(state.range(0)),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void GenerateFromIni(benchmark::State& state) {
    const Folder folder;
    tovarek::Tovarek component;
    component.iniTemplateFile(
        folder.Put("template.ini", tovarek::bench::IniTemplate(static_cast<int>(state.range(0)))));
    Measure(state, component, folder);
}

void GenerateFromXml(benchmark::State& state) {
    const Folder folder;
    tovarek::Tovarek component;
    component.xmlTemplateFile(
        folder.Put("template.xml", tovarek::bench::XmlTemplate(static_cast<int>(state.range(0)))));
    component.xmlTemplateNodeName("TEMPLATE");
    Measure(state, component, folder);
}

void OpenCatalog(benchmark::State& state) {
    while (state.KeepRunning()) {
        tovarek::Tovarek component;
        component.catalogDir(TOVAREK_CATALOG_FOLDER);
    }
}

constexpr int kSmallest = 16;
constexpr int kLargest = 2048;

}  // namespace

BENCHMARK(OpenCatalog)->Unit(benchmark::kMicrosecond);
BENCHMARK(GenerateFromIni)
    ->RangeMultiplier(2)
    ->Range(kSmallest, kLargest)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);
BENCHMARK(GenerateFromXml)
    ->RangeMultiplier(2)
    ->Range(kSmallest, kLargest)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);

BENCHMARK_MAIN();
