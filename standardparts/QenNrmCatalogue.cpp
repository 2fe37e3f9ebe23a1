#include "standardparts/QenNrmCatalogue.h"

#include "data/CZelDataItem.h"
#include "data/CZelString.h"
#include "ui/CZelGDX.h"

#include "norm/ZelNormGen.h"
#include "norm/ZelNormPrototype.h"
#include "obj/ZelGdxImage.h"

namespace qen::nrm {

std::unique_ptr<CZelDataItem> generate(bool onlyArticles) { return std::unique_ptr<CZelDataItem>(ZEL::norm_gen(onlyArticles)); }
std::unique_ptr<CZelDataItem> generateFromStack(const ZEL::NormStack& stack, bool onlyArticles) {
  return std::unique_ptr<CZelDataItem>(ZEL::norm_gen_from_stack(stack, onlyArticles));
}
void generateReset() { ZEL::norm_gen_init(false); }
void release(CZelDataItem* part) { ZEL::norm_obj_release(part); }
std::vector<std::string> variantList(const ZEL::NormStack& stack, const std::string& material, bool onlyArticles) {
  return ZEL::norm_var_lst(stack, material, onlyArticles);
}
int lengthNear(double value, const std::vector<double>& lengths) { return ZEL::norm_len_near(value, lengths); }
Table clampTable(const ZEL::NormStack& sizeStack) { return ZEL::norm_klm_lst(sizeStack); }
Table clampRows(double length, double clamping, const Table& table) { return ZEL::norm_klm(length, clamping, table); }
double clampLength(double clamping, double length, const Table& table, bool freeLength) {
  return QEN::norm_klm_len(clamping, length, table, freeLength);
}
std::vector<double> radiusRange(const ZEL::NormStack& sizeStack) { return ZEL::norm_rad_lst(sizeStack); }
double radius(const ZEL::NormStack& stack, double value, const std::vector<double>& range) {
  return ZEL::norm_radius(stack, value, range);
}
std::vector<std::string> sizeTexts(const ZEL::NormStack& stack, const std::vector<std::string>& sizes) {
  return QEN::norm_nd_txt(stack, sizes);
}
std::string lengthText(double length, int unit) { return QEN::norm_len_str(length, unit); }
std::string relAnd(const std::string& a, const std::string& b) { return QEN::rel_and(a, b); }
std::string relOr(const std::string& a, const std::string& b) { return QEN::rel_or(a, b); }
std::string relAndNot(const std::string& a, const std::string& b) { return QEN::rel_andnot(a, b); }
void spheres(std::map<std::string, std::string>& names, std::vector<std::string>& codes) { QEN::norm_spheres(names, codes); }
void propSave() { QEN::norm_prop_save(); }
void groupReset() { QEN::norm_grp_reset(); }

bool drawPart(CZelGDX& gdx, const CZelDataItem* part) { return zel_gdx_image(L"NORM", gdx, part); }
bool drawPrototype(CZelGDX& gdx, const CZelString& prototype, const CZelDataItem* params) {
  return QEN::gdx_image_norm_prototype(gdx, prototype, params);
}

}  // namespace qen::nrm
