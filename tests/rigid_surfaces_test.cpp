// Analytic rigid surfaces in both representations: what they begin as, how they are copied and moved, and what the
// holder makes of them. That they are stored and read back is tested with the other classes in persistence_test.cpp.

#include "stored_objects.h"

#include "gsl_Matrix.h"
#include "shp_ArsDataHolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <initializer_list>
#include <memory>
#include <set>

namespace {

using Pair = shp_SuppDataPair;
using Rigid = shp_AnalyticRigidSurfaceData;
using Segment = shp_AnalyticSurfaceSegment;
using Surface = shp_AnalyticSurface;

TEST(RigidSurfaces, BeginAsTheirTypesDo) {
    std::set<cls_Uid> identities{cls_Uid()};
    auto const expectNew = [&](Rigid const & made, std::string const & names, std::string const & vectors) {
        EXPECT_EQ(textOf(made), "shp_AnalyticRigidSurfaceData#0(meshIndex=-1 classIndex=-1 elemIndex=-1 surfaceName=" +
                                    names + " localCoordDef=cls_xoList(" + vectors + ") dataPairList=cls_xoList#1())");
        EXPECT_TRUE(identities.insert(made.uid).second && identities.insert(made.dataPairList.uid).second);
    };
    std::string const vector = "g3d_Vector(x=0.0 y=0.0 z=0.0)", two = vector + " " + vector, three = two + " " + vector;
    expectNew(Rigid(), R"("default" surfaceType="Cylinder")", three);
    expectNew(Rigid(shp_AnalyticRigidSurf_AxiSegs), R"("" surfaceType="AxiSegs")", "");
    expectNew(Rigid(shp_AnalyticRigidSurf_ExtSegs), R"("" surfaceType="ExtSegs")", "");
    expectNew(Rigid(shp_AnalyticRigidSurf_Cylinder), R"("" surfaceType="Cylinder")", three);
    expectNew(Rigid(shp_AnalyticRigidSurf_Revolut), R"("" surfaceType="Revolut")", two);
    EXPECT_EQ(textOf(Surface()), "shp_AnalyticSurface(type=\"SEGMENTS\" filletRadius=0.0 profile=cls_xoList() "
                                 "localCoordData=cls_xoList() name=\"\")");
    EXPECT_EQ(textOf(Segment()), "shp_AnalyticSurfaceSegment(type=\"START\" data=cls_xoList())");
    EXPECT_EQ(textOf(Pair(Pair().value, shp_SuppDataPair_Start)),
              "shp_SuppDataPair(value=g3d_Point(x=0.0 y=0.0 z=0.0 w=1.0) dataType=\"Start\")");
}

TEST(RigidSurfaces, ATypeWithoutANameCannotBeStored) {
    auto const expectRefused = [](auto const & object) {
        std::string const message = raisedBy([&] { stored(object); });
        EXPECT_EQ(message.find("2: omu_PrimEnum(Enum) - Enum value not allowed: 4  Permissible: "), 0u) << message;
        EXPECT_TRUE(message.ends_with("omu_PrimEnum:76)")) << message;
    };
    Surface surface;
    surface.type = Surface::TypeEnm(4);
    expectRefused(surface);
    expectRefused(Pair());
    expectRefused(Rigid(shp_AnalyticRigidSurfEnm(4)));
    expectRefused(segment(Segment::TypeEnm(4), {}));
}

/// Copies, and what is read, have the content and the identities of `object`; its description lets go of a holder.
template <class Policy, class T> void expectCopies(T const & object) {
    cls_MemoryStore const store = stored(object);
    T copy(object), assigned;
    T const moved(std::move(copy));
    assigned = object;
    cow_COW<T, Policy> const holder(new T(object));
    cow_COW<T, Policy> changed(holder);
    changed.Get()->uid.NewUid();
    EXPECT_NE(bytesOf(*changed.ConstGet()), store.Bytes());
    cls_ReadVisitor reader(store);
    std::unique_ptr<T> const read(T::Ctor(reader));
    auto const passed = [](cow_COW<T, Policy> * made) {
        return reinterpret_cast<cow_COW<int, cow_Direct<int>> *>(made);
    };
    registrar().Find(T::TypeId())->DeleteCow(passed(new cow_COW<T, Policy>(holder)));
    T::CowDtor(passed(new cow_COW<T, Policy>(new T))); // the object goes with its last holder: see the sanitizer
    EXPECT_TRUE(holder.Exclusive());
    for (T const * each : std::initializer_list<T const *>{&copy, &moved, &assigned, read.get(), holder.ConstGet()})
        EXPECT_EQ(bytesOf(*each), store.Bytes());
}

TEST(RigidSurfaces, AreCopiedWithTheirIdentities) {
    Surface newer = surface();
    newer.localCoordData.uid.NewUid();
    Rigid older = olderSurface();
    older.localCoordDef.uid.NewUid();
    expectCopies<cow_Direct<Surface>>(newer);
    expectCopies<cow_Direct<Segment>>(newer.profile[0]);
    expectCopies<cow_Direct<Pair>>(older.dataPairList[0]);
    expectCopies<cow_Virtual<Rigid>>(older);
    EXPECT_EQ(bytesOf(*std::unique_ptr<Surface>(newer.Copy())), bytesOf(newer));
    EXPECT_EQ(bytesOf(*std::unique_ptr<Segment>(newer.profile[0].Copy())), bytesOf(newer.profile[0]));
}

TEST(RigidSurfaces, ATransformationMovesTheProfileAndNothingElse) {
    constexpr double rows[4][4] = {{0.3, -1.7, 0.1, 5}, {1e-3, 0.2, 9, -4.5}, {7, 1.0 / 3, -2, 1e-9}, {9, 9, 9, 9}};
    Surface original, expected;
    original.filletRadius = expected.filletRadius = 2;
    original.localCoordData = expected.localCoordData = surface().localCoordData;
    for (int i = 0; i < 60; ++i) { // more than a block of the list
        float const at[] = {0.1f * float(i), 700.0f / float(i + 1), -1.3f};
        g3d_Point point(at[0], at[1], at[2]), moved;
        float * const coords[] = {&moved.X(), &moved.Y(), &moved.Z()};
        for (int d = 0; d < 3; ++d)
            *coords[d] = float(rows[d][0] * at[0] + rows[d][1] * at[1] + rows[d][2] * at[2] + rows[d][3]);
        point.W() = moved.W() = float(i);
        original.profile.Append(segment(Segment::CIRCLE, {point, g3d_Point(), point}));
        expected.profile.Append(segment(Segment::CIRCLE, {moved, g3d_Point(5, -4.5f, 1e-9f), moved}));
    }
    Surface moved = original, unmoved = original;
    moved.SetTransform(gsl_Matrix(rows));
    unmoved.SetTransform(gsl_Matrix());
    EXPECT_EQ(textOf(moved), textOf(expected));
    EXPECT_EQ(textOf(unmoved), textOf(original)) << "neither the identity nor a copy's move touches it";
}

TEST(RigidSurfaces, EverySegmentIsTakenForEveryOther) {
    Segment const start, other = segment(Segment::PARABOLA, {g3d_Point(1, 2, 3)});
    EXPECT_TRUE(start == other && !(start != other));
    cow_List<Segment> segments(start);
    segments.AppendUnlessMember(other);
    EXPECT_EQ(segments.Length(), 1);
    segments.Append(other);
    segments.RemoveMember(other);
    EXPECT_EQ(segments[0].type, Segment::PARABOLA) << "the first one went";
    EXPECT_TRUE(segments.Difference(cow_List<Segment>(start)).IsEmpty());
}

// ---- The holder.

shp_ArsDataHolder holderOf(Rigid const * older, Surface const * newer) {
    shp_ArsDataHolder holder;
    if (older)
        holder.oldData = older->Copy();
    if (newer)
        holder.newData = newer->Copy();
    return holder;
}

TEST(SurfaceHolder, ListsTheOlderPairsAndThenThoseOfTheNewerSegments) {
    g3d_Point const a(1, 0, 0), b(2, 0, 0), c(3, 0, 0), d(4, 0, 0), e(5, 0, 0), f(6, 0, 0);
    Rigid const older = olderSurface();
    Surface newer;
    for (Segment const & each :
         {segment(Segment::START, {a, f}), segment(Segment::CIRCLE, {b, c, f}), segment(Segment::TypeEnm(4), {f}),
          segment(Segment::LINE, {d}), segment(Segment::PARABOLA, {e, f})})
        newer.profile.Append(each);
    cow_List<Pair> expected(older.dataPairList[0], Pair(a, shp_SuppDataPair_Start), Pair(b, shp_SuppDataPair_Circl));
    expected.Append(Pair(c, shp_SuppDataPair_Circl));
    expected.Append(Pair(d, shp_SuppDataPair_Line));
    expected.Append(Pair(e, shp_SuppDataPair_Parab));
    expected.Append(Pair(f, shp_SuppDataPair_Parab));
    auto const textOfPairs = [](cow_List<Pair> const & pairs) { return textOf(cls_xoList<Pair>(pairs, cls_Uid())); };

    shp_ArsDataHolder const bothHeld = holderOf(&older, &newer), young = holderOf(nullptr, &newer);
    EXPECT_TRUE(bothHeld.hasValue() && young.hasValue());
    cls_xoList<Pair> const pairs = bothHeld.ConstGetDataPairList(), newerPairs = young.ConstGetDataPairList();
    EXPECT_EQ(pairs.uid, older.dataPairList.uid);
    EXPECT_EQ(textOfPairs(pairs), textOfPairs(expected));
    EXPECT_EQ(bytesOf(holderOf(&older, nullptr).ConstGetDataPairList()), bytesOf(older.dataPairList));
    EXPECT_EQ(bytesOf(*bothHeld.oldData.ConstGet()), bytesOf(older)) << "appended to a list of its own";
    EXPECT_EQ(textOfPairs(newerPairs), textOfPairs(expected.Slice(1, 7)));
    EXPECT_TRUE(!newerPairs.uid.IsNull() && young.ConstGetDataPairList().uid != newerPairs.uid);

    for (Segment const & tooShort : {Segment(), segment(Segment::CIRCLE, {a})}) {
        newer.profile.Get(0) = tooShort;
        EXPECT_EXIT(holderOf(nullptr, &newer).ConstGetDataPairList(), testing::KilledBySignal(SIGABRT), "");
    }
}

TEST(SurfaceHolder, GivesTheNewerLocalPointsBeforeTheOlderVectors) {
    Rigid older(shp_AnalyticRigidSurf_Cylinder);
    older.localCoordDef.Get(2) = g3d_Vector(2, 3, 4);
    Surface newer;
    for (int i = 0; i < 4; ++i) // one more than the older has
        newer.localCoordData.Append(g3d_Point(float(-i), 8, 9));
    shp_ArsDataHolder const bothHeld = holderOf(&older, &newer), old = holderOf(&older, nullptr),
                            young = holderOf(nullptr, &newer);
    EXPECT_EQ(textOf(old.ConstGetLocalCoordDef(2)), textOf(g3d_Vector(2, 3, 4)));
    EXPECT_EQ(textOf(bothHeld.ConstGetLocalCoordDef(2)), textOf(g3d_Vector(-2, 8, 9)));
    EXPECT_EQ(textOf(young.ConstGetLocalCoordDef(3)), textOf(g3d_Vector(-3, 8, 9)));
    EXPECT_EQ(raisedBy([&] { young.ConstGetLocalCoordDef(5); }),
              "1: localcoord data requested for 5 when size is 4 (QVRShpShape/QVRShpShp.m/src/shp_ArsDataHolder:72)");
    struct {
        shp_ArsDataHolder const & holder;
        int index;
    } const fatal[] = {{old, -1}, {old, 3}, {young, -1}, {young, 4}, {bothHeld, 3}, {bothHeld, 5}};
    for (auto const & [holder, index] : fatal)
        EXPECT_EXIT(holder.ConstGetLocalCoordDef(index), testing::KilledBySignal(SIGABRT), "") << index;
}

TEST(SurfaceHolder, RaisesWithoutASurface) {
    shp_ArsDataHolder const holder;
    EXPECT_FALSE(holder.hasValue());
    std::string const message =
        "1: ARS data does not have a valid old/new representation (QVRShpShape/QVRShpShp.m/src/shp_ArsDataHolder:";
    EXPECT_EQ(raisedBy([&] { holder.ConstGetDataPairList(); }), message + "17)");
    EXPECT_EQ(raisedBy([&] { holder.ConstGetLocalCoordDef(0); }), message + "61)");
}

} // namespace
