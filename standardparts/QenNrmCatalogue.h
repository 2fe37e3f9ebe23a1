// The catalogue and drawing operations the standard-parts dialog calls, in one place: part
// generation, variants, the dimension tables, release masks and areas, and drawing a part
// or a prototype picture into a preview.
#pragma once

#include "norm/ZelNorm.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

class CZelDataItem;
class CZelGDX;
class CZelString;

namespace qen::nrm {

using Table = std::vector<std::vector<double>>;

// The part "*NM*" describes (none when it names no standard).
std::unique_ptr<CZelDataItem> generate(bool onlyArticles);
// The default part of a node, with its "ORDER".
std::unique_ptr<CZelDataItem> generateFromStack(const ZEL::NormStack& stack, bool onlyArticles);
// Forget the cached generated part.
void generateReset();
// The part's resolved values written back into "*NM*" where absent.
void release(CZelDataItem* part);

std::vector<std::string> variantList(const ZEL::NormStack& stack, const std::string& material, bool onlyArticles);
int lengthNear(double value, const std::vector<double>& lengths);
Table clampTable(const ZEL::NormStack& sizeStack);
Table clampRows(double length, double clamping, const Table& table);
double clampLength(double clamping, double length, const Table& table, bool freeLength);
std::vector<double> radiusRange(const ZEL::NormStack& sizeStack);
double radius(const ZEL::NormStack& stack, double value, const std::vector<double>& range);
std::vector<std::string> sizeTexts(const ZEL::NormStack& stack, const std::vector<std::string>& sizes);
std::string lengthText(double length, int unit);

// Release masks (reversed hexadecimal).
std::string relAnd(const std::string& a, const std::string& b);
std::string relOr(const std::string& a, const std::string& b);
std::string relAndNot(const std::string& a, const std::string& b);
// The areas: code -> name, and the codes in display order.
void spheres(std::map<std::string, std::string>& names, std::vector<std::string>& codes);

void propSave();
void groupReset();

// Drawing into a preview: the generated part, or the prototype picture of a node.
bool drawPart(CZelGDX& gdx, const CZelDataItem* part);
bool drawPrototype(CZelGDX& gdx, const CZelString& prototype, const CZelDataItem* params);

}  // namespace qen::nrm
