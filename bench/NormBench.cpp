// The standard-parts catalogue: a search for "*" and one part generation on the shipped
// catalogue; a mask search and a full tree walk (children and tree text of every node) on
// generated catalogues of 1,000, 10,000 and 100,000 standards, built once per size with the
// loader into a temporary folder, so that the growth of the cost can be read off.
#include "CNormDatabase.h"
#include "CNormDbBuilder.h"
#include "ZelNorm.h"
#include "ZelNormGen.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

fs::path workDir()
{
    static const fs::path dir = [] {
        fs::path d = fs::temp_directory_path() / ("qen-normbench-" + std::to_string(::getpid()));
        fs::create_directories(d);
        std::atexit([] { std::error_code ec; fs::remove_all(fs::temp_directory_path() / ("qen-normbench-" + std::to_string(::getpid())), ec); });
        return d;
    }();
    return dir;
}

void write(const fs::path& file, const std::string& text)
{
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
}

// A catalogue of `count` screw standards in 10 categories of 10 groups, each with four
// sizes, a length series and a material; plus the nut table the clamping tables read.
fs::path generatedCatalogue(int count)
{
    const fs::path folder = workDir() / ("catalogue-" + std::to_string(count));
    std::string standards = "domain,category,group,key,din,iso,en_iso,en,other,title_de,title_en,has_length,further_dim,files\n";
    std::string releases = "key,release\n";
    std::string nodes = "domain,category,group,title_de,title_en\nBAR,,,Stabteile,Bar parts\nPIECE,,,Stückteile,Piece parts\n";
    for (int c = 0; c < 10; ++c) {
        nodes += "PIECE,C" + std::to_string(c) + ",,Kategorie " + std::to_string(c) + ",Category " + std::to_string(c) + "\n";
        for (int g = 0; g < 10; ++g)
            nodes += "PIECE,C" + std::to_string(c) + ",G" + std::to_string(g) + ",Gruppe " + std::to_string(g) + ",Group " +
                     std::to_string(g) + "\n";
    }
    nodes += "PIECE,NUT,,Muttern,Nuts\nPIECE,NUT,HEX,Sechskantmuttern,Hexagon nuts\n";
    write(folder / "pieces" / "T-lengths.csv", "nominal,min,max\n10,9.7,10.3\n20,19.6,20.4\n30,29.6,30.4\n40,39.5,40.5\n");
    write(folder / "pieces" / "T-ranges.csv", "size,l_min,l_max\nM6,10,30\nM8,10,40\nM10,20,40\nM12,20,40\n");
    write(folder / "pieces" / "T.csv",
          "size,preferred,d,P,k,s\nM6,1,6,1,4,10\nM8,1,8,1.25,5.3,13\nM10,1,10,1.5,6.4,16\nM12,0,12,1.75,7.5,18\n");
    for (int i = 0; i < count; ++i) {
        const std::string key = "GEN" + std::to_string(i);
        const int c = i % 10, g = (i / 10) % 10;
        // Every standard shares the tables above (the loader reads a table per standard).
        standards += "PIECE,C" + std::to_string(c) + ",G" + std::to_string(g) + "," + key + ",DIN " + std::to_string(10000 + i) +
                     ",ISO " + std::to_string(20000 + i) + ",,,,Normteil " + std::to_string(i) + ",Standard part " +
                     std::to_string(i) + ",1,none,pieces/T.csv;pieces/T-lengths.csv;pieces/T-ranges.csv\n";
        releases += key + "," + (i % 50 == 0 ? "804" : "01") + "\n";
    }
    standards += "PIECE,NUT,HEX,ISO4032,DIN 934,ISO 4032,,,,Sechskantmutter,Hexagon nut,0,none,pieces/ISO4032.csv\n";
    releases += "ISO4032,01\n";
    write(folder / "pieces" / "ISO4032.csv", "size,preferred,d,P,m,s\nM6,1,6,1,5.2,10\nM8,1,8,1.25,6.8,13\n");
    write(folder / "standards.csv", standards);
    write(folder / "releases.csv", releases);
    write(folder / "nodes.csv", nodes);
    write(folder / "materials.csv", "key,label_de,label_en,categories,standards\n8.8,Stahl 8.8,Steel 8.8,SCREW;NUT,\n");
    write(folder / "areas.csv", "code,label_de,label_en\n01,ISO-Normen,ISO standards\n8,Zurückgezogene Normen,Withdrawn standards\n");
    write(folder / "variants.csv", "variant,label_de,label_en,fine\nCOARSE,Regelgewinde,Coarse thread,0\nFINE,Feingewinde,Fine thread,1\n");
    write(folder / "stock-lengths.csv", "nominal\n6000\n12000\n");
    write(folder / "radii.csv", "key,column,min_factor,max_factor\n");
    return folder;
}

