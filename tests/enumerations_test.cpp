// The enumerations of results and of rigid surfaces as primitives, and the codes under which output databases store two
// of them.

#include "nex_CmdException.h"
#include "odiC_Conversions.h"
#include "omu_PrimTuple.h"
#include "res_PrimEnums.h"
#include "shp_PrimEnums.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace {

using CmdException = nex_CmdException<atr_String, 2>;

/// Message and line of what `work` raises.
template <class Work> std::string refusalOf(Work work) {
    try {
        work();
    } catch (CmdException const & raised) {
        EXPECT_STREQ(raised.SourceFile(), "QVRKelOvantaUtilities/ProtectedInterfaces/omu_PrimEnum");
        return std::string(raised.AsString(0).CStr()) + " @" + std::to_string(raised.Line());
    }
    return "nothing raised";
}

template <class E> class Enumeration : public testing::Test {};

using AllEnumerations =
    testing::Types<res_OutputPositionEnm, res_DataTypeEnm, res_MatrixTypeEnm, res_CoordSystemEnm, res_ComponentEnm,
                   res_InvariantEnm, res_FieldCompletenessEnm, res_ClampTypeEnm, res_StorageTypeEnm, res_LoadBCTypeEnm,
                   res_LoadDescriptorEnm, res_PairEnm, res_ComplexDisplayEnm, res_SectionResultsEnm,
                   shp_AnalyticSurfaceSegment::TypeEnm, shp_AnalyticSurface::TypeEnm, shp_AnalyticRigidSurfEnm,
                   shp_SuppDataPairEnm>;
TYPED_TEST_SUITE(Enumeration, AllEnumerations);

// Every row is found by its value and by its name, each is in the map, and no two rows share either.
TYPED_TEST(Enumeration, RowsAreReachedByValueAndByName) {
    using Prim = omu_PrimEnum<TypeParam, 1>;
    int count = 0;
    for (; Prim::Name(count) != nullptr; ++count) {
        char const * const name = Prim::Name(count);
        SCOPED_TRACE(name);
        Prim const byValue(Prim::Value(count));
        EXPECT_STREQ(byValue.GetString().CStr(), name);
        EXPECT_EQ(byValue.value, Prim::Value(count));
        Prim const byName((cow_String(name)));
        EXPECT_EQ(byName.value, Prim::Value(count));
        EXPECT_TRUE(byName == byValue);
        EXPECT_EQ(byValue == Prim(Prim::Value(0)), count == 0);
        EXPECT_EQ(Prim(static_cast<omu_PrimEnumBase const &>(byValue)).value, byValue.value);
        std::unique_ptr<omu_Primitive> const copy(byValue.Copy());
        EXPECT_EQ(dynamic_cast<Prim &>(*copy).value, byValue.value);
        EXPECT_STREQ(copy->AsString(0).CStr(), name);
        EXPECT_STREQ(copy->AsRepr().CStr(), name);
        EXPECT_TRUE(*copy == static_cast<omu_Primitive const &>(byValue));
        EXPECT_FALSE(*copy == static_cast<omu_Primitive const &>(omu_PrimTuple('(')));
        EXPECT_EQ(byValue.PermissibleValues().ConstGet(name), static_cast<unsigned int>(byValue.value));
    }
    ASSERT_GE(count, 2);
    EXPECT_EQ(Prim(Prim::Value(0)).PermissibleValues().Size(), count);
}

