// The enumerations of results and of rigid surfaces as primitives, and the codes under which output databases store two
// of them.

#include "odiC_Conversions.h"
#include "omu_PrimTuple.h"
#include "res_PrimEnums.h"
#include "shp_PrimEnums.h"
#include "stored_objects.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

namespace {

/// What making a primitive from `source` raises.
template <class Prim, class Source> std::string refusalOf(Source const & source) {
    return raisedBy([&] { Prim const made(source); });
}

std::string const place = " (QVRKelOvantaUtilities/ProtectedInterfaces/omu_PrimEnum";

template <class E> class Enumeration : public testing::Test {};

using AllEnumerations =
    testing::Types<res_OutputPositionEnm, res_DataTypeEnm, res_MatrixTypeEnm, res_CoordSystemEnm, res_ComponentEnm,
                   res_InvariantEnm, res_FieldCompletenessEnm, res_ClampTypeEnm, res_StorageTypeEnm, res_LoadBCTypeEnm,
                   res_LoadDescriptorEnm, res_PairEnm, res_ComplexDisplayEnm, res_SectionResultsEnm,
                   shp_AnalyticSurfaceSegment::TypeEnm, shp_AnalyticSurface::TypeEnm, shp_AnalyticRigidSurfEnm,
                   shp_SuppDataPairEnm>;
TYPED_TEST_SUITE(Enumeration, AllEnumerations);

// Every row is found by its value and by its name, each is in the map, and no two rows share either. Every other value
// and text is refused, and changes nothing.
TYPED_TEST(Enumeration, TakesTheValuesAndNamesOfItsRowsAlone) {
    using Prim = omu_PrimEnum<TypeParam, 1>;
    Prim prim(Prim::Value(1));
    Prim const before(prim);
    cow_Map<cow_String, unsigned int> const permissible = prim.PermissibleValues();
    std::string const all = "  Permissible: " + std::string(prim.PermissibleValuesAsString().CStr());
    std::set<int> values;
    for (int row = 0; Prim::Name(row) != nullptr; ++row) {
        cow_String const name = Prim::Name(row);
        Prim const byValue(Prim::Value(row)), byNumber(static_cast<int>(Prim::Value(row))), byName(name),
            byOther(static_cast<omu_PrimEnumBase const &>(byName));
        std::unique_ptr<omu_Primitive> const copy(byOther.Copy());
        for (Prim const & made : {byValue, byNumber, byName, byOther, dynamic_cast<Prim const &>(*copy)})
            EXPECT_TRUE(made.value == Prim::Value(row) && made.AsString(0) == name && made.AsRepr() == name &&
                        made == byValue && (made == before) == (row == 1))
                << name.CStr();
        EXPECT_EQ(permissible.ConstGet(name), static_cast<unsigned int>(byValue.value));
        values.insert(byValue.value);
    }
    EXPECT_EQ(permissible.Size(), static_cast<int>(values.size()));

    EXPECT_FALSE(prim == static_cast<omu_Primitive const &>(omu_PrimTuple('(')));
    EXPECT_FALSE(prim.SetValue(static_cast<char const *>(nullptr)));
    for (std::string const & text :
         {"x" + std::string(Prim::Name(0)), Prim::Name(0) + std::string(" "), std::string()}) {
        EXPECT_FALSE(prim.SetValue(text.c_str()));
        EXPECT_EQ(refusalOf<Prim>(cow_String(text.c_str())),
                  "2: omu_PrimEnum(const cow_String&) - str not allowed: " + text + all + place + ":103)");
    }
    for (int value = -3; value < 70; ++value) {
        if (values.count(value))
            continue;
        EXPECT_FALSE(prim.SetValue(static_cast<TypeParam>(value)) || prim.SetValue(value));
        EXPECT_EQ(refusalOf<Prim>(static_cast<TypeParam>(value)),
                  "2: omu_PrimEnum(Enum) - Enum value not allowed: " + std::to_string(value) + all + place + ":76)");
    }
    EXPECT_TRUE(prim == before);
    EXPECT_TRUE(prim.SetValue(Prim::Value(0)) && prim.value == Prim::Value(0));
}

TEST(Enumerations, ConvertToEachOtherByName) {
    omu_PrimEnum<res_LoadDescriptorEnm, 1> const film(res_LoadDescriptor_FILM);
    EXPECT_EQ((refusalOf<omu_PrimEnum<res_PairEnm, 1>>(film)),
              "2: omu_PrimEnum(const omu_PrimEnumBase&) - str not allowed: FILM" + place + ":89)");
}

// The first row is at the root of the map's tree; "B", an even code, goes to its left, "M", an odd one, to its right.
TEST(Enumerations, PermissibleValuesAreJoinedInTheOrderOfTheirMap) {
    omu_PrimEnum<res_ClampTypeEnm, 1> const clamp(res_ClampType_BOTH_CLAMPS);
    EXPECT_STREQ(clamp.PermissibleValuesAsString().CStr(), "NO_CLAMPS, BOTH_CLAMPS, MINIMUM_CLAMP, MAXINUM_CLAMP");
}

// What sets the tables apart from a plain list of their values.
TEST(Enumerations, OddRowsStand) {
    using Position = omu_PrimEnum<res_OutputPositionEnm, 1>;
    EXPECT_TRUE(Position::Name(2) == cow_String("SURFACE_NODAL") && Position::Value(2) == 12);
    EXPECT_TRUE(Position::Name(5) == cow_String("ELEMENT_FACE_INTEGRATION_POINT") && Position::Value(13) == 10);
    EXPECT_EQ((omu_PrimEnum<res_LoadDescriptorEnm, 1>(cow_String("BODY FLUX"))).value, 16);
    EXPECT_STREQ((omu_PrimEnum<res_InvariantEnm, 1>::Name(5)), "OUT-OF-PLANE_PRINCIPAL");
    EXPECT_STREQ((omu_PrimEnum<shp_SuppDataPairEnm, 1>::Name(2)), "Circl");
    EXPECT_STREQ((omu_PrimEnum<shp_AnalyticRigidSurfEnm, 1>::Name(3)), "Revolut");
}

/// How the values -1 to 18 are stored, and as what a database gives them back.
template <class Res> std::string codes() {
    std::string text;
    for (int value = -1; value <= 18; ++value) {
        auto const code = odiC_ConvertResToOdm(static_cast<Res>(value));
        text += " " + std::to_string(code) + ">" + std::to_string(odiC_ConvertOdmToRes(code));
    }
    return text;
}

// The database tells fewer cases apart than the enumerations do.
TEST(StoredCodes, AndWhatTheyAreReadAs) {
    EXPECT_EQ(codes<res_DataTypeEnm>(),
              " 0>15 0>15 0>15 0>15 1>3 2>4 0>15 4>7 4>7 8>8 8>8 8>8 8>8 8>8 8>8 0>15 0>15 0>15 0>15 0>15");
    EXPECT_EQ(codes<res_OutputPositionEnm>(), " 16>0 16>0 32>1 128>2 1024>3 256>4 512>6 512>6 16>0 16>0 16>0 16>0 "
                                              "4096>14 2048>13 2048>13 4096>14 16>0 16>0 16>0 16>0");
    for (int const unknown : {-1, 0, 16, 64, 32 + 128, 8192}) {
        EXPECT_EQ(odiC_ConvertOdmToRes(odm_PositionEnm(unknown)), res_OutputPosition_UNDEFINED_POSITION) << unknown;
        EXPECT_EQ(odiC_ConvertOdmToRes(odm_DataTypeEnm(unknown)), res_DataType_NUM_DATA_TYPE) << unknown;
    }
}

} // namespace
