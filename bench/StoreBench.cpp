// Store files of 100,000 values: load and save against nlohmann-json parsing and dumping
// the same text alone, lookups by a backslash path of depth 4, and one long list loaded
// at growing lengths (the time per element must stay flat: loading is linear).
#include "data/CConfig.h"
#include "data/CStoreFile.h"

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <memory>
#include <string>

namespace {

// 50 sections x 20 directories x 10 subdirectories x 10 values: reals, longs, strings,
// lists and shorts.
const std::string& storeText() {
  static const std::string text = [] {
    std::string s = "{\n";
    for (int sec = 0; sec < 50; ++sec) {
      s += "  \"*S" + std::to_string(sec) + "*\": {\n";
      for (int d = 0; d < 20; ++d) {
        s += "    \"D" + std::to_string(d) + "\": {\n";
        for (int v = 0; v < 100; ++v) {
          if (v % 10 == 0) s += "      \"E" + std::to_string(v / 10) + "\": {\n";
          s += "        \"V" + std::to_string(v) + "\": ";
          switch (v % 5) {
            case 0: s += std::to_string(v * 1.25 + 0.1); break;
            case 1: s += std::to_string(v * 1000); break;
            case 2: s += "\"ALMG3 " + std::to_string(v) + "\""; break;
            case 3: s += "[\"a\", \"b\", 1.5]"; break;
            default: s += "{\"$short\": " + std::to_string(v) + "}"; break;
          }
          s += v % 10 != 9 ? ",\n" : "\n";
          if (v % 10 == 9) s += v + 1 < 100 ? "      },\n" : "      }\n";
        }
        s += d + 1 < 20 ? "    },\n" : "    }\n";
      }
      s += sec + 1 < 50 ? "  },\n" : "  }\n";
    }
    s += "}\n";
    return s;
  }();
  return text;
}

void BM_NlohmannParseAndDump(benchmark::State& state) {
  const std::string& text = storeText();
  for (auto _ : state) {
    auto j = nlohmann::ordered_json::parse(text);
    std::string out = j.dump(2);
    benchmark::DoNotOptimize(out);
  }
}
BENCHMARK(BM_NlohmannParseAndDump)->Unit(benchmark::kMillisecond);

void BM_StoreLoadAndSave(benchmark::State& state) {
  const std::string& text = storeText();
  for (auto _ : state) {
    std::unique_ptr<CZelDataItem> item(CStoreFile::parse(text, "bench"));
    std::string out = CStoreFile::toText(*item);
    benchmark::DoNotOptimize(out);
  }
}
BENCHMARK(BM_StoreLoadAndSave)->Unit(benchmark::kMillisecond);

void BM_LookupByPathOfDepth4(benchmark::State& state) {
  ZEL::cfgMgrPtr()->reset(CStoreFile::parse(storeText(), "bench"));
  const wchar_t* paths[] = {L"*S7*\\D3\\E4\\V42", L"*S49*\\D19\\E9\\V99", L"*S0*\\D0\\E0\\V0", L"*S25*\\D10\\E5\\V50"};
  std::size_t i = 0;
  for (auto _ : state) {
    CZelDataItem* item = ZEL::cfg_get(paths[i++ & 3]);
    if (!item) state.SkipWithError("path not found");
    benchmark::DoNotOptimize(item);
  }
}
BENCHMARK(BM_LookupByPathOfDepth4);

// {"A": [0, 1, 2, …]} with state.range(0) elements.
void BM_LoadLongList(benchmark::State& state) {
  std::string text = "{\"A\": [";
  for (std::int64_t i = 0; i < state.range(0); ++i) {
    if (i) text += ", ";
    text += std::to_string(i % 1000);
  }
  text += "]}\n";
  for (auto _ : state) {
    std::unique_ptr<CZelDataItem> item(CStoreFile::parse(text, "bench"));
    if (!item) state.SkipWithError("the list was refused");
    benchmark::DoNotOptimize(item);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_LoadLongList)->RangeMultiplier(4)->Range(10000, 2560000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

}  // namespace

BENCHMARK_MAIN();
