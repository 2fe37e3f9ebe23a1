// How fast a standard part is drawn: ISO 4017 M12 x 60 (figures of the catalogue) in each
// of its seven views into a preview drawing, through the drawing by kind "NORM" (shape,
// layer colours, the drawing's display list), and the shape alone.
#include "data/CConfig.h"
#include "data/ZelFactorySettings.h"
#include "data/resbuf.h"
#include "obj/ZelGdxImage.h"
#include "obj/geometry/ZelNormShape.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

void put(CZelDataItem& item, const wchar_t* path, resbuf* value) {
  const CZelDataKey key = CZelDataKey::fromPath(path);
  item.put(&key, value);
}

std::unique_ptr<CZelDataItem> screw(int view) {
  auto part = std::make_unique<CZelDataItem>();
  part->mkDir();
  put(*part, L"TYPE", ZEL::mkResbuf(L"DIN"));
  put(*part, L"CATEGORY", ZEL::mkResbuf(L"SCREW"));
  put(*part, L"GROUP", ZEL::mkResbuf(L"HEX"));
  put(*part, L"NORM", ZEL::mkResbuf(L"ISO4017"));
  const std::pair<const wchar_t*, double> dims[] = {{L"DIM\\d", 12},   {L"DIM\\P", 1.75}, {L"DIM\\c", 0.3}, {L"DIM\\dw", 16.7},
                                                    {L"DIM\\e", 20.1}, {L"DIM\\k", 7.5},  {L"DIM\\r", 0.6}, {L"DIM\\s", 18}};
  for (const auto& [name, value] : dims) put(*part, name, ZEL::mkRbReal(value));
  put(*part, L"LEN", ZEL::mkRbReal(60.0));
  put(*part, L"VIEW", ZEL::mkRbLong(view));
  put(*part, L"AXIS", ZEL::mkRbLong(1));
  return part;
}

void BM_NormDrawIso4017M12x60(benchmark::State& state) {
  ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
  const int view = static_cast<int>(state.range(0));
  const auto part = screw(view);
  CZelGDX gdx;
  for (auto _ : state) {
    gdx.clear();
    benchmark::DoNotOptimize(zel_gdx_image(L"NORM", gdx, part.get()));
  }
  state.SetLabel("view " + std::to_string(view) + ", " + std::to_string(gdx.displayList().items().size()) + " items");
}
BENCHMARK(BM_NormDrawIso4017M12x60)->Arg(0)->Arg(1)->Arg(2)->Arg(3)->Arg(32)->Arg(33)->Arg(34)->Unit(benchmark::kMicrosecond);

void BM_NormShapeIso4017M12x60(benchmark::State& state) {
  const auto part = screw(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(ZEL::geo::normPartShape(part.get()));
}
BENCHMARK(BM_NormShapeIso4017M12x60)->Arg(0)->Arg(2)->Arg(3)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
