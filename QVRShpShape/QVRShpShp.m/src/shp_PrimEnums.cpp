// The tables of the enumerations of analytic rigid surfaces: a row is a value and its name. Stored surfaces know the
// names exactly as they stand here, cut short or not.

#include "shp_PrimEnums.h"

namespace {

// clang-format off
constexpr omu_PrimEnumRow segmentTypeRows[] = {
    {shp_AnalyticSurfaceSegment::START, "START"},
    {shp_AnalyticSurfaceSegment::LINE, "LINE"},
    {shp_AnalyticSurfaceSegment::CIRCLE, "CIRCLE"},
    {shp_AnalyticSurfaceSegment::PARABOLA, "PARABOLA"},
    {0, nullptr}};

constexpr omu_PrimEnumRow surfaceTypeRows[] = {
    {shp_AnalyticSurface::SEGMENTS, "SEGMENTS"},
    {shp_AnalyticSurface::CYLINDER, "CYLINDER"},
    {shp_AnalyticSurface::REVOLUTION, "REVOLUTION"},
    {shp_AnalyticSurface::USER, "USER"},
    {0, nullptr}};

constexpr omu_PrimEnumRow rigidSurfaceRows[] = {
    {shp_AnalyticRigidSurf_AxiSegs, "AxiSegs"},
    {shp_AnalyticRigidSurf_ExtSegs, "ExtSegs"},
    {shp_AnalyticRigidSurf_Cylinder, "Cylinder"},
    {shp_AnalyticRigidSurf_Revolut, "Revolut"},
    {0, nullptr}};

constexpr omu_PrimEnumRow dataPairRows[] = {
    {shp_SuppDataPair_Start, "Start"},
    {shp_SuppDataPair_Line, "Line"},
    {shp_SuppDataPair_Circl, "Circl"},
    {shp_SuppDataPair_Parab, "Parab"},
    {0, nullptr}};
// clang-format on

} // namespace

omu_PrimEnumRow const * omu_PrimEnumRows(shp_AnalyticSurfaceSegment::TypeEnm) {
    return segmentTypeRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(shp_AnalyticSurface::TypeEnm) {
    return surfaceTypeRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(shp_AnalyticRigidSurfEnm) {
    return rigidSurfaceRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(shp_SuppDataPairEnm) {
    return dataPairRows;
}

template class omu_PrimEnum<shp_AnalyticSurfaceSegment::TypeEnm, 1>;
template class omu_PrimEnum<shp_AnalyticSurface::TypeEnm, 1>;
template class omu_PrimEnum<shp_AnalyticRigidSurfEnm, 1>;
template class omu_PrimEnum<shp_SuppDataPairEnm, 1>;
