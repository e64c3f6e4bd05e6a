#include "shp_ArchEntry.h"

#include <iterator>

namespace {

/// Kind, reference, name. Rows 7 and 10 refer to themselves, and stored objects count on every row's place. The names
/// in ...Shortcut and ...IMPLSC have no class: they are forms of storage that are known by name alone.
constexpr typ_Entry rows[] = {
    {0, 0, nullptr},
    {7, 1, "shp_AnalyticRigidSurfaceData"},
    {7, 1, "shp_SuppDataPair"},
    {7, 1, "shp_AnalyticSurfaceSegment"},
    {7, 1, "shp_AnalyticSurface"},
    {7, 1, "shp_AnalyticSurfaceSegmentShortcut"},
    {7, 1, "shp_AnalyticSurfaceSegmentIMPLSC"},
    {7, typ_reference(831, 7), "shp_AnalyticSurfaceSegmentInAnalyticSurfaceSegmentListShortcut"},
    {7, 1, "shp_AnalyticSurfaceSegmentListShortcut"},
    {7, 1, "shp_AnalyticSurfaceSegmentListIMPLSC"},
    {7, typ_reference(831, 10), "shp_AnalyticSurfaceSegmentListInAnalyticSurfaceShortcut"},
    {7, 1, "shp_AnalyticSurfaceShortcut"},
    {7, 1, "shp_AnalyticSurfaceIMPLSC"},
};

} // namespace

typ_ArchCompEntry shp_ArchEntry() {
    return {rows, static_cast<unsigned int>(std::size(rows))};
}