// The database of a generated catalogue, built once per size.
const std::string& generatedDatabase(int count)
{
    static std::map<int, std::string> built;
    auto& path = built[count];
    if (path.empty()) {
        const fs::path db = workDir() / ("norm-" + std::to_string(count) + ".db");
        std::string why;
        if (!CNormDbBuilder::build(generatedCatalogue(count).string(), db.string(), why)) {
            std::fprintf(stderr, "generated catalogue of %d standards: %s\n", count, why.c_str());
            std::abort();
        }
        path = db.string();
    }
    return path;
}

std::string g_open;  // the database the process has open, with its index read

void useDatabase(const std::string& path)
{
    if (g_open != path) {
        CNormDatabase::reopen(path);
        g_open = path;
        ZEL::norm_dir({});  // the tree index is read once per process, timed on its own below
    }
}

// Children and tree text of every node below the stack; counts the nodes.
long walk(ZEL::NormStack& stack)
{
    long nodes = 0;
    for (const auto& child : ZEL::norm_dir(stack)) {
        stack.push_back(child);
        benchmark::DoNotOptimize(ZEL::norm_tree_txt(stack));
        nodes += 1 + walk(stack);
        stack.pop_back();
    }
    return nodes;
}

void BM_ShippedSearchAll(benchmark::State& state)
{
    useDatabase(QEN_NORM_DB_FILE);
    std::vector<ZEL::NormStack> results;
    for (auto _ : state) {
        ZEL::norm_tree_leaves({}, "*", results);
        benchmark::DoNotOptimize(results.data());
    }
    state.counters["results"] = static_cast<double>(results.size());
}
BENCHMARK(BM_ShippedSearchAll)->Unit(benchmark::kMicrosecond);

void BM_ShippedGenerate(benchmark::State& state)
{
    useDatabase(QEN_NORM_DB_FILE);
    ZEL::cfgMgrPtr()->reset(CStoreFile::parse(
        R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M12", "MAT": "8.8", "LEN": 60.0}})", "bench"));
    for (auto _ : state) {
        std::unique_ptr<CZelDataItem> part(ZEL::norm_gen(false));
        benchmark::DoNotOptimize(part.get());
    }
}
BENCHMARK(BM_ShippedGenerate)->Unit(benchmark::kMicrosecond);

void BM_GeneratedMaskSearch(benchmark::State& state)
{
    useDatabase(generatedDatabase(static_cast<int>(state.range(0))));
    std::vector<ZEL::NormStack> results;
    for (auto _ : state) {
        ZEL::norm_tree_leaves({}, "ISO 2?1*", results);
        benchmark::DoNotOptimize(results.data());
    }
    state.counters["results"] = static_cast<double>(results.size());
}
BENCHMARK(BM_GeneratedMaskSearch)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_GeneratedTreeWalk(benchmark::State& state)
{
    useDatabase(generatedDatabase(static_cast<int>(state.range(0))));
    long nodes = 0;
    for (auto _ : state) {
        ZEL::NormStack stack;
        nodes = walk(stack);
    }
    state.counters["nodes"] = static_cast<double>(nodes);
}
// Opening a database and reading its tree index (what the first tree query of a process pays).
void BM_GeneratedOpen(benchmark::State& state)
{
    const std::string& path = generatedDatabase(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        CNormDatabase::reopen(path);
        benchmark::DoNotOptimize(ZEL::norm_dir({}));
    }
    g_open = path;
}
BENCHMARK(BM_GeneratedOpen)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

BENCHMARK(BM_GeneratedTreeWalk)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