// A value without a row and a name that is not exactly one of the table's are refused, and change nothing.
TYPED_TEST(Enumeration, NothingElseIsAccepted) {
    using Prim = omu_PrimEnum<TypeParam, 1>;
    std::map<int, std::string> rows;
    for (int row = 0; Prim::Name(row) != nullptr; ++row)
        rows[static_cast<int>(Prim::Value(row))] = Prim::Name(row);

    Prim prim(Prim::Value(1));
    std::string const all = prim.PermissibleValuesAsString().CStr();
    for (auto const & [value, name] : rows)
        EXPECT_NE((", " + all + ",").find(", " + name + ","), std::string::npos) << name;
    for (int value = -3; value < 70; ++value) {
        SCOPED_TRACE(value);
        auto const asEnumerator = static_cast<TypeParam>(value);
        if (rows.count(value)) {
            EXPECT_TRUE(prim.SetValue(asEnumerator));
            continue;
        }
        Prim const before(prim);
        EXPECT_FALSE(prim.SetValue(asEnumerator));
        EXPECT_TRUE(prim == before && prim.value == before.value);
        EXPECT_EQ(refusalOf([&] { Prim refused(asEnumerator); }),
                  "omu_PrimEnum(Enum) - Enum value not allowed: " + std::to_string(value) + "  Permissible: " + all +
                      " @76");
    }
    for (std::string text : {rows.begin()->second, std::string()}) {
        std::transform(text.begin(), text.end(), text.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        Prim const before(prim);
        EXPECT_FALSE(prim.SetValue(text.c_str()));
        EXPECT_FALSE(prim.SetValue((rows.begin()->second + " ").c_str()));
        EXPECT_FALSE(prim.SetValue(static_cast<char const *>(nullptr)));
        EXPECT_TRUE(prim == before && prim.value == before.value);
        EXPECT_EQ(refusalOf([&] { Prim refused((cow_String(text.c_str()))); }),
                  "omu_PrimEnum(const cow_String&) - str not allowed: " + text + "  Permissible: " + all + " @103");
    }
}

TEST(Enumerations, ConvertToEachOtherByName) {
    omu_PrimEnum<res_LoadDescriptorEnm, 1> const none(res_LoadDescriptor_NONE), film(res_LoadDescriptor_FILM);
    EXPECT_EQ((omu_PrimEnum<res_PairEnm, 1>(none)).value, res_Pair_NONE);
    EXPECT_EQ(refusalOf([&] { omu_PrimEnum<res_PairEnm, 1> refused(film); }),
              "omu_PrimEnum(const omu_PrimEnumBase&) - str not allowed: FILM @89");
    omu_PrimEnum<res_StorageTypeEnm, 1> const integer(cow_String("INTEGER"));
    EXPECT_EQ((omu_PrimEnum<res_DataTypeEnm, 1>(integer)).value, res_DataType_INTEGER);
    EXPECT_EQ(integer.value, res_StorageType_INTEGER);
}

// The first row is at the root of the map's tree; "B", an even code, goes to its left, "M", an odd one, to its right.
TEST(Enumerations, PermissibleValuesAreJoinedInTheOrderOfTheirMap) {
    omu_PrimEnum<res_ClampTypeEnm, 1> const clamp(res_ClampType_BOTH_CLAMPS);
    EXPECT_STREQ(clamp.PermissibleValuesAsString().CStr(), "NO_CLAMPS, BOTH_CLAMPS, MINIMUM_CLAMP, MAXINUM_CLAMP");
}

// What sets the tables apart from a plain list of their values.
TEST(Enumerations, OddRowsStand) {
    using Position = omu_PrimEnum<res_OutputPositionEnm, 1>;
    EXPECT_STREQ(Position::Name(2), "SURFACE_NODAL");
    EXPECT_EQ(Position::Value(2), 12);
    EXPECT_STREQ(Position::Name(5), "ELEMENT_FACE_INTEGRATION_POINT");
    EXPECT_EQ(Position::Value(13), 10);
    EXPECT_EQ((omu_PrimEnum<res_ClampTypeEnm, 1>(cow_String("MAXINUM_CLAMP"))).value, 2);
    EXPECT_EQ((omu_PrimEnum<res_LoadDescriptorEnm, 1>(cow_String("BODY FLUX"))).value, 16);
    EXPECT_FALSE((omu_PrimEnum<res_LoadDescriptorEnm, 1>(res_LoadDescriptor_NONE)).SetValue(res_LoadDescriptorEnm(14)));
    EXPECT_STREQ((omu_PrimEnum<res_InvariantEnm, 1>::Name(5)), "OUT-OF-PLANE_PRINCIPAL");
    EXPECT_STREQ((omu_PrimEnum<res_ComponentEnm, 1>::Name(8)), "ZY-COMPONENT");
    EXPECT_STREQ((omu_PrimEnum<shp_SuppDataPairEnm, 1>::Name(2)), "Circl");
    EXPECT_STREQ((omu_PrimEnum<shp_AnalyticRigidSurfEnm, 1>::Name(3)), "Revolut");
}

constexpr int firstTried = -3, lastTried = 70;

// Going to the stored code, back, and there again gives the same code; each code but the default is one bit.
template <class Res> void expectStableCodes(int byDefault) {
    for (int value = firstTried; value <= lastTried; ++value) {
        SCOPED_TRACE(value);
        auto const code = odiC_ConvertResToOdm(static_cast<Res>(value));
        EXPECT_EQ(odiC_ConvertResToOdm(odiC_ConvertOdmToRes(code)), code);
        EXPECT_TRUE(code == byDefault || (code > 0 && (code & (code - 1)) == 0));
    }
}

TEST(StoredCodes, AreStableOnceStored) {
    expectStableCodes<res_DataTypeEnm>(0);
    expectStableCodes<res_OutputPositionEnm>(16);
}

/// The values that a database gives back as they were stored.
template <class Res> std::set<int> survivors() {
    std::set<int> values;
    for (int value = firstTried; value <= lastTried; ++value)
        if (odiC_ConvertOdmToRes(odiC_ConvertResToOdm(static_cast<Res>(value))) == value)
            values.insert(value);
    return values;
}

TEST(StoredCodes, TellFewerCasesApart) {
    EXPECT_EQ(survivors<res_DataTypeEnm>(), (std::set<int>{3, 4, 7, 8, 15}));
    EXPECT_EQ(survivors<res_OutputPositionEnm>(), (std::set<int>{0, 1, 2, 3, 4, 6, 13, 14}));

    auto const position = [](int value) { return int(odiC_ConvertResToOdm(res_OutputPositionEnm(value))); };
    EXPECT_EQ(position(5), position(6));
    EXPECT_EQ(position(12), position(13));
    EXPECT_EQ(position(11), position(14));
    for (int const without : {-1, 0, 7, 8, 9, 10, 15, 16, 17})
        EXPECT_EQ(position(without), 16) << without;
    auto const type = [](int value) { return int(odiC_ConvertResToOdm(res_DataTypeEnm(value))); };
    EXPECT_EQ(type(6), type(7));
    for (int tensor = 9; tensor <= 13; ++tensor)
        EXPECT_EQ(type(tensor), type(8)) << tensor;
    EXPECT_EQ(position(2), 128);
    EXPECT_EQ(position(3), 1024);
    EXPECT_EQ(position(13), 2048);
    EXPECT_EQ(type(8), 8);

    for (int const unknown : {-1, 0, 16, 64, 32 + 128, 8192}) {
        EXPECT_EQ(odiC_ConvertOdmToRes(odm_PositionEnm(unknown)), res_OutputPosition_UNDEFINED_POSITION) << unknown;
        EXPECT_EQ(odiC_ConvertOdmToRes(odm_DataTypeEnm(unknown)), res_DataType_NUM_DATA_TYPE) << unknown;
    }
}

} // namespace
