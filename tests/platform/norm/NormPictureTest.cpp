// Standard parts drawn from the catalogue: every standard's default part gives a drawing in
// all seven views; the part items carry the table's figures by name; the
// prototype pictures of standards and inner nodes.
#include "ZelNorm.h"
#include "ZelNormGen.h"
#include "ZelNormPrototype.h"

#include "obj/geometry/ZelNormShape.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <functional>
#include <memory>

namespace {
const bool kDatabaseSet = [] {
    setenv("QEN_NORM_DB", QEN_NORM_DB_FILE, 1);
    return true;
}();

void collectStandards(const ZEL::NormStack& at, std::vector<ZEL::NormStack>& out)
{
    for (const std::string& child : ZEL::norm_dir(at)) {
        ZEL::NormStack next = at;
        next.push_back(child);
        if (ZEL::norm_get(next, "TYPE").value_or("") == "NORM")
            out.push_back(next);
        else
            collectStandards(next, out);
    }
}

double figure(const CZelDataItem& part, const wchar_t* name)
{
    double v = NAN;
    const CZelDataKey key = CZelDataKey::fromPath(CZelString(L"DIM\\") + name);
    part.get(v, &key);
    return v;
}

bool finite(const ZEL::geo::Shape& s)
{
    const auto ok = [](const CZelVertexArray& v) {
        for (const ZelVertex& p : v)
            if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.bulge)) return false;
        return true;
    };
    for (const auto& p : s.paths)
        if (!ok(p.points)) return false;
    for (const auto& a : s.areas)
        if (!ok(a.outline)) return false;
    return ok(s.outline);
}
}  // namespace

TEST(NormPictureCatalogue, EveryGeneratedDefaultPartDrawsInAllViews)
{
    // The parts the catalogue generates for a node (first preferred size, first length,
    // a section's stock length) are what the dialogs draw.
    ASSERT_TRUE(kDatabaseSet);
    std::vector<ZEL::NormStack> standards;
    collectStandards({}, standards);
    ASSERT_GE(standards.size(), 40u);
    for (const ZEL::NormStack& standard : standards) {
        std::unique_ptr<CZelDataItem> part(ZEL::norm_gen_from_stack(standard, false));
        ASSERT_NE(part, nullptr) << standard.back();
        for (int view : ZEL::geo::kNormViews) {
            const CZelDataKey key(L"VIEW");
            part->put(&key, ZEL::mkRbLong(view));
            const ZEL::geo::Shape shape = ZEL::geo::normPartShape(part.get());
            EXPECT_FALSE(shape.isEmpty()) << standard.back() << " view " << view;
            EXPECT_TRUE(finite(shape)) << standard.back() << " view " << view;
            EXPECT_FALSE(shape.outline.isEmpty()) << standard.back() << " view " << view;
        }
    }
}

TEST(NormPictureCatalogue, PartItemCarriesTheTableFiguresByName)
{
    std::unique_ptr<CZelDataItem> part(ZEL::norm_part_item({"PIECE", "SCREW", "HEX", "ISO4017"}, "M12", 60.0, 2, 1));
    ASSERT_NE(part, nullptr);
    // Every figure of the size, by the column names of the table.
    for (const auto& [name, value] : ZEL::norm_size_dims({"PIECE", "SCREW", "HEX", "ISO4017", "M12"}))
        EXPECT_DOUBLE_EQ(figure(*part, CZelString::fromUtf8(name).c_str()), value) << name;
    EXPECT_DOUBLE_EQ(figure(*part, L"e"), 20.1);  // the catalogue's across-corners of M12
    // Seen from the head, the catalogue part is the hexagon of those figures.
    const CZelDataKey view(L"VIEW");
    part->put(&view, ZEL::mkRbLong(0));
    const ZEL::geo::Shape left = ZEL::geo::normPartShape(part.get());
    bool hexagon = false;
    for (const auto& p : left.paths) {
        if (!p.closed || p.points.count() != 6) continue;
        double lo = INFINITY, hi = -INFINITY, bottom = INFINITY, top = -INFINITY;
        for (const ZelVertex& v : p.points) {
            lo = std::min(lo, v.x);
            hi = std::max(hi, v.x);
            bottom = std::min(bottom, v.y);
            top = std::max(top, v.y);
        }
        hexagon = std::fabs(hi - lo - 18.0) < 1e-9 && std::fabs(top - bottom - 20.1) < 1e-9;
    }
    EXPECT_TRUE(hexagon);
    CZelString norm, group;
    CZelDataKey normKey(L"NORM"), groupKey(L"GROUP");
    part->get(norm, &normKey);
    part->get(group, &groupKey);
    EXPECT_EQ(norm, L"ISO4017");
    EXPECT_EQ(group, L"HEX");
    std::unique_ptr<CZelDataItem> ipe(ZEL::norm_part_item({"BAR", "SECTION", "I-BEAM", "IPE"}, "IPE200", 1000.0, 0, 0));
    ASSERT_NE(ipe, nullptr);
    EXPECT_DOUBLE_EQ(figure(*ipe, L"tw"), 5.6);
    // A text cell ("forms" of ISO 7049) is no figure; an unknown size gives no item.
    std::unique_ptr<CZelDataItem> tapping(ZEL::norm_part_item({"PIECE", "SCREW", "TAPPING", "ISO7049"}, "ST4.2", 16.0, 0, 0));
    ASSERT_NE(tapping, nullptr);
    EXPECT_TRUE(std::isnan(figure(*tapping, L"forms")));
    EXPECT_DOUBLE_EQ(figure(*tapping, L"dk_max"), 8.0);
    EXPECT_EQ(ZEL::norm_part_item({"PIECE", "SCREW", "HEX", "ISO4017"}, "M13", 60.0, 2, 1), nullptr);
}

