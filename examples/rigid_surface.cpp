// rigid_surface
//
// Builds the profile of a die from a start point, lines, arcs and a parabola, turns and moves it, and stores it in both
// representations of a rigid surface: the newer with its segments, and the older with its flat list of points. Reads
// both back from the bytes, checks that a reader gets the same points from either, prints them, and draws the profile
// to rigid_surface.svg. Which way a curve runs between its points is told in profile_picture.h.
//
// Exit status: 0, or 1 if something failed.

#include "command_line.h"
#include "profile_picture.h"

#include <cls_MemoryStore.h>
#include <gsl_Matrix.h>
#include <shp_ArsDataHolder.h>
#include <shp_PrimEnums.h>

#include <cmath>
#include <cstdio>
#include <numbers>

namespace {

constexpr char const * pictureFile = "rigid_surface.svg";
constexpr double degrees = 15, moved[] = {1.5, 2};

g3d_Point point(float x, float y) {
    return g3d_Point(x, y, 0);
}

shp_AnalyticSurfaceSegment segment(shp_AnalyticSurfaceSegment::TypeEnm type, cow_List<g3d_Point> const & points) {
    shp_AnalyticSurfaceSegment made;
    made.type = type;
    made.data = cls_xo1DArrayList<g3d_Point>(points, cls_Uid());
    return made;
}

shp_AnalyticSurface makeDie() {
    using Segment = shp_AnalyticSurfaceSegment;
    using Points = cow_List<g3d_Point>;
    shp_AnalyticSurface die;
    die.type = shp_AnalyticSurface::CYLINDER;
    die.name = "die";
    die.profile.Append(segment(Segment::START, Points(point(0, 3))));
    die.profile.Append(segment(Segment::LINE, Points(point(1, 3))));
    die.profile.Append(segment(Segment::CIRCLE, Points(point(2, 2), point(1, 2)))); // end, centre
    die.profile.Append(segment(Segment::LINE, Points(point(2, 1))));
    die.profile.Append(segment(Segment::CIRCLE, Points(point(3, 0), point(3, 1))));
    die.profile.Append(segment(Segment::LINE, Points(point(4, 0))));
    die.profile.Append(segment(Segment::PARABOLA, Points(point(6, 1), point(5, 0.25f)))); // end, halfway
    // The origin of the local system, and points on its first and second axis.
    for (g3d_Point const & axisPoint : {point(0, 0), point(1.5f, 0), point(0, 1.5f)})
        die.localCoordData.Append(axisPoint);
    return die;
}

/// A turn about the z axis, then a move.
gsl_Matrix turnAndMove() {
    double const angle = degrees * std::numbers::pi / 180, c = std::cos(angle), s = std::sin(angle);
    double const rows[4][4] = {{c, -s, 0, moved[0]}, {s, c, 0, moved[1]}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    return gsl_Matrix(rows);
}

shp_ArsDataHolder holderOf(shp_AnalyticSurface const & surface) {
    shp_ArsDataHolder holder;
    holder.newData = surface.Copy();
    return holder;
}

/// The same surface in the older representation.
shp_AnalyticRigidSurfaceData olderForm(shp_AnalyticSurface const & surface) {
    shp_ArsDataHolder const holder = holderOf(surface);
    shp_AnalyticRigidSurfaceData older(shp_AnalyticRigidSurf_Cylinder);
    older.surfaceName = surface.name;
    older.dataPairList = holder.ConstGetDataPairList();
    for (int i = 0; i < older.localCoordDef.Length(); ++i)
        older.localCoordDef.Get(i) = holder.ConstGetLocalCoordDef(i);
    return older;
}

bool isSame(shp_SuppDataPair const & a, shp_SuppDataPair const & b) {
    return a.dataType == b.dataType && a.value.X() == b.value.X() && a.value.Y() == b.value.Y() &&
           a.value.Z() == b.value.Z();
}

void run() {
    shp_AnalyticSurface die = makeDie();
    shp_AnalyticSurface const untransformed = die; // shares the segments until one of the two is written
    die.SetTransform(turnAndMove());
    std::printf("\"%s\": %d segments, turned by %g degrees and moved by (%g, %g)\n", die.name.CStr(),
                die.profile.Length(), degrees, moved[0], moved[1]);

    cls_MemoryStore store;
    cls_WriteVisitor const writer(store);
    die.DBWrite(writer);
    olderForm(die).DBWrite(writer);
    cls_MemoryStore::ByteArray const bytes = store.Bytes();
    std::printf("stored in both representations: %zu bytes\n\n", bytes.size());

    cls_MemoryStore const kept(bytes.data(), bytes.size());
    shp_ArsDataHolder newer, older;
    newer.newData = new shp_AnalyticSurface(cls_ReadVisitor(kept, 0));
    older.oldData = new shp_AnalyticRigidSurfaceData(cls_ReadVisitor(kept, 1));
    cls_xoList<shp_SuppDataPair> const pairs = newer.ConstGetDataPairList(), others = older.ConstGetDataPairList();
    bool areSame = pairs.Length() == others.Length();
    for (int i = 0; i < pairs.Length(); ++i) {
        areSame = areSame && isSame(pairs[i], others[i]);
        std::printf("%2d  %-5s  (%.3f, %.3f)\n", i + 1,
                    omu_PrimEnum<shp_SuppDataPairEnm, 1>(pairs[i].dataType).GetString().CStr(), pairs[i].value.X(),
                    pairs[i].value.Y());
    }
    if (!areSame)
        throw std::runtime_error("the two representations differ");
    std::printf("\nThe older representation has the same points. The local axes stayed where they were:\n");
    LocalAxes const axes{newer.ConstGetLocalCoordDef(0), newer.ConstGetLocalCoordDef(1),
                         newer.ConstGetLocalCoordDef(2)};
    std::printf("origin (%g, %g), first (%g, %g), second (%g, %g).\n", axes.origin.X(), axes.origin.Y(), axes.first.X(),
                axes.first.Y(), axes.second.X(), axes.second.Y());
    writeProfilePicture(pictureFile, "Rigid surface \"" + std::string(newer.newData.ConstGet()->name.CStr()) + "\"",
                        pairs, holderOf(untransformed).ConstGetDataPairList(), axes);
    std::printf("The picture is in %s.\n", pictureFile);
}

} // namespace

int main() {
    return runProgram("rigid_surface", [] {
        run();
        return 0;
    });
}