TEST(NormPicturePrototype, RepresentativePartOfAnInnerNodeIsItsFirstStandardsMiddleSize)
{
    EXPECT_EQ(ZEL::norm_node_stack("HEX"), (ZEL::NormStack{"PIECE", "SCREW", "HEX"}));
    EXPECT_EQ(ZEL::norm_node_stack("IPE"), (ZEL::NormStack{"BAR", "SECTION", "I-BEAM", "IPE"}));
    EXPECT_TRUE(ZEL::norm_node_stack("NO-SUCH-NODE").empty());
    EXPECT_EQ(ZEL::norm_first_standard({"PIECE", "SCREW"}), (ZEL::NormStack{"PIECE", "SCREW", "HEX", "ISO4014"}));
    std::unique_ptr<CZelDataItem> part(ZEL::norm_representative_part({"PIECE", "SCREW", "HEX"}));
    ASSERT_NE(part, nullptr);
    CZelString nd;
    double len = 0.0;
    CZelDataKey ndKey(L"ND"), lenKey(L"LEN");
    ASSERT_TRUE(part->get(nd, &ndKey));
    ASSERT_TRUE(part->get(len, &lenKey));
    const ZEL::NormStack standard{"PIECE", "SCREW", "HEX", "ISO4014"};
    const auto sizes = ZEL::norm_nd_lst(standard, "", "", false);
    ASSERT_FALSE(sizes.empty());
    EXPECT_NE(nd, CZelString::fromUtf8(sizes.front()));  // a middle size, not the smallest
    const auto lengths = ZEL::norm_len_lst({"PIECE", "SCREW", "HEX", "ISO4014", nd.toUtf8()}, "", "");
    EXPECT_NE(std::find(lengths.begin(), lengths.end(), len), lengths.end());
    // A section gets a length that shows it: four times its largest figure.
    std::unique_ptr<CZelDataItem> beam(ZEL::norm_representative_part({"BAR", "SECTION", "I-BEAM", "IPE"}));
    ASSERT_NE(beam, nullptr);
    ASSERT_TRUE(beam->get(len, &lenKey));
    EXPECT_DOUBLE_EQ(len, 4.0 * figure(*beam, L"h"));
}

TEST(NormPicturePrototype, StandardPictureIsFrontViewWithItsEndViewBeside)
{
    CZelGDX gdx;
    CZelDataItem params;
    params.mkDir();
    const CZelDataKey back(L"BACK_CLR");
    params.put(&back, ZEL::mkRbLong(0x00C0D0E0));
    ASSERT_TRUE(QEN::gdx_image_norm_prototype(gdx, L"ISO4017", &params));
    const CDisplayList& list = gdx.displayList();
    EXPECT_FALSE(list.isEmpty());
    EXPECT_EQ(list.background, CZelColor::fromRgb(0xE0, 0xD0, 0xC0));
    // The picture of the representative part alone: its front view starts at 0, the end
    // view lies to the right of it.
    std::unique_ptr<CZelDataItem> part(ZEL::norm_representative_part({"PIECE", "SCREW", "HEX", "ISO4017"}));
    ASSERT_NE(part, nullptr);
    const ZEL::geo::Shape front = ZEL::geo::normPartShape(part.get());
    double frontWidth = 0.0;
    {
        double lo = INFINITY, hi = -INFINITY;
        for (const ZelVertex& v : front.outline) {
            lo = std::min(lo, v.x);
            hi = std::max(hi, v.x);
        }
        frontWidth = hi - lo;
    }
    const CDisplayExtents box = list.extents();
    EXPECT_NEAR(box.minX, 0.0, 1e-9);
    EXPECT_GT(box.maxX, frontWidth * 1.1);
    // Placed where asked.
    CZelGDX moved;
    const CZelDataKey x(L"X"), y(L"Y");
    params.put(&x, ZEL::mkRbReal(100.0));
    params.put(&y, ZEL::mkRbReal(50.0));
    ASSERT_TRUE(QEN::gdx_image_norm_prototype(moved, L"ISO4017", &params));
    EXPECT_NEAR(moved.displayList().extents().minX, 100.0, 1e-9);
    EXPECT_NEAR(moved.displayList().extents().minY, box.minY + 50.0, 1e-9);
}

TEST(NormPicturePrototype, InnerNodesAndSectionsDrawAndUnknownNamesDoNot)
{
    for (const wchar_t* name : {L"HEX", L"SCREW", L"NUT", L"WASHER", L"I-BEAM", L"HOLLOW-ROUND", L"SECTION", L"BAR", L"PIECE"}) {
        CZelGDX gdx;
        EXPECT_TRUE(QEN::gdx_image_norm_prototype(gdx, name, nullptr)) << CZelString(name);
        EXPECT_FALSE(gdx.displayList().isEmpty()) << CZelString(name);
    }
    // A section's end view is hatched: one item of hatch segments.
    CZelGDX beam;
    ASSERT_TRUE(QEN::gdx_image_norm_prototype(beam, L"IPE", nullptr));
    bool hatched = false;
    for (const auto& item : beam.displayList().items())
        if (item.kind == CDisplayList::Kind::Segments) hatched = true;
    EXPECT_TRUE(hatched);
    CZelGDX none;
    EXPECT_FALSE(QEN::gdx_image_norm_prototype(none, L"NO-SUCH-NODE", nullptr));
    EXPECT_FALSE(QEN::gdx_image_norm_prototype(none, L"", nullptr));
    EXPECT_TRUE(none.displayList().isEmpty());
}
